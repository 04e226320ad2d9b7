// Arrays and texts, of as many elements or appends as the argument says.

#include <benchmark/benchmark.h>
#include <string>

#include "CompiledProgram.h"

namespace {

using namespace macroengine;

/// Runs a macro whose loop turns N times.
void Turn(benchmark::State& state, const std::string& before, const std::string& line) {
    bench::CompiledProgram compiled(before + "\ni = 0\nloop i < " + std::to_string(state.range(0)) + "\n" +
                                    line + "\ni = i + 1\nendloop\n");
    for (auto _ : state) {
        if (!compiled.IsCompiled() || !compiled.GetProgram().Run()) state.SkipWithError("it does not run");
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

/// The gap before the element is filled with zeros.
const char* const kThousand = "a[999] = 1";

void ArrayOfIntegers(benchmark::State& state) {
    Turn(state, "a = 0", "a[i] = i");
}

void ArrayOfFloatingValues(benchmark::State& state) {
    Turn(state, "a = 0", "a[i] = 1.5");
}

void ArrayOfTexts(benchmark::State& state) {
    Turn(state, "a = 0", "a[i] = \"0123456789\"");
}

void ArrayCopy(benchmark::State& state) {
    Turn(state, kThousand, "b = a");
}

/// The first write behind a copy is what takes the time.
void ArrayCopyAndStore(benchmark::State& state) {
    Turn(state, kThousand, "b = a\nb[5] = i");
}

void ArrayOfRows(benchmark::State& state) {
    Turn(state, "m = 0", "m[i][3] = i");
}

void TextAppend(benchmark::State& state) {
    Turn(state, "text = \"\"", "text = text + \"0123456789\"");
}

void TextAppendNumber(benchmark::State& state) {
    Turn(state, "text = \"\"", "text = text + i");
}

/// Somebody else holds what the text was before.
void TextAppendToShared(benchmark::State& state) {
    Turn(state, "text = \"\"", "old = text\ntext = text + \"0123456789\"");
}

BENCHMARK(ArrayOfIntegers)->RangeMultiplier(10)->Range(1000, 100000);
BENCHMARK(ArrayOfFloatingValues)->RangeMultiplier(10)->Range(1000, 100000);
BENCHMARK(ArrayOfTexts)->RangeMultiplier(10)->Range(1000, 100000);
BENCHMARK(ArrayCopy)->RangeMultiplier(10)->Range(1000, 10000);
BENCHMARK(ArrayCopyAndStore)->RangeMultiplier(10)->Range(1000, 10000);
BENCHMARK(ArrayOfRows)->RangeMultiplier(10)->Range(1000, 100000);
BENCHMARK(TextAppend)->RangeMultiplier(10)->Range(1000, 100000);
BENCHMARK(TextAppendNumber)->RangeMultiplier(10)->Range(1000, 100000);
BENCHMARK(TextAppendToShared)->RangeMultiplier(10)->Range(1000, 100000);

}  // namespace
