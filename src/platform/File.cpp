#include "platform/File.h"

#include <utility>

namespace macroengine::platform {

File::~File() {
    Close();
}

File::File(File&& other) noexcept
    : handle_(std::exchange(other.handle_, kNoHandle)), hasReadError_(other.hasReadError_) {}

File& File::operator=(File&& other) noexcept {
    if (this != &other) {
        Close();
        handle_ = std::exchange(other.handle_, kNoHandle);
        hasReadError_ = other.hasReadError_;
    }
    return *this;
}

}  // namespace macroengine::platform
