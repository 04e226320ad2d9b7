#include "io/WholeFile.h"

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <random>
#include <system_error>

#include "platform/FilePath.h"

namespace macroctl {

namespace {

namespace fs = std::filesystem;

struct CloseStream {
    void operator()(std::FILE* stream) const { std::fclose(stream); }
};

using Stream = std::unique_ptr<std::FILE, CloseStream>;

bool ReadToEnd(std::FILE* stream, std::string& bytes) {
    bytes.clear();
    char buffer[0x10000];
    while (const std::size_t count = std::fread(buffer, 1, sizeof buffer, stream))
        bytes.append(buffer, count);
    return std::ferror(stream) == 0;
}

bool WriteBytes(const fs::path& path, const char* mode, const std::string& bytes) {
    Stream stream(OpenStream(path, mode));
    if (!stream) return false;
    const bool written = std::fwrite(bytes.data(), 1, bytes.size(), stream.get()) == bytes.size();
    return std::fclose(stream.release()) == 0 && written;
}

/// Beside the file, because only within one file system a file can take another's place, and under a name of
/// its own, because a long one may not grow.
fs::path TemporaryName(fs::path path) {
    return path.replace_filename(".macroctl-" + std::to_string(std::random_device()()) + ".tmp");
}

bool ReadRegularFile(const std::string& path, std::string& bytes) {
    std::error_code ignored;
    return fs::is_regular_file(ToFilePath(path), ignored) && ReadWholeFile(path, bytes);
}

}  // namespace

bool ReadWholeFile(const std::string& path, std::string& bytes) {
    const fs::path file = ToFilePath(path);
    std::error_code ignored;
    if (fs::is_directory(file, ignored)) return false;
    const Stream stream(OpenStream(file, "rb"));
    return stream && ReadToEnd(stream.get(), bytes);
}

bool ReadStandardInput(std::string& bytes) {
    return ReadToEnd(stdin, bytes);
}

bool ReadSourceFile(std::string path, std::string& bytes) {
    if (ReadRegularFile(path, bytes)) return true;
    std::replace(path.begin(), path.end(), '\\', '/');
    return ReadRegularFile(path, bytes);
}

bool WriteWholeFile(const std::string& path, const std::string& bytes) {
    const fs::path file = ToFilePath(path);
    std::error_code error;
    const fs::file_status status = fs::status(file, error);
    const bool exists = fs::exists(status);
    const bool leadsNowhere = !exists && fs::is_symlink(fs::symlink_status(file, error));
    if (leadsNowhere || (exists && !fs::is_regular_file(status))) return WriteBytes(file, "wb", bytes);

    // A link stays one: what it leads to is replaced.
    const fs::path target = exists ? fs::canonical(file, error) : file;
    if (exists && error) return false;
    const fs::path temporary = TemporaryName(target);
    bool done = WriteBytes(temporary, "wbx", bytes);
    if (done && exists) fs::permissions(temporary, status.permissions(), error);
    if (done) {
        fs::rename(temporary, target, error);
        done = !error;
    }
    if (!done) fs::remove(temporary, error);
    return done;
}

}  // namespace macroctl
