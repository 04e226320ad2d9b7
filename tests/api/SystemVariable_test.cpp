#include "macroengine/SystemVariable.h"

#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <string>

#include "macroengine/CMacroFileIF.h"

namespace {

/// Runs a macro of the given lines and returns its error lines.
std::string RunMacro(const std::string& text) {
    const std::string path =
        (std::filesystem::temp_directory_path() / "macroengine-system-variable.mac").string();
    std::ofstream(path) << text;
    CMacroFileIF* file = CreateMacroFileNoRegisterRequest("", false);
    std::string lines;
    if (!file->Load(path.c_str()) || !file->Run()) lines = "failed\n";
    for (std::uint32_t i = 0; i < file->GetErrorCount(); ++i)
        lines.append(file->GetErrorMessage(i)).append("\n");
    DeleteMacroFile(file);
    std::remove(path.c_str());
    return lines;
}

TEST(SystemVariable, MacrosAndTheHostShareThem) {
    EXPECT_TRUE(SetSystemVariable("MACROENGINE_API_TEST_IN", 20L));
    EXPECT_EQ(RunMacro("x = system.variable(\"MACROENGINE_API_TEST_IN\")\n"
                       "x = x + 1\n"
                       "system.variable(\"MACROENGINE_API_TEST_OUT\") = x\n"
                       "system.variable(\"MACROENGINE_API_TEST_REAL\") = 2.0\n"),
              "");
    long integer = 0;
    double floating = 0.0;
    EXPECT_TRUE(GetSystemVariable("MACROENGINE_API_TEST_OUT", integer));
    EXPECT_EQ(integer, 21);
    EXPECT_FALSE(GetSystemVariable("MACROENGINE_API_TEST_OUT", floating));
    EXPECT_TRUE(GetSystemVariable("MACROENGINE_API_TEST_REAL", floating));
    EXPECT_EQ(floating, 2.0);
    EXPECT_FALSE(GetSystemVariable("MACROENGINE_API_TEST_REAL", integer));
}

TEST(SystemVariable, OneThatIsNotSetIsTheIntegerZero) {
    long integer = 4711;
    double floating = 47.11;
    EXPECT_TRUE(GetSystemVariable("MACROENGINE_API_TEST_UNSET", integer));
    EXPECT_EQ(integer, 0);
    EXPECT_FALSE(GetSystemVariable("MACROENGINE_API_TEST_UNSET", floating));
    EXPECT_EQ(floating, 47.11);
}

TEST(SystemVariable, ANameMayBeRefused) {
    EXPECT_FALSE(SetSystemVariable("", 1L));
    EXPECT_FALSE(SetSystemVariable("a=b", 1.5));
}

}  // namespace
