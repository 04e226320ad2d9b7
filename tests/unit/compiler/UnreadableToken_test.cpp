#include <algorithm>
#include <cstddef>
#include <gtest/gtest.h>
#include <string>

#include "support/CompiledMacro.h"

namespace macroengine {
namespace {

using test::CompiledMacro;
using test::Lines;

// A place for each token, with a blank before and after it.
constexpr const char* kEveryConstruct =
    "#include \"other.mac\"\n"
    "#define TWO 1 + 1\n"
    "#if exist board\n"
    "#elseif exist string\n"
    "x = TWO\n"
    "#else\n"
    "x = 3\n"
    "#endif\n"
    "a [ 0 ] [ x ] = ( 1 + x ) * 2 - a2 [ 1 ]\n"
    "test . target ( ) = x\n"
    "test . target ( 1 , x ) = x + 1\n"
    "x = test . value ( a [ 0 ] , \"y\" )\n"
    "test . plain ( )\n"
    "bare = 1\n"
    "x = test . value\n"
    "if ( x == 1 ) && ( x != 2 || x < 3 )\n"
    "y = 1\n"
    "elseif x > -2\n"
    "y = 2\n"
    "else\n"
    "y = 3\n"
    "endif\n"
    "loop x < 3\n"
    "x = x + 1\n"
    "endloop\n";

Lines Compile(const std::string& text) {
    CompiledMacro macro;
    macro.GetFolder().Write("other.mac", "a2[1] = 0\n");
    return macro.Compile(text);
}

/// Puts a token that can't be read in the place of each one of a text in turn.
/// @return what is said other than the one line that tells it and where it is.
Lines OtherReports(const std::string& text, const std::string& bad, const std::string& report) {
    Lines others;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t end = text.find_first_of(" \n", at);
        const auto line = std::count(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(at), '\n') + 1;
        const std::string broken = text.substr(0, at) + bad + text.substr(end);
        const Lines lines = Compile(broken);
        const std::string expected = "main.mac(" + std::to_string(line) + "): error : " + report;
        if (lines != Lines{expected}) {
            others.push_back(broken.substr(at) + "---");
            others.insert(others.end(), lines.begin(), lines.end());
        }
        at = end + 1;
    }
    return others;
}

TEST(UnreadableToken, EndsTheLoadWhereverItStands) {
    ASSERT_EQ(Compile(kEveryConstruct), Lines());
    EXPECT_EQ(OtherReports(kEveryConstruct, "99999999999", "99999999999 is out of range"), Lines());
}

}  // namespace
}  // namespace macroengine
