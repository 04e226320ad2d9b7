#include "compiler/StatementParser.h"

#include <utility>

#include "compiler/NestingGuard.h"
#include "runtime/CMacroStatementAssign.h"

// The targets of control statements are indexes of groups, known only when a block ends: until then its
// control statements wait on a stack. The statements of
//
//     if a == 1           group 0: comparison, If          false: 2
//         x = 1           group 1: assignment, BranchEnd   jump: 4
//     elseif a == 2       group 2: comparison, ElseIf      false: 4
//         x = 2           group 3: assignment
//     endif               group 4: EndIf
//
// leave the stack from the top, each giving its own group to the one below as the place to go on when false.
// A loop is
//
//     loop i < 3          group 0: comparison, Loop        false: 3
//         i = i + 1       group 1: operation, assignment
//     endloop             group 2: EndLoop                 jump: 0
//                         group 3: LoopExit

namespace macroengine {

StatementParser::StatementParser(MacroCompiler& compiler)
    : compiler_(compiler), preprocessor_(compiler), expressions_(compiler), calls_(compiler, expressions_) {}

bool StatementParser::ParseProgram() {
    Token next;
    TokenCode code;
    if (!ParseStatementList() || !compiler_.Read(next, code)) return false;
    if (code == TokenCode::End) return true;
    compiler_.ReportSyntaxError(next);
    return compiler_.ReportError(next.line, "syntax error (can't find EOF).");
}

bool StatementParser::ParseStatementList() {
    TokenCode code;
    if (!compiler_.Peek(code)) return false;
    if ((code == TokenCode::LineEnd || Preprocessor::IsDirective(code)) && !preprocessor_.ParseDirectives()) {
        return false;
    }
    return ParseStatementListRest();
}

bool StatementParser::ParseStatementListRest() {
    for (;;) {
        const Token* next;
        TokenCode code;
        if (!compiler_.Peek(next, code)) return false;
        switch (code) {
            case TokenCode::End:
            case TokenCode::ElseIf:
            case TokenCode::Else:
            case TokenCode::EndIf:
            case TokenCode::EndLoop:
                return true;
            case TokenCode::If:
                if (!ParseIf(next->line)) return false;
                break;
            case TokenCode::Loop:
                if (!ParseLoop(next->line)) return false;
                break;
            case TokenCode::Name:
            case TokenCode::Category:
                if (!ParseStatement(*next, code)) return false;
                break;
            default:
                return compiler_.ReportSyntaxErrorOnNext();
        }
    }
}

/// Parses the assignment or the call that begins with a token, which is the next one.
bool StatementParser::ParseStatement(const Token& first, TokenCode code) {
    compiler_.BeginStatement(first.line);
    const bool parsed = code == TokenCode::Category ? calls_.ParseStatement() : ParseAssignment(first);
    return parsed && ParseEndOfStatement();
}

bool StatementParser::ParseEndOfStatement() {
    TokenCode code;
    if (!compiler_.Peek(code)) return false;
    if (code > TokenCode::LineEnd) return compiler_.ReportSyntaxErrorOnNext();
    return preprocessor_.ParseDirectives();
}

bool StatementParser::ParseAssignment(const Token& first) {
    // Reading on takes the room of a token that was only looked at.
    const Token name = first;
    Operand destination;
    if (!expressions_.ParseOperand(destination)) return false;
    Token assign;
    TokenCode code;
    if (!compiler_.Read(assign, code)) return false;
    if (code == TokenCode::Point && destination.GetType() == ValueKind::VariableReference) {
        return compiler_.ReportNoCategory(name);
    }
    if (code != TokenCode::Assign) return compiler_.ReportSyntaxError(assign);

    Operand source;
    if (!compiler_.Peek(code)) return false;
    const bool parsed =
        code == TokenCode::Category ? calls_.ParseSource(source) : expressions_.ParseExpression(source);
    if (!parsed) return false;
    auto statement = compiler_.Make<CMacroStatementAssign>();
    statement->SetDestination(std::move(destination));
    statement->SetSource(std::move(source));
    compiler_.Insert(std::move(statement));
    return true;
}

// Blocks

StatementPointer<CMacroStatementControl> StatementParser::MakeControl(Control control) {
    auto statement = compiler_.Make<CMacroStatementControl>();
    statement->SetControl(control);
    return statement;
}

/// Consumes the keyword of a block and begins its statement.
bool StatementParser::BeginKeyword(TokenCode expected) {
    Token keyword;
    TokenCode code;
    if (!compiler_.Read(keyword, code)) return false;
    if (code != expected) return compiler_.ReportSyntaxError(keyword);
    compiler_.BeginStatement(keyword.line);
    return true;
}

/// Parses the condition behind a keyword and leaves its control statement pending.
bool StatementParser::ParseConditional(Control control) {
    Operand condition;
    if (!expressions_.ParseCondition(condition)) return false;
    auto statement = MakeControl(control);
    statement->SetCondition(std::move(condition));
    pending_.push_back({compiler_.GetGroupCount() - 1, compiler_.Insert(std::move(statement))});
    return true;
}

bool StatementParser::ParseBody() {
    return preprocessor_.ParseDirectives() && ParseStatementList();
}

/// Ends a branch that another one follows with a jump behind the block.
void StatementParser::EndBranch() {
    const std::int32_t group = compiler_.GetGroupCount();
    pending_.push_back({group, compiler_.InsertIntoLastGroup(MakeControl(Control::BranchEnd))});
}

bool StatementParser::ParseIf(std::uint32_t line) {
    const NestingGuard nesting(compiler_.GetBlockDepth());
    if (nesting.IsTooDeep()) return compiler_.ReportNesting(line, "if");
    if (!BeginKeyword(TokenCode::If) || !ParseConditional(Control::If) || !ParseBody()) return false;
    TokenCode code;
    for (;;) {
        if (!compiler_.Peek(code)) return false;
        if (code != TokenCode::ElseIf) break;
        if (!ParseElseIf()) return false;
    }
    if (code == TokenCode::Else && !ParseElse()) return false;
    return ParseEndIf();
}

bool StatementParser::ParseElseIf() {
    EndBranch();
    return BeginKeyword(TokenCode::ElseIf) && ParseConditional(Control::ElseIf) && ParseBody();
}

bool StatementParser::ParseElse() {
    EndBranch();
    if (!BeginKeyword(TokenCode::Else)) return false;
    const std::int32_t group = compiler_.GetGroupCount();
    pending_.push_back({group, compiler_.Insert(MakeControl(Control::Else))});
    return ParseBody();
}

bool StatementParser::ParseEndIf() {
    if (!BeginKeyword(TokenCode::EndIf)) return false;
    PatchBranches(compiler_.GetGroupCount());
    compiler_.Insert(MakeControl(Control::EndIf));
    return preprocessor_.ParseDirectives();
}

/// Sets the targets of the branches of the block that ends, back to its `if`, which stands below them.
/// @param end  the group of the `endif`.
void StatementParser::PatchBranches(std::int32_t end) {
    std::int32_t target = end;
    for (;;) {
        const Pending branch = pending_.back();
        pending_.pop_back();
        switch (branch.statement->GetControl()) {
            case Control::If:
                branch.statement->SetFalseTarget(target);
                return;
            case Control::ElseIf:
                branch.statement->SetFalseTarget(target);
                target = branch.group;
                break;
            case Control::Else:
                target = branch.group;
                break;
            default:  // the jump behind a branch
                branch.statement->SetJumpTarget(end);
                break;
        }
    }
}

bool StatementParser::ParseLoop(std::uint32_t line) {
    const NestingGuard nesting(compiler_.GetBlockDepth());
    if (nesting.IsTooDeep()) return compiler_.ReportNesting(line, "loop");
    if (!BeginKeyword(TokenCode::Loop) || !ParseConditional(Control::Loop) || !ParseBody()) return false;
    const Pending loop = pending_.back();
    pending_.pop_back();
    return ParseEndLoop(loop);
}

bool StatementParser::ParseEndLoop(const Pending& loop) {
    if (!BeginKeyword(TokenCode::EndLoop)) return false;
    auto jump = MakeControl(Control::EndLoop);
    jump->SetJumpTarget(loop.group);
    compiler_.Insert(std::move(jump));
    compiler_.BeginNextGroup();
    loop.statement->SetFalseTarget(compiler_.GetGroupCount());
    compiler_.Insert(MakeControl(Control::LoopExit));
    return preprocessor_.ParseDirectives();
}

}  // namespace macroengine
