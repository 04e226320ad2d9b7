#include "compiler/ExpressionParser.h"

#include <string>
#include <utility>

#include "compiler/NestingGuard.h"
#include "runtime/CMacroStatementCompare.h"
#include "runtime/CMacroStatementOperate.h"

// The binary operators of an expression are parsed by one loop that calls itself for whatever binds tighter;
// a condition has a level of its own for each of its two operators. Calls are nested no deeper than the
// parentheses and subscripts of the source, which the nesting guards bound.

namespace macroengine {

namespace {

constexpr int kLoosest = 1;

/// @return how tight the operator binds, 0 for a token that is no operator of an expression.
int PrecedenceOf(TokenCode code) {
    switch (code) {
        case TokenCode::ShiftLeft:
        case TokenCode::ShiftRight:
            return kLoosest;
        case TokenCode::BitOr:
            return 2;
        case TokenCode::BitAnd:
            return 3;
        case TokenCode::Plus:
        case TokenCode::Minus:
            return 4;
        case TokenCode::Times:
        case TokenCode::Divide:
            return 5;
        default:
            return 0;
    }
}

bool EndsExpression(TokenCode code) {
    return code <= TokenCode::LineEnd || code == TokenCode::CloseParenthesis;
}

bool IsComparison(TokenCode code) {
    return code >= TokenCode::Equal && code <= TokenCode::GreaterOrEqual;
}

bool IsNumber(TokenCode code) {
    return code == TokenCode::Integer || code == TokenCode::Real;
}

bool CanBeSubscript(ValueKind kind) {
    return kind == ValueKind::Integer || kind == ValueKind::VariableReference ||
           kind == ValueKind::ElementReference;
}

}  // namespace

/// Inserts a statement that operates on two operands. @return an operand that stands for its result.
template <class Statement>
Operand ExpressionParser::Emit(std::string_view op, Operand left, Operand right) {
    auto statement = compiler_.Make<Statement>();
    statement->SetLeft(std::move(left));
    statement->SetRight(std::move(right));
    statement->SetOperator(op);
    return Operand::ResultReference(&compiler_.Insert(std::move(statement))->GetResult());
}

// Operands

bool ExpressionParser::ParseOperand(Operand& operand) {
    const Token* token;
    TokenCode code;
    if (!compiler_.Peek(token, code)) return false;
    switch (code) {
        case TokenCode::Name:
            return ParseVariable(*token, operand);
        case TokenCode::Integer:
            operand = Operand::Integer(static_cast<std::int32_t>(token->integerValue));
            break;
        case TokenCode::Real:
            operand = Operand::Floating(token->realValue);
            break;
        case TokenCode::String:
            operand = Operand::String(token->text.substr(1, token->text.size() - 2));
            break;
        default:
            return compiler_.ReportSyntaxError(*token, ". Can't find Variable or value.");
    }
    compiler_.Consume();
    return true;
}

/// Parses the variable whose name is the next token.
bool ExpressionParser::ParseVariable(const Token& name, Operand& operand) {
    Variable& variable = compiler_.GetVariables().Bind(name.text);
    compiler_.Consume();
    TokenCode code;
    if (!compiler_.Peek(code)) return false;
    if (code != TokenCode::OpenBracket) {
        operand = Operand::VariableReference(variable);
        return true;
    }
    OperandList subscripts;
    do {
        if (!ParseSubscript(subscripts) || !compiler_.Peek(code)) return false;
    } while (code == TokenCode::OpenBracket);
    operand = Operand::Element(variable, std::move(subscripts));
    return true;
}

bool ExpressionParser::ParseSubscript(OperandList& subscripts) {
    Token bracket;
    TokenCode code;
    if (!compiler_.Read(bracket, code)) return false;
    const NestingGuard nesting(subscriptDepth_);
    if (nesting.IsTooDeep()) return compiler_.ReportNesting(bracket.line, "[");
    Operand subscript;
    if (!ParseOperand(subscript) || !compiler_.Expect(TokenCode::CloseBracket)) return false;
    if (!CanBeSubscript(subscript.GetType())) return false;
    subscripts.Append(std::move(subscript));
    return true;
}

// Expressions

bool ExpressionParser::ParseExpression(Operand& operand) {
    return ParseBinary(kLoosest, operand);
}

/// Parses operands joined by operators that bind at least as tight as `loosest`.
bool ExpressionParser::ParseBinary(int loosest, Operand& left) {
    const Token* next;
    TokenCode code;
    if (!ParsePrimary(left) || !PeekOperator(next, code)) return false;
    while (PrecedenceOf(code) >= loosest) {
        const std::string_view op = next->text;
        Operand right;
        compiler_.Consume();
        if (!ParseBinary(PrecedenceOf(code) + 1, right)) return false;
        left = Emit<CMacroStatementOperate>(op, std::move(left), std::move(right));
        if (!PeekOperator(next, code)) return false;
    }
    return true;
}

/// Looks at what follows an operand: an operator, or what may end an expression.
bool ExpressionParser::PeekOperator(const Token*& token, TokenCode& code) {
    if (!compiler_.Peek(token, code)) return false;
    if (IsNumber(code) && token->text.front() == '-') {
        // The lexer takes the sign of "a-1" for a part of the number; here it can only be the operator.
        compiler_.GetLexer().SplitNegativeNumber();
        return compiler_.Peek(token, code);
    }
    return PrecedenceOf(code) != 0 || EndsExpression(code) || compiler_.ReportSyntaxErrorOnNext();
}

bool ExpressionParser::ParsePrimary(Operand& operand) {
    const Token* next;
    TokenCode code;
    if (!compiler_.Peek(next, code)) return false;
    if (code == TokenCode::OpenParenthesis) {
        const NestingGuard nesting(parenthesisDepth_);
        if (nesting.IsTooDeep()) return compiler_.ReportNesting(next->line, "(");
        compiler_.Consume();
        return ParseBinary(kLoosest, operand) && compiler_.Expect(TokenCode::CloseParenthesis);
    }
    const Token first = *next;
    if (!ParseOperand(operand)) return false;
    if (operand.GetType() == ValueKind::VariableReference) {
        if (!compiler_.Peek(code)) return false;
        if (code == TokenCode::Point) return compiler_.ReportNoCategory(first);
    }
    return true;
}

// Conditions

bool ExpressionParser::ParseCondition(Operand& operand) {
    return ParseLogical(TokenCode::LogicalOr, operand);
}

/// Parses conditions joined by one of the two logical operators.
bool ExpressionParser::ParseLogical(TokenCode op, Operand& left) {
    const auto parseNext = [&](Operand& operand) {
        return op == TokenCode::LogicalOr ? ParseLogical(TokenCode::LogicalAnd, operand)
                                          : ParseConditionPrimary(operand);
    };
    const Token* next;
    TokenCode code;
    if (!parseNext(left) || !compiler_.Peek(next, code)) return false;
    while (code == op) {
        const std::string_view text = next->text;
        Operand right;
        compiler_.Consume();
        if (!parseNext(right)) return false;
        left = Emit<CMacroStatementCompare>(text, std::move(left), std::move(right));
        if (!compiler_.Peek(next, code)) return false;
    }
    return true;
}

bool ExpressionParser::ParseConditionPrimary(Operand& operand) {
    const Token* next;
    TokenCode code;
    if (!compiler_.Peek(next, code)) return false;
    if (code == TokenCode::OpenParenthesis) {
        const NestingGuard nesting(parenthesisDepth_);
        if (nesting.IsTooDeep()) return compiler_.ReportNesting(next->line, "(");
        compiler_.Consume();
        if (!ParseCondition(operand) || !compiler_.Expect(TokenCode::CloseParenthesis)) return false;
    } else if (!ParseComparison(operand)) {
        return false;
    }
    if (!compiler_.Peek(code)) return false;
    return EndsExpression(code) || code == TokenCode::LogicalAnd || code == TokenCode::LogicalOr ||
           compiler_.ReportSyntaxErrorOnNext();
}

bool ExpressionParser::ParseComparison(Operand& operand) {
    Operand left;
    Operand right;
    const Token* next;
    TokenCode code;
    if (!ParseOperand(left) || !compiler_.Peek(next, code)) return false;
    if (!IsComparison(code)) return compiler_.ReportSyntaxError(*next);
    const std::string_view op = next->text;
    compiler_.Consume();
    if (!ParseOperand(right)) return false;
    operand = Emit<CMacroStatementCompare>(op, std::move(left), std::move(right));
    return true;
}

}  // namespace macroengine
