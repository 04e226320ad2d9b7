// Reads a file of 1,000,000 rows by 8 columns with system.csvfile_read.
//
// Beside the bytes of the file per second each benchmark tells
//   heap/row     the bytes of the heap that the result takes for each row;
//   heap/need    what the result takes, over what its values need: 16 bytes for each cell (its kind, and its
//                number or where its text is) and the bytes of the texts;
//   peak/need    the same for the most that was taken at any time during the run.

#include <benchmark/benchmark.h>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <new>
#include <string>

#include <macroengine/CMacroFileIF.h>

#include "support/TemporaryFolder.h"

namespace {

constexpr std::size_t kRows = 1000000;
constexpr std::size_t kColumns = 8;
constexpr std::size_t kCellSize = 16;

std::size_t heapSize = 0;
std::size_t heapPeak = 0;

/// In front of each block stands the size that was asked for.
constexpr std::size_t kHeaderSize = alignof(std::max_align_t);

/// Called through a pointer, as compilers take a block that is given back by another address for a mistake.
void (*volatile const giveBack)(void*) = std::free;

/// What a usual allocator takes for a request.
std::size_t BlockSize(std::size_t size) {
    return size <= 24 ? 32 : (size + 8 + 15) / 16 * 16;
}

}  // namespace

// The library allocates with these, too.

void* operator new(std::size_t size) {
    void* const block = std::malloc(size + kHeaderSize);
    if (block == nullptr) throw std::bad_alloc();
    *static_cast<std::size_t*>(block) = size;
    heapSize += BlockSize(size);
    if (heapSize > heapPeak) heapPeak = heapSize;
    return static_cast<char*>(block) + kHeaderSize;
}

void operator delete(void* memory) noexcept {
    if (memory == nullptr) return;
    void* const block = static_cast<char*>(memory) - kHeaderSize;
    heapSize -= BlockSize(*static_cast<std::size_t*>(block));
    giveBack(block);
}

void operator delete(void* memory, std::size_t) noexcept {
    operator delete(memory);
}

namespace {

/// Appends a cell to a line.
/// @return whether it is a text, not a number.
using AppendCell = bool (*)(std::size_t row, std::size_t column, std::string& line);

/// A folder with a file of data and the macro that reads it.
class Data {
public:
    Data(AppendCell appendCell, bool converts) {
        std::ofstream file(folder_.PathOf("data.csv"), std::ios::binary);
        std::string line;
        for (std::size_t row = 0; row < kRows; ++row) {
            line.clear();
            for (std::size_t column = 0; column < kColumns; ++column) {
                if (column > 0) line += ',';
                const std::size_t start = line.size();
                if (appendCell(row, column, line) || !converts) textSize_ += line.size() - start;
            }
            line += "\r\n";
            file << line;
            fileSize_ += line.size();
        }
        const std::string flag = converts ? "1" : "0";
        folder_.Write("read.mac", "rows = system.csvfile_read(\"data.csv\", " + flag + ")\n");
    }

    std::string MacroPath() const { return folder_.PathOf("read.mac"); }
    std::size_t FileSize() const { return fileSize_; }
    std::size_t Need() const { return kRows * kColumns * kCellSize + textSize_; }

private:
    macroengine::test::TemporaryFolder folder_;
    std::size_t fileSize_ = 0;
    std::size_t textSize_ = 0;
};

template <class Value>
void AppendFormatted(std::string& line, const char* format, Value value) {
    char text[32];
    line.append(text, static_cast<std::size_t>(std::snprintf(text, sizeof text, format, value)));
}

/// What a log of measurements holds: numbers of all kinds, names and a remark in quotes.
bool AppendMixed(std::size_t row, std::size_t column, std::string& line) {
    const auto number = static_cast<std::uint32_t>(row * 2654435761U);
    switch (column) {
        case 0:
            line += std::to_string(row);
            return false;
        case 1:
            line += std::to_string(static_cast<std::int32_t>(number) / 1000);
            return false;
        case 2:
            AppendFormatted(line, "0x%04X", number >> 16);
            return false;
        case 3:
            AppendFormatted(line, "%.3f", number / 1e6);
            return false;
        case 4:
            AppendFormatted(line, "-%.6f", number / 5e9);
            return false;
        case 5:
            line += "REG_" + std::to_string(number % 1000);
            return true;
        case 6:
            line += number % 3 == 0 ? "pass" : "out of limits";
            return true;
        default:
            line += "\"ch " + std::to_string(number % 16) + ", slot " + std::to_string(number % 7) + "\"";
            return true;
    }
}

/// Cells of a few bytes each: there is much to do for each byte.
bool AppendShort(std::size_t row, std::size_t column, std::string& line) {
    switch (column) {
        case 0:
            line += std::to_string(row % 1000);
            return false;
        case 1:
            line += "-" + std::to_string(row % 77);
            return false;
        case 2:
            AppendFormatted(line, "0x%X", static_cast<unsigned int>(row % 256));
            return false;
        case 3:
            AppendFormatted(line, "%.2f", static_cast<double>(row % 1000) / 7.0);
            return false;
        case 4:
            line += "abc";
            return true;
        case 5:
            line += std::to_string(row);
            return false;
        case 6:
            line += "name" + std::to_string(row % 50);
            return true;
        default:
            AppendFormatted(line, "%.1f", static_cast<double>(row % 33) + 0.5);
            return false;
    }
}

bool AppendInteger(std::size_t row, std::size_t column, std::string& line) {
    line += std::to_string(row * kColumns + column);
    return false;
}

bool AppendFloating(std::size_t row, std::size_t column, std::string& line) {
    AppendFormatted(line, "%.6f", static_cast<double>(row * kColumns + column) / 997.0);
    return false;
}

bool AppendName(std::size_t row, std::size_t column, std::string& line) {
    line += "cell " + std::to_string(row % 10000) + " of " + std::to_string(column);
    return true;
}

void ReadFile(benchmark::State& state, AppendCell appendCell, bool converts) {
    const Data data(appendCell, converts);
    std::size_t held = 0;
    std::size_t peak = 0;
    for (auto _ : state) {
        state.PauseTiming();
        CMacroFileIF* file = CreateMacroFileNoRegisterRequest("", false);
        bool succeeded = file->Load(data.MacroPath().c_str());
        const std::size_t before = heapSize;
        heapPeak = before;
        state.ResumeTiming();
        succeeded = file->Run() && succeeded;
        state.PauseTiming();
        held = heapSize - before;
        peak = heapPeak - before;
        DeleteMacroFile(file);
        if (!succeeded) state.SkipWithError("the file can't be read");
        state.ResumeTiming();
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(data.FileSize()));
    const auto need = static_cast<double>(data.Need());
    state.counters["heap/row"] = static_cast<double>(held) / static_cast<double>(kRows);
    state.counters["heap/need"] = static_cast<double>(held) / need;
    state.counters["peak/need"] = static_cast<double>(peak) / need;
}

BENCHMARK_CAPTURE(ReadFile, mixed, AppendMixed, true)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(ReadFile, mixed_as_texts, AppendMixed, false)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(ReadFile, short_cells, AppendShort, true)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(ReadFile, integers, AppendInteger, true)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(ReadFile, floating_values, AppendFloating, true)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(ReadFile, names, AppendName, true)->Unit(benchmark::kMillisecond);

}  // namespace
