#include "regdef/DisplayTemplate.h"

#include <gtest/gtest.h>

namespace macroengine {
namespace {

std::string Template(std::string_view line, std::size_t start, std::size_t length) {
    std::string displayTemplate = "left over";
    WriteDisplayTemplate(line, start, length, "%d", displayTemplate);
    return displayTemplate;
}

TEST(DisplayTemplate, TheDirectiveTakesThePlaceOfTheValue) {
    EXPECT_EQ(Template("GAIN  12  34 0 8", 6, 2), "GAIN  %d  34 0 8");
    EXPECT_EQ(Template("GAIN 12", 5, 2), "GAIN %d");
}

TEST(DisplayTemplate, EveryOtherPercentSignIsDoubled) {
    EXPECT_EQ(Template("%A% 5% 34 0 8 // 100 %%", 4, 2), "%%A%% %d 34 0 8 // 100 %%%%");
}

TEST(DisplayTemplate, ALineWithoutAValueHasNoDirective) {
    EXPECT_EQ(Template("GAIN", 4, 0), "GAIN");
    EXPECT_EQ(Template("", 0, 0), "");
}

}  // namespace
}  // namespace macroengine
