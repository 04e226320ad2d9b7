// Calls of commands, 10,000 in each run: what the call itself takes (a command of the host that does nothing), and
// the built-in ones that macros call most.

#include <benchmark/benchmark.h>
#include <memory>
#include <string>

#include <macroengine/CMacroCategoryBase.h>
#include <macroengine/CMacroFileIF.h>
#include <macroengine/CMacroPropertyIF.h>

#include "support/TemporaryFolder.h"

namespace {

constexpr int kCalls = 10000;

class NoOperation : public CMacroCategoryBase {
public:
    NoOperation() : CMacroCategoryBase("host", "nothing", true, true, "") {}

    bool Run(CMacroPropertyIF*) override { return true; }
};

/// Does what most commands of a device do: checks its arguments and gives a number back.
class Add : public CMacroCategoryBase {
public:
    Add() : CMacroCategoryBase("host", "add", true, false, "") {}

    bool Run(CMacroPropertyIF* property) override {
        int left = 0;
        int right = 0;
        if (property->CheckArgumentCount(2, 2) < 0) return false;
        if (!property->GetArgInteger(0, 0, 0xFFFF, left)) return false;
        if (!property->GetArgInteger(1, 0, 0xFFFF, right)) return false;
        return property->SetResultInteger(left + right);
    }
};

void Call(benchmark::State& state, const std::string& line) {
    const macroengine::test::TemporaryFolder folder;
    NoOperation nothing;
    Add add;
    CMacroFileIF* file = CreateMacroFileNoRegisterRequest("", false);
    file->RegisterCategory(nullptr, &nothing, false);
    file->RegisterCategory(nullptr, &add, false);
    const std::string path =
        folder.Write("main.mac", "a = array.init(1, 2, 3)\ni = 0\nloop i < " + std::to_string(kCalls) + "\n" +
                                     line + "\ni = i + 1\nendloop\n");
    const bool isLoaded = file->Load(path.c_str());
    for (auto _ : state) {
        if (!isLoaded || !file->Run()) state.SkipWithError("it does not run");
    }
    state.SetItemsProcessed(state.iterations() * kCalls);
    DeleteMacroFile(file);
}

BENCHMARK_CAPTURE(Call, none, "");
BENCHMARK_CAPTURE(Call, nothing, "host.nothing()");
BENCHMARK_CAPTURE(Call, nothing_of_four, "host.nothing(i, 5, 1.5, \"text\")");
BENCHMARK_CAPTURE(Call, assigned, "host.nothing(5) = i");
BENCHMARK_CAPTURE(Call, add, "x = host.add(i, 5)");
BENCHMARK_CAPTURE(Call, int2hex, "t = string.int2hex(i, 8)");
BENCHMARK_CAPTURE(Call, int2dec, "t = string.int2dec(i)");
BENCHMARK_CAPTURE(Call, hex2dec, "x = string.hex2dec(\"00001F2A\")");
BENCHMARK_CAPTURE(Call, str2dec, "x = string.str2dec(\"7978\")");
BENCHMARK_CAPTURE(Call, str2float, "x = string.str2float(\"3.1415\")");
BENCHMARK_CAPTURE(Call, format, "t = string.format(\"%.3f V\", 3.3)");
BENCHMARK_CAPTURE(Call, split, "p = string.split(\"12, 34, 56\")");
BENCHMARK_CAPTURE(Call, max, "x = array.max(a)");
BENCHMARK_CAPTURE(Call, system_variable, "x = system.variable(\"NONE\")");

}  // namespace
