// Any text as a macro file: it loads or is refused, and what loads runs, with and without stopping at errors.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <new>
#include <string>

#include "categories/CMacroCategoryCmdList.h"
#include "common/ByteSource.h"
#include "common/HarmlessCommands.h"
#include "common/MacroGenerator.h"
#include "compiler/MacroCompiler.h"
#include "host/CErrorMessageTable.h"
#include "host/CMacroPrg.h"
#include "support/FailingAllocation.h"
#include "support/TemporaryFolder.h"

namespace {

using namespace macroengine;

// What a text may cost: turns of its loops, allocations and the bytes of one of them. A text that doubles a string
// on each of its lines meets the last.
constexpr int kTicks = 100;
constexpr long kAllocations = 1000000;
constexpr std::size_t kAllocationSize = std::size_t{256} << 10;

/// A loop ends with this word alone, so no loop gets round the call in front of it. The call has a line of its own:
/// behind a comment it would be a part of that.
std::string WithTicks(std::string text) {
    const std::string end = "endloop";
    const std::string tick = "\nfuzz.tick()\n";
    for (std::size_t at = text.find(end); at != std::string::npos;
         at = text.find(end, at + tick.size() + end.size()))
        text.insert(at, tick);
    return text;
}

void LoadAndRun(const std::string& path) {
    CMacroCategoryCmdList list(fuzz::HarmlessCommands::kNamespace);
    CMacroPrg program;
    const fuzz::HarmlessCommands commands(list, program, kTicks);
    CErrorMessageTable errors;
    MacroCompiler(program, list, errors).CompileFile(path, nullptr);
    // A load that fails leaves the statements before the error.
    for (const bool stopsOnError : {true, false}) {
        program.SetErrorHandling(stopsOnError, nullptr, 0);
        list.BeginRun();
        program.Run();
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const test::TemporaryFolder folder;
    static const std::string included = folder.Write("part.mac", "part = 1\n#define PART part\n");
    const std::string path =
        folder.Write("main.mac", WithTicks(std::string(reinterpret_cast<const char*>(data), size)));
    try {
        const test::FailingAllocation limits(kAllocations, kAllocationSize);
        LoadAndRun(path);
    } catch (const std::bad_alloc&) {
        // The one exception that a load may let out.
    }
    return 0;
}

#ifdef MACROENGINE_LIBFUZZER

extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* data, std::size_t size, std::size_t maxSize);

/// Now and then turns the bytes into the well-formed program that they stand for, which further mutations then
/// break.
extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size, std::size_t maxSize,
                                               unsigned int seed) {
    if (seed % 64 != 0) return LLVMFuzzerMutate(data, size, maxSize);
    fuzz::ByteSource source(data, size);
    std::string text = fuzz::MacroGenerator(source).Generate();
    text.resize(std::min(text.size(), maxSize));
    std::copy(text.begin(), text.end(), data);
    return text.size();
}

#endif
