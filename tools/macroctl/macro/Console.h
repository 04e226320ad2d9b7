#pragma once

#include <string>
#include <string_view>

class CMacroPropertyIF;

namespace macroctl {

class MacroSource;
class ProgressLine;

/// What a running macro shows of itself: the lines that it prints, the trace of its bus, and where it is.
class Console {
public:
    /// @param source  of the macro; outlives this object.
    /// @param output  receives what is printed; null: it goes to standard output.
    Console(const MacroSource& source, std::string* output) : source_(source), output_(output) {}
    Console(const Console&) = delete;
    Console& operator=(const Console&) = delete;

    /// @param line  with its line end.
    /// @return false when standard output doesn't take it.
    bool Print(std::string_view line);

    /// Writes to standard error.
    /// @param line  with its line end.
    void Trace(const char* line);

    /// Notes where a command is called from.
    void NotePlace(CMacroPropertyIF& property);

    /// @param progress  shows the place from now on, and makes way for what is written; null: nothing does.
    void ShowProgress(ProgressLine* progress) { progress_ = progress; }

private:
    const MacroSource& source_;
    std::string* const output_;
    ProgressLine* progress_ = nullptr;
};

}  // namespace macroctl
