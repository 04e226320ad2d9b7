#include "platform/Process.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "support/ScopedCodePage.h"

namespace macroengine::platform {
namespace {

using Words = std::vector<std::string>;

struct LineCase {
    std::string line;
    Words expected;
};

void ExpectWords(const std::vector<LineCase>& cases) {
    for (const LineCase& c : cases)
        EXPECT_EQ(SplitParameterLine(c.line), c.expected) << c.line;
}

TEST(ParameterLine, BlanksAndTabsSeparate) {
    ExpectWords({{"", {}},
                 {"   \t ", {}},
                 {"a", {"a"}},
                 {"a b ", {"a", "b"}},
                 {"  a\t\tb  c", {"a", "b", "c"}},
                 {"a\nb", {"a\nb"}}});
}

TEST(ParameterLine, DoubleQuotesGroup) {
    ExpectWords({{R"("a b" c)", {"a b", "c"}},
                 {R"(a" "b)", {"a b"}},
                 {R"("" a)", {"", "a"}},
                 {R"("")", {""}},
                 {R"(a "b c)", {"a", "b c"}},
                 {R"(")", {""}},
                 {"\"a\tb\"", {"a\tb"}},
                 {"'a b'", {"'a", "b'"}}});
}

TEST(ParameterLine, TwoQuotesInsideAGroupAreOneQuote) {
    ExpectWords({{R"("a""b")", {R"(a"b)"}},
                 {R"("a""b c" d)", {R"(a"b c)", "d"}},
                 {R"("""")", {R"(")"}},
                 {R"(a""b c)", {"ab", "c"}},
                 {R"("a"""b c)", {R"(a"b)", "c"}}});
}

TEST(ParameterLine, BackslashesArePlainExceptBeforeAQuote) {
    ExpectWords({{R"(C:\m\a b)", {R"(C:\m\a)", "b"}},
                 {R"(\\server\\share)", {R"(\\server\\share)"}},
                 {R"(a\ b)", {R"(a\)", "b"}},
                 {R"(a\)", {R"(a\)"}},
                 {R"(a\"b c)", {R"(a"b)", "c"}},
                 {R"(a\\"b c")", {R"(a\b c)"}},
                 {R"(a\\\"b c)", {R"(a\"b)", "c"}},
                 {R"("a\\" b)", {R"(a\)", "b"}},
                 {R"("a\" b")", {R"(a" b)"}},
                 {R"(\\\\"a b")", {R"(\\a b)"}}});
}

TEST(ParameterLine, ABackslashInADoubleByteCharacterIsNone) {
    const test::ScopedCodePage codePage(932);
    ExpectWords({{"\x83\\\"a b\"", {"\x83\\a b"}}, {"\x83\\\\\"a b", {"\x83\\\"a", "b"}}});
}

}  // namespace
}  // namespace macroengine::platform
