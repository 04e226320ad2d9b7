#include "runtime/SharedArray.h"

#include <cstdint>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <vector>

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

struct GiveBack {
    void operator()(SharedArray* array) const { array->Release(); }
};
using Held = std::unique_ptr<SharedArray, GiveBack>;

Held Make(const std::vector<CMacroCommonValue>& elements = {}) {
    Held array(SharedArray::Create());
    for (const CMacroCommonValue& element : elements)
        array->Append(element.View());
    return array;
}

std::string Content(const SharedArray& array) {
    std::string text;
    for (std::uint32_t i = 0; i < array.GetSize(); ++i)
        text.append(i > 0 ? ", " : "").append(Describe(array.At(i)));
    return text;
}

TEST(SharedArray, IsEmptyAtFirst) {
    EXPECT_EQ(Make()->GetSize(), 0U);
}

TEST(SharedArray, AppendingFromACellKeepsWhatItHeld) {
    const Held array = Make();
    for (int i = 0; i < 20; ++i) {
        for (CMacroCommonValue value : {Text("x" + std::to_string(i)), ArrayOf({Integer(i)}), Integer(i)})
            array->AppendFrom(value.Cell());
    }
    EXPECT_EQ(array->GetSize(), 60U);
    for (int i = 0; i < 20; ++i) {
        const auto index = static_cast<std::uint32_t>(3 * i);
        const std::string number = std::to_string(i);
        EXPECT_EQ(Describe(array->At(index)), "text \"x" + number + "\"");
        EXPECT_EQ(Describe(array->At(index + 1)), Describe(ArrayOf({Integer(i)}).View()));
        EXPECT_EQ(Describe(array->At(index + 2)), "integer " + number);
    }
}

TEST(SharedArray, KeepsElementsOfEveryKindInOrder) {
    const std::vector<CMacroCommonValue> mixed = {
        Integer(-1), Floating(2.5), Text("three"), Boolean(true), Text(""), ArrayOf({Integer(1), Text("x")}),
        ArrayOf({}), Integer(7)};
    EXPECT_EQ(Content(*Make(mixed)),
              "integer -1, floating 2.5, text \"three\", boolean true, text \"\", "
              "[integer 1, text \"x\"], [], integer 7");
}

TEST(SharedArray, MayBeMadeOfValuesAtOnce) {
    const std::vector<CMacroCommonValue> cases[] = {
        {},
        {Integer(1), Integer(2)},
        {Integer(1), Text("two"), ArrayOf({Floating(3.5)})},
        {Text("one")},
    };
    for (const std::vector<CMacroCommonValue>& values : cases) {
        const Held array(SharedArray::Create(values));
        EXPECT_EQ(Content(*array), Content(*Make(values)));
        array->Append(Boolean(true).View());
        EXPECT_EQ(array->GetSize(), values.size() + 1);
    }
}

TEST(SharedArray, FillsAGapWithTheIntegerZero) {
    const struct {
        CMacroCommonValue value;
        std::string expected;
    } cases[] = {
        {Integer(7), "integer 5, integer 0, integer 0, integer 7"},
        {Floating(0.5), "integer 5, integer 0, integer 0, floating 0.5"},
        {Text("s"), "integer 5, integer 0, integer 0, text \"s\""},
        {Boolean(false), "integer 5, integer 0, integer 0, boolean false"},
        {ArrayOf({Integer(1)}), "integer 5, integer 0, integer 0, [integer 1]"},
    };
    for (const auto& c : cases) {
        const Held array = Make({Integer(5)});
        array->Set(3, c.value.View());
        EXPECT_EQ(Content(*array), c.expected);
    }
    const Held texts = Make({Text("a")});
    texts->Set(2, Integer(9).View());
    EXPECT_EQ(Content(*texts), "text \"a\", integer 0, integer 9");
}

TEST(SharedArray, AnElementMayChangeItsKindAnyNumberOfTimes) {
    const Held array = Make({Integer(1), Integer(2), Integer(3)});
    array->Set(1, Text("two").View());
    EXPECT_EQ(Content(*array), "integer 1, text \"two\", integer 3");
    array->Set(1, Integer(22).View());
    array->Set(0, ArrayOf({Integer(0)}).View());
    EXPECT_EQ(Content(*array), "[integer 0], integer 22, integer 3");
    array->Set(0, Boolean(true).View());
    EXPECT_EQ(Content(*array), "boolean true, integer 22, integer 3");
}

TEST(SharedArray, HoldsItsOwnShareOfAnElement) {
    const Held array = Make();
    {
        const CMacroCommonValue text = Text(std::string(1000, 'x'));
        array->Append(text.View());
        array->Append(text.View());
    }
    EXPECT_EQ(array->At(0).Text(), std::string(1000, 'x'));
    array->Set(0, Integer(0).View());
    EXPECT_EQ(array->At(1).Text(), std::string(1000, 'x'));
}

TEST(SharedArray, AnElementMayBeSetToItself) {
    const Held array = Make({Text("only"), ArrayOf({Integer(4)})});
    array->Set(0, array->At(0));
    array->Set(1, array->At(1));
    array->Set(2, array->At(0));
    EXPECT_EQ(Content(*array), "text \"only\", [integer 4], text \"only\"");
}

TEST(SharedArray, PacksElementsOfOneKindOfNumberAndKeepsAnyOtherAsCells) {
    using Form = SharedArray::Form;
    const struct {
        std::vector<CMacroCommonValue> elements;
        Form form;
    } cases[] = {
        {{}, Form::Integers},
        {{Integer(1), Integer(2)}, Form::Integers},
        {{Floating(1.5), Floating(-0.0)}, Form::Floatings},
        {{Integer(1), Floating(2.0)}, Form::Cells},
        {{Floating(1.0), Integer(2)}, Form::Cells},
        {{Integer(1), Text("a")}, Form::Cells},
        {{Boolean(true)}, Form::Cells},
    };
    for (const auto& c : cases) {
        const Held appended = Make(c.elements);
        const Held created(SharedArray::Create(c.elements));
        EXPECT_EQ(appended->GetForm(), c.form) << Content(*appended);
        EXPECT_EQ(created->GetForm(), c.form) << Content(*created);
        EXPECT_EQ(Content(*created), Content(*appended));
    }
}

TEST(SharedArray, FloatingElementsAreTheSameWhateverJoinsThem) {
    const struct {
        std::uint32_t index;
        CMacroCommonValue value;
        std::string expected;
    } cases[] = {
        {0, Floating(9.5), "floating 9.5, floating 2.25"},
        {1, Integer(7), "floating 0.5, integer 7"},
        {1, ArrayOf({Floating(1.5)}), "floating 0.5, [floating 1.5]"},
        {2, Floating(1.0), "floating 0.5, floating 2.25, floating 1"},
        {2, Integer(1), "floating 0.5, floating 2.25, integer 1"},
        {4, Floating(1.0), "floating 0.5, floating 2.25, integer 0, integer 0, floating 1"},
        {4, Integer(1), "floating 0.5, floating 2.25, integer 0, integer 0, integer 1"},
        {3, Text("s"), "floating 0.5, floating 2.25, integer 0, text \"s\""},
    };
    for (const auto& c : cases) {
        for (const std::size_t reserved : {0, 100}) {
            const Held array = Make({Floating(0.5), Floating(2.25)});
            array->Reserve(reserved);
            const Held clone(array->Clone());
            array->Set(c.index, c.value.View());
            EXPECT_EQ(Content(*array), c.expected);
            EXPECT_EQ(Content(*clone), "floating 0.5, floating 2.25");
        }
    }
    const Held first = Make();
    first->Set(2, Floating(1.5).View());
    EXPECT_EQ(Content(*first), "integer 0, integer 0, floating 1.5");
}

TEST(SharedArray, GrowsByManyElementsOfEachForm) {
    for (const CMacroCommonValue& value : {Integer(-7), Floating(0.5), Text("t")}) {
        const Held array = Make();
        for (int i = 0; i < 1000; ++i) {
            array->Append(value.View());
            array->Append(array->At(0));
        }
        ASSERT_EQ(array->GetSize(), 2000U);
        for (const std::uint32_t index : {0U, 1U, 998U, 1999U})
            EXPECT_EQ(Describe(array->At(index)), Describe(value)) << index;
    }
}

TEST(SharedArray, AReserveChangesNothing) {
    const Held integers = Make({Integer(1)});
    integers->Reserve(100);
    EXPECT_EQ(Content(*integers), "integer 1");
    const Held mixed = Make({Text("a")});
    mixed->Reserve(100);
    EXPECT_EQ(Content(*mixed), "text \"a\"");
}

TEST(SharedArray, ACloneIsIndependent) {
    for (const bool mixed : {false, true}) {
        const Held array = Make({Integer(1), mixed ? Text("b") : Integer(2)});
        const Held clone(array->Clone());
        const std::string before = Content(*array);
        EXPECT_EQ(Content(*clone), before);
        clone->Set(0, Text("changed").View());
        clone->Append(Integer(3).View());
        EXPECT_EQ(Content(*array), before);
        array->Set(1, Boolean(true).View());
        EXPECT_EQ(clone->GetSize(), 3U);
        EXPECT_EQ(Describe(clone->At(1)), mixed ? "text \"b\"" : "integer 2");
    }
}

TEST(SharedArray, KnowsWhetherItIsShared) {
    SharedArray* const array = SharedArray::Create();
    EXPECT_FALSE(array->IsShared());
    array->AddReference();
    EXPECT_TRUE(array->IsShared());
    array->Release();
    EXPECT_FALSE(array->IsShared());
    array->Release();
}

TEST(SharedArray, ANestedArrayBecomesItsOwnBeforeAWrite) {
    const CMacroCommonValue inner = ArrayOf({Integer(1), Integer(2)});
    const Held array = Make({inner, inner});
    array->MutableArrayAt(0).Set(0, Integer(9).View());
    EXPECT_EQ(Content(*array), "[integer 9, integer 2], [integer 1, integer 2]");
    EXPECT_EQ(Describe(inner), "[integer 1, integer 2]");
    // Its own by now: it is written to where it is.
    SharedArray* const own = &array->MutableArrayAt(0);
    EXPECT_EQ(&array->MutableArrayAt(0), own);
}

TEST(SharedArray, AMillionLevelsAreFreedWithoutRecursion) {
    const Held array = Make({Text("a"), NestedArray(1000000), Integer(1), NestedArray(1000)});
    array->Set(1, Integer(0).View());
    EXPECT_EQ(array->GetSize(), 4U);
}

TEST(SharedArray, APartThatIsStillHeldSurvivesTheWhole) {
    CMacroCommonValue kept;
    {
        const CMacroCommonValue inner = ArrayOf({Text("kept"), ArrayOf({Integer(5)})});
        const Held array = Make({ArrayOf({inner}), inner});
        kept = inner;
    }
    EXPECT_EQ(Describe(kept), "[text \"kept\", [integer 5]]");
}

}  // namespace
}  // namespace macroengine
