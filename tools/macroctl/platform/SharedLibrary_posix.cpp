#include <dlfcn.h>
#include <utility>

#include "platform/SharedLibrary.h"

namespace macroctl {

SharedLibrary::SharedLibrary(SharedLibrary&& other) noexcept
    : handle_(std::exchange(other.handle_, nullptr)) {}

SharedLibrary& SharedLibrary::operator=(SharedLibrary&& other) noexcept {
    std::swap(handle_, other.handle_);
    return *this;
}

SharedLibrary::~SharedLibrary() {
    if (handle_ != nullptr) dlclose(handle_);
}

bool SharedLibrary::Open(const std::string& path, std::string& reason) {
    const std::string place = path.find('/') == std::string::npos ? "./" + path : path;
    handle_ = dlopen(place.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (handle_ != nullptr) return true;
    const char* words = dlerror();
    reason = words != nullptr ? words : "unknown reason";
    // The system begins with the name, which the caller gives already.
    if (reason.compare(0, place.size() + 2, place + ": ") == 0) reason.erase(0, place.size() + 2);
    return false;
}

SharedLibrary::Function SharedLibrary::Find(const char* name) const {
    return reinterpret_cast<Function>(dlsym(handle_, name));
}

}  // namespace macroctl
