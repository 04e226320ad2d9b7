#include "macro/Console.h"

#include <cstdio>
#include <optional>

#include <macroengine/CMacroPropertyIF.h>

#include "io/ProgressLine.h"
#include "macro/MacroSource.h"

namespace macroctl {

bool Console::Print(std::string_view line) {
    if (output_ != nullptr) {
        *output_ += line;
        return true;
    }
    std::optional<ProgressLine::Pause> pause;
    if (progress_ != nullptr) pause.emplace(*progress_);
    // Flushed, so that a log ends with the last line before a device that doesn't answer.
    return std::fwrite(line.data(), 1, line.size(), stdout) == line.size() && std::fflush(stdout) == 0;
}

void Console::Trace(const char* line) {
    std::optional<ProgressLine::Pause> pause;
    if (progress_ != nullptr) pause.emplace(*progress_);
    std::fputs(line, stderr);
}

void Console::NotePlace(CMacroPropertyIF& property) {
    if (progress_ == nullptr || !progress_->IsOnTerminal()) return;
    progress_->SetText("running " + source_.Shown(property.GetFileName()) + "(" +
                       std::to_string(property.GetLineNumber()) + ")");
}

}  // namespace macroctl
