#include "runtime/OperandResolution.h"

#include <cstdint>
#include <gtest/gtest.h>
#include <string>
#include <utility>
#include <vector>

#include "support/ValueDescription.h"

namespace macroengine {
namespace {

using test::ArrayOf;
using test::Boolean;
using test::Describe;
using test::Floating;
using test::Integer;
using test::Text;

/// Variables of a program: `i` = 1, `f` = 1.0, `s` = "1", `t` = true, `e` = [], `b` = [2, "x", 0],
/// `a` = [10, [20, 21, [30]], "text", 1.5, true]. `u` was never assigned to.
class OperandResolution : public testing::Test {
protected:
    OperandResolution() {
        Set("i", Integer(1));
        Set("f", Floating(1.0));
        Set("s", Text("1"));
        Set("t", Boolean(true));
        Set("e", ArrayOf({}));
        Set("b", ArrayOf({Integer(2), Text("x"), Integer(0)}));
        Set("a", ArrayOf({Integer(10), ArrayOf({Integer(20), Integer(21), ArrayOf({Integer(30)})}),
                          Text("text"), Floating(1.5), Boolean(true)}));
        variables_.Bind("u");
    }

    void Set(const char* name, const CMacroCommonValue& value) { variables_.Bind(name).value = value; }

    CMacroCommonValue Var(const char* name) {
        return CMacroCommonValue::VariableReference(variables_.Bind(name));
    }

    CMacroCommonValue Elem(const char* name, std::vector<CMacroCommonValue> subscripts) {
        return CMacroCommonValue::Element(variables_.Bind(name), std::move(subscripts));
    }

    /// What the operand stands for, or the message.
    static std::string Resolve(const CMacroCommonValue& operand) {
        ValueView value;
        std::string error;
        if (!ResolveOperand(operand.View(), value, error)) return error;
        EXPECT_EQ(error, "");
        return Describe(value);
    }

    VariableTable variables_;
};

TEST_F(OperandResolution, ADatumStandsForItself) {
    const struct {
        CMacroCommonValue operand;
        const char* expected;
    } cases[] = {
        {Integer(-3), "integer -3"},       {Floating(2.5), "floating 2.5"},        {Text("a"), "text \"a\""},
        {Boolean(false), "boolean false"}, {ArrayOf({Integer(1)}), "[integer 1]"}, {ArrayOf({}), "[]"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(Resolve(c.operand), c.expected);
}

TEST_F(OperandResolution, AVariableStandsForItsContent) {
    const struct {
        const char* name;
        const char* expected;
    } cases[] = {
        {"i", "integer 1"},
        {"f", "floating 1"},
        {"s", "text \"1\""},
        {"t", "boolean true"},
        {"e", "[]"},
        {"b", "[integer 2, text \"x\", integer 0]"},
        {"u", "Didn't define valiable name[u]"},
        {"never_bound_before", "Didn't define valiable name[never_bound_before]"},
        {"I", "Didn't define valiable name[I]"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(Resolve(Var(c.name)), c.expected);
}

TEST_F(OperandResolution, AnArrayIsSeenNotCopied) {
    ValueView value;
    std::string error;
    ASSERT_TRUE(ResolveOperand(Var("a").View(), value, error));
    EXPECT_EQ(value.array, variables_.Find("a")->value.View().array);
    ASSERT_TRUE(ResolveOperand(Elem("a", {Integer(1)}).View(), value, error));
    EXPECT_EQ(value.array, variables_.Find("a")->value.View().array->At(1).array);
}

TEST_F(OperandResolution, AResultReferenceStandsForTheResult) {
    CMacroCommonValue result = Integer(42);
    const CMacroCommonValue operand = CMacroCommonValue::ResultReference(&result);
    EXPECT_EQ(Resolve(operand), "integer 42");
    result = ArrayOf({Text("x")});
    EXPECT_EQ(Resolve(operand), "[text \"x\"]");
    result = Boolean(true);
    EXPECT_EQ(Resolve(operand), "boolean true");
}

TEST_F(OperandResolution, AResultReferenceWithoutATargetIsNull) {
    EXPECT_EQ(Resolve(CMacroCommonValue::ResultReference(nullptr)), "value is null.");
}

TEST_F(OperandResolution, KindNoneAndAReferenceToAReferenceAreInvalid) {
    const char* const invalid = "invalied destination value in assign statement.";
    EXPECT_EQ(Resolve(CMacroCommonValue()), invalid);
    CMacroCommonValue result;
    EXPECT_EQ(Resolve(CMacroCommonValue::ResultReference(&result)), invalid);
    result = Var("i");
    EXPECT_EQ(Resolve(CMacroCommonValue::ResultReference(&result)), invalid);
    CMacroCommonValue other = Integer(1);
    result = CMacroCommonValue::ResultReference(&other);
    EXPECT_EQ(Resolve(CMacroCommonValue::ResultReference(&result)), invalid);
}

TEST_F(OperandResolution, AnElementReferenceStandsForTheElement) {
    const struct {
        CMacroCommonValue operand;
        const char* expected;
    } cases[] = {
        {Elem("a", {Integer(0)}), "integer 10"},
        {Elem("a", {Integer(1)}), "[integer 20, integer 21, [integer 30]]"},
        {Elem("a", {Integer(1), Integer(1)}), "integer 21"},
        {Elem("a", {Integer(1), Integer(2), Integer(0)}), "integer 30"},
        {Elem("a", {Integer(2)}), "text \"text\""},
        {Elem("a", {Integer(3)}), "floating 1.5"},
        {Elem("a", {Integer(4)}), "boolean true"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(Resolve(c.operand), c.expected);
}

TEST_F(OperandResolution, ASubscriptIsAnyOperandThatIsAnInteger) {
    CMacroCommonValue result = Integer(4);
    const struct {
        CMacroCommonValue subscript;
        const char* expected;
    } cases[] = {
        {Var("i"), "[integer 20, integer 21, [integer 30]]"},
        {CMacroCommonValue::ResultReference(&result), "boolean true"},
        {Elem("b", {Integer(0)}), "text \"text\""},
        {Elem("b", {Elem("b", {Integer(0)})}), "integer 10"},
        {Elem("b", {Elem("b", {Elem("b", {Integer(2)})})}), "integer 10"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(Resolve(Elem("a", {c.subscript})), c.expected);
}

TEST_F(OperandResolution, ASubscriptOfAnotherKindIsRefused) {
    CMacroCommonValue floatingResult = Floating(0.0);
    const CMacroCommonValue subscripts[] = {
        Floating(1.0),
        Text("1"),
        Boolean(true),
        ArrayOf({Integer(0)}),
        Var("f"),
        Var("s"),
        Var("t"),
        Var("a"),
        Elem("b", {Integer(1)}),
        CMacroCommonValue::ResultReference(&floatingResult),
    };
    for (const CMacroCommonValue& subscript : subscripts) {
        EXPECT_EQ(Resolve(Elem("a", {subscript})), "Array subscript isn't integer.");
        EXPECT_EQ(Resolve(Elem("a", {Integer(1), subscript})), "Array subscript isn't integer.");
        // The subscript comes before what it is applied to.
        EXPECT_EQ(Resolve(Elem("i", {subscript})), "Array subscript isn't integer.");
    }
}

TEST_F(OperandResolution, WhatIsWrongWithASubscriptIsSaidAsItIs) {
    CMacroCommonValue none;
    const struct {
        CMacroCommonValue subscript;
        const char* expected;
    } cases[] = {
        {Var("u"), "Didn't define valiable name[u]"},
        {CMacroCommonValue::ResultReference(nullptr), "value is null."},
        {CMacroCommonValue::ResultReference(&none), "invalied destination value in assign statement."},
        {CMacroCommonValue(), "invalied destination value in assign statement."},
        {Elem("b", {Integer(3)}), "Valiable name(b[3]) isn't exist elements."},
        {Elem("i", {Integer(0)}), "Valiable name(i[0]) isn't array, or not exist elements."},
        {Elem("u", {Integer(0)}), "Didn't define valiable name[u]"},
        {Elem("b", {Floating(0.0)}), "Array subscript isn't integer."},
    };
    for (const auto& c : cases)
        EXPECT_EQ(Resolve(Elem("a", {c.subscript})), c.expected);
}

TEST_F(OperandResolution, AnUndefinedVariableComesBeforeItsSubscripts) {
    EXPECT_EQ(Resolve(Elem("u", {Integer(0)})), "Didn't define valiable name[u]");
    EXPECT_EQ(Resolve(Elem("u", {Text("bad")})), "Didn't define valiable name[u]");
}

TEST_F(OperandResolution, AMissingElementIsNamedUpToWhereItIsMissing) {
    const struct {
        CMacroCommonValue operand;
        const char* expected;
    } cases[] = {
        {Elem("e", {Integer(0)}), "Valiable name(e[0]) isn't exist elements."},
        {Elem("a", {Integer(5)}), "Valiable name(a[5]) isn't exist elements."},
        {Elem("a", {Integer(-1)}), "Valiable name(a[-1]) isn't exist elements."},
        {Elem("a", {Integer(INT32_MAX)}), "Valiable name(a[2147483647]) isn't exist elements."},
        {Elem("a", {Integer(INT32_MIN)}), "Valiable name(a[-2147483648]) isn't exist elements."},
        {Elem("a", {Integer(1), Integer(3)}), "Valiable name(a[1][3]) isn't exist elements."},
        {Elem("a", {Integer(1), Integer(-3), Integer(0)}), "Valiable name(a[1][-3]) isn't exist elements."},
        {Elem("a", {Integer(7), Integer(1)}), "Valiable name(a[7]) isn't exist elements."},
        {Elem("a", {Var("i"), Elem("b", {Integer(0)}), Integer(1)}),
         "Valiable name(a[1][2][1]) isn't exist elements."},
    };
    for (const auto& c : cases)
        EXPECT_EQ(Resolve(c.operand), c.expected);
}

TEST_F(OperandResolution, WhatIsNoArrayHasNoElements) {
    const struct {
        CMacroCommonValue operand;
        const char* expected;
    } cases[] = {
        {Elem("i", {Integer(0)}), "Valiable name(i[0]) isn't array, or not exist elements."},
        {Elem("f", {Integer(0)}), "Valiable name(f[0]) isn't array, or not exist elements."},
        {Elem("s", {Integer(0)}), "Valiable name(s[0]) isn't array, or not exist elements."},
        {Elem("t", {Integer(-1)}), "Valiable name(t[-1]) isn't array, or not exist elements."},
        {Elem("a", {Integer(0), Integer(2)}), "Valiable name(a[0][2]) isn't array, or not exist elements."},
        {Elem("a", {Integer(1), Integer(2), Integer(0), Integer(9)}),
         "Valiable name(a[1][2][0][9]) isn't array, or not exist elements."},
        {Elem("a", {Integer(2), Integer(0), Text("never looked at")}),
         "Valiable name(a[2][0]) isn't array, or not exist elements."},
    };
    for (const auto& c : cases)
        EXPECT_EQ(Resolve(c.operand), c.expected);
}

TEST_F(OperandResolution, AFailureLeavesTheVariablesAsTheyWere) {
    const std::string before = Describe(variables_.Find("a")->value);
    Resolve(Elem("a", {Integer(99)}));
    Resolve(Elem("u", {Integer(0)}));
    EXPECT_EQ(Describe(variables_.Find("a")->value), before);
    EXPECT_EQ(variables_.Find("u"), nullptr);
}

}  // namespace
}  // namespace macroengine
