#include <algorithm>
#include <cstddef>
#include <dirent.h>
#include <string_view>
#include <sys/stat.h>
#include <utility>
#include <vector>

#include "platform/Directory.h"
#include "platform/NamePattern.h"
#include "platform/NativePath_posix.h"

namespace macroengine::platform {

namespace {

constexpr mode_t kNewFolderMode = 0777;

struct CloseDirectory {
    void operator()(DIR* directory) const { closedir(directory); }
};

std::vector<std::string> MatchingNames(const std::string& folder, std::string_view pattern) {
    std::vector<std::string> names;
    const std::unique_ptr<DIR, CloseDirectory> directory(opendir(ToSystemPath(folder).c_str()));
    if (directory == nullptr) return names;
    while (const dirent* const entry = readdir(directory.get())) {
        const std::string_view name = entry->d_name;
        if (name != "." && name != ".." && MatchesNamePattern(name, pattern)) names.emplace_back(name);
    }
    std::sort(names.begin(), names.end());
    return names;
}

}  // namespace

EntryKind KindOfEntry(const std::string& path) {
    struct stat status {};
    if (stat(ToSystemPath(path).c_str(), &status) != 0) return EntryKind::Missing;
    return S_ISDIR(status.st_mode) ? EntryKind::PlainDirectory : EntryKind::Other;
}

bool CreateFolder(const std::string& path) {
    return mkdir(ToSystemPath(path).c_str(), kNewFolderMode) == 0;
}

/// All names are read at the start: the system would give them in no order, and some of them twice or not at
/// all when files come and go meanwhile.
struct FolderSearch::State {
    std::vector<std::string> names;
    std::size_t next = 0;
};

FolderSearch::FolderSearch() = default;
FolderSearch::~FolderSearch() = default;
FolderSearch::FolderSearch(FolderSearch&& other) noexcept = default;
FolderSearch& FolderSearch::operator=(FolderSearch&& other) noexcept = default;

std::optional<std::string> FolderSearch::First(const std::string& pattern) {
    const std::size_t folderLength = FolderLength(pattern);
    const std::string folder = folderLength == 0 ? "." : pattern.substr(0, folderLength);
    state_ = std::make_unique<State>();
    state_->names = MatchingNames(folder, std::string_view(pattern).substr(folderLength));
    return Next();
}

std::optional<std::string> FolderSearch::Next() {
    if (state_ == nullptr || state_->next == state_->names.size()) return std::nullopt;
    return std::move(state_->names[state_->next++]);
}

}  // namespace macroengine::platform
