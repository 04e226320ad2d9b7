#include <fcntl.h>
#include <gtest/gtest.h>
#include <string>
#include <sys/stat.h>
#include <unistd.h>

#include "support/CommandCaller.h"
#include "support/TemporaryFolder.h"

namespace macroengine::test {
namespace {

TEST(FileWritePosix, APipeHasNoEnd) {
    const TemporaryFolder folder;
    const std::string path = folder.PathOf("pipe");
    ASSERT_EQ(mkfifo(path.c_str(), 0600), 0);
    const int reader = open(path.c_str(), O_RDONLY | O_NONBLOCK);
    CommandCaller caller;
    EXPECT_EQ(caller.Call("system.file_write", {Integer(1), Text(path), Text("x")}),
              Error("File seek error. (" + path + ")"));
    EXPECT_EQ(caller.ResultOfFailure(), "boolean false");
    EXPECT_EQ(caller.Call("system.file_write", {Integer(0), Text(path), Text("x")}), "boolean true");
    close(reader);
}

TEST(FileWritePosix, ADeviceMayTakeNothing) {
    if (access("/dev/full", W_OK) != 0) GTEST_SKIP() << "needs a device that takes nothing";
    CommandCaller caller;
    EXPECT_EQ(caller.Call("system.file_write", {Integer(0), Text("/dev/full"), Text("x")}),
              Error("File write error. (/dev/full)"));
    EXPECT_EQ(caller.ResultOfFailure(), "boolean false");
    EXPECT_EQ(caller.Call("system.file_write", {Integer(0), Text("/dev/full"), Text("")}), "boolean true");
}

TEST(MkDirPosix, AFolderMayBeReadOnly) {
    const TemporaryFolder folder;
    folder.MakeFolder("sub");
    chmod(folder.PathOf("sub").c_str(), 0500);
    EXPECT_EQ(CommandCaller(folder.Path()).Call("system.mkdir", {Text("sub")}), "none");
}

}  // namespace
}  // namespace macroengine::test
