// Compares the engine with the reference evaluator on programs from fixed pseudo-random bytes:
// differential_test [PROGRAMS [FIRST]]. The bytes of program n depend on n alone.

#include "common/Differential.h"

#include <cstdio>
#include <cstdlib>
#include <vector>

namespace {

using macroengine::fuzz::Comparison;

/// splitmix64: the same numbers with every compiler and library.
class Random {
public:
    explicit Random(std::uint64_t seed) : state_(seed) {}

    std::uint64_t Next() {
        std::uint64_t bits = state_ += 0x9E3779B97F4A7C15;
        bits = (bits ^ (bits >> 30)) * 0xBF58476D1CE4E5B9;
        bits = (bits ^ (bits >> 27)) * 0x94D049BB133111EB;
        return bits ^ (bits >> 31);
    }

private:
    std::uint64_t state_;
};

Comparison CompareProgram(std::uint64_t number) {
    Random random(number);
    std::vector<std::uint8_t> bytes(100 + random.Next() % 600);
    for (std::uint8_t& byte : bytes)
        byte = static_cast<std::uint8_t>(random.Next());
    return macroengine::fuzz::CompareWithReference(bytes.data(), bytes.size());
}

}  // namespace

int main(int argc, char** argv) {
    const std::uint64_t count = argc > 1 ? std::strtoull(argv[1], nullptr, 10) : 2000;
    const std::uint64_t first = argc > 2 ? std::strtoull(argv[2], nullptr, 10) : 0;
    std::uint64_t compared = 0;
    for (std::uint64_t number = first; number < first + count; ++number) {
        const Comparison comparison = CompareProgram(number);
        if (comparison.outcome == Comparison::Outcome::Equal) ++compared;
        if (comparison.outcome != Comparison::Outcome::Different) continue;
        std::printf("Program %llu differs.\n%s", static_cast<unsigned long long>(number),
                    comparison.Explain().c_str());
        return 1;
    }
    std::printf("%llu programs compared, the others were too expensive\n",
                static_cast<unsigned long long>(compared));
    // A generator whose programs hardly ever come to an end would prove nothing.
    return compared > count / 2 ? 0 : 1;
}
