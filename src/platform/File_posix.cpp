#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <signal.h>
#include <sys/stat.h>
#include <time.h>
#include <unistd.h>
#include <utility>

#include "platform/File.h"
#include "platform/NativePath_posix.h"

namespace macroengine::platform {

const std::string_view kLineEnd = "\n";

namespace {

/// The system takes no more than about 2 GiB at once.
constexpr std::size_t kMostAtOnce = std::size_t{1} << 30;

constexpr mode_t kNewFileMode = 0666;

int OpenRetrying(const std::string& path, int flags) {
    const std::string systemPath = ToSystemPath(path);
    int descriptor;
    do {
        // A terminal that is opened must not become that of the process, which would end with it.
        descriptor = open(systemPath.c_str(), flags | O_CLOEXEC | O_NOCTTY, kNewFileMode);
    } while (descriptor == -1 && errno == EINTR);
    return descriptor;
}

/// Keeps the signals of a failed write from the calling thread: of a pipe that nobody reads, and of a file
/// that would be larger than the process may make one. They would end the host; the write itself says that
/// it failed.
class WriteSignalBlock {
public:
    WriteSignalBlock() {
        sigset_t waiting;
        sigpending(&waiting);
        sigemptyset(&ours_);
        for (const int number : {SIGPIPE, SIGXFSZ}) {
            // One that was waiting before is not ours.
            if (sigismember(&waiting, number) == 0) sigaddset(&ours_, number);
        }
        pthread_sigmask(SIG_BLOCK, &ours_, &previous_);
    }
    ~WriteSignalBlock() {
        constexpr timespec kNow{};
        while (sigtimedwait(&ours_, nullptr, &kNow) != -1 || errno == EINTR) {
        }
        pthread_sigmask(SIG_SETMASK, &previous_, nullptr);
    }
    WriteSignalBlock(const WriteSignalBlock&) = delete;
    WriteSignalBlock& operator=(const WriteSignalBlock&) = delete;

private:
    sigset_t ours_{};
    sigset_t previous_{};
};

}  // namespace

bool File::OpenForReading(const std::string& path) {
    Close();
    hasReadError_ = false;
    handle_ = OpenRetrying(path, O_RDONLY);
    if (!IsOpen()) return false;
    // The system opens a folder for reading as if it were a file and refuses only to read from it.
    struct stat status {};
    if (fstat(static_cast<int>(handle_), &status) != 0 || S_ISDIR(status.st_mode)) {
        Close();
        return false;
    }
    return true;
}

bool File::OpenForWriting(const std::string& path, WriteMode mode) {
    Close();
    handle_ = OpenRetrying(path, O_WRONLY | O_CREAT | (mode == WriteMode::Truncate ? O_TRUNC : 0));
    return IsOpen();
}

std::uint64_t File::Size() const {
    struct stat status {};
    if (!IsOpen() || fstat(static_cast<int>(handle_), &status) != 0 || status.st_size < 0) return 0;
    return static_cast<std::uint64_t>(status.st_size);
}

bool File::SeekToEnd() {
    return IsOpen() && lseek(static_cast<int>(handle_), 0, SEEK_END) != -1;
}

std::size_t File::Read(char* buffer, std::size_t size) {
    if (!IsOpen()) return 0;
    std::size_t done = 0;
    while (done < size) {
        const ssize_t count =
            read(static_cast<int>(handle_), buffer + done, std::min(size - done, kMostAtOnce));
        if (count == -1 && errno == EINTR) continue;
        if (count == -1) hasReadError_ = true;
        if (count <= 0) break;
        done += static_cast<std::size_t>(count);
    }
    return done;
}

bool File::Write(std::string_view text) {
    if (!IsOpen()) return false;
    const WriteSignalBlock block;
    while (!text.empty()) {
        const ssize_t count =
            write(static_cast<int>(handle_), text.data(), std::min(text.size(), kMostAtOnce));
        if (count == -1 && errno == EINTR) continue;
        if (count <= 0) return false;
        text.remove_prefix(static_cast<std::size_t>(count));
    }
    return true;
}

void File::Close() {
    // An interrupted close has freed the descriptor all the same; closing again could hit another thread's.
    if (IsOpen()) close(static_cast<int>(std::exchange(handle_, kNoHandle)));
}

}  // namespace macroengine::platform
