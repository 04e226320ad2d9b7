#include <exception>
#include <gtest/gtest.h>
#include <new>
#include <stdexcept>
#include <string>

#include "api/MacroHost.h"

// Commands that do what they should not. Whatever a command does, its statement fails with a line that names it,
// the run ends as it would after any error, and the file can be used again.

namespace macroengine {
namespace {

using test::MacroHost;
using test::ProbeCommand;

constexpr const char* kCall = "test.put(\"before\")\nprobe.call()\ntest.put(\"after\")\n";
constexpr const char* kFailedCall = "before\na.mac(2): error : run time error !";

/// @return what comes of a macro that calls a command which does so, then of the run of another macro.
std::string ResultOf(const ProbeCommand::Action& action) {
    ProbeCommand command(action);
    MacroHost host;
    host->RegisterCategory(nullptr, &command, false);
    return host.Output(kCall);
}

struct Silent : std::exception {
    const char* what() const noexcept override { return nullptr; }
};

TEST(MisbehavingCommand, WhateverItThrowsFailsItsStatement) {
    EXPECT_EQ(ResultOf([](CMacroPropertyIF*) -> bool { throw std::runtime_error("no device"); }),
              "before\na.mac(2): error : probe.call() threw an exception. (no device)\n"
              "a.mac(2): error : run time error !");
    EXPECT_EQ(
        ResultOf([](CMacroPropertyIF*) -> bool { throw 42; }),
        "before\na.mac(2): error : probe.call() threw an exception.\na.mac(2): error : run time error !");
    EXPECT_EQ(ResultOf([](CMacroPropertyIF*) -> bool { throw std::bad_alloc(); }),
              "before\na.mac(2): error : Memory allocation error\na.mac(2): error : run time error !");
    EXPECT_EQ(ResultOf([](CMacroPropertyIF*) -> bool { throw Silent(); }),
              "before\na.mac(2): error : probe.call() threw an exception. ()\n"
              "a.mac(2): error : run time error !");
}

TEST(MisbehavingCommand, WhatItReportedBeforeItThrewIsKept) {
    EXPECT_EQ(ResultOf([](CMacroPropertyIF* property) -> bool {
                  property->AddErrorMessage("the device does not answer");
                  throw std::runtime_error("no device");
              }),
              "before\na.mac(2): error : the device does not answer\n"
              "a.mac(2): error : probe.call() threw an exception. (no device)\n"
              "a.mac(2): error : run time error !");
}

TEST(MisbehavingCommand, FailingWithoutAMessageStillNamesThePlace) {
    EXPECT_EQ(ResultOf([](CMacroPropertyIF*) { return false; }), kFailedCall);
}

TEST(MisbehavingCommand, FailingWithoutAMessageForEverLeavesALineEach) {
    ProbeCommand command([](CMacroPropertyIF*) { return false; });
    MacroHost host;
    host->RegisterCategory(nullptr, &command, false);
    host->SetErrorHandling(false, nullptr, 0);
    EXPECT_EQ(host.Output("i = 0\nloop i < 3\nx = probe.call()\ntest.put(i, x)\ni = i + 1\nendloop\n"),
              "0 false\n1 false\n2 false\na.mac(3): error : run time error !\n"
              "a.mac(3): error : run time error !\na.mac(3): error : run time error !");
}

TEST(MisbehavingCommand, ATextEndsAtItsNul) {
    ProbeCommand command([](CMacroPropertyIF* property) { return property->SetResultString("one\0two"); });
    MacroHost host;
    host->RegisterCategory(nullptr, &command, false);
    EXPECT_EQ(host.Output("x = probe.call()\ntest.put(x)\n"), "one");
}

TEST(MisbehavingCommand, ATextMayHaveAHundredMegabytes) {
    const std::string large(100U << 20, 'x');
    ProbeCommand command(
        [&](CMacroPropertyIF* property) { return property->SetResultString(large.c_str()); });
    MacroHost host;
    host->RegisterCategory(nullptr, &command, false);
    ASSERT_TRUE(
        host.Load("x = probe.call()\ny = x + \"y\"\nif x == y\ntest.put(\"same\")\nendif\ntest.put(y)\n"));
    ASSERT_TRUE(host->Run()) << host.TakeErrors();
    const std::string output = host.TakeOutput();
    EXPECT_EQ(output.size(), large.size() + 1);
    EXPECT_EQ(output.back(), 'y');
}

TEST(MisbehavingCommand, AMessageMayHaveAnyLengthAndNoText) {
    const std::string large(10U << 20, 'm');
    EXPECT_EQ(
        ResultOf([&](CMacroPropertyIF* property) {
            property->AddErrorMessage(large.c_str());
            property->AddErrorMessage(nullptr);
            return false;
        }),
        "before\na.mac(2): error : " + large + "\na.mac(2): error : \na.mac(2): error : run time error !");
}

TEST(MisbehavingCommand, RegisteredTwiceItIsOneCommand) {
    int calls = 0;
    ProbeCommand command([&](CMacroPropertyIF*) { return ++calls > 0; });
    MacroHost host;
    EXPECT_TRUE(host->RegisterCategory(nullptr, &command, false));
    EXPECT_TRUE(host->RegisterCategory(&command, &command, false));
    EXPECT_FALSE(host->RegisterCategory(nullptr, &command, true));
    EXPECT_EQ(host.Output(kCall), "before\nafter");
    EXPECT_EQ(calls, 1);
}

TEST(MisbehavingCommand, RegisteredWithTwoFilesItFindsTheCommandsOfTheLastOneAsLongAsThatLives) {
    ProbeCommand command([](CMacroPropertyIF*) { return true; });
    MacroHost first;
    first->RegisterCategory(nullptr, &command, false);
    EXPECT_EQ(command.GetMacroCategoryObject("string", "format"), first->FindCommand("string", "format"));
    {
        MacroHost second;
        second->RegisterCategory(nullptr, &command, false);
        EXPECT_EQ(command.GetMacroCategoryObject("string", "format"),
                  second->FindCommand("string", "format"));
    }
    EXPECT_EQ(command.GetMacroCategoryObject("string", "format"), nullptr);
    EXPECT_EQ(first.Output(kCall), "before\nafter");
}

TEST(MisbehavingCommand, CallsAnotherCommandInItsOwnCall) {
    MacroHost host;
    ProbeCommand inner([](CMacroPropertyIF*) -> bool { throw 1; }, "probe", "inner");
    ProbeCommand command([&](CMacroPropertyIF* property) {
        return command.GetMacroCategoryObject("probe", "inner")->Run(property);
    });
    host->RegisterCategory(nullptr, &command, false);
    host->RegisterCategory(nullptr, &inner, false);
    EXPECT_EQ(
        host.Output(kCall),
        "before\na.mac(2): error : probe.call() threw an exception.\na.mac(2): error : run time error !");
}

// What a command calls on the file that is running it

class OnTheRunningFile : public ::testing::Test {
protected:
    OnTheRunningFile() { host_->RegisterCategory(nullptr, &command_, false); }

    MacroHost host_;
    ProbeCommand::Action action_;
    ProbeCommand command_{[this](CMacroPropertyIF* property) { return action_(property); }};
};

TEST_F(OnTheRunningFile, LoadIsRefused) {
    const std::string path = host_.GetFolder().Write("b.mac", "test.put(\"b\")\n");
    action_ = [&](CMacroPropertyIF*) { return !host_->Load(path.c_str()); };
    EXPECT_EQ(host_.Output(kCall),
              "before\nafter\nerror : Can't load file, because macro is loading or running now.");
    EXPECT_TRUE(host_->Load(path.c_str()));
}

TEST_F(OnTheRunningFile, RunIsRefused) {
    action_ = [&](CMacroPropertyIF*) { return !host_->Run(); };
    EXPECT_EQ(host_.Output(kCall),
              "before\nafter\nerror : internal error. Recieve run-request during running.");
}

TEST_F(OnTheRunningFile, AbortEndsTheRunAfterTheCommand) {
    action_ = [&](CMacroPropertyIF*) { return host_->Abort(); };
    EXPECT_EQ(host_.Output(kCall), "before\na.mac(2): error : Macro aborted.");
}

TEST_F(OnTheRunningFile, SettingsMayBeChanged) {
    action_ = [&](CMacroPropertyIF* property) {
        host_->SetWorkDirectory("elsewhere");
        host_->SetErrorHandling(false, nullptr, 0);
        host_->SetLineNotification(1, nullptr, 1);
        host_->ClearErrors();
        property->AddErrorMessage(property->GetFullPathFromWorkFolder("x"));
        return false;
    };
    // The work folder is that of the run, the handling of errors that of the moment.
    EXPECT_EQ(host_.Output(kCall),
              "before\nafter\na.mac(2): error : \\x\na.mac(2): error : run time error !");
}

TEST_F(OnTheRunningFile, ACommandMayBeRegistered) {
    ProbeCommand late([](CMacroPropertyIF* property) { return property->SetResultInteger(7); }, "late",
                      "call");
    ProbeCommand other([](CMacroPropertyIF*) { return false; }, "probe", "call", "other");
    action_ = [&](CMacroPropertyIF*) {
        for (int i = 0; i < 100; ++i)
            host_->RegisterCategory(nullptr, &late, false);
        return host_->RegisterCategory(nullptr, &other, false);
    };
    EXPECT_EQ(host_.Output(kCall), "before\nafter");
    EXPECT_EQ(host_.Output("x = late.call()\ntest.put(x)\nusing.namespace(\"other\")\nprobe.call()\n"),
              "before\nafter\n7\na.mac(4): error : run time error !");
}

TEST_F(OnTheRunningFile, AnotherFileMayBeMadeRunAndDeleted) {
    action_ = [&](CMacroPropertyIF*) {
        MacroHost other;
        return other.Output("test.put(1)\n") == "1";
    };
    EXPECT_EQ(host_.Output(kCall), "before\nafter");
}

/// A file that one of its own commands deletes.
class DeletedFile : public ::testing::Test {
protected:
    DeletedFile() {
        file_ = CreateMacroFile("", false);
        file_->RegisterCategory(nullptr, &delete_, false);
        file_->RegisterCategory(nullptr, &count_, false);
    }

    bool Load(const char* text) { return file_->Load(folder_.Write("a.mac", text).c_str()); }

    test::TemporaryFolder folder_;
    CMacroFileIF* file_ = nullptr;
    int calls_ = 0;
    std::string place_;
    ProbeCommand delete_{[this](CMacroPropertyIF* property) {
                             CMacroFileIF* copy = file_;
                             DeleteMacroFile(copy);
                             EXPECT_EQ(copy, nullptr);
                             copy = file_;
                             DeleteMacroFile(copy);
                             // The call is still whole.
                             place_ = property->GetFileName() + std::to_string(property->GetLineNumber());
                             EXPECT_FALSE(file_->Run());
                             EXPECT_FALSE(file_->Load(folder_.PathOf("a.mac").c_str()));
                             EXPECT_EQ(file_->GetErrorCount(), 2U);
                             return true;
                         },
                         "test", "delete"};
    ProbeCommand count_{[this](CMacroPropertyIF*) { return ++calls_ > 0; }, "test", "count"};
};

TEST_F(DeletedFile, EndsItsRunAndGoesWithIt) {
    ASSERT_TRUE(Load("test.count()\ntest.delete()\ntest.count()\n"));
    EXPECT_FALSE(file_->Run());
    EXPECT_EQ(calls_, 1);
    EXPECT_EQ(place_, folder_.PathOf("a.mac") + "2");
    EXPECT_EQ(delete_.GetMacroCategoryObject("string", "format"), nullptr);
}

TEST_F(DeletedFile, GoesAlsoWhenTheRunFails) {
    ProbeCommand fail([this](CMacroPropertyIF* property) -> bool {
        delete_.Run(property);
        throw std::runtime_error("after the deletion");
    });
    file_->RegisterCategory(nullptr, &fail, false);
    ASSERT_TRUE(Load("probe.call()\n"));
    EXPECT_FALSE(file_->Run());
}

}  // namespace
}  // namespace macroengine
