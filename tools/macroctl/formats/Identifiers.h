#pragma once

#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>

namespace macroctl {

/// Makes identifiers of C from names, no two of them alike.
class Identifiers {
public:
    /// @return the name with "_" for each run of characters that no identifier may hold, and with a number
    ///         behind it when it was given out before. One that would begin with a digit or "_" gets "R" in
    ///         front.
    std::string Make(std::string_view name);

private:
    std::unordered_set<std::string> taken_;
    std::unordered_map<std::string, unsigned int> repeats_;  // saves trying all numbers again
};

}  // namespace macroctl
