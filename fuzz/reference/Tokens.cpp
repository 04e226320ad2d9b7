#include "reference/Tokens.h"

#include <map>
#include <set>

#include "reference/Program.h"

namespace macroengine::reference {

namespace {

using Defines = std::map<std::string, std::vector<Token>>;

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

bool IsHexDigit(char c) {
    return IsDigit(c) || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F');
}

bool IsWordStart(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_' || c == '#';
}

bool IsWordPart(char c) {
    return IsDigit(c) || (IsWordStart(c) && c != '#');
}

class Scanner {
public:
    explicit Scanner(const std::string& text) : text_(text) {}

    Token Next() {
        SkipBlanks();
        Token token;
        token.line = line_;
        const std::size_t start = at_;
        const char c = At(0);
        if (c == '\0') return token;
        if (c == '\n') {
            token.kind = Token::Kind::LineEnd;
            ++line_;
            ++at_;
        } else if (IsWordStart(c)) {
            token.kind = Token::Kind::Word;
            ++at_;
            while (IsWordPart(At(0)))
                ++at_;
        } else if (IsDigit(c) || (c == '-' && IsDigit(At(1)))) {
            token.kind = Token::Kind::Number;
            ScanNumber();
        } else if (c == '"') {
            token.kind = Token::Kind::Text;
            ScanText();
        } else {
            token.kind = Token::Kind::Other;
            at_ += IsPair() ? 2 : 1;
        }
        token.text = text_.substr(start, at_ - start);
        return token;
    }

private:
    char At(std::size_t offset) const { return at_ + offset < text_.size() ? text_[at_ + offset] : '\0'; }

    void SkipBlanks() {
        for (;;) {
            if (At(0) == ' ' || At(0) == '\t' || (At(0) == '\r' && At(1) == '\n')) {
                ++at_;
            } else if (At(0) == '/' && At(1) == '/') {
                while (At(0) != '\0' && At(0) != '\n')
                    ++at_;
            } else if (At(0) == '/' && At(1) == '*') {
                at_ += 2;
                while (At(0) != '\0' && !(At(0) == '*' && At(1) == '/')) {
                    if (At(0) == '\n') ++line_;
                    ++at_;
                }
                if (At(0) != '\0') at_ += 2;
            } else {
                return;
            }
        }
    }

    void ScanNumber() {
        if (At(0) == '0' && (At(1) == 'x' || At(1) == 'X') && IsHexDigit(At(2))) {
            at_ += 2;
            while (IsHexDigit(At(0)))
                ++at_;
            return;
        }
        do
            ++at_;
        while (IsDigit(At(0)));
        if (At(0) != '.') return;
        do
            ++at_;
        while (IsDigit(At(0)));
    }

    void ScanText() {
        for (++at_; At(0) != '"'; ++at_) {
            if (At(0) == '\0' || At(0) == '\n') throw NotUnderstood("text without an end");
            if (At(0) == '\\' && At(1) != '\n' && At(1) != '\0') ++at_;
        }
        ++at_;
    }

    bool IsPair() const {
        for (const char* pair : {"==", "<=", ">=", "!=", "<<", ">>", "&&", "||"}) {
            if (At(0) == pair[0] && At(1) == pair[1]) return true;
        }
        return false;
    }

    const std::string& text_;
    std::size_t at_ = 0;
    int line_ = 1;
};

/// Replaces a token by its definition; in the replacement of one token a name is replaced once at most.
void Replace(const Token& token, const Defines& defines, std::set<std::string>& used,
             std::vector<Token>& out) {
    const auto found = defines.find(token.text);
    if (!used.insert(token.text).second || found == defines.end()) {
        out.push_back(token);
        return;
    }
    for (Token part : found->second) {
        part.line = token.line;
        Replace(part, defines, used, out);
    }
}

}  // namespace

std::vector<Token> ReadTokens(const std::string& text) {
    Scanner scanner(text);
    Defines defines;
    std::vector<Token> tokens;
    for (;;) {
        Token token = scanner.Next();
        if (token.text == "#define") {
            const std::string name = scanner.Next().text;
            std::vector<Token> body;
            for (token = scanner.Next(); token.kind < Token::Kind::LineEnd; token = scanner.Next())
                body.push_back(token);
            if (!defines.emplace(name, body).second) throw NotUnderstood("defined again");
        }
        std::set<std::string> used;
        Replace(token, defines, used, tokens);
        if (token.kind == Token::Kind::End) return tokens;
    }
}

}  // namespace macroengine::reference
