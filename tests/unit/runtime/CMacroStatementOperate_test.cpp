#include "runtime/CMacroStatementOperate.h"

#include <cmath>
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

const char* const kTexts =
    "a.mac(3): error : Can't execute subtraction, multiplication or division, because the source values "
    "include "
    "both string and integer.";
const char* const kArrays = "a.mac(3): error : Array variable cannot be calculated.";
const char* const kInternal = "a.mac(3): error : internal error : CMacroStatementOperate::vfRun";
const char* const kZero = "a.mac(3): error : 0 division.";
const char* const kAnd = "a.mac(3): error : Using \"&\" operator, the statement has to be numerical value.";
const char* const kOr = "a.mac(3): error : Using \"|\" operator, the statement has to be numerical value.";
const char* const kLeft = "a.mac(3): error : Using \"<<\" operator, the statement has to be numerical value.";
const char* const kRight =
    "a.mac(3): error : Using \">>\" operator, the statement has to be numerical value.";
const char* const kEmpty = "text \"\"";

std::string Operate(const CMacroCommonValue& left, const char* op, const CMacroCommonValue& right) {
    return test::OutcomeOf<CMacroStatementOperate>(left, op, right);
}

struct OperateCase {
    CMacroCommonValue left;
    const char* op;
    CMacroCommonValue right;
    std::string expected;
};

void Expect(const std::vector<OperateCase>& cases) {
    for (const OperateCase& c : cases)
        EXPECT_EQ(Operate(c.left, c.op, c.right), c.expected)
            << Describe(c.left) << " " << c.op << " " << Describe(c.right);
}

TEST(CMacroStatementOperate, EveryOperatorOnEveryPairOfKinds) {
    const CMacroCommonValue lefts[] = {Integer(-7), Floating(7.5), Text("ab"), Boolean(true),
                                       ArrayOf({Integer(1)})};
    const CMacroCommonValue rights[] = {Integer(2), Floating(2.5), Text("cd"), Boolean(true),
                                        ArrayOf({Integer(2)})};
    // A row for each kind on the left: integer, floating, text, boolean, array; a column for each on the
    // right.
    const struct {
        const char* op;
        std::string expected[5][5];
    } tables[] = {
        {"+",
         {{"integer -5", "integer -5", "text \"-7cd\"", kInternal, kArrays},
          {"floating 9.5", "floating 10", "text \"7.5cd\"", kInternal, kArrays},
          {"text \"ab2\"", "text \"ab2.5\"", "text \"abcd\"", "text \"abtrue\"", kArrays},
          {kInternal, kInternal, "text \"truecd\"", kInternal, kArrays},
          {kArrays, kArrays, kArrays, kArrays, kArrays}}},
        {"-",
         {{"integer -9", "integer -9", kTexts, kInternal, kArrays},
          {"floating 5.5", "floating 5", kTexts, kInternal, kArrays},
          {kTexts, kTexts, kTexts, kTexts, kTexts},
          {kEmpty, kEmpty, kTexts, kEmpty, kArrays},
          {kArrays, kArrays, kTexts, kArrays, kArrays}}},
        {"*",
         {{"integer -14", "integer -14", kTexts, kInternal, kArrays},
          {"floating 15", "floating 18.75", kTexts, kInternal, kArrays},
          {kTexts, kTexts, kTexts, kTexts, kTexts},
          {kEmpty, kEmpty, kTexts, kEmpty, kArrays},
          {kArrays, kArrays, kTexts, kArrays, kArrays}}},
        {"/",
         {{"integer 2147483644", "integer 2147483644", kTexts, kInternal, kArrays},
          {"floating 3.75", "floating 3", kTexts, kInternal, kArrays},
          {kTexts, kTexts, kTexts, kTexts, kTexts},
          {kEmpty, kEmpty, kTexts, kEmpty, kArrays},
          {kArrays, kArrays, kTexts, kArrays, kArrays}}},
        {"&",
         {{"integer 0", kAnd, kTexts, kAnd, kArrays},
          {kAnd, kAnd, kTexts, kAnd, kArrays},
          {kTexts, kTexts, kTexts, kTexts, kTexts},
          {kAnd, kAnd, kTexts, kAnd, kArrays},
          {kArrays, kArrays, kTexts, kArrays, kArrays}}},
        {"|",
         {{"integer -5", kOr, kTexts, kOr, kArrays},
          {kOr, kOr, kTexts, kOr, kArrays},
          {kTexts, kTexts, kTexts, kTexts, kTexts},
          {kOr, kOr, kTexts, kOr, kArrays},
          {kArrays, kArrays, kTexts, kArrays, kArrays}}},
        {"<<",
         {{"integer -28", kLeft, kTexts, kLeft, kArrays},
          {kLeft, kLeft, kTexts, kLeft, kArrays},
          {kTexts, kTexts, kTexts, kTexts, kTexts},
          {kLeft, kLeft, kTexts, kLeft, kArrays},
          {kArrays, kArrays, kTexts, kArrays, kArrays}}},
        {">>",
         {{"integer 1073741822", kRight, kTexts, kRight, kArrays},
          {kRight, kRight, kTexts, kRight, kArrays},
          {kTexts, kTexts, kTexts, kTexts, kTexts},
          {kRight, kRight, kTexts, kRight, kArrays},
          {kArrays, kArrays, kTexts, kArrays, kArrays}}},
        {"%",
         {{"integer 0", "integer 0", kTexts, "integer 0", kArrays},
          {"floating 0", "floating 0", kTexts, "floating 0", kArrays},
          {kTexts, kTexts, kTexts, kTexts, kTexts},
          {kEmpty, kEmpty, kTexts, kEmpty, kArrays},
          {kArrays, kArrays, kTexts, kArrays, kArrays}}},
    };
    for (const auto& table : tables) {
        for (std::size_t left = 0; left < 5; ++left) {
            for (std::size_t right = 0; right < 5; ++right) {
                EXPECT_EQ(Operate(lefts[left], table.op, rights[right]), table.expected[left][right])
                    << Describe(lefts[left]) << " " << table.op << " " << Describe(rights[right]);
            }
        }
    }
}

TEST(CMacroStatementOperate, IntegersWrapAt32Bits) {
    Expect({
        {Integer(INT32_MAX), "+", Integer(1), "integer -2147483648"},
        {Integer(INT32_MIN), "+", Integer(-1), "integer 2147483647"},
        {Integer(INT32_MIN), "-", Integer(1), "integer 2147483647"},
        {Integer(INT32_MAX), "-", Integer(-1), "integer -2147483648"},
        {Integer(0), "-", Integer(INT32_MIN), "integer -2147483648"},
        {Integer(INT32_MIN), "*", Integer(-1), "integer -2147483648"},
        {Integer(65536), "*", Integer(65536), "integer 0"},
        {Integer(INT32_MAX), "*", Integer(INT32_MAX), "integer 1"},
        {Integer(46341), "*", Integer(46341), "integer -2147479015"},
        {Integer(-46341), "*", Integer(46341), "integer 2147479015"},
    });
}

TEST(CMacroStatementOperate, TheQuotientOfIntegersIsUnsigned) {
    Expect({
        {Integer(7), "/", Integer(2), "integer 3"},
        {Integer(6), "/", Integer(2), "integer 3"},
        {Integer(1), "/", Integer(2), "integer 0"},
        {Integer(-6), "/", Integer(2), "integer 2147483645"},
        {Integer(-1), "/", Integer(1), "integer -1"},
        {Integer(-1), "/", Integer(-1), "integer 1"},
        {Integer(6), "/", Integer(-2), "integer 0"},
        {Integer(-2), "/", Integer(-6), "integer 1"},
        {Integer(INT32_MIN), "/", Integer(-1), "integer 0"},
        {Integer(INT32_MIN), "/", Integer(2), "integer 1073741824"},
        {Integer(-1), "/", Integer(16), "integer 268435455"},
    });
}

TEST(CMacroStatementOperate, NothingIsDividedByZero) {
    for (const CMacroCommonValue& left :
         {Integer(7), Integer(0), Floating(7.0), Floating(kNan), Boolean(true)}) {
        for (const CMacroCommonValue& zero : {Integer(0), Floating(0.0), Floating(-0.0)})
            EXPECT_EQ(Operate(left, "/", zero), kZero) << Describe(left) << " " << Describe(zero);
    }
    Expect({
        // What truncates to the integer 0.
        {Integer(7), "/", Floating(0.5), kZero},
        {Integer(7), "/", Floating(-0.999), kZero},
        {Integer(7), "/", Floating(4294967296.0), kZero},
        {Integer(7), "/", Floating(1e300), kZero},
        {Integer(7), "/", Floating(kNan), kZero},
        {Integer(7), "/", Floating(-kInfinity), kZero},
        // To a floating value on the left these are no zeros.
        {Floating(7.0), "/", Floating(0.5), "floating 14"},
        {Floating(7.0), "/", Floating(kInfinity), "floating 0"},
        {Boolean(true), "/", Floating(0.5), kEmpty},
        // A text and an array come first.
        {Text("a"), "/", Integer(0), kTexts},
        {ArrayOf({}), "/", Integer(0), kArrays},
        {Integer(7), "/", Boolean(false), kInternal},
        {Floating(7.0), "/", Boolean(false), kInternal},
        // The other operators take a zero as any value.
        {Integer(7), "*", Integer(0), "integer 0"},
        {Integer(7), "-", Floating(0.0), "integer 7"},
    });
}

TEST(CMacroStatementOperate, TheLeftOperandDecidesTheKind) {
    Expect({
        {Integer(1), "+", Floating(2.5), "integer 3"},
        {Floating(2.5), "+", Integer(1), "floating 3.5"},
        {Integer(7), "/", Floating(2.9), "integer 3"},
        {Floating(7.0), "/", Integer(2), "floating 3.5"},
        {Integer(10), "-", Floating(-2.9), "integer 12"},
        {Integer(-3), "*", Floating(2.999), "integer -6"},
        {Floating(2.0), "*", Integer(3), "floating 6"},
        {Floating(0.0), "+", Integer(INT32_MIN), "floating -2147483648"},
    });
}

TEST(CMacroStatementOperate, AFloatingRightSideIsTruncatedTo32Bits) {
    Expect({
        {Integer(1), "+", Floating(4294967296.0), "integer 1"},
        {Integer(1), "+", Floating(4294967299.7), "integer 4"},
        {Integer(0), "+", Floating(2147483648.0), "integer -2147483648"},
        {Integer(0), "-", Floating(-4294967297.0), "integer 1"},
        {Integer(5), "*", Floating(-1.9), "integer -5"},
        {Integer(5), "+", Floating(1e300), "integer 5"},
        {Integer(5), "+", Floating(9223372036854775808.0), "integer 5"},
        {Integer(5), "+", Floating(kNan), "integer 5"},
        {Integer(5), "-", Floating(kInfinity), "integer 5"},
        {Integer(10), "/", Floating(4294967298.0), "integer 5"},
    });
}

TEST(CMacroStatementOperate, FloatingValuesFollowTheirArithmetic) {
    Expect({
        {Floating(0.1), "+", Floating(0.2), "floating 0.30000000000000004"},
        {Floating(1e308), "*", Floating(10.0), "floating inf"},
        {Floating(-1e308), "*", Floating(10.0), "floating -inf"},
        {Floating(5.0), "-", Floating(7.5), "floating -2.5"},
        {Floating(1.0), "/", Floating(3.0), "floating 0.3333333333333333"},
        {Floating(-0.0), "*", Integer(1), "floating -0"},
        {Floating(kInfinity), "+", Integer(1), "floating inf"},
    });
    CMacroCommonValue nan = Floating(kNan);
    SourceUnit unit = UnitOfFile("a.mac");
    CMacroStatementOperate operate(unit, 3);
    operate.SetLeft(nan);
    operate.SetOperator("+");
    operate.SetRight(Integer(1));
    ASSERT_TRUE(operate.vfRun());
    EXPECT_EQ(operate.GetResult().GetType(), ValueKind::Floating);
    EXPECT_TRUE(std::isnan(operate.GetResult().View().floating));
}

TEST(CMacroStatementOperate, BitsOfIntegers) {
    Expect({
        {Integer(12), "&", Integer(10), "integer 8"},
        {Integer(12), "|", Integer(10), "integer 14"},
        {Integer(-1), "&", Integer(255), "integer 255"},
        {Integer(INT32_MIN), "|", Integer(1), "integer -2147483647"},
        {Integer(1), "&", Floating(1.0), kAnd},
        {Floating(1.5), "&", Integer(1), kAnd},
        {Floating(1.5), "|", Integer(1), kOr},
        {Boolean(false), "|", Boolean(true), kOr},
    });
}

TEST(CMacroStatementOperate, ShiftsAreLogicalAndEndAt32) {
    Expect({
        {Integer(1), "<<", Integer(0), "integer 1"},
        {Integer(1), "<<", Integer(1), "integer 2"},
        {Integer(1), "<<", Integer(31), "integer -2147483648"},
        {Integer(1), "<<", Integer(32), "integer 0"},
        {Integer(1), "<<", Integer(33), "integer 0"},
        {Integer(1), "<<", Integer(INT32_MAX), "integer 0"},
        {Integer(1), "<<", Integer(-1), "integer 0"},
        {Integer(-1), "<<", Integer(INT32_MIN), "integer 0"},
        {Integer(3), "<<", Integer(31), "integer -2147483648"},
        {Integer(-1), "<<", Integer(4), "integer -16"},
        {Integer(16), ">>", Integer(4), "integer 1"},
        {Integer(-1), ">>", Integer(0), "integer -1"},
        {Integer(-1), ">>", Integer(1), "integer 2147483647"},
        {Integer(-1), ">>", Integer(28), "integer 15"},
        {Integer(INT32_MIN), ">>", Integer(31), "integer 1"},
        {Integer(-1), ">>", Integer(32), "integer 0"},
        {Integer(-1), ">>", Integer(-1), "integer 0"},
        {Integer(1), ">>", Floating(1.0), kRight},
        {Floating(1.0), "<<", Integer(1), kLeft},
        {Boolean(true), ">>", Integer(1), kRight},
    });
}

TEST(CMacroStatementOperate, ATextIsJoinedWithTheTextOfTheOtherSide) {
    Expect({
        {Text("n="), "+", Integer(5), "text \"n=5\""},
        {Integer(5), "+", Text("x"), "text \"5x\""},
        {Text("n="), "+", Integer(INT32_MIN), "text \"n=-2147483648\""},
        {Text("f="), "+", Floating(3.0), "text \"f=3\""},
        {Text("f="), "+", Floating(1.0 / 3.0), "text \"f=0.333333\""},
        {Floating(1234567.0), "+", Text("!"), "text \"1.23457e+06!\""},
        {Text(""), "+", Boolean(false), "text \"false\""},
        {Boolean(true), "+", Text(""), "text \"true\""},
        {Text(""), "+", Text(""), "text \"\""},
        {Text(""), "+", Text("a"), "text \"a\""},
        {Text("a"), "+", Text(""), "text \"a\""},
        {Text("1"), "+", Text("2"), "text \"12\""},
    });
}

TEST(CMacroStatementOperate, ATextTakesNoOtherOperator) {
    for (const char* op : {"-", "*", "/", "&", "|", "<<", ">>", "==", "?", ""}) {
        for (const CMacroCommonValue& other : {Integer(0), Floating(0.0), Text("b"), Text(""), Boolean(true),
                                               ArrayOf({}), ArrayOf({Text("x")})}) {
            EXPECT_EQ(Operate(Text("a"), op, other), kTexts) << op << Describe(other);
            EXPECT_EQ(Operate(other, op, Text("a")), kTexts) << op << Describe(other);
        }
    }
}

TEST(CMacroStatementOperate, AnArrayIsNotConvertedToText) {
    Expect({
        {ArrayOf({Text("a")}), "+", Text("b"), kArrays},
        {Text("b"), "+", ArrayOf({}), kArrays},
        {ArrayOf({}), "+", ArrayOf({}), kArrays},
    });
}

TEST(CMacroStatementOperate, AnUnknownOperatorLeavesAZeroOfTheLeftKind) {
    for (const char* op : {"", "%", "==", "&&", "**"}) {
        EXPECT_EQ(Operate(Integer(7), op, Integer(2)), "integer 0") << op;
        EXPECT_EQ(Operate(Floating(7.0), op, Integer(2)), "floating 0") << op;
        EXPECT_EQ(Operate(Boolean(true), op, Integer(2)), kEmpty) << op;
    }
}

TEST(CMacroStatementOperate, BothOperandsAreResolvedTheLeftOneFirst) {
    VariableTable variables;
    const CMacroCommonValue u = CMacroCommonValue::VariableReference(variables.Bind("u"));
    const CMacroCommonValue v = CMacroCommonValue::VariableReference(variables.Bind("v"));
    Variable& x = variables.Bind("x");
    x.value = ArrayOf({Integer(4)});
    CMacroCommonValue result = Integer(6);
    const char* const undefinedU = "a.mac(3): error : Didn't define valiable name[u]";
    Expect({
        {u, "+", v, undefinedU},
        {u, "/", Integer(0), undefinedU},
        {Integer(1), "+", u, undefinedU},
        {Text("a"), "-", u, undefinedU},
        {CMacroCommonValue(), "+", u, "a.mac(3): error : invalied destination value in assign statement."},
        {CMacroCommonValue::ResultReference(nullptr), "+", u, "a.mac(3): error : value is null."},
        {CMacroCommonValue::Element(x, {Integer(1)}), "+", u,
         "a.mac(3): error : Valiable name(x[1]) isn't exist elements."},
        {CMacroCommonValue::Element(x, {Integer(0)}), "*", CMacroCommonValue::ResultReference(&result),
         "integer 24"},
    });
}

TEST(CMacroStatementOperate, EachRunOverwritesTheResult) {
    VariableTable variables;
    Variable& x = variables.Bind("x");
    SourceUnit unit = UnitOfFile("sub\\b.mac");
    CMacroStatementOperate operate(unit, 77);
    operate.SetLeft(CMacroCommonValue::VariableReference(x));
    operate.SetOperator("+");
    operate.SetRight(Integer(1));
    x.value = Integer(1);
    EXPECT_EQ(Outcome(operate), "integer 2");
    x.value = Text("s");
    EXPECT_EQ(Outcome(operate), "text \"s1\"");
    x.value = Floating(0.5);
    EXPECT_EQ(Outcome(operate), "floating 1.5");
    x.value = ArrayOf({});
    EXPECT_EQ(Outcome(operate), "sub\\b.mac(77): error : Array variable cannot be calculated.");
}

TEST(CMacroStatementOperate, AResultOfAnEarlierRunStaysWhatItWas) {
    VariableTable variables;
    Variable& s = variables.Bind("s");
    s.value = Text(std::string(200, 'x'));
    SourceUnit unit = UnitOfFile("a.mac");
    CMacroStatementOperate operate(unit, 3);
    operate.SetLeft(CMacroCommonValue::VariableReference(s));
    operate.SetOperator("+");
    operate.SetRight(Text("y"));
    std::vector<CMacroCommonValue> results;
    for (int i = 0; i < 5; ++i) {
        ASSERT_TRUE(operate.vfRun());
        results.push_back(operate.GetResult());
        s.value = operate.GetResult();
    }
    for (std::size_t i = 0; i < 5; ++i)
        EXPECT_EQ(results[i].View().Text(), std::string(200, 'x') + std::string(i + 1, 'y'));
}

TEST(CMacroStatementOperate, IsOfKindOne) {
    SourceUnit unit = UnitOfFile("a.mac");
    const CMacroStatementOperate operate(unit, 3);
    EXPECT_EQ(static_cast<int>(operate.GetKind()), 1);
    EXPECT_FALSE(operate.IsBreakStatement());
    EXPECT_EQ(operate.GetNextIndex(), -1);
}

}  // namespace
}  // namespace macroengine
