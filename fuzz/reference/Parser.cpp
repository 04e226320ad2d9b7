#include <cstdlib>
#include <utility>

#include "reference/Program.h"
#include "reference/Tokens.h"

namespace macroengine::reference {

namespace {

/// One function for each rule of the grammar.
class Parser {
public:
    explicit Parser(std::vector<Token> tokens) : tokens_(std::move(tokens)) {}

    Block ParseProgram() {
        Block program = ParseBlock();
        if (Next().kind != Token::Kind::End) Fail();
        return program;
    }

private:
    using Level = Operand (Parser::*)();

    const Token& Next() const { return tokens_[at_]; }
    bool NextIs(const std::string& text) const {
        return Next().text == text && Next().kind != Token::Kind::Text;
    }

    [[noreturn]] void Fail() const {
        throw NotUnderstood("line " + std::to_string(Next().line) + " at '" + Next().text + "'");
    }

    bool Take(const std::string& text) {
        if (!NextIs(text)) return false;
        ++at_;
        return true;
    }

    void Expect(const std::string& text) {
        if (!Take(text)) Fail();
    }

    void ExpectLineEnd() {
        if (Next().kind == Token::Kind::LineEnd) {
            ++at_;
        } else if (Next().kind != Token::Kind::End) {
            Fail();
        }
    }

    // --- statements

    Block ParseBlock() {
        Block block;
        for (;;) {
            while (Next().kind == Token::Kind::LineEnd)
                ++at_;
            if (Next().kind == Token::Kind::End || NextIs("elseif") || NextIs("else") || NextIs("endif") ||
                NextIs("endloop"))
                return block;
            block.push_back(ParseStatement());
        }
    }

    Statement ParseStatement() {
        Statement statement;
        statement.line = Next().line;
        if (NextIs("if")) {
            ParseIf(statement);
        } else if (NextIs("loop")) {
            statement.kind = Statement::Kind::Loop;
            statement.branches.push_back(ParseBranch());
            Expect("endloop");
        } else if (tokens_[at_ + 1].text == ".") {
            statement.kind = Statement::Kind::Call;
            statement.source = ParseCall();
            if (Take("=")) statement.source.step->assigned = std::make_unique<Operand>(ParseExpression());
        } else {
            statement.destination = ParseOperand();
            Expect("=");
            const bool isCall = Next().kind == Token::Kind::Word && tokens_[at_ + 1].text == ".";
            statement.source = isCall ? ParseCall() : ParseExpression();
        }
        ExpectLineEnd();
        return statement;
    }

    /// The keyword, the condition and the block.
    Branch ParseBranch() {
        Branch branch;
        branch.line = Next().line;
        ++at_;
        branch.condition = ParseCondition();
        ExpectLineEnd();
        branch.body = ParseBlock();
        return branch;
    }

    void ParseIf(Statement& statement) {
        statement.kind = Statement::Kind::If;
        do
            statement.branches.push_back(ParseBranch());
        while (NextIs("elseif"));
        if (Take("else")) {
            ExpectLineEnd();
            statement.otherwise = ParseBlock();
        }
        Expect("endif");
    }

    /// category.command(arguments)
    Operand ParseCall() {
        Operand call;
        call.kind = Operand::Kind::Result;
        call.step = std::make_shared<Step>();
        call.step->kind = Step::Kind::Call;
        call.step->operation = Next().text + "." + tokens_[at_ + 2].text;
        at_ += 3;
        Expect("(");
        if (Take(")")) return call;
        do
            call.step->operands.push_back(ParseOperand());
        while (Take(","));
        Expect(")");
        return call;
    }

    // --- expressions and conditions

    static Operand Combine(Step::Kind kind, std::string operation, Operand left, Operand right) {
        Operand combined;
        combined.kind = Operand::Kind::Result;
        combined.step = std::make_shared<Step>();
        combined.step->kind = kind;
        combined.step->operation = std::move(operation);
        combined.step->operands.push_back(std::move(left));
        combined.step->operands.push_back(std::move(right));
        return combined;
    }

    /// Operators of one level, from left to right.
    Operand ParseLevel(Step::Kind kind, Level tighter, const std::vector<std::string>& operators) {
        Operand left = (this->*tighter)();
        for (;;) {
            std::string taken;
            for (const std::string& candidate : operators) {
                if (taken.empty() && Take(candidate)) taken = candidate;
                // A minus before a digit belongs to the number, save where an operator has to stand.
                if (candidate == "-" && Next().kind == Token::Kind::Number && Next().text[0] == '-' &&
                    taken.empty()) {
                    tokens_[at_].text.erase(0, 1);
                    taken = "-";
                }
            }
            if (taken.empty()) return left;
            Operand right = (this->*tighter)();
            left = Combine(kind, taken, std::move(left), std::move(right));
        }
    }

    Operand ParseExpression() { return ParseLevel(Step::Kind::Operate, &Parser::ParseOr, {"<<", ">>"}); }
    Operand ParseOr() { return ParseLevel(Step::Kind::Operate, &Parser::ParseAnd, {"|"}); }
    Operand ParseAnd() { return ParseLevel(Step::Kind::Operate, &Parser::ParseSum, {"&"}); }
    Operand ParseSum() { return ParseLevel(Step::Kind::Operate, &Parser::ParseProduct, {"+", "-"}); }
    Operand ParseProduct() { return ParseLevel(Step::Kind::Operate, &Parser::ParsePrimary, {"*", "/"}); }

    Operand ParsePrimary() {
        if (!Take("(")) return ParseOperand();
        Operand inner = ParseExpression();
        Expect(")");
        return inner;
    }

    Operand ParseCondition() { return ParseLevel(Step::Kind::Compare, &Parser::ParseAlternative, {"||"}); }
    Operand ParseAlternative() { return ParseLevel(Step::Kind::Compare, &Parser::ParseComparison, {"&&"}); }

    Operand ParseComparison() {
        if (Take("(")) {
            Operand inner = ParseCondition();
            Expect(")");
            return inner;
        }
        Operand left = ParseOperand();
        for (const char* operation : {"==", "!=", "<", "<=", ">", ">="}) {
            if (Take(operation))
                return Combine(Step::Kind::Compare, operation, std::move(left), ParseOperand());
        }
        Fail();
    }

    /// A variable, an element or a literal.
    Operand ParseOperand() {
        Operand operand;
        const Token token = Next();
        ++at_;
        switch (token.kind) {
            case Token::Kind::Number:
                operand.literal = NumberOf(token.text);
                return operand;
            case Token::Kind::Text:
                operand.literal.content = TextOf(token.text);
                return operand;
            case Token::Kind::Word:
                break;
            default:
                --at_;
                Fail();
        }
        operand.kind = Operand::Kind::Variable;
        operand.name = token.text;
        while (Take("[")) {
            operand.kind = Operand::Kind::Element;
            operand.subscripts.push_back(ParseOperand());
            Expect("]");
        }
        return operand;
    }

    static Value NumberOf(const std::string& text) {
        if (text.find('.') != std::string::npos) return Value{std::strtod(text.c_str(), nullptr)};
        const bool isHex = text.compare(0, 2, "0x") == 0 || text.compare(0, 2, "0X") == 0;
        const long long number = std::strtoll(text.c_str(), nullptr, isHex ? 16 : 10);
        return Value{static_cast<std::int32_t>(static_cast<std::uint32_t>(number))};
    }

    static std::string TextOf(const std::string& quoted) {
        std::string text;
        for (std::size_t i = 1; i + 1 < quoted.size(); ++i) {
            if (quoted[i] == '\\' && quoted[i + 1] == '"') continue;
            text += quoted[i];
            // A pair of backslashes stays a pair.
            if (quoted[i] == '\\' && i + 2 < quoted.size()) text += quoted[++i];
        }
        return text;
    }

    std::vector<Token> tokens_;
    std::size_t at_ = 0;
};

}  // namespace

Block Parse(const std::string& text) {
    return Parser(ReadTokens(text)).ParseProgram();
}

}  // namespace macroengine::reference
