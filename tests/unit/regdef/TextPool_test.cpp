#include "regdef/TextPool.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace macroengine {
namespace {

TEST(TextPool, EveryTextStaysWhereItIs) {
    TextPool pool;
    std::vector<std::pair<const char*, std::string>> texts;
    for (std::size_t i = 0; i < 20000; ++i) {
        const std::string text(i % 97, static_cast<char>('a' + i % 26));
        texts.emplace_back(pool.Add(text), text);
    }
    for (const auto& [kept, text] : texts)
        ASSERT_EQ(kept, text);
}

TEST(TextPool, TextsOfAnySizeFit) {
    TextPool pool;
    std::vector<std::pair<const char*, std::string>> texts;
    for (const std::size_t size : {0, 1, 254, 255, 256, 257, 1022, 1023, 1024, 1025, 5000000, 1, 262144, 3}) {
        const std::string text(size, 'x');
        texts.emplace_back(pool.Add(text), text);
    }
    for (const auto& [kept, text] : texts)
        ASSERT_EQ(kept, text);
}

TEST(TextPool, TextsThatAreAddedTogetherStandBehindEachOther) {
    TextPool pool;
    EXPECT_EQ(std::string(pool.Add({"one", "", "two"}), 9), std::string("one\0\0two\0", 9));
    EXPECT_EQ(std::string(pool.Add({"", ""}), 2), std::string(2, '\0'));
}

TEST(TextPool, CopiesTheText) {
    TextPool pool;
    std::string text = "before";
    const char* const kept = pool.Add(text);
    text = "after!";
    EXPECT_STREQ(kept, "before");
}

}  // namespace
}  // namespace macroengine
