#include "runtime/CMacroStatementCategory.h"

#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <new>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "macroengine/ArgumentText.h"
#include "macroengine/CMacroPropertyIF.h"
#include "runtime/CMacroStatementAssign.h"
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

/// Does what a test tells it to.
class Command : public CMacroCategoryBase {
public:
    Command() : CMacroCategoryBase("probe", "call", true, true, "") {}

    bool Run(CMacroPropertyIF* property) override { return run(property); }

    std::function<bool(CMacroPropertyIF*)> run = [](CMacroPropertyIF*) { return true; };
};

class CMacroStatementCategoryTest : public testing::Test {
protected:
    CMacroStatementCategoryTest() {
        list_.AddCategoryCommand(nullptr, &command_, false);
        unit_.workFolder = &workFolder_;
    }

    CMacroCommonValue Var(const char* name) {
        return CMacroCommonValue::VariableReference(variables_.Bind(name));
    }

    CMacroCommonValue Elem(const char* name, std::vector<CMacroCommonValue> subscripts) {
        return CMacroCommonValue::Element(variables_.Bind(name), std::move(subscripts));
    }

    void Set(const char* name, const CMacroCommonValue& value) { variables_.Bind(name).value = value; }

    std::unique_ptr<CMacroStatementCategory> Call(
        std::vector<CMacroCommonValue> arguments,
        CMacroCommonValue assigned = CMacroCommonValue::ResultReference(nullptr)) {
        auto call =
            std::make_unique<CMacroStatementCategory>(unit_, 6, list_, *list_.FindEntry("probe", "call"));
        call->SetArguments(std::move(arguments));
        call->SetAssignedValue(std::move(assigned));
        return call;
    }

    SourceUnit unit_ = UnitOfFile("m\\a.mac");
    std::string workFolder_ = "C:\\work";
    VariableTable variables_;
    Command command_;
    CMacroCategoryCmdList list_{""};
};

/// The arguments of a call, as the command sees them.
std::string Arguments(CMacroPropertyIF* property) {
    std::string text;
    const int count = property->CheckArgumentCount(0, 100);
    for (int i = 0; i < count; ++i) {
        const auto index = static_cast<unsigned int>(i);
        text.append(i > 0 ? "; " : "").append(std::to_string(property->GetArgType(index)));
        text.append(" ").append(FormatMacroArgument(property, index));
    }
    return text;
}

TEST_F(CMacroStatementCategoryTest, AnOperandIsPassedAsWhatItStandsFor) {
    Set("x", Integer(5));
    Set("a", ArrayOf({Text("in"), ArrayOf({Floating(0.5)})}));
    CMacroCommonValue result = Boolean(true);
    std::string seen;
    command_.run = [&](CMacroPropertyIF* property) {
        seen = Arguments(property);
        return true;
    };
    const auto call =
        Call({Integer(-1), Floating(2.5), Text("t"), Boolean(false), Var("x"), Var("a"),
              Elem("a", {Integer(0)}), Elem("a", {Integer(1)}), CMacroCommonValue::ResultReference(&result)});
    EXPECT_EQ(Outcome(*call), "none");
    EXPECT_EQ(seen, "0 -1; 1 2.5; 2 t; 3 false; 0 5; 6 [\"in\", [0.5]]; 2 in; 6 [0.5]; 3 true");
    EXPECT_EQ(Outcome(*Call({})), "none");
    EXPECT_EQ(seen, "");
}

TEST_F(CMacroStatementCategoryTest, TheCommandIsToldWhereItIsCalled) {
    std::string seen;
    command_.run = [&](CMacroPropertyIF* property) {
        seen.append(property->GetFileName()).append("|");
        seen.append(property->GetMacroFolder()).append("|");
        seen.append(std::to_string(property->GetLineNumber())).append("|");
        seen.append(property->GetWorkFolder());
        return true;
    };
    EXPECT_EQ(Outcome(*Call({})), "none");
    EXPECT_EQ(seen, "m\\a.mac|m\\|6|C:\\work");
}

TEST_F(CMacroStatementCategoryTest, AnArgumentThatCanNotBeResolvedIsReportedAndNothingRuns) {
    bool hasRun = false;
    command_.run = [&](CMacroPropertyIF*) { return hasRun = true; };
    CMacroCommonValue none;
    const struct {
        CMacroCommonValue operand;
        const char* expected;
    } cases[] = {
        {Var("u"), "m\\a.mac(6): error : Didn't define valiable name[u]"},
        {CMacroCommonValue::ResultReference(nullptr), "m\\a.mac(6): error : value is null."},
        {CMacroCommonValue::ResultReference(&none),
         "m\\a.mac(6): error : invalied destination value in assign statement."},
        {CMacroCommonValue(), "m\\a.mac(6): error : invalied destination value in assign statement."},
        {Elem("u", {Integer(0)}), "m\\a.mac(6): error : Didn't define valiable name[u]"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(Outcome(*Call({c.operand})), c.expected);
        EXPECT_EQ(Outcome(*Call({Integer(1), c.operand, Var("other")})), c.expected);
    }
    EXPECT_FALSE(hasRun);
}

TEST_F(CMacroStatementCategoryTest, ACallThatNothingIsAssignedToHasNoAssignedValue) {
    bool hasAssigned = true;
    command_.run = [&](CMacroPropertyIF* property) {
        hasAssigned = !property->CheckNoAssignedValue(true);
        return true;
    };
    EXPECT_EQ(Outcome(*Call({})), "none");
    EXPECT_FALSE(hasAssigned);
}

TEST_F(CMacroStatementCategoryTest, AnAssignedValueIsResolvedLikeAnArgument) {
    Set("x", Integer(5));
    Set("a", ArrayOf({Integer(7), Integer(8)}));
    CMacroCommonValue result = Integer(9);
    int seen = 0;
    command_.run = [&](CMacroPropertyIF* property) { return property->GetAssignedInteger(0, 0, seen); };
    const struct {
        CMacroCommonValue operand;
        int expected;
    } cases[] = {{Integer(4), 4},
                 {Var("x"), 5},
                 {Elem("a", {Integer(1)}), 8},
                 {CMacroCommonValue::ResultReference(&result), 9}};
    for (const auto& c : cases) {
        EXPECT_EQ(Outcome(*Call({}, c.operand)), "none");
        EXPECT_EQ(seen, c.expected);
    }
    command_.run = [&](CMacroPropertyIF* property) { return (seen = property->GetAssignedArraySize()) >= 0; };
    EXPECT_EQ(Outcome(*Call({}, Var("a"))), "none");
    EXPECT_EQ(seen, 2);
    EXPECT_EQ(Outcome(*Call({}, ArrayOf({Text("x")}))), "none");
    EXPECT_EQ(seen, 1);
}

TEST_F(CMacroStatementCategoryTest, AnAssignedValueThatCanNotBeResolvedIsReportedAfterTheArguments) {
    bool hasRun = false;
    command_.run = [&](CMacroPropertyIF*) { return hasRun = true; };
    EXPECT_EQ(Outcome(*Call({}, CMacroCommonValue())),
              "m\\a.mac(6): error : invalied destination value in assign statement.");
    EXPECT_EQ(Outcome(*Call({}, Var("u"))), "m\\a.mac(6): error : Didn't define valiable name[u]");
    EXPECT_EQ(Outcome(*Call({Var("first")}, Var("u"))),
              "m\\a.mac(6): error : Didn't define valiable name[first]");
    EXPECT_FALSE(hasRun);
}

TEST_F(CMacroStatementCategoryTest, TheResultIsWhatTheCommandHasSet) {
    const auto call = Call({});
    const double floats[] = {0.5, 1.5};
    const struct {
        std::function<bool(CMacroPropertyIF*)> run;
        const char* expected;
    } cases[] = {
        {[](CMacroPropertyIF* property) { return property->SetResultInteger(5); }, "integer 5"},
        {[](CMacroPropertyIF* property) { return property->SetResultString("s"); }, "text \"s\""},
        {[&](CMacroPropertyIF* property) { return property->SetResultFloatingArray(2, floats); },
         "[floating 0.5, floating 1.5]"},
        // Nothing stays from the run before.
        {[](CMacroPropertyIF*) { return true; }, "none"},
        {[](CMacroPropertyIF* property) { return property->SetResultBoolean(true); }, "boolean true"},
    };
    for (const auto& c : cases) {
        command_.run = c.run;
        EXPECT_EQ(Outcome(*call), c.expected);
    }
}

TEST_F(CMacroStatementCategoryTest, AFailedCallIsTheBooleanFalseAndReportsEveryLine) {
    command_.run = [](CMacroPropertyIF* property) {
        property->SetResultInteger(5);
        property->AddErrorMessage("first");
        property->AddErrorMessage("second");
        return false;
    };
    const auto call = Call({});
    EXPECT_EQ(Outcome(*call), "m\\a.mac(6): error : first\nm\\a.mac(6): error : second");
    EXPECT_EQ(Describe(call->GetResult()), "boolean false");
    command_.run = [](CMacroPropertyIF*) { return false; };
    EXPECT_EQ(Outcome(*call), "");
    EXPECT_EQ(Describe(call->GetResult()), "boolean false");
}

TEST_F(CMacroStatementCategoryTest, LinesOfACallThatSucceedsAreDropped) {
    command_.run = [](CMacroPropertyIF* property) { return property->AddErrorMessage("never mind"); };
    EXPECT_EQ(Outcome(*Call({})), "none");
}

TEST_F(CMacroStatementCategoryTest, WhatACommandThrowsFailsItsStatement) {
    const auto call = Call({});
    const struct {
        std::function<bool(CMacroPropertyIF*)> run;
        const char* expected;
    } cases[] = {
        {[](CMacroPropertyIF*) -> bool { throw std::runtime_error("no answer"); },
         "m\\a.mac(6): error : probe.call() threw an exception. (no answer)"},
        {[](CMacroPropertyIF*) -> bool { throw 5; }, "m\\a.mac(6): error : probe.call() threw an exception."},
        {[](CMacroPropertyIF*) -> bool { throw std::bad_alloc(); },
         "m\\a.mac(6): error : Memory allocation error"},
        {[](CMacroPropertyIF* property) -> bool {
             property->AddErrorMessage("before");
             throw std::runtime_error("then");
         },
         "m\\a.mac(6): error : before\nm\\a.mac(6): error : probe.call() threw an exception. (then)"},
    };
    for (const auto& c : cases) {
        command_.run = c.run;
        EXPECT_EQ(Outcome(*call), c.expected);
        EXPECT_EQ(Describe(call->GetResult()), "boolean false");
    }
}

TEST_F(CMacroStatementCategoryTest, AnArgumentIsLetGoWhenTheCallIsOver) {
    Set("a", ArrayOf({Text("x")}));
    const auto call = Call({Var("a"), Var("u")});
    EXPECT_EQ(Outcome(*call), "m\\a.mac(6): error : Didn't define valiable name[u]");
    EXPECT_FALSE(variables_.Find("a")->value.View().array->IsShared());
    Set("u", Integer(0));
    EXPECT_EQ(Outcome(*call), "none");
    EXPECT_FALSE(variables_.Find("a")->value.View().array->IsShared());
}

TEST_F(CMacroStatementCategoryTest, AResultKeepsNothingInCommonWithLaterResults) {
    int number = 0;
    command_.run = [&](CMacroPropertyIF* property) {
        const int values[] = {number, number + 1};
        ++number;
        return property->SetResultIntegerArray(2, values);
    };
    const auto call = Call({});
    CMacroStatementAssign assign(unit_, 6);
    assign.SetDestination(Var("x"));
    assign.SetSource(CMacroCommonValue::ResultReference(&call->GetResult()));
    ASSERT_TRUE(call->vfRun() && assign.vfRun());
    const CMacroCommonValue first = variables_.Find("x")->value;
    ASSERT_TRUE(call->vfRun() && assign.vfRun());
    EXPECT_EQ(Describe(first), "[integer 0, integer 1]");
    EXPECT_EQ(Describe(variables_.Find("x")->value), "[integer 1, integer 2]");
}

TEST_F(CMacroStatementCategoryTest, IsOfKindFour) {
    const auto call = Call({});
    EXPECT_EQ(static_cast<int>(call->GetKind()), 4);
    EXPECT_FALSE(call->IsBreakStatement());
    EXPECT_EQ(call->GetNextIndex(), -1);
    EXPECT_EQ(call->GetEntry().GetName(), "probe.call");
}

}  // namespace
}  // namespace macroengine
