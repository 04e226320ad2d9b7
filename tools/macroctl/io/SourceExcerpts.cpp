#include "io/SourceExcerpts.h"

#include <algorithm>
#include <functional>

#include "io/Colours.h"
#include "io/WholeFile.h"
#include "text/NamedToken.h"
#include "text/SourceEncoding.h"
#include "text/Utf8.h"

namespace macroctl {

namespace {

constexpr std::size_t kNumberWidth = 5;
constexpr std::size_t kTabWidth = 4;
constexpr std::string_view kGutter = " | ";

std::vector<std::string> SplitLines(std::string_view text) {
    std::vector<std::string> lines;
    while (!text.empty()) {
        const std::size_t length = std::min(text.find('\n'), text.size());
        std::string_view line = text.substr(0, length);
        if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
        lines.emplace_back(line);
        text.remove_prefix(std::min(length + 1, text.size()));
    }
    return lines;
}

bool IsBlank(const std::string& line) {
    return line.find_first_not_of(" \t") == std::string::npos;
}

/// The text as a terminal may show it: blanks for tabs and for what could steer the terminal.
std::string Shown(std::string_view text) {
    std::string shown;
    for (const char c : text) {
        const auto code = static_cast<unsigned char>(c);
        if (c == '\t') {
            shown.append(kTabWidth, ' ');
        } else {
            shown += code < 0x20 || code == 0x7F ? ' ' : c;
        }
    }
    return ValidUtf8(shown);
}

/// A line in three parts, of which the middle one is marked.
struct MarkedLine {
    std::string before;
    std::string marked;
    std::string behind;
};

/// Shortens the line to a number of columns so that the beginning of what is marked stays in sight.
void CutToColumns(MarkedLine& line, std::size_t columns) {
    line.before = CutStartToWidth(line.before, columns * 2 / 3);
    const std::size_t room = columns - DisplayWidth(line.before);
    const std::string rest = CutToWidth(line.marked + line.behind, room);
    const std::size_t markedSize = std::min(line.marked.size(), rest.size());
    line.marked = rest.substr(0, markedSize);
    line.behind = rest.substr(markedSize);
}

}  // namespace

void SourceExcerpts::AddSource(std::string_view name, std::string_view text) {
    sources_[std::string(name)] = SplitLines(text);
}

const SourceExcerpts::Lines& SourceExcerpts::LinesOf(std::string_view file) {
    const auto known = sources_.find(file);
    if (known != sources_.end()) return known->second;
    std::string text;
    if (!ReadSourceFile(std::string(file), text) || IsEncodedSource(file, text)) text.clear();
    return sources_.emplace(file, SplitLines(text)).first->second;
}

std::string SourceExcerpts::Below(const ErrorLine& error) {
    if (error.line == 0) return {};
    const Lines& lines = LinesOf(error.file);
    std::size_t number = error.line;
    // The end of a line is found when the next one is reached, the end of the file behind its last line.
    const bool atLineEnd = IsAboutLineEnd(error.text);
    const bool atFileEnd = IsAboutFileEnd(error.text);
    if (atLineEnd) --number;
    if (atFileEnd) number = std::min(number, lines.size());
    while (atFileEnd && number > 1 && IsBlank(lines[number - 1]))
        --number;
    if (number == 0 || number > lines.size()) return {};

    const std::string_view line = lines[number - 1];
    const TextRange range =
        atLineEnd || atFileEnd ? TextRange{line.size(), 1} : FindNamedToken(error.text, line);
    MarkedLine parts = {Shown(line.substr(0, range.begin)),
                        Shown(line.substr(range.begin).substr(0, range.length)),
                        Shown(line.substr(std::min(range.begin + range.length, line.size())))};
    const std::size_t margin = kNumberWidth + kGutter.size();
    CutToColumns(parts, std::max(columns_, margin + 20) - margin);

    const std::string numberText = std::to_string(number);
    const std::size_t numberWidth = std::max(kNumberWidth, numberText.size());
    std::string excerpt = std::string(numberWidth - numberText.size(), ' ') + numberText;
    excerpt.append(kGutter).append(parts.before).append(parts.marked).append(parts.behind).append(1, '\n');
    excerpt.append(numberWidth, ' ').append(kGutter).append(DisplayWidth(parts.before), ' ');
    const std::size_t markWidth = std::max<std::size_t>(DisplayWidth(parts.marked), 1);
    const std::string mark = "^" + std::string(markWidth - 1, '~');
    return excerpt + (coloured_ ? kErrorColour + mark + kNoColour : mark) + "\n";
}

}  // namespace macroctl
