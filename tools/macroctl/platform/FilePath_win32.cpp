#include "platform/FilePath.h"

#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>

namespace macroctl {

// The library's own conversion takes narrow texts for UTF-8 with one compiler and for the code page with another.
std::filesystem::path ToFilePath(const std::string& text) {
    const int size = static_cast<int>(text.size());
    std::wstring wide(text.size(), L'\0');
    const int length = MultiByteToWideChar(CP_ACP, 0, text.data(), size, wide.data(), size);
    wide.resize(static_cast<std::size_t>(length));
    return wide;
}

std::FILE* OpenStream(const std::filesystem::path& path, const char* mode) {
    return _wfopen(path.c_str(), std::wstring(mode, mode + std::char_traits<char>::length(mode)).c_str());
}

}  // namespace macroctl
