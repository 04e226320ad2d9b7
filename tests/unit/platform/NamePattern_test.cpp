#include "platform/NamePattern.h"

#include <gtest/gtest.h>
#include <string>

#include "support/ScopedCodePage.h"

namespace macroengine::platform {
namespace {

using test::ScopedCodePage;

struct NameCase {
    const char* name;
    const char* pattern;
};

TEST(NamePattern, NamesThatMatch) {
    const ScopedCodePage codePage(0);
    const NameCase cases[] = {
        {"a", "a"},         {"a", "*"},        {"a.mac", "*.mac"},
        {"a.mac", "*.*"},   {"a", "*.*"},      {"a.mac", "a*"},
        {"a.mac", "?.mac"}, {"a.mac", "*a*c"}, {"A.Mac", "a.mAC"},
        {"a.mac", "*.M?C"}, {"a.mac", "**"},   {"a.mac", "*?????"},
        {"aab", "*ab"},     {"a.b.c", "*.c"},  {".hidden", "*"},
        {"ab", "a**b"},     {"a*b", "a*b"},    {"abcabd", "*abd"},
        {"[a]", "[a]"},     {"x-z", "x-?"},    {"mississippi", "m*iss*ip*"},
    };
    for (const NameCase& c : cases)
        EXPECT_TRUE(MatchesNamePattern(c.name, c.pattern)) << c.name << ' ' << c.pattern;
}

TEST(NamePattern, NamesThatDoNotMatch) {
    const ScopedCodePage codePage(0);
    const NameCase cases[] = {
        {"a", ""},         {"a", "b"},     {"a", "?a"},      {"a", "a?"},          {"ab", "?"},
        {"a.mac", "*.ma"}, {"a.mac", "a"}, {"a", "*.a"},     {"abc", "*ab"},       {"a", "[a]"},
        {"@", "`"},        {"[", "{"},     {"\xC4", "\xE4"}, {"aaaaaaaa", "*b*a"},
    };
    for (const NameCase& c : cases)
        EXPECT_FALSE(MatchesNamePattern(c.name, c.pattern)) << c.name << ' ' << c.pattern;
}

TEST(NamePattern, ADoubleByteCharacterIsOneWithoutCase) {
    const ScopedCodePage codePage(932);
    EXPECT_TRUE(MatchesNamePattern("\x83\x41.txt", "?.txt"));
    EXPECT_TRUE(MatchesNamePattern("\x83\x41.txt", "\x83\x41.TXT"));
    EXPECT_TRUE(MatchesNamePattern("a\x83\x41", "*\x83\x41"));
    EXPECT_FALSE(MatchesNamePattern("\x83\x41.txt", "\x83\x61.txt"));
    EXPECT_FALSE(MatchesNamePattern("\x83\x41.txt", "*A.txt"));
    EXPECT_FALSE(MatchesNamePattern("\x83\x41.txt", "??.txt"));
}

TEST(NamePattern, ManyStarsStayCheap) {
    std::string pattern;
    for (int i = 0; i < 50; ++i)
        pattern += "*a";
    EXPECT_FALSE(MatchesNamePattern(std::string(5000, 'a') + "b", pattern));
}

}  // namespace
}  // namespace macroengine::platform
