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

    /// As long as one exists, the progress line shows the place, and makes way for what is written.
    class Progress {
    public:
        Progress(Console& console, ProgressLine& line) : console_(console) { console_.progress_ = &line; }
        Progress(const Progress&) = delete;
        Progress& operator=(const Progress&) = delete;
        ~Progress() { console_.progress_ = nullptr; }

    private:
        Console& console_;
    };

private:
    const MacroSource& source_;
    std::string* const output_;
    ProgressLine* progress_ = nullptr;
};

}  // namespace macroctl
