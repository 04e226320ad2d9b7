#include "registers/LineTemplate.h"

#include <algorithm>

namespace macroctl {

namespace {

std::string_view NextWord(std::string_view& text) {
    text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
    const std::string_view word = text.substr(0, text.find(' '));
    text.remove_prefix(word.size());
    return word;
}

}  // namespace

LineTemplate::LineTemplate(std::string_view function) {
    std::string_view rest = function;
    NextWord(rest);  // the name
    NextWord(rest);  // the value
    const std::size_t end = std::min({rest.find("//"), rest.find('\r'), rest.size()});
    notes = rest.substr(end);
    rest = rest.substr(0, end);
    for (std::string_view word = NextWord(rest); !word.empty(); word = NextWord(rest)) {
        if (!pieces.empty()) pieces += ' ';
        pieces += word;
    }
}

}  // namespace macroctl
