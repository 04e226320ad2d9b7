#pragma once

#include <cstdint>
#include <string>

#include "host/CErrorMessageTable.h"
#include "runtime/SourceUnit.h"
#include "support/ValueDescription.h"

namespace macroengine::test {

/// Where the statements of these tests come from.
inline SourceUnit UnitOfFile(const char* fileName) {
    SourceUnit unit;
    unit.fileName = fileName;
    return unit;
}

/// Takes the lines out of a table, joined by line feeds.
inline std::string TakeErrorText(CErrorMessageTable& errors) {
    std::string lines;
    for (std::uint32_t i = 0; i < errors.GetCount(); ++i)
        lines.append(i > 0 ? "\n" : "").append(errors.GetMessage(i));
    errors.Clear();
    return lines;
}

/// Runs a statement that has a result.
/// @return the result; what the statement has reported when it failed.
template <class Statement>
std::string Outcome(Statement& statement) {
    const bool succeeded = statement.vfRun();
    const std::string lines = TakeErrorText(statement.GetErrors());
    if (succeeded && !lines.empty()) return "succeeded, and reported " + lines;
    return succeeded ? Describe(statement.GetResult()) : lines;
}

/// Runs a statement that operates on two operands, in line 3 of a.mac.
template <class Statement>
std::string OutcomeOf(const CMacroCommonValue& left, const char* op, const CMacroCommonValue& right) {
    SourceUnit unit = UnitOfFile("a.mac");
    Statement statement(unit, 3);
    statement.SetLeft(left);
    statement.SetOperator(op);
    statement.SetRight(right);
    return Outcome(statement);
}

}  // namespace macroengine::test
