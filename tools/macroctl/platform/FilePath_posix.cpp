#include "platform/FilePath.h"

namespace macroctl {

std::filesystem::path ToFilePath(const std::string& text) {
    return text;
}

std::FILE* OpenStream(const std::filesystem::path& path, const char* mode) {
    return std::fopen(path.c_str(), mode);
}

}  // namespace macroctl
