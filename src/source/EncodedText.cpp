#include "source/EncodedText.h"

#include <algorithm>

namespace macroengine {

bool DecodeLineWithinLimit(std::string_view line, std::string& out) {
    line = line.substr(0, line.find('\0'));
    const std::size_t start = out.size();
    out.resize(start + line.size() / 4 * 3);

    Base64Decoder<const char*, char*> decoder;
    char* const first = out.data() + start;
    char* const last = decoder.Decode(line.data(), line.data() + line.size(), first, true);

    const auto length = static_cast<std::size_t>(std::find(first, last, '\0') - first);
    if (length > kEncodedLineLimit) {
        out.resize(start);
        return false;
    }
    std::transform(first, first + length, first, [](char c) { return static_cast<char>(~c); });
    // A complemented NUL ends the line as well.
    out.resize(start + static_cast<std::size_t>(std::find(first, first + length, '\0') - first));
    return true;
}

std::size_t DecodeSourceLine(std::string_view line, std::string& out) {
    const std::size_t start = out.size();
    DecodeLineWithinLimit(line, out);
    return out.size() - start;
}

}  // namespace macroengine
