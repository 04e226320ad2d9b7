#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <system_error>

namespace macroengine::test {

/// A folder of the test's own, removed with all it holds.
class TemporaryFolder {
public:
    TemporaryFolder() {
        std::random_device random;
        do {
            path_ = std::filesystem::temp_directory_path() / ("macroengine-" + std::to_string(random()));
        } while (!std::filesystem::create_directory(path_));
    }
    ~TemporaryFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    /// Without a separator at its end.
    std::string Path() const { return path_.string(); }

    std::string PathOf(const std::string& name) const { return (path_ / name).string(); }

    /// Returns the path of the file.
    std::string Write(const std::string& name, const std::string& bytes) const {
        std::ofstream(path_ / name, std::ios::binary) << bytes;
        return PathOf(name);
    }

    std::string Read(const std::string& name) const {
        std::ifstream file(path_ / name, std::ios::binary);
        return std::string(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
    }

    std::string MakeFolder(const std::string& name) const {
        std::filesystem::create_directory(path_ / name);
        return PathOf(name);
    }

private:
    std::filesystem::path path_;
};

}  // namespace macroengine::test
