#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#include <utility>
#include <windows.h>

#include "platform/SharedLibrary.h"

namespace macroctl {

namespace {

std::string LastErrorText() {
    const DWORD code = GetLastError();
    char text[512];
    DWORD length = FormatMessageA(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr, code,
                                  0, text, static_cast<DWORD>(sizeof text), nullptr);
    while (length > 0 && (text[length - 1] == '\r' || text[length - 1] == '\n' || text[length - 1] == ' '))
        --length;
    return length > 0 ? std::string(text, length) : "error " + std::to_string(code);
}

}  // namespace

SharedLibrary::SharedLibrary(SharedLibrary&& other) noexcept
    : handle_(std::exchange(other.handle_, nullptr)) {}

SharedLibrary& SharedLibrary::operator=(SharedLibrary&& other) noexcept {
    std::swap(handle_, other.handle_);
    return *this;
}

SharedLibrary::~SharedLibrary() {
    if (handle_ != nullptr) FreeLibrary(static_cast<HMODULE>(handle_));
}

bool SharedLibrary::Open(const std::string& path, std::string& reason) {
    // The altered search, which finds what lies beside the library, asks for an absolute path.
    char place[MAX_PATH];
    const DWORD length = GetFullPathNameA(path.c_str(), MAX_PATH, place, nullptr);
    if (length == 0 || length >= MAX_PATH) {
        reason = length == 0 ? LastErrorText() : "the path is too long";
        return false;
    }
    handle_ = LoadLibraryExA(place, nullptr, LOAD_WITH_ALTERED_SEARCH_PATH);
    if (handle_ == nullptr) reason = LastErrorText();
    return handle_ != nullptr;
}

SharedLibrary::Function SharedLibrary::Find(const char* name) const {
    return reinterpret_cast<Function>(GetProcAddress(static_cast<HMODULE>(handle_), name));
}

}  // namespace macroctl
