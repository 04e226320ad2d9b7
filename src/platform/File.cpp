#include "platform/File.h"

#include <utility>

namespace macroengine::platform {

File::~File() {
    Close();
}

File::File(File&& other) noexcept : handle_(std::exchange(other.handle_, kNoHandle)) {}

File& File::operator=(File&& other) noexcept {
    if (this != &other) {
        Close();
        handle_ = std::exchange(other.handle_, kNoHandle);
    }
    return *this;
}

}  // namespace macroengine::platform
