#include "compiler/Preprocessor.h"

#include <string>
#include <utility>
#include <vector>

namespace macroengine {

namespace {

constexpr std::int32_t kDeepestCondition = 31;
constexpr auto kRaw = CLex::Substitution::None;

bool EndsLine(TokenCode code) {
    return code <= TokenCode::LineEnd;
}

/// Whether the body of a macro goes on with a token of the code.
bool BelongsToBody(TokenCode code) {
    return !EndsLine(code) && code != TokenCode::Define && code != TokenCode::Include &&
           code != TokenCode::Other;
}

}  // namespace

bool Preprocessor::ParseDirectives() {
    TokenCode code;
    if (!compiler_.Peek(code)) return false;
    do {
        if (IsDirective(code) && !Handle(code)) return false;
        Token token;
        if (!compiler_.Read(token, code)) return false;
        if (!EndsLine(code)) return compiler_.ReportSyntaxError(token);
        compiler_.GetLexer().ForgetReadText();
        if (!compiler_.Peek(code)) return false;
    } while (code == TokenCode::LineEnd || IsDirective(code));
    return true;
}

bool Preprocessor::Handle(TokenCode directive) {
    switch (directive) {
        case TokenCode::Include:
            return HandleInclude();
        case TokenCode::Define:
            return HandleDefine();
        case TokenCode::HashIf:
            return HandleIf();
        case TokenCode::HashElseIf:
            return HandleElseIf();
        case TokenCode::HashElse:
            return HandleElse();
        default:
            return HandleEndIf();
    }
}

bool Preprocessor::ReadKeyword(Token& keyword) {
    TokenCode code;
    return compiler_.ReadInDirective(keyword, code, kRaw);
}

bool Preprocessor::HandleInclude() {
    Token keyword;
    Token name;
    TokenCode code;
    if (!ReadKeyword(keyword)) return false;
    if (!compiler_.ReadInDirective(name, code, CLex::Substitution::Macros)) return false;
    if (code != TokenCode::String) return compiler_.ReportSyntaxError(name);
    return compiler_.IncludeFile(name.text, keyword.line);
}

bool Preprocessor::HandleDefine() {
    Token keyword;
    Token name;
    TokenCode code;
    if (!ReadKeyword(keyword) || !compiler_.ReadInDirective(name, code, kRaw)) return false;
    if (code != TokenCode::Name) return compiler_.ReportSyntaxError(name);

    std::vector<std::string> body;
    const Token* next;
    if (!compiler_.PeekInDirective(next, code)) return false;
    while (BelongsToBody(code)) {
        Token part;
        if (!compiler_.ReadInDirective(part, code, kRaw)) return false;
        body.emplace_back(part.text);
        if (!compiler_.PeekInDirective(next, code)) return false;
    }
    return compiler_.GetLexer().DefineMacro(name.text, std::move(body), keyword.line) ||
           compiler_.FailInLexer();
}

/// Reads the keyword and what it tests: "exist", a category, and perhaps a point and a command.
bool Preprocessor::ReadExistTest(Token& keyword, bool& exists) {
    Token exist;
    Token category;
    TokenCode code;
    if (!ReadKeyword(keyword) || !compiler_.ReadInDirective(exist, code, kRaw)) return false;
    if (code != TokenCode::Name || exist.text != "exist") return compiler_.ReportSyntaxError(exist);
    if (!compiler_.ReadInDirective(category, code, CLex::Substitution::Macros)) return false;
    if (EndsLine(code)) return compiler_.ReportSyntaxError(category);

    std::string_view command;
    const Token* next;
    if (!compiler_.PeekInDirective(next, code)) return false;
    if (!EndsLine(code)) {
        Token token;
        // Whatever stands between the two names is not looked at.
        if (!compiler_.ReadInDirective(token, code, kRaw) || !compiler_.ReadInDirective(token, code, kRaw)) {
            return false;
        }
        if (EndsLine(code)) return compiler_.ReportSyntaxError(token);
        command = token.text;
    }
    exists = compiler_.GetCategories().IsCategory(category.text, command);
    return true;
}

/// @return the bit of the current depth in the masks. A directive without its `#if` works on the last one.
std::uint32_t Preprocessor::GetBit() {
    return 1U << (static_cast<std::uint32_t>(GetState().depth) & 31U);
}

void Preprocessor::SelectBranch() {
    ConditionalState& state = GetState();
    const std::uint32_t bit = GetBit();
    if ((state.takenMask & bit) != 0) {
        state.skipMask |= bit;
    } else {
        state.skipMask &= ~bit;
        state.takenMask |= bit;
    }
}

void Preprocessor::EnterBranch(bool exists) {
    if (exists) {
        SelectBranch();
    } else {
        GetState().skipMask |= GetBit();
    }
}

bool Preprocessor::HandleIf() {
    Token keyword;
    bool exists = false;
    if (!ReadExistTest(keyword, exists)) return false;
    ConditionalState& state = GetState();
    if (state.depth == kDeepestCondition) {
        return compiler_.ReportError(keyword.line, "The nest for \"#if\" is to up to 32 times.");
    }
    ++state.depth;
    EnterBranch(exists);
    return true;
}

bool Preprocessor::HandleElseIf() {
    Token keyword;
    bool exists = false;
    if (!ReadExistTest(keyword, exists)) return false;
    EnterBranch(exists);
    return true;
}

bool Preprocessor::HandleElse() {
    Token keyword;
    if (!ReadKeyword(keyword)) return false;
    SelectBranch();
    return true;
}

bool Preprocessor::HandleEndIf() {
    Token keyword;
    if (!ReadKeyword(keyword)) return false;
    ConditionalState& state = GetState();
    const std::uint32_t bit = GetBit();
    state.skipMask &= ~bit;
    state.takenMask &= ~bit;
    --state.depth;
    return true;
}

}  // namespace macroengine
