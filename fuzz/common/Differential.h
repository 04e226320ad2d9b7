#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace macroengine::fuzz {

/// What became of comparing the engine with the reference.
struct Comparison {
    enum class Outcome { Equal, Different, TooExpensive };

    Outcome outcome = Outcome::Equal;
    std::string program;    ///< the macro texts
    std::string engine;     ///< all that is seen of it: results, error lines, what it showed, variables
    std::string reference;  ///< the same

    /// @return the program and where the two part, for somebody to look into.
    std::string Explain() const;
};

/// Generates the program that the bytes stand for, and runs it in the engine and in the reference evaluator.
Comparison CompareWithReference(const std::uint8_t* data, std::size_t size);

}  // namespace macroengine::fuzz
