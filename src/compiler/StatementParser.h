#pragma once

#include <cstdint>
#include <vector>

#include "compiler/CallParser.h"
#include "compiler/ExpressionParser.h"
#include "compiler/MacroCompiler.h"
#include "compiler/Preprocessor.h"
#include "runtime/CMacroStatementControl.h"

namespace macroengine {

/// Parses the statements of one file, by recursive descent. All operations return false with the reason
/// reported.
class StatementParser {
public:
    explicit StatementParser(MacroCompiler& compiler);

    /// Parses a whole file.
    bool ParseProgram();

private:
    using Control = CMacroStatementControl::Control;

    /// A control statement whose targets wait for the end of its block.
    struct Pending {
        std::int32_t group;
        CMacroStatementControl* statement;
    };

    bool ParseStatementList();
    bool ParseStatementListRest();
    bool ParseStatement(const Token& first, TokenCode code);
    bool ParseAssignment(const Token& first);
    bool ParseEndOfStatement();

    bool ParseIf(std::uint32_t line);
    bool ParseElseIf();
    bool ParseElse();
    bool ParseEndIf();
    bool ParseLoop(std::uint32_t line);
    bool ParseEndLoop(const Pending& loop);

    bool BeginKeyword(TokenCode expected);
    bool ParseConditional(Control control);
    bool ParseBody();
    void EndBranch();
    void PatchBranches(std::int32_t end);
    StatementPointer<CMacroStatementControl> MakeControl(Control control);

    MacroCompiler& compiler_;
    Preprocessor preprocessor_;
    ExpressionParser expressions_;
    CallParser calls_;
    std::vector<Pending> pending_;
};

}  // namespace macroengine
