#include "common/Differential.h"

#include "categories/CMacroCategoryCmdList.h"
#include "common/HostCommands.h"
#include "common/MacroGenerator.h"
#include "compiler/MacroCompiler.h"
#include "host/CErrorMessageTable.h"
#include "host/CMacroPrg.h"
#include "reference/Evaluator.h"
#include "support/TemporaryFolder.h"
#include "support/ValueDescription.h"

namespace macroengine::fuzz {

namespace {

/// A program and all that it needs.
struct Engine {
    CMacroCategoryCmdList list{""};
    CMacroPrg program;
    HostCommands commands{list, program};
};

void AddRun(std::string& text, bool succeeded) {
    text += succeeded ? "run succeeded\n" : "run failed\n";
}

void AddLines(std::string& text, const std::vector<std::string>& lines) {
    for (const std::string& line : lines)
        text += line + "\n";
}

void AddVariable(std::string& text, const std::string& name, const std::string& value) {
    text += name + " = " + value + "\n";
}

std::string RunInEngine(Engine& engine, bool stopOnError, int runs) {
    std::string seen;
    engine.program.SetErrorHandling(stopOnError, nullptr, 0);
    for (; runs > 0; --runs)
        AddRun(seen, engine.program.Run());
    for (std::uint32_t i = 0; i < engine.program.GetErrors().GetCount(); ++i)
        seen.append(engine.program.GetErrors().GetMessage(i)).append("\n");
    AddLines(seen, engine.commands.GetShown());
    for (const std::string& name : MacroGenerator::Names()) {
        const Variable* const variable = engine.program.GetVariables().Find(name);
        if (variable != nullptr) AddVariable(seen, name, test::Describe(variable->value));
    }
    return seen;
}

std::string RunInReference(reference::Evaluator& evaluator, int runs) {
    std::string seen;
    for (; runs > 0; --runs)
        AddRun(seen, evaluator.Run());
    AddLines(seen, evaluator.GetErrors());
    AddLines(seen, evaluator.GetShown());
    for (const std::string& name : MacroGenerator::Names()) {
        const auto variable = evaluator.GetVariables().find(name);
        if (variable != evaluator.GetVariables().end())
            AddVariable(seen, name, reference::Describe(variable->second));
    }
    return seen;
}

}  // namespace

std::string Comparison::Explain() const {
    std::size_t same = 0;
    while (same < engine.size() && same < reference.size() && engine[same] == reference[same])
        ++same;
    const std::size_t line = engine.rfind('\n', same == 0 ? 0 : same - 1) + 1;
    return "--- program\n" + program + "--- both\n" + engine.substr(0, line) + "--- then the engine\n" +
           engine.substr(line) + "--- then the reference\n" + reference.substr(line);
}

Comparison CompareWithReference(const std::string& program, bool stopOnError, int runs) {
    static const test::TemporaryFolder folder;
    const std::string path = folder.Write("main.mac", program);

    Comparison comparison;
    comparison.program = program;
    // The reference goes first: what costs it too much is kept away from the engine, which has no limit.
    try {
        reference::Evaluator evaluator(reference::Parse(program), path, stopOnError);
        comparison.reference = RunInReference(evaluator, runs);
    } catch (const reference::TooExpensive&) {
        comparison.outcome = Comparison::Outcome::TooExpensive;
        return comparison;
    } catch (const reference::NotUnderstood& failure) {
        comparison.reference = failure.what();
    }

    Engine engine;
    CErrorMessageTable errors;
    if (MacroCompiler(engine.program, engine.list, errors).CompileFile(path, nullptr)) {
        comparison.engine = RunInEngine(engine, stopOnError, runs);
    } else {
        for (std::uint32_t i = 0; i < errors.GetCount(); ++i)
            comparison.engine.append(errors.GetMessage(i)).append("\n");
    }
    if (comparison.engine != comparison.reference) comparison.outcome = Comparison::Outcome::Different;
    return comparison;
}

Comparison CompareWithReference(const std::uint8_t* data, std::size_t size) {
    ByteSource source(data, size);
    const bool stopOnError = source.Rarely(4);
    const int runs = source.Rarely(6) ? 2 : 1;
    return CompareWithReference(MacroGenerator(source).Generate(), stopOnError, runs);
}

}  // namespace macroengine::fuzz
