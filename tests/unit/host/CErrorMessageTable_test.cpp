#include "host/CErrorMessageTable.h"

#include <cstdint>
#include <gtest/gtest.h>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

namespace macroengine {
namespace {

using Lines = std::vector<std::string>;

Lines LinesOf(const CErrorMessageTable& table) {
    Lines lines;
    for (std::uint32_t i = 0; i < table.GetCount(); ++i)
        lines.push_back(table.GetMessage(i));
    return lines;
}

CErrorMessageTable TableOf(const Lines& texts) {
    CErrorMessageTable table;
    for (const std::string& text : texts)
        table.AddError(text);
    return table;
}

TEST(CErrorMessageTable, ItIsEmptyAtFirst) {
    const CErrorMessageTable table;
    EXPECT_EQ(table.GetCount(), 0U);
    EXPECT_TRUE(table.IsEmpty());
    EXPECT_EQ(table.GetMessage(0), "");
}

TEST(CErrorMessageTable, ItsDestructorIsVirtual) {
    EXPECT_TRUE(std::has_virtual_destructor_v<CErrorMessageTable>);
}

TEST(CErrorMessageTable, AddErrorPutsTheWordErrorBeforeTheText) {
    CErrorMessageTable table;
    EXPECT_TRUE(table.AddError("Memory allocation error"));
    EXPECT_TRUE(table.AddError(""));
    EXPECT_TRUE(table.AddError("two\nlines"));
    EXPECT_EQ(LinesOf(table), (Lines{"error : Memory allocation error", "error : ", "error : two\nlines"}));
}

TEST(CErrorMessageTable, AddLocatedErrorPutsFileAndLineBeforeTheText) {
    const struct {
        const char* file;
        std::int32_t line;
        const char* text;
        const char* expected;
    } cases[] = {
        {"a.mac", 12, "run time error !", "a.mac(12): error : run time error !"},
        {"a.mac", 1, "x", "a.mac(1): error : x"},
        {"a.mac", INT32_MAX, "x", "a.mac(2147483647): error : x"},
        {"C:\\m\\a b.mac", 3, "", "C:\\m\\a b.mac(3): error : "},
        {"a.mac", 0, "x", "a.mac: error : x"},
        {"a.mac", -1, "x", "a.mac: error : x"},
        {"a.mac", INT32_MIN, "x", "a.mac: error : x"},
        {"", 7, "x", "(7): error : x"},
        {"", 0, "x", ": error : x"},
        {nullptr, 7, "x", "(7): error : x"},
        {nullptr, 0, "x", ": error : x"},
        {nullptr, 0, "", ": error : "},
        {nullptr, -5, "x", ": error : x"},
    };
    for (const auto& c : cases) {
        CErrorMessageTable table;
        EXPECT_TRUE(table.AddLocatedError(c.file, c.line, c.text));
        EXPECT_EQ(LinesOf(table), Lines{c.expected});
    }
}

TEST(CErrorMessageTable, LinesStayInTheOrderTheyCame) {
    CErrorMessageTable table;
    table.AddError("first");
    table.AddLocatedError("a.mac", 2, "second");
    table.AddError("first");
    EXPECT_EQ(table.GetCount(), 3U);
    EXPECT_FALSE(table.IsEmpty());
    EXPECT_EQ(LinesOf(table), (Lines{"error : first", "a.mac(2): error : second", "error : first"}));
}

TEST(CErrorMessageTable, AnIndexAtOrBeyondTheCountReadsTheEmptyText) {
    const CErrorMessageTable table = TableOf({"one", "two"});
    EXPECT_EQ(table.GetMessage(1), "error : two");
    EXPECT_EQ(table.GetMessage(2), "");
    EXPECT_EQ(table.GetMessage(3), "");
    EXPECT_EQ(table.GetMessage(UINT32_MAX), "");
}

TEST(CErrorMessageTable, AppendErrorsCopiesAndLeavesTheSource) {
    CErrorMessageTable table = TableOf({"one"});
    const CErrorMessageTable source = TableOf({"two", "three"});
    table.AppendErrors(source);
    EXPECT_EQ(LinesOf(table), (Lines{"error : one", "error : two", "error : three"}));
    EXPECT_EQ(LinesOf(source), (Lines{"error : two", "error : three"}));
}

TEST(CErrorMessageTable, ATableAppendedToItselfHoldsItsLinesTwice) {
    // Texts that are too long to be kept inside the string object, and more than a fresh array has room for.
    const std::string first = "the first line, which is rather a long one";
    const std::string second = "the second line, which is rather a long one too";
    CErrorMessageTable table = TableOf({first, second, "3"});
    table.AppendErrors(table);
    EXPECT_EQ(LinesOf(table), (Lines{"error : " + first, "error : " + second, "error : 3", "error : " + first,
                                     "error : " + second, "error : 3"}));
}

TEST(CErrorMessageTable, TakeErrorsMovesAndEmptiesTheSource) {
    CErrorMessageTable table = TableOf({"one"});
    CErrorMessageTable source = TableOf({"two", "three"});
    table.TakeErrors(source);
    EXPECT_EQ(LinesOf(table), (Lines{"error : one", "error : two", "error : three"}));
    EXPECT_EQ(source.GetCount(), 0U);
    EXPECT_EQ(source.GetMessage(0), "");
    source.AddError("again");
    EXPECT_EQ(LinesOf(source), Lines{"error : again"});
}

TEST(CErrorMessageTable, MovingAnEmptyTableChangesNothing) {
    CErrorMessageTable table = TableOf({"one"});
    CErrorMessageTable empty;
    table.TakeErrors(empty);
    table.AppendErrors(empty);
    EXPECT_EQ(LinesOf(table), Lines{"error : one"});
    EXPECT_TRUE(empty.IsEmpty());
    empty.TakeErrors(table);
    EXPECT_EQ(LinesOf(empty), Lines{"error : one"});
}

TEST(CErrorMessageTable, ATableThatTakesItsOwnLinesKeepsThem) {
    CErrorMessageTable table = TableOf({"one", "two"});
    CErrorMessageTable& same = table;
    table.TakeErrors(same);
    EXPECT_EQ(LinesOf(table), (Lines{"error : one", "error : two"}));
}

TEST(CErrorMessageTable, ClearEmptiesTheList) {
    CErrorMessageTable table = TableOf({"one", "two"});
    table.Clear();
    EXPECT_TRUE(table.IsEmpty());
    EXPECT_EQ(table.GetCount(), 0U);
    EXPECT_EQ(table.GetMessage(0), "");
    table.Clear();
    table.AddError("three");
    EXPECT_EQ(LinesOf(table), Lines{"error : three"});
}

TEST(CErrorMessageTable, ACopyOwnsItsLines) {
    CErrorMessageTable table = TableOf({"one"});
    CErrorMessageTable copy = table;
    table.AddError("two");
    EXPECT_EQ(LinesOf(copy), Lines{"error : one"});
    copy = table;
    table.Clear();
    EXPECT_EQ(LinesOf(copy), (Lines{"error : one", "error : two"}));
}

}  // namespace
}  // namespace macroengine
