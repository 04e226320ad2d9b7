#include "reference/Commands.h"

#include <cstdlib>
#include <functional>
#include <map>

#include "reference/Program.h"

namespace macroengine::reference {

namespace {

// --- what the commands share

bool Fail(CommandCall& call, const std::string& error) {
    call.errors.push_back(error);
    return false;
}

bool FailOnArgument(CommandCall& call, const std::string& reason) {
    return Fail(call, call.name + "() argument error. (" + reason + ")");
}

bool CheckCount(CommandCall& call, std::size_t min, std::size_t max) {
    const std::size_t count = call.arguments.size();
    return (min <= count && count <= max) || FailOnArgument(call, "argument count is invalid");
}

bool ReadInteger(CommandCall& call, std::size_t index, std::uint32_t min, std::uint32_t max,
                 std::int32_t& value) {
    const std::string argument = "argument[" + std::to_string(index) + "]";
    if (!call.arguments[index].IsInteger()) return FailOnArgument(call, argument + " type isn't interger");
    const std::int32_t read = call.arguments[index].Integer();
    const auto bits = static_cast<std::uint32_t>(read);
    if (min < max && (bits < min || bits > max)) return FailOnArgument(call, argument + " is out of range.");
    value = read;
    return true;
}

/// Reads a text that must not be empty; what is no text gives the error for an empty one too.
bool ReadFilledText(CommandCall& call, std::size_t index, const std::string& error, std::string& text) {
    if (!call.arguments[index].IsText()) {
        FailOnArgument(call, "argument[" + std::to_string(index) + "] type isn't string");
        return Fail(call, error);
    }
    text = call.arguments[index].Text();
    return !text.empty() || Fail(call, error);
}

std::string Trimmed(std::string text) {
    while (!text.empty() && text.front() == ' ')
        text.erase(0, 1);
    while (!text.empty() && text.back() == ' ')
        text.pop_back();
    return text;
}

std::string Padded(std::string text, std::int32_t width, char fill, std::size_t at) {
    if (static_cast<std::size_t>(width) > text.size())
        text.insert(at, static_cast<std::size_t>(width) - text.size(), fill);
    return text;
}

// --- array

bool ArrayInit(CommandCall& call) {
    if (!CheckCount(call, 1, static_cast<std::size_t>(-1))) return false;
    const int kind = KindCode(call.arguments[0]);
    if (kind > 2) return Fail(call, "array.init() system error");
    for (const Value& argument : call.arguments) {
        if (KindCode(argument) != kind) return FailOnArgument(call, "mixed difference types");
    }
    call.result = Value{call.arguments};
    return true;
}

bool ArrayMax(CommandCall& call) {
    if (!CheckCount(call, 1, 1)) return false;
    if (!call.arguments[0].IsArray()) return Fail(call, "array.max() : argument[0] is not array.");
    call.result = Value{static_cast<std::int32_t>(call.arguments[0].Elements().size())};
    return true;
}

// --- string

bool StringSplit(CommandCall& call) {
    if (!CheckCount(call, 1, 3)) return false;
    std::string text;
    if (!ReadFilledText(call, 0, "Error: target string is null.", text)) return false;
    std::string delimiter = ",";
    if (call.arguments.size() > 1 && !ReadFilledText(call, 1, "Error: delimiter is null.", delimiter))
        return false;
    std::int32_t trim = 0;
    if (call.arguments.size() > 2 && !ReadInteger(call, 2, 0, 1, trim)) return false;
    Value::Array pieces;
    for (bool isLast = false; !isLast;) {
        const std::size_t end = text.find(delimiter);
        isLast = end == std::string::npos;
        const std::string piece = text.substr(0, end);
        pieces.push_back(Value{trim == 1 ? Trimmed(piece) : piece});
        if (!isLast) text.erase(0, end + delimiter.size());
    }
    call.result = Value{pieces};
    return true;
}

bool StringInt2Dec(CommandCall& call) {
    std::int32_t value = 0;
    std::int32_t width = 0;
    std::int32_t padding = 1;
    if (!CheckCount(call, 1, 3) || !ReadInteger(call, 0, 0, 0, value)) return false;
    if (call.arguments.size() > 1 && !ReadInteger(call, 1, 1, 32, width)) return false;
    if (call.arguments.size() > 2 && !ReadInteger(call, 2, 0, 1, padding)) return false;
    const bool zeros = padding == 0;
    call.result = Value{Padded(std::to_string(value), width, zeros ? '0' : ' ', zeros && value < 0 ? 1 : 0)};
    return true;
}

bool StringInt2Hex(CommandCall& call) {
    std::int32_t value = 0;
    std::int32_t width = 0;
    if (!CheckCount(call, 1, 2) || !ReadInteger(call, 0, 0, 0, value)) return false;
    if (call.arguments.size() > 1 && !ReadInteger(call, 1, 1, 32, width)) return false;
    std::string digits;
    auto bits = static_cast<std::uint32_t>(value);
    do
        digits.insert(0, 1, "0123456789ABCDEF"[bits % 16]);
    while ((bits /= 16) != 0);
    call.result = Value{Padded(digits, width, '0', 0)};
    return true;
}

bool StringStr2Dec(CommandCall& call) {
    std::string text;
    if (!CheckCount(call, 1, 1) || !ReadFilledText(call, 0, "Error: target string is null.", text))
        return false;
    text = Trimmed(text);
    const std::size_t sign = !text.empty() && (text[0] == '+' || text[0] == '-') ? 1 : 0;
    text = text.substr(0, text.find_first_not_of("0123456789", sign));
    if (text.size() == sign) return Fail(call, "Error: Can't be converted to decimal a string.");
    std::uint64_t value = 0;
    for (const char digit : text.substr(sign)) {
        value = value * 10 + static_cast<std::uint64_t>(digit - '0');
        if (value > 0xFFFFFFFF) {
            call.isOutOfRange = true;
            break;
        }
    }
    if (call.isOutOfRange) return Fail(call, "Error: " + text + " is out of range");
    const auto bits = static_cast<std::uint32_t>(value);
    call.result = Value{static_cast<std::int32_t>(text[0] == '-' ? 0 - bits : bits)};
    return true;
}

bool SystemVariableType(CommandCall& call) {
    if (!CheckCount(call, 1, 1)) return false;
    call.result = Value{KindCode(call.arguments[0])};
    return true;
}

// --- fuzz: the commands of the host

bool FuzzShow(CommandCall& call) {
    for (const Value& argument : call.arguments) {
        call.shown += call.shown.empty() ? "show " : ", ";
        call.shown += argument.IsArray()     ? "array of " + std::to_string(argument.Elements().size())
                      : argument.IsBoolean() ? "boolean"
                                             : Describe(argument);
    }
    return true;
}

bool FuzzTake(CommandCall& call) {
    if (!call.isAssignedTo) return Fail(call, "assigned value is needed at fuzz.take()");
    if (!call.assigned.IsInteger() && !call.assigned.IsFloating())
        return Fail(call, "fuzz.take() assigned value error. (type isn't floating)");
    const Value& value = call.assigned;
    call.shown = "take " + Describe(Value{value.IsInteger() ? value.Integer() : value.Floating()});
    return true;
}

bool FuzzTruth(CommandCall& call) {
    call.result = Value{true};
    return true;
}

bool FuzzNothing(CommandCall&) {
    return true;
}

bool FuzzRefuse(CommandCall& call) {
    return Fail(call, "fuzz.refuse() refuses");
}

bool FuzzStop(CommandCall& call) {
    call.aborts = true;
    return true;
}

}  // namespace

bool RunCommand(CommandCall& call) {
    static const std::map<std::string, bool (*)(CommandCall&)> kCommands = {
        {"array.init", ArrayInit},
        {"array.max", ArrayMax},
        {"string.split", StringSplit},
        {"string.int2dec", StringInt2Dec},
        {"string.int2hex", StringInt2Hex},
        {"string.str2dec", StringStr2Dec},
        {"system.get_variable_type", SystemVariableType},
        {"fuzz.show", FuzzShow},
        {"fuzz.take", FuzzTake},
        {"fuzz.truth", FuzzTruth},
        {"fuzz.nothing", FuzzNothing},
        {"fuzz.refuse", FuzzRefuse},
        {"fuzz.stop", FuzzStop},
    };
    const auto found = kCommands.find(call.name);
    if (found == kCommands.end()) throw NotUnderstood("no command " + call.name);
    return found->second(call);
}

}  // namespace macroengine::reference
