#include <cstdint>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include <macroengine/CMacroPropertyIF.h>

#include "api/MacroHost.h"

namespace macroengine {
namespace {

using test::MacroHost;
using test::ProbeCommand;

/// What `x = probe.call()` and `test.put(x)` write when the command sets its result.
std::string ResultOf(const ProbeCommand::Action& action) {
    MacroHost host;
    ProbeCommand probe(action);
    host->RegisterCategory(nullptr, &probe, false);
    return host.Output("x = \"before\"\nx = probe.call()\ny = system.get_variable_type(x)\ntest.put(y, x)\n");
}

TEST(PropertyResult, EachSetterMakesAValueOfItsKind) {
    const int integers[] = {1, -2, INT32_MIN};
    const double floats[] = {0.5, -1.5};
    const char* const texts[] = {"a", "", "c \"quoted\""};
    using Property = CMacroPropertyIF;
    const struct {
        ProbeCommand::Action action;
        const char* expected;
    } cases[] = {
        {[](Property* property) { return property->SetResultInteger(INT32_MIN); }, "0 -2147483648"},
        {[](Property* property) { return property->SetResultFloating(2.5); }, "1 2.5"},
        {[](Property* property) { return property->SetResultString("text"); }, "2 text"},
        {[](Property* property) { return property->SetResultString(""); }, "2 "},
        {[](Property* property) { return property->SetResultString(nullptr); }, "2 "},
        {[](Property* property) { return property->SetResultBoolean(true); }, "3 true"},
        {[](Property* property) { return property->SetResultBoolean(false); }, "3 false"},
        {[&](Property* property) { return property->SetResultIntegerArray(3, integers); },
         "6 [1, -2, -2147483648]"},
        {[&](Property* property) { return property->SetResultFloatingArray(2, floats); }, "6 [0.5, -1.5]"},
        {[&](Property* property) { return property->SetResultStringArray(3, texts); },
         R"(6 ["a", "", "c \"quoted\""])"},
        {[&](Property* property) { return property->SetResultIntegerArray(1, integers); }, "6 [1]"},
        // The last one stays.
        {[](Property* property) {
             return property->SetResultString("first") && property->SetResultInteger(2);
         },
         "0 2"},
        {[&](Property* property) {
             return property->SetResultBoolean(true) && property->SetResultIntegerArray(2, integers);
         },
         "6 [1, -2]"},
        // An array of nothing is not set at all.
        {[&](Property* property) {
             return property->SetResultInteger(5) && property->SetResultIntegerArray(0, integers) &&
                    property->SetResultFloatingArray(0, floats) && property->SetResultStringArray(0, texts);
         },
         "0 5"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(ResultOf(c.action), c.expected);
}

TEST(PropertyResult, WithoutOneThereIsNothingToAssign) {
    const char* const nothing =
        "a.mac(2): error : invalied destination value in assign statement.\na.mac(2): error : run time error "
        "!";
    const int integers[] = {1};
    EXPECT_EQ(ResultOf([](CMacroPropertyIF*) { return true; }), nothing);
    EXPECT_EQ(
        ResultOf([&](CMacroPropertyIF* property) { return property->SetResultIntegerArray(0, integers); }),
        nothing);
}

TEST(PropertyResult, IsNotLeftFromTheCallBefore) {
    MacroHost host;
    int calls = 0;
    ProbeCommand probe(
        [&](CMacroPropertyIF* property) { return ++calls > 1 || property->SetResultInteger(1); });
    host->RegisterCategory(nullptr, &probe, false);
    EXPECT_EQ(host.Output("i = 0\nloop i < 2\nx = probe.call()\ntest.put(x)\ni = i + 1\nendloop\n"),
              "1\na.mac(3): error : invalied destination value in assign statement.\n"
              "a.mac(3): error : run time error !");
}

TEST(PropertyMessages, EachIsALineWithThePlaceOfTheCall) {
    MacroHost host;
    ProbeCommand probe([](CMacroPropertyIF* property) {
        EXPECT_TRUE(property->AddErrorMessage("first"));
        EXPECT_TRUE(property->AddErrorMessage(""));
        EXPECT_TRUE(property->AddErrorMessage(nullptr));
        EXPECT_TRUE(property->AddErrorMessage("error : last"));
        return false;
    });
    host->RegisterCategory(nullptr, &probe, false);
    host.GetFolder().Write("inner.mac", "\n\nx = probe.call(1)\n");
    EXPECT_EQ(host.Output("#include \"inner.mac\"\n"),
              "inner.mac(3): error : first\ninner.mac(3): error : \ninner.mac(3): error : \n"
              "inner.mac(3): error : error : last\ninner.mac(3): error : run time error !");
}

TEST(PropertyMessages, OfACallThatSucceedsAreDropped) {
    MacroHost host;
    ProbeCommand probe([](CMacroPropertyIF* property) {
        int value = 0;
        property->GetArgInteger(5, 0, 0, value);
        return property->AddErrorMessage("never mind");
    });
    host->RegisterCategory(nullptr, &probe, false);
    EXPECT_EQ(host.Output("probe.call()\n"), "");
}

TEST(PropertyMessages, NameTheCommandThatRuns) {
    MacroHost host;
    ProbeCommand bare([](CMacroPropertyIF* property) { return property->CheckArgumentCount(1, 1) > 0; },
                      "measure", "now");
    host->RegisterCategory(nullptr, &bare, true);
    EXPECT_EQ(host.Output("measure()\n"),
              "a.mac(1): error : measure.now() argument error. (argument count is invalid)\n"
              "a.mac(1): error : run time error !");
}

TEST(PropertyPlaces, TheCallKnowsItsFileFolderAndLine) {
    MacroHost host;
    std::string seen;
    ProbeCommand probe([&](CMacroPropertyIF* property) {
        seen = std::string(property->GetFileName()) + "|" + property->GetMacroFolder() + "|" +
               std::to_string(property->GetLineNumber());
        return true;
    });
    host->RegisterCategory(nullptr, &probe, false);
    const std::string folder = host.GetFolder().Path() + "/";
    EXPECT_EQ(host.Output("\n\n\nprobe.call()\n"), "");
    EXPECT_EQ(seen, folder + "a.mac|" + folder + "|4");
    // As the host wrote the path, not as the system would.
    ASSERT_TRUE(host->Load((host.GetFolder().Path() + "\\.\\a.mac").c_str()));
    ASSERT_TRUE(host->Run());
    EXPECT_EQ(seen, host.GetFolder().Path() + "\\.\\a.mac|" + host.GetFolder().Path() + "\\.\\|4");
}

TEST(PropertyPlaces, PathsAreCompletedAndNormalized) {
    MacroHost host;
    std::vector<std::string> seen;
    ProbeCommand probe([&](CMacroPropertyIF* property) {
        for (const char* path : {"b.txt", "sub\\\\b.txt", "/b.txt", "D:\\\\b.txt", "\\b.txt", ""}) {
            seen.emplace_back(property->GetFullPathFromWorkFolder(path));
            seen.emplace_back(property->GetFullPathFromMacroFolder(path));
        }
        seen.emplace_back(property->GetFullPathFromWorkFolder(nullptr));
        seen.emplace_back(property->GetFullPathFromMacroFolder(nullptr));
        return true;
    });
    host->RegisterCategory(nullptr, &probe, false);
    host->SetWorkDirectory("C:\\work");
    EXPECT_EQ(host.Output("probe.call()\n"), "");
    const std::string folder = host.GetFolder().Path() + "/\\";
    const std::vector<std::string> expected = {
        "C:\\work\\b.txt",
        folder + "b.txt",
        "C:\\work\\sub\\b.txt",
        folder + "sub\\b.txt",
        "/b.txt",
        "/b.txt",
        "D:\\b.txt",
        "D:\\b.txt",
        "\\b.txt",
        "\\b.txt",
        "C:\\work\\",
        folder,
        "C:\\work\\",
        folder,
    };
    EXPECT_EQ(seen, expected);
}

TEST(PropertyPlaces, BackslashesAreDoubledAndUndone) {
    MacroHost host;
    std::vector<std::string> seen;
    ProbeCommand probe([&](CMacroPropertyIF* property) {
        const char* const texts[] = {"", "a", "C:\\m\\a.mac", "\\\\server\\share", nullptr};
        for (const char* text : texts) {
            const char* const escaped = property->EscapeBackslash(text);
            seen.emplace_back(escaped);
            seen.emplace_back(property->NormalizePath(escaped));
        }
        seen.emplace_back(property->NormalizePath(nullptr));
        seen.emplace_back(property->NormalizePath("\\\\server\\\\share"));
        return true;
    });
    host->RegisterCategory(nullptr, &probe, false);
    EXPECT_EQ(host.Output("probe.call()\n"), "");
    const std::vector<std::string> expected = {"",
                                               "",
                                               "a",
                                               "a",
                                               "C:\\\\m\\\\a.mac",
                                               "C:\\m\\a.mac",
                                               "\\\\\\\\server\\\\share",
                                               "\\\\server\\share",
                                               "",
                                               "",
                                               "",
                                               "\\server\\share"};
    EXPECT_EQ(seen, expected);
}

/// A plug-in may wrap the interface, and so derive from it.
class Wrapper : public CMacroPropertyIF {
public:
    explicit Wrapper(CMacroPropertyIF* wrapped) : wrapped_(wrapped) {}

    int CheckArgumentCount(unsigned int, unsigned int) override { return 1; }
    bool GetArgInteger(unsigned int, unsigned int, unsigned int, int& value) override {
        value = 6;
        return true;
    }
    const char* GetArgString(unsigned int) override { return "wrapped"; }
    bool GetAssignedInteger(unsigned int, unsigned int, int&) override { return false; }
    bool GetAssignedFloating(double, double, double&) override { return false; }
    bool CheckNoAssignedValue(bool) override { return true; }
    const char* GetMacroFolder() override { return ""; }
    const char* GetFileName() override { return ""; }
    unsigned int GetLineNumber() override { return 1; }
    bool SetResultStringArray(int, const char* const*) override { return true; }
    bool SetResultFloatingArray(int, const double*) override { return true; }
    bool SetResultIntegerArray(int, const int*) override { return true; }
    bool SetResultString(const char* text) override { return wrapped_->SetResultString(text); }
    bool SetResultFloating(double) override { return true; }
    bool SetResultInteger(int) override { return true; }
    bool SetResultBoolean(bool) override { return true; }
    bool AddErrorMessage(const char*) override { return true; }
    const char* GetWorkFolder() override { return ""; }
    const char* GetFullPathFromWorkFolder(const char*) override { return ""; }
    const char* EscapeBackslash(const char*) override { return ""; }
    const char* GetFullPathFromMacroFolder(const char*) override { return ""; }
    const char* NormalizePath(const char*) override { return ""; }
    bool GetArgFloating(unsigned int, double, double, double&) override { return false; }
    int GetArgArraySize(unsigned int) override { return -1; }
    bool GetArgArrayInteger(unsigned int, unsigned int, int&) override { return false; }
    bool GetArgArrayFloating(unsigned int, unsigned int, double&) override { return false; }
    const char* GetArgArrayString(unsigned int, unsigned int) override { return nullptr; }
    int GetAssignedArraySize() override { return -1; }
    bool GetAssignedArrayInteger(unsigned int, int&) override { return false; }
    bool GetAssignedArrayFloating(unsigned int, double&) override { return false; }
    const char* GetAssignedArrayString(unsigned int) override { return nullptr; }
    int GetArgType(unsigned int) override { return 0; }

private:
    CMacroPropertyIF* wrapped_;
};

TEST(PropertyInterface, ACommandMayRunAnotherWithAnObjectOfItsOwn) {
    MacroHost host;
    CMacroCategoryBase* const toDecimal = host->FindCommand("string", "int2dec");
    ASSERT_NE(toDecimal, nullptr);
    ProbeCommand probe([&](CMacroPropertyIF* property) {
        Wrapper wrapper(property);
        EXPECT_EQ(FormatMacroArgument(&wrapper, 0), nullptr);
        return toDecimal->Run(&wrapper);
    });
    host->RegisterCategory(nullptr, &probe, false);
    EXPECT_EQ(host.Output("x = probe.call()\ntest.put(x)\n"), "6");
}

}  // namespace
}  // namespace macroengine
