#pragma once

#include <map>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "reference/Value.h"

namespace macroengine::reference {

struct Step;

/// What a step works on.
struct Operand {
    enum class Kind { Literal, Variable, Element, Result };

    Kind kind = Kind::Literal;
    Value literal;
    std::string name;                 ///< of the variable
    std::vector<Operand> subscripts;  ///< of the element
    std::shared_ptr<Step> step;       ///< whose result this is; it runs before the one that needs it
};

/// A part of a statement that can fail by itself and keeps its last result: an operation, a comparison or a
/// call of a command.
struct Step {
    enum class Kind { Operate, Compare, Call };

    Kind kind = Kind::Operate;
    std::string operation;              ///< the operator, or "category.command"
    std::vector<Operand> operands;      ///< two, or the arguments
    std::unique_ptr<Operand> assigned;  ///< what is assigned to a call
    Value result;
};

struct Statement;
using Block = std::vector<Statement>;

/// A condition and what depends on it. As long as the condition has never been known the block is entered;
/// when it can't be known again the last decision stands.
struct Branch {
    int line = 0;
    Operand condition;
    bool decision = true;
    Block body;
};

struct Statement {
    enum class Kind { Assign, Call, If, Loop };

    Kind kind = Kind::Assign;
    int line = 0;
    Operand destination;           ///< Assign
    Operand source;                ///< Assign; Call, which is a result nobody uses
    std::vector<Branch> branches;  ///< If, with its elseifs; Loop has one
    Block otherwise;               ///< the else of an If
};

/// A text that is no program of the language, as far as the reference knows it.
class NotUnderstood : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// @return the statements of a macro text.
/// @throws NotUnderstood
Block Parse(const std::string& text);

}  // namespace macroengine::reference
