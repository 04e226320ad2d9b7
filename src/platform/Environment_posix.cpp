#include <cstdlib>

#include "platform/Environment.h"

namespace macroengine::platform {

namespace {

bool IsValidName(const std::string& name) {
    return !name.empty() && name.find('=') == std::string::npos && name.find('\0') == std::string::npos;
}

}  // namespace

std::optional<std::string> GetEnvironmentText(const std::string& name) {
    if (!IsValidName(name)) return std::nullopt;
    const std::unique_lock<std::mutex> lock = LockEnvironment();
    // The text is copied under the lock: setenv may move it.
    const char* const text = std::getenv(name.c_str());
    if (text == nullptr) return std::nullopt;
    return std::string(text);
}

bool SetEnvironmentText(const std::string& name, const std::string& value) {
    if (!IsValidName(name)) return false;
    const std::unique_lock<std::mutex> lock = LockEnvironment();
    return setenv(name.c_str(), value.c_str(), 1) == 0;
}

std::unique_lock<std::mutex> LockEnvironment() {
    static std::mutex mutex;
    return std::unique_lock<std::mutex>(mutex);
}

}  // namespace macroengine::platform
