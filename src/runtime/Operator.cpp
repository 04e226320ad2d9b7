#include "runtime/Operator.h"

namespace macroengine {

Operator OperatorFromText(std::string_view text) {
    // In the order of the enumeration.
    constexpr std::string_view kTexts[] = {"+",  "-",  "*", "/",  "&", "|",  "<<", ">>",
                                           "==", "!=", "<", "<=", ">", ">=", "&&", "||"};
    std::uint8_t number = 0;
    for (const std::string_view candidate : kTexts) {
        if (candidate == text) return static_cast<Operator>(number);
        ++number;
    }
    return Operator::Unknown;
}

}  // namespace macroengine
