#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace macroengine::platform {

/// What ends a line in the text files of the system.
extern const std::string_view kLineEnd;

/// What becomes of a file that is there already when it is opened for writing.
enum class WriteMode {
    Truncate,  ///< It loses what it holds.
    Append,    ///< It keeps what it holds. Writing begins at its start until SeekToEnd is called.
};

/// A file of the system, read and written in plain bytes without a buffer of its own. It owns its handle and
/// closes it in the destructor. Started programs do not inherit it. An object is used by one thread at a
/// time.
class File {
public:
    File() = default;
    ~File();
    File(File&& other) noexcept;
    File& operator=(File&& other) noexcept;
    File(const File&) = delete;
    File& operator=(const File&) = delete;

    /// Opens a file for reading, after closing the one that is open. Others may go on reading, writing and
    /// deleting it.
    ///
    /// @return false when there is no such file, it may not be read or it is a folder; no file is open then.
    bool OpenForReading(const std::string& path);

    /// Opens a file for writing, after closing the one that is open. A file that does not exist is made; its
    /// folder is not.
    ///
    /// @return false when the file can't be made or may not be written; no file is open then.
    bool OpenForWriting(const std::string& path, WriteMode mode);

    bool IsOpen() const { return handle_ != kNoHandle; }

    /// Returns the number of bytes in the file, 0 when it can't be told.
    std::uint64_t Size() const;

    /// Moves the place that is written next behind the last byte.
    ///
    /// @return false when the file has no places (a pipe, a terminal).
    bool SeekToEnd();

    /// Reads on from the last place.
    ///
    /// @return the number of bytes read: less than size only at the end of the file or after an error.
    std::size_t Read(char* buffer, std::size_t size);

    /// @return whether an error has ended a Read early since the file was opened.
    bool HasReadError() const { return hasReadError_; }

    /// Writes all bytes of the text.
    ///
    /// @return false when an error stopped it; a part may have been written.
    bool Write(std::string_view text);

    /// Closes the file. Without an open one nothing happens.
    void Close();

private:
    static constexpr std::intptr_t kNoHandle = -1;

    /// A file descriptor, or a Windows handle.
    std::intptr_t handle_ = kNoHandle;
    bool hasReadError_ = false;
};

}  // namespace macroengine::platform
