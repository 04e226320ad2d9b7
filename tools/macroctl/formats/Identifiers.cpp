#include "formats/Identifiers.h"

namespace macroctl {

namespace {

bool IsLetter(char c) {
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

}  // namespace

std::string Identifiers::Make(std::string_view name) {
    std::string base;
    for (const char c : name) {
        if (IsLetter(c) || IsDigit(c)) {
            base += c;
        } else if (c == '_' || base.empty() || base.back() != '_') {
            base += '_';
        }
    }
    // Names that begin with "_" belong to the compiler.
    if (base.empty() || !IsLetter(base.front())) base.insert(0, "R");

    std::string identifier = base;
    unsigned int& repeats = repeats_[base];
    while (!taken_.insert(identifier).second)
        identifier = base + "_" + std::to_string(++repeats + 1);
    return identifier;
}

}  // namespace macroctl
