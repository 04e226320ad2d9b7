#pragma once

#include <cstdio>
#include <filesystem>
#include <string>

namespace macroctl {

/// @return the path that a text of the command line means, in the code page of the system.
std::filesystem::path ToFilePath(const std::string& text);

/// As std::fopen, for any path.
std::FILE* OpenStream(const std::filesystem::path& path, const char* mode);

}  // namespace macroctl
