// Commands with any arguments: those of string and array that the reference knows do as it says, the others end.

#include <string>
#include <vector>

#include "common/ByteSource.h"
#include "common/Require.h"
#include "reference/Commands.h"
#include "support/CommandCaller.h"

namespace {

using namespace macroengine;

constexpr unsigned kMaxArguments = 4;
constexpr std::size_t kMaxDepth = 2;

/// A value of any kind. A text is what stands between here and the next NUL, which no text of a macro holds.
reference::Value MakeValue(fuzz::ByteSource& source, std::size_t depth = 0) {
    const auto bits = [&source] {
        std::uint64_t number = 0;
        for (int i = 0; i < 4; ++i)
            number = number << 8 | source.Below(256);
        return number;
    };
    switch (source.Below(depth < kMaxDepth ? 8 : 7)) {
        case 0:
            return reference::Value{static_cast<std::int32_t>(source.Below(40))};
        case 1:
            return reference::Value{static_cast<std::int32_t>(static_cast<std::uint32_t>(bits()))};
        case 2:
            return reference::Value{static_cast<double>(bits()) / static_cast<double>(1 + bits())};
        case 3:
            return reference::Value{source.Rarely(2)};
        case 7: {
            reference::Value::Array elements;
            for (unsigned count = source.Below(4); count > 0; --count)
                elements.push_back(MakeValue(source, depth + 1));
            return reference::Value{elements};
        }
        default: {
            std::string text;
            while (const unsigned byte = source.Below(256))
                text += static_cast<char>(byte);
            return reference::Value{text};
        }
    }
}

CMacroCommonValue ToEngine(const reference::Value& value) {
    if (value.IsInteger()) return test::Integer(value.Integer());
    if (value.IsFloating()) return test::Floating(value.Floating());
    if (value.IsBoolean()) return test::Boolean(value.Boolean());
    if (value.IsText()) return test::Text(value.Text());
    std::vector<CMacroCommonValue> elements;
    for (const reference::Value& element : value.Elements())
        elements.push_back(ToEngine(element));
    return test::ArrayOf(elements);
}

std::string ResultInReference(const std::string& name, const std::vector<reference::Value>& arguments) {
    reference::CommandCall call;
    call.name = name;
    call.arguments = arguments;
    if (reference::RunCommand(call)) return reference::Describe(call.result);
    std::string lines;
    for (const std::string& error : call.errors)
        lines.append(lines.empty() ? "" : "\n").append(test::Error(error));
    return lines;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    constexpr const char* kKnown[] = {"array.init",
                                      "array.max",
                                      "string.split",
                                      "string.int2dec",
                                      "string.int2hex",
                                      "string.str2dec",
                                      "system.get_variable_type"};
    constexpr const char* kOthers[] = {"string.format", "string.format", "string.hex2dec", "string.str2float",
                                       "system.get_time_local"};
    fuzz::ByteSource source(data, size);
    const bool isKnown = source.Rarely(2);
    const std::string name = isKnown ? source.Pick(kKnown) : source.Pick(kOthers);
    std::vector<reference::Value> arguments;
    for (unsigned count = source.Below(kMaxArguments + 1); count > 0; --count)
        arguments.push_back(MakeValue(source));

    std::vector<CMacroCommonValue> operands;
    for (const reference::Value& argument : arguments)
        operands.push_back(ToEngine(argument));
    static test::CommandCaller caller;
    caller.GetList().BeginRun();
    const std::string result = caller.Call(name, operands);
    if (!isKnown) return 0;
    const std::string expected = ResultInReference(name, arguments);
    if (result != expected)
        std::fprintf(stderr, "%s\n%s\n%s\n", name.c_str(), result.c_str(), expected.c_str());
    fuzz::Require(result == expected, "the command does what the reference says");
    return 0;
}
