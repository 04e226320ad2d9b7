#include "macro/Macro.h"

#include <cstdint>
#include <cstdio>
#include <new>
#include <utility>

#include <macroengine/CMacroFileIF.h>

#include "board/DeviceBoard.h"
#include "board/SimulatedBoard.h"
#include "io/ProgressLine.h"
#include "macro/AbortOnInterrupt.h"
#include "macro/CallCheck.h"

namespace macroctl {

namespace {

ExitStatus RefuseUsage(const std::string& reason) {
    std::fprintf(stderr, "macroctl: %s\n", reason.c_str());
    return kExitUsage;
}

bool EndsWith(const std::string& text, const std::string& end) {
    return text.size() >= end.size() && text.compare(text.size() - end.size(), end.size(), end) == 0;
}

std::unique_ptr<Board> MakeBoard(const MacroEnvironment& environment, Console& console) {
    const LanguageOptions& options = environment.Options();
    if (environment.Device() != nullptr)
        return std::make_unique<DeviceBoard>(*environment.Device(), console, options.traceBus);
    if (options.board) return std::make_unique<SimulatedBoard>(console, options.traceBus);
    return nullptr;
}

}  // namespace

std::optional<ExitStatus> MacroEnvironment::Prepare() {
    std::string reason;
    if (!plugins_.Load(options_.plugins, reason)) return RefuseUsage(reason);
    if (options_.registerFile.empty()) return std::nullopt;
    registerFile_ = std::make_unique<RegisterFile>(options_.registerFile, ReadingOptions{});
    if (!registerFile_->IsGood()) {
        // A device that lacks the registers of the bad lines would find fault with good macros.
        report_.Add(registerFile_->Errors());
        return kExitFailed;
    }
    device_ = std::make_unique<DeviceMap>(*registerFile_);
    return std::nullopt;
}

Macro::Macro(const MacroEnvironment& environment, const std::string& file, std::string* output)
    : environment_(environment),
      source_(file),
      console_(source_, output),
      board_(MakeBoard(environment, console_)) {
    file_ = CreateMacroFileNoRegisterRequest(environment.Options().nameSpace, false);
    if (file_ == nullptr) throw std::bad_alloc();
}

Macro::~Macro() {
    DeleteMacroFile(file_);
}

bool Macro::RegisterCommands(std::string& reason) {
    if (board_ && !board_->RegisterWith(*file_)) {
        reason = "the board's commands can't be registered";
        return false;
    }
    return environment_.LoadedPlugins().RegisterWith(*file_, reason);
}

std::optional<ExitStatus> Macro::Load() {
    std::string reason;
    if (!RegisterCommands(reason)) return RefuseUsage(reason);
    if (!source_.Open(reason)) {
        Tell({"error : " + reason});
        return kExitFailed;
    }
    if (source_.IsStandardInput()) environment_.Errors().AddSource(source_.Name(), source_.Text());
    bool loaded = false;
    {
        const ProgressLine progress("compiling " + source_.Name());
        loaded = file_->Load(source_.Path().c_str());
    }
    source_.Close();
    if (loaded) return std::nullopt;
    ReportErrors("the file can't be compiled.");
    return kExitFailed;
}

bool Macro::CheckRegisterCalls() {
    if (environment_.Device() == nullptr) return true;
    const std::vector<std::string> findings = FindRegisterMistakes(*file_, *environment_.Device());
    Tell(findings);
    return findings.empty();
}

ExitStatus Macro::Run(const RunOptions& options) {
    file_->SetWorkDirectory(options.workDirectory.c_str());
    file_->SetErrorHandling(!options.keepGoing, nullptr, 0);
    SetMacroLimits(file_, options.limits);
    bool ranToItsEnd = false;
    {
        ProgressLine progress("running " + source_.Name());
        const Console::Progress shown(console_, progress);
        const AbortOnInterrupt abortOnInterrupt(*file_);
        ranToItsEnd = file_->Run();
    }
    if (ranToItsEnd) return kExitDone;
    ReportErrors("the file can't be run.");
    return WasAborted() ? kExitAborted : kExitFailed;
}

/// @param fallback  said when the engine has nothing to say, so that no failure goes without a word.
void Macro::ReportErrors(const char* fallback) const {
    std::vector<std::string> lines;
    for (std::uint32_t i = 0; i < file_->GetErrorCount(); ++i)
        lines.emplace_back(file_->GetErrorMessage(i));
    if (lines.empty()) lines.push_back(source_.Path() + ": error : " + fallback);
    Tell(lines);
}

void Macro::Tell(std::vector<std::string> lines) const {
    for (std::string& line : lines)
        line = source_.Shown(std::move(line));
    environment_.Errors().Add(lines);
}

bool Macro::WasAborted() const {
    const std::uint32_t count = file_->GetErrorCount();
    if (count == 0) return false;
    const std::string line = file_->GetErrorMessage(count - 1);
    return EndsWith(line, "error : Macro aborted.") ||
           line.find("): error : Macro aborted. (limit of ") != std::string::npos;
}

}  // namespace macroctl
