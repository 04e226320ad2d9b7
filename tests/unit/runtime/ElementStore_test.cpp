#include "runtime/ElementStore.h"

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
using test::Text;

using Subscripts = std::vector<CMacroCommonValue>;

Subscripts At(const std::vector<std::int32_t>& indexes) {
    Subscripts subscripts;
    for (const std::int32_t index : indexes)
        subscripts.push_back(Integer(index));
    return subscripts;
}

struct StoreCase {
    CMacroCommonValue before;
    std::vector<std::int32_t> indexes;
    CMacroCommonValue source;
    std::string expected;
};

void ExpectStores(const std::vector<StoreCase>& cases) {
    for (const StoreCase& c : cases) {
        CMacroCommonValue variable = c.before;
        const std::string before = Describe(c.before);
        EXPECT_TRUE(StoreElement(variable, At(c.indexes), c.source.View()));
        EXPECT_EQ(Describe(variable), c.expected);
        // The copy that the table holds shares whatever it can, and never sees the store.
        EXPECT_EQ(Describe(c.before), before);
    }
}

TEST(ElementStore, AVariableThatDoesNotExistYetBecomesAnArray) {
    const CMacroCommonValue none{};
    ExpectStores({
        {none, {0}, Integer(7), "[integer 7]"},
        {none, {2}, Integer(1), "[integer 0, integer 0, integer 1]"},
        {none, {2}, Text("s"), "[integer 0, integer 0, text \"s\"]"},
        {none, {1}, Floating(0.5), "[integer 0, floating 0.5]"},
        {none, {1}, Boolean(true), "[integer 0, boolean true]"},
        {none, {1}, ArrayOf({Integer(1)}), "[integer 0, [integer 1]]"},
        {none, {1, 2}, Integer(5), "[integer 0, [integer 0, integer 0, integer 5]]"},
        {none, {0, 0, 0}, Text("x"), "[[[text \"x\"]]]"},
        {none, {1, 0, 1, 0, 1, 0}, Integer(6), "[integer 0, [[integer 0, [[integer 0, [integer 6]]]]]]"},
    });
}

TEST(ElementStore, WhatIsNoArrayGivesWayToOne) {
    for (const CMacroCommonValue& scalar : {Integer(5), Floating(5.5), Text("five"), Boolean(true)}) {
        ExpectStores({
            {scalar, {0}, Integer(7), "[integer 7]"},
            {scalar, {1}, Text("v"), "[integer 0, text \"v\"]"},
            {scalar, {3}, Integer(7), "[integer 0, integer 0, integer 0, integer 7]"},
            {scalar, {1, 1}, Integer(7), "[integer 0, [integer 0, integer 7]]"},
            {ArrayOf({scalar, Text("k")}), {0, 1}, Integer(7), "[[integer 0, integer 7], text \"k\"]"},
            {ArrayOf({ArrayOf({scalar})}), {0, 0, 0}, Integer(7), "[[[integer 7]]]"},
        });
    }
}

TEST(ElementStore, AnElementThatExistsIsReplaced) {
    const CMacroCommonValue array = ArrayOf({Integer(1), Text("b"), ArrayOf({Integer(3), Floating(4.5)})});
    ExpectStores({
        {array, {0}, Text("a"), "[text \"a\", text \"b\", [integer 3, floating 4.5]]"},
        {array, {1}, Integer(2), "[integer 1, integer 2, [integer 3, floating 4.5]]"},
        {array, {2}, Integer(3), "[integer 1, text \"b\", integer 3]"},
        {array, {2, 1}, Boolean(false), "[integer 1, text \"b\", [integer 3, boolean false]]"},
        {array, {2, 0, 0}, Integer(9), "[integer 1, text \"b\", [[integer 9], floating 4.5]]"},
    });
}

TEST(ElementStore, AnArrayGrowsAsFarAsNeeded) {
    const CMacroCommonValue array = ArrayOf({Integer(1), ArrayOf({Text("x")})});
    ExpectStores({
        {array, {2}, Integer(5), "[integer 1, [text \"x\"], integer 5]"},
        {array, {4}, Text("e"), "[integer 1, [text \"x\"], integer 0, integer 0, text \"e\"]"},
        {array, {1, 2}, Integer(5), "[integer 1, [text \"x\", integer 0, integer 5]]"},
        {array, {3, 1}, Integer(5), "[integer 1, [text \"x\"], integer 0, [integer 0, integer 5]]"},
        {ArrayOf({}), {0}, Integer(5), "[integer 5]"},
        {ArrayOf({}), {1}, Integer(5), "[integer 0, integer 5]"},
        {ArrayOf({Integer(1)}), {2}, Integer(3), "[integer 1, integer 0, integer 3]"},
        {ArrayOf({Integer(1)}), {2}, Floating(3.5), "[integer 1, integer 0, floating 3.5]"},
    });
}

TEST(ElementStore, SubscriptsAreOperands) {
    VariableTable variables;
    Variable& index = variables.Bind("i");
    index.value = Integer(1);
    Variable& table = variables.Bind("t");
    table.value = ArrayOf({Integer(0), Integer(2)});
    CMacroCommonValue result = Integer(3);
    const struct {
        CMacroCommonValue subscript;
        const char* expected;
    } cases[] = {
        {Integer(0), "[text \"v\"]"},
        {CMacroCommonValue::VariableReference(index), "[integer 0, text \"v\"]"},
        {CMacroCommonValue::Element(table, {Integer(1)}), "[integer 0, integer 0, text \"v\"]"},
        {CMacroCommonValue::Element(table, {CMacroCommonValue::Element(table, {Integer(0)})}),
         "[text \"v\"]"},
        {CMacroCommonValue::ResultReference(&result), "[integer 0, integer 0, integer 0, text \"v\"]"},
    };
    for (const auto& c : cases) {
        CMacroCommonValue variable;
        EXPECT_TRUE(StoreElement(variable, {c.subscript}, Text("v").View()));
        EXPECT_EQ(Describe(variable), c.expected);
    }
}

TEST(ElementStore, ASubscriptMayReadTheVariableThatIsStoredInto) {
    VariableTable variables;
    Variable& a = variables.Bind("a");
    a.value = ArrayOf({Integer(2), Integer(1), Integer(0)});
    // a[a[0]][a[1]] = "v": both are read before anything changes.
    const Subscripts subscripts = {CMacroCommonValue::Element(a, {Integer(0)}),
                                   CMacroCommonValue::Element(a, {Integer(1)})};
    EXPECT_TRUE(StoreElement(a.value, subscripts, Text("v").View()));
    EXPECT_EQ(Describe(a.value), "[integer 2, integer 1, [integer 0, text \"v\"]]");
}

/// What a failed store must leave as it was.
std::vector<CMacroCommonValue> VariablesOfEveryKind() {
    return {CMacroCommonValue(),
            Integer(5),
            Floating(5.5),
            Text("five"),
            Boolean(true),
            ArrayOf({}),
            ArrayOf({Integer(1), Integer(2)}),
            ArrayOf({Integer(1), ArrayOf({Text("x")}), Text("y")})};
}

TEST(ElementStore, AnIndexThatIsNegativeOrTooLargeLeavesTheVariableAsItWas) {
    for (const std::int32_t bad : {-1, -2, INT32_MIN, 134217728, 134217729, INT32_MAX}) {
        const std::vector<std::vector<std::int32_t>> places = {
            {bad}, {bad, 0}, {0, bad}, {1, bad}, {1, 0, bad}, {9, bad}, {0, 0, 0, 0, 0, bad}};
        for (const std::vector<std::int32_t>& place : places) {
            for (const CMacroCommonValue& before : VariablesOfEveryKind()) {
                CMacroCommonValue variable = before;
                EXPECT_FALSE(StoreElement(variable, At(place), Integer(7).View())) << bad;
                EXPECT_EQ(Describe(variable), Describe(before)) << bad;
            }
        }
    }
}

TEST(ElementStore, ASubscriptThatIsNoIntegerLeavesTheVariableAsItWas) {
    VariableTable variables;
    Variable& undefined = variables.Bind("u");
    Variable& table = variables.Bind("t");
    table.value = ArrayOf({Text("x"), Floating(1.0)});
    CMacroCommonValue none;
    CMacroCommonValue text = Text("1");
    const CMacroCommonValue bad[] = {
        Floating(1.0),
        Text("1"),
        Boolean(true),
        ArrayOf({Integer(0)}),
        CMacroCommonValue(),
        CMacroCommonValue::VariableReference(undefined),
        CMacroCommonValue::VariableReference(table),
        CMacroCommonValue::Element(undefined, {Integer(0)}),
        CMacroCommonValue::Element(table, {Integer(0)}),
        CMacroCommonValue::Element(table, {Integer(1)}),
        CMacroCommonValue::Element(table, {Integer(2)}),
        CMacroCommonValue::ResultReference(nullptr),
        CMacroCommonValue::ResultReference(&none),
        CMacroCommonValue::ResultReference(&text),
    };
    for (const CMacroCommonValue& subscript : bad) {
        const Subscripts places[] = {
            {subscript},
            {Integer(0), subscript},
            {Integer(9), subscript},
            {subscript, Integer(0)},
            {Integer(1), Integer(0), Integer(0), Integer(0), subscript},
        };
        for (const Subscripts& place : places) {
            for (const CMacroCommonValue& before : VariablesOfEveryKind()) {
                CMacroCommonValue variable = before;
                EXPECT_FALSE(StoreElement(variable, place, Integer(7).View()));
                EXPECT_EQ(Describe(variable), Describe(before));
            }
        }
    }
}

TEST(ElementStore, TheSourceMayBeTheVariableItself) {
    CMacroCommonValue a = ArrayOf({Integer(1), Integer(2)});
    EXPECT_TRUE(StoreElement(a, At({0}), a.View()));
    EXPECT_EQ(Describe(a), "[[integer 1, integer 2], integer 2]");
    EXPECT_TRUE(StoreElement(a, At({0, 1}), a.View()));
    EXPECT_EQ(Describe(a), "[[integer 1, [[integer 1, integer 2], integer 2]], integer 2]");
    EXPECT_TRUE(StoreElement(a, At({3}), a.View()));
    EXPECT_EQ(Describe(a),
              "[[integer 1, [[integer 1, integer 2], integer 2]], integer 2, integer 0, "
              "[[integer 1, [[integer 1, integer 2], integer 2]], integer 2]]");
}

TEST(ElementStore, TheSourceMayBeAPartOfTheVariable) {
    const CMacroCommonValue before = ArrayOf({ArrayOf({Text("in"), ArrayOf({Integer(3)})}), Text("out")});
    const struct {
        std::vector<std::int32_t> target;
        std::uint32_t part;
        const char* expected;
    } cases[] = {
        {{0}, 0, "[[text \"in\", [integer 3]], text \"out\"]"},
        {{1}, 0, "[[text \"in\", [integer 3]], [text \"in\", [integer 3]]]"},
        {{0}, 1, "[text \"out\", text \"out\"]"},
        {{0, 1}, 0, "[[text \"in\", [text \"in\", [integer 3]]], text \"out\"]"},
        {{0, 1, 0}, 0, "[[text \"in\", [[text \"in\", [integer 3]]]], text \"out\"]"},
        {{2}, 1, "[[text \"in\", [integer 3]], text \"out\", text \"out\"]"},
    };
    for (const auto& c : cases) {
        CMacroCommonValue variable = before;
        EXPECT_TRUE(StoreElement(variable, At(c.target), variable.View().array->At(c.part)));
        EXPECT_EQ(Describe(variable), c.expected);
    }
}

TEST(ElementStore, AScalarMayBeStoredInItsOwnPlace) {
    CMacroCommonValue text = Text("self");
    EXPECT_TRUE(StoreElement(text, At({1}), text.View()));
    EXPECT_EQ(Describe(text), "[integer 0, text \"self\"]");
}

TEST(ElementStore, NobodyElseSeesAStore) {
    const CMacroCommonValue inner = ArrayOf({Integer(1)});
    CMacroCommonValue a = ArrayOf({inner, inner});
    const CMacroCommonValue b = a;
    CMacroCommonValue c = ArrayOf({a, a});
    EXPECT_TRUE(StoreElement(a, At({0, 0}), Text("a").View()));
    EXPECT_TRUE(StoreElement(c, At({1, 1, 0}), Text("c").View()));
    EXPECT_EQ(Describe(inner), "[integer 1]");
    EXPECT_EQ(Describe(a), "[[text \"a\"], [integer 1]]");
    EXPECT_EQ(Describe(b), "[[integer 1], [integer 1]]");
    EXPECT_EQ(Describe(c), "[[[integer 1], [integer 1]], [[integer 1], [text \"c\"]]]");
}

TEST(ElementStore, AnArrayStoredInItselfAMillionTimesIsDestroyedWithoutRecursion) {
    CMacroCommonValue a = Integer(0);
    const Subscripts first = At({0});
    for (int i = 0; i < 1000000; ++i)
        ASSERT_TRUE(StoreElement(a, first, a.View()));
    EXPECT_EQ(a.View().array->GetSize(), 1U);
    a = Integer(1);
    EXPECT_EQ(Describe(a), "integer 1");
}

TEST(ElementStore, AHundredThousandAppendsKeepEveryElement) {
    CMacroCommonValue a;
    for (int i = 0; i < 100000; ++i)
        ASSERT_TRUE(StoreElement(a, At({i}), Integer(i * 3).View()));
    ASSERT_EQ(a.View().array->GetSize(), 100000U);
    for (std::uint32_t i = 0; i < 100000; ++i)
        ASSERT_EQ(a.View().array->At(i).integer, static_cast<std::int32_t>(i) * 3);
}

}  // namespace
}  // namespace macroengine
