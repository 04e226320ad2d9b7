#include "platform/SharedMemory.h"

#include <utility>

namespace macroengine::platform {

SharedMemory::~SharedMemory() {
    Close();
}

SharedMemory::SharedMemory(SharedMemory&& other) noexcept
    : data_(std::exchange(other.data_, nullptr)),
      size_(std::exchange(other.size_, 0)),
      wasCreated_(std::exchange(other.wasCreated_, false)) {}

SharedMemory& SharedMemory::operator=(SharedMemory&& other) noexcept {
    if (this != &other) {
        Close();
        data_ = std::exchange(other.data_, nullptr);
        size_ = std::exchange(other.size_, 0);
        wasCreated_ = std::exchange(other.wasCreated_, false);
    }
    return *this;
}

bool SharedMemory::Open(const std::string& name, std::size_t size) {
    return Map(name, size, false);
}

bool SharedMemory::OpenOrCreate(const std::string& name, std::size_t size) {
    return Map(name, size, true);
}

}  // namespace macroengine::platform
