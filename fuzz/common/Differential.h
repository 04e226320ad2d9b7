#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace macroengine::fuzz {

/// What became of comparing the engine with the reference.
struct Comparison {
    enum class Outcome { Equal, Different, TooExpensive };

    Outcome outcome = Outcome::Equal;
    std::string program;  ///< the macro text
    std::string
        engine;  ///< all that can be seen of a run: its results, error lines, what it showed, variables
    std::string reference;  ///< the same

    /// @return the program and where the two part, for somebody to look into.
    std::string Explain() const;
};

/// Runs the program that the bytes stand for in the engine and in the reference evaluator.
Comparison CompareWithReference(const std::uint8_t* data, std::size_t size);

/// The same for a macro text.
Comparison CompareWithReference(const std::string& program, bool stopOnError, int runs);

}  // namespace macroengine::fuzz
