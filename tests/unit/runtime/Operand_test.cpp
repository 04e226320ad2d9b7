#include "runtime/Operand.h"

#include <cstddef>
#include <cstdint>
#include <gtest/gtest.h>
#include <limits>
#include <string>
#include <utility>
#include <vector>

#include "runtime/VariableTable.h"
#include "support/ValueDescription.h"

namespace macroengine {
namespace {

using test::ArrayOf;
using test::Boolean;
using test::Describe;
using test::Floating;
using test::Integer;
using test::Text;

TEST(Operand, IsOneWord) {
    EXPECT_EQ(sizeof(Operand), 8U);
    EXPECT_EQ(sizeof(OperandList), 8U);
}

TEST(Operand, IsOfKindNoneAtFirst) {
    EXPECT_EQ(Describe(Operand().View()), "none");
    EXPECT_EQ(Describe(Operand(CMacroCommonValue()).View()), "none");
}

TEST(Operand, KeepsEveryLiteralExactly) {
    constexpr double kNoNumber = std::numeric_limits<double>::quiet_NaN();
    const std::vector<CMacroCommonValue> literals = {
        Integer(0),
        Integer(-1),
        Integer(std::numeric_limits<std::int32_t>::max()),
        Integer(std::numeric_limits<std::int32_t>::min()),
        Floating(0.0),
        Floating(-0.0),
        Floating(0.5),
        Floating(-3.25),
        Floating(0.1),
        Floating(1e300),
        Floating(-1e300),
        Floating(1e-320),
        Floating(16777217.0),
        Floating(std::numeric_limits<double>::infinity()),
        Floating(kNoNumber),
        Text(""),
        Text("a"),
        Text(std::string("with\0nul", 8)),
        Text(std::string(1000, 'x')),
        Boolean(true),
        Boolean(false),
        ArrayOf({Integer(1), Text("two")}),
    };
    for (const CMacroCommonValue& literal : literals) {
        Operand operand(literal);
        EXPECT_EQ(Describe(operand.View()), Describe(literal));
        EXPECT_EQ(operand.GetType(), literal.GetType());
        Operand moved(std::move(operand));
        EXPECT_EQ(Describe(moved.View()), Describe(literal));
        Operand assigned = Operand::String("before");
        assigned = std::move(moved);
        EXPECT_EQ(Describe(assigned.View()), Describe(literal));
    }
}

TEST(Operand, StandsForWhatTheValueStandsFor) {
    VariableTable variables;
    Variable& variable = variables.Bind("x");
    CMacroCommonValue result = Integer(5);
    EXPECT_EQ(Operand(CMacroCommonValue::VariableReference(variable)).View().variable, &variable);
    EXPECT_EQ(Operand::VariableReference(variable).GetType(), ValueKind::VariableReference);
    EXPECT_EQ(Operand(CMacroCommonValue::ResultReference(&result)).View().result, &result);
    EXPECT_EQ(Operand::ResultReference(&result).GetType(), ValueKind::ResultReference);
    EXPECT_EQ(Operand::ResultReference(nullptr).GetType(), ValueKind::ResultReference);
    EXPECT_EQ(Operand::ResultReference(nullptr).View().result, nullptr);

    Operand element;
    {
        const CMacroCommonValue value =
            CMacroCommonValue::Element(variable, {Integer(1), Text("s"), Floating(0.5)});
        element = value;
        EXPECT_EQ(element.View().element, value.View().element);
    }
    ASSERT_EQ(element.GetType(), ValueKind::ElementReference);
    const ElementReference& reference = *element.View().element;
    EXPECT_EQ(reference.variable, &variable);
    ASSERT_EQ(reference.subscripts.size(), 3U);
    EXPECT_EQ(Describe(reference.subscripts[1].View()), "text \"s\"");
}

TEST(Operand, ATextLiteralIsNeverExtended) {
    const Operand operand = Operand::String("abc");
    const ValueView view = operand.View();
    EXPECT_FALSE(view.text->Extend(view.length, "d"));
    EXPECT_EQ(Describe(operand.View()), "text \"abc\"");
}

TEST(OperandList, HoldsAnyNumberOfOperandsInOrder) {
    OperandList list;
    EXPECT_TRUE(list.empty());
    for (int i = 0; i < 100; ++i) {
        EXPECT_EQ(list.size(), static_cast<std::size_t>(i));
        list.Append(i % 2 == 0 ? Operand::Integer(i) : Operand::String(std::to_string(i)));
    }
    OperandList moved(std::move(list));
    EXPECT_TRUE(list.empty());  // NOLINT(bugprone-use-after-move)
    int next = 0;
    for (const Operand& operand : moved) {
        EXPECT_EQ(Describe(operand.View()),
                  Describe(next % 2 == 0 ? Integer(next) : Text(std::to_string(next))));
        ++next;
    }
    EXPECT_EQ(next, 100);
    EXPECT_EQ(Describe(moved[41].View()), "text \"41\"");
}

TEST(OperandList, MayBeMadeOfValues) {
    const std::vector<CMacroCommonValue> values = {Integer(1), Text("two"), Floating(3.5)};
    const OperandList list = values;
    ASSERT_EQ(list.size(), 3U);
    EXPECT_EQ(Describe(list[0].View()), "integer 1");
    EXPECT_EQ(Describe(list[2].View()), "floating 3.5");
    EXPECT_TRUE(OperandList(std::vector<CMacroCommonValue>()).empty());
    const OperandList none = {CMacroCommonValue()};
    ASSERT_EQ(none.size(), 1U);
    EXPECT_EQ(Describe(none[0].View()), "none");
}

}  // namespace
}  // namespace macroengine
