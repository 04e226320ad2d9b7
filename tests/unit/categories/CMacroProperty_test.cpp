#include "categories/CMacroProperty.h"

#include <cstdint>
#include <gtest/gtest.h>
#include <limits>
#include <string>
#include <utility>
#include <vector>

#include "runtime/ValueText.h"
#include "support/ScopedCodePage.h"
#include "support/ValueDescription.h"

namespace macroengine {
namespace {

using test::ArrayOf;
using test::Boolean;
using test::Describe;
using test::Floating;
using test::Integer;
using test::ScopedCodePage;
using test::Text;
using test::ViewsOf;

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

/// The call `meter.read(arguments)` in line 12 of a file.
class Call {
public:
    explicit Call(std::vector<CMacroCommonValue> arguments = {}, const CMacroCommonValue* assigned = nullptr,
                  const std::string& fileName = "a.mac", const std::string* workFolder = nullptr)
        : arguments_(std::move(arguments)),
          operands_{views_, assigned == nullptr ? nullptr : &assigned->View()} {
        entry_.category = "meter";
        entry_.property = "read";
        unit_.fileName = fileName;
        unit_.workFolder = workFolder;
    }

    CMacroProperty* operator->() { return &property_; }

    /// Takes the lines that were reported, joined by line feeds.
    std::string TakeErrors() {
        std::string lines;
        CErrorMessageTable& errors = property_.GetErrors();
        for (std::uint32_t i = 0; i < errors.GetCount(); ++i)
            lines.append(i > 0 ? "\n" : "").append(errors.GetMessage(i));
        errors.Clear();
        return lines;
    }

private:
    std::vector<CMacroCommonValue> arguments_;
    std::vector<ValueView> views_ = ViewsOf(arguments_);
    CommandEntry entry_;
    SourceUnit unit_;
    CallOperands operands_;
    CMacroProperty property_{entry_, unit_, 12, operands_};
};

std::string Located(const std::string& message) {
    return "a.mac(12): error : " + message;
}

TEST(CMacroProperty, CountsItsArguments) {
    const struct {
        std::size_t count;
        unsigned int min;
        unsigned int max;
        int expected;
    } cases[] = {
        {0, 0, 0, 0},  {0, 1, 1, -1}, {1, 1, 1, 1},   {2, 1, 1, -1},   {2, 1, 3, 2},
        {4, 1, 3, -1}, {3, 3, 1, -1}, {5, 1, ~0U, 5}, {0, 1, ~0U, -1},
    };
    for (const auto& c : cases) {
        Call call(std::vector<CMacroCommonValue>(c.count, Integer(1)));
        EXPECT_EQ(call->CheckArgumentCount(c.min, c.max), c.expected);
        EXPECT_EQ(call.TakeErrors(),
                  c.expected < 0 ? Located("meter.read() argument error. (argument count is invalid)") : "");
    }
}

TEST(CMacroProperty, AnIntegerRangeIsUnsignedAndNeedsAnInside) {
    const struct {
        std::int32_t value;
        unsigned int min;
        unsigned int max;
        bool inRange;
    } cases[] = {
        {0, 0, 255, true},
        {255, 0, 255, true},
        {256, 0, 255, false},
        {-1, 0, 255, false},
        {INT32_MIN, 0, INT32_MAX, false},
        {-1, 0, ~0U, true},
        {5, 10, 20, false},
        {10, 10, 20, true},
        {20, 10, 20, true},
        {21, 10, 20, false},
        {-1, 0x80000000, ~0U, true},
        // Without an inside there is no check.
        {-1, 0, 0, true},
        {INT32_MIN, 0, 0, true},
        {1000, 5, 5, true},
        {1000, 1, 0, true},
        // -10 to 10 has none as unsigned numbers.
        {1000, static_cast<unsigned int>(-10), 10, true},
        {-5, static_cast<unsigned int>(-10), 10, true},
    };
    for (const auto& c : cases) {
        const CMacroCommonValue assigned = Integer(c.value);
        Call call({Text("other"), Integer(c.value)}, &assigned);
        int value = 4711;
        EXPECT_EQ(call->GetArgInteger(1, c.min, c.max, value), c.inRange) << c.value;
        EXPECT_EQ(value, c.inRange ? c.value : 4711);
        EXPECT_EQ(call.TakeErrors(),
                  c.inRange ? "" : Located("meter.read() argument error. (argument[1] is out of range.)"));
        value = 4711;
        EXPECT_EQ(call->GetAssignedInteger(c.min, c.max, value), c.inRange) << c.value;
        EXPECT_EQ(value, c.inRange ? c.value : 4711);
        EXPECT_EQ(call.TakeErrors(),
                  c.inRange ? "" : Located("meter.read() assigned value error. (out of range.)"));
    }
}

TEST(CMacroProperty, AFloatingRangeIncludesItsEndsAndNeedsAnInside) {
    const struct {
        CMacroCommonValue argument;
        double min;
        double max;
        bool inRange;
        double value;
    } cases[] = {
        {Floating(1.5), 1.5, 2.5, true, 1.5},
        {Floating(2.5), 1.5, 2.5, true, 2.5},
        {Floating(2.6), 1.5, 2.5, false, 0},
        {Floating(1.4), 1.5, 2.5, false, 0},
        {Integer(2), 1.5, 2.5, true, 2.0},
        {Integer(3), 1.5, 2.5, false, 0},
        {Integer(-5), -10.0, 10.0, true, -5.0},
        {Integer(INT32_MIN), 0.0, 0.0, true, -2147483648.0},
        {Floating(1e300), 0.0, 0.0, true, 1e300},
        {Floating(1e300), 5.0, 5.0, true, 1e300},
        {Floating(-7.0), 5.0, 1.0, true, -7.0},
        {Floating(7.0), 0.0, kNan, true, 7.0},
        {Floating(kInfinity), 0.0, kInfinity, true, kInfinity},
        {Floating(kNan), 0.0, 1.0, false, 0},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(Describe(c.argument));
        Call call({c.argument}, &c.argument);
        double value = 4711.0;
        EXPECT_EQ(call->GetArgFloating(0, c.min, c.max, value), c.inRange);
        EXPECT_EQ(value, c.inRange ? c.value : 4711.0);
        EXPECT_EQ(call.TakeErrors(),
                  c.inRange ? "" : Located("meter.read() argument error. (argument[0] is out of range.)"));
        value = 4711.0;
        EXPECT_EQ(call->GetAssignedFloating(c.min, c.max, value), c.inRange);
        EXPECT_EQ(value, c.inRange ? c.value : 4711.0);
        EXPECT_EQ(call.TakeErrors(),
                  c.inRange ? "" : Located("meter.read() assigned value error. (out of range.)"));
    }
}

TEST(CMacroProperty, AnArgumentThatIsNotThereIsOfNoKind) {
    Call call({Integer(1)});
    for (const unsigned int index : {1U, 2U, 100U, ~0U}) {
        const std::string number = std::to_string(index);
        const std::string none = Located("meter.read() argument error. (argument[" + number);
        int integer = 4711;
        double floating = 4711.0;
        EXPECT_EQ(call->GetArgType(index), 8);
        EXPECT_EQ(call.TakeErrors(), "");
        EXPECT_FALSE(call->GetArgInteger(index, 0, 0, integer));
        EXPECT_EQ(call.TakeErrors(), none + "] type isn't interger)");
        EXPECT_FALSE(call->GetArgFloating(index, 0, 0, floating));
        EXPECT_EQ(call.TakeErrors(), none + "] type isn't interger)");
        EXPECT_EQ(call->GetArgString(index), nullptr);
        EXPECT_EQ(call.TakeErrors(), none + "] type isn't string)");
        const std::string position = Located("system error: parameter position is invalid.");
        EXPECT_EQ(call->GetArgArraySize(index), -1);
        EXPECT_EQ(call.TakeErrors(), position);
        EXPECT_FALSE(call->GetArgArrayInteger(index, 0, integer));
        EXPECT_EQ(call.TakeErrors(), position);
        EXPECT_FALSE(call->GetArgArrayFloating(index, 0, floating));
        EXPECT_EQ(call.TakeErrors(), position);
        EXPECT_EQ(call->GetArgArrayString(index, 0), nullptr);
        EXPECT_EQ(call.TakeErrors(), position);
        EXPECT_EQ(integer, 4711);
        EXPECT_EQ(floating, 4711.0);
    }
}

TEST(CMacroProperty, ATextIsHandedOutWholeAndNoMore) {
    // Two values of one block: the shorter one ends where it always did.
    const CMacroCommonValue grown = Concatenate(Text(std::string(99, 'x')).View(), "x");
    const CMacroCommonValue longer = Concatenate(grown.View(), "y");
    ASSERT_EQ(longer.View().text, grown.View().text);
    Call call({grown, Text(""), ArrayOf({grown, Text("")})});
    EXPECT_EQ(std::string(call->GetArgString(0)), std::string(100, 'x'));
    EXPECT_STREQ(call->GetArgString(1), "");
    EXPECT_EQ(std::string(call->GetArgArrayString(2, 0)), std::string(100, 'x'));
    EXPECT_STREQ(call->GetArgArrayString(2, 1), "");
}

TEST(CMacroProperty, TextsStayValidAsLongAsTheCall) {
    Call call({Text("argument")}, nullptr, "m\\a.mac");
    const char* const folder = call->GetMacroFolder();
    const char* const full = call->GetFullPathFromMacroFolder("b.txt");
    const char* const work = call->GetFullPathFromWorkFolder("c.txt");
    const char* const escaped = call->EscapeBackslash("a\\b");
    const char* const normalized = call->NormalizePath("a\\\\b");
    const char* const argument = call->GetArgString(0);
    for (int i = 0; i < 100; ++i) {
        call->GetFullPathFromMacroFolder("other.txt");
        call->GetFullPathFromWorkFolder("other.txt");
        call->EscapeBackslash("other\\text");
        call->NormalizePath("other\\\\text");
    }
    EXPECT_STREQ(folder, "m\\");
    EXPECT_STREQ(full, "m\\b.txt");
    EXPECT_STREQ(work, "m\\c.txt");
    EXPECT_STREQ(escaped, "a\\\\b");
    EXPECT_STREQ(normalized, "a\\b");
    EXPECT_STREQ(argument, "argument");
}

TEST(CMacroProperty, TheMacroFolderIsTheFolderPartOfTheFile) {
    const struct {
        int codePage;
        const char* fileName;
        const char* expected;
    } cases[] = {
        {0, "C:\\m\\a.mac", "C:\\m\\"},
        {0, "/home/u/m/a.mac", "/home/u/m/"},
        {0, "m/n\\a.mac", "m/n\\"},
        {0, "\\a.mac", "\\"},
        {0, "a.mac", ".\\"},
        {0, "", ".\\"},
        {0, "m\\\x83\\a.mac", "m\\\x83\\"},
        {932, "m\\\x83\\a.mac", "m\\"},
        {932, "\x83\\a.mac", ".\\"},
    };
    for (const auto& c : cases) {
        const ScopedCodePage codePage(c.codePage);
        Call call({}, nullptr, c.fileName);
        EXPECT_STREQ(call->GetMacroFolder(), c.expected) << c.fileName;
        EXPECT_STREQ(call->GetFileName(), c.fileName);
        EXPECT_EQ(call->GetLineNumber(), 12U);
    }
}

TEST(CMacroProperty, TheWorkFolderIsTheMacroFolderUnlessItIsSet) {
    const std::string empty;
    const std::string set = "D:\\work";
    EXPECT_STREQ(Call({}, nullptr, "m\\a.mac")->GetWorkFolder(), "m\\");
    EXPECT_STREQ(Call({}, nullptr, "m\\a.mac", &empty)->GetWorkFolder(), "m\\");
    EXPECT_STREQ(Call({}, nullptr, "m\\a.mac", &set)->GetWorkFolder(), "D:\\work");
}

TEST(CMacroProperty, ARelativePathIsJoinedToItsFolder) {
    const struct {
        int codePage;
        std::string folder;
        const char* path;
        const char* expected;
    } cases[] = {
        {0, "C:\\work", "a.txt", "C:\\work\\a.txt"},
        {0, "C:\\work\\", "a.txt", "C:\\work\\a.txt"},
        {0, "C:\\work\\\\", "a.txt", "C:\\work\\a.txt"},
        {0, "C:\\work", "sub\\a.txt", "C:\\work\\sub\\a.txt"},
        {0, "C:\\work", "sub\\\\a.txt", "C:\\work\\sub\\a.txt"},
        {0, "C:\\work", "..\\a.txt", "C:\\work\\..\\a.txt"},
        {0, "C:\\work", "", "C:\\work\\"},
        {0, "C:\\work\\", "", "C:\\work\\"},
        {0, "/home/u", "a.txt", "/home/u\\a.txt"},
        {0, "/home/u/", "a.txt", "/home/u/\\a.txt"},
        {0, "\\\\\\\\server\\\\share", "a.txt", "\\\\server\\share\\a.txt"},
        // An absolute path is taken as it is, but normalized.
        {0, "C:\\work", "D:\\a.txt", "D:\\a.txt"},
        {0, "C:\\work", "D:a.txt", "D:a.txt"},
        {0, "C:\\work", "\\a.txt", "\\a.txt"},
        {0, "C:\\work", "/a.txt", "/a.txt"},
        {0, "C:\\work", "D:\\\\sub\\\\a.txt", "D:\\sub\\a.txt"},
        {0, "C:\\work", "\\\\\\\\server\\\\share", "\\\\server\\share"},
        {0, "C:\\work", "\\\\server\\share", "\\server\\share"},
        // The second byte of a double-byte character is no separator.
        {932, "C:\\\x83\\", "a.txt", "C:\\\x83\\\\a.txt"},
        {0, "C:\\\x83\\", "a.txt", "C:\\\x83\\a.txt"},
        {932, "C:\\\x83\\\\", "a.txt", "C:\\\x83\\\\a.txt"},
        {932, "C:\\work", "\x83\\\\a.txt", "C:\\work\\\x83\\\\a.txt"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.folder + " + " + c.path);
        const ScopedCodePage codePage(c.codePage);
        Call fromWork({}, nullptr, "elsewhere\\a.mac", &c.folder);
        EXPECT_STREQ(fromWork->GetFullPathFromWorkFolder(c.path), c.expected);
    }
    const struct {
        const char* fileName;
        const char* path;
        const char* expected;
    } fromMacro[] = {
        {"C:\\m\\a.mac", "b.txt", "C:\\m\\b.txt"},
        {"C:\\\\m\\\\a.mac", "b.txt", "C:\\m\\b.txt"},
        {"a.mac", "b.txt", ".\\b.txt"},
        {"/m/a.mac", "b.txt", "/m/\\b.txt"},
        {"C:\\m\\a.mac", "D:\\b.txt", "D:\\b.txt"},
        {"C:\\m\\a.mac", "/b.txt", "/b.txt"},
        {"C:\\m\\a.mac", "", "C:\\m\\"},
        {"\\a.mac", "b.txt", "\\b.txt"},
    };
    const std::string work = "D:\\work";
    for (const auto& c : fromMacro) {
        Call call({}, nullptr, c.fileName, &work);
        EXPECT_STREQ(call->GetFullPathFromMacroFolder(c.path), c.expected) << c.fileName;
        Call withoutWork({}, nullptr, c.fileName);
        EXPECT_STREQ(withoutWork->GetFullPathFromWorkFolder(c.path), c.expected) << c.fileName;
    }
}

TEST(CMacroProperty, EscapingDoublesEachBackslashAndNormalizingUndoesIt) {
    const struct {
        int codePage;
        const char* text;
        const char* escaped;
    } cases[] = {
        {0, "", ""},
        {0, "abc", "abc"},
        {0, "a\\b", "a\\\\b"},
        {0, "\\", "\\\\"},
        {0, "C:\\m\\\\a", "C:\\\\m\\\\\\\\a"},
        {0, "\\\\server\\share\\", "\\\\\\\\server\\\\share\\\\"},
        {0, "a/b", "a/b"},
        {0, "\x83\\", "\x83\\\\"},
        {932, "\x83\\", "\x83\\"},
        {932, "\x83\\\\\x83\\", "\x83\\\\\\\x83\\"},
    };
    for (const auto& c : cases) {
        const ScopedCodePage codePage(c.codePage);
        Call call;
        EXPECT_STREQ(call->EscapeBackslash(c.text), c.escaped);
        EXPECT_STREQ(call->NormalizePath(c.escaped), c.text);
    }
    Call call;
    EXPECT_STREQ(call->NormalizePath("\\\\"), "\\");
    EXPECT_STREQ(call->NormalizePath("\\\\\\\\"), "\\\\");
    EXPECT_STREQ(call->NormalizePath("a\\\\\\b"), "a\\\\b");
    EXPECT_STREQ(call->NormalizePath("a\\\\\\\\b"), "a\\\\b");
}

TEST(CMacroProperty, ANullTextIsTakenAsTheEmptyText) {
    Call call({}, nullptr, "m\\a.mac");
    EXPECT_STREQ(call->EscapeBackslash(nullptr), "");
    EXPECT_STREQ(call->NormalizePath(nullptr), "");
    EXPECT_STREQ(call->GetFullPathFromMacroFolder(nullptr), "m\\");
    EXPECT_STREQ(call->GetFullPathFromWorkFolder(nullptr), "m\\");
    EXPECT_TRUE(call->AddErrorMessage(nullptr));
    EXPECT_EQ(call.TakeErrors(), "m\\a.mac(12): error : ");
    EXPECT_TRUE(call->SetResultString(nullptr));
    EXPECT_EQ(Describe(call->TakeResult()), "text \"\"");
    const char* const texts[] = {"a", nullptr};
    EXPECT_TRUE(call->SetResultStringArray(2, texts));
    EXPECT_EQ(Describe(call->TakeResult()), "[text \"a\", text \"\"]");
}

TEST(CMacroProperty, TheResultIsWhatWasSetLast) {
    Call call;
    const int integers[] = {1, -2, 3};
    const double floats[] = {0.5, -1.5};
    const char* const texts[] = {"a", "", "c"};
    EXPECT_EQ(Describe(call->TakeResult()), "none");
    EXPECT_TRUE(call->SetResultInteger(INT32_MIN));
    EXPECT_TRUE(call->SetResultFloating(0.25));
    EXPECT_EQ(Describe(call->TakeResult()), "floating 0.25");
    EXPECT_EQ(Describe(call->TakeResult()), "none");
    EXPECT_TRUE(call->SetResultInteger(5));
    EXPECT_TRUE(call->SetResultStringArray(3, texts));
    EXPECT_EQ(Describe(call->TakeResult()), "[text \"a\", text \"\", text \"c\"]");
    EXPECT_TRUE(call->SetResultFloatingArray(2, floats));
    EXPECT_EQ(Describe(call->TakeResult()), "[floating 0.5, floating -1.5]");
    EXPECT_TRUE(call->SetResultIntegerArray(3, integers));
    EXPECT_TRUE(call->SetResultBoolean(false));
    EXPECT_EQ(Describe(call->TakeResult()), "boolean false");
    EXPECT_TRUE(call->SetResultIntegerArray(3, integers));
    EXPECT_EQ(Describe(call->TakeResult()), "[integer 1, integer -2, integer 3]");
}

TEST(CMacroProperty, AnArrayOfNothingLeavesTheResultAsItWas) {
    const int integers[] = {1};
    const double floats[] = {1.0};
    const char* const texts[] = {"a"};
    for (const int count : {0, -1, INT32_MIN}) {
        Call call;
        EXPECT_TRUE(call->SetResultIntegerArray(count, integers));
        EXPECT_TRUE(call->SetResultFloatingArray(count, floats));
        EXPECT_TRUE(call->SetResultStringArray(count, texts));
        EXPECT_EQ(Describe(call->TakeResult()), "none");
        call->SetResultString("before");
        EXPECT_TRUE(call->SetResultIntegerArray(count, nullptr));
        EXPECT_TRUE(call->SetResultStringArray(count, texts));
        EXPECT_EQ(Describe(call->TakeResult()), "text \"before\"");
    }
}

TEST(CMacroProperty, AnArrayWithoutValuesLeavesTheResultAsItWas) {
    Call call;
    call->SetResultString("before");
    EXPECT_TRUE(call->SetResultIntegerArray(2, nullptr));
    EXPECT_TRUE(call->SetResultFloatingArray(2, nullptr));
    EXPECT_TRUE(call->SetResultStringArray(2, nullptr));
    EXPECT_EQ(Describe(call->TakeResult()), "text \"before\"");
}

TEST(CMacroProperty, WhereNothingIsAssignedTheAssignedValueIsOfNoKind) {
    EXPECT_EQ(Call()->GetAssigned().eType, ValueKind::None);
    const CMacroCommonValue assigned = Integer(5);
    EXPECT_EQ(Call({}, &assigned)->GetAssigned().integer, 5);
}

TEST(CMacroProperty, TheTextsOfAResultAreCopied) {
    Call call;
    std::string text = "before";
    const char* const texts[] = {text.c_str()};
    call->SetResultStringArray(1, texts);
    text = "after!";
    EXPECT_EQ(Describe(call->TakeResult()), "[text \"before\"]");
}

}  // namespace
}  // namespace macroengine
