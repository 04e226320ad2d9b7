#include <gtest/gtest.h>
#include <string>
#include <vector>

#include <macroengine/CMacroFileIF.h>
#include <macroengine/MacroCalls.h>

#include "support/TemporaryFolder.h"

namespace {

std::string Describe(const MacroCallArgument& argument) {
    switch (argument.type) {
        case 0:
            return std::to_string(argument.integer);
        case 1:
            return std::to_string(argument.floating);
        case 2:
            return "\"" + std::string(argument.text) + "\"";
        default:
            return argument.type == 8 ? "?" : "type " + std::to_string(argument.type);
    }
}

std::string Describe(const MacroCall& call) {
    std::string text =
        std::string(call.file) + "(" + std::to_string(call.line) + ") " + call.category + "." + call.command;
    for (unsigned int i = 0; i < call.argumentCount; ++i)
        text += " " + Describe(call.arguments[i]);
    if (call.assigned != nullptr) text += " = " + Describe(*call.assigned);
    return text;
}

bool Gather(const MacroCall& call, void* context) {
    static_cast<std::vector<std::string>*>(context)->push_back(Describe(call));
    return true;
}

bool StopAtFirst(const MacroCall&, void* context) {
    ++*static_cast<int*>(context);
    return false;
}

class MacroCallsTest : public testing::Test {
protected:
    ~MacroCallsTest() override { DeleteMacroFile(file_); }

    std::string Write(const std::string& name, const std::string& text) { return folder_.Write(name, text); }

    macroengine::test::TemporaryFolder folder_;
    CMacroFileIF* file_ = CreateMacroFileNoRegisterRequest("", false);
};

TEST_F(MacroCallsTest, CallsComeInTheOrderOfTheProgramWithTheirLiterals) {
    const std::string inner = Write("inner.mac", "wait_ms(1)\n");
    const std::string path = Write("calls.mac",
                                   "x = 5\n"
                                   "t = string.int2hex(x, 4)\n"
                                   "#include \"inner.mac\"\n"
                                   "if x == 5\n"
                                   "    t = string.format(\"%f\", -1.5)\n"
                                   "endif\n"
                                   "using.namespace\n"
                                   "system.variable(\"name\") = 7\n");
    ASSERT_TRUE(file_->Load(path.c_str()));
    std::vector<std::string> calls;
    EXPECT_TRUE(VisitMacroCalls(file_, Gather, &calls));
    EXPECT_EQ(calls, (std::vector<std::string>{
                         path + "(2) string.int2hex ? 4",
                         inner + "(1) wait_ms.wait_ms 1",
                         path + "(5) string.format \"%f\" -1.500000",
                         path + "(7) using.namespace",
                         path + "(8) system.variable \"name\" = 7",
                     }));
}

TEST_F(MacroCallsTest, AVisitorThatReturnsFalseEndsTheVisit) {
    ASSERT_TRUE(file_->Load(Write("calls.mac", "wait_ms(1)\nwait_ms(2)\n").c_str()));
    int visits = 0;
    EXPECT_FALSE(VisitMacroCalls(file_, StopAtFirst, &visits));
    EXPECT_EQ(visits, 1);
}

TEST_F(MacroCallsTest, AFileWithoutCallsIsVisitedWhole) {
    std::vector<std::string> calls;
    EXPECT_TRUE(VisitMacroCalls(file_, Gather, &calls));
    EXPECT_TRUE(calls.empty());
}

TEST_F(MacroCallsTest, NullIsRefused) {
    EXPECT_FALSE(VisitMacroCalls(nullptr, Gather, nullptr));
    EXPECT_FALSE(VisitMacroCalls(file_, nullptr, nullptr));
}

}  // namespace
