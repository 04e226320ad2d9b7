#include <cstdio>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <string>

#include "macroengine/CMacroFileIF.h"
#include "macroengine/SystemVariable.h"

namespace {

TEST(RangeIndicator, ARunDoesNotHearOfTheRunBefore) {
    const std::string path =
        (std::filesystem::temp_directory_path() / "macroengine-range-indicator.mac").string();
    std::ofstream(path) << "large = system.variable(\"MACROENGINE_API_TEST_LARGE\")\n"
                           "if large == 1\n"
                           "    x = string.str2dec(\"4294967296\")\n"
                           "endif\n"
                           "x = string.str2dec(\"5\")\n";
    CMacroFileIF* file = CreateMacroFileNoRegisterRequest("", false);
    CMacroFileIF* other = CreateMacroFileNoRegisterRequest("", false);
    EXPECT_TRUE(file->Load(path.c_str()));
    EXPECT_TRUE(other->Load(path.c_str()));
    file->SetErrorHandling(false, nullptr, 0);
    SetSystemVariable("MACROENGINE_API_TEST_LARGE", 1L);
    EXPECT_FALSE(file->Run());
    ASSERT_EQ(file->GetErrorCount(), 4U);
    EXPECT_EQ(file->GetErrorMessage(0), path + "(3): error : Error: 4294967296 is out of range");
    EXPECT_EQ(file->GetErrorMessage(2), path + "(5): error : Error: 5 is out of range");

    SetSystemVariable("MACROENGINE_API_TEST_LARGE", 0L);
    EXPECT_TRUE(other->Run());
    EXPECT_TRUE(file->Run());
    DeleteMacroFile(other);
    DeleteMacroFile(file);
    std::remove(path.c_str());
}

}  // namespace
