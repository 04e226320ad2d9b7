#pragma once

#include "compiler/ExpressionParser.h"
#include "compiler/MacroCompiler.h"
#include "runtime/CMacroStatementCategory.h"

namespace macroengine {

/// Parses `category.command(arguments)`, wherever it stands. All operations return false with the reason
/// reported.
class CallParser {
public:
    CallParser(MacroCompiler& compiler, ExpressionParser& expressions)
        : compiler_(compiler), expressions_(expressions) {}

    /// A call that is a statement, perhaps one that an expression is assigned to.
    bool ParseStatement();

    /// A call as the whole source of an assignment. @param operand  receives what stands for its result.
    bool ParseSource(Operand& operand);

private:
    CommandEntry* ParseCommand(Token& command);
    bool ParseArguments(OperandList& arguments);
    bool ParseArgument(OperandList& arguments);
    bool ReportNoSide(const Token& token, const CommandEntry& entry, const char* side);
    StatementPointer<CMacroStatementCategory> MakeCall(CommandEntry& entry, OperandList arguments,
                                                       Operand assigned);

    MacroCompiler& compiler_;
    ExpressionParser& expressions_;
};

}  // namespace macroengine
