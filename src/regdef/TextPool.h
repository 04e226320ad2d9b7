#pragma once

#include <cstddef>
#include <initializer_list>
#include <memory>
#include <string_view>
#include <vector>

namespace macroengine {

/// Keeps many small texts in a few blocks of memory. A text never moves and is never freed alone.
class TextPool {
public:
    TextPool() = default;
    TextPool(const TextPool&) = delete;
    TextPool& operator=(const TextPool&) = delete;

    /// Copies texts, one behind the other, each closed by a NUL.
    /// @return the first one, valid as long as the pool.
    const char* Add(std::initializer_list<std::string_view> texts);

    const char* Add(std::string_view text) { return Add({text}); }

private:
    char* Allocate(std::size_t size);
    char* AddBlock(std::size_t size);

    static constexpr std::size_t kFirstBlockSize = std::size_t{1} << 10;
    static constexpr std::size_t kLargestBlockSize = std::size_t{1} << 18;

    std::vector<std::unique_ptr<char[]>> blocks_;
    char* free_ = nullptr;  ///< of the block that is being filled
    std::size_t room_ = 0;
    std::size_t nextBlockSize_ = kFirstBlockSize;
};

}  // namespace macroengine
