#include "platform/Process.h"

#include <algorithm>
#include <cstddef>

#include "platform/CodePage.h"

namespace macroengine::platform {

namespace {

bool IsBlank(char character) {
    return character == ' ' || character == '\t';
}

/// Takes one argument, which begins at the first character, off the line.
std::string TakeArgument(std::string_view& line) {
    std::string argument;
    bool isQuoted = false;
    while (!line.empty() && (isQuoted || !IsBlank(line.front()))) {
        if (line.front() == '\\') {
            const std::size_t count = std::min(line.find_first_not_of('\\'), line.size());
            line.remove_prefix(count);
            const bool isBeforeQuote = !line.empty() && line.front() == '"';
            argument.append(isBeforeQuote ? count / 2 : count, '\\');
            if (isBeforeQuote && count % 2 == 1) {
                argument.push_back('"');
                line.remove_prefix(1);
            }
        } else if (line.front() == '"') {
            line.remove_prefix(1);
            if (isQuoted && !line.empty() && line.front() == '"') {
                argument.push_back('"');
                line.remove_prefix(1);
            } else {
                isQuoted = !isQuoted;
            }
        } else {
            const std::size_t length = CharacterLength(line.data(), line.data() + line.size());
            argument.append(line.substr(0, length));
            line.remove_prefix(length);
        }
    }
    return argument;
}

}  // namespace

std::vector<std::string> SplitParameterLine(std::string_view line) {
    std::vector<std::string> arguments;
    while (true) {
        while (!line.empty() && IsBlank(line.front()))
            line.remove_prefix(1);
        if (line.empty()) return arguments;
        arguments.push_back(TakeArgument(line));
    }
}

}  // namespace macroengine::platform
