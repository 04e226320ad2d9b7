#include <cstddef>
#include <cstdint>
#include <gtest/gtest.h>
#include <new>
#include <string>
#include <vector>

#include "runtime/CMacroStatementAssign.h"
#include "runtime/CMacroStatementOperate.h"
#include "runtime/ElementStore.h"
#include "runtime/ValueMeter.h"
#include "runtime/ValueText.h"
#include "runtime/VariableTable.h"
#include "support/FailingAllocation.h"
#include "support/ValueDescription.h"

namespace macroengine {
namespace {

using test::ArrayOf;
using test::Describe;
using test::FailingAllocation;
using test::Floating;
using test::Integer;
using test::Text;

TEST(OutOfMemory, AStoreThatFailsAtAnyOfItsAllocationsLeavesTheVariableAsItWas) {
    const CMacroCommonValue shared = ArrayOf({Integer(1), ArrayOf({Text("x"), Integer(2)})});
    const struct {
        CMacroCommonValue before;
        std::vector<CMacroCommonValue> subscripts;
        CMacroCommonValue source;
        const char* expected;
    } cases[] = {
        {CMacroCommonValue(), {Integer(1)}, Integer(7), "[integer 0, integer 7]"},
        {CMacroCommonValue(), {Integer(1), Integer(1)}, Text("v"), "[integer 0, [integer 0, text \"v\"]]"},
        {Integer(5), {Integer(0), Integer(0)}, Integer(7), "[[integer 7]]"},
        {ArrayOf({Integer(1), Integer(2)}), {Integer(1)}, Text("v"), "[integer 1, text \"v\"]"},
        {shared, {Integer(1), Integer(0)}, Integer(7), "[integer 1, [integer 7, integer 2]]"},
        {shared,
         {Integer(9)},
         Floating(0.5),
         "[integer 1, [text \"x\", integer 2], integer 0, integer 0, integer 0, integer 0, integer 0, "
         "integer 0, "
         "integer 0, floating 0.5]"},
        {shared,
         {Integer(0), Integer(0), Integer(0), Integer(0), Integer(0)},
         Integer(7),
         "[[[[[integer 7]]]], [text \"x\", integer 2]]"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.expected);
        const OperandList subscripts = c.subscripts;
        CMacroCommonValue variable = c.before;
        bool stored = false;
        for (long allowed = 0; !stored; ++allowed) {
            ASSERT_LT(allowed, 100);
            {
                const FailingAllocation failing(allowed);
                stored = StoreElement(variable, subscripts, c.source.View());
            }
            ASSERT_EQ(Describe(variable), stored ? c.expected : Describe(c.before)) << allowed;
        }
    }
    EXPECT_EQ(Describe(shared), "[integer 1, [text \"x\", integer 2]]");
}

TEST(OutOfMemory, TheHighestIndexAsksForMemoryAndTheNextDoesNot) {
    constexpr std::size_t kMegabyte = std::size_t{1} << 20;
    const struct {
        std::int32_t index;
        bool asks;
    } cases[] = {{134217727, true}, {134217728, false}, {-1, false}};
    for (const auto& c : cases) {
        for (const CMacroCommonValue& source : {Integer(7), Text("v")}) {
            CMacroCommonValue variable = ArrayOf({Integer(1), Integer(2)});
            const std::vector<CMacroCommonValue> subscripts = {Integer(c.index)};
            const CMacroCommonValue before = variable;
            bool stored = true;
            long count = 0;
            {
                const FailingAllocation failing(-1, kMegabyte);
                stored = StoreElement(variable, subscripts, source.View());
                count = FailingAllocation::GetCount();
            }
            EXPECT_FALSE(stored) << c.index;
            EXPECT_EQ(count > 0, c.asks) << c.index;
            EXPECT_EQ(Describe(variable), "[integer 1, integer 2]") << c.index;
        }
    }
}

TEST(OutOfMemory, AStoreIntoAnElementReportsThatItFailed) {
    SourceUnit unit;
    unit.fileName = "a.mac";
    VariableTable variables;
    Variable& a = variables.Bind("a");
    a.value = Text("before");
    CMacroStatementAssign assign(unit, 12);
    assign.SetDestination(CMacroCommonValue::Element(a, {Integer(100000000)}));
    assign.SetSource(Integer(1));
    bool succeeded = true;
    {
        const FailingAllocation failing(-1, std::size_t{1} << 20);
        succeeded = assign.vfRun();
    }
    EXPECT_FALSE(succeeded);
    ASSERT_EQ(unit.errors.GetCount(), 1U);
    EXPECT_EQ(unit.errors.GetMessage(0), "a.mac(12): error : failed to update array variable");
    EXPECT_EQ(Describe(a.value), "text \"before\"");
}

TEST(OutOfMemory, ATextThatCanNotGrowFailsItsStatementAndKeepsTheResult) {
    SourceUnit unit;
    unit.fileName = "a.mac";
    VariableTable variables;
    Variable& s = variables.Bind("s");
    s.value = Text(std::string(2000, 'x'));
    CMacroStatementOperate operate(unit, 4);
    operate.SetLeft(CMacroCommonValue::VariableReference(s));
    operate.SetOperator("+");
    operate.SetRight(Text(std::string(100, 'y')));
    bool succeeded = true;
    {
        const FailingAllocation failing(-1, 1000);
        succeeded = operate.vfRun();
    }
    EXPECT_FALSE(succeeded);
    ASSERT_EQ(unit.errors.GetCount(), 1U);
    EXPECT_EQ(unit.errors.GetMessage(0), "a.mac(4): error : Memory allocation error");
    EXPECT_EQ(s.value.View().Text(), std::string(2000, 'x'));
    EXPECT_EQ(Describe(operate.GetResult()), "none");
    unit.errors.Clear();
    EXPECT_TRUE(operate.vfRun());
    EXPECT_EQ(operate.GetResult().View().Text(), std::string(2000, 'x') + std::string(100, 'y'));
}

TEST(OutOfMemory, WhatIsNotGivenIsNotCounted) {
    const ValueMeter meter(1000, 0);
    for (int i = 0; i < 3; ++i) {
        const FailingAllocation failing(0);
        EXPECT_THROW(ValueMeter::Allocate(600), std::bad_alloc);
    }
    ::operator delete(ValueMeter::Allocate(600));
    EXPECT_FALSE(meter.IsExceeded());
}

TEST(OutOfMemory, AnArrayKeepsItsElementsWhenASetFails) {
    for (const bool mixed : {false, true}) {
        CMacroCommonValue array = ArrayOf({Integer(1), mixed ? Text("b") : Integer(2)});
        const std::string before = Describe(array);
        const CMacroCommonValue text = Text("v");
        bool done = false;
        for (long allowed = 0; !done; ++allowed) {
            ASSERT_LT(allowed, 100);
            try {
                const FailingAllocation failing(allowed);
                array.MutableArray().Set(50, text.View());
                done = true;
            } catch (const std::bad_alloc&) {
            }
            if (!done) {
                ASSERT_EQ(Describe(array), before) << allowed;
            }
        }
        EXPECT_EQ(array.View().array->GetSize(), 51U);
    }
}

TEST(OutOfMemory, ACloneThatFailsLeavesNothingBehind) {
    const CMacroCommonValue array = ArrayOf({Text("a"), ArrayOf({Integer(1)})});
    bool done = false;
    for (long allowed = 0; !done; ++allowed) {
        ASSERT_LT(allowed, 100);
        CMacroCommonValue copy = array;
        try {
            const FailingAllocation failing(allowed);
            copy.MutableArray();
            done = true;
        } catch (const std::bad_alloc&) {
        }
        EXPECT_EQ(Describe(copy), "[text \"a\", [integer 1]]");
    }
}

}  // namespace
}  // namespace macroengine
