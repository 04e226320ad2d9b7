#include <gtest/gtest.h>
#include <string>

#include "api/MacroHost.h"

// Built with tiny limits only: each at the limit and one past it.

namespace macroengine {
namespace {

using test::MacroHost;

std::string Output(const std::string& text) {
    return MacroHost().Output(text);
}

std::string Repeat(const std::string& text, int count) {
    std::string repeated;
    for (int i = 0; i < count; ++i)
        repeated += text;
    return repeated;
}

std::string Nested(const std::string& open, int count, const std::string& inside, const std::string& close) {
    return Repeat(open, count) + inside + Repeat(close, count);
}

TEST(Limits, Nesting) {
    const std::string put = "\ntest.put(x)\n";
    EXPECT_EQ(Output("x = " + Nested("(", 4, "1", ")") + put), "1");
    EXPECT_EQ(Output("x = " + Nested("(", 5, "1", ")") + put),
              "a.mac(1): error : The nest for \"(\" is to up to 4 times.");
    EXPECT_EQ(Output("if " + Nested("(", 4, "1 == 1", ")") + "\nx = 1\nendif" + put), "1");
    EXPECT_EQ(Output("if " + Nested("(", 5, "1 == 1", ")") + "\nx = 1\nendif" + put),
              "a.mac(1): error : The nest for \"(\" is to up to 4 times.");
    EXPECT_EQ(Output("a[0] = 0\nx = " + Nested("a[", 4, "0", "]") + put), "0");
    EXPECT_EQ(Output("a[0] = 0\nx = " + Nested("a[", 5, "0", "]") + put),
              "a.mac(2): error : The nest for \"[\" is to up to 4 times.");
    EXPECT_EQ(Output(Nested("if 1 == 1\n", 4, "x = 1\n", "endif\n") + put), "1");
    EXPECT_EQ(Output(Nested("if 1 == 1\n", 5, "x = 1\n", "endif\n") + put),
              "a.mac(5): error : The nest for \"if\" is to up to 4 times.");
    EXPECT_EQ(Output("x = 0\n" + Nested("loop x < 1\n", 4, "x = 1\n", "endloop\n") + put), "1");
    EXPECT_EQ(Output("x = 0\n" + Nested("loop x < 1\n", 5, "x = 1\n", "endloop\n") + put),
              "a.mac(6): error : The nest for \"loop\" is to up to 4 times.");
}

TEST(Limits, Includes) {
    MacroHost host;
    host.GetFolder().Write("b.mac", "x = 1\n");
    EXPECT_EQ(host.Output(Repeat("#include \"b.mac\"\n", 6) + "test.put(x)\n"), "1");
    EXPECT_EQ(Output("x = 1\n"), "");
    MacroHost other;
    other.GetFolder().Write("b.mac", "x = 1\n");
    EXPECT_EQ(other.Output(Repeat("#include \"b.mac\"\n", 7)),
              "a.mac(7): error : The number of \"#include\" is to up to 6.");
    // The count is that of one load.
    EXPECT_EQ(other.Output(Repeat("#include \"b.mac\"\n", 6) + "test.put(x)\n"), "1");
}

TEST(Limits, IncludesInIncludes) {
    MacroHost host;
    for (int i = 1; i < 5; ++i)
        host.GetFolder().Write(std::to_string(i) + ".mac",
                               "#include \"" + std::to_string(i + 1) + ".mac\"\n");
    host.GetFolder().Write("5.mac", "x = 1\n");
    EXPECT_EQ(host.Output("#include \"2.mac\"\ntest.put(x)\n"), "1");
    EXPECT_EQ(host.Output("#include \"1.mac\"\n"),
              "4.mac(1): error : The nest for \"#include\" is to up to 4 times.\n"
              "3.mac(1): error : Failed to read include file(\"4.mac\")\n"
              "2.mac(1): error : Failed to read include file(\"3.mac\")\n"
              "1.mac(1): error : Failed to read include file(\"2.mac\")\n"
              "a.mac(1): error : Failed to read include file(\"1.mac\")");
}

TEST(Limits, Substitutions) {
    const std::string define = "#define FIVE 1 + 1 + 1\n";
    EXPECT_EQ(Output(define + Repeat("x = FIVE\n", 5) + "test.put(x)\n"), "3");
    EXPECT_EQ(Output(define + Repeat("x = FIVE\n", 6)),
              "a.mac(7): error : The substitution for \"#define\" is to up to 20 tokens.");
    EXPECT_EQ(Output("#define ONE 1\n" + Repeat("x = ONE\n", 50) + "test.put(x)\n"), "1");
}

TEST(Limits, Indexes) {
    EXPECT_EQ(Output("a[7] = 1\ntest.put(a)\n"), "[0, 0, 0, 0, 0, 0, 0, 1]");
    EXPECT_EQ(Output("a[8] = 1\n"),
              "a.mac(1): error : failed to update array variable\na.mac(1): error : run time error !");
    EXPECT_EQ(Output("a[0][0][7] = 1\nb[0][8][0] = 1\n"),
              "a.mac(2): error : failed to update array variable\na.mac(2): error : run time error !");
}

TEST(Limits, IndexesOfStoresInLoops) {
    // What is there may lie beyond the limit all the same, when a command has made it.
    const std::string failed =
        "a.mac(4): error : failed to update array variable\na.mac(4): error : run time error !";
    const auto store = [](const std::string& elements, const std::string& assignment) {
        return Output("a = array.init(" + elements + ")\ni = 6\nloop i < 9\n" + assignment +
                      "\ni = i + 1\nendloop\n");
    };
    const std::string integers = "0" + Repeat(", 0", 8);
    EXPECT_EQ(store(integers, "a[i] = 1"), failed);
    EXPECT_EQ(store(integers, "a[i] = 1.5"), failed);
    EXPECT_EQ(store("0.5" + Repeat(", 0.5", 8), "a[i] = 1.5"), failed);
    EXPECT_EQ(store("\"\"" + Repeat(", \"\"", 8), "a[i] = 1"), failed);
    EXPECT_EQ(store("\"\"" + Repeat(", \"\"", 8), "a[i] = \"x\""), failed);

    const auto storeNested = [](const std::string& assignment) {
        MacroHost host;
        host.GetFolder().Write("a.csv", Repeat("0" + Repeat(",0", 8) + "\n", 9));
        // The rows of the first of two readings belong to the array alone.
        return host.Output(
            "b = 0\ni = 0\nloop i < 2\na = b\nb = system.csvfile_read(\"a.csv\", 1)\ni = i + 1\nendloop\n"
            "i = 6\nloop i < 9\n" +
            assignment + "\ni = i + 1\nendloop\n");
    };
    const std::string nestedFailed =
        "a.mac(10): error : failed to update array variable\na.mac(10): error : run time error !";
    EXPECT_EQ(storeNested("a[1][i] = 1"), nestedFailed);
    EXPECT_EQ(storeNested("a[1][i] = \"x\""), nestedFailed);
    EXPECT_EQ(storeNested("a[i][1] = 1"), nestedFailed);
    EXPECT_EQ(storeNested("a[i][1] = \"x\""), nestedFailed);
}

TEST(Limits, Texts) {
    const std::string longest(32, 'x');
    EXPECT_EQ(Output("x = \"" + longest + "\"\ntest.put(x)\n"), longest);
    EXPECT_EQ(Output("x = \"" + longest + "y\"\n"), "a.mac(1): error : Memory allocation error");
    EXPECT_EQ(Output("x = \"" + longest.substr(1) + "\"\nx = x + 1\ntest.put(x)\n"), longest.substr(1) + "1");
    const std::string failed =
        "a.mac(2): error : Memory allocation error\na.mac(2): error : run time error !";
    EXPECT_EQ(Output("x = \"" + longest + "\"\nx = x + 1\n"), failed);
    EXPECT_EQ(Output("x = \"" + longest.substr(16) + "\"\nx = x + x + \"y\"\n"), failed);
    EXPECT_EQ(Output("x = \"\"\nloop 1 == 1\nx = x + \"1234\"\nendloop\n"),
              "a.mac(3): error : Memory allocation error\na.mac(3): error : run time error !");
}

TEST(Limits, TheTextOfAnArray) {
    EXPECT_EQ(Output("a = array.init(1, 2, 3, 4, 5, 6, 7)\ntest.put(a)\n"), "[1, 2, 3, 4, 5, 6, 7]");
    EXPECT_EQ(Output("a = array.init(10, 20, 30, 40, 50, 60, 70, 80)\ntest.put(a)\n"),
              "[10, 20, 30, 40, 50, 60,...");
}

TEST(Limits, OwnersOfATextAndAnArray) {
    // Past the limit the count sticks, so the values stay whole whoever goes.
    for (const std::string value : {"\"a text of some length, shared\"", "array.init(1, 2)"}) {
        SCOPED_TRACE(value);
        const std::string shown = value.front() == '"' ? value.substr(1, value.size() - 2) : "[1, 2]";
        std::string text = "v = " + value + "\n";
        for (int owners = 1; owners < 12; ++owners) {
            text += "v" + std::to_string(owners) + " = v\n";
            std::string freed;
            for (int i = 1; i < owners; ++i)
                freed += "v" + std::to_string(i) + " = 0\n";
            const std::string last = "v" + std::to_string(owners);
            EXPECT_EQ(Output(text + freed + "v = 0\ntest.put(" + last + ")\n" + last + " = 0\nw = " + value +
                             "\ntest.put(w)\n"),
                      shown + "\n" + shown)
                << owners;
        }
    }
}

TEST(Limits, AWriteToAnArrayWithoutACountCopiesIt) {
    std::string text = "v = array.init(1, 2)\n";
    for (int i = 0; i < 8; ++i)
        text += "v" + std::to_string(i) + " = v\n";
    EXPECT_EQ(Output(text + "v3[0] = 7\nv3[1] = 8\ntest.put(v, v3, v7)\n"), "[1, 2] [7, 8] [1, 2]");
}

}  // namespace
}  // namespace macroengine
