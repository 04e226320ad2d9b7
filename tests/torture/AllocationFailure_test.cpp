#include <cstdint>
#include <gtest/gtest.h>
#include <new>
#include <string>

#include "api/MacroHost.h"
#include "macroengine/CRegDefFileIF.h"
#include "macroengine/PluginInfo.h"
#include "macroengine/SystemVariable.h"
#include "support/EncodedLine.h"
#include "support/FailingAllocation.h"
#include "support/TemporaryFolder.h"
#include "torture/FeatureHost.h"
#include "torture/RegisterReaders.h"

// Each test lets the first, the second, the third ... allocation of an operation fail, until none fails any
// more. Whatever fails, nothing but std::bad_alloc comes out, and the same object then does it right.

namespace macroengine {
namespace {

using test::Failing;
using test::FailingAllocation;
using test::FeatureHost;
using test::MacroHost;
using test::ProbeCommand;

constexpr long kMostAllocations = 100000;

class AllocationFailure : public ::testing::TestWithParam<Failing> {
protected:
    /// Runs an operation with the allocation after the first `allowed` failing.
    /// @return whether none failed.
    template <class Operation>
    static bool Try(long allowed, Operation operation) {
        const FailingAllocation failing(allowed, GetParam());
        try {
            operation();
        } catch (const std::bad_alloc&) {
            EXPECT_GT(FailingAllocation::GetFailures(), 0);
        }
        return FailingAllocation::GetFailures() == 0;
    }
};

INSTANTIATE_TEST_SUITE_P(AllocationFailure, AllocationFailure,
                         ::testing::Values(Failing::Once, Failing::ForEver),
                         [](const auto& test) { return test.param == Failing::Once ? "Once" : "ForEver"; });

bool EndsWith(const std::string& text, const std::string& end) {
    return text.size() >= end.size() && text.compare(text.size() - end.size(), end.size(), end) == 0;
}

TEST_P(AllocationFailure, ARunMayBeRepeated) {
    FeatureHost host;
    ASSERT_TRUE(host.Load()) << host.TakeResult();
    const std::string expected = host.ResultOfRun();
    bool succeeded = false;
    for (long allowed = 0; !succeeded; ++allowed) {
        ASSERT_LT(allowed, kMostAllocations);
        succeeded = Try(allowed, [&] { host.Run(); });
        ASSERT_EQ(host.ResultOfRun(), expected) << allowed;
    }
}

TEST_P(AllocationFailure, ALoadMayBeRepeated) {
    FeatureHost whole;
    ASSERT_TRUE(whole.Load()) << whole.TakeResult();
    const std::string expected = whole.ResultOfRun();
    const std::string lastError = expected.substr(expected.rfind('\n', expected.rfind('\n') - 1));
    bool succeeded = false;
    for (long allowed = 0; !succeeded; ++allowed) {
        ASSERT_LT(allowed, kMostAllocations);
        FeatureHost host;
        succeeded = Try(allowed, [&] { host.Load(); });
        host.TakeResult();
        ASSERT_TRUE(host.Load()) << allowed << host.TakeResult();
        // What was compiled before the failure is still a part of the program, and runs first.
        const std::string result = host.ResultOfRun();
        ASSERT_TRUE(EndsWith(result, lastError)) << allowed << result;
        const std::string output = expected.substr(0, expected.find("\nevery.mac"));
        ASSERT_NE(result.find(output), std::string::npos) << allowed << result;
    }
}

TEST_P(AllocationFailure, WhatAFailedLoadHasKeptRuns) {
    // Of the lines before the loops depends which of their statements is the first that needs more memory.
    for (int linesBefore = 0; linesBefore < 8; ++linesBefore) {
        std::string text;
        for (int i = 0; i < linesBefore; ++i)
            text += "x = 1\n";
        for (int i = 0; i < 40; ++i)
            text += "i = 0\nloop i < 3\n  i = i + 1\nendloop\n";
        bool succeeded = false;
        for (long allowed = 0; !succeeded; ++allowed) {
            ASSERT_LT(allowed, kMostAllocations);
            MacroHost host;
            const std::string path = host.GetFolder().Write("a.mac", text);
            succeeded = Try(allowed, [&] { host->Load(path.c_str()); });
            host.TakeErrors();
            const bool ran = host->Run();
            const std::string errors = host.TakeErrors();
            ASSERT_TRUE(ran || errors == "error : Nothing macro sequence.") << allowed << errors;
        }
    }
}

TEST_P(AllocationFailure, AProgramMayBeStartedAgain) {
#if defined(__linux__)
    MacroHost host;
    ASSERT_TRUE(
        host.Load("code = system.command_exec(5, \"/bin\", \"sh\", \"-c\", \"\\\"exit 7\\\"\")\n"
                  "test.put(code)\n"));
    bool succeeded = false;
    for (long allowed = 0; !succeeded; ++allowed) {
        ASSERT_LT(allowed, kMostAllocations);
        succeeded = Try(allowed, [&] { host->Run(); });
        host.TakeErrors();
        host.TakeOutput();
        ASSERT_TRUE(host->Run()) << allowed << host.TakeErrors();
        ASSERT_EQ(host.TakeOutput(), "7") << allowed;
    }
#endif
}

TEST_P(AllocationFailure, AnObjectIsMadeWholeOrNotAtAll) {
    ProbeCommand command([](CMacroPropertyIF*) { return true; }, "a_category_with_a_long_name",
                         "a_command_with_a_long_name", "a_namespace_with_a_long_name");
    bool succeeded = false;
    for (long allowed = 0; !succeeded; ++allowed) {
        ASSERT_LT(allowed, kMostAllocations);
        CMacroFileIF* file = nullptr;
        succeeded = Try(allowed, [&] { file = CreateMacroFile(std::string(100, 'n'), false); });
        ASSERT_TRUE(file != nullptr || !succeeded) << allowed;
        DeleteMacroFile(file);
    }
    succeeded = false;
    for (long allowed = 0; !succeeded; ++allowed) {
        ASSERT_LT(allowed, kMostAllocations);
        MacroHost host;
        succeeded = Try(allowed, [&] { host->RegisterCategory(nullptr, &command, false); });
        ASSERT_TRUE(host->RegisterCategory(nullptr, &command, false)) << allowed;
        ASSERT_EQ(host.Output("using.namespace(\"a_namespace_with_a_long_name\")\n"
                              "a_category_with_a_long_name.a_command_with_a_long_name()\ntest.put(1)\n"),
                  "1")
            << allowed;
    }
}

TEST_P(AllocationFailure, SettingsMayBeRepeated) {
    int window = 0;
    const HWND handle = reinterpret_cast<HWND>(&window);
    const std::string longName(100, 'n');
    bool succeeded = false;
    for (long allowed = 0; !succeeded; ++allowed) {
        ASSERT_LT(allowed, kMostAllocations);
        MacroHost host;
        succeeded = Try(allowed, [&] {
            SetMacroPluginInfo(7, handle);
            SetSystemVariable(longName.c_str(), 2.5);
            double value = 0.0;
            GetSystemVariable(longName.c_str(), value);
            host->SetWorkDirectory(longName.c_str());
            host->RequestPluginRegistration();
            host->FindCommand("string", "format");
        });
        RemoveMacroPluginInfo(handle);
        SetMacroPluginInfo(8, handle);
        int id = 0;
        HWND found = nullptr;
        ASSERT_TRUE(GetMacroPluginInfo(0, &id, &found)) << allowed;
        ASSERT_EQ(id, 8) << allowed;
        RemoveMacroPluginInfo(handle);
        double value = 0.0;
        ASSERT_TRUE(SetSystemVariable(longName.c_str(), 2.5));
        ASSERT_TRUE(GetSystemVariable(longName.c_str(), value));
        ASSERT_EQ(value, 2.5);
    }
}

TEST_P(AllocationFailure, ARegisterFileMayBeLoadedAgain) {
    const test::TemporaryFolder folder;
    for (const test::ReaderCase& reader : test::kReaders) {
        SCOPED_TRACE(reader.name);
        const std::string path = folder.Write(reader.name, reader.text);
        CRegDefFileIF* const whole = reader.create();
        whole->Load(path.c_str());
        ASSERT_EQ(whole->GetRegisterCount(), reader.records);
        const std::string expected = test::LastRecords(whole, reader.records);
        const std::uint32_t errors = whole->GetErrorCount();
        ASSERT_GT(errors, 0U);
        DeleteRegDefFile(whole);

        bool succeeded = false;
        for (long allowed = 0; !succeeded; ++allowed) {
            ASSERT_LT(allowed, kMostAllocations);
            CRegDefFileIF* file = nullptr;
            succeeded = Try(allowed, [&] {
                file = reader.create();
                if (file == nullptr) return;
                file->Load(path.c_str());
                file->GetListing();
                MergeSplitRegisters(file);
            });
            if (file == nullptr) continue;
            const std::uint32_t recordsBefore = file->GetRegisterCount();
            const std::uint32_t errorsBefore = file->GetErrorCount();
            file->Load(path.c_str());
            ASSERT_EQ(file->GetRegisterCount(), recordsBefore + reader.records) << allowed;
            ASSERT_EQ(file->GetErrorCount(), errorsBefore + errors) << allowed;
            ASSERT_EQ(test::LastRecords(file, reader.records), expected) << allowed;
            ASSERT_NE(std::string(file->GetListing()).find("GAIN"), std::string::npos) << allowed;
            DeleteRegDefFile(file);
        }
    }
}

TEST_P(AllocationFailure, AnEncodedMacroMayBeLoadedAgain) {
    MacroHost host;
    const std::string path = host.GetFolder().Write(
        "a.iod", test::EncodedLine("test.put(1)") + "\n" + test::EncodedLine("test.put(\"a text\")") + "\n");
    bool succeeded = false;
    for (long allowed = 0; !succeeded; ++allowed) {
        ASSERT_LT(allowed, kMostAllocations);
        succeeded = Try(allowed, [&] { host->Load(path.c_str()); });
        host.TakeErrors();
        ASSERT_TRUE(host->Load(path.c_str())) << allowed;
    }
    ASSERT_TRUE(host->Run());
}

}  // namespace
}  // namespace macroengine
