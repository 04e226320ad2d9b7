#include "source/CLex.h"

#include <algorithm>
#include <charconv>
#include <system_error>
#include <utility>

#include "platform/CodePage.h"
#include "platform/MemoryAdvice.h"
#include "runtime/Limits.h"
#include "source/Characters.h"

namespace macroengine {

namespace {

/// Reads a number of the base, with an optional "-", as a C library with a 32-bit long does: a minus sign
/// negates modulo 2^32.
/// @return false when the digits exceed 32 bits.
bool ParseUnsigned(std::string_view text, int base, std::uint32_t& value) {
    const bool negative = text.front() == '-';
    if (negative) text.remove_prefix(1);
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value, base);
    if (error != std::errc()) return false;
    if (negative) value = 0U - value;
    return true;
}

/// @return false when the number is too large. One too small to represent is a zero of its sign.
bool ParseReal(std::string_view text, double& value) {
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error == std::errc()) return true;
    // A non-zero digit before the point tells an overflow from an underflow.
    if (text.substr(0, text.find('.')).find_first_of("123456789") != std::string_view::npos) return false;
    value = text.front() == '-' ? -0.0 : 0.0;
    return true;
}

}  // namespace

CLex::CLex() : queue_(2), macros_(std::make_shared<MacroTable>()) {
    end_.kind = TokenKind::Operator;
}

CLex::~CLex() = default;

bool CLex::LoadFile(const std::string& path) {
    const bool loaded = LoadSource(path, file_, errors_, text_);
    // After a failure too: nothing may go on in a text that is gone.
    Start(path);
    return loaded;
}

void CLex::LoadText(const std::string& path, std::string text) {
    text_ = SourceText(std::move(text));
    Start(path);
}

void CLex::Start(const std::string& path) {
    path_ = path;
    remembered_ = text_.Begin();
    scanner_.Start(text_);
    front_ = back_ = nullptr;
}

void CLex::DiscardReadText() {
    char* const begin = text_.Data() + (remembered_ - text_.Begin());
    remembered_ = scanner_.GetPosition();
    reducedTexts_.clear();
    platform::DiscardContents(begin, static_cast<std::size_t>(remembered_ - begin));
}

bool CLex::ReportError(std::string_view text) {
    errors_.AddLocatedError(path_.c_str(), static_cast<std::int32_t>(scanner_.GetLine()), text);
    return false;
}

/// Fills the empty queue. @return the next token, which may be the end; null on a lexical error.
Token* CLex::ScanAhead(Substitution substitution) {
    if (!Fill(substitution)) return nullptr;
    if (front_ != back_) return front_;
    end_.line = scanner_.GetLine();
    return &end_;
}

/// Consumes the tokens of a skipped region, the first of which is given. @return as PeekToken.
Token* CLex::SkipFrom(Token* token) {
    while (token != nullptr && !token->IsLineEnd() && !token->IsEnd() &&
           token->kind != TokenKind::Directive) {
        Consume();
        token = PeekToken();
    }
    return token;
}

/// Scans on until there is a token in the queue or the text ends.
/// @return false on a lexical error.
bool CLex::Fill(Substitution substitution) {
    // A macro with an empty body gives no token at all.
    do {
        Token& token = queue_[1];
        front_ = back_ = &token;
        switch (scanner_.Next(token)) {
            case TokenScanner::Result::End:
                return true;
            case TokenScanner::Result::Failed:
                return ReportError(scanner_.GetFailure());
            case TokenScanner::Result::Token:
                break;
        }
        if (substitution == Substitution::None || macros_->IsEmpty() || !IsNameStart(token.text.front())) {
            if (!Finish(token)) return false;
            ++back_;
        } else if (!SubstituteName(token.text)) {
            return false;
        }
    } while (front_ == back_);
    return true;
}

/// Fills the empty queue with what a name stands for.
bool CLex::SubstituteName(std::string_view name) {
    substituted_.clear();
    if (!macros_->Substitute(name, substituted_)) {
        return ReportError("The substitution for \"#define\" is to up to " +
                           std::to_string(limits::kSubstitutedTokens) + " tokens.");
    }
    queue_.resize(std::max(queue_.size(), substituted_.size() + 1));
    front_ = back_ = queue_.data() + 1;
    for (const std::string_view part : substituted_) {
        // Those before it stay in the queue.
        if (!Classify(part, *back_)) return false;
        ++back_;
    }
    return true;
}

/// Makes a token of a text that stands for a name.
bool CLex::Classify(std::string_view text, Token& token) {
    token = Token();
    token.text = text;
    token.line = scanner_.GetLine();
    const char first = text.front();
    if (IsDigit(first) || (first == '-' && text.size() > 1)) {
        token.kind = TokenKind::None;
    } else if (IsNameStart(first) || first == '#') {
        token.kind = KindOfWord(text);
    } else {
        token.kind = first == '"' ? TokenKind::String : TokenKind::Operator;
    }
    return Finish(token);
}

/// Does for a token what the scanner leaves.
bool CLex::Finish(Token& token) {
    if (token.kind == TokenKind::None) return ClassifyNumber(token);
    if (token.kind == TokenKind::String) token.text = ReduceEscapedQuotes(token.text);
    return true;
}

bool CLex::ClassifyNumber(Token& token) {
    const std::string_view text = token.text;
    bool inRange;
    if (text.size() > 2 && (text[1] == 'x' || text[1] == 'X')) {
        token.kind = TokenKind::Integer;
        inRange = ParseUnsigned(text.substr(2), 16, token.integerValue);
    } else if (text.find('.') != std::string_view::npos) {
        token.kind = TokenKind::Real;
        inRange = ParseReal(text, token.realValue);
    } else {
        token.kind = TokenKind::Integer;
        inRange = ParseUnsigned(text, 10, token.integerValue);
    }
    return inRange || ReportError(std::string(text).append(" is out of range"));
}

/// Replaces each backslash before a double quote and that quote by a lone quote. A pair of backslashes stays
/// a pair.
std::string_view CLex::ReduceEscapedQuotes(std::string_view text) {
    if (text.find("\\\"") == std::string_view::npos) return text;
    std::string reduced;
    reduced.reserve(text.size());
    const char* const end = text.data() + text.size();
    for (const char* position = text.data(); position != end;) {
        const std::size_t length = platform::CharacterLength(position, end);
        if (*position == '\\' && position + 1 != end && position[1] == '"') {
            ++position;
        } else if (*position == '\\' && position + 1 != end && position[1] == '\\') {
            reduced += *position++;
        }
        reduced.append(position, length);
        position += length;
    }
    return reducedTexts_.emplace_back(std::move(reduced));
}

void CLex::SplitNegativeNumber() {
    Token& number = *front_;
    Token minus = number;
    minus.text = number.text.substr(0, 1);
    minus.kind = TokenKind::Operator;
    minus.readerCode = ReaderCode::None;
    number.text.remove_prefix(1);
    if (number.kind == TokenKind::Real) {
        number.realValue = -number.realValue;
    } else {
        number.integerValue = 0U - number.integerValue;
    }
    *--front_ = minus;
}

bool CLex::DefineMacro(std::string_view name, std::vector<std::string> body, std::uint32_t line) {
    if (macros_->Define(name, std::move(body))) return true;
    errors_.AddLocatedError(path_.c_str(), static_cast<std::int32_t>(line),
                            std::string("redefine ( ").append(name).append(" )"));
    return false;
}

void CLex::MergeMacros(const CLex& other) {
    if (macros_ == other.macros_) return;
    if (macros_->IsEmpty()) {
        macros_ = other.macros_;
    } else {
        macros_->CopyMissing(*other.macros_);
    }
}

}  // namespace macroengine
