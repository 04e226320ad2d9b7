#include "compiler/MacroCompiler.h"

#include <algorithm>
#include <new>
#include <utility>

#include "compiler/NestingGuard.h"
#include "compiler/StatementParser.h"
#include "platform/NativePath.h"

namespace macroengine {

namespace {

/// @return the token as messages spell it, with the quote that closes it.
std::string Spell(const Token& token) {
    if (token.IsEnd()) return "<EOF>'";
    if (token.IsLineEnd()) return "<EOL>'";
    if (token.text == "\t") return "<TAB>'";
    return std::string(token.text).append("'");
}

}  // namespace

MacroCompiler::MacroCompiler(CMacroPrg& program, CMacroCategoryCmdList& categories,
                             CErrorMessageTable& errors)
    : program_(program), categories_(categories), errors_(errors) {}

bool MacroCompiler::CompileFile(const std::string& path, const CLex* parent) {
    CLex lexer;
    if (!lexer.LoadFile(path)) {
        errors_.TakeErrors(lexer.GetErrors());
        return false;
    }
    if (parent != nullptr) lexer.MergeMacros(*parent);
    program_.ExpectText(lexer.GetTextSize());
    CLex* const outerLexer = std::exchange(lexer_, &lexer);
    SourceUnit* const outerUnit = std::exchange(unit_, &program_.AddSourceUnit(path, includeDepth_));
    bool compiled = false;
    try {
        compiled = StatementParser(*this).ParseProgram();
    } catch (const std::bad_alloc&) {
        errors_.AddLocatedError(path.c_str(), static_cast<std::int32_t>(lexer.GetLine()),
                                "Memory allocation error");
    }
    lexer_ = outerLexer;
    unit_ = outerUnit;
    return compiled;
}

bool MacroCompiler::IncludeFile(std::string_view name, std::uint32_t line) {
    if (std::find(includeNames_.begin(), includeNames_.end(), name) != includeNames_.end()) {
        return ReportError(
            line, std::string("A include file (").append(name).append(") was performed re-include of."));
    }
    const NestingGuard nesting(includeDepth_);
    if (nesting.IsTooDeep()) return ReportNesting(line, "#include");
    if (++includeCount_ > limits::kIncludes) {
        return ReportError(
            line, "The number of \"#include\" is to up to " + std::to_string(limits::kIncludes) + ".");
    }

    const std::string_view includer = unit_->fileName;
    const std::string_view file = name.substr(1, name.size() - 2);
    std::string path;
    if (!platform::IsAbsolute(file)) path = includer.substr(0, platform::FolderLength(includer));
    path.append(file);

    includeNames_.emplace_back(name);
    const bool compiled = CompileFile(path, lexer_);
    includeNames_.pop_back();
    if (compiled) return true;
    return ReportError(line, std::string("Failed to read include file(").append(name).append(")"));
}

bool MacroCompiler::Expect(TokenCode expected) {
    Token token;
    TokenCode code;
    if (!Read(token, code)) return false;
    return code == expected || ReportSyntaxError(token);
}

bool MacroCompiler::ReadInDirective(Token& token, TokenCode& code, CLex::Substitution substitution) {
    if (!lexer_->ReadToken(token, substitution)) return FailInLexer();
    code = CodeOf(token);
    return true;
}

bool MacroCompiler::PeekInDirective(const Token*& token, TokenCode& code) {
    Token* const next = lexer_->PeekToken(CLex::Substitution::None);
    if (next == nullptr) return FailInLexer();
    token = next;
    code = CodeOf(*next);
    return true;
}

void MacroCompiler::BeginStatement(std::uint32_t line) {
    line_ = line;
    grouping_ = CMacroPrg::Grouping::Alone;
}

bool MacroCompiler::ReportError(std::uint32_t line, std::string_view text) {
    errors_.AddLocatedError(unit_->fileName.c_str(), static_cast<std::int32_t>(line), text);
    return false;
}

bool MacroCompiler::ReportSyntaxError(const Token& token, std::string_view more) {
    return ReportError(token.line, "syntax error '" + Spell(token).append(more));
}

bool MacroCompiler::ReportSyntaxErrorOnNext() {
    const Token* token;
    TokenCode code;
    return Peek(token, code) && ReportSyntaxError(*token);
}

bool MacroCompiler::ReportNoCategory(const Token& name) {
    return ReportError(name.line, std::string("\"").append(name.text).append("\" is not category operand."));
}

bool MacroCompiler::FailInLexer() {
    errors_.TakeErrors(lexer_->GetErrors());
    return false;
}

bool MacroCompiler::ReportNesting(std::uint32_t line, std::string_view what) {
    return ReportError(line, std::string("The nest for \"")
                                 .append(what)
                                 .append("\" is to up to ")
                                 .append(std::to_string(limits::kNesting))
                                 .append(" times."));
}

}  // namespace macroengine
