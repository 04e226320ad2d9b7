#include "common/Differential.h"

#include <algorithm>
#include <vector>

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

/// What a host does: it loads each file in turn and runs the program so many times before it loads the next.
struct Scenario {
    std::vector<std::string> texts;
    std::vector<std::string> paths;
    int runs = 1;
    bool stopOnError = true;
};

/// A program and all that it needs.
struct Engine {
    CMacroCategoryCmdList list{""};
    CMacroPrg program;
    HostCommands commands{list, program};
};

Scenario GenerateScenario(const std::uint8_t* data, std::size_t size) {
    constexpr std::size_t kChoices = 3;
    ByteSource choices(data, std::min(size, kChoices));
    data += std::min(size, kChoices);
    size -= std::min(size, kChoices);
    Scenario scenario;
    scenario.stopOnError = choices.Rarely(4);
    scenario.runs = choices.Rarely(6) ? 2 : 1;
    const std::size_t files = choices.Rarely(6) ? 2 : 1;
    for (std::size_t file = 0; file < files; ++file) {
        const std::size_t begin = size * file / files;
        ByteSource source(data + begin, size * (file + 1) / files - begin);
        scenario.texts.push_back(MacroGenerator(source).Generate());
    }
    return scenario;
}

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

void AddErrors(std::string& text, const CErrorMessageTable& errors) {
    for (std::uint32_t i = 0; i < errors.GetCount(); ++i)
        text.append(errors.GetMessage(i)).append("\n");
}

std::string RunInEngine(const Scenario& scenario) {
    Engine engine;
    engine.program.SetErrorHandling(scenario.stopOnError, nullptr, 0);
    std::string seen;
    CErrorMessageTable errors;
    for (const std::string& path : scenario.paths) {
        MacroCompiler(engine.program, engine.list, errors).CompileFile(path, nullptr);
        AddErrors(seen, errors);
        for (int run = 0; run < scenario.runs; ++run) {
            engine.list.BeginRun();
            AddRun(seen, engine.program.Run());
        }
    }
    AddErrors(seen, engine.program.GetErrors());
    AddLines(seen, engine.commands.GetShown());
    for (const std::string& name : MacroGenerator::Names()) {
        const Variable* const variable = engine.program.GetVariables().Find(name);
        if (variable != nullptr) AddVariable(seen, name, test::Describe(variable->value));
    }
    return seen;
}

std::string RunInReference(const Scenario& scenario) {
    reference::Evaluator evaluator(scenario.stopOnError);
    std::string seen;
    for (std::size_t i = 0; i < scenario.texts.size(); ++i) {
        evaluator.Load(reference::Parse(scenario.texts[i]), scenario.paths[i]);
        for (int run = 0; run < scenario.runs; ++run)
            AddRun(seen, evaluator.Run());
    }
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

Comparison CompareWithReference(const std::uint8_t* data, std::size_t size) {
    static const test::TemporaryFolder folder;
    Scenario scenario = GenerateScenario(data, size);
    Comparison comparison;
    for (const std::string& text : scenario.texts) {
        const std::string name = std::to_string(scenario.paths.size()) + ".mac";
        scenario.paths.push_back(folder.Write(name, text));
        comparison.program += "// " + name +
                              (scenario.stopOnError ? ", stops on errors" : ", goes on after errors") +
                              (scenario.runs > 1 ? ", runs twice\n" : "\n") + text;
    }
    // The reference goes first: what costs it too much is kept away from the engine.
    try {
        comparison.reference = RunInReference(scenario);
    } catch (const reference::TooExpensive&) {
        comparison.outcome = Comparison::Outcome::TooExpensive;
        return comparison;
    } catch (const reference::NotUnderstood& failure) {
        comparison.reference = std::string("not understood: ") + failure.what() + "\n";
    }
    comparison.engine = RunInEngine(scenario);
    if (comparison.engine != comparison.reference) comparison.outcome = Comparison::Outcome::Different;
    return comparison;
}

}  // namespace macroengine::fuzz
