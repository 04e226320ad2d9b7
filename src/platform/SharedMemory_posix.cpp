#include <dlfcn.h>
#include <fcntl.h>
#include <map>
#include <mutex>
#include <pthread.h>
#include <string_view>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/File.h"
#include "platform/SharedMemory.h"

// A named section of this system outlives its process, and a process id comes back. So a section that carries
// the right name is taken for this process's own only when this process has it mapped:
//
// - Whoever makes or finds a section keeps one mapping of it for good (the keeper). A dead process has no
//   mappings, and no clock is needed to tell its section from a living one.
// - The keeper of this copy of the code is known from its own records. That of another copy in the same
// process
//   shows in the process's list of mappings.
// - A keeper is not inherited by a forked child, and the records are dropped there: a child starts with no
//   sections, and leaves those of its parent alone when it ends.
//
// The copy that made a section removes its name when the process ends. A process that is killed leaves the
// name behind, for the next process of that id to replace.

namespace macroengine::platform {

namespace {

class Descriptor {
public:
    explicit Descriptor(int value) : value_(value) {}
    ~Descriptor() {
        if (IsOpen()) close(value_);
    }
    Descriptor(Descriptor&& other) noexcept : value_(other.value_) { other.value_ = -1; }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    bool IsOpen() const { return value_ != -1; }
    int Get() const { return value_; }

private:
    int value_;
};

/// Returns null when the section can't be mapped.
void* MapSection(const Descriptor& section, std::size_t size) {
    void* const address = mmap(nullptr, size, PROT_READ | PROT_WRITE, MAP_SHARED, section.Get(), 0);
    if (address == MAP_FAILED) return nullptr;
    return address;
}

/// Returns whether the process has the section of the name mapped. A section whose name has been removed is
/// listed with a remark behind the name and does not match.
bool IsListedAsMapped(const std::string& systemName) {
    File list;
    if (!list.OpenForReading("/proc/self/maps")) return false;
    std::string text;
    constexpr std::size_t kStep = 65536;
    std::size_t count = 0;
    do {
        const std::size_t length = text.size();
        text.resize(length + kStep);
        count = list.Read(text.data() + length, kStep);
        text.resize(length + count);
    } while (count == kStep);
    return text.find(systemName + "\n") != std::string::npos;
}

/// Keeps the library loaded, so that a host that unloads it and loads it again finds its sections as it left
/// them, and so that somebody is there to remove their names when the process ends.
void StayLoaded() {
    Dl_info library{};
    if (dladdr(reinterpret_cast<void*>(&StayLoaded), &library) != 0 && library.dli_fname != nullptr) {
        dlopen(library.dli_fname, RTLD_LAZY | RTLD_NOLOAD | RTLD_NODELETE);
    }
}

/// The records of the sections that this copy of the code has made or found. Its operations may be called
/// from any thread.
class Sections {
public:
    static Sections& Instance();

    /// Opens the section of the name if it is this process's own, or makes it if it may. A section that is
    /// shorter than size is neither.
    Descriptor Find(const std::string& systemName, std::size_t size, bool mayCreate, bool& wasCreated);

    /// Removes the names of the sections that were made here. None is made any more.
    void RemoveNames();

private:
    struct Section {
        dev_t device = 0;
        ino_t serial = 0;
        void* keeper = nullptr;
        std::size_t size = 0;
        bool isMaker = false;

        bool Is(const struct stat& status) const {
            return device == status.st_dev && serial == status.st_ino;
        }
    };

    Sections();
    Descriptor Create(const std::string& systemName, std::size_t size);
    bool Record(const std::string& systemName, const Descriptor& section, std::size_t size, bool isMaker);
    void ForgetThoseOfParent();

    std::mutex mutex_;
    std::map<std::string, Section> sections_;
    pid_t process_;
    bool isForked_ = false;
    bool isEnding_ = false;
};

Sections& Sections::Instance() {
    // Never destroyed, so that destructors of the host may still use it while the process ends.
    static Sections* const sections = new Sections;
    return *sections;
}

Sections::Sections() : process_(getpid()) {
    // A child that is forked while another thread works here must neither wait for that thread for ever nor
    // see its work half done. The id alone would not tell a child that got the id of a dead ancestor.
    pthread_atfork([] { Instance().mutex_.lock(); }, [] { Instance().mutex_.unlock(); },
                   [] {
                       Instance().isForked_ = true;
                       Instance().mutex_.unlock();
                   });
}

void Sections::ForgetThoseOfParent() {
    if (!isForked_ && process_ == getpid()) return;
    sections_.clear();
    process_ = getpid();
    isForked_ = false;
}

Descriptor Sections::Find(const std::string& systemName, std::size_t size, bool mayCreate, bool& wasCreated) {
    const std::lock_guard<std::mutex> lock(mutex_);
    ForgetThoseOfParent();

    Descriptor found(shm_open(systemName.c_str(), O_RDWR, 0));
    struct stat status {};
    if (found.IsOpen() && fstat(found.Get(), &status) == 0) {
        const auto known = sections_.find(systemName);
        const bool isKnown = known != sections_.end() && known->second.Is(status);
        if (isKnown || IsListedAsMapped(systemName)) {
            if (status.st_size < 0 || static_cast<std::uintmax_t>(status.st_size) < size)
                return Descriptor(-1);
            if (!isKnown && !Record(systemName, found, size, false)) return Descriptor(-1);
            return found;
        }
    }

    if (!mayCreate || isEnding_) return Descriptor(-1);
    Descriptor made = Create(systemName, size);
    wasCreated = made.IsOpen();
    return made;
}

Descriptor Sections::Create(const std::string& systemName, std::size_t size) {
    // Whatever carries the name by now is a dead process's.
    shm_unlink(systemName.c_str());
    Descriptor made(shm_open(systemName.c_str(), O_RDWR | O_CREAT | O_EXCL, S_IRUSR | S_IWUSR));
    if (!made.IsOpen()) return made;

    // The mode again, because the process may mask parts of it. The memory is reserved at once: where it is
    // short, a later store into the section would end the process.
    const auto length = static_cast<off_t>(size);
    const bool isUsable = fchmod(made.Get(), S_IRUSR | S_IWUSR) == 0 && ftruncate(made.Get(), length) == 0 &&
                          posix_fallocate(made.Get(), 0, length) == 0;
    if (!isUsable || !Record(systemName, made, size, true)) {
        shm_unlink(systemName.c_str());
        return Descriptor(-1);
    }
    return made;
}

bool Sections::Record(const std::string& systemName, const Descriptor& section, std::size_t size,
                      bool isMaker) {
    struct stat status {};
    if (fstat(section.Get(), &status) != 0) return false;
    // First of all what may run out of memory: a keeper without a record would stay for good.
    Section& entry = sections_[systemName];
    void* const keeper = MapSection(section, size);
    if (keeper == nullptr) return false;
#if defined(MADV_DONTFORK)
    madvise(keeper, size, MADV_DONTFORK);
#endif

    if (entry.keeper != nullptr) munmap(entry.keeper, entry.size);
    entry.device = status.st_dev;
    entry.serial = status.st_ino;
    entry.keeper = keeper;
    entry.size = size;
    entry.isMaker = isMaker;
    return true;
}

void Sections::RemoveNames() {
    const std::lock_guard<std::mutex> lock(mutex_);
    ForgetThoseOfParent();
    isEnding_ = true;
    for (const auto& [systemName, section] : sections_) {
        if (!section.isMaker) continue;
        const Descriptor current(shm_open(systemName.c_str(), O_RDWR, 0));
        struct stat status {};
        const bool isOurs = current.IsOpen() && fstat(current.Get(), &status) == 0 && section.Is(status);
        if (isOurs) shm_unlink(systemName.c_str());
    }
}

/// Sees to it that the names go when the process ends. Called without a lock: the loader has one of its own,
/// and may run code that comes here while it holds it.
void RemoveNamesAtEnd() {
    struct AtEnd {
        ~AtEnd() { Sections::Instance().RemoveNames(); }
    };
    static const AtEnd atEnd;
    StayLoaded();
}

}  // namespace

std::uint32_t ProcessId() {
    return static_cast<std::uint32_t>(getpid());
}

bool SharedMemory::Map(const std::string& name, std::size_t size, bool mayCreate) {
    Close();
    bool wasCreated = false;
    const Descriptor section = Sections::Instance().Find("/" + name, size, mayCreate, wasCreated);
    if (!section.IsOpen()) return false;
    if (wasCreated) RemoveNamesAtEnd();
    data_ = static_cast<unsigned char*>(MapSection(section, size));
    if (data_ == nullptr) return false;
    size_ = size;
    wasCreated_ = wasCreated;
    return true;
}

void SharedMemory::Close() {
    if (data_ != nullptr) munmap(data_, size_);
    data_ = nullptr;
    size_ = 0;
    wasCreated_ = false;
}

}  // namespace macroengine::platform
