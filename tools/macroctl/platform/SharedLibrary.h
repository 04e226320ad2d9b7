#pragma once

#include <string>

namespace macroctl {

/// A shared library that stays loaded as long as this object.
class SharedLibrary {
public:
    using Function = void (*)();

    SharedLibrary() = default;
    SharedLibrary(SharedLibrary&& other) noexcept;
    SharedLibrary& operator=(SharedLibrary&& other) noexcept;
    SharedLibrary(const SharedLibrary&) = delete;
    SharedLibrary& operator=(const SharedLibrary&) = delete;
    ~SharedLibrary();

    /// Loads the library and all that it needs.
    ///
    /// @param path    a bare name means a file of the current folder: the system's library folders are not
    ///                searched.
    /// @param reason  receives the system's words when the result is false.
    bool Open(const std::string& path, std::string& reason);

    /// @return the exported function, or null when the library has none of this name. The caller casts it to
    ///         its true type.
    Function Find(const char* name) const;

private:
    void* handle_ = nullptr;
};

}  // namespace macroctl
