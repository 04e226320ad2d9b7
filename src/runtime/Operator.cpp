#include "runtime/Operator.h"

namespace macroengine {

namespace {

Operator OperatorFromCharacter(char c) {
    switch (c) {
        case '+':
            return Operator::Add;
        case '-':
            return Operator::Subtract;
        case '*':
            return Operator::Multiply;
        case '/':
            return Operator::Divide;
        case '&':
            return Operator::And;
        case '|':
            return Operator::Or;
        case '<':
            return Operator::Less;
        case '>':
            return Operator::Greater;
        default:
            return Operator::Unknown;
    }
}

}  // namespace

Operator OperatorFromText(std::string_view text) {
    if (text.size() == 1) return OperatorFromCharacter(text.front());
    if (text == "==") return Operator::Equal;
    if (text == "!=") return Operator::NotEqual;
    if (text == "<=") return Operator::LessOrEqual;
    if (text == ">=") return Operator::GreaterOrEqual;
    if (text == "<<") return Operator::ShiftLeft;
    if (text == ">>") return Operator::ShiftRight;
    if (text == "&&") return Operator::LogicalAnd;
    return text == "||" ? Operator::LogicalOr : Operator::Unknown;
}

}  // namespace macroengine
