#include "runtime/CMacroCommonValue.h"

#include <cstdint>
#include <gtest/gtest.h>
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
using test::NestedArray;
using test::Text;

TEST(CMacroCommonValue, IsOfKindNoneAtFirst) {
    EXPECT_EQ(CMacroCommonValue().GetType(), ValueKind::None);
}

TEST(CMacroCommonValue, KindsHaveTheNumbersThatScriptsAndCommandsSee) {
    VariableTable variables;
    Variable& variable = variables.Bind("x");
    const struct {
        CMacroCommonValue value;
        std::uint32_t number;
    } cases[] = {
        {Integer(1), 0},
        {Floating(1.0), 1},
        {Text("1"), 2},
        {Boolean(true), 3},
        {CMacroCommonValue::VariableReference(variable), 4},
        {CMacroCommonValue::ResultReference(nullptr), 5},
        {ArrayOf({}), 6},
        {CMacroCommonValue::Element(variable, {Integer(0)}), 7},
        {CMacroCommonValue(), 8},
    };
    for (const auto& c : cases)
        EXPECT_EQ(static_cast<std::uint32_t>(c.value.GetType()), c.number);
}

TEST(CMacroCommonValue, HoldsThePayloadOfItsKind) {
    const struct {
        CMacroCommonValue value;
        std::string expected;
    } cases[] = {
        {Integer(INT32_MIN), "integer -2147483648"},
        {Integer(INT32_MAX), "integer 2147483647"},
        {Floating(-0.0), "floating -0"},
        {Floating(1e308), "floating 1e+308"},
        {Text(""), "text \"\""},
        {Text(std::string("a\0b", 3)), std::string("text \"a\0b\"", 10)},
        {Boolean(false), "boolean false"},
        {ArrayOf({}), "[]"},
        {ArrayOf({ArrayOf({Integer(1)}), Text("x")}), "[[integer 1], text \"x\"]"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(Describe(c.value), c.expected);
}

TEST(CMacroCommonValue, EveryWayToCopyGivesTheSameValue) {
    VariableTable variables;
    Variable& variable = variables.Bind("x");
    const CMacroCommonValue sources[] = {
        Integer(5),
        Floating(0.5),
        Text("text"),
        Text(""),
        Boolean(true),
        ArrayOf({Integer(1), Text("x")}),
        ArrayOf({}),
        CMacroCommonValue(),
        CMacroCommonValue::VariableReference(variable),
        CMacroCommonValue::ResultReference(nullptr),
        CMacroCommonValue::Element(variable, {Integer(1), Text("s")}),
    };
    for (const CMacroCommonValue& source : sources) {
        const std::string expected = Describe(source);
        SCOPED_TRACE(expected);
        const CMacroCommonValue constructed(source);
        EXPECT_EQ(Describe(constructed), expected);
        // A value forgets what it was before, whatever that is.
        for (const CMacroCommonValue& before : sources) {
            CMacroCommonValue assigned(before);
            assigned = source;
            EXPECT_EQ(Describe(assigned), expected);
            CMacroCommonValue moved(before);
            moved = CMacroCommonValue(source);
            EXPECT_EQ(Describe(moved), expected);
        }
        CMacroCommonValue from(source);
        const CMacroCommonValue taken(std::move(from));
        EXPECT_EQ(Describe(taken), expected);
        EXPECT_EQ(Describe(source), expected);
    }
}

TEST(CMacroCommonValue, ACopyOfAnElementReferenceKeepsItsSubscripts) {
    VariableTable variables;
    Variable& variable = variables.Bind("m");
    CMacroCommonValue copy;
    {
        const CMacroCommonValue reference = CMacroCommonValue::Element(
            variable, {Integer(1), CMacroCommonValue::VariableReference(variable)});
        copy = reference;
    }
    ASSERT_EQ(copy.GetType(), ValueKind::ElementReference);
    const ElementReference& element = *copy.View().element;
    EXPECT_EQ(element.variable, &variable);
    ASSERT_EQ(element.subscripts.size(), 2U);
    EXPECT_EQ(Describe(element.subscripts[0].View()), "integer 1");
    EXPECT_EQ(element.subscripts[1].View().variable, &variable);
}

TEST(CMacroCommonValue, AssigningAValueToItselfKeepsIt) {
    for (const CMacroCommonValue& source : {Integer(5), Text("text"), ArrayOf({Text("x")})}) {
        CMacroCommonValue value(source);
        const CMacroCommonValue& same = value;
        value = same;
        EXPECT_EQ(Describe(value), Describe(source));
    }
}

TEST(CMacroCommonValue, AValueMayBecomeAPartOfItself) {
    CMacroCommonValue value = ArrayOf({ArrayOf({Text("inner")}), Integer(1)});
    value.Assign(value.View().array->At(0));
    EXPECT_EQ(Describe(value), "[text \"inner\"]");
    value.Assign(value.View().array->At(0));
    EXPECT_EQ(Describe(value), "text \"inner\"");
}

TEST(CMacroCommonValue, AWriteToACopyIsNotSeenByItsSource) {
    const CMacroCommonValue source = ArrayOf({Integer(1), ArrayOf({Integer(2)})});
    CMacroCommonValue copy(source);
    copy.MutableArray().Set(0, Text("changed").View());
    copy.MutableArray().MutableArrayAt(1).Append(Integer(3).View());
    EXPECT_EQ(Describe(copy), "[text \"changed\", [integer 2, integer 3]]");
    EXPECT_EQ(Describe(source), "[integer 1, [integer 2]]");
}

TEST(CMacroCommonValue, AWriteToTheSourceIsNotSeenByACopy) {
    CMacroCommonValue source = ArrayOf({Integer(1)});
    const CMacroCommonValue first(source);
    source.MutableArray().Set(0, Integer(2).View());
    const CMacroCommonValue second(source);
    source.MutableArray().Set(0, Integer(3).View());
    EXPECT_EQ(Describe(first), "[integer 1]");
    EXPECT_EQ(Describe(second), "[integer 2]");
    EXPECT_EQ(Describe(source), "[integer 3]");
}

TEST(CMacroCommonValue, AnArrayMayBeStoredInItself) {
    CMacroCommonValue value = ArrayOf({Integer(1), Integer(2)});
    const CMacroCommonValue copy(value);
    value.MutableArray().Set(0, copy.View());
    EXPECT_EQ(Describe(value), "[[integer 1, integer 2], integer 2]");
    EXPECT_EQ(Describe(copy), "[integer 1, integer 2]");
}

TEST(CMacroCommonValue, ClearMakesItNone) {
    CMacroCommonValue value = ArrayOf({Text("x")});
    value.Clear();
    EXPECT_EQ(value.GetType(), ValueKind::None);
    value.Clear();
    EXPECT_EQ(value.GetType(), ValueKind::None);
}

TEST(CMacroCommonValue, AnyNumberOfLevelsIsCopiedWrittenToAndDestroyed) {
    CMacroCommonValue value = NestedArray(200000);
    CMacroCommonValue copy(value);
    value = Integer(0);
    copy.MutableArray().Append(Integer(1).View());
    EXPECT_EQ(copy.View().array->GetSize(), 2U);
    copy.Clear();
}

}  // namespace
}  // namespace macroengine
