#pragma once

#include <cstdint>
#include <vector>

#include "compiler/MacroCompiler.h"
#include "runtime/CMacroCommonValue.h"

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
    bool ParseExpression(CMacroCommonValue& operand);

    /// What follows `if`, `elseif` and `loop`. From the loosest: `||`, `&&`, parentheses or a comparison of
    /// two operands.
    bool ParseCondition(CMacroCommonValue& operand);

    /// A literal, or a variable with any number of subscripts.
    bool ParseOperand(CMacroCommonValue& operand);

private:
    bool ParseBinary(int loosest, CMacroCommonValue& left);
    bool ParsePrimary(CMacroCommonValue& operand);
    bool ParseLogical(TokenCode op, CMacroCommonValue& left);
    bool ParseConditionPrimary(CMacroCommonValue& operand);
    bool ParseComparison(CMacroCommonValue& operand);
    bool ParseVariable(const Token& name, CMacroCommonValue& operand);
    bool ParseSubscript(std::vector<CMacroCommonValue>& subscripts);
    bool PeekOperator(TokenCode& code);

    template <class Statement>
    CMacroCommonValue Emit(std::string_view op, CMacroCommonValue left, CMacroCommonValue right);

    MacroCompiler& compiler_;
    std::uint32_t parenthesisDepth_ = 0;
    std::uint32_t subscriptDepth_ = 0;
};

}  // namespace macroengine
