// Statement/...  one statement of each class, carried out by itself
// Loop/...       a line of a macro in a loop of 10,000 turns, as programs run it; Loop/empty is the loop alone

#include <benchmark/benchmark.h>
#include <cstdint>
#include <string>

#include "CompiledProgram.h"

namespace {

using namespace macroengine;
using Kind = CMacroStatementBase::Kind;

constexpr int kTurns = 10000;

/// What the measured lines work with, and how many lines that takes.
const std::string kValues = "i = 5\nk = 7\nx = 1.5\ntext = \"abc\"\na[9] = 3\nm[9][9] = 4\n";
constexpr std::uint32_t kValueLines = 6;

/// Measures the first statement of a kind in a line.
void Statement(benchmark::State& state, Kind kind, const std::string& line) {
    bench::CompiledProgram compiled(kValues + line + "\n");
    CMacroStatementBase* measured = nullptr;
    for (const auto& statement : compiled.GetProgram().GetStatements()) {
        const bool isMeant = statement->GetLineNumber() == kValueLines + 1 && statement->GetKind() == kind;
        if (isMeant && measured == nullptr) measured = statement.get();
    }
    if (measured == nullptr || !compiled.GetProgram().Run()) {
        state.SkipWithError("no such statement, or it does not run");
        return;
    }
    for (auto _ : state)
        benchmark::DoNotOptimize(measured->vfRun());
}

void Loop(benchmark::State& state, const std::string& lines) {
    bench::CompiledProgram compiled(kValues + "i = 0\nloop i < " + std::to_string(kTurns) + "\n" + lines +
                                    "\ni = i + 1\nendloop\n");
    for (auto _ : state) {
        if (!compiled.IsCompiled() || !compiled.GetProgram().Run()) state.SkipWithError("it does not run");
    }
    state.SetItemsProcessed(state.iterations() * kTurns);
}

BENCHMARK_CAPTURE(Statement, assign_integer, Kind::Assign, "y = k");
BENCHMARK_CAPTURE(Statement, assign_element, Kind::Assign, "a[i] = k");
BENCHMARK_CAPTURE(Statement, assign_nested_element, Kind::Assign, "m[i][k] = k");
BENCHMARK_CAPTURE(Statement, operate_integers, Kind::Operate, "y = i + k");
BENCHMARK_CAPTURE(Statement, operate_floating, Kind::Operate, "y = x * 2.5");
BENCHMARK_CAPTURE(Statement, operate_elements, Kind::Operate, "y = a[i] + m[9][k]");
BENCHMARK_CAPTURE(Statement, operate_text, Kind::Operate, "y = text + k");
BENCHMARK_CAPTURE(Statement, compare_integers, Kind::Compare, "if i < k\nendif");
BENCHMARK_CAPTURE(Statement, compare_texts, Kind::Compare, "if text == \"abd\"\nendif");
BENCHMARK_CAPTURE(Statement, control, Kind::Control, "if i < k\nendif");
BENCHMARK_CAPTURE(Statement, category, Kind::Category, "y = array.max(a)");

BENCHMARK_CAPTURE(Loop, empty, "");
BENCHMARK_CAPTURE(Loop, assign_integer, "y = k");
BENCHMARK_CAPTURE(Loop, assign_floating, "y = x");
BENCHMARK_CAPTURE(Loop, assign_text, "y = text");
BENCHMARK_CAPTURE(Loop, element_load, "y = a[k]");
BENCHMARK_CAPTURE(Loop, element_store, "a[k] = i");
BENCHMARK_CAPTURE(Loop, nested_element_load, "y = m[9][k]");
BENCHMARK_CAPTURE(Loop, nested_element_store, "m[9][k] = i");
BENCHMARK_CAPTURE(Loop, add, "y = i + k");
BENCHMARK_CAPTURE(Loop, add_floating, "y = x + 2.5");
BENCHMARK_CAPTURE(Loop, four_operations, "y = i * 3 + k / 2 - 1");
BENCHMARK_CAPTURE(Loop, bits, "y = i & 255 | 3 << 4");
BENCHMARK_CAPTURE(Loop, if_else, "if i < 5000\ny = 1\nelse\ny = 2\nendif");
BENCHMARK_CAPTURE(Loop, two_conditions, "if i > 10 && k == 7\ny = 1\nendif");
BENCHMARK_CAPTURE(Loop, compare_texts, "if text == \"abd\"\ny = 1\nendif");

}  // namespace
