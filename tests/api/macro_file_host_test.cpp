#include <cstdint>
#include <gtest/gtest.h>
#include <stdexcept>
#include <string>
#include <vector>

#include <macroengine/CMacroCategoryBase.h>
#include <macroengine/CMacroFileIF.h>
#include <macroengine/PluginInfo.h>

#include "api/MacroHost.h"

namespace macroengine {
namespace {

using test::MacroHost;
using test::ProbeCommand;

HWND Window(std::uintptr_t number) {
    return reinterpret_cast<HWND>(number);
}

bool Succeed(CMacroPropertyIF*) {
    return true;
}

TEST(MacroFileSettings, ReservedAndLineNotificationHaveNoEffect) {
    MacroHost host;
    host->Reserved();
    EXPECT_TRUE(host->SetLineNotification(0, nullptr, 0));
    EXPECT_TRUE(host->SetLineNotification(1024, Window(1), 1));
    EXPECT_TRUE(host->SetLineNotification(0xFFFFFFFF, Window(~std::uintptr_t{0}), 0xFFFFFFFF));
    EXPECT_EQ(host.Output("test.put(1)\nx = y\n"),
              "1\na.mac(2): error : Didn't define valiable name[y]\na.mac(2): error : run time error !");
    host->Reserved();
    EXPECT_EQ(host->GetErrorCount(), 0U);
}

TEST(MacroFileWorkDirectory, ACommandSeesItResolved) {
    const struct {
        const char* directory;
        std::string expected;
    } cases[] = {
        {nullptr, "<folder>/\\"},
        {"", "<folder>/\\"},
        {"sub", "<folder>/\\sub"},
        {"sub\\", "<folder>/\\sub\\"},
        {"d", "<folder>/\\d"},
        {"/absolute/work", "/absolute/work"},
        {"\\absolute\\work", "\\absolute\\work"},
        {"C:\\work", "C:\\work"},
        {"C:", "C:"},
        {"..", "<folder>/\\.."},
    };
    for (const auto& c : cases) {
        MacroHost host;
        std::string seen;
        ProbeCommand probe([&](CMacroPropertyIF* property) {
            seen = property->GetWorkFolder();
            return true;
        });
        host->RegisterCategory(nullptr, &probe, false);
        EXPECT_TRUE(host->SetWorkDirectory(c.directory));
        ASSERT_TRUE(host.Load("probe.call()\n"));
        std::string expected = c.expected;
        if (expected.front() == '<') expected.replace(0, 8, host.GetFolder().Path());
        for (int i = 0; i < 2; ++i) {
            ASSERT_TRUE(host->Run());
            EXPECT_EQ(seen, expected);
        }
    }
}

TEST(MacroFileWorkDirectory, WithoutOneItIsTheFolderOfTheFile) {
    MacroHost host;
    std::string seen;
    ProbeCommand probe([&](CMacroPropertyIF* property) {
        seen = std::string(property->GetWorkFolder()) + "|" + property->GetFullPathFromWorkFolder("b.txt");
        return true;
    });
    host->RegisterCategory(nullptr, &probe, false);
    ASSERT_TRUE(host.Load("probe.call()\n"));
    ASSERT_TRUE(host->Run());
    const std::string folder = host.GetFolder().Path();
    EXPECT_EQ(seen, folder + "/\\|" + folder + "/\\b.txt");
}

TEST(MacroFileWorkDirectory, IsTakenFromTheLoadedFileNotFromAnIncludedOne) {
    MacroHost host;
    std::vector<std::string> seen;
    ProbeCommand probe([&](CMacroPropertyIF* property) {
        seen.emplace_back(property->GetWorkFolder());
        seen.emplace_back(property->GetMacroFolder());
        seen.emplace_back(property->GetFileName());
        return true;
    });
    host->RegisterCategory(nullptr, &probe, false);
    host.GetFolder().MakeFolder("sub");
    host.GetFolder().Write("sub/inner.mac", "probe.call()\n");
    ASSERT_TRUE(host.Load("#include \"sub/inner.mac\"\nprobe.call()\n"));
    ASSERT_TRUE(host->Run());
    const std::string folder = host.GetFolder().Path() + "/";
    ASSERT_EQ(seen.size(), 6U);
    EXPECT_EQ(seen[0], folder + "\\");
    EXPECT_EQ(seen[3], folder + "\\");
    EXPECT_EQ(seen[4], folder);
    EXPECT_EQ(seen[5], folder + "a.mac");
    EXPECT_EQ(seen[1], folder + "sub/");
}

TEST(MacroFileWorkDirectory, OneThatIsSetDuringARunIsForTheNext) {
    MacroHost host;
    std::string seen;
    ProbeCommand probe([&](CMacroPropertyIF* property) {
        seen += std::string(property->GetWorkFolder()) + ";";
        return host->SetWorkDirectory("/second");
    });
    host->RegisterCategory(nullptr, &probe, false);
    host->SetWorkDirectory("/first");
    ASSERT_TRUE(host.Load("probe.call()\nprobe.call()\n"));
    ASSERT_TRUE(host->Run());
    ASSERT_TRUE(host->Run());
    EXPECT_EQ(seen, "/first;/first;/second;/second;");
}

TEST(MacroFileWorkDirectory, AFailedLoadGivesThePathThatItIsTakenFrom) {
    MacroHost host;
    std::string seen;
    ProbeCommand probe([&](CMacroPropertyIF* property) {
        seen = property->GetWorkFolder();
        return true;
    });
    host->RegisterCategory(nullptr, &probe, false);
    ASSERT_TRUE(host.Load("probe.call()\n"));
    EXPECT_FALSE(host->Load("/nowhere/missing.mac"));
    EXPECT_TRUE(host->Run());
    EXPECT_EQ(seen, "/nowhere/\\");
}

TEST(MacroFileCommands, AreFoundByTheirNames) {
    MacroHost host;
    ProbeCommand probe(Succeed);
    EXPECT_EQ(host->FindCommand("probe", "call"), nullptr);
    EXPECT_TRUE(host->RegisterCategory(nullptr, &probe, false));
    EXPECT_EQ(host->FindCommand("probe", "call"), &probe);
    CMacroCategoryBase* const format = host->FindCommand("string", "format");
    ASSERT_NE(format, nullptr);
    EXPECT_STREQ(format->GetCategoryName(), "string");
    EXPECT_STREQ(format->GetPropertyName(), "format");
    EXPECT_NE(host->FindCommand("wait_ms", "wait_ms"), nullptr);
    const struct {
        const char* category;
        const char* command;
    } unknown[] = {
        {"probe", "Call"},  {"Probe", "call"},  {"probe", ""},      {"", "call"},       {"", ""},
        {"wait_ms", ""},    {"string", ""},     {"probe", nullptr}, {nullptr, "call"},  {nullptr, nullptr},
        {"probe.call", ""}, {"", "probe.call"}, {"string", "str2"}, {"probe.", "call"},
    };
    for (const auto& name : unknown)
        EXPECT_EQ(host->FindCommand(name.category, name.command), nullptr);
}

TEST(MacroFileCommands, RegistrationFollowsItsRules) {
    MacroHost host;
    ProbeCommand first(Succeed);
    ProbeCommand second(Succeed, "probe", "other");
    ProbeCommand again(Succeed);
    ProbeCommand elsewhere(Succeed, "probe", "call", "vendor");
    ProbeCommand unnamed(Succeed, "probe", "");
    EXPECT_FALSE(host->RegisterCategory(nullptr, nullptr, false));
    EXPECT_FALSE(host->RegisterCategory(&first, nullptr, true));
    EXPECT_FALSE(host->RegisterCategory(nullptr, &unnamed, true));
    EXPECT_TRUE(host->RegisterCategory(nullptr, &first, false));
    EXPECT_FALSE(host->RegisterCategory(nullptr, &second, true));
    EXPECT_EQ(host->FindCommand("probe", "other"), nullptr);
    EXPECT_TRUE(host->RegisterCategory(&again, &second, false));
    EXPECT_TRUE(host->RegisterCategory(nullptr, &first, false));
    EXPECT_TRUE(host->RegisterCategory(nullptr, &again, false));
    EXPECT_EQ(host->FindCommand("probe", "call"), &first);
    EXPECT_EQ(host->FindCommand("probe", "other"), &second);
    EXPECT_TRUE(host->RegisterCategory(nullptr, &elsewhere, false));
    EXPECT_EQ(host->FindCommand("probe", "call"), &first);
    EXPECT_EQ(host->GetErrorCount(), 0U);
}

TEST(MacroFileCommands, ABareCallMeansTheFirstCommandOfItsCategory) {
    MacroHost host;
    std::string seen;
    ProbeCommand measure([&](CMacroPropertyIF*) { return !seen.append("measure;").empty(); }, "measure",
                         "now");
    ProbeCommand later([&](CMacroPropertyIF*) { return !seen.append("later;").empty(); }, "measure", "later");
    EXPECT_TRUE(host->RegisterCategory(nullptr, &measure, true));
    EXPECT_TRUE(host->RegisterCategory(nullptr, &later, true));
    EXPECT_EQ(host.Output("measure()\nmeasure.later()\nmeasure.now()\nmeasure(1, 2)\nwait_ms(0)\n"), "");
    EXPECT_EQ(seen, "measure;later;measure;measure;");
}

TEST(MacroFileCommands, TheirFlagsDecideWhereACallMayStand) {
    const struct {
        bool canAssignSrc;
        bool canAssignDest;
        const char* text;
        const char* expected;
    } cases[] = {
        {false, false, "probe.call()\n", ""},
        {true, true, "probe.call()\nx = probe.call()\nprobe.call() = 1\n", ""},
        {false, true, "x = probe.call()\n",
         "a.mac(1): error : syntax error (probe.call() can't use assign source.)"},
        {true, false, "probe.call() = 1\n",
         "a.mac(1): error : syntax error (probe.call() can't use assign destination.)"},
    };
    for (const auto& c : cases) {
        MacroHost host;
        ProbeCommand probe([](CMacroPropertyIF* property) { return property->SetResultInteger(1); }, "probe",
                           "call", "", c.canAssignSrc, c.canAssignDest);
        host->RegisterCategory(nullptr, &probe, false);
        EXPECT_EQ(host.Output(c.text), c.expected) << c.text;
    }
}

TEST(MacroFileCommands, OneCommandMayCallAnother) {
    MacroHost host;
    ProbeCommand inner([](CMacroPropertyIF* property) { return property->SetResultString("inner"); }, "probe",
                       "inner");
    ProbeCommand* self = nullptr;
    ProbeCommand calling(
        [&](CMacroPropertyIF* property) {
            CMacroCategoryBase* const other = self->GetMacroCategoryObject("probe", "inner");
            return other != nullptr && self->GetMacroCategoryObject("probe", "none") == nullptr &&
                   other->Run(property);
        },
        "probe", "outer");
    self = &calling;
    EXPECT_EQ(calling.GetMacroCategoryObject("string", "format"), nullptr);
    host->RegisterCategory(nullptr, &inner, false);
    host->RegisterCategory(nullptr, &calling, false);
    EXPECT_EQ(host.Output("x = probe.outer()\ntest.put(x)\n"), "inner");
}

TEST(MacroFileCommands, WhatACommandThrowsFailsItsStatement) {
    MacroHost host;
    ProbeCommand probe([](CMacroPropertyIF*) -> bool { throw std::runtime_error("no answer"); });
    host->RegisterCategory(nullptr, &probe, false);
    EXPECT_EQ(
        host.Output("probe.call()\n"),
        "a.mac(1): error : probe.call() threw an exception. (no answer)\na.mac(1): error : run time error !");
}

TEST(MacroFileFactories, TheFlagAndTheRegistrationRequestHaveNoEffect) {
    using Factory = CMacroFileIF* (*)(const std::string&, bool);
    const test::TemporaryFolder folder;
    const std::string path = folder.Write("a.mac", "x = y\n");
    for (const Factory factory : {Factory{CreateMacroFile}, Factory{CreateMacroFileNoRegisterRequest}}) {
        for (const bool flag : {false, true}) {
            CMacroFileIF* file = factory("", flag);
            ASSERT_NE(file, nullptr);
            EXPECT_EQ(file->GetErrorCount(), 0U);
            EXPECT_NE(file->FindCommand("string", "format"), nullptr);
            EXPECT_TRUE(file->Load(path.c_str()));
            EXPECT_FALSE(file->Run());
            EXPECT_EQ(file->GetErrorCount(), 2U);
            EXPECT_EQ(file->GetErrorMessage(0), path + "(1): error : Didn't define valiable name[y]");
            EXPECT_EQ(file->GetErrorMessage(1), path + "(1): error : run time error !");
            DeleteMacroFile(file);
            EXPECT_EQ(file, nullptr);
        }
    }
}

TEST(MacroFileFactories, DeletingNothingDoesNothing) {
    CMacroFileIF* file = nullptr;
    DeleteMacroFile(file);
    EXPECT_EQ(file, nullptr);
}

TEST(MacroFileFactories, ARegistrationRequestWalksTheTableOfPlugIns) {
    MacroHost host;
    // The result of the last read: true only for a table without a free place.
    EXPECT_FALSE(host->RequestPluginRegistration());
    for (std::uintptr_t number = 1; number <= 100; ++number) {
        SetMacroPluginInfo(static_cast<int>(number), Window(number));
        EXPECT_EQ(host->RequestPluginRegistration(), number == 100) << number;
    }
    MacroHost(std::string("made while the table is full"));
    int id = 0;
    HWND window = nullptr;
    EXPECT_TRUE(GetMacroPluginInfo(99, &id, &window));
    EXPECT_EQ(id, 100);
    for (std::uintptr_t number = 1; number <= 100; ++number)
        RemoveMacroPluginInfo(Window(number));
    EXPECT_FALSE(host->RequestPluginRegistration());
    EXPECT_EQ(host->GetErrorCount(), 0U);
}

/// A host may derive from the interface, as one that counts does.
class CountingFile : public CMacroFileIF {
public:
    bool Load(const char*) override { return ++loads > 0; }
    bool Run() override { return false; }
    std::uint32_t GetErrorCount() const override { return 0; }
    const char* GetErrorMessage(std::uint32_t) const override { return ""; }
    void ClearErrors() override {}
    void Reserved() override {}
    bool RegisterCategory(CMacroCategoryBase*, CMacroCategoryBase*, bool) override { return false; }
    bool RequestPluginRegistration() override { return false; }
    CMacroCategoryBase* FindCommand(const char*, const char*) override { return nullptr; }
    bool Abort() override { return false; }
    bool SetWorkDirectory(const char*) override { return true; }
    bool SetLineNotification(std::uint32_t, HWND, std::uint32_t) override { return true; }
    bool SetErrorHandling(bool, HWND, std::uint32_t) override { return true; }

    int loads = 0;
};

TEST(MacroFileInterface, AHostMayDeriveFromItAndCopy) {
    CountingFile file;
    CMacroFileIF& interface = file;
    EXPECT_TRUE(interface.Load("a.mac"));
    CountingFile copy(file);
    EXPECT_TRUE(copy.Load("b.mac"));
    EXPECT_EQ(copy.loads, 2);
    copy = file;
    EXPECT_EQ(copy.loads, 1);
    CMacroFileIF* deleted = new CountingFile;
    DeleteMacroFile(deleted);
    EXPECT_EQ(deleted, nullptr);
}

TEST(MacroFileObjects, ShareNothing) {
    MacroHost first;
    MacroHost second;
    ProbeCommand probe(Succeed);
    first->RegisterCategory(nullptr, &probe, false);
    EXPECT_EQ(second->FindCommand("probe", "call"), nullptr);
    EXPECT_EQ(first.Output("x = 1\n"), "");
    EXPECT_EQ(second.Output("y = x\n"),
              "a.mac(1): error : Didn't define valiable name[x]\na.mac(1): error : run time error !");
    EXPECT_EQ(first->GetErrorCount(), 0U);
}

}  // namespace
}  // namespace macroengine
