// As many commands as the system variable COMMANDS says: many.c0() and so on, which do nothing.

#include <deque>
#include <string>

#include <macroengine/CMacroCategoryBase.h>
#include <macroengine/CMacroFileIF.h>
#include <macroengine/Plugin.h>
#include <macroengine/SystemVariable.h>

namespace {

class NoOperation : public CMacroCategoryBase {
public:
    explicit NoOperation(const char* name) : CMacroCategoryBase("many", name, false, false, "") {}

    bool Run(CMacroPropertyIF*) override { return true; }
};

}  // namespace

extern "C" MACROENGINE_PLUGIN_EXPORT bool RegisterMacroPlugin(CMacroFileIF* file) {
    // Neither names nor commands may move.
    static std::deque<std::string> names;
    static std::deque<NoOperation> commands;
    long count = 0;
    if (!GetSystemVariable("COMMANDS", count)) return false;
    while (static_cast<long>(commands.size()) < count) {
        names.push_back("c" + std::to_string(names.size()));
        commands.emplace_back(names.back().c_str());
    }
    for (NoOperation& command : commands) {
        if (!file->RegisterCategory(nullptr, &command, false)) return false;
    }
    return true;
}
