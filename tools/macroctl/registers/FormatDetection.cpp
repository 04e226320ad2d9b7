#include "registers/FormatDetection.h"

#include <algorithm>
#include <iterator>
#include <string_view>

#include <macroengine/LineEncoding.h>

#include "io/WholeFile.h"

namespace macroctl {

namespace {

/// @return whether the line has the header of a section outside of a "//" comment, with blanks in it or not.
bool HasSectionHeader(std::string_view line) {
    line = line.substr(0, line.find("//"));
    if (line.find('[') == std::string_view::npos) return false;
    std::string dense;
    std::copy_if(line.begin(), line.end(), std::back_inserter(dense),
                 [](char c) { return c != ' ' && c != '\t'; });
    return dense.find("[REGISTER]") != std::string::npos || dense.find("[ENDIAN]") != std::string::npos;
}

bool IsEncodedLetter(char c) {
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '+' ||
           c == '-' || c == '*';
}

/// @return whether the line is nothing but a word in brackets. That is no register, but perhaps the header of
///         a section misspelt, which the reader of the sectioned format tells.
bool MayBeSectionHeader(std::string_view line) {
    constexpr std::string_view kBlanks = " \t";
    line = line.substr(0, line.find("//"));
    line.remove_prefix(std::min(line.find_first_not_of(kBlanks), line.size()));
    line = line.substr(0, line.find_last_not_of(kBlanks) + 1);
    return line.size() > 2 && line.front() == '[' && line.back() == ']' &&
           line.find_first_of(kBlanks) == std::string_view::npos;
}

/// @return whether the line may be an encoded one; a register's line has blanks between its words.
bool MayBeEncoded(std::string_view line) {
    return std::all_of(line.begin(), line.end(), IsEncodedLetter);
}

std::string Decoded(std::string_view line) {
    char text[kLongestEncodableLine];
    const int length =
        DecodeSourceLine(line.data(), static_cast<unsigned int>(line.size()), text, sizeof text);
    return length < 0 ? std::string() : std::string(text, static_cast<std::size_t>(length));
}

std::string_view NextLine(std::string_view& text) {
    const std::size_t length = std::min(text.find('\n'), text.size());
    std::string_view line = text.substr(0, length);
    text.remove_prefix(std::min(length + 1, text.size()));
    if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
    return line;
}

bool IsSectioned(std::string_view text) {
    bool mayBeEncoded = true;
    while (!text.empty()) {
        const std::string_view line = NextLine(text);
        if (HasSectionHeader(line) || MayBeSectionHeader(line)) return true;
        mayBeEncoded = mayBeEncoded && MayBeEncoded(line);
        if (mayBeEncoded && HasSectionHeader(Decoded(line))) return true;
    }
    return false;
}

}  // namespace

bool LooksLineBased(const std::string& path) {
    std::string bytes;
    return ReadSourceFile(path, bytes) && !bytes.empty() && !IsSectioned(bytes);
}

}  // namespace macroctl
