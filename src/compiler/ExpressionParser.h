#pragma once

#include <cstdint>
#include <string_view>

#include "compiler/MacroCompiler.h"
#include "runtime/OperandList.h"

namespace macroengine {

/// Parses operands, arithmetic expressions and conditions.
///
/// Each operation becomes a statement of the program; what the parser gives back is an operand that stands
/// for the whole: a datum, a variable, an element, or the result of the last of those statements. All
/// operations return false with the reason reported.
class ExpressionParser {
public:
    explicit ExpressionParser(MacroCompiler& compiler) : compiler_(compiler) {}

    /// The source of an assignment. From the loosest: `<< >>`, `|`, `&`, `+ -`, `* /`, parentheses.
    bool ParseExpression(Operand& operand);

    /// What follows `if`, `elseif` and `loop`. From the loosest: `||`, `&&`, parentheses or a comparison of
    /// two operands.
    bool ParseCondition(Operand& operand);

    /// A literal, or a variable with any number of subscripts.
    bool ParseOperand(Operand& operand);

private:
    bool ParseBinary(int loosest, Operand& left);
    bool ParsePrimary(Operand& operand);
    bool ParseLogical(TokenCode op, Operand& left);
    bool ParseConditionPrimary(Operand& operand);
    bool ParseComparison(Operand& operand);
    bool ParseVariable(const Token& name, Operand& operand);
    bool ParseSubscript(OperandList& subscripts);
    bool PeekOperator(const Token*& token, TokenCode& code);

    template <class Statement>
    Operand Emit(std::string_view op, Operand left, Operand right);

    MacroCompiler& compiler_;
    std::uint32_t parenthesisDepth_ = 0;
    std::uint32_t subscriptDepth_ = 0;
};

}  // namespace macroengine
