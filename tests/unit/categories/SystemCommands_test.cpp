#include "categories/SystemCommands.h"

#include <gtest/gtest.h>
#include <string>

#include "support/CommandCaller.h"

namespace macroengine::test {
namespace {

TEST(SystemAbort, ReportsItsTextAndFails) {
    CommandCaller caller;
    EXPECT_EQ(caller.Call("system.abort", {Text("no supply")}), Error("no supply"));
    EXPECT_EQ(caller.ResultOfFailure(), "none");
    EXPECT_EQ(caller.Call("system.abort", {Text("")}), Error(""));
}

TEST(SystemAbort, WithoutATextFailsSilently) {
    CommandCaller caller;
    for (const CMacroCommonValue& argument :
         {Integer(1), Floating(1.5), Boolean(true), ArrayOf({Text("a")})}) {
        EXPECT_EQ(caller.Call("system.abort", {argument}), "failed");
        EXPECT_EQ(caller.ResultOfFailure(), "text \"\"");
    }
}

TEST(SystemAbort, NeedsOneArgument) {
    const std::string count = Error("system.abort() argument error. (argument count is invalid)");
    EXPECT_EQ(CommandCaller().Call("system.abort", {}), count);
    EXPECT_EQ(CommandCaller().Call("system.abort", {Text("a"), Text("b")}), count);
}

TEST(GetVariableType, GivesTheNumberOfTheKind) {
    CommandCaller caller;
    EXPECT_EQ(caller.Call("system.get_variable_type", {Integer(5)}), "integer 0");
    EXPECT_EQ(caller.Call("system.get_variable_type", {Floating(5)}), "integer 1");
    EXPECT_EQ(caller.Call("system.get_variable_type", {Text("")}), "integer 2");
    EXPECT_EQ(caller.Call("system.get_variable_type", {Boolean(false)}), "integer 3");
    EXPECT_EQ(caller.Call("system.get_variable_type", {ArrayOf({})}), "integer 6");
    EXPECT_EQ(caller.Call("system.get_variable_type", {CMacroCommonValue()}), "integer -1");
}

TEST(GetVariableType, NeedsOneArgument) {
    const std::string count = Error("system.get_variable_type() argument error. (argument count is invalid)");
    CommandCaller caller;
    EXPECT_EQ(caller.Call("system.get_variable_type", {}), count);
    EXPECT_EQ(caller.ResultOfFailure(), "text \"\"");
    EXPECT_EQ(caller.Call("system.get_variable_type", {Integer(1), Integer(2)}), count);
}

}  // namespace
}  // namespace macroengine::test
