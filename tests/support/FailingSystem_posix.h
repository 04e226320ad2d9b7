#pragma once

#include <cerrno>
#include <cstdarg>
#include <cstddef>
#include <dirent.h>
#include <fcntl.h>
#include <signal.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <sys/types.h>
#include <unistd.h>

/// @file
/// Stands between the program and the system: one file of a program includes this, and the program is linked with
/// `--wrap` for each of the calls below.

namespace macroengine::test {

/// What goes wrong with the calls of this thread.
struct SystemPolicy {
    long allowed = -1;  ///< calls that still succeed; negative for any number
    bool once = false;  ///< whether only one call fails
    int error = EIO;
    bool isInterrupted = false;    ///< each call fails with EINTR the first time
    bool isShort = false;          ///< a byte at a time is read and written
    bool refusesKills = false;     ///< no process may be sent a signal
    void (*pipeMade)() = nullptr;  ///< called when there is a new pipe
    long count = 0;
    long failures = 0;
};

inline thread_local SystemPolicy systemPolicy;
inline thread_local bool wasInterrupted = false;

/// Lets this thread's calls of the system go wrong as long as the object lives.
class FailingSystem {
public:
    explicit FailingSystem(const SystemPolicy& policy) { systemPolicy = policy; }
    ~FailingSystem() { systemPolicy = {}; }
    FailingSystem(const FailingSystem&) = delete;
    FailingSystem& operator=(const FailingSystem&) = delete;

    static long GetCount() { return systemPolicy.count; }
    static long GetFailures() { return systemPolicy.failures; }
};

/// @return whether the call at hand fails; errno is then set.
inline bool Refuse() {
    SystemPolicy& policy = systemPolicy;
    ++policy.count;
    const bool isRefused = policy.allowed == 0;
    if (policy.allowed > 0) --policy.allowed;
    if (!isRefused) return false;
    if (policy.once) policy.allowed = -1;
    ++policy.failures;
    errno = policy.error;
    return true;
}

/// As Refuse, for a call that a signal may interrupt.
inline bool RefuseOrInterrupt() {
    if (systemPolicy.isInterrupted) {
        wasInterrupted = !wasInterrupted;
        if (wasInterrupted) {
            errno = EINTR;
            return true;
        }
    }
    return Refuse();
}

inline std::size_t Shortened(std::size_t size) {
    return systemPolicy.isShort && size > 1 ? 1 : size;
}

}  // namespace macroengine::test

// The names are the linker's.
// NOLINTBEGIN(bugprone-reserved-identifier,cert-dcl37-c,cert-dcl51-cpp,readability-identifier-naming)
extern "C" {

int __real_open(const char* path, int flags, ...);
int __real_fstat(int descriptor, struct stat* status);
int __real_stat(const char* path, struct stat* status);
ssize_t __real_read(int descriptor, void* buffer, std::size_t size);
ssize_t __real_write(int descriptor, const void* buffer, std::size_t size);
off_t __real_lseek(int descriptor, off_t offset, int from);
DIR* __real_opendir(const char* path);
struct dirent* __real_readdir(DIR* directory);
int __real_mkdir(const char* path, mode_t mode);
int __real_pipe2(int* ends, int flags);
pid_t __real_fork();
pid_t __real_waitpid(pid_t child, int* status, int options);
int __real_shm_open(const char* name, int flags, mode_t mode);
int __real_ftruncate(int descriptor, off_t size);
int __real_posix_fallocate(int descriptor, off_t offset, off_t size);
void* __real_mmap(void* address, std::size_t size, int protection, int flags, int descriptor, off_t offset);
int __real_setenv(const char* name, const char* value, int overwrite);
int __real_kill(pid_t process, int signalNumber);

int __wrap_open(const char* path, int flags, ...) {
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = (flags & O_CREAT) != 0 ? va_arg(arguments, mode_t) : 0;
    va_end(arguments);
    return macroengine::test::RefuseOrInterrupt() ? -1 : __real_open(path, flags, mode);
}
int __wrap_fstat(int descriptor, struct stat* status) {
    return macroengine::test::Refuse() ? -1 : __real_fstat(descriptor, status);
}
int __wrap_stat(const char* path, struct stat* status) {
    return macroengine::test::Refuse() ? -1 : __real_stat(path, status);
}
ssize_t __wrap_read(int descriptor, void* buffer, std::size_t size) {
    if (macroengine::test::RefuseOrInterrupt()) return -1;
    return __real_read(descriptor, buffer, macroengine::test::Shortened(size));
}
ssize_t __wrap_write(int descriptor, const void* buffer, std::size_t size) {
    if (macroengine::test::RefuseOrInterrupt()) return -1;
    return __real_write(descriptor, buffer, macroengine::test::Shortened(size));
}
off_t __wrap_lseek(int descriptor, off_t offset, int from) {
    return macroengine::test::Refuse() ? -1 : __real_lseek(descriptor, offset, from);
}
DIR* __wrap_opendir(const char* path) {
    return macroengine::test::Refuse() ? nullptr : __real_opendir(path);
}
struct dirent* __wrap_readdir(DIR* directory) {
    return macroengine::test::Refuse() ? nullptr : __real_readdir(directory);
}
int __wrap_mkdir(const char* path, mode_t mode) {
    return macroengine::test::Refuse() ? -1 : __real_mkdir(path, mode);
}
int __wrap_pipe2(int* ends, int flags) {
    if (macroengine::test::Refuse() || __real_pipe2(ends, flags) != 0) return -1;
    if (macroengine::test::systemPolicy.pipeMade != nullptr) macroengine::test::systemPolicy.pipeMade();
    return 0;
}
pid_t __wrap_fork() {
    if (macroengine::test::Refuse()) return -1;
    const pid_t child = __real_fork();
    // The child keeps all signals from itself.
    if (child == 0) macroengine::test::systemPolicy.isInterrupted = false;
    return child;
}
pid_t __wrap_waitpid(pid_t child, int* status, int options) {
    return macroengine::test::RefuseOrInterrupt() ? -1 : __real_waitpid(child, status, options);
}
int __wrap_shm_open(const char* name, int flags, mode_t mode) {
    return macroengine::test::Refuse() ? -1 : __real_shm_open(name, flags, mode);
}
int __wrap_ftruncate(int descriptor, off_t size) {
    return macroengine::test::Refuse() ? -1 : __real_ftruncate(descriptor, size);
}
int __wrap_posix_fallocate(int descriptor, off_t offset, off_t size) {
    return macroengine::test::Refuse() ? errno : __real_posix_fallocate(descriptor, offset, size);
}
void* __wrap_mmap(void* address, std::size_t size, int protection, int flags, int descriptor, off_t offset) {
    if (macroengine::test::Refuse()) return MAP_FAILED;
    return __real_mmap(address, size, protection, flags, descriptor, offset);
}
int __wrap_setenv(const char* name, const char* value, int overwrite) {
    return macroengine::test::Refuse() ? -1 : __real_setenv(name, value, overwrite);
}

int __wrap_kill(pid_t process, int signalNumber) {
    if (!macroengine::test::systemPolicy.refusesKills) return __real_kill(process, signalNumber);
    errno = EPERM;
    return -1;
}

}  // extern "C"
// NOLINTEND(bugprone-reserved-identifier,cert-dcl37-c,cert-dcl51-cpp,readability-identifier-naming)
