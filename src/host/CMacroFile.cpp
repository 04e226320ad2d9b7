#include "host/CMacroFile.h"

#include <new>

#include "compiler/MacroCompiler.h"
#include "macroengine/PluginInfo.h"
#include "platform/CodePage.h"

namespace macroengine {

namespace {

constexpr int kPluginTableSize = 100;

const char* OrEmpty(const char* text) {
    return text == nullptr ? "" : text;
}

/// @return the message for a run request while the program is in the state.
const char* RefusalIn(CMacroPrg::State state) {
    switch (state) {
        case CMacroPrg::State::StepRunning:
            return "internal error. Recieve run-request during step-running.";
        case CMacroPrg::State::Breaking:
            return "internal error. Recieve run-request during breaking.";
        case CMacroPrg::State::Aborting:
            return "internal error. Recieve run-request during aborting.";
        default:
            return "internal error. Recieve run-request during running.";
    }
}

}  // namespace

/// Takes the object for a load or a run, unless it is taken. What was deleted meanwhile goes with the guard.
class CMacroFile::ActivityGuard {
public:
    ActivityGuard(CMacroFile& file, Activity activity) : file_(file), activity_(activity) {
        Activity expected = Activity::Idle;
        taken_ = file_.activity_.compare_exchange_strong(expected, activity);
    }
    ActivityGuard(const ActivityGuard&) = delete;
    ActivityGuard& operator=(const ActivityGuard&) = delete;
    ~ActivityGuard() {
        if (taken_ && !file_.activity_.compare_exchange_strong(activity_, Activity::Idle)) delete &file_;
    }

    bool IsTaken() const { return taken_; }

private:
    CMacroFile& file_;
    Activity activity_;
    bool taken_;
};

CMacroFile::CMacroFile(const std::string& nameSpace) : commands_(nameSpace) {
    platform::RefreshCodePage();
}

CMacroFile::~CMacroFile() = default;

void CMacroFile::Delete() {
    const Activity before = activity_.exchange(Activity::Deleted);
    if (before == Activity::Idle) {
        delete this;
    } else {
        program_.RequestAbort();
    }
}

bool CMacroFile::Load(const char* path) {
    const ActivityGuard guard(*this, Activity::Loading);
    if (!guard.IsTaken()) {
        const std::lock_guard<std::mutex> lock(errorsMutex_);
        errors_.AddError("Can't load file, because macro is loading or running now.");
        return false;
    }
    filePath_ = OrEmpty(path);
    CErrorMessageTable errors;
    const bool loaded = MacroCompiler(program_, commands_, errors).CompileFile(filePath_, nullptr);
    const std::lock_guard<std::mutex> lock(errorsMutex_);
    errors_.TakeErrors(errors);
    return loaded;
}

bool CMacroFile::Run() {
    const ActivityGuard guard(*this, Activity::Running);
    if (!guard.IsTaken()) return RefuseRun();
    // What a run before this one had no memory to hand over says nothing about this one.
    program_.GetErrors().Clear();
    program_.SetSourcePath(filePath_);
    commands_.BeginRun();
    if (program_.Run()) return true;
    TakeProgramErrors();
    return false;
}

/// The program belongs to the call that is under way, so the refusal goes straight to the errors of the file.
bool CMacroFile::RefuseRun() {
    const bool isLoading = activity_.load() == Activity::Loading;
    const std::lock_guard<std::mutex> lock(errorsMutex_);
    errors_.AddError(isLoading ? "Can't run macro, because file is loading now.."
                               : RefusalIn(program_.GetState()));
    return false;
}

void CMacroFile::TakeProgramErrors() {
    const std::lock_guard<std::mutex> lock(errorsMutex_);
    errors_.TakeErrors(program_.GetErrors());
}

std::uint32_t CMacroFile::GetErrorCount() const {
    const std::lock_guard<std::mutex> lock(errorsMutex_);
    return errors_.GetCount();
}

const char* CMacroFile::GetErrorMessage(std::uint32_t index) const {
    const std::lock_guard<std::mutex> lock(errorsMutex_);
    return errors_.GetMessage(index).c_str();
}

void CMacroFile::ClearErrors() {
    const std::lock_guard<std::mutex> lock(errorsMutex_);
    errors_.Clear();
}

void CMacroFile::Reserved() {}

bool CMacroFile::RegisterCategory(CMacroCategoryBase* companion, CMacroCategoryBase* command, bool bareCall) {
    return commands_.AddCategoryCommand(companion, command, bareCall);
}

bool CMacroFile::RequestPluginRegistration() {
    bool found = true;
    for (int i = 0; found && i < kPluginTableSize; ++i) {
        int id = 0;
        HWND window = nullptr;
        GetBoardModuleInfo(0, &id, &window);
        found = GetMacroPluginInfo(i, &id, &window);
    }
    return found;
}

CMacroCategoryBase* CMacroFile::FindCommand(const char* category, const char* command) {
    return commands_.FindCommand(OrEmpty(category), OrEmpty(command));
}

bool CMacroFile::Abort() {
    // What a run that is over had to say is in the errors already: Run has moved it there before it returned.
    return program_.RequestAbort();
}

bool CMacroFile::SetWorkDirectory(const char* directory) {
    program_.SetWorkDirectory(OrEmpty(directory));
    return true;
}

bool CMacroFile::SetLineNotification(std::uint32_t code, HWND target, std::uint32_t enableCount) {
    program_.SetLineNotification(code, target, enableCount);
    return true;
}

bool CMacroFile::SetErrorHandling(bool stopOnError, HWND target, std::uint32_t code) {
    program_.SetErrorHandling(stopOnError, target, code);
    return true;
}

}  // namespace macroengine

namespace {

CMacroFileIF* Create(const std::string& name, bool requestsRegistration) {
    // Null when there is no memory for the object itself; what its members lack they report by an exception.
    auto* const file = new (std::nothrow) macroengine::CMacroFile(name);
    if (file != nullptr && requestsRegistration) file->RequestPluginRegistration();
    return file;
}

}  // namespace

// The flag is a part of the interface that nothing depends on.

CMacroFileIF* CreateMacroFile(const std::string& name, bool) {
    return Create(name, true);
}

CMacroFileIF* CreateMacroFileNoRegisterRequest(const std::string& name, bool) {
    return Create(name, false);
}

void DeleteMacroFile(CMacroFileIF*& file) {
    if (auto* const macro = dynamic_cast<macroengine::CMacroFile*>(file)) {
        macro->Delete();
    } else {
        delete file;
    }
    file = nullptr;
}
