// The category `greet`:
//
//     x = greet.hello("name")           "hello name"
//     greet.volume(channel) = value     and x = greet.volume(channel)
//     x = greet.folder()                the work folder
//     greet.hang()                      doesn't return before a minute has passed

#include <chrono>
#include <string>
#include <thread>

#include <macroengine/CMacroCategoryBase.h>
#include <macroengine/CMacroPropertyIF.h>
#include <macroengine/Plugin.h>

namespace {

class Hello : public CMacroCategoryBase {
public:
    Hello() : CMacroCategoryBase("greet", "hello", true, false, "") {}

    bool Run(CMacroPropertyIF* property) override {
        if (property->CheckArgumentCount(1, 1) < 0) return false;
        const char* name = property->GetArgString(0);
        if (name == nullptr) return false;
        return property->SetResultString((std::string("hello ") + name).c_str());
    }
};

class Volume : public CMacroCategoryBase {
public:
    Volume() : CMacroCategoryBase("greet", "volume", true, true, "") {}

    bool Run(CMacroPropertyIF* property) override {
        int channel = 0;
        if (property->CheckArgumentCount(1, 1) < 0) return false;
        if (!property->GetArgInteger(0, 0, kChannelCount - 1, channel)) return false;
        if (property->CheckNoAssignedValue(true)) return property->SetResultInteger(volumes_[channel]);
        return property->GetAssignedInteger(0, 100, volumes_[channel]);
    }

private:
    static constexpr unsigned int kChannelCount = 4;
    int volumes_[kChannelCount] = {};
};

class Folder : public CMacroCategoryBase {
public:
    Folder() : CMacroCategoryBase("greet", "folder", true, false, "") {}

    bool Run(CMacroPropertyIF* property) override {
        return property->SetResultString(property->GetWorkFolder());
    }
};

class Hang : public CMacroCategoryBase {
public:
    Hang() : CMacroCategoryBase("greet", "hang", false, false, "") {}

    bool Run(CMacroPropertyIF*) override {
        std::this_thread::sleep_for(std::chrono::minutes(1));
        return true;
    }
};

}  // namespace

extern "C" MACROENGINE_PLUGIN_EXPORT bool RegisterMacroPlugin(CMacroFileIF* file) {
    static Hello hello;
    static Volume volume;
    static Folder folder;
    static Hang hang;
    CMacroCategoryBase* const commands[] = {&hello, &volume, &folder, &hang};
    for (CMacroCategoryBase* command : commands) {
        if (!file->RegisterCategory(nullptr, command, false)) return false;
    }
    return true;
}
