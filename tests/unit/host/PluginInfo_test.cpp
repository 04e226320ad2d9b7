#include "macroengine/PluginInfo.h"

#include <cstdint>
#include <gtest/gtest.h>

namespace macroengine {
namespace {

HWND Window(std::uintptr_t number) {
    return reinterpret_cast<HWND>(number);
}

/// Every test begins and ends with an empty table.
class PluginInfo : public testing::Test {
protected:
    PluginInfo() { Empty(); }
    ~PluginInfo() override { Empty(); }

    static void Empty() {
        for (int index = 0; index < 100; ++index) {
            HWND window = nullptr;
            while (GetMacroPluginInfo(index, nullptr, &window))
                RemoveMacroPluginInfo(window);
        }
    }

    static void ExpectEntry(int index, int expectedId, HWND expectedWindow) {
        int id = 0;
        HWND window = nullptr;
        EXPECT_TRUE(GetMacroPluginInfo(index, &id, &window)) << index;
        EXPECT_EQ(id, expectedId) << index;
        EXPECT_EQ(window, expectedWindow) << index;
    }

    static void ExpectFree(int index) {
        int id = 4711;
        HWND window = Window(4712);
        EXPECT_FALSE(GetMacroPluginInfo(index, &id, &window)) << index;
        EXPECT_EQ(id, 4711) << index;
        EXPECT_EQ(window, Window(4712)) << index;
    }
};

TEST_F(PluginInfo, EntriesFillTheFirstFreePlace) {
    SetMacroPluginInfo(7, Window(1));
    SetMacroPluginInfo(9, Window(2));
    RemoveMacroPluginInfo(Window(1));
    ExpectFree(0);
    ExpectEntry(1, 9, Window(2));
    SetMacroPluginInfo(3, Window(3));
    ExpectEntry(0, 3, Window(3));
    ExpectEntry(1, 9, Window(2));
    ExpectFree(2);
}

TEST_F(PluginInfo, AnyIdIsKept) {
    for (const int id : {0, -1, INT32_MAX, INT32_MIN}) {
        SetMacroPluginInfo(id, Window(5));
        ExpectEntry(0, id, Window(5));
        RemoveMacroPluginInfo(Window(5));
    }
}

TEST_F(PluginInfo, AHandleOfFullWidthIsKept) {
    SetMacroPluginInfo(1, Window(UINTPTR_MAX));
    ExpectEntry(0, 1, Window(UINTPTR_MAX));
}

TEST_F(PluginInfo, TheHundredAndFirstEntryIsIgnored) {
    for (int number = 1; number <= 101; ++number)
        SetMacroPluginInfo(number, Window(static_cast<std::uintptr_t>(number)));
    for (int index = 0; index < 100; ++index) {
        ExpectEntry(index, index + 1, Window(static_cast<std::uintptr_t>(index) + 1));
    }
    ExpectFree(100);
    RemoveMacroPluginInfo(Window(101));
    ExpectEntry(99, 100, Window(100));
}

TEST_F(PluginInfo, AnIndexOutsideTheTableGivesFalse) {
    SetMacroPluginInfo(1, Window(1));
    for (const int index : {-1, 100, 101, INT32_MIN, INT32_MAX})
        ExpectFree(index);
}

TEST_F(PluginInfo, AWindowIsEnteredAgainAndLeavesOneByOne) {
    SetMacroPluginInfo(1, Window(8));
    SetMacroPluginInfo(2, Window(8));
    ExpectEntry(1, 2, Window(8));
    RemoveMacroPluginInfo(Window(8));
    ExpectFree(0);
    ExpectEntry(1, 2, Window(8));
    RemoveMacroPluginInfo(Window(8));
    ExpectFree(1);
}

TEST_F(PluginInfo, RemovingAnUnknownWindowChangesNothing) {
    SetMacroPluginInfo(1, Window(1));
    RemoveMacroPluginInfo(Window(2));
    RemoveMacroPluginInfo(nullptr);
    ExpectEntry(0, 1, Window(1));
}

TEST_F(PluginInfo, ANullWindowLeavesItsPlaceFree) {
    SetMacroPluginInfo(1, nullptr);
    ExpectFree(0);
    SetMacroPluginInfo(2, Window(2));
    ExpectEntry(0, 2, Window(2));
}

TEST_F(PluginInfo, OutParametersMayBeNull) {
    SetMacroPluginInfo(6, Window(6));
    int id = 0;
    HWND window = nullptr;
    EXPECT_TRUE(GetMacroPluginInfo(0, nullptr, nullptr));
    EXPECT_TRUE(GetMacroPluginInfo(0, &id, nullptr));
    EXPECT_TRUE(GetMacroPluginInfo(0, nullptr, &window));
    EXPECT_EQ(id, 6);
    EXPECT_EQ(window, Window(6));
}

TEST(BoardModuleInfo, BothValuesAreKept) {
    SetBoardModuleInfo(-5, Window(77));
    for (const int ignored : {0, 1, -1}) {
        int id = 0;
        HWND window = nullptr;
        EXPECT_TRUE(GetBoardModuleInfo(ignored, &id, &window));
        EXPECT_EQ(id, -5);
        EXPECT_EQ(window, Window(77));
        EXPECT_TRUE(GetBoardModuleInfo(ignored, nullptr, nullptr));
    }
    SetBoardModuleInfo(0, nullptr);
}

}  // namespace
}  // namespace macroengine
