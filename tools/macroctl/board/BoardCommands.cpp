#include "board/BoardCommands.h"

#include <climits>
#include <cstdint>

#include <macroengine/ArgumentText.h>
#include <macroengine/CMacroPropertyIF.h>

#include "board/ArgumentValue.h"
#include "macro/Console.h"

namespace macroctl {

namespace {

constexpr unsigned int kHighestAddress = 0xFFFF;
constexpr unsigned int kHighestValue = 0xFF;

}  // namespace

ReadCommand::ReadCommand(const char* name, Console& console, RegisterBus& bus, BusKind kind)
    : BoardCommand(name, true, console), bus_(bus), kind_(kind) {}

bool ReadCommand::Execute(CMacroPropertyIF& property) {
    int address = 0;
    if (property.CheckArgumentCount(1, 1) < 0) return false;
    if (!property.GetArgInteger(0, 0, kHighestAddress, address)) return false;
    return property.SetResultInteger(bus_.Read(kind_, static_cast<std::uint32_t>(address)));
}

WriteCommand::WriteCommand(const char* name, Console& console, RegisterBus& bus, BusKind kind)
    : BoardCommand(name, false, console), bus_(bus), kind_(kind) {}

bool WriteCommand::Execute(CMacroPropertyIF& property) {
    int address = 0;
    int value = 0;
    if (property.CheckArgumentCount(2, 2) < 0) return false;
    if (!property.GetArgInteger(0, 0, kHighestAddress, address)) return false;
    if (!property.GetArgInteger(1, 0, kHighestValue, value)) return false;
    bus_.Write(kind_, static_cast<std::uint32_t>(address), static_cast<std::uint8_t>(value));
    return true;
}

PrintCommand::PrintCommand(Console& console) : BoardCommand("print", false, console) {}

bool PrintCommand::Execute(CMacroPropertyIF& property) {
    const int count = property.CheckArgumentCount(1, UINT_MAX);
    if (count < 0) return false;
    line_.clear();
    for (int i = 0; i < count; ++i) {
        if (i > 0) line_ += ' ';
        const char* text = FormatMacroArgument(&property, static_cast<unsigned int>(i));
        if (text != nullptr) line_ += text;
    }
    line_ += '\n';
    if (GetConsole().Print(line_)) return true;
    property.AddErrorMessage("board.print() can't write to standard output");
    return false;
}

ExpectCommand::ExpectCommand(Console& console) : BoardCommand("expect", false, console) {}

bool ExpectCommand::Execute(CMacroPropertyIF& property) {
    constexpr unsigned int kActual = 0;
    constexpr unsigned int kExpected = 1;
    constexpr unsigned int kLabel = 2;

    if (property.CheckArgumentCount(3, 3) < 0) return false;
    const char* labelText = property.GetArgString(kLabel);
    if (labelText == nullptr) return false;
    const std::string label = labelText;
    if (ArgumentsEqual(property, kActual, kExpected)) return true;

    std::string actual = DescribeArgument(property, kActual, false);
    std::string expected = DescribeArgument(property, kExpected, false);
    if (actual == expected) {  // two numbers that differ behind the sixth digit
        actual = DescribeArgument(property, kActual, true);
        expected = DescribeArgument(property, kExpected, true);
    }
    property.AddErrorMessage(
        ("board.expect() " + label + " : expected " + expected + ", but it is " + actual).c_str());
    return false;
}

}  // namespace macroctl
