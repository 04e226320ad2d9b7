#pragma once

#include <cstdint>

#include "source/Token.h"

class CMacroCategoryCmdList;

namespace macroengine {

/// What a token means to the compiler.
enum class TokenCode : std::uint8_t {
    End = 0,
    LineEnd = 1,
    If = 2,
    ElseIf = 3,
    Else = 4,
    EndIf = 5,
    Loop = 6,
    EndLoop = 7,
    Name = 8,
    Category = 9,  ///< a name of a registered category
    Integer = 10,
    Real = 11,
    String = 12,
    OpenParenthesis = 13,
    CloseParenthesis = 14,
    Equal = 15,
    NotEqual = 16,
    Less = 17,
    LessOrEqual = 18,
    Greater = 19,
    GreaterOrEqual = 20,
    Plus = 21,
    Minus = 22,
    Times = 23,
    Divide = 24,
    Assign = 25,
    Point = 26,
    Comma = 27,
    Define = 28,
    Include = 29,
    HashIf = 30,
    HashElseIf = 31,
    HashElse = 32,
    HashEndIf = 33,
    BitOr = 34,
    BitAnd = 35,
    LogicalOr = 36,
    LogicalAnd = 37,
    ShiftLeft = 38,
    ShiftRight = 39,
    OpenBracket = 40,
    CloseBracket = 41,
    Other = 42
};

/// Tells the code of a token. Keywords are reserved, and a category wins over a variable of the same name.
TokenCode ClassifyToken(const Token& token, const CMacroCategoryCmdList& categories);

}  // namespace macroengine
