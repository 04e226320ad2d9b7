#include "compiler/CallParser.h"

#include <algorithm>
#include <string>
#include <utility>

#include "source/Characters.h"

namespace macroengine {

namespace {

/// Whether some provider allows a call on a side of "="; which one runs is known only at run time. A call
/// that lacks a command's name is left to the run as a whole.
bool Allows(const CommandEntry& entry, bool (CMacroCategoryBase::*flag)() const) {
    return entry.property.empty() ||
           std::any_of(entry.providers.begin(), entry.providers.end(),
                       [&](const CommandEntry::Provider& provider) { return (provider.command->*flag)(); });
}

bool CanBeginArgument(TokenCode code) {
    return code == TokenCode::Name || code == TokenCode::Integer || code == TokenCode::Real ||
           code == TokenCode::String;
}

}  // namespace

bool CallParser::ReportNoSide(const Token& token, const CommandEntry& entry, const char* side) {
    return compiler_.ReportError(token.line,
                                 "syntax error (" + entry.GetName() + "() can't use assign " + side + ".)");
}

/// @param command  receives the token that names the command, or that of the category in a call without a
/// name.
/// @return what is called, null with the reason reported.
CommandEntry* CallParser::ParseCommand(Token& command) {
    Token category;
    TokenCode code;
    if (!compiler_.Read(category, code) || !compiler_.Peek(code)) return nullptr;
    command = category;
    if (code != TokenCode::Point) return compiler_.GetCategories().FindEntry(category.text, {});

    if (!compiler_.Expect(TokenCode::Point) || !compiler_.Read(command, code)) return nullptr;
    if (command.IsEnd() || !IsNameStart(command.text.front())) {
        compiler_.ReportSyntaxError(command);
        return nullptr;
    }
    CommandEntry* const entry = compiler_.GetCategories().FindEntry(category.text, command.text);
    if (entry == nullptr) {
        compiler_.ReportError(command.line, std::string("\"")
                                                .append(command.text)
                                                .append("\" is not property of category(")
                                                .append(category.text)
                                                .append(")."));
    }
    return entry;
}

/// Parses a list of arguments if there is one.
bool CallParser::ParseArguments(OperandList& arguments) {
    TokenCode code;
    if (!compiler_.Peek(code)) return false;
    if (code != TokenCode::OpenParenthesis) return true;
    Token token;
    if (!compiler_.Read(token, code) || !compiler_.Peek(code)) return false;
    if (code == TokenCode::CloseParenthesis) return compiler_.Read(token, code);
    do {
        if (!ParseArgument(arguments) || !compiler_.Read(token, code)) return false;
    } while (code == TokenCode::Comma);
    return code == TokenCode::CloseParenthesis || compiler_.ReportSyntaxError(token);
}

bool CallParser::ParseArgument(OperandList& arguments) {
    TokenCode code;
    if (!compiler_.Peek(code)) return false;
    if (!CanBeginArgument(code)) return compiler_.ReportSyntaxErrorOnNext();
    Operand argument;
    if (!expressions_.ParseOperand(argument)) return false;
    arguments.Append(std::move(argument));
    return true;
}

StatementPointer<CMacroStatementCategory> CallParser::MakeCall(CommandEntry& entry, OperandList arguments,
                                                               Operand assigned) {
    auto call = compiler_.Make<CMacroStatementCategory>(compiler_.GetCategories(), entry);
    call->SetArguments(std::move(arguments));
    call->SetAssignedValue(std::move(assigned));
    return call;
}

bool CallParser::ParseStatement() {
    Token command;
    CommandEntry* const entry = ParseCommand(command);
    OperandList arguments;
    const Token* next;
    TokenCode code;
    if (entry == nullptr || !ParseArguments(arguments) || !compiler_.Peek(next, code)) return false;
    Operand assigned = Operand::ResultReference(nullptr);
    if (code == TokenCode::Assign) {
        if (!Allows(*entry, &CMacroCategoryBase::CanAssignDest))
            return ReportNoSide(*next, *entry, "destination");
        if (!compiler_.Expect(TokenCode::Assign) || !expressions_.ParseExpression(assigned)) return false;
    }
    compiler_.Insert(MakeCall(*entry, std::move(arguments), std::move(assigned)));
    return true;
}

bool CallParser::ParseSource(Operand& operand) {
    Token command;
    CommandEntry* const entry = ParseCommand(command);
    OperandList arguments;
    if (entry == nullptr) return false;
    if (!Allows(*entry, &CMacroCategoryBase::CanAssignSrc)) return ReportNoSide(command, *entry, "source");
    if (!ParseArguments(arguments)) return false;
    auto call = MakeCall(*entry, std::move(arguments), Operand::ResultReference(nullptr));
    operand = Operand::ResultReference(&compiler_.Insert(std::move(call))->GetResult());
    return true;
}

}  // namespace macroengine
