#include "categories/FormatDirective.h"

#include <clocale>
#include <cstdint>
#include <gtest/gtest.h>
#include <limits>
#include <string>

namespace macroengine {
namespace {

using Value = FormatDirective::Value;

/// @return the text, "unsuited" for a format that is refused, "too long" for a text that does not fit.
template <class Argument>
std::string Write(const std::string& format, Value kind, Argument value) {
    FormatDirective directive;
    if (!directive.Parse(format, kind)) return "unsuited";
    std::string text;
    return directive.Format(value, text) ? text : "too long";
}

std::string Write(const std::string& format, std::int32_t value) {
    return Write(format, Value::Integer, value);
}
std::string Write(const std::string& format, double value) {
    return Write(format, Value::Floating, value);
}
std::string Write(const std::string& format, const char* value) {
    return Write(format, Value::String, value);
}

TEST(FormatDirective, WritesAnInteger) {
    const struct {
        const char* format;
        std::int32_t value;
        const char* expected;
    } cases[] = {
        {"%d", 42, "42"},
        {"%i", -42, "-42"},
        {"%5d|", 42, "   42|"},
        {"%-5d|", 42, "42   |"},
        {"%05d", 42, "00042"},
        {"%05d", -42, "-0042"},
        {"%+d", 42, "+42"},
        {"% d", 42, " 42"},
        {"%+05d", 42, "+0042"},
        {"%-05d|", 42, "42   |"},
        {"%.5d", 42, "00042"},
        {"%8.5d", -42, "  -00042"},
        {"%.0d", 0, ""},
        {"%.d", 0, ""},
        {"%u", -1, "4294967295"},
        {"%o", 8, "10"},
        {"%#o", 8, "010"},
        {"%x", -1, "ffffffff"},
        {"%X", 48879, "BEEF"},
        {"%#x", 255, "0xff"},
        {"%#010X", 255, "0X000000FF"},
        {"%c", 'A', "A"},
        {"%3c|", 'A', "  A|"},
        {"%-3c|", 'A', "A  |"},
        {"%hd", 70000, "4464"},
        {"%hd", 32768, "-32768"},
        {"%hu", -1, "65535"},
        {"%hhd", 300, "44"},
        {"%hhx", -1, "ff"},
        {"%ld", INT32_MIN, "-2147483648"},
        {"%lu", -1, "4294967295"},
        {"%lX", -1, "FFFFFFFF"},
        {"%08lX", 1, "00000001"},
        {"%d", INT32_MIN, "-2147483648"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(Write(c.format, c.value), c.expected) << c.format;
}

TEST(FormatDirective, WritesAFloatingValue) {
    const double infinity = std::numeric_limits<double>::infinity();
    const struct {
        const char* format;
        double value;
        const char* expected;
    } cases[] = {
        {"%f", 3.5, "3.500000"},
        {"%F", infinity, "INF"},
        {"%.2f", 3.14159, "3.14"},
        {"%.0f", 2.5, "2"},
        {"%#.0f", 2.5, "2."},
        {"%8.3f|", -1.5, "  -1.500|"},
        {"%-8.3f|", 1.5, "1.500   |"},
        {"%08.3f", -1.5, "-001.500"},
        {"%+.1f", 1.25, "+1.2"},
        {"% .1f", 1.0, " 1.0"},
        {"%e", 12345.678, "1.234568e+04"},
        {"%.2E", 0.00012, "1.20E-04"},
        {"%g", 0.0001, "0.0001"},
        {"%g", 1e-5, "1e-05"},
        {"%G", 1e20, "1E+20"},
        {"%.3g", 1234.5, "1.23e+03"},
        {"%#g", 1.0, "1.00000"},
        {"%a", 1.0, "0x1p+0"},
        {"%A", 0.5, "0X1P-1"},
        {"%.1a", 1.0, "0x1.0p+0"},
        {"%f", infinity, "inf"},
        {"%5.1f", -infinity, " -inf"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(Write(c.format, c.value), c.expected) << c.format;
}

TEST(FormatDirective, WritesAText) {
    const struct {
        const char* format;
        const char* value;
        const char* expected;
    } cases[] = {
        {"%s", "abc", "abc"},
        {"%s", "", ""},
        {"%5s|", "abc", "  abc|"},
        {"%-5s|", "abc", "abc  |"},
        {"%.2s", "abc", "ab"},
        {"%.0s", "abc", ""},
        {"%.s", "abc", ""},
        {"%5.1s|", "abc", "    a|"},
        {"%.9s", "abc", "abc"},
        {"%s", "%d%n", "%d%n"},
        {"<%s>", "\x83\\", "<\x83\\>"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(Write(c.format, c.value), c.expected) << c.format;
}

TEST(FormatDirective, PercentSignsAndOtherTextAreFree) {
    const struct {
        const char* format;
        const char* expected;
    } cases[] = {
        {"", ""},
        {"plain", "plain"},
        {"%%", "%"},
        {"%%d", "%d"},
        {"%%%d", "%7"},
        {"%d%%", "7%"},
        {"%%%%%d%%%%", "%%7%%"},
        {"a%%b%dc%%d", "a%b7c%d"},
        {"\\n %d \t", "\\n 7 \t"},
        {"\xFF%d\x83\\",
         "\xFF"
         "7\x83\\"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(Write(c.format, 7), c.expected) << c.format;
    EXPECT_EQ(Write("100%%", 1.5), "100%");
    EXPECT_EQ(Write("100%%", "s"), "100%");
}

TEST(FormatDirective, AConversionHasToSuitTheValue) {
    const std::string conversions = "diouxXceEfFgGaAsnpSCm";
    for (const char conversion : conversions) {
        const std::string format = std::string("%") + conversion;
        const bool isInteger = std::string("diouxXc").find(conversion) != std::string::npos;
        const bool isFloating = std::string("eEfFgGaA").find(conversion) != std::string::npos;
        EXPECT_EQ(Write(format, 65) == "unsuited", !isInteger) << format;
        EXPECT_EQ(Write(format, 65.0) == "unsuited", !isFloating) << format;
        EXPECT_EQ(Write(format, "65") == "unsuited", conversion != 's') << format;
    }
}

TEST(FormatDirective, AnyOtherFormatIsRefused) {
    const char* const formats[] = {
        "%",     "%%%",   "100%",  "% ",    "%5",   "%.",   "%.5",     "%-",    "%l",  "%h",   "%hh",
        "%d%d",  "%d %d", "%d%",   "%d%s",  "%d%n", "%n",   "%hn",     "%lln",  "%*d", "%.*d", "%-*d",
        "%*.*d", "%1$d",  "%lld",  "%hhhd", "%lhd", "%qd",  "%jd",     "%zd",   "%td", "%Ld",  "%I64d",
        "%'d",   "%5 d",  "%.-5d", "%..5d", "%y",   "%k",   "%1.2.3d", "%\xFF", "%D",  "%U",   "%O",
        "%p",    "%m",    "%w",    "%b",    "%\\d", "% %d", "%5%",     "%-%",
    };
    for (const char* format : formats) {
        EXPECT_EQ(Write(format, 1), "unsuited") << format;
        EXPECT_EQ(Write(format, 1.0), "unsuited") << format;
        EXPECT_EQ(Write(format, "1"), "unsuited") << format;
    }
    for (const char* format : {"%s", "%f", "%hs", "%ls", "%hf"})
        EXPECT_EQ(Write(format, 1), "unsuited") << format;
    for (const char* format : {"%s", "%d", "%hf", "%hhf", "%Lf", "%llf"})
        EXPECT_EQ(Write(format, 1.0), "unsuited") << format;
    for (const char* format : {"%d", "%f", "%ls", "%hs", "%c"})
        EXPECT_EQ(Write(format, "1"), "unsuited") << format;
    EXPECT_EQ(Write(std::string("%\0d", 3), 1), "unsuited");
}

TEST(FormatDirective, ATextOf1023CharactersIsTheLongest) {
    const std::string longest(1023, 'x');
    EXPECT_EQ(Write(longest, 1), longest);
    EXPECT_EQ(Write(longest + "x", 1), "too long");
    EXPECT_EQ(Write(longest.substr(1) + "%d", 1), longest.substr(1) + "1");
    EXPECT_EQ(Write(longest.substr(1) + "%d", 12), "too long");
    EXPECT_EQ(Write("%d" + longest, 1), "too long");
    EXPECT_EQ(Write("%s", longest.c_str()), longest);
    EXPECT_EQ(Write("%s", (longest + "x").c_str()), "too long");
    // Two percent signs of the format are one of the text.
    EXPECT_EQ(Write(longest.substr(1) + "%%", 1), longest.substr(1) + "%");
}

TEST(FormatDirective, AWidthOrAPrecisionBeyondTheLongestTextDoesNotFit) {
    const std::string blanks(1022, ' ');
    EXPECT_EQ(Write("%1023d", 7), blanks + "7");
    EXPECT_EQ(Write("%-1023d", 7), "7" + blanks);
    EXPECT_EQ(Write("%.1023d", 7), std::string(1022, '0') + "7");
    EXPECT_EQ(Write("%.1023d", -7), "too long");
    for (const char* format : {"%1024d", "%99999d", "%2147483647d", "%2147483648d", "%99999999999999999999d",
                               "%.1024d", "%.2147483648d", "%.99999999999999999999d", "%-4294967297d"}) {
        EXPECT_EQ(Write(format, 7), "too long") << format;
    }
    EXPECT_EQ(Write("%1023s", "a"), blanks + "a");
    EXPECT_EQ(Write("%1024s", "a"), "too long");
    EXPECT_EQ(Write("%18446744073709551617s", "a"), "too long");
    EXPECT_EQ(Write("%.1021f", 1.0), "1." + std::string(1021, '0'));
    EXPECT_EQ(Write("%.1022f", 1.0), "too long");
    EXPECT_EQ(Write("%.99999999999f", 1.0), "too long");
    EXPECT_EQ(Write("%f", 1e300).size(), 308U);
}

TEST(FormatDirective, APrecisionThatOnlyCutsMayBeOfAnySize) {
    for (const char* format : {"%.1024s", "%.2147483648s", "%.99999999999999999999s", "%.s|"}) {
        EXPECT_EQ(Write(format, "abc"), format[2] == 's' ? "|" : "abc") << format;
    }
    EXPECT_EQ(Write("%.99999999999999999999g", 0.5), "0.5");
    EXPECT_EQ(Write("%.1100g", 0.1), "0.1000000000000000055511151231257827021181583404541015625");
    EXPECT_EQ(Write("%.99999999999999999999s", std::string(1024, 'x').c_str()), "too long");
}

TEST(FormatDirective, TheDecimalPointDoesNotDependOnTheLocale) {
    const std::string before = std::setlocale(LC_ALL, nullptr);
    for (const char* name : {"de_DE.UTF-8", "fr_FR.UTF-8", "C.UTF-8", "C"}) {
        std::setlocale(LC_ALL, name);
        EXPECT_EQ(Write("%.2f", 1234.5), "1234.50");
        EXPECT_EQ(Write("%e", 1.5), "1.500000e+00");
        EXPECT_EQ(Write("%#.0f", 3.0), "3.");
        EXPECT_EQ(Write("%.0f,", 3.0), "3,");
        EXPECT_EQ(Write(",%g,", 0.5), ",0.5,");
        EXPECT_EQ(Write("%a", 1.5), "0x1.8p+0");
    }
    std::setlocale(LC_ALL, before.c_str());
}

}  // namespace
}  // namespace macroengine
