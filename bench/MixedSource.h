#pragma once

#include <cstddef>
#include <string>

namespace macroengine::bench {

/// Statements of all kinds as they stand in a long macro file, comments and an empty line among them. Each #
/// is a number.
constexpr const char* kMixedLines[] = {
    "total# = # * 3 + 17",
    "// a remark that has to be passed over",
    "ratio = 1.5 * total# / 7.25",
    "name = \"channel \" + total#",
    "values[#] = total# & 0xFF << 3",
    "if total# > 100 && ratio < 50.0",
    "    text = string.int2hex(total#, 8)",
    "else",
    "    index = 0",
    "    loop index < 4",
    "        index = index + 1",
    "    endloop",
    "endif",
    "",
    "values = array.init(1, 2, 3)  /* and another remark */",
    "count = array.max(values)",
};
constexpr std::size_t kMixedLineCount = sizeof kMixedLines / sizeof kMixedLines[0];

/// These lines again and again, with numbers up to 99. Only whole turns make a macro.
inline std::string MixedSource(std::size_t turns) {
    std::string text;
    for (std::size_t turn = 0; turn < turns; ++turn) {
        const std::string number = std::to_string(turn % 100);
        for (const char* line : kMixedLines) {
            for (; *line != '\0'; ++line) {
                if (*line == '#') {
                    text += number;
                } else {
                    text += *line;
                }
            }
            text += '\n';
        }
    }
    return text;
}

}  // namespace macroengine::bench
