#include <string_view>

#include "platform/Directory.h"
#include "platform/WindowsHeaders_win32.h"

namespace macroengine::platform {

EntryKind KindOfEntry(const std::string& path) {
    const DWORD attributes = GetFileAttributesA(path.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES) return EntryKind::Missing;
    return attributes == FILE_ATTRIBUTE_DIRECTORY ? EntryKind::PlainDirectory : EntryKind::Other;
}

bool CreateFolder(const std::string& path) {
    return CreateDirectoryA(path.c_str(), nullptr) != 0;
}

struct FolderSearch::State {
    explicit State(const std::string& pattern) : handle(FindFirstFileA(pattern.c_str(), &entry)) {}
    ~State() {
        if (handle != INVALID_HANDLE_VALUE) FindClose(handle);
    }
    State(const State&) = delete;
    State& operator=(const State&) = delete;

    WIN32_FIND_DATAA entry{};
    HANDLE handle;
};

FolderSearch::FolderSearch() = default;
FolderSearch::~FolderSearch() = default;
FolderSearch::FolderSearch(FolderSearch&& other) noexcept = default;
FolderSearch& FolderSearch::operator=(FolderSearch&& other) noexcept = default;

std::optional<std::string> FolderSearch::First(const std::string& pattern) {
    state_.reset();
    state_ = std::make_unique<State>(pattern);
    if (state_->handle == INVALID_HANDLE_VALUE) {
        state_.reset();
        return std::nullopt;
    }
    const std::string_view name = state_->entry.cFileName;
    if (name != "." && name != "..") return std::string(name);
    return Next();
}

std::optional<std::string> FolderSearch::Next() {
    if (state_ == nullptr) return std::nullopt;
    while (FindNextFileA(state_->handle, &state_->entry)) {
        const std::string_view name = state_->entry.cFileName;
        if (name != "." && name != "..") return std::string(name);
    }
    state_.reset();
    return std::nullopt;
}

}  // namespace macroengine::platform
