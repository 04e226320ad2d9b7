#include "common/MacroGenerator.h"

#include <iterator>

namespace macroengine::fuzz {

namespace {

constexpr const char* kIntegers[] = {"a", "b", "c", "d"};
constexpr const char* kFloats[] = {"f", "g"};
constexpr const char* kTexts[] = {"s", "t", "u"};
constexpr const char* kArrays[] = {"p", "q", "r"};
constexpr const char* kBooleans[] = {"y"};
constexpr const char* kIndexes[] = {"i", "j"};
constexpr const char* kCounters[] = {"n0", "n1", "n2"};
constexpr const char* kUndefined = "z";

constexpr unsigned kMaxDepth = 4;
constexpr unsigned kMaxLoops = 3;

/// Joins parts. Those of a list are made in its order, unlike the operands of a sum: so the bytes stand for the same
/// program with every compiler.
std::string Joined(std::initializer_list<std::string> parts) {
    std::string text;
    for (const std::string& part : parts)
        text += part;
    return text;
}

}  // namespace

const std::vector<std::string>& MacroGenerator::Names() {
    static const std::vector<std::string> names = [] {
        std::vector<std::string> all = {kUndefined};
        all.insert(all.end(), std::begin(kIntegers), std::end(kIntegers));
        all.insert(all.end(), std::begin(kFloats), std::end(kFloats));
        all.insert(all.end(), std::begin(kTexts), std::end(kTexts));
        all.insert(all.end(), std::begin(kArrays), std::end(kArrays));
        all.insert(all.end(), std::begin(kBooleans), std::end(kBooleans));
        all.insert(all.end(), std::begin(kIndexes), std::end(kIndexes));
        all.insert(all.end(), std::begin(kCounters), std::end(kCounters));
        return all;
    }();
    return names;
}

std::string MacroGenerator::Generate() {
    isTidy_ = source_.Rarely(2);
    Setup();
    while (!source_.IsEmpty())
        Statement();
    return text_;
}

void MacroGenerator::Line(std::initializer_list<std::string> parts) {
    text_.append(2 * depth_, ' ').append(Joined(parts));
    if (source_.Rarely(40)) text_ += source_.Rarely(2) ? "  // why" : " /* how */ ";
    text_ += source_.Rarely(60) ? "\r\n" : "\n";
    if (source_.Rarely(50)) text_ += source_.Rarely(2) ? "\n" : "/* more\n   of it */\n";
}

/// Gives most variables a value of their kind.
void MacroGenerator::Setup() {
    if (source_.Rarely(3)) {
        Line({"#define ONE ", Literal(AnyKind())});
        Line({"#define PLUS + ONE +"});
    } else {
        Line({"#define ONE 1"});
        Line({"#define PLUS +"});
    }
    // Without its line a variable comes into being later or never.
    const char* const lines[] = {"a = 1",      "b = -6",       "c = 7",       "d = 0",           "f = 2.5",
                                 "g = 0.0",    "s = \"ab\"",   "t = \"\"",    "u = s",           "p[0] = 1",
                                 "p[1] = 2.5", "p[2] = \"x\"", "p[3][1] = 4", "q[4] = 2",        "r = q",
                                 "r[1] = p",   "i = 0",        "j = 1",       "y = fuzz.truth()"};
    for (const char* line : lines) {
        if (!Strays(16)) Line({line});
    }
}

void MacroGenerator::Block(unsigned maxLength) {
    ++depth_;
    for (unsigned length = source_.Below(maxLength + 1); length > 0; --length)
        Statement();
    --depth_;
}

void MacroGenerator::Statement() {
    switch (source_.Below(24)) {
        case 0:
        case 1:
        case 2:
        case 3:
        case 4:
            return AssignScalar();
        case 5:
        case 6:
        case 7:
            return AssignElement();
        case 8:
        case 9:
            return AssignArray();
        case 10:
        case 11:
            return AppendText();
        case 12:
            return Alias();
        case 13:
            return ChangeKind();
        case 14:
            return AssignFromCommand();
        case 15:
            return Show();
        case 16:
        case 17:
        case 18:
            return If();
        default:
            return Loop();
    }
}

// --- statements

void MacroGenerator::AssignScalar() {
    const Kind kind = source_.Pick({Kind::Integer, Kind::Floating, Kind::Text});
    // Indexes stay small, so that they are of use.
    if (source_.Rarely(4)) {
        const std::string index = source_.Pick(kIndexes);
        const char* const sources[] = {"0", "i + 1", "j + 1", "1", "i - 1", "i * 2", "n0", "3"};
        return Line({index, " = ", source_.Pick(sources)});
    }
    Line({Name(kind), " = ", Expression(kind, 0)});
}

void MacroGenerator::AssignElement() {
    const Kind kind = source_.Rarely(4) ? Kind::Array : AnyKind();
    Line({Element(), " = ", kind == Kind::Array ? Name(kind) : Expression(kind, 1)});
}

void MacroGenerator::AssignArray() {
    const std::string to = source_.Pick(kArrays);
    const std::string from = source_.Pick(kArrays);
    Line({to, " = ", from});
    // What is handed on is then changed, on one side or the other.
    if (!source_.Rarely(3))
        Line({source_.Rarely(2) ? to : from, "[", Subscript(), "] = ", Operand(AnyKind())});
}

void MacroGenerator::AppendText() {
    const std::string name = Name(Kind::Text);
    if (source_.Rarely(3)) Line({source_.Pick(kTexts), " = ", name});
    Line({name, " = ", name, " + ", Operand(source_.Rarely(3) ? AnyKind() : Kind::Text)});
}

void MacroGenerator::Alias() {
    const Kind kind = AnyKind();
    Line({Name(kind), " = ", Operand(kind)});
}

void MacroGenerator::ChangeKind() {
    const std::string name = Name(AnyKind());
    const std::string value = Expression(AnyKind(), 1);
    if (loopDepth_ == 0) return Line({name, " = ", value});
    const char* const operators[] = {"==", ">", "!="};
    Line({"if ", Counter(), " ", source_.Pick(operators), " ", std::to_string(source_.Below(4))});
    ++depth_;
    Line({name, " = ", value});
    --depth_;
    Line({"endif"});
}

void MacroGenerator::AssignFromCommand() {
    std::string call;
    Kind kind = Kind::Integer;
    const auto optional = [this](Kind argument, unsigned chance) {
        return source_.Rarely(chance) ? ", " + Operand(argument) : std::string();
    };
    switch (source_.Below(10)) {
        case 0:
            call = Joined({"array.max(", Operand(Kind::Array), ")"});
            break;
        case 1:
            kind = AnyKind();
            call = Joined({"array.init(", Operand(kind), optional(kind, 2), optional(kind, 2), ")"});
            kind = Kind::Array;
            break;
        case 2:
            kind = Kind::Array;
            call = Joined({"string.split(", Operand(Kind::Text), optional(Kind::Text, 2), ")"});
            break;
        case 3:
            kind = Kind::Text;
            call = Joined({"string.int2dec(", Operand(Kind::Integer), optional(Kind::Integer, 2), ")"});
            break;
        case 4:
            kind = Kind::Text;
            call = Joined({"string.int2hex(", Operand(Kind::Integer), optional(Kind::Integer, 3), ")"});
            break;
        case 5:
            call = Joined({"string.str2dec(", Operand(Kind::Text), ")"});
            break;
        case 6:
            call = Joined({"system.get_variable_type(", Operand(AnyKind()), ")"});
            break;
        case 7:
            kind = Kind::Boolean;
            call = "fuzz.truth()";
            break;
        case 8:
            kind = Kind::Boolean;
            call = Joined({"fuzz.refuse(", Operand(AnyKind()), ")"});
            break;
        default:
            call = source_.Rarely(2) ? "fuzz.nothing()" : "string.split(s, t, i)";
            break;
    }
    Line({source_.Rarely(4) ? Element() : Name(kind), " = ", call});
}

void MacroGenerator::Show() {
    if (source_.Rarely(30)) return Line({"fuzz.stop()"});
    if (source_.Rarely(4))
        return Line({"fuzz.take(", Operand(AnyKind()), ") = ", Expression(Kind::Floating, 1)});
    Line({"fuzz.show(", Operand(AnyKind()), ", ", Operand(AnyKind()), ")"});
}

void MacroGenerator::If() {
    if (depth_ >= kMaxDepth) return AssignScalar();
    Line({"if ", Condition(0)});
    Block(3);
    while (source_.Rarely(4)) {
        Line({"elseif ", Condition(1)});
        Block(2);
    }
    if (source_.Rarely(3)) {
        Line({"else"});
        Block(2);
    }
    Line({"endif"});
}

void MacroGenerator::Loop() {
    if (depth_ >= kMaxDepth || loopDepth_ >= kMaxLoops) return AssignElement();
    const std::string counter = kCounters[loopDepth_];
    Line({counter, " = 0"});
    if (source_.Rarely(3)) Line({"i = 0"});
    // The outer loops turn more often.
    const std::string limit = std::to_string(2 + source_.Below(8u >> loopDepth_));
    std::string condition = counter + " < " + limit;
    if (source_.Rarely(8)) condition = Joined({condition, source_.Rarely(3) ? " || " : " && ", Comparison()});
    Line({"loop ", condition});
    ++loopDepth_;
    const bool countsFirst = source_.Rarely(3);
    ++depth_;
    if (countsFirst) Line({counter, " = ", counter, " + 1"});
    --depth_;
    Block(6);
    ++depth_;
    if (source_.Rarely(3)) Line({"i = i + 1"});
    if (!countsFirst) Line({counter, " = ", counter, " + 1"});
    --depth_;
    --loopDepth_;
    Line({"endloop"});
}

// --- operands

MacroGenerator::Kind MacroGenerator::AnyKind() {
    return source_.Pick(
        {Kind::Integer, Kind::Floating, Kind::Text, Kind::Array, Kind::Boolean, Kind::Integer});
}

std::string MacroGenerator::Counter() {
    return loopDepth_ == 0 ? source_.Pick(kIndexes) : kCounters[source_.Below(loopDepth_)];
}

/// Decides once in a while for what makes no sense, and in a tidy program never.
bool MacroGenerator::Strays(unsigned count) {
    return source_.Rarely(count) && !isTidy_;
}

/// A variable to be written or read, once in a while of another kind.
std::string MacroGenerator::Name(Kind kind) {
    if (Strays(20)) kind = AnyKind();
    switch (kind) {
        case Kind::Integer:
            return source_.Pick(kIntegers);
        case Kind::Floating:
            return source_.Pick(kFloats);
        case Kind::Text:
            return source_.Pick(kTexts);
        case Kind::Array:
            return source_.Pick(kArrays);
        default:
            return source_.Pick(kBooleans);
    }
}

std::string MacroGenerator::Subscript() {
    switch (source_.Below(isTidy_ ? 11 : 16)) {
        case 0:
        case 1:
        case 2:
        case 3:
            return std::to_string(source_.Below(5));
        case 4:
        case 5:
        case 6:
            return source_.Pick(kIndexes);
        case 7:
        case 8:
        case 9:
        case 10:
            return Counter();
        case 11:
        case 12:
            return Joined({source_.Pick(kArrays), "[", std::to_string(source_.Below(5)), "]"});
        case 13:
            return Joined({source_.Pick(kArrays), "[", Counter(), "]"});
        case 14:
            return Name(Kind::Integer);
        default: {
            const char* const odd[] = {"-1", "f", "s", "y", "0x2", "134217728", "4294967295", kUndefined};
            return source_.Pick(odd);
        }
    }
}

std::string MacroGenerator::Element() {
    std::string element = Strays(12) ? Name(AnyKind()) : Name(Kind::Array);
    do
        element += "[" + Subscript() + "]";
    while (source_.Rarely(5));
    return element;
}

std::string MacroGenerator::Literal(Kind kind) {
    if (kind == Kind::Floating) {
        const char* const values[] = {
            "2.5",      "0.0",       "1.",           "-1.5",          "100000.5",
            "0.1",      "1234567.0", "4294967296.0", "-2147483649.0", "99999999999999999999.",
            "0.000012", "-0.5"};
        return source_.Pick(values);
    }
    if (kind == Kind::Text) {
        const char* const values[] = {"\"\"",      "\"a\"",      "\"b,c\"",      "\"12\"",      "\" x, y \"",
                                      "\"\\\"q\"", "\"n\\\\t\"", "\"abcdefgh\"", "\"-3 rest\"", "\"ab\""};
        return source_.Pick(values);
    }
    const char* const values[] = {"1",    "0",          "2",           "3",          "-1",    "10",
                                  "0xFF", "2147483647", "-2147483648", "4294967295", "65537", "7"};
    return source_.Pick(values);
}

std::string MacroGenerator::Operand(Kind kind) {
    if (Strays(24)) kind = AnyKind();
    if (Strays(100)) return kUndefined;
    const bool hasLiteral = kind != Kind::Array && kind != Kind::Boolean;
    switch (source_.Below(8)) {
        case 0:
        case 1:
            if (hasLiteral) return Literal(kind);
            return Name(kind);
        case 2:
        case 3:
            return Element();
        case 4:
            return kind == Kind::Integer ? Counter() : Name(kind);
        default:
            return Name(kind);
    }
}

std::string MacroGenerator::Expression(Kind kind, unsigned depth) {
    std::string expression = Operand(kind);
    for (unsigned terms = source_.Below(depth == 0 ? 4 : 2); terms > 0; --terms) {
        const char* const calculations[] = {"+", "-", "*", "/", "PLUS"};
        const char* const all[] = {"+", "-", "*", "/", "<<", ">>", "&", "|"};
        const std::string operation = kind == Kind::Text && !source_.Rarely(12) ? "+"
                                      : kind == Kind::Integer                   ? source_.Pick(all)
                                                                                : source_.Pick(calculations);
        std::string right = Operand(Strays(8) ? AnyKind() : kind);
        if (depth < 3 && source_.Rarely(4)) right = "(" + Expression(kind, depth + 1) + ")";
        // A minus before a digit, with and without a blank between them.
        if (operation == "-" && right[0] >= '0' && right[0] <= '9' && right.find('x') == std::string::npos) {
            expression += source_.Pick({" - ", " -", "-"}) + right;
        } else {
            expression = Joined({expression, " ", operation, " ", right});
        }
        if (source_.Rarely(8)) expression = "(" + expression + ")";
    }
    return source_.Rarely(30) ? "ONE + " + expression : expression;
}

std::string MacroGenerator::Comparison() {
    const char* const operators[] = {"==", "!=", "<", "<=", ">", ">="};
    const Kind kind = AnyKind();
    const Kind other = Strays(6) ? AnyKind() : kind;
    const std::string left = Operand(kind);
    const std::string operation = source_.Pick(operators);
    return Joined({left, " ", operation, " ", Operand(other)});
}

std::string MacroGenerator::Condition(unsigned depth) {
    std::string condition = Comparison();
    for (unsigned terms = source_.Rarely(3) ? 1 + source_.Below(2) : 0; terms > 0; --terms) {
        const char* const operation = source_.Rarely(2) ? "&&" : "||";
        const std::string right =
            depth < 2 && source_.Rarely(3) ? "(" + Condition(depth + 1) + ")" : Comparison();
        condition = Joined({condition, " ", operation, " ", right});
    }
    return condition;
}

}  // namespace macroengine::fuzz
