#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "categories/CMacroCategoryCmdList.h"
#include "compiler/TokenCode.h"
#include "host/CErrorMessageTable.h"
#include "host/CMacroPrg.h"
#include "source/CLex.h"

namespace macroengine {

/// Compiles a macro file, and the files that it includes, into a program.
///
/// It holds what the preprocessor and the parsers share: the file that is being compiled and its lexer, the
/// statement that is being built, and the way to the error table. It lives for one load.
class MacroCompiler {
public:
    MacroCompiler(CMacroPrg& program, CMacroCategoryCmdList& categories, CErrorMessageTable& errors);
    MacroCompiler(const MacroCompiler&) = delete;
    MacroCompiler& operator=(const MacroCompiler&) = delete;

    /// Compiles a file with a lexer of its own; afterwards the compiler is back where it was.
    ///
    /// @param parent  the lexer of the including file: what is defined in either file both know from then on.
    ///                Null for the file that is loaded.
    /// @return false with the reason in the error table.
    bool CompileFile(const std::string& path, const CLex* parent);

    /// Compiles a file that the current one includes.
    ///
    /// @param name  as it stands in the source, quotes included.
    /// @param line  of the directive.
    bool IncludeFile(std::string_view name, std::uint32_t line);

    CLex& GetLexer() { return *lexer_; }
    CMacroCategoryCmdList& GetCategories() { return categories_; }
    VariableTable& GetVariables() { return program_.GetVariables(); }

    // Tokens. Each returns false after a lexical error, which is then reported.

    /// Looks at the next token's code. While a region is skipped only line ends, directives and the end are
    /// seen.
    bool Peek(TokenCode& code) {
        const Token* token;
        return Peek(token, code);
    }

    /// Looks at the next token, which is valid until it is read.
    bool Peek(const Token*& token, TokenCode& code) {
        Token* const next = lexer_->PeekTokenSkipping();
        if (next == nullptr) {
            FailInLexer();
            return false;
        }
        token = next;
        code = CodeOf(*next);
        return true;
    }

    /// Consumes what Peek has just seen.
    void Consume() { lexer_->Consume(); }

    /// Consumes what Peek sees.
    bool Read(Token& token, TokenCode& code) {
        if (!lexer_->ReadTokenSkipping(token)) {
            FailInLexer();
            return false;
        }
        code = CodeOf(token);
        return true;
    }

    /// Consumes the next token; reports a syntax error if it has another code.
    bool Expect(TokenCode expected);

    /// Consumes the next token in the line of a directive, where nothing is skipped.
    bool ReadInDirective(Token& token, TokenCode& code, CLex::Substitution substitution);

    /// Looks at what ReadInDirective would consume without substitution.
    bool PeekInDirective(const Token*& token, TokenCode& code);

    // Statements

    /// Begins the statements of a source statement: they form a group of their own and carry its line.
    void BeginStatement(std::uint32_t line);

    /// Lets the source statement go on in a group of its own.
    void BeginNextGroup() { grouping_ = CMacroPrg::Grouping::Alone; }

    /// Makes a statement of the source statement; it is to be inserted.
    template <class Statement, class... Arguments>
    StatementPointer<Statement> Make(Arguments&&... arguments) {
        return program_.MakeStatement<Statement>(*unit_, line_, std::forward<Arguments>(arguments)...);
    }

    /// Hands a statement to the program. @return the statement, which the program owns.
    template <class Statement>
    Statement* Insert(StatementPointer<Statement> statement) {
        Statement* const inserted = statement.get();
        program_.InsertMacroNode(std::move(statement),
                                 std::exchange(grouping_, CMacroPrg::Grouping::BySourceLine));
        return inserted;
    }

    /// As Insert, into the last group there is.
    template <class Statement>
    Statement* InsertIntoLastGroup(StatementPointer<Statement> statement) {
        Statement* const inserted = statement.get();
        program_.InsertMacroNode(std::move(statement), CMacroPrg::Grouping::WithLastGroup);
        return inserted;
    }

    std::int32_t GetGroupCount() const { return program_.GetGroupCount(); }

    // Errors. Each returns false.

    bool ReportError(std::uint32_t line, std::string_view text);
    bool ReportSyntaxError(const Token& token, std::string_view more = {});
    bool ReportSyntaxErrorOnNext();

    /// Refuses a name before a point that is no category.
    bool ReportNoCategory(const Token& name);

    /// Moves the lexer's errors to the error table.
    bool FailInLexer();

    /// Refuses what is nested too deep; `what` names it as the source does.
    bool ReportNesting(std::uint32_t line, std::string_view what);

    /// How deep the current place stands in blocks, those of the including files counted.
    std::uint32_t& GetBlockDepth() { return blockDepth_; }

private:
    TokenCode CodeOf(Token& token) const {
        if (token.readerCode == ReaderCode::None) {
            token.readerCode = static_cast<ReaderCode>(ClassifyToken(token, categories_));
        }
        return static_cast<TokenCode>(token.readerCode);
    }

    CMacroPrg& program_;
    CMacroCategoryCmdList& categories_;
    CErrorMessageTable& errors_;
    CLex* lexer_ = nullptr;
    SourceUnit* unit_ = nullptr;
    std::vector<std::string> includeNames_;  ///< of the files in progress, quotes included
    std::uint32_t includeDepth_ = 0;
    std::uint32_t includeCount_ = 0;
    std::uint32_t blockDepth_ = 0;
    std::uint32_t line_ = 0;
    CMacroPrg::Grouping grouping_ = CMacroPrg::Grouping::BySourceLine;
};

}  // namespace macroengine
