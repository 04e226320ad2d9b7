#include "macroengine/ArgumentText.h"

#include <cstddef>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "categories/CMacroProperty.h"
#include "support/ValueDescription.h"

namespace macroengine {
namespace {

using test::ArrayOf;
using test::Boolean;
using test::Floating;
using test::Integer;
using test::NestedArray;
using test::Text;

/// A call with the given arguments.
class Call {
public:
    explicit Call(std::vector<CMacroCommonValue> arguments) : arguments_(std::move(arguments)) {}

    CMacroProperty* Get() { return &property_; }

private:
    std::vector<CMacroCommonValue> arguments_;
    std::vector<ValueView> views_ = test::ViewsOf(arguments_);
    CommandEntry entry_;
    SourceUnit unit_;
    CallOperands operands_{views_, nullptr};
    CMacroProperty property_{entry_, unit_, 1, operands_};
};

std::string ToText(const CMacroCommonValue& argument) {
    Call call({argument});
    return FormatMacroArgument(call.Get(), 0);
}

TEST(ArgumentText, WritesAnArgumentOfAnyKind) {
    const struct {
        CMacroCommonValue argument;
        const char* expected;
    } cases[] = {
        {Integer(-5), "-5"},
        {Floating(3.0), "3"},
        {Floating(1234567.0), "1.23457e+06"},
        {Boolean(true), "true"},
        {Boolean(false), "false"},
        {Text(""), ""},
        {Text("a \"b\" c"), "a \"b\" c"},
        {ArrayOf({}), "[]"},
        {ArrayOf({Integer(1)}), "[1]"},
        {ArrayOf({Integer(1), Text("two"), ArrayOf({Floating(3.5), Boolean(true)})}),
         "[1, \"two\", [3.5, true]]"},
        {ArrayOf({ArrayOf({}), ArrayOf({ArrayOf({})}), Text("")}), "[[], [[]], \"\"]"},
        {ArrayOf({Text("say \"hi\""), Text("\\")}), "[\"say \\\"hi\\\"\", \"\\\"]"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(ToText(c.argument), c.expected);
}

TEST(ArgumentText, IsNullWhereThereIsNoArgument) {
    Call call({Integer(1)});
    EXPECT_STREQ(FormatMacroArgument(call.Get(), 0), "1");
    EXPECT_EQ(FormatMacroArgument(call.Get(), 1), nullptr);
    EXPECT_EQ(FormatMacroArgument(call.Get(), 0xFFFFFFFF), nullptr);
    EXPECT_EQ(FormatMacroArgument(nullptr, 0), nullptr);
    EXPECT_EQ(call.Get()->GetErrors().GetCount(), 0U);
}

TEST(ArgumentText, StaysValidAsLongAsTheCall) {
    Call call({Text("first"), ArrayOf({Integer(1)})});
    const char* const first = FormatMacroArgument(call.Get(), 0);
    const char* const second = FormatMacroArgument(call.Get(), 1);
    for (int i = 0; i < 1000; ++i)
        FormatMacroArgument(call.Get(), 1);
    EXPECT_STREQ(first, "first");
    EXPECT_STREQ(second, "[1]");
}

TEST(ArgumentText, WritesAnyNumberOfLevels) {
    const std::string text = ToText(NestedArray(200000));
    EXPECT_EQ(text, std::string(200000, '[') + "0" + std::string(200000, ']'));
}

TEST(ArgumentText, AnArrayIsCutAt64Megabytes) {
    // Each level holds the one below twice, so the text doubles while the array hardly grows.
    CMacroCommonValue array = ArrayOf({Text(std::string(1000, 'x'))});
    for (int i = 0; i < 40; ++i)
        array = ArrayOf({array, array});
    const std::string text = ToText(array);
    const std::size_t limit = std::size_t{64} * 1024 * 1024;
    ASSERT_EQ(text.size(), limit + 3);
    EXPECT_EQ(text.substr(limit), "...");
    EXPECT_EQ(text.substr(0, 1047), std::string(41, '[') + "\"" + std::string(1000, 'x') + "\"], [");
}

TEST(ArgumentText, AnArrayOfExactly64MegabytesIsWhole) {
    const std::size_t limit = std::size_t{64} * 1024 * 1024;
    // ["xxx"] has four characters of its own.
    const std::string fits(limit - 4, 'x');
    EXPECT_EQ(ToText(ArrayOf({Text(fits)})), "[\"" + fits + "\"]");
    const std::string cut = ToText(ArrayOf({Text(fits + "x")}));
    EXPECT_EQ(cut.size(), limit + 3);
    EXPECT_EQ(cut.substr(limit - 2), "x\"...");
}

}  // namespace
}  // namespace macroengine
