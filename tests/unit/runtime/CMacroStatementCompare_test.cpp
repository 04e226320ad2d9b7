#include "runtime/CMacroStatementCompare.h"

#include <cstdint>
#include <gtest/gtest.h>
#include <limits>
#include <string>
#include <vector>

#include "runtime/VariableTable.h"
#include "unit/runtime/StatementOutcome.h"

namespace macroengine {
namespace {

using test::ArrayOf;
using test::Boolean;
using test::Describe;
using test::Floating;
using test::Integer;
using test::Outcome;
using test::Text;
using test::UnitOfFile;

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

const char* const kTrue = "boolean true";
const char* const kFalse = "boolean false";
const char* const kMixed = "a.mac(3): error : Can't compare string and value.";
const char* const kArrays = "a.mac(3): error : Can't compare array";
const char* const kAnd = "a.mac(3): error : Can't compare string by \"&&\" operand.";
const char* const kOr = "a.mac(3): error : Can't compare string by \"||\" operand.";

std::string Compare(const CMacroCommonValue& left, const char* op, const CMacroCommonValue& right) {
    return test::OutcomeOf<CMacroStatementCompare>(left, op, right);
}

/// What each operator makes of a pair, in the order of kOperators.
struct CompareCase {
    CMacroCommonValue left;
    CMacroCommonValue right;
    std::vector<std::string> expected;
};

const char* const kOperators[] = {"==", "!=", "<", "<=", ">", ">=", "&&", "||"};

void Expect(const std::vector<CompareCase>& cases) {
    for (const CompareCase& c : cases) {
        for (std::size_t i = 0; i < 8; ++i) {
            EXPECT_EQ(Compare(c.left, kOperators[i], c.right), c.expected[i])
                << Describe(c.left) << " " << kOperators[i] << " " << Describe(c.right);
        }
    }
}

TEST(CMacroStatementCompare, EveryOperatorOnEveryPairOfKinds) {
    const CMacroCommonValue lefts[] = {Integer(2), Floating(2.5), Text("ab"), Boolean(true),
                                       ArrayOf({Integer(1)})};
    const CMacroCommonValue rights[] = {Integer(2), Floating(2.0), Text("b"), Boolean(false),
                                        ArrayOf({Integer(1)})};
    // A row for each kind on the left: integer, floating, text, boolean, array; a column for each on the
    // right.
    const struct {
        const char* op;
        std::string expected[5][5];
    } tables[] = {
        {"==",
         {{kTrue, kTrue, kMixed, kMixed, kArrays},
          {kFalse, kFalse, kMixed, kMixed, kArrays},
          {kMixed, kMixed, kFalse, kMixed, kMixed},
          {kMixed, kMixed, kMixed, kFalse, kMixed},
          {kArrays, kArrays, kMixed, kMixed, kArrays}}},
        {"!=",
         {{kFalse, kFalse, kMixed, kMixed, kArrays},
          {kTrue, kTrue, kMixed, kMixed, kArrays},
          {kMixed, kMixed, kTrue, kMixed, kMixed},
          {kMixed, kMixed, kMixed, kTrue, kMixed},
          {kArrays, kArrays, kMixed, kMixed, kArrays}}},
        {"<",
         {{kFalse, kFalse, kMixed, kMixed, kArrays},
          {kFalse, kFalse, kMixed, kMixed, kArrays},
          {kMixed, kMixed, kTrue, kMixed, kMixed},
          {kMixed, kMixed, kMixed, kFalse, kMixed},
          {kArrays, kArrays, kMixed, kMixed, kArrays}}},
        {"<=",
         {{kTrue, kTrue, kMixed, kMixed, kArrays},
          {kFalse, kFalse, kMixed, kMixed, kArrays},
          {kMixed, kMixed, kTrue, kMixed, kMixed},
          {kMixed, kMixed, kMixed, kFalse, kMixed},
          {kArrays, kArrays, kMixed, kMixed, kArrays}}},
        {">",
         {{kFalse, kFalse, kMixed, kMixed, kArrays},
          {kTrue, kTrue, kMixed, kMixed, kArrays},
          {kMixed, kMixed, kFalse, kMixed, kMixed},
          {kMixed, kMixed, kMixed, kTrue, kMixed},
          {kArrays, kArrays, kMixed, kMixed, kArrays}}},
        {">=",
         {{kTrue, kTrue, kMixed, kMixed, kArrays},
          {kTrue, kTrue, kMixed, kMixed, kArrays},
          {kMixed, kMixed, kFalse, kMixed, kMixed},
          {kMixed, kMixed, kMixed, kTrue, kMixed},
          {kArrays, kArrays, kMixed, kMixed, kArrays}}},
        {"&&",
         {{kTrue, kTrue, kMixed, kMixed, kArrays},
          {kTrue, kTrue, kMixed, kMixed, kArrays},
          {kMixed, kMixed, kAnd, kMixed, kMixed},
          {kMixed, kMixed, kMixed, kFalse, kMixed},
          {kArrays, kArrays, kMixed, kMixed, kArrays}}},
        {"||",
         {{kTrue, kTrue, kMixed, kMixed, kArrays},
          {kTrue, kTrue, kMixed, kMixed, kArrays},
          {kMixed, kMixed, kOr, kMixed, kMixed},
          {kMixed, kMixed, kMixed, kTrue, kMixed},
          {kArrays, kArrays, kMixed, kMixed, kArrays}}},
        {"=",
         {{kFalse, kFalse, kMixed, kMixed, kArrays},
          {kFalse, kFalse, kMixed, kMixed, kArrays},
          {kMixed, kMixed, kFalse, kMixed, kMixed},
          {kMixed, kMixed, kMixed, kFalse, kMixed},
          {kArrays, kArrays, kMixed, kMixed, kArrays}}},
    };
    for (const auto& table : tables) {
        for (std::size_t left = 0; left < 5; ++left) {
            for (std::size_t right = 0; right < 5; ++right) {
                EXPECT_EQ(Compare(lefts[left], table.op, rights[right]), table.expected[left][right])
                    << Describe(lefts[left]) << " " << table.op << " " << Describe(rights[right]);
            }
        }
    }
}

TEST(CMacroStatementCompare, IntegersAreSigned) {
    Expect({
        // ==, !=, <, <=, >, >=, &&, ||
        {Integer(1), Integer(2), {kFalse, kTrue, kTrue, kTrue, kFalse, kFalse, kTrue, kTrue}},
        {Integer(2), Integer(1), {kFalse, kTrue, kFalse, kFalse, kTrue, kTrue, kTrue, kTrue}},
        {Integer(-1), Integer(1), {kFalse, kTrue, kTrue, kTrue, kFalse, kFalse, kTrue, kTrue}},
        {Integer(INT32_MIN), Integer(INT32_MAX), {kFalse, kTrue, kTrue, kTrue, kFalse, kFalse, kTrue, kTrue}},
        {Integer(0), Integer(0), {kTrue, kFalse, kFalse, kTrue, kFalse, kTrue, kFalse, kFalse}},
        {Integer(0), Integer(-1), {kFalse, kTrue, kFalse, kFalse, kTrue, kTrue, kFalse, kTrue}},
        {Integer(-1), Integer(0), {kFalse, kTrue, kTrue, kTrue, kFalse, kFalse, kFalse, kTrue}},
    });
}

TEST(CMacroStatementCompare, AnIntegerAndAFloatingValueCompareAsFloatingValues) {
    Expect({
        {Integer(1), Floating(1.0), {kTrue, kFalse, kFalse, kTrue, kFalse, kTrue, kTrue, kTrue}},
        {Floating(1.0), Integer(1), {kTrue, kFalse, kFalse, kTrue, kFalse, kTrue, kTrue, kTrue}},
        {Integer(1), Floating(1.5), {kFalse, kTrue, kTrue, kTrue, kFalse, kFalse, kTrue, kTrue}},
        {Floating(0.5), Integer(0), {kFalse, kTrue, kFalse, kFalse, kTrue, kTrue, kFalse, kTrue}},
        {Integer(INT32_MAX),
         Floating(2147483647.5),
         {kFalse, kTrue, kTrue, kTrue, kFalse, kFalse, kTrue, kTrue}},
        {Integer(0), Floating(kNan), {kFalse, kTrue, kFalse, kFalse, kFalse, kFalse, kFalse, kTrue}},
    });
}

TEST(CMacroStatementCompare, FloatingValuesFollowTheirArithmetic) {
    Expect({
        {Floating(0.0), Floating(-0.0), {kTrue, kFalse, kFalse, kTrue, kFalse, kTrue, kFalse, kFalse}},
        {Floating(-kInfinity),
         Floating(kInfinity),
         {kFalse, kTrue, kTrue, kTrue, kFalse, kFalse, kTrue, kTrue}},
        {Floating(0.1 + 0.2), Floating(0.3), {kFalse, kTrue, kFalse, kFalse, kTrue, kTrue, kTrue, kTrue}},
        // A NaN is no zero and compares with nothing.
        {Floating(kNan), Floating(kNan), {kFalse, kTrue, kFalse, kFalse, kFalse, kFalse, kTrue, kTrue}},
        {Floating(kNan), Floating(0.0), {kFalse, kTrue, kFalse, kFalse, kFalse, kFalse, kFalse, kTrue}},
        {Floating(1.0), Floating(kNan), {kFalse, kTrue, kFalse, kFalse, kFalse, kFalse, kTrue, kTrue}},
    });
}

TEST(CMacroStatementCompare, FalseIsLessThanTrue) {
    Expect({
        {Boolean(false), Boolean(false), {kTrue, kFalse, kFalse, kTrue, kFalse, kTrue, kFalse, kFalse}},
        {Boolean(false), Boolean(true), {kFalse, kTrue, kTrue, kTrue, kFalse, kFalse, kFalse, kTrue}},
        {Boolean(true), Boolean(false), {kFalse, kTrue, kFalse, kFalse, kTrue, kTrue, kFalse, kTrue}},
        {Boolean(true), Boolean(true), {kTrue, kFalse, kFalse, kTrue, kFalse, kTrue, kTrue, kTrue}},
    });
}

TEST(CMacroStatementCompare, TextsCompareByteByByte) {
    const std::vector<std::string> less = {kFalse, kTrue, kTrue, kTrue, kFalse, kFalse, kAnd, kOr};
    const std::vector<std::string> equal = {kTrue, kFalse, kFalse, kTrue, kFalse, kTrue, kAnd, kOr};
    const std::vector<std::string> greater = {kFalse, kTrue, kFalse, kFalse, kTrue, kTrue, kAnd, kOr};
    Expect({
        {Text("abc"), Text("abd"), less},
        {Text("ab"), Text("abc"), less},
        {Text(""), Text("a"), less},
        {Text("B"), Text("a"), less},
        {Text("10"), Text("9"), less},
        {Text("a"), Text("\x80"), less},
        {Text("\x7F"), Text("\xFF"), less},
        {Text(std::string(200, 'x')), Text(std::string(200, 'x') + "y"), less},
        {Text(""), Text(""), equal},
        {Text("abc"), Text("abc"), equal},
        {Text("b"), Text("abc"), greater},
        {Text("abc"), Text("ab"), greater},
        {Text("\x83\\"), Text("z"), greater},
    });
}

TEST(CMacroStatementCompare, ATextOrABooleanComparesWithItsLikesAlone) {
    const std::vector<std::string> mixed(8, kMixed);
    for (const CMacroCommonValue& other :
         {Integer(1), Integer(0), Floating(1.0), ArrayOf({}), ArrayOf({Text("1")})}) {
        Expect({{Text("1"), other, mixed},
                {other, Text("1"), mixed},
                {Boolean(true), other, mixed},
                {other, Boolean(true), mixed}});
    }
    Expect({{Text("true"), Boolean(true), mixed}, {Boolean(true), Text("true"), mixed}});
}

TEST(CMacroStatementCompare, ArraysCanNotBeCompared) {
    const std::vector<std::string> arrays(8, kArrays);
    Expect({{ArrayOf({}), ArrayOf({}), arrays},
            {ArrayOf({Integer(1)}), Integer(1), arrays},
            {Floating(1.0), ArrayOf({Integer(1)}), arrays}});
}

TEST(CMacroStatementCompare, AnUnknownOperatorYieldsFalse) {
    for (const char* op : {"", "=", "<>", "+", "&", "==="}) {
        EXPECT_EQ(Compare(Integer(1), op, Integer(1)), kFalse) << op;
        EXPECT_EQ(Compare(Floating(1.0), op, Integer(1)), kFalse) << op;
        EXPECT_EQ(Compare(Text("a"), op, Text("a")), kFalse) << op;
        EXPECT_EQ(Compare(Boolean(true), op, Boolean(true)), kFalse) << op;
    }
}

TEST(CMacroStatementCompare, TheOperatorIsEmptyAtConstruction) {
    SourceUnit unit = UnitOfFile("a.mac");
    CMacroStatementCompare compare(unit, 3);
    compare.SetLeft(Integer(1));
    compare.SetRight(Integer(1));
    EXPECT_EQ(Outcome(compare), kFalse);
    EXPECT_EQ(static_cast<int>(compare.GetKind()), 2);
    EXPECT_FALSE(compare.IsBreakStatement());
    EXPECT_EQ(compare.GetNextIndex(), -1);
}

TEST(CMacroStatementCompare, BothOperandsAreAlwaysResolvedTheLeftOneFirst) {
    VariableTable variables;
    const CMacroCommonValue u = CMacroCommonValue::VariableReference(variables.Bind("u"));
    const CMacroCommonValue v = CMacroCommonValue::VariableReference(variables.Bind("v"));
    CMacroCommonValue holds = Boolean(true);
    const CMacroCommonValue held = CMacroCommonValue::ResultReference(&holds);
    const char* const undefined = "a.mac(3): error : Didn't define valiable name[u]";
    for (const char* op : kOperators) {
        EXPECT_EQ(Compare(u, op, v), undefined) << op;
        EXPECT_EQ(Compare(Boolean(true), op, u), undefined) << op;
        EXPECT_EQ(Compare(Boolean(false), op, u), undefined) << op;
        EXPECT_EQ(Compare(Text("a"), op, u), undefined) << op;
        EXPECT_EQ(Compare(ArrayOf({}), op, u), undefined) << op;
        EXPECT_EQ(Compare(CMacroCommonValue(), op, u),
                  "a.mac(3): error : invalied destination value in assign statement.")
            << op;
    }
    EXPECT_EQ(Compare(held, "&&", held), kTrue);
    holds = Boolean(false);
    EXPECT_EQ(Compare(held, "||", held), kFalse);
}

TEST(CMacroStatementCompare, EachRunOverwritesTheResult) {
    VariableTable variables;
    Variable& x = variables.Bind("x");
    SourceUnit unit = UnitOfFile("b.mac");
    CMacroStatementCompare compare(unit, 9);
    compare.SetLeft(CMacroCommonValue::VariableReference(x));
    compare.SetOperator("<");
    compare.SetRight(Integer(3));
    for (int i = 0; i < 5; ++i) {
        x.value = Integer(i);
        EXPECT_EQ(Outcome(compare), i < 3 ? kTrue : kFalse);
    }
    x.value = Text("1");
    EXPECT_EQ(Outcome(compare), "b.mac(9): error : Can't compare string and value.");
}

}  // namespace
}  // namespace macroengine
