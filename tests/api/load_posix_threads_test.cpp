#include <algorithm>
#include <atomic>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <string>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

#include <macroengine/CMacroFileIF.h>

#include "api/MacroHost.h"

namespace macroengine {
namespace {

using test::MacroHost;

TEST(LoadThreads, RunIsRefusedWhileAFileIsLoading) {
    MacroHost host;
    ASSERT_TRUE(host.Load("x = 1\n"));
    const std::string path = host.GetFolder().PathOf("pipe.mac");
    ASSERT_EQ(mkfifo(path.c_str(), 0600), 0);
    // A load of a pipe waits for a writer. One that comes during a run is refused, so it is tried again.
    std::atomic<bool> wasRefused{false};
    std::thread loader([&] {
        while (!wasRefused)
            host->Load(path.c_str());
    });
    while (host->Run()) {
    }
    wasRefused = true;
    const int writer = open(path.c_str(), O_WRONLY);
    EXPECT_NE(writer, -1);
    loader.join();
    close(writer);

    const std::string expected =
        "error : Can't run macro, because file is loading now..\n"
        "error : File read error. (pipe.mac)";
    const std::string errors = host.TakeErrors();
    EXPECT_EQ(errors.substr(errors.size() - std::min(errors.size(), expected.size())), expected);
}

}  // namespace
}  // namespace macroengine
