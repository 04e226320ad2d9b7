#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <spawn.h>
#include <string>
#include <sys/mman.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include "api/MacroHost.h"
#include "macroengine/CRegDefFileIF.h"
#include "macroengine/PluginInfo.h"
#include "platform/Process.h"
#include "platform/SharedMemory.h"
#include "support/FailingSystem_posix.h"
#include "support/TemporaryFolder.h"
#include "torture/FeatureHost.h"
#include "torture/RegisterReaders.h"

// As for allocations, so for the calls of the system: the first, the second, the third ... fails until none does.
// Whatever fails, the operation ends, and the same object then does it right.

namespace macroengine {
namespace {

using test::FailingSystem;
using test::FeatureHost;
using test::MacroHost;
using test::SystemPolicy;

constexpr long kMostCalls = 10000;

class SystemFailure : public ::testing::TestWithParam<bool> {
protected:
    /// Runs an operation with the call after the first `allowed` failing.
    /// @return whether none failed.
    template <class Operation>
    static bool Try(long allowed, Operation operation) {
        SystemPolicy policy;
        policy.allowed = allowed;
        policy.once = GetParam();
        const FailingSystem failing(policy);
        operation();
        return FailingSystem::GetFailures() == 0;
    }
};

INSTANTIATE_TEST_SUITE_P(SystemFailure, SystemFailure, ::testing::Bool(),
                         [](const auto& test) { return test.param ? "Once" : "ForEver"; });

TEST_P(SystemFailure, ALoadFailsOrSucceedsAndMayBeRepeated) {
    bool succeeded = false;
    for (long allowed = 0; !succeeded; ++allowed) {
        ASSERT_LT(allowed, kMostCalls);
        FeatureHost host;
        bool loaded = false;
        succeeded = Try(allowed, [&] { loaded = host.Load(); });
        const std::string errors = host.TakeResult();
        ASSERT_EQ(loaded, errors == "\n") << allowed << errors;
        ASSERT_TRUE(host.Load()) << allowed << host.TakeResult();
    }
}

TEST_P(SystemFailure, ARunMayBeRepeated) {
    FeatureHost host;
    ASSERT_TRUE(host.Load()) << host.TakeResult();
    const std::string expected = host.ResultOfRun();
    bool succeeded = false;
    for (long allowed = 0; !succeeded; ++allowed) {
        ASSERT_LT(allowed, kMostCalls);
        succeeded = Try(allowed, [&] { host.Run(); });
        ASSERT_EQ(host.ResultOfRun(), expected) << allowed;
    }
}

TEST_P(SystemFailure, AProgramIsStartedOrNot) {
    MacroHost host;
    ASSERT_TRUE(
        host.Load("code = system.command_exec(5, \"/bin\", \"sh\", \"-c\", \"\\\"exit 7\\\"\")\n"
                  "test.put(code)\n"));
    bool succeeded = false;
    for (long allowed = 0; !succeeded; ++allowed) {
        ASSERT_LT(allowed, kMostCalls);
        bool ran = false;
        // What fails in the child shows here only by its result.
        succeeded = Try(allowed, [&] { ran = host->Run(); }) && ran;
        ASSERT_EQ(host.TakeOutput(), ran ? "7" : "") << allowed;
        ASSERT_EQ(host.TakeErrors() == "", ran) << allowed;
        ASSERT_TRUE(host->Run()) << allowed << host.TakeErrors();
        ASSERT_EQ(host.TakeOutput(), "7") << allowed;
    }
}

TEST_P(SystemFailure, TheTableOfPluginsIsThereOrNot) {
    int window = 0;
    const HWND handle = reinterpret_cast<HWND>(&window);
    bool succeeded = false;
    for (long allowed = 0; !succeeded; ++allowed) {
        ASSERT_LT(allowed, kMostCalls);
        int id = 0;
        HWND found = nullptr;
        succeeded = Try(allowed, [&] {
            SetMacroPluginInfo(7, handle);
            GetMacroPluginInfo(0, &id, &found);
            RemoveMacroPluginInfo(handle);
        });
        RemoveMacroPluginInfo(handle);
        SetMacroPluginInfo(8, handle);
        ASSERT_TRUE(GetMacroPluginInfo(0, &id, &found)) << allowed;
        ASSERT_EQ(id, 8) << allowed;
        RemoveMacroPluginInfo(handle);
        ASSERT_FALSE(GetMacroPluginInfo(0, &id, &found)) << allowed;
    }
}

TEST_P(SystemFailure, ASectionOfSharedMemoryIsMadeOrNot) {
    const std::string name = "macroengine_torture_" + std::to_string(platform::ProcessId());
    constexpr std::size_t kSize = 64;
    bool succeeded = false;
    for (long allowed = 0; !succeeded; ++allowed) {
        ASSERT_LT(allowed, kMostCalls);
        // A section stays for good: each try has its own.
        const std::string ownName = name + (GetParam() ? "_once_" : "_ever_") + std::to_string(allowed);
        platform::SharedMemory section;
        bool isOpen = false;
        succeeded = Try(allowed, [&] { isOpen = section.OpenOrCreate(ownName, kSize); });
        ASSERT_EQ(section.Data() != nullptr, isOpen) << allowed;
        ASSERT_TRUE(isOpen || !succeeded) << allowed;
        ASSERT_TRUE(section.OpenOrCreate(ownName, kSize)) << allowed;
        ASSERT_FALSE(section.Open(ownName, 2 * kSize)) << allowed;
    }
}

TEST_P(SystemFailure, ASectionThatAnotherModuleHasMappedIsFoundOrNot) {
    const std::string name = "macroengine_torture_module_" + std::to_string(platform::ProcessId()) + "_";
    constexpr std::size_t kSize = 64;
    bool succeeded = false;
    for (long allowed = 0; !succeeded; ++allowed) {
        ASSERT_LT(allowed, kMostCalls);
        const std::string ownName = name + (GetParam() ? "once_" : "ever_") + std::to_string(allowed);
        const int module = shm_open(("/" + ownName).c_str(), O_RDWR | O_CREAT | O_EXCL, 0600);
        ASSERT_NE(module, -1);
        ASSERT_EQ(ftruncate(module, kSize), 0);
        void* const mapped = mmap(nullptr, kSize, PROT_READ | PROT_WRITE, MAP_SHARED, module, 0);
        ASSERT_NE(mapped, MAP_FAILED);
        platform::SharedMemory section;
        bool isOpen = false;
        succeeded = Try(allowed, [&] { isOpen = section.Open(ownName, kSize); });
        ASSERT_EQ(section.Data() != nullptr, isOpen) << allowed;
        ASSERT_TRUE(isOpen || !succeeded) << allowed;
        ASSERT_TRUE(section.Open(ownName, kSize)) << allowed;
        munmap(mapped, kSize);
        close(module);
        shm_unlink(("/" + ownName).c_str());
    }
}

TEST_P(SystemFailure, ARegisterFileMayBeLoadedAgain) {
    const test::TemporaryFolder folder;
    for (const test::ReaderCase& reader : test::kReaders) {
        const std::string path = folder.Write(reader.name, reader.text);
        // A sanitizer that meets a kind of object for the first time looks at it by calls of the system.
        CRegDefFileIF* const first = reader.create();
        first->Load(path.c_str());
        DeleteRegDefFile(first);
        bool succeeded = false;
        for (long allowed = 0; !succeeded; ++allowed) {
            ASSERT_LT(allowed, kMostCalls);
            CRegDefFileIF* const file = reader.create();
            succeeded = Try(allowed, [&] { file->Load(path.c_str()); });
            ASSERT_GT(file->GetErrorCount(), 0U) << allowed;
            const std::uint32_t before = file->GetRegisterCount();
            file->Load(path.c_str());
            ASSERT_EQ(file->GetRegisterCount(), before + reader.records) << allowed;
            DeleteRegDefFile(file);
        }
    }
}

/// @return what comes of the macro of every feature, loaded and run while the system behaves so.
std::string ResultUnder(const SystemPolicy& policy) {
    FeatureHost host;
    {
        const FailingSystem failing(policy);
        host.Load();
        host.Run();
    }
    return host.TakeResult();
}

TEST(SystemManners, InterruptedCallsAreRepeated) {
    SystemPolicy interrupted;
    interrupted.isInterrupted = true;
    EXPECT_EQ(ResultUnder(interrupted), ResultUnder({}));
}

TEST(SystemManners, ShortReadsAndWritesAreContinued) {
    SystemPolicy isShort;
    isShort.isShort = true;
    EXPECT_EQ(ResultUnder(isShort), ResultUnder({}));
}

TEST(SystemManners, AnInterruptedWaitForAProgramGoesOn) {
    SystemPolicy interrupted;
    interrupted.isInterrupted = true;
    MacroHost host;
    ASSERT_TRUE(
        host.Load("code = system.command_exec(5, \"/bin\", \"sh\", \"-c\", \"\\\"exit 7\\\"\")\n"
                  "test.put(code)\n"));
    {
        const FailingSystem failing(interrupted);
        EXPECT_TRUE(host->Run());
    }
    EXPECT_EQ(host.TakeOutput(), "7");
}

TEST(SystemManners, AProgramThatMayNotBeKilledDoesNotHoldUpItsTimeOut) {
    const test::TemporaryFolder folder;
    folder.Write("script", "#!/bin/sh\necho $$ > id.part\nmv id.part id\nexec sleep 1000\n");
    ASSERT_EQ(chmod(folder.PathOf("script").c_str(), 0755), 0);
    platform::ProcessResult result;
    {
        SystemPolicy refusing;
        refusing.refusesKills = true;
        const FailingSystem failing(refusing);
        result = platform::RunProcess(folder.Path(), "script", "", 1);
    }
    EXPECT_TRUE(result.timedOut);
    while (access(folder.PathOf("id").c_str(), F_OK) != 0)
        usleep(1000);
    const pid_t program = std::stoi(folder.Read("id"));
    EXPECT_EQ(kill(program, SIGKILL), 0);
    EXPECT_EQ(waitpid(program, nullptr, 0), program);
}

pid_t startedMeanwhile = -1;

void StartMeanwhile() {
    char name[] = "sleep";
    char seconds[] = "1000";
    char* const arguments[] = {name, seconds, nullptr};
    posix_spawn(&startedMeanwhile, "/bin/sleep", nullptr, nullptr, arguments, nullptr);
}

TEST(SystemManners, AProgramThatTheHostStartsMeanwhileDoesNotHoldUpAnother) {
    platform::ProcessResult result;
    {
        SystemPolicy meanwhile;
        meanwhile.pipeMade = StartMeanwhile;
        const FailingSystem failing(meanwhile);
        result = platform::RunProcess("/bin", "sh", "-c \"exit 7\"", 0);
    }
    EXPECT_EQ(result.exitCode, 7U);
    EXPECT_EQ(kill(startedMeanwhile, SIGKILL), 0);
    EXPECT_EQ(waitpid(startedMeanwhile, nullptr, 0), startedMeanwhile);
}

}  // namespace
}  // namespace macroengine
