#include "common/HarmlessCommands.h"

#include "macroengine/CMacroCategoryBase.h"
#include "macroengine/CMacroPropertyIF.h"

namespace macroengine::fuzz {

namespace {

class IdleCommand : public CMacroCategoryBase {
public:
    IdleCommand(const char* category, const char* name, bool canAssignSrc, bool canAssignDest)
        : CMacroCategoryBase(category, name, canAssignSrc, canAssignDest, HarmlessCommands::kNamespace) {}

    bool Run(CMacroPropertyIF* property) override { return property->SetResultInteger(0); }
};

class TickCommand : public CMacroCategoryBase {
public:
    TickCommand(CMacroPrg& program, int ticks)
        : CMacroCategoryBase("fuzz", "tick", false, false, ""), program_(program), ticks_(ticks) {}

    bool Run(CMacroPropertyIF*) override {
        if (--ticks_ < 0) program_.RequestAbort();
        return true;
    }

private:
    CMacroPrg& program_;
    int ticks_;
};

}  // namespace

HarmlessCommands::HarmlessCommands(CMacroCategoryCmdList& list, CMacroPrg& program, int ticks) {
    const auto add = [&](std::unique_ptr<CMacroCategoryBase> command, bool bareCall) {
        list.AddCategoryCommand(nullptr, command.get(), bareCall);
        commands_.push_back(std::move(command));
    };
    for (const char* name : {"file_write", "mkdir"})
        add(std::make_unique<IdleCommand>("system", name, false, false), false);
    for (const char* name : {"command_exec", "find_file", "csvfile_read"})
        add(std::make_unique<IdleCommand>("system", name, true, false), false);
    add(std::make_unique<IdleCommand>("system", "variable", true, true), false);
    for (const char* name : {"print", "expect", "preset", "read", "write"})
        add(std::make_unique<IdleCommand>("board", name, true, true), false);
    add(std::make_unique<IdleCommand>("wait_ms", "wait_ms", false, false), true);
    add(std::make_unique<TickCommand>(program, ticks), false);
}

HarmlessCommands::~HarmlessCommands() = default;

}  // namespace macroengine::fuzz
