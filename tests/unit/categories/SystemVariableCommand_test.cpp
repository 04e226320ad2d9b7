#include "categories/SystemVariableCommand.h"

#include <gtest/gtest.h>
#include <string>

#include "platform/Environment.h"
#include "support/CommandCaller.h"

namespace macroengine::test {
namespace {

const std::string kName = "MACROENGINE_COMMAND_TEST";

std::string Get(const std::string& name) {
    return CommandCaller().Call("system.variable", {Text(name)});
}

std::string Set(const std::string& name, const CMacroCommonValue& value) {
    return CommandCaller().Call("system.variable", {Text(name)}, &value);
}

TEST(SystemVariableCommand, SetsWhatIsAssignedAndGetsItBack) {
    EXPECT_EQ(Set(kName, Integer(-7)), "none");
    EXPECT_EQ(platform::GetEnvironmentText(kName), "-7");
    EXPECT_EQ(Get(kName), "integer -7");
    EXPECT_EQ(Set(kName, Floating(2.0)), "none");
    EXPECT_EQ(platform::GetEnvironmentText(kName), "2.000000");
    EXPECT_EQ(Get(kName), "floating 2");
    EXPECT_EQ(Get("MACROENGINE_COMMAND_TEST_UNSET"), "integer 0");
}

TEST(SystemVariableCommand, RefusesWhatTheStoreDoesNotHold) {
    EXPECT_EQ(Set(kName, Integer(1)), "none");
    for (const CMacroCommonValue& value :
         {Text("5"), Boolean(true), ArrayOf({Integer(1)}), CMacroCommonValue()})
        EXPECT_EQ(Set(kName, value), Error("Assigned value is invalid."));
    EXPECT_EQ(Get(kName), "integer 1");
    EXPECT_EQ(Set("a=b", Integer(1)), Error("Can't set variable [a=b]"));
    EXPECT_EQ(Set("a=b", Floating(1)), Error("Can't set variable [a=b]"));
    platform::SetEnvironmentText(kName, "text");
    EXPECT_EQ(Get(kName), Error("Can't get variable [" + kName + "]"));
}

TEST(SystemVariableCommand, RefusesArguments) {
    const std::string name = "system.variable() argument error. ";
    CommandCaller caller;
    EXPECT_EQ(caller.Call("system.variable", {}), Error(name + "(argument count is invalid)"));
    EXPECT_EQ(caller.Call("system.variable", {Text("a"), Text("b")}),
              Error(name + "(argument count is invalid)"));
    EXPECT_EQ(caller.Call("system.variable", {Integer(1)}), Error(name + "(argument[0] type isn't string)"));
    EXPECT_EQ(Get(""), Error("Error: variable name is null string"));
    EXPECT_EQ(Set("", Integer(1)), Error("Error: variable name is null string"));
}

TEST(SystemVariableCommand, StatesItsOwnNamesAndFlags) {
    const CMacroCategorySystem_Variable command;
    EXPECT_STREQ(command.GetCategoryName(), "system");
    EXPECT_STREQ(command.GetPropertyName(), "variable");
    EXPECT_STREQ(command.GetNameSpace(), "");
    EXPECT_TRUE(command.CanAssignSrc());
    EXPECT_TRUE(command.CanAssignDest());
}

}  // namespace
}  // namespace macroengine::test
