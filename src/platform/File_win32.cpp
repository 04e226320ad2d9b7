#include <algorithm>
#include <utility>

#include "platform/File.h"
#include "platform/WindowsHeaders_win32.h"

namespace macroengine::platform {

const std::string_view kLineEnd = "\r\n";

namespace {

/// The system counts in 32 bits.
constexpr std::size_t kMostAtOnce = std::size_t{1} << 30;

constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

HANDLE ToHandle(std::intptr_t value) {
    return reinterpret_cast<HANDLE>(value);
}

std::intptr_t OpenHandle(const std::string& path, DWORD access, DWORD disposition) {
    const HANDLE handle =
        CreateFileA(path.c_str(), access, kShareAll, nullptr, disposition, FILE_ATTRIBUTE_NORMAL, nullptr);
    return reinterpret_cast<std::intptr_t>(handle);
}

}  // namespace

bool File::OpenForReading(const std::string& path) {
    Close();
    hasReadError_ = false;
    handle_ = OpenHandle(path, GENERIC_READ, OPEN_EXISTING);
    return IsOpen();
}

bool File::OpenForWriting(const std::string& path, WriteMode mode) {
    Close();
    handle_ = OpenHandle(path, GENERIC_WRITE, OPEN_ALWAYS);
    if (!IsOpen()) return false;
    // Cutting the open file at its start keeps its attributes, which making it anew would reset.
    if (mode == WriteMode::Truncate && GetLastError() == ERROR_ALREADY_EXISTS &&
        !SetEndOfFile(ToHandle(handle_))) {
        Close();
        return false;
    }
    return true;
}

std::uint64_t File::Size() const {
    LARGE_INTEGER size{};
    if (!IsOpen() || !GetFileSizeEx(ToHandle(handle_), &size) || size.QuadPart < 0) return 0;
    return static_cast<std::uint64_t>(size.QuadPart);
}

bool File::SeekToEnd() {
    return IsOpen() && SetFilePointerEx(ToHandle(handle_), LARGE_INTEGER{}, nullptr, FILE_END) != 0;
}

std::size_t File::Read(char* buffer, std::size_t size) {
    if (!IsOpen()) return 0;
    std::size_t done = 0;
    while (done < size) {
        const DWORD wanted = static_cast<DWORD>(std::min(size - done, kMostAtOnce));
        DWORD count = 0;
        if (!ReadFile(ToHandle(handle_), buffer + done, wanted, &count, nullptr)) hasReadError_ = true;
        if (count == 0) break;
        done += count;
    }
    return done;
}

bool File::Write(std::string_view text) {
    if (!IsOpen()) return false;
    while (!text.empty()) {
        const DWORD wanted = static_cast<DWORD>(std::min(text.size(), kMostAtOnce));
        DWORD count = 0;
        if (!WriteFile(ToHandle(handle_), text.data(), wanted, &count, nullptr) || count == 0) return false;
        text.remove_prefix(count);
    }
    return true;
}

void File::Close() {
    if (IsOpen()) CloseHandle(ToHandle(std::exchange(handle_, kNoHandle)));
}

}  // namespace macroengine::platform
