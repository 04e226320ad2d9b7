#include <map>
#include <mutex>

#include "platform/SharedMemory.h"
#include "platform/WindowsHeaders_win32.h"

namespace macroengine::platform {

namespace {

/// The section of the name for good: its handle is deliberately never closed. Between two views nothing but
/// an open handle keeps a section alive, and it shall live as long as the process does. One handle for a name
/// is enough, and each further one would be lost.
class Sections {
public:
    /// Returns null when there is no section of the name and none is to be made or can be made.
    HANDLE Find(const std::string& name, std::size_t size, bool mayCreate, bool& wasCreated) {
        const std::lock_guard<std::mutex> lock(mutex_);
        const auto known = handles_.find(name);
        if (known != handles_.end()) return known->second;

        HANDLE handle = OpenFileMappingA(FILE_MAP_ALL_ACCESS, FALSE, name.c_str());
        if (handle == nullptr && mayCreate) {
            handle = CreateFileMappingA(INVALID_HANDLE_VALUE, nullptr, PAGE_READWRITE, 0,
                                        static_cast<DWORD>(size), name.c_str());
            wasCreated = handle != nullptr && GetLastError() != ERROR_ALREADY_EXISTS;
        }
        if (handle != nullptr) handles_.emplace(name, handle);
        return handle;
    }

private:
    std::mutex mutex_;
    std::map<std::string, HANDLE> handles_;
};

Sections& AllSections() {
    // Never destroyed, so that destructors of the host may still use it while the process ends.
    static Sections* const sections = new Sections;
    return *sections;
}

}  // namespace

std::uint32_t ProcessId() {
    return GetCurrentProcessId();
}

bool SharedMemory::Map(const std::string& name, std::size_t size, bool mayCreate) {
    Close();
    bool wasCreated = false;
    const HANDLE handle = AllSections().Find(name, size, mayCreate, wasCreated);
    if (handle == nullptr) return false;
    // Asking for the size makes a section that is shorter fail here.
    data_ = static_cast<unsigned char*>(MapViewOfFile(handle, FILE_MAP_ALL_ACCESS, 0, 0, size));
    if (data_ == nullptr) return false;
    size_ = size;
    wasCreated_ = wasCreated;
    return true;
}

void SharedMemory::Close() {
    if (data_ != nullptr) UnmapViewOfFile(data_);
    data_ = nullptr;
    size_ = 0;
    wasCreated_ = false;
}

}  // namespace macroengine::platform
