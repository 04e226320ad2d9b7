#include "io/TextReport.h"

#include <cstdio>
#include <cstdlib>

#include "io/Colours.h"
#include "io/ErrorLine.h"
#include "platform/Terminal.h"

namespace macroctl {

namespace {

bool IsColourWanted() {
    const char* const noColour = std::getenv("NO_COLOR");
    return noColour == nullptr || *noColour == '\0';
}

/// @return the line with its word "error" in colour.
std::string Coloured(const std::string& line) {
    const std::string_view text = ParseErrorLine(line).text;
    const std::size_t behindMark = static_cast<std::size_t>(text.data() - line.data());
    if (behindMark < kErrorMark.size()) return line;
    const std::size_t mark = behindMark - kErrorMark.size();
    return line.substr(0, mark) + kErrorColour + "error" + kNoColour + line.substr(mark + 5);
}

}  // namespace

TextReport::TextReport() {
    const std::size_t columns = ErrorTerminalColumns();
    if (columns == 0) return;
    coloured_ = IsColourWanted() && EnableErrorColours();
    excerpts_.emplace(columns, coloured_);
}

void TextReport::AddSource(std::string_view name, std::string_view text) {
    if (excerpts_) excerpts_->AddSource(name, text);
}

void TextReport::Add(const std::vector<std::string>& lines) {
    if (lines.empty()) return;
    std::string all;
    if (excerpts_) {
        all = OnTerminal(lines);
    } else {
        for (const std::string& line : lines)
            all.append(line).append(1, '\n');
    }
    // What was printed before comes first, also where both streams go to the same place.
    std::fflush(stdout);
    std::fwrite(all.data(), 1, all.size(), stderr);
}

std::string TextReport::OnTerminal(const std::vector<std::string>& lines) {
    std::string all;
    ErrorLine before;
    for (const std::string& line : lines) {
        const ErrorLine error = ParseErrorLine(line);
        all.append(coloured_ ? Coloured(line) : line).append(1, '\n');
        // A failed statement gives two lines, and the first one knows why.
        if (error.line != before.line || error.file != before.file || error.text != "run time error !")
            all += excerpts_->Below(error);
        before = error;
    }
    return all;
}

}  // namespace macroctl
