#include "text/Markup.h"

#include "text/Utf8.h"

namespace macroctl {

std::string EscapeMarkup(std::string_view text) {
    std::string result;
    for (const char c : ValidUtf8(text)) {
        switch (c) {
            case '&':
                result += "&amp;";
                break;
            case '<':
                result += "&lt;";
                break;
            case '>':
                result += "&gt;";
                break;
            case '"':
                result += "&quot;";
                break;
            case '\'':
                result += "&#39;";
                break;
            case '\r':  // a reader would make a line end of it, or two
                break;
            default:
                result += c;
        }
    }
    return result;
}

}  // namespace macroctl
