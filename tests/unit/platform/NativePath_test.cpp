#include "platform/NativePath.h"

#include <cstddef>
#include <gtest/gtest.h>
#include <string>

#include "support/ScopedCodePage.h"

namespace macroengine::platform {
namespace {

using test::ScopedCodePage;

struct PathCase {
    int codePage;
    std::string path;
    std::string expected;
};

TEST(NativePath, WithSeparatorReplacesBackslashesThatAreCharacters) {
    const PathCase cases[] = {
        {0, "", ""},
        {0, "a.mac", "a.mac"},
        {0, R"(C:\m\a.mac)", "C:/m/a.mac"},
        {0, R"(\\server\share\)", "//server/share/"},
        {0, R"(sub/a\b)", "sub/a/b"},
        {0, "\x83\\a", "\x83/a"},
        {932, "\x83\\a", "\x83\\a"},
        {932, "\x83\\\\a", "\x83\\/a"},
        {932, "\\\x83\\", "/\x83\\"},
        {932, "\x81\x83\\a", "\x81\x83/a"},
        {949, "\x83\\a", "\x83/a"},
    };
    for (const PathCase& c : cases) {
        SCOPED_TRACE(std::to_string(c.codePage) + ": " + c.path);
        const ScopedCodePage codePage(c.codePage);
        EXPECT_EQ(WithSeparator(c.path, '/'), c.expected);
    }
}

TEST(NativePath, WithSeparatorTakesAnySeparator) {
    EXPECT_EQ(WithSeparator(R"(a\b/c)", '|'), "a|b/c");
}

TEST(NativePath, FolderLengthCountsUpToTheLastSeparator) {
    const struct {
        int codePage;
        std::string path;
        std::size_t expected;
    } cases[] = {
        {0, "", 0},
        {0, "a.mac", 0},
        {0, "C:a.mac", 0},
        {0, R"(\)", 1},
        {0, "/", 1},
        {0, R"(m\a.mac)", 2},
        {0, "m/a.mac", 2},
        {0, R"(m/n\a.mac)", 4},
        {0, R"(m\n/a.mac)", 4},
        {0, R"(C:\m\)", 5},
        {0, "\x83\\a", 2},
        {932, "\x83\\a", 0},
        {932, "m/\x83\\a", 2},
        {932, "m\\\x83\\\\a", 5},
        {932, "\x83/a", 2},
        {932, "\x83", 0},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(std::to_string(c.codePage) + ": " + c.path);
        const ScopedCodePage codePage(c.codePage);
        EXPECT_EQ(FolderLength(c.path), c.expected);
    }
}

TEST(NativePath, IsAbsoluteWithALeadingSeparatorOrAColonInTheSecondPlace) {
    for (const char* path :
         {R"(\)", R"(\a)", R"(\\server\a)", "/", "/home/u", "C:", R"(C:\a)", "C:a", "::"}) {
        EXPECT_TRUE(IsAbsolute(path)) << path;
    }
    for (const char* path : {"", "a", ":", "a.mac", R"(a\b)", "a/b", R"(.\a)", "../a", "ab:c", " /a"}) {
        EXPECT_FALSE(IsAbsolute(path)) << path;
    }
}

TEST(NativePath, CollapseDoubledBackslashesMakesEachPairOne) {
    const PathCase cases[] = {
        {0, "", ""},
        {0, "a", "a"},
        {0, R"(\)", R"(\)"},
        {0, R"(\a)", R"(\a)"},
        {0, R"(C:\\m\\a.mac)", R"(C:\m\a.mac)"},
        {0, R"(C:\m\a.mac)", R"(C:\m\a.mac)"},
        {0, R"(a\\\b)", R"(a\\b)"},
        {0, R"(a\\\\b)", R"(a\\b)"},
        {0, R"(a\\\\\b)", R"(a\\\b)"},
        {0, R"(a\\)", R"(a\)"},
        {0, R"(a//b)", R"(a//b)"},
        {0, R"(a\/\b)", R"(a\/\b)"},
        {0, "\x83\\\\a", "\x83\\a"},
        {932, "\x83\\\\a", "\x83\\\\a"},
        {932, "\x83\\\\\\a", "\x83\\\\a"},
        {932, "\\\x83\\\\\\", "\\\x83\\\\"},
    };
    for (const PathCase& c : cases) {
        SCOPED_TRACE(std::to_string(c.codePage) + ": " + c.path);
        const ScopedCodePage codePage(c.codePage);
        EXPECT_EQ(CollapseDoubledBackslashes(c.path), c.expected);
    }
}

TEST(NativePath, CollapseDoubledBackslashesKeepsTwoOfFourAtTheStart) {
    const PathCase cases[] = {
        {0, R"(\\\\server\\share)", R"(\\server\share)"},
        {0, R"(\\\\)", R"(\\)"},
        {0, R"(\\\\\)", R"(\\\)"},
        {0, R"(\\\\\\a)", R"(\\\a)"},
        {0, R"(\\\a)", R"(\\a)"},
        {0, R"(\\server\share)", R"(\server\share)"},
    };
    for (const PathCase& c : cases)
        EXPECT_EQ(CollapseDoubledBackslashes(c.path), c.expected) << c.path;
}

}  // namespace
}  // namespace macroengine::platform
