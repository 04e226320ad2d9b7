#include "categories/StringSplitCommand.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "categories/ArgumentRange.h"
#include "categories/CommandFailure.h"
#include "categories/TrimSpaces.h"
#include "macroengine/CMacroPropertyIF.h"
#include "platform/CodePage.h"

namespace macroengine {

namespace {

/// Returns where the delimiter stands next, the text's length when it does not. It never begins at the second
/// byte of a character.
std::size_t FindDelimiter(std::string_view text, std::size_t from, std::string_view delimiter) {
    if (!platform::HasDoubleByteCharacters()) return std::min(text.find(delimiter, from), text.size());
    const char* const end = text.data() + text.size();
    while (from < text.size() && text.compare(from, delimiter.size(), delimiter) != 0)
        from += platform::CharacterLength(text.data() + from, end);
    return from;
}

/// Cuts the text into pieces in place: each ends with a NUL where its delimiter began.
std::vector<const char*> Split(std::string& text, std::string_view delimiter, bool trims) {
    std::vector<const char*> pieces;
    for (std::size_t start = 0;;) {
        const std::size_t end = FindDelimiter(text, start, delimiter);
        std::string_view piece(text.data() + start, end - start);
        if (trims) piece = TrimSpaces(piece);
        const auto first = static_cast<std::size_t>(piece.data() - text.data());
        pieces.push_back(text.data() + first);
        text[first + piece.size()] = '\0';
        if (end == text.size()) return pieces;
        start = end + delimiter.size();
    }
}

}  // namespace

bool CMacroCategoryCmdString_Split::Run(CMacroPropertyIF* property) {
    const int count = property->CheckArgumentCount(1, 3);
    if (count < 0) return false;
    const char* const target = property->GetArgString(0);
    if (target == nullptr || *target == '\0') return Fail(property, "Error: target string is null.");
    const char* const delimiter = count > 1 ? property->GetArgString(1) : ",";
    if (delimiter == nullptr || *delimiter == '\0') return Fail(property, "Error: delimiter is null.");
    int trims = 0;
    if (count > 2 && !ReadInRange(property, 2, 0, 1, trims)) return false;
    if (!property->CheckNoAssignedValue(false)) return false;

    std::string text = target;
    const std::vector<const char*> pieces = Split(text, delimiter, trims != 0);
    return property->SetResultStringArray(static_cast<int>(pieces.size()), pieces.data());
}

}  // namespace macroengine
