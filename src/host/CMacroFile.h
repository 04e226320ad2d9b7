#pragma once

#include <atomic>
#include <cstdint>
#include <mutex>
#include <string>

#include "categories/CMacroCategoryCmdList.h"
#include "host/CErrorMessageTable.h"
#include "host/CMacroPrg.h"
#include "macroengine/CMacroFileIF.h"

namespace macroengine {

/// The object that a host holds: one program, the commands that it may call, and the errors of both.
///
/// Load and Run take the object for themselves as long as they work; a call of either meanwhile, from a
/// command or from another thread, is refused. Abort never waits for them. A deletion meanwhile is put off until
/// they return.
class CMacroFile final : public CMacroFileIF {
public:
    explicit CMacroFile(const std::string& nameSpace);
    CMacroFile(const CMacroFile&) = delete;
    CMacroFile& operator=(const CMacroFile&) = delete;
    ~CMacroFile() override;

    bool Load(const char* path) override;
    bool Run() override;
    std::uint32_t GetErrorCount() const override;
    const char* GetErrorMessage(std::uint32_t index) const override;
    void ClearErrors() override;
    void Reserved() override;
    bool RegisterCategory(CMacroCategoryBase* companion, CMacroCategoryBase* command, bool bareCall) override;
    bool RequestPluginRegistration() override;
    CMacroCategoryBase* FindCommand(const char* category, const char* command) override;
    bool Abort() override;
    bool SetWorkDirectory(const char* directory) override;
    bool SetLineNotification(std::uint32_t code, HWND target, std::uint32_t enableCount) override;
    bool SetErrorHandling(bool stopOnError, HWND target, std::uint32_t code) override;

    void SetLimits(const MacroLimits& limits) { program_.SetLimits(limits); }

    const CMacroPrg& GetProgram() const { return program_; }

    /// Deletes the object, at once or, while a load or a run is under way, when that returns. The run is asked
    /// to end.
    void Delete();

private:
    enum class Activity { Idle, Loading, Running, Deleted };
    class ActivityGuard;

    void TakeProgramErrors();
    bool RefuseRun();

    std::string filePath_;
    CMacroCategoryCmdList commands_;
    CMacroPrg program_;

    /// Guards the errors: a refused call may report while another thread runs the program.
    mutable std::mutex errorsMutex_;
    CErrorMessageTable errors_;
    std::atomic<Activity> activity_{Activity::Idle};
};

}  // namespace macroengine
