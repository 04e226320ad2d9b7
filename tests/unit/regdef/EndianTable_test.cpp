#include "regdef/EndianTable.h"

#include <gtest/gtest.h>

namespace macroengine {
namespace {

TEST(EndianTable, WithoutAnyEntryAddressesBelow3000AreBigEndian) {
    const EndianTable table;
    EXPECT_EQ(table.IsBigEndian(0), true);
    EXPECT_EQ(table.IsBigEndian(0x2FFF), true);
    EXPECT_EQ(table.IsBigEndian(0x3000), false);
    EXPECT_EQ(table.IsBigEndian(0xFFFF), false);
    EXPECT_EQ(table.IsBigEndian(0xFFFFFFFF), false);
}

TEST(EndianTable, KnowsTheRangesWithBothEnds) {
    EndianTable table;
    table.Enter(0x10, 0x1F, true);
    table.Enter(0x4000, 0x4000, false);
    EXPECT_EQ(table.IsBigEndian(0x0F), std::nullopt);
    EXPECT_EQ(table.IsBigEndian(0x10), true);
    EXPECT_EQ(table.IsBigEndian(0x1F), true);
    EXPECT_EQ(table.IsBigEndian(0x20), std::nullopt);
    EXPECT_EQ(table.IsBigEndian(0x3FFF), std::nullopt);
    EXPECT_EQ(table.IsBigEndian(0x4000), false);
    EXPECT_EQ(table.IsBigEndian(0x4001), std::nullopt);
}

TEST(EndianTable, ReachesFromTheFirstToTheLastAddress) {
    EndianTable table;
    table.Enter(0, 0, false);
    table.Enter(0xFFFF, 0xFFFF, true);
    EXPECT_EQ(table.IsBigEndian(0), false);
    EXPECT_EQ(table.IsBigEndian(0xFFFF), true);
    EXPECT_EQ(table.IsBigEndian(0x10000), std::nullopt);
    EXPECT_EQ(table.IsBigEndian(0xFFFFFFFF), std::nullopt);
}

TEST(EndianTable, TheFirstEntryOfAnAddressIsKept) {
    EndianTable table;
    table.Enter(0x10, 0x1F, true);
    table.Enter(0x18, 0x27, false);
    table.Enter(0x00, 0x2F, true);
    for (std::uint32_t address = 0; address <= 0x2F; ++address)
        EXPECT_EQ(table.IsBigEndian(address), address < 0x20 || address > 0x27) << address;
}

TEST(EndianTable, OverlappingRangesAreCheap) {
    EndianTable table;
    for (std::uint32_t address = 1; address <= 0xFFFF; address += 2)
        table.Enter(address, address, true);
    for (int i = 0; i < 1000000; ++i)
        table.Enter(0, 0xFFFF, false);
    EXPECT_EQ(table.IsBigEndian(0x8000), false);
    EXPECT_EQ(table.IsBigEndian(0x8001), true);
}

}  // namespace
}  // namespace macroengine
