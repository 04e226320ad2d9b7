#include "categories/BuiltinCommands.h"

#include <cstring>
#include <gtest/gtest.h>
#include <string>
#include <typeinfo>

#include "categories/ArrayCommands.h"
#include "categories/CMacroCategoryCmdList.h"
#include "categories/NamespaceCommand.h"
#include "categories/StringCommands.h"
#include "categories/StringConversionCommands.h"
#include "categories/StringSplitCommand.h"
#include "categories/SystemCommands.h"
#include "categories/SystemCsvCommand.h"
#include "categories/SystemFileCommands.h"
#include "categories/SystemProcessCommand.h"
#include "categories/SystemTimeCommands.h"
#include "categories/SystemVariableCommand.h"
#include "categories/WaitCommand.h"

namespace macroengine {
namespace {

struct Expected {
    const char* category;
    const char* command;
    const std::type_info& type;
    bool canAssignSrc;
    bool canAssignDest;
};

const Expected kExpected[] = {
    {"wait_ms", "wait_ms", typeid(CMacroCategoryCmdWaitms_waitms), false, false},
    {"system", "file_write", typeid(CMacroCategoryCmdSystem_FileWrite), false, false},
    {"system", "mkdir", typeid(CMacroCategorySystem_MkDir), false, false},
    {"string", "format", typeid(CMacroCategoryCmdString_Format), true, false},
    {"string", "int2hex", typeid(CMacroCategoryCmdString_int2Hexstr), true, false},
    {"string", "int2dec", typeid(CMacroCategoryCmdString_int2Decstr), true, false},
    {"string", "str2dec", typeid(CMacroCategoryCmdString_Str2Dec), true, false},
    {"string", "hex2dec", typeid(CMacroCategoryCmdString_Hex2Dec), true, false},
    {"string", "str2float", typeid(CMacroCategoryCmdString_Str2Float), true, false},
    {"string", "split", typeid(CMacroCategoryCmdString_Split), true, false},
    {"system", "get_time_local", typeid(CMacroCategorySystem_GetTimeLocal), true, false},
    {"system", "get_time_serial", typeid(CMacroCategorySystem_GetTimeSerial), true, false},
    {"system", "command_exec", typeid(CMacroCategorySystem_CommandExec), true, false},
    {"system", "variable", typeid(CMacroCategorySystem_Variable), true, true},
    {"array", "init", typeid(CMacroCategoryCmdArray_Init), true, false},
    {"array", "max", typeid(CMacroCategoryCmdArray_Max), true, false},
    {"system", "csvfile_read", typeid(CMacroCategorySystem_CsvfileRead), true, false},
    {"system", "abort", typeid(CMacroCategorySystem_Abort), false, false},
    {"system", "get_variable_type", typeid(CMacroCategorySystem_GetVariableType), true, false},
    {"system", "find_file", typeid(CMacroCategorySystemFindFile), true, false},
    {"using", "namespace", typeid(CMacroCategoryUsingNameSpace), false, false},
};

TEST(BuiltinCommands, AreAllThere) {
    const CMacroCategoryCmdList list("");
    for (const Expected& expected : kExpected) {
        const std::string name = std::string(expected.category) + "." + expected.command;
        CMacroCategoryBase* const command = list.FindCommand(expected.category, expected.command);
        ASSERT_NE(command, nullptr) << name;
        EXPECT_TRUE(typeid(*command) == expected.type) << name;
        EXPECT_STREQ(command->GetCategoryName(), expected.category) << name;
        EXPECT_STREQ(command->GetPropertyName(), expected.command) << name;
        EXPECT_STREQ(command->GetNameSpace(), "") << name;
        EXPECT_EQ(command->CanAssignSrc(), expected.canAssignSrc) << name;
        EXPECT_EQ(command->CanAssignDest(), expected.canAssignDest) << name;
    }
}

TEST(BuiltinCommands, OnlyWaitingNeedsNoCommandName) {
    const CMacroCategoryCmdList list("");
    ASSERT_NE(list.FindEntry("wait_ms", "wait_ms"), nullptr);
    EXPECT_EQ(list.FindEntry("wait_ms", ""), list.FindEntry("wait_ms", "wait_ms"));
    for (const char* category : {"string", "array", "system", "using"})
        EXPECT_EQ(list.FindEntry(category, "")->property, "") << category;
}

TEST(BuiltinCommands, ACommandIsFoundByItsNameOnly) {
    const CMacroCategoryCmdList list("");
    EXPECT_NE(list.FindCommand("wait_ms", "wait_ms"), nullptr);
    EXPECT_EQ(list.FindCommand("wait_ms", ""), nullptr);
}

}  // namespace
}  // namespace macroengine
