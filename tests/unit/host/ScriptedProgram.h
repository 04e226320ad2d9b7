#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <utility>

#include "host/CMacroPrg.h"
#include "runtime/CMacroStatementBase.h"

namespace macroengine::test {

/// A statement that does what a test tells it to.
class ScriptedStatement : public CMacroStatementBase {
public:
    using Action = std::function<bool(ScriptedStatement&)>;

    ScriptedStatement(SourceUnit& unit, std::uint32_t line, Action action)
        : CMacroStatementBase(Kind::Assign, unit, line), action_(std::move(action)) {}

    bool vfRun() override { return action_(*this); }
    std::int32_t GetNextIndex() const override { return nextIndex_; }
    void SetNextIndex(std::int32_t index) { nextIndex_ = index; }

    using CMacroStatementBase::Fail;

private:
    Action action_;
    std::int32_t nextIndex_ = kNextInOrder;
};

/// A program of scripted statements that records which of them have run.
class ScriptedProgram {
public:
    using Action = ScriptedStatement::Action;

    ScriptedProgram() : unit_(program_.AddSourceUnit("a.mac", 0)) {}

    CMacroPrg* operator->() { return &program_; }
    SourceUnit& GetUnit() { return unit_; }

    /// Adds a statement to the group of its line.
    ScriptedStatement& Add(std::uint32_t line, const std::string& name, const Action& action = nullptr) {
        return Add(unit_, line, name, action);
    }

    ScriptedStatement& Add(SourceUnit& unit, std::uint32_t line, const std::string& name,
                           const Action& action = nullptr,
                           CMacroPrg::Grouping grouping = CMacroPrg::Grouping::BySourceLine) {
        auto statement = std::make_unique<ScriptedStatement>(unit, line, [=](ScriptedStatement& self) {
            trace_.append(trace_.empty() ? "" : " ").append(name);
            return action == nullptr || action(self);
        });
        ScriptedStatement& added = *statement;
        program_.InsertMacroNode(std::move(statement), grouping);
        return added;
    }

    /// Runs the program. @return the names of the statements in the order in which they have run.
    std::string Run() {
        trace_.clear();
        succeeded_ = program_.Run();
        return trace_;
    }

    /// @return what the last run has answered.
    bool HasSucceeded() const { return succeeded_; }

    /// @return the code of the state.
    int GetState() const { return static_cast<int>(program_.GetState()); }

    /// Puts a number into the word of the state.
    void SetState(int code) { program_.SetState(static_cast<CMacroPrg::State>(code)); }

    /// Takes the lines out of the program's table, joined by line feeds.
    std::string TakeErrors() {
        std::string lines;
        CErrorMessageTable& errors = program_.GetErrors();
        for (std::uint32_t i = 0; i < errors.GetCount(); ++i)
            lines.append(i > 0 ? "\n" : "").append(errors.GetMessage(i));
        errors.Clear();
        return lines;
    }

private:
    CMacroPrg program_;
    SourceUnit& unit_;
    std::string trace_;
    bool succeeded_ = false;
};

/// Fails with a message.
inline ScriptedStatement::Action FailWith(const std::string& text) {
    return [text](ScriptedStatement& self) { return self.Fail(text); };
}

/// Goes on with another group.
inline ScriptedStatement::Action GoTo(std::int32_t group) {
    return [group](ScriptedStatement& self) {
        self.SetNextIndex(group);
        return true;
    };
}

}  // namespace macroengine::test
