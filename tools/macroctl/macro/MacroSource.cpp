#include "macro/MacroSource.h"

#include <cstdio>
#include <filesystem>
#include <random>
#include <system_error>

#include "io/WholeFile.h"

namespace macroctl {

MacroSource::MacroSource(const std::string& argument) : path_(argument), name_(argument) {
    if (argument != "-") return;
    path_ = ".macroctl-" + std::to_string(std::random_device()()) + ".mac";
    name_ = "<stdin>";
}

MacroSource::~MacroSource() {
    Close();
}

bool MacroSource::Open(std::string& reason) {
    if (!IsStandardInput()) return true;
    if (!ReadStandardInput(text_)) {
        reason = "can't read from standard input";
        return false;
    }
    isOnDisk_ = WriteWholeFile(path_, text_);
    if (!isOnDisk_) reason = "can't write to the current folder, where standard input is kept for the engine";
    return isOnDisk_;
}

void MacroSource::Close() {
    if (!isOnDisk_) return;
    std::error_code ignored;
    std::filesystem::remove(path_, ignored);
    isOnDisk_ = false;
}

std::string MacroSource::Shown(std::string text) const {
    if (!IsStandardInput()) return text;
    for (std::size_t at = text.find(path_); at != std::string::npos; at = text.find(path_, at))
        text.replace(at, path_.size(), name_);
    return text;
}

}  // namespace macroctl
