#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>

/// @file
/// What a script can't exceed. The tests of the limits themselves are built with tiny ones, which they can reach.

namespace macroengine::limits {

#if defined(MACROENGINE_TINY_LIMITS)
constexpr bool kTiny = true;
#else
constexpr bool kTiny = false;
#endif

/// How deep constructs of one kind may stand inside each other. The parsers call themselves for each level, so
/// this is what keeps a hostile file from exhausting the stack.
constexpr std::uint32_t kNesting = kTiny ? 4 : 256;

/// How many files one load may include. Files that include others twice, and those again others, would go on for
/// ever.
constexpr std::uint32_t kIncludes = kTiny ? 6 : 65536;

/// What all substitutions of one load may add to the text, in tokens. A few lines could otherwise stand for more
/// than any memory holds.
constexpr std::uint32_t kSubstitutedTokens = kTiny ? 20 : std::uint32_t{1} << 23;

/// An element store refuses this index and any above it.
constexpr std::uint32_t kArrayIndex = kTiny ? 8 : 134217728;

/// The bytes of a text.
constexpr std::size_t kTextBytes = kTiny ? 32 : std::numeric_limits<std::uint32_t>::max() - 64;

/// The bytes of an array written out for a command. It may hold the same part many times over.
constexpr std::size_t kArrayTextBytes = kTiny ? 24 : std::size_t{64} << 20;

/// The owners of a text or an array that are counted. From there on it is kept for good.
constexpr std::uint32_t kReferences = kTiny ? 5 : std::numeric_limits<std::uint32_t>::max();

}  // namespace macroengine::limits
