#pragma once

#include <memory>
#include <optional>
#include <string>

namespace macroengine::platform {

enum class EntryKind {
    Missing,         ///< Nothing has the path, or it can't be looked up.
    PlainDirectory,  ///< A directory. On Windows one without further attributes (hidden, read-only, archive).
    Other,           ///< A file, or on Windows a directory with further attributes.
};

EntryKind KindOfEntry(const std::string& path);

/// Makes a folder. Its parent must exist.
///
/// @return false when something has the path already, the parent is missing or it may not be changed.
bool CreateFolder(const std::string& path);

/// A search for the files and folders of one folder whose names match a pattern.
///
/// "*" stands for any characters, "?" for one, ASCII letters match in upper and lower case alike, and "*.*"
/// matches every name, even one without a point. "." and ".." are never found. On POSIX the names come in the
/// byte-wise order that they had when the search was started. An object is used by one thread at a time.
class FolderSearch {
public:
    FolderSearch();
    ~FolderSearch();
    FolderSearch(FolderSearch&& other) noexcept;
    FolderSearch& operator=(FolderSearch&& other) noexcept;
    FolderSearch(const FolderSearch&) = delete;
    FolderSearch& operator=(const FolderSearch&) = delete;

    /// Ends the search in progress and starts one. Only the part of the pattern behind the last separator may
    /// hold "*" and "?"; the rest is the folder, the current one when there is none.
    ///
    /// @return the first name, without its folder; nothing when there is none or the folder does not exist.
    std::optional<std::string> First(const std::string& pattern);

    /// Returns the next name; nothing when there is no further one or no search is in progress.
    std::optional<std::string> Next();

private:
    struct State;
    std::unique_ptr<State> state_;
};

}  // namespace macroengine::platform
