#include "platform/NativePath.h"

#include "platform/CodePage.h"

namespace macroengine::platform {

namespace {

constexpr std::string_view kDoubledNetworkPrefix = R"(\\\\)";

}  // namespace

std::string WithSeparator(std::string_view path, char separator) {
    std::string result(path);
    char* const end = result.data() + result.size();
    for (char* at = result.data(); at < end; at += CharacterLength(at, end)) {
        // A double-byte character never begins with "\", so the first byte tells.
        if (*at == '\\') *at = separator;
    }
    return result;
}

std::size_t FolderLength(std::string_view path) {
    if (!HasDoubleByteCharacters()) {
        const std::size_t separator = path.find_last_of("\\/");
        return separator == std::string_view::npos ? 0 : separator + 1;
    }
    // Whether a byte is a trail byte shows only from the front.
    std::size_t length = 0;
    const char* const end = path.data() + path.size();
    for (const char* at = path.data(); at < end; at += CharacterLength(at, end)) {
        if (*at == '\\' || *at == '/') length = static_cast<std::size_t>(at - path.data()) + 1;
    }
    return length;
}

std::string FolderOf(std::string_view path) {
    const std::size_t length = FolderLength(path);
    return length == 0 ? ".\\" : std::string(path.substr(0, length));
}

bool IsAbsolute(std::string_view path) {
    if (path.empty()) return false;
    return path[0] == '\\' || path[0] == '/' || (path.size() > 1 && path[1] == ':');
}

std::string CollapseDoubledBackslashes(std::string_view path) {
    std::string result;
    result.reserve(path.size());
    const char* at = path.data();
    const char* const end = at + path.size();
    if (path.substr(0, kDoubledNetworkPrefix.size()) == kDoubledNetworkPrefix) {
        result.append(2, '\\');
        at += kDoubledNetworkPrefix.size();
    }
    while (at < end) {
        const std::size_t length = CharacterLength(at, end);
        result.append(at, length);
        at += length;
        if (result.back() == '\\' && length == 1 && at < end && *at == '\\') ++at;
    }
    return result;
}

}  // namespace macroengine::platform
