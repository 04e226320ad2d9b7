#include "MacroHost.h"

#include <cstdio>
#include <memory>
#include <string>

#include <macroengine/CMacroFileIF.h>

#include "AbortOnInterrupt.h"
#include "board/SimulatedBoard.h"

namespace macroctl {

namespace {

ExitStatus RefuseUsage(const std::string& reason) {
    std::fprintf(stderr, "macroctl: %s\n", reason.c_str());
    return kExitUsage;
}

bool EndsWith(const std::string& text, const std::string& end) {
    return text.size() >= end.size() && text.compare(text.size() - end.size(), end.size(), end) == 0;
}

}  // namespace

/// One macro file with the commands that it may name. The members' order is the order of their lives: the
/// commands outlive the file.
class MacroHost::Macro {
public:
    Macro(const Options& options, const std::string& path) : path_(path) {
        if (options.board) board_ = std::make_unique<SimulatedBoard>(options.traceBus);
        file_ = CreateMacroFileNoRegisterRequest(options.nameSpace, false);
    }

    ~Macro() { DeleteMacroFile(file_); }

    Macro(const Macro&) = delete;
    Macro& operator=(const Macro&) = delete;

    /// @return false with the reason when a command can't be registered.
    bool Prepare(const Plugins& plugins, std::string& reason) {
        if (file_ == nullptr) {
            reason = "out of memory";
            return false;
        }
        if (board_ && !board_->RegisterWith(*file_)) {
            reason = "the board's commands can't be registered";
            return false;
        }
        return plugins.RegisterWith(*file_, reason);
    }

    bool Load() {
        if (file_->Load(path_.c_str())) return true;
        ReportErrors("the file can't be compiled.");
        return false;
    }

    ExitStatus Run(const Options& options) {
        file_->SetWorkDirectory(options.workDirectory.c_str());
        file_->SetErrorHandling(!options.keepGoing, nullptr, 0);
        bool ranToItsEnd = false;
        {
            const AbortOnInterrupt abortOnInterrupt(*file_);
            ranToItsEnd = file_->Run();
        }
        if (ranToItsEnd) return kExitDone;
        ReportErrors("the file can't be run.");
        return WasAborted() ? kExitAborted : kExitFailed;
    }

private:
    /// @param fallback  said when the engine has nothing to say, so that no failure goes without a word.
    void ReportErrors(const char* fallback) const {
        std::string lines;
        for (std::uint32_t i = 0; i < file_->GetErrorCount(); ++i) {
            lines += file_->GetErrorMessage(i);
            lines += '\n';
        }
        if (lines.empty()) lines = path_ + ": error : " + fallback + "\n";
        // What the macro has written comes first, also where both streams go to the same place.
        std::fflush(stdout);
        std::fwrite(lines.data(), 1, lines.size(), stderr);
    }

    bool WasAborted() const {
        const std::uint32_t count = file_->GetErrorCount();
        return count > 0 && EndsWith(file_->GetErrorMessage(count - 1), "error : Macro aborted.");
    }

    std::string path_;
    std::unique_ptr<SimulatedBoard> board_;
    CMacroFileIF* file_ = nullptr;
};

ExitStatus MacroHost::Execute() {
    std::string reason;
    if (!plugins_.Load(options_.plugins, reason)) return RefuseUsage(reason);
    return options_.action == Options::Action::Run ? RunFile(options_.files.front()) : CheckFiles();
}

ExitStatus MacroHost::RunFile(const std::string& path) {
    Macro macro(options_, path);
    std::string reason;
    if (!macro.Prepare(plugins_, reason)) return RefuseUsage(reason);
    return macro.Load() ? macro.Run(options_) : kExitFailed;
}

ExitStatus MacroHost::CheckFiles() {
    ExitStatus status = kExitDone;
    for (const std::string& path : options_.files) {
        Macro macro(options_, path);
        std::string reason;
        if (!macro.Prepare(plugins_, reason)) return RefuseUsage(reason);
        if (!macro.Load()) status = kExitFailed;
    }
    return status;
}

}  // namespace macroctl
