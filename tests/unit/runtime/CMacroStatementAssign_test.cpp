#include "runtime/CMacroStatementAssign.h"

#include <cstdint>
#include <gtest/gtest.h>
#include <string>
#include <utility>
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
using test::TakeErrorText;
using test::Text;
using test::UnitOfFile;

class CMacroStatementAssignTest : public testing::Test {
protected:
    CMacroCommonValue Var(const char* name) {
        return CMacroCommonValue::VariableReference(variables_.Bind(name));
    }

    CMacroCommonValue Elem(const char* name, std::vector<CMacroCommonValue> subscripts) {
        return CMacroCommonValue::Element(variables_.Bind(name), std::move(subscripts));
    }

    void Set(const char* name, const CMacroCommonValue& value) { variables_.Bind(name).value = value; }

    std::string Get(const char* name) {
        const Variable* const variable = variables_.Find(name);
        return variable == nullptr ? "undefined" : Describe(variable->value);
    }

    /// @return what the statement has reported.
    std::string Assign(const CMacroCommonValue& destination, const CMacroCommonValue& source) {
        CMacroStatementAssign assign(unit_, 5);
        assign.SetDestination(destination);
        assign.SetSource(source);
        const bool succeeded = assign.vfRun();
        const std::string lines = TakeErrorText(assign.GetErrors());
        EXPECT_EQ(succeeded, lines.empty());
        return lines;
    }

    SourceUnit unit_ = UnitOfFile("a.mac");
    VariableTable variables_;
};

TEST_F(CMacroStatementAssignTest, AVariableComesIntoBeingWithItsFirstValue) {
    const struct {
        CMacroCommonValue source;
        const char* expected;
    } cases[] = {
        {Integer(3), "integer 3"},
        {Floating(0.5), "floating 0.5"},
        {Text("s"), "text \"s\""},
        {Text(""), "text \"\""},
        {Boolean(true), "boolean true"},
        {ArrayOf({Integer(1), Text("x")}), "[integer 1, text \"x\"]"},
        {ArrayOf({}), "[]"},
    };
    int number = 0;
    for (const auto& c : cases) {
        const std::string name = "x" + std::to_string(++number);
        EXPECT_EQ(Get(name.c_str()), "undefined");
        EXPECT_EQ(Assign(Var(name.c_str()), c.source), "");
        EXPECT_EQ(Get(name.c_str()), c.expected);
    }
}

TEST_F(CMacroStatementAssignTest, AVariableMayChangeItsKindFreely) {
    const CMacroCommonValue values[] = {Integer(1),     Floating(1.5),         Text("one"),
                                        Boolean(false), ArrayOf({Integer(1)}), Text("")};
    for (const CMacroCommonValue& first : values) {
        for (const CMacroCommonValue& second : values) {
            EXPECT_EQ(Assign(Var("x"), first), "");
            EXPECT_EQ(Assign(Var("x"), second), "");
            EXPECT_EQ(Get("x"), Describe(second));
        }
    }
}

TEST_F(CMacroStatementAssignTest, TheSourceIsAnyOperand) {
    Set("a", ArrayOf({Integer(1), ArrayOf({Text("in")})}));
    CMacroCommonValue result = Floating(2.5);
    const struct {
        CMacroCommonValue source;
        const char* expected;
    } cases[] = {
        {Var("a"), "[integer 1, [text \"in\"]]"},
        {Elem("a", {Integer(0)}), "integer 1"},
        {Elem("a", {Integer(1)}), "[text \"in\"]"},
        {Elem("a", {Integer(1), Integer(0)}), "text \"in\""},
        {CMacroCommonValue::ResultReference(&result), "floating 2.5"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(Assign(Var("x"), c.source), "");
        EXPECT_EQ(Get("x"), c.expected);
    }
    EXPECT_EQ(Describe(result), "floating 2.5");
}

TEST_F(CMacroStatementAssignTest, ASourceThatCanNotBeResolvedChangesNothing) {
    Set("a", ArrayOf({Integer(1)}));
    CMacroCommonValue none;
    const struct {
        CMacroCommonValue source;
        const char* expected;
    } cases[] = {
        {Var("u"), "a.mac(5): error : Didn't define valiable name[u]"},
        {Elem("u", {Integer(0)}), "a.mac(5): error : Didn't define valiable name[u]"},
        {Elem("a", {Integer(1)}), "a.mac(5): error : Valiable name(a[1]) isn't exist elements."},
        {Elem("a", {Integer(0), Integer(0)}),
         "a.mac(5): error : Valiable name(a[0][0]) isn't array, or not exist elements."},
        {Elem("a", {Text("0")}), "a.mac(5): error : Array subscript isn't integer."},
        {CMacroCommonValue::ResultReference(nullptr), "a.mac(5): error : value is null."},
        {CMacroCommonValue::ResultReference(&none),
         "a.mac(5): error : invalied destination value in assign statement."},
        {CMacroCommonValue(), "a.mac(5): error : invalied destination value in assign statement."},
    };
    for (const auto& c : cases) {
        Set("x", Text("before"));
        EXPECT_EQ(Assign(Var("x"), c.source), c.expected);
        EXPECT_EQ(Assign(Elem("x", {Integer(3)}), c.source), c.expected);
        EXPECT_EQ(Get("x"), "text \"before\"");
        EXPECT_EQ(Assign(Var("new"), c.source), c.expected);
        EXPECT_EQ(Assign(Elem("new", {Integer(0)}), c.source), c.expected);
        EXPECT_EQ(Get("new"), "undefined");
    }
}

TEST_F(CMacroStatementAssignTest, AnArrayIsCopied) {
    Set("a", ArrayOf({Integer(1), ArrayOf({Integer(2)})}));
    EXPECT_EQ(Assign(Var("b"), Var("a")), "");
    EXPECT_EQ(Assign(Elem("b", {Integer(0)}), Text("b")), "");
    EXPECT_EQ(Assign(Elem("b", {Integer(1), Integer(0)}), Text("bb")), "");
    EXPECT_EQ(Get("a"), "[integer 1, [integer 2]]");
    EXPECT_EQ(Get("b"), "[text \"b\", [text \"bb\"]]");
    EXPECT_EQ(Assign(Elem("a", {Integer(1), Integer(0)}), Text("aa")), "");
    EXPECT_EQ(Get("a"), "[integer 1, [text \"aa\"]]");
    EXPECT_EQ(Get("b"), "[text \"b\", [text \"bb\"]]");
}

TEST_F(CMacroStatementAssignTest, AnElementThatIsAnArrayIsCopied) {
    Set("a", ArrayOf({ArrayOf({Integer(1)})}));
    EXPECT_EQ(Assign(Var("b"), Elem("a", {Integer(0)})), "");
    EXPECT_EQ(Assign(Elem("a", {Integer(1)}), Elem("a", {Integer(0)})), "");
    EXPECT_EQ(Assign(Elem("b", {Integer(0)}), Integer(2)), "");
    EXPECT_EQ(Assign(Elem("a", {Integer(1), Integer(0)}), Integer(3)), "");
    EXPECT_EQ(Get("a"), "[[integer 1], [integer 3]]");
    EXPECT_EQ(Get("b"), "[integer 2]");
}

TEST_F(CMacroStatementAssignTest, AVariableMayBeAssignedToItselfOrToAPartOfItself) {
    Set("a", ArrayOf({ArrayOf({Text("x")}), Integer(1)}));
    EXPECT_EQ(Assign(Var("a"), Var("a")), "");
    EXPECT_EQ(Get("a"), "[[text \"x\"], integer 1]");
    EXPECT_EQ(Assign(Elem("a", {Integer(1)}), Var("a")), "");
    EXPECT_EQ(Get("a"), "[[text \"x\"], [[text \"x\"], integer 1]]");
    EXPECT_EQ(Assign(Elem("a", {Integer(0)}), Var("a")), "");
    EXPECT_EQ(Get("a"), "[[[text \"x\"], [[text \"x\"], integer 1]], [[text \"x\"], integer 1]]");
    EXPECT_EQ(Assign(Var("a"), Elem("a", {Integer(0), Integer(0)})), "");
    EXPECT_EQ(Get("a"), "[text \"x\"]");
    EXPECT_EQ(Assign(Var("a"), Elem("a", {Integer(0)})), "");
    EXPECT_EQ(Get("a"), "text \"x\"");
}

TEST_F(CMacroStatementAssignTest, AnElementOfAnUnknownNameCreatesTheArray) {
    EXPECT_EQ(Assign(Elem("a", {Integer(2)}), Text("s")), "");
    EXPECT_EQ(Get("a"), "[integer 0, integer 0, text \"s\"]");
    EXPECT_EQ(Assign(Elem("m", {Integer(1), Integer(2)}), Integer(5)), "");
    EXPECT_EQ(Get("m"), "[integer 0, [integer 0, integer 0, integer 5]]");
}

TEST_F(CMacroStatementAssignTest, AnElementOfAScalarTurnsItIntoAnArray) {
    Set("x", Integer(9));
    EXPECT_EQ(Assign(Elem("x", {Integer(3)}), Integer(7)), "");
    EXPECT_EQ(Get("x"), "[integer 0, integer 0, integer 0, integer 7]");
    Set("a", Text("text"));
    EXPECT_EQ(Assign(Elem("a", {Integer(1)}), Boolean(true)), "");
    EXPECT_EQ(Get("a"), "[integer 0, boolean true]");
}

TEST_F(CMacroStatementAssignTest, AStoreThatFailsIsReportedAndLeavesTheVariableAsItWas) {
    CMacroCommonValue none;
    const std::vector<CMacroCommonValue> bad = {Integer(-1),
                                                Integer(134217728),
                                                Integer(INT32_MIN),
                                                Floating(1.0),
                                                Text("1"),
                                                Boolean(true),
                                                Var("u"),
                                                Elem("u", {Integer(0)}),
                                                CMacroCommonValue::ResultReference(nullptr),
                                                CMacroCommonValue::ResultReference(&none),
                                                ArrayOf({})};
    for (const CMacroCommonValue& subscript : bad) {
        Set("a", ArrayOf({Integer(1), Text("two")}));
        Set("x", Integer(5));
        const std::vector<CMacroCommonValue> places[] = {{subscript}, {Integer(7), subscript}};
        for (const std::vector<CMacroCommonValue>& place : places) {
            for (const char* name : {"a", "x", "new"}) {
                EXPECT_EQ(Assign(Elem(name, place), Integer(9)),
                          "a.mac(5): error : failed to update array variable");
            }
        }
        EXPECT_EQ(Get("a"), "[integer 1, text \"two\"]");
        EXPECT_EQ(Get("x"), "integer 5");
        EXPECT_EQ(Get("new"), "undefined");
    }
}

TEST_F(CMacroStatementAssignTest, AnArrayResultMayBeAssignedAgainAndAgain) {
    CMacroCommonValue result;
    CMacroStatementAssign assign(unit_, 5);
    assign.SetDestination(Var("x"));
    assign.SetSource(CMacroCommonValue::ResultReference(&result));
    CMacroCommonValue kept;
    for (int i = 0; i < 3; ++i) {
        // As a command leaves it before each assignment.
        result = ArrayOf({Integer(i)});
        ASSERT_TRUE(assign.vfRun());
        EXPECT_EQ(Get("x"), "[integer " + std::to_string(i) + "]");
        if (i == 0) kept = variables_.Find("x")->value;
        EXPECT_EQ(Assign(Elem("x", {Integer(1)}), Text("later")), "");
    }
    EXPECT_EQ(Describe(kept), "[integer 0]");
    EXPECT_EQ(Get("x"), "[integer 2, text \"later\"]");
}

TEST_F(CMacroStatementAssignTest, IsOfKindZero) {
    const CMacroStatementAssign assign(unit_, 5);
    EXPECT_EQ(static_cast<int>(assign.GetKind()), 0);
    EXPECT_FALSE(assign.IsBreakStatement());
    EXPECT_FALSE(assign.HasBreakFlag());
    EXPECT_EQ(assign.GetNextIndex(), -1);
    EXPECT_EQ(assign.GetLineNumber(), 5U);
    EXPECT_EQ(assign.GetFileName(), "a.mac");
    EXPECT_EQ(assign.GetCompileNumber(), 0U);
}

}  // namespace
}  // namespace macroengine
