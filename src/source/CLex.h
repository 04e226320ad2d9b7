#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "host/CErrorMessageTable.h"
#include "platform/File.h"
#include "source/MacroTable.h"
#include "source/SourceLoader.h"
#include "source/Token.h"
#include "source/TokenScanner.h"

namespace macroengine {

/// The state of conditional compilation. The lexer consults the skip mask; the directives keep the rest here
/// because it begins afresh with each file.
struct ConditionalState {
    std::uint32_t skipMask = 0;   ///< a bit for each open level that is being skipped
    std::uint32_t takenMask = 0;  ///< a bit for each open level that has chosen its branch
    std::int32_t depth = -1;      ///< -1 outside any condition
};

/// Turns one loaded file into tokens, on demand and with any look-ahead.
///
/// Lexical errors go, with the file and the line, into the lexer's own table. Tokens view the lexer's text
/// and die with it, or when it forgets what was read.
class CLex {
public:
    enum class Substitution { Macros, None };

    CLex();
    CLex(const CLex&) = delete;
    CLex& operator=(const CLex&) = delete;
    ~CLex();

    /// Reads a file and starts at its first line (see LoadSource for the forms and the messages).
    /// @return false when it could not be read; there are no tokens then.
    bool LoadFile(const std::string& path);

    /// Starts with a text that is there already; `path` only names it in messages.
    void LoadText(const std::string& path, std::string text);

    /// Consumes the next token. Tokens that were peeked come as they were scanned then.
    /// @return false on a lexical error, which is reported. At the end an empty token is given, again and
    /// again.
    bool ReadToken(Token& token, Substitution substitution = Substitution::Macros) {
        const Token* const next = PeekToken(substitution);
        if (next == nullptr) return false;
        token = *next;
        Consume();
        return true;
    }

    /// Looks at the next token and leaves it.
    /// @return the token, valid until the next read; null on a lexical error, which is reported.
    Token* PeekToken(Substitution substitution = Substitution::Macros) {
        return front_ != back_ ? front_ : ScanAhead(substitution);
    }

    /// Consumes the token that was peeked last.
    void Consume() {
        // The end is not in the queue: it is given again and again.
        if (front_ != back_) ++front_;
    }

    /// As ReadToken; while a region is skipped it passes over everything but line ends, directives and the
    /// end.
    bool ReadTokenSkipping(Token& token) { return PeekTokenSkipping() != nullptr && ReadToken(token); }

    /// As PeekToken; while a region is skipped it consumes everything but line ends, directives and the end.
    Token* PeekTokenSkipping() {
        Token* const token = PeekToken();
        return conditional_.skipMask == 0 ? token : SkipFrom(token);
    }

    /// Replaces the peeked token, a number that begins with "-", by the operator "-" and the number without
    /// it.
    void SplitNegativeNumber();

    /// Enters a macro.
    /// @return false with "redefine ( name )" at the line when the name has another body.
    bool DefineMacro(std::string_view name, std::vector<std::string> body, std::uint32_t line);

    /// Takes over every macro of another lexer whose name this one lacks. A lexer without macros of its own
    /// shares the other's table from then on: what either defines later, both know.
    void MergeMacros(const CLex& other);

    /// Gives the memory of the text read so far back to the system; tokens that were read are lost. Nothing
    /// happens while a token is peeked, or when there is little to gain.
    void ForgetReadText() {
        constexpr std::ptrdiff_t kWorthwhile = std::ptrdiff_t{1} << 18;
        if (front_ == back_ && scanner_.GetPosition() - remembered_ >= kWorthwhile) DiscardReadText();
    }

    /// @return the bytes of the text.
    std::size_t GetTextSize() const { return static_cast<std::size_t>(text_.End() - text_.Begin()); }

    std::uint32_t GetLine() const { return scanner_.GetLine(); }
    const std::string& GetFilePath() const { return path_; }
    CErrorMessageTable& GetErrors() { return errors_; }
    ConditionalState& GetConditionalState() { return conditional_; }

protected:
    platform::File file_;  ///< open only inside LoadFile

private:
    Token* ScanAhead(Substitution substitution);
    Token* SkipFrom(Token* token);
    bool Fill(Substitution substitution);
    bool SubstituteName(std::string_view name);
    bool Classify(std::string_view text, Token& token);
    bool Finish(Token& token);
    bool ClassifyNumber(Token& token);
    std::string_view ReduceEscapedQuotes(std::string_view text);
    bool ReportError(std::string_view text);
    void Start(const std::string& path);
    void DiscardReadText();

    std::string path_;
    SourceText text_;
    const char* remembered_ = nullptr;  ///< where the text begins that is still there
    TokenScanner scanner_;
    CErrorMessageTable errors_;

    /// Room for the tokens scanned and not yet consumed, those from front_ to back_. There is always room for
    /// one more before them.
    std::vector<Token> queue_;
    Token* front_ = nullptr;
    Token* back_ = nullptr;
    Token end_;

    std::shared_ptr<MacroTable> macros_;
    std::vector<std::string_view> substituted_;
    std::deque<std::string> reducedTexts_;  ///< texts of strings that differ from the source

    ConditionalState conditional_;
};

}  // namespace macroengine
