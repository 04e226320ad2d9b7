// From a file to tokens and to a program. The argument is the number of lines.

#include <benchmark/benchmark.h>
#include <cstdint>
#include <string>
#include <vector>

#include <macroengine/LineEncoding.h>

#include "CompiledProgram.h"
#include "MixedSource.h"
#include "source/CLex.h"
#include "source/SourceLoader.h"

namespace {

using namespace macroengine;

std::string MixedText(const benchmark::State& state) {
    return bench::MixedSource(static_cast<std::size_t>(state.range(0)) / bench::kMixedLineCount);
}

void CountLines(benchmark::State& state, const std::string& text) {
    state.SetItemsProcessed(state.iterations() * state.range(0));
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(text.size()));
}

std::string Encode(const std::string& text) {
    std::string encoded;
    std::vector<char> line;
    for (std::size_t start = 0; start < text.size();) {
        const std::size_t end = text.find('\n', start);
        line.resize(2 * (end - start) + 16);
        const int length = EncodeSourceLine(text.data() + start, static_cast<unsigned int>(end - start),
                                            line.data(), static_cast<unsigned int>(line.size()));
        encoded.append(line.data(), static_cast<std::size_t>(length)).append("\n");
        start = end + 1;
    }
    return encoded;
}

void Load(benchmark::State& state, const char* name, const std::string& text) {
    const test::TemporaryFolder folder;
    const std::string path = folder.Write(name, text);
    platform::File file;
    CErrorMessageTable errors;
    SourceText source;
    for (auto _ : state) {
        if (!LoadSource(path, file, errors, source)) state.SkipWithError("not loaded");
        benchmark::DoNotOptimize(source.Begin());
    }
    CountLines(state, text);
}

void LoadPlain(benchmark::State& state) {
    Load(state, "a.mac", MixedText(state));
}

void LoadEncoded(benchmark::State& state) {
    Load(state, "a.dat", Encode(MixedText(state)));
}

void ReadTokens(benchmark::State& state) {
    const std::string text = MixedText(state);
    std::int64_t count = 0;
    for (auto _ : state) {
        CLex lexer;
        lexer.LoadText("a.mac", text);
        Token token;
        while (lexer.ReadToken(token) && !token.IsEnd())
            ++count;
        if (!token.IsEnd()) state.SkipWithError("a lexical error");
    }
    CountLines(state, text);
    state.counters["tokens/s"] = benchmark::Counter(static_cast<double>(count), benchmark::Counter::kIsRate);
}

void Compile(benchmark::State& state) {
    const std::string text = MixedText(state);
    for (auto _ : state) {
        const bench::CompiledProgram program(text);
        if (!program.IsCompiled()) state.SkipWithError("not compiled");
    }
    CountLines(state, text);
}

// Multiples of the 16 lines that the text consists of.
BENCHMARK(LoadPlain)->Arg(1600)->Arg(160000);
BENCHMARK(LoadEncoded)->Arg(1600)->Arg(160000);
BENCHMARK(ReadTokens)->Arg(1600)->Arg(160000);
BENCHMARK(Compile)->Arg(1600)->Arg(160000);

}  // namespace
