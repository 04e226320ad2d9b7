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
    // The size tells whether the variable is set: a missing one is no error to getenv_s.
    std::size_t size = 0;
    getenv_s(&size, nullptr, 0, name.c_str());
    if (size == 0) return std::nullopt;
    std::string text(size, '\0');
    if (getenv_s(&size, text.data(), text.size(), name.c_str()) != 0 || size == 0) return std::nullopt;
    text.resize(size - 1);
    return text;
}

bool SetEnvironmentText(const std::string& name, const std::string& value) {
    if (!IsValidName(name)) return false;
    const std::unique_lock<std::mutex> lock = LockEnvironment();
    return _putenv_s(name.c_str(), value.c_str()) == 0;
}

std::unique_lock<std::mutex> LockEnvironment() {
    static std::mutex mutex;
    return std::unique_lock<std::mutex>(mutex);
}

}  // namespace macroengine::platform
