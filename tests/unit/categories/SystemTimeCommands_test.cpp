#include "categories/SystemTimeCommands.h"

#include <chrono>
#include <cstdint>
#include <gtest/gtest.h>
#include <string>

#include "support/CommandCaller.h"

namespace macroengine::test {
namespace {

TEST(GetTimeSerial, GivesTheSecondsSince1970) {
    const auto now = [] {
        const auto time = std::chrono::system_clock::now().time_since_epoch();
        return std::chrono::duration_cast<std::chrono::seconds>(time).count();
    };
    const auto before = now();
    const std::string result = CommandCaller().Call("system.get_time_serial", {});
    const auto after = now();
    ASSERT_EQ(result.substr(0, 8), "integer ");
    const std::int64_t seconds = static_cast<std::uint32_t>(std::stoll(result.substr(8)));
    EXPECT_GE(seconds, before - 1);
    EXPECT_LE(seconds, after);
}

TEST(GetTimeSerial, TakesNoArguments) {
    const CMacroCommonValue assigned = Integer(1);
    EXPECT_EQ(CommandCaller().Call("system.get_time_serial", {Integer(1)}),
              Error("system.get_time_serial() argument error. (argument count is invalid)"));
    EXPECT_EQ(CommandCaller().Call("system.get_time_serial", {}, &assigned),
              Error("assigned value isn't needed at system.get_time_serial()"));
}

TEST(GetTimeLocal, RefusesArguments) {
    const auto call = [](const std::vector<CMacroCommonValue>& arguments) {
        return CommandCaller().Call("system.get_time_local", arguments);
    };
    const std::string name = "system.get_time_local() argument error. ";
    EXPECT_EQ(call({}), Error(name + "(argument count is invalid)"));
    EXPECT_EQ(call({Integer(0)}), Error(name + "(argument count is invalid)"));
    EXPECT_EQ(call({Integer(0), Integer(0), Integer(0)}), Error(name + "(argument count is invalid)"));
    EXPECT_EQ(call({Integer(6), Integer(0)}), Error(name + "(argument[0] is out of range.)"));
    EXPECT_EQ(call({Integer(-1), Integer(0)}), Error(name + "(argument[0] is out of range.)"));
    EXPECT_EQ(call({Text("0"), Integer(0)}), Error(name + "(argument[0] type isn't interger)"));
    EXPECT_EQ(call({Integer(0), Floating(0)}), Error(name + "(argument[1] type isn't interger)"));
    const CMacroCommonValue assigned = Integer(1);
    EXPECT_EQ(CommandCaller().Call("system.get_time_local", {Integer(0), Integer(0)}, &assigned),
              Error("assigned value isn't needed at system.get_time_local()"));
}

}  // namespace
}  // namespace macroengine::test
