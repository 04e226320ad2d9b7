// Any bytes as an encoded file: they load, and each line decodes alike there and through the interface. And any text
// that has an encoded form comes back from it.

#include <cstdlib>
#include <string>
#include <vector>

#include "common/Require.h"
#include "macroengine/LineEncoding.h"
#include "source/CLex.h"
#include "source/EncodedText.h"
#include "support/TemporaryFolder.h"

namespace {

using namespace macroengine;

void LoadAsFile(const std::string& path) {
    CLex lexer;
    if (!lexer.LoadFile(path)) {
        fuzz::Require(lexer.GetErrors().GetCount() == 1, "a load that fails says why");
        return;
    }
    Token token;
    do
        token = Token();
    while (lexer.ReadToken(token, CLex::Substitution::Macros) && !token.IsEnd());
}

void DecodeBothWays(const std::string& line) {
    std::string loaded;
    const bool isWithinLimit = DecodeLineWithinLimit(line, loaded);
    char bytes[kLongestEncodableLine];
    const int length =
        ::DecodeSourceLine(line.data(), static_cast<unsigned int>(line.size()), bytes, sizeof bytes);
    fuzz::Require(isWithinLimit == (length >= 0), "both refuse the same lines");
    if (isWithinLimit) {
        fuzz::Require(loaded == std::string(bytes, static_cast<std::size_t>(length)), "both decode alike");
    }
}

void EncodeAndDecode(const std::string& line) {
    std::vector<char> encoded((line.size() + 2) / 3 * 4);
    const auto length = static_cast<unsigned int>(line.size());
    const int written =
        EncodeSourceLine(line.data(), length, encoded.data(), static_cast<unsigned int>(encoded.size()));
    const bool hasForm = line.size() <= kLongestEncodableLine && line.find('\0') == std::string::npos &&
                         line.find('\xFF') == std::string::npos;
    fuzz::Require(hasForm == (written >= 0), "just what has an encoded form is encoded");
    if (!hasForm) return;
    std::string decoded;
    DecodeLineWithinLimit(std::string(encoded.data(), static_cast<std::size_t>(written)), decoded);
    fuzz::Require(decoded == line, "what was encoded comes back");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const test::TemporaryFolder folder;
    const std::string text(reinterpret_cast<const char*>(data), size);
    LoadAsFile(folder.Write("main.iod", text));
    LoadAsFile(folder.Write("main.rgi", text));
    for (std::size_t begin = 0; begin <= text.size();) {
        const std::size_t end = std::min(text.find('\n', begin), text.size());
        const std::string line = text.substr(begin, end - begin);
        DecodeBothWays(line);
        EncodeAndDecode(line);
        begin = end + 1;
    }
    return 0;
}
