#include "categories/WaitCommand.h"

#include <chrono>
#include <cstdint>
#include <gtest/gtest.h>
#include <string>

#include "support/CommandCaller.h"

namespace macroengine {
namespace {

using test::ArrayOf;
using test::Boolean;
using test::CommandCaller;
using test::Error;
using test::Floating;
using test::Integer;
using test::Text;

TEST(WaitMs, WaitsAtLeastThatLong) {
    const auto begin = std::chrono::steady_clock::now();
    EXPECT_EQ(CommandCaller().Call("wait_ms", {Integer(30)}), "none");
    EXPECT_GE(std::chrono::steady_clock::now() - begin, std::chrono::milliseconds(30));
}

TEST(WaitMs, ZeroAndNegativeNumbersDoNotWait) {
    // A wait that took such a number for an unsigned one would last for weeks.
    for (const std::int32_t milliseconds : {0, -1, INT32_MIN})
        EXPECT_EQ(CommandCaller().Call("wait_ms", {Integer(milliseconds)}), "none");
}

TEST(WaitMs, MayBeCalledByItsFullName) {
    EXPECT_EQ(CommandCaller().Call("wait_ms.wait_ms", {Integer(0)}), "none");
}

TEST(WaitMs, NeedsOneInteger) {
    CommandCaller caller;
    const std::string count = Error("wait_ms.wait_ms() argument error. (argument count is invalid)");
    EXPECT_EQ(caller.Call("wait_ms", {}), count);
    EXPECT_EQ(caller.Call("wait_ms", {Integer(1), Integer(1)}), count);
    for (const CMacroCommonValue& other : {Floating(1.0), Text("1"), Boolean(true), ArrayOf({Integer(1)})}) {
        EXPECT_EQ(caller.Call("wait_ms", {other}),
                  Error("wait_ms.wait_ms() argument error. (argument[0] type isn't interger)"));
    }
}

TEST(WaitMs, CanNotBeAssignedTo) {
    const CMacroCommonValue assigned = Integer(1);
    EXPECT_EQ(CommandCaller().Call("wait_ms", {Integer(2000000000)}, &assigned),
              Error("assigned value isn't needed at wait_ms.wait_ms()"));
}

}  // namespace
}  // namespace macroengine
