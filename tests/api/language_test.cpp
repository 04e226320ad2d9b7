#include <gtest/gtest.h>
#include <string>

#include "api/MacroHost.h"

namespace macroengine {
namespace {

using test::MacroHost;

std::string Output(const std::string& text) {
    return MacroHost().Output(text);
}

TEST(Language, Sieve) {
    EXPECT_EQ(Output(R"(
n = 60
i = 0
loop i < n
    composite[i] = 0
    i = i + 1
endloop
i = 2
primes = ""
count = 0
loop i < n
    if composite[i] == 0
        primes = primes + i + " "
        count = count + 1
        j = i * i
        loop j < n
            composite[j] = 1
            j = j + i
        endloop
    endif
    i = i + 1
endloop
test.put(primes, count)
)"),
              "2 3 5 7 11 13 17 19 23 29 31 37 41 43 47 53 59  17");
}

TEST(Language, FibonacciWrapsAt32Bits) {
    EXPECT_EQ(Output(R"(
a = 0
b = 1
i = 0
loop i < 48
    if i >= 45
        test.put(i, a)
    endif
    next = a + b
    a = b
    b = next
    i = i + 1
endloop
)"),
              "45 1134903170\n46 1836311903\n47 -1323752223");
}

TEST(Language, SortsNumbersAndTexts) {
    const std::string sort = R"(
n = array.max(a)
i = 0
loop i < n
    j = 0
    last = n - i - 1
    loop j < last
        k = j + 1
        if a[j] > a[k]
            swap = a[j]
            a[j] = a[k]
            a[k] = swap
        endif
        j = k
    endloop
    i = i + 1
endloop
test.put(a)
)";
    EXPECT_EQ(Output("a = array.init(5, -3, 9, 0, 5, 2147483647, -2147483648, 1)" + sort),
              "[-2147483648, -3, 0, 1, 5, 5, 9, 2147483647]");
    EXPECT_EQ(Output("a = array.init(0.5, -1.5, 100.25, 0.25)" + sort), "[-1.5, 0.25, 0.5, 100.25]");
    EXPECT_EQ(Output("a = array.init(\"pear\", \"apple\", \"Zoo\", \"\", \"app\", \"10\", \"9\")" + sort),
              R"(["", "10", "9", "Zoo", "app", "apple", "pear"])");
    EXPECT_EQ(Output("a = array.init(1)" + sort), "[1]");
}

TEST(Language, MatrixProduct) {
    EXPECT_EQ(Output(R"(
a[0] = array.init(1, 2, 3)
a[1] = array.init(4, 5, 6)
b[0] = array.init(7, 8)
b[1] = array.init(9, 10)
b[2] = array.init(11, 12)
i = 0
loop i < 2
    j = 0
    loop j < 2
        sum = 0
        k = 0
        loop k < 3
            sum = sum + a[i][k] * b[k][j]
            k = k + 1
        endloop
        c[i][j] = sum
        j = j + 1
    endloop
    i = i + 1
endloop
test.put(c)
)"),
              "[[58, 64], [139, 154]]");
}

TEST(Language, BuildsTexts) {
    EXPECT_EQ(Output(R"(
value = 202
text = ""
loop value > 0
    bit = value & 1
    text = bit + text
    value = value >> 1
endloop
test.put(text)
row = 1
loop row <= 4
    line = ""
    column = 0
    loop column < row
        line = line + "*"
        column = column + 1
    endloop
    test.put(line)
    row = row + 1
endloop
hex = string.int2hex(48879, 8)
dec = string.int2dec(42, 6)
all = "<" + hex + "|" + dec + "|" + 2.5 + "|" + -1 + ">"
test.put(all)
)"),
              "11001010\n*\n**\n***\n****\n<0000BEEF|    42|2.5|-1>");
}

TEST(Language, CyclicRedundancyCheck) {
    // There is no exclusive or: it is what or has and and has not.
    EXPECT_EQ(Output(R"(
data = array.init(49, 50, 51, 52, 53, 54, 55, 56, 57)
n = array.max(data)
crc = 0xFFFFFFFF
i = 0
loop i < n
    crc = (crc | data[i]) - (crc & data[i])
    bit = 0
    loop bit < 8
        low = crc & 1
        crc = crc >> 1
        if low == 1
            crc = (crc | 0xEDB88320) - (crc & 0xEDB88320)
        endif
        bit = bit + 1
    endloop
    i = i + 1
endloop
crc = (crc | 0xFFFFFFFF) - (crc & 0xFFFFFFFF)
text = string.int2hex(crc, 8)
test.put(text)
)"),
              "CBF43926");
}

TEST(Language, NumbersOfAllSorts) {
    EXPECT_EQ(Output(R"(
// the greatest common divisor
a = 1071
b = 462
loop b != 0
    rest = a - a / b * b
    a = b
    b = rest
endloop
test.put("gcd", a)
// the length of a sequence of Collatz
n = 27
steps = 0
loop n != 1
    odd = n & 1
    if odd == 1
        n = n * 3 + 1
    else
        n = n / 2
    endif
    steps = steps + 1
endloop
test.put("collatz", steps)
// factorials
f = 1
i = 1
loop i <= 13
    f = f * i
    i = i + 1
endloop
test.put("factorial", f)
// a square root after Newton
x = 2.0
i = 0
loop i < 20
    x = (x + 2 / x) / 2
    i = i + 1
endloop
test.put("integer division on the left", x)
x = 2.0
i = 0
loop i < 20
    x = (x + 2.0 / x) / 2
    i = i + 1
endloop
root = string.format("%.12f", x)
test.put("root", root)
// perfect numbers
n = 2
loop n < 500
    sum = 0
    d = 1
    half = n / 2
    loop d <= half
        rest = n - n / d * d
        if rest == 0
            sum = sum + d
        endif
        d = d + 1
    endloop
    if sum == n
        test.put("perfect", n)
    endif
    n = n + 1
endloop
)"),
              // 13! is 6227020800. The integer quotient 2 / x is 1 from the first turn on, so x comes to 2.
              "gcd 21\ncollatz 111\nfactorial 1932053504\ninteger division on the left 2\n"
              "root 1.414213562373\nperfect 6\nperfect 28\nperfect 496");
}

TEST(Language, BranchesOfEveryKind) {
    EXPECT_EQ(Output(R"(
i = 0
loop i < 7
    if i == 0
        what = "zero"
    elseif i == 1 || i == 2
        what = "few"
    elseif i > 2 && i < 5
        what = "some"
        if i == 4
            what = what + "!"
        endif
    elseif i == 5
    else
        what = "many"
    endif
    test.put(i, what)
    i = i + 1
endloop
loop i < 7
    test.put("never")
endloop
)"),
              "0 zero\n1 few\n2 few\n3 some\n4 some!\n5 some!\n6 many");
}

TEST(Language, AnArrayIsAStackAndAQueue) {
    EXPECT_EQ(Output(R"(
top = 0
i = 0
loop i < 5
    stack[top] = i * i
    top = top + 1
    i = i + 1
endloop
out = ""
loop top > 0
    top = top - 1
    out = out + stack[top] + ","
endloop
test.put(out)
list = array.init("first")
n = array.max(list)
list[n] = "second"
n = array.max(list)
list[n] = 3
test.put(list, n)
)"),
              "16,9,4,1,0,\n[\"first\", \"second\", 3] 2");
}

TEST(LanguageCopies, NobodySeesALaterWrite) {
    EXPECT_EQ(Output(R"(
a = array.init(1, 2)
b = a
b[0] = "b"
c[0] = a
c[1] = a
c[0][1] = "c"
a[1] = "a"
test.put(a, b, c)
d = c[1]
d[0] = "d"
c[1][1] = "x"
test.put(c, d)
)"),
              "[1, \"a\"] [\"b\", 2] [[1, \"c\"], [1, 2]]\n"
              "[[1, \"c\"], [1, \"x\"]] [\"d\", 2]");
    EXPECT_EQ(Output(R"(
s = "base"
t = s
s = s + "1"
u = s
s = s + "2"
t = t + "3"
list[0] = s
s = s + "4"
test.put(s, t, u, list)
)"),
              "base124 base3 base1 [\"base12\"]");
}

TEST(LanguageCopies, AnArrayMayContainItself) {
    EXPECT_EQ(Output(R"(
a = array.init(1, 2)
a[0] = a
test.put(a)
a[1] = a[0]
a[0][1] = a
test.put(a)
a = a[1]
test.put(a)
)"),
              "[[1, 2], 2]\n"
              "[[1, [[1, 2], [1, 2]]], [1, 2]]\n"
              "[1, 2]");
}

TEST(LanguageCopies, WhatACommandWasGivenOrGaveStaysAsItWas) {
    std::string seen;
    MacroHost host;
    test::ProbeCommand probe([&](CMacroPropertyIF* property) {
        const char* const text = property->GetArgString(0);
        const char* const element = property->GetArgArrayString(1, 0);
        if (text == nullptr || element == nullptr) return false;
        seen.append(text).append(" ").append(element).append(";");
        const char* const texts[] = {text, element};
        return property->SetResultStringArray(2, texts);
    });
    host->RegisterCategory(nullptr, &probe, false);
    EXPECT_EQ(
        host.Output(R"(
s = "s"
a[0] = "a"
i = 0
loop i < 3
    r = probe.call(s, a)
    keep[i] = r
    r[0] = "changed"
    s = s + i
    a[0] = a[0] + i
    i = i + 1
endloop
test.put(keep, r, s, a)
)"),
        "[[\"s\", \"a\"], [\"s0\", \"a0\"], [\"s01\", \"a01\"]] [\"changed\", \"a01\"] s012 [\"a012\"]");
    EXPECT_EQ(seen, "s a;s0 a0;s01 a01;");
}

TEST(LanguageSizes, TwoHundredThousandAppendsToOneText) {
    MacroHost host;
    EXPECT_EQ(host.Output(R"(
s = ""
i = 0
loop i < 200000
    s = s + "x"
    i = i + 1
endloop
test.put(s)
)"),
              std::string(200000, 'x'));
}

TEST(LanguageSizes, AnArrayNestedAHundredThousandTimes) {
    EXPECT_EQ(Output(R"(
a = 0
i = 0
loop i < 100000
    a[0] = a
    i = i + 1
endloop
b = a
b[1] = 1
n = array.max(b)
a = 0
b = 0
test.put(a, b, n)
)"),
              "0 0 2");
}

TEST(LanguageSizes, AThousandStatementsAndVariables) {
    std::string text;
    std::string expected;
    for (int i = 0; i < 1000; ++i) {
        const std::string number = std::to_string(i);
        text += "v" + number + " = " + number + " * 2\n";
    }
    text += "test.put(v0, v1, v500, v999)\n";
    EXPECT_EQ(Output(text), "0 2 1000 1998");
}

TEST(LanguageErrors, EachNamesItsFileAndLine) {
    const struct {
        const char* text;
        const char* expected;
    } cases[] = {
        {"x = y\n", "a.mac(1): error : Didn't define valiable name[y]"},
        {"\n\nx = 1\ny = x[0]\n",
         "a.mac(4): error : Valiable name(x[0]) isn't array, or not exist elements."},
        {"a[0] = 1\nx = a[1]\n", "a.mac(2): error : Valiable name(a[1]) isn't exist elements."},
        {"a[0] = 1\nx = a[-1]\n", "a.mac(2): error : Valiable name(a[-1]) isn't exist elements."},
        {"a[0] = 1\nf = 1.0\nx = a[f]\n", "a.mac(3): error : Array subscript isn't integer."},
        {"i = 0 - 1\na[i] = 1\n", "a.mac(2): error : failed to update array variable"},
        {"a[134217728] = 1\n", "a.mac(1): error : failed to update array variable"},
        {"x = 7 / 0\n", "a.mac(1): error : 0 division."},
        {"x = 7 / 0.0\n", "a.mac(1): error : 0 division."},
        {"x = 1.5 & 1\n", "a.mac(1): error : Using \"&\" operator, the statement has to be numerical value."},
        {"x = \"a\" - \"b\"\n",
         "a.mac(1): error : Can't execute subtraction, multiplication or division, because the source values "
         "include both string and integer."},
        {"a[0] = 1\nx = a + 1\n", "a.mac(2): error : Array variable cannot be calculated."},
        {"if \"1\" == 1\nendif\n", "a.mac(1): error : Can't compare string and value."},
        {"a[0] = 1\nif a == a\nendif\n", "a.mac(2): error : Can't compare array"},
        {"loop u < 1\nendloop\n", "a.mac(1): error : Didn't define valiable name[u]"},
        {"test.put(u)\n", "a.mac(1): error : Didn't define valiable name[u]"},
        {"x = test.put(1)\n", "a.mac(1): error : invalied destination value in assign statement."},
        {"system.abort(\"no supply\")\n", "a.mac(1): error : no supply"},
        {"string(1)\n", "a.mac(1): error : Need property name for string() command."},
    };
    for (const auto& c : cases) {
        MacroHost host;
        ASSERT_TRUE(host.Load(c.text)) << c.text << host.TakeErrors();
        EXPECT_FALSE(host->Run());
        const std::string expected = c.expected;
        const std::string place = expected.substr(0, expected.find(" : "));
        EXPECT_EQ(host.TakeErrors(), expected + "\n" + place + " : run time error !") << c.text;
    }
}

TEST(LanguageErrors, AnIncludedFileIsNamedByItself) {
    MacroHost host;
    host.GetFolder().Write("inner.mac", "x = 1\ny = z\n");
    EXPECT_EQ(host.Output("#include \"inner.mac\"\n"),
              "inner.mac(2): error : Didn't define valiable name[z]\ninner.mac(2): error : run time error !");
}

TEST(Language, ANegativeRealTooSmallToRepresentIsMinusZero) {
    const std::string tiny = "0." + std::string(400, '0') + "1";
    EXPECT_EQ(Output("a = -" + tiny + "\nb = \"\" + a\nc = 1.0 -" + tiny + "\ntest.put(a, b, c, " + tiny +
                     ", -0.0)\n"),
              "-0 -0 1 0 -0");
}

TEST(Language, SmallExpressions) {
    EXPECT_EQ(Output(R"(
a = "n=" + 5
b = 5 + "x"
c = 7 / 2
d = 7.0 / 2
e = -6 / 2
f = 1 << 32
g = -1 >> 28
h = 1 + 2.5
i = 2.5 + 1
test.put(a, b, c, d, e, f, g, h, i)
n = 0
if 1 == 1.0
    n = n + 1
endif
if "abc" < "abd" && "ab" < "abc"
    n = n + 2
endif
x = 9
x[3] = 7
m[1][2] = 5
s = "text"
s[1] = "v"
test.put(n, x, m, s)
)"),
              "n=5 5x 3 3.5 2147483645 0 15 3 3.5\n"
              "3 [0, 0, 0, 7] [0, [0, 0, 5]] [0, \"v\"]");
}

}  // namespace
}  // namespace macroengine
