#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

/// @file
/// Named memory of this process that its modules share, and that other processes may look into by name.
///
/// A section lives until the process ends. The process is the owner of its names: whoever chooses one puts
/// the process id into it. Modules with copies of this code of their own find the same section.

namespace macroengine::platform {

/// Returns the id of the calling process.
std::uint32_t ProcessId();

/// A view of a named section, unmapped in the destructor. What the view is destroyed with stays in the
/// section.
class SharedMemory {
public:
    SharedMemory() = default;
    ~SharedMemory();
    SharedMemory(SharedMemory&& other) noexcept;
    SharedMemory& operator=(SharedMemory&& other) noexcept;
    SharedMemory(const SharedMemory&) = delete;
    SharedMemory& operator=(const SharedMemory&) = delete;

    /// Maps a section that this process has. On POSIX one that only carries its name, left behind by a dead
    /// process or put there by another one, does not count.
    ///
    /// @return false, with nothing mapped, when there is none, it is shorter than size or can't be mapped.
    bool Open(const std::string& name, std::size_t size);

    /// As Open, but makes the section when the process has none. A new one holds zeros.
    ///
    /// @return false, with nothing mapped, when the section can neither be opened nor made.
    bool OpenOrCreate(const std::string& name, std::size_t size);

    /// Returns whether OpenOrCreate made the section that is mapped.
    bool WasCreated() const { return wasCreated_; }

    /// Returns the first byte, null when nothing is mapped.
    unsigned char* Data() const { return data_; }

    /// Unmaps the section. Without one nothing happens.
    void Close();

private:
    bool Map(const std::string& name, std::size_t size, bool mayCreate);

    unsigned char* data_ = nullptr;
    std::size_t size_ = 0;
    bool wasCreated_ = false;
};

}  // namespace macroengine::platform
