#pragma once

#include <atomic>
#include <cstdint>
#include <deque>
#include <memory>
#include <new>
#include <string>
#include <utility>
#include <vector>

#include "host/CErrorMessageTable.h"
#include "macroengine/Limits.h"
#include "macroengine/WindowHandle.h"
#include "runtime/Arena.h"
#include "runtime/CMacroStatementBase.h"
#include "runtime/RunMeter.h"
#include "runtime/RunState.h"
#include "runtime/SourceUnit.h"
#include "runtime/VariableTable.h"
#include "runtime/plan/LoopPlans.h"

namespace macroengine {

/// A compiled program and the machine that runs it.
///
/// Statements form groups, one for each source line; control statements jump to groups by their index. One
/// word holds the state: another thread may change it (RequestAbort), everything else belongs to the thread
/// that runs.
class CMacroPrg {
public:
    using State = RunState;

    /// How InsertMacroNode chooses the group of a statement.
    enum class Grouping {
        BySourceLine =
            0,      ///< joins the last group if its first statement is of the same file, inclusion and line
        Alone = 1,  ///< begins a group
        WithLastGroup = 2,  ///< joins the last group, under the line of the program's first statement
    };

    using Statements = std::vector<StatementPointer<CMacroStatementBase>>;

    CMacroPrg();
    CMacroPrg(const CMacroPrg&) = delete;
    CMacroPrg& operator=(const CMacroPrg&) = delete;
    virtual ~CMacroPrg();

    /// Makes a statement, which is to be inserted, in the memory of the program.
    template <class Statement, class... Arguments>
    StatementPointer<Statement> MakeStatement(Arguments&&... arguments) {
        void* const memory = arena_.Allocate(sizeof(Statement), alignof(Statement));
        auto* const statement = new (memory) Statement(std::forward<Arguments>(arguments)...);
        statement->SetInArena();
        return StatementPointer<Statement>(statement);
    }

    /// Adds a statement at the end.
    /// @return false for null, which is reported.
    bool InsertMacroNode(StatementPointer<CMacroStatementBase> statement, Grouping grouping);

    /// Makes room for the statements of a text of so many bytes, so that they seldom have to move. Without the memory
    /// for it the room grows as it is needed.
    void ExpectText(std::size_t bytes);

    /// @return what the statements of a file that is being compiled share; it lives as long as the program.
    SourceUnit& AddSourceUnit(std::string fileName, std::uint32_t compileNumber);

    std::int32_t GetGroupCount() const { return static_cast<std::int32_t>(groupStarts_.size()); }
    const Statements& GetStatements() const { return statements_; }
    ProgramText GetText() const { return {statements_, groupStarts_}; }
    VariableTable& GetVariables() { return variables_; }
    CErrorMessageTable& GetErrors() { return errors_; }

    /// Runs the program on the calling thread.
    /// @return false with the reason in GetErrors().
    bool Run();

    /// Asks a run to end. May be called from any thread.
    /// @return true when there was a run that will see it.
    bool RequestAbort();

    State GetState() const { return state_.load(std::memory_order_acquire); }

    /// Pauses, continues or single-steps a run, from any thread.
    void SetState(State state) { state_.store(state, std::memory_order_release); }

    /// The path of the macro file, from which a relative work directory is resolved.
    void SetSourcePath(const std::string& path) { sourcePath_ = path; }

    void SetWorkDirectory(std::string directory) { workDirectory_ = std::move(directory); }
    const std::string& GetWorkDirectory() const { return workDirectory_; }

    void SetLineNotification(std::uint32_t code, HWND target, std::uint32_t enableCount);
    void SetErrorHandling(bool stopOnError, HWND target, std::uint32_t code);

    /// Sets the limits of the runs that follow.
    void SetLimits(const MacroLimits& limits) { limits_ = limits; }

    /// Whether loops run by their plans (the default of a build with MACROENGINE_EXECUTION_PLAN) or statement
    /// by statement. Nobody can tell but by the time it takes.
    void UsePlans(bool use) { usesPlans_ = use; }

private:
    struct Notification {
        std::uint32_t code;
        HWND target;
        std::uint32_t enableCount;
    };

    enum class Gate { Open, Finished, Closed };

    bool IsInLastGroup(const CMacroStatementBase& statement) const;
    void ResolveWorkDirectory();
    bool RunGroups();
    bool RunGroups(RunMeter* meter);
    bool EndAtLimit(const CMacroStatementBase& statement, const RunMeter& meter);
    std::size_t CountValueBytes() const;
    std::size_t EndOfGroup(std::size_t group) const;
    std::size_t GroupOfCurrent() const;
    bool HasBreakpoints() const;
    bool IsAborted() const;
    Gate WaitAtGate(bool breakFlag);
    bool PassOver(CMacroStatementBase& statement);
    bool Finish();
    bool Fail(const char* text);
    bool FailAt(const CMacroStatementBase& statement, const char* text);

    // The statements are destroyed first: they lie in the arena and refer to the units and to the variables.
    VariableTable variables_;
    std::deque<SourceUnit> units_;
    Arena arena_;
    Statements statements_;
    std::vector<std::uint32_t> groupStarts_;  ///< for each group the index of its first statement
    LoopPlans plans_{{statements_, groupStarts_}};
    bool usesPlans_;

    CErrorMessageTable errors_;
    std::atomic<State> state_{State::Empty};
    std::size_t current_ = 0;   ///< the statement that is running
    bool passedError_ = false;  ///< in this run
    std::string workDirectory_;
    std::string runWorkDirectory_;  ///< what the statements of this run see
    std::string sourcePath_;
    Notification lineNotification_{0xFFFFFFFF, nullptr, 0};
    bool stopOnError_ = true;
    MacroLimits limits_;
    HWND errorTarget_ = nullptr;
    std::uint32_t errorCode_ = 0;
};

}  // namespace macroengine
