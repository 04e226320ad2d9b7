#include <algorithm>
#include <benchmark/benchmark.h>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <memory>
#include <string>

#include <macroengine/CRegDefFileIF.h>

#include "support/TemporaryFolder.h"

// Register files of up to a million registers. Beside the speed each benchmark tells the most memory that the
// process took for one load or listing, as a multiple of the file's size (where the system tells, else 0).

namespace {

using macroengine::test::TemporaryFolder;

enum class Format { Sectioned, LineBased };

using Reader = std::unique_ptr<CRegDefFileIF, void (*)(CRegDefFileIF*)>;

Reader MakeReader(Format format) {
    return {format == Format::Sectioned ? CreateRegDefFile() : CreatePSCRegDefFile(), DeleteRegDefFile};
}

/// A file that is written once and goes with the process.
class RegisterFile {
public:
    RegisterFile(Format format, std::int64_t registers) : path_(folder_.PathOf("registers.txt")) {
        std::ofstream file(path_, std::ios::binary);
        if (format == Format::Sectioned) {
            WriteSectioned(file, registers);
        } else {
            WriteLineBased(file, registers);
        }
        size_ = file.tellp();
    }

    const std::string& Path() const { return path_; }
    std::int64_t Size() const { return size_; }

private:
    static void WriteSectioned(std::ofstream& file, std::int64_t registers) {
        file << "[ENDIAN]\nB:0x0000..0x2FFF\nL:0x3000..0xFFFF\n\n[REGISTER]\n"
                "REGISTER_NAME,ADDRESS_2WIRE,ADDRESS_3WIRE,LSB,LENGTH,RW,DESCRIPTION,FUNCTION\n";
        char line[128];
        for (std::int64_t i = 0; i < registers; ++i) {
            const auto address = static_cast<unsigned>(i & 0xFFFF);
            std::snprintf(line, sizeof line,
                          "REG_%07d,0x%04X,0x%04X,%d,8,RW,\"gain of channel %d\",\"GAIN\"\n",
                          static_cast<int>(i), address, address ^ 1U, static_cast<int>(i % 8),
                          static_cast<int>(i % 100));
            file << line;
        }
    }

    static void WriteLineBased(std::ofstream& file, std::int64_t registers) {
        file << "HiAddress 12\n";
        char line[128];
        for (std::int64_t i = 0; i < registers; ++i) {
            // Two lines for each register, so that there is something to merge.
            std::snprintf(line, sizeof line, "REG_%07d h%Xrw %04X %d 4 // part %d\n", static_cast<int>(i),
                          static_cast<unsigned>(i % 16), static_cast<unsigned>(i / 2 % 0xFFFF),
                          static_cast<int>(i % 2 * 4), static_cast<int>(i % 2));
            file << line;
        }
    }

    TemporaryFolder folder_;
    std::string path_;
    std::int64_t size_ = 0;
};

/// Reads a line such as "VmHWM:  1234 kB" of the process's own status.
std::int64_t StatusBytes(const char* name) {
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);) {
        if (line.rfind(name, 0) == 0) return std::stoll(line.substr(std::strlen(name) + 1)) * 1024;
    }
    return 0;
}

/// Watches the memory that the process takes from its construction on.
class MemoryWatch {
public:
    MemoryWatch() {
        std::ofstream("/proc/self/clear_refs") << "5";
        before_ = StatusBytes("VmRSS");
    }

    std::int64_t Peak() const { return std::max<std::int64_t>(StatusBytes("VmHWM") - before_, 0); }

private:
    std::int64_t before_ = 0;
};

void Report(benchmark::State& state, const RegisterFile& file, std::int64_t peak) {
    state.SetBytesProcessed(state.iterations() * file.Size());
    state.SetItemsProcessed(state.iterations() * state.range(0));
    state.counters["file_MB"] = static_cast<double>(file.Size()) / 1e6;
    state.counters["peak/file"] = static_cast<double>(peak) / static_cast<double>(file.Size());
}

void Load(benchmark::State& state, Format format) {
    const RegisterFile file(format, state.range(0));
    std::int64_t peak = 0;
    for (auto _ : state) {
        const MemoryWatch watch;
        const Reader reader = MakeReader(format);
        const bool isLoaded = reader->Load(file.Path().c_str());
        if (!isLoaded || reader->GetRegisterCount() != state.range(0)) state.SkipWithError("not loaded");
        state.PauseTiming();
        peak = std::max(peak, watch.Peak());
        state.ResumeTiming();
    }
    Report(state, file, peak);
}

void List(benchmark::State& state) {
    const RegisterFile file(Format::Sectioned, state.range(0));
    const Reader reader = MakeReader(Format::Sectioned);
    reader->Load(file.Path().c_str());
    std::int64_t peak = 0;
    for (auto _ : state) {
        const MemoryWatch watch;
        benchmark::DoNotOptimize(reader->GetListing());
        state.PauseTiming();
        peak = std::max(peak, watch.Peak());
        state.ResumeTiming();
    }
    Report(state, file, peak);
}

void Merge(benchmark::State& state) {
    const RegisterFile file(Format::LineBased, state.range(0));
    for (auto _ : state) {
        state.PauseTiming();
        Reader reader = MakeReader(Format::LineBased);
        reader->Load(file.Path().c_str());
        state.ResumeTiming();
        if (!MergeSplitRegisters(reader.get())) state.SkipWithError("not merged");
        state.PauseTiming();
        reader.reset();
        state.ResumeTiming();
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

#define REGISTER_COUNTS Unit(benchmark::kMillisecond)->Arg(10'000)->Arg(100'000)->Arg(1'000'000)

BENCHMARK_CAPTURE(Load, sectioned, Format::Sectioned)->REGISTER_COUNTS;
BENCHMARK_CAPTURE(Load, line_based, Format::LineBased)->REGISTER_COUNTS;
BENCHMARK(List)->REGISTER_COUNTS;
BENCHMARK(Merge)->REGISTER_COUNTS;

}  // namespace
