#include "host/CMacroPrg.h"

#include <algorithm>
#include <new>
#include <utility>

#include "platform/Clock.h"
#include "platform/NativePath.h"
#include "runtime/CMacroStatementCategory.h"
#include "runtime/CMacroStatementOperate.h"
#include "runtime/ValueSum.h"

namespace macroengine {

namespace {

constexpr std::uint32_t kPausePollMilliseconds = 10;
constexpr const char* kAborted = "Macro aborted.";
constexpr const char* kNothingToRun = "Nothing macro sequence.";
constexpr const char* kRunTimeError = "run time error !";

#ifdef MACROENGINE_EXECUTION_PLAN
constexpr bool kUsesPlans = true;
#else
constexpr bool kUsesPlans = false;
#endif

/// Makes room for more elements, in steps that make appending cheap.
template <class Element>
void Grow(std::vector<Element>& elements, std::size_t more) {
    constexpr std::size_t kFew = 16;
    if (elements.capacity() - elements.size() >= more) return;
    elements.reserve(elements.size() * 2 + std::max(more, kFew));
}

}  // namespace

CMacroPrg::CMacroPrg() : usesPlans_(kUsesPlans) {}

CMacroPrg::~CMacroPrg() = default;

SourceUnit& CMacroPrg::AddSourceUnit(std::string fileName, std::uint32_t compileNumber) {
    SourceUnit& unit = units_.emplace_back();
    unit.fileName = std::move(fileName);
    unit.compileNumber = compileNumber;
    return unit;
}

void CMacroPrg::ExpectText(std::size_t bytes) {
    // Dense texts have a statement in eight bytes; room that stays unused takes addresses alone.
    constexpr std::size_t kBytesPerStatement = 8;
    constexpr std::size_t kMostExpected = std::size_t{1} << 23;
    const std::size_t expected = std::min(bytes / kBytesPerStatement, kMostExpected);
    try {
        Grow(statements_, expected);
        Grow(groupStarts_, expected);
    } catch (const std::bad_alloc&) {
    }
}

bool CMacroPrg::Fail(const char* text) {
    errors_.AddError(text);
    return false;
}

bool CMacroPrg::IsInLastGroup(const CMacroStatementBase& statement) const {
    const CMacroStatementBase& first = *statements_[groupStarts_.back()];
    return first.GetLineNumber() == statement.GetLineNumber() &&
           first.GetCompileNumber() == statement.GetCompileNumber() &&
           (&first.GetUnit() == &statement.GetUnit() || first.GetFileName() == statement.GetFileName());
}

bool CMacroPrg::InsertMacroNode(StatementPointer<CMacroStatementBase> statement, Grouping grouping) {
    if (statement == nullptr) {
        return Fail("internal error: NULL macro registerd at CMacroPrg::InsertMacroNode()");
    }
    if (statements_.size() == statements_.capacity()) Grow(statements_, 1);
    if (groupStarts_.size() == groupStarts_.capacity()) Grow(groupStarts_, 1);
    // From here on nothing can fail: a group never begins without its statement.
    SetState(State::Loading);
    const bool beginsGroup = groupStarts_.empty() || grouping == Grouping::Alone ||
                             (grouping == Grouping::BySourceLine && !IsInLastGroup(*statement));
    if (grouping == Grouping::WithLastGroup && !beginsGroup) {
        statement->SetLineNumber(statements_.front()->GetLineNumber());
    }
    if (beginsGroup) groupStarts_.push_back(static_cast<std::uint32_t>(statements_.size()));
    statements_.push_back(std::move(statement));
    SetState(State::Loaded);
    return true;
}

void CMacroPrg::SetLineNotification(std::uint32_t code, HWND target, std::uint32_t enableCount) {
    lineNotification_ = {code, target, enableCount};
}

void CMacroPrg::SetErrorHandling(bool stopOnError, HWND target, std::uint32_t code) {
    stopOnError_ = stopOnError;
    errorTarget_ = target;
    errorCode_ = code;
}

bool CMacroPrg::RequestAbort() {
    State state = GetState();
    while (state == State::Running || state == State::StepRunning || state == State::Breaking) {
        if (state_.compare_exchange_weak(state, State::Aborting)) return true;
    }
    return false;
}

bool CMacroPrg::Run() {
    switch (GetState()) {
        case State::Empty:
            return Fail(kNothingToRun);
        case State::Loading:
            return Fail("Can't run macro, because file is loading now..");
        case State::Running:
            return Fail("internal error. Recieve run-request during running.");
        case State::StepRunning:
            return Fail("internal error. Recieve run-request during step-running.");
        case State::Breaking:
            return Fail("internal error. Recieve run-request during breaking.");
        case State::Aborting:
            return Fail("internal error. Recieve run-request during aborting.");
        case State::Loaded:
        case State::Finished:
        case State::Aborted:
        case State::Failed:
            break;
        default:
            return false;
    }
    if (groupStarts_.empty()) {
        Fail(kNothingToRun);
        return Fail(kRunTimeError);
    }
    SetState(State::Running);
    try {
        return RunGroups();
    } catch (const std::bad_alloc&) {
        SetState(State::Failed);
        // What fails behind the last statement is reported at that one.
        const CMacroStatementBase& statement = *statements_[std::min(current_, statements_.size() - 1)];
        FailAt(statement, "Memory allocation error");
        return FailAt(statement, kRunTimeError);
    }
}

/// Makes the work directory absolute, or at least relative to the folder that the source path is relative to.
void CMacroPrg::ResolveWorkDirectory() {
    const bool isRoot = workDirectory_ == "/";
    if (isRoot || (workDirectory_.size() >= 2 && platform::IsAbsolute(workDirectory_))) return;
    const std::string folder = platform::CollapseDoubledBackslashes(platform::FolderOf(sourcePath_));
    workDirectory_ = folder + "\\" + workDirectory_;
}

bool CMacroPrg::RunGroups() {
    current_ = 0;
    ResolveWorkDirectory();
    // A copy, as a command may set another work directory for the run that follows.
    runWorkDirectory_ = workDirectory_;
    for (SourceUnit& unit : units_) {
        unit.workFolder = &runWorkDirectory_;
        // A run that ended without memory may have left lines that nobody collected.
        unit.errors.Clear();
    }
    passedError_ = false;

    const bool isLimited = limits_.statements != 0 || limits_.seconds > 0.0 || limits_.valueBytes != 0;
    if (!isLimited) {
        // What it takes is not for the limit of a run whose command has started it.
        const ValueMeter unlimited(0, 0);
        return RunGroups(nullptr);
    }
    RunMeter meter(limits_, limits_.valueBytes != 0 ? CountValueBytes() : 0);
    return RunGroups(&meter);
}

/// @param meter  null for a run without limits.
bool CMacroPrg::RunGroups(RunMeter* meter) {
    bool usesPlans = usesPlans_ && !HasBreakpoints();
    ExecutionPlan* plan = nullptr;  // of the loop under way
    std::size_t group = 0;
    while (group < groupStarts_.size()) {
        current_ = groupStarts_[group];
        switch (WaitAtGate(statements_[current_]->HasBreakFlag())) {
            case Gate::Open:
                break;
            case Gate::Finished:
                return true;
            case Gate::Closed:
                return false;
        }
        auto progress = plan::Progress::ToRun;
        if (plan != nullptr && plan->Covers(group) && GetState() == State::Running) {
            const plan::Exit exit = plan->Run(group, state_, current_, meter);
            current_ = exit.statement;
            progress = exit.progress;
            group = GroupOfCurrent();
        }
        const std::size_t end = EndOfGroup(group);
        std::size_t nextGroup = group + 1;
        for (; current_ < end; ++current_) {
            CMacroStatementBase& statement = *statements_[current_];
            if (meter != nullptr && progress == plan::Progress::ToRun && !meter->Take(1)) {
                return EndAtLimit(statement, *meter);
            }
            const bool succeeded =
                progress == plan::Progress::ToRun ? statement.vfRun() : progress == plan::Progress::HasRun;
            progress = plan::Progress::ToRun;
            if (meter != nullptr) {
                if (!succeeded && meter->HasFailedStatement()) return EndAtLimit(statement, *meter);
                // What does not run by a plan may be a few commands that each take long.
                meter->LookAtClock();
            }
            if (!succeeded && !PassOver(statement)) return false;
            if (IsAborted()) return FailAt(statement, kAborted);
            const std::int32_t next = statement.GetNextIndex();
            if (next != CMacroStatementBase::kNextInOrder) {
                nextGroup = static_cast<std::uint32_t>(next);
                break;
            }
        }
        if (usesPlans && nextGroup <= group && (plan == nullptr || !plan->Covers(nextGroup))) {
            try {
                plan = plans_.Find(nextGroup, meter != nullptr);
            } catch (const std::bad_alloc&) {
                // All that a plan saves is time: without the memory for one this run goes on by its statements.
                plan = nullptr;
                usesPlans = false;
            }
        }
        group = nextGroup;
        State state = GetState();
        if (state == State::StepRunning) state_.compare_exchange_strong(state, State::Breaking);
    }
    return Finish();
}

/// Adds up what the values of the program take. Results are values that no script sees, and take as much.
std::size_t CMacroPrg::CountValueBytes() const {
    ValueSum sum;
    variables_.ForEach([&](const Variable& variable) { sum.Add(variable.value.View()); });
    for (const auto& statement : statements_) {
        if (statement->GetKind() == CMacroStatementBase::Kind::Operate) {
            sum.Add(static_cast<CMacroStatementOperate&>(*statement).GetResult().View());
        } else if (statement->GetKind() == CMacroStatementBase::Kind::Category) {
            sum.Add(static_cast<CMacroStatementCategory&>(*statement).GetResult().View());
        }
    }
    return sum.Get();
}

std::size_t CMacroPrg::EndOfGroup(std::size_t group) const {
    return group + 1 < groupStarts_.size() ? groupStarts_[group + 1] : statements_.size();
}

/// @return the group of the statement that is running.
std::size_t CMacroPrg::GroupOfCurrent() const {
    const auto behind = std::upper_bound(groupStarts_.begin(), groupStarts_.end(), current_);
    return static_cast<std::size_t>(behind - groupStarts_.begin()) - 1;
}

bool CMacroPrg::HasBreakpoints() const {
    return std::any_of(units_.begin(), units_.end(),
                       [](const SourceUnit& unit) { return unit.hasBreakpoints; });
}

/// Ends the run as an abort does, with the limit in place of what the statement may have said.
bool CMacroPrg::EndAtLimit(const CMacroStatementBase& statement, const RunMeter& meter) {
    RequestAbort();
    statements_[current_]->GetErrors().Clear();
    return FailAt(statement, meter.GetMessage().c_str());
}

bool CMacroPrg::IsAborted() const {
    const State state = GetState();
    return state == State::Aborting || state == State::Aborted;
}

/// Lets a group begin when the state allows it; while the program is paused it waits here.
CMacroPrg::Gate CMacroPrg::WaitAtGate(bool breakFlag) {
    if (breakFlag) {
        // An abort that has come meanwhile is not to be lost.
        for (State running : {State::Running, State::StepRunning}) {
            if (state_.compare_exchange_strong(running, State::Breaking)) break;
        }
    }
    for (;;) {
        switch (GetState()) {
            case State::Running:
            case State::StepRunning:
                return Gate::Open;
            case State::Breaking:
                platform::SleepMilliseconds(kPausePollMilliseconds);
                break;
            case State::Finished:
                return Gate::Finished;
            case State::Aborting:
            case State::Aborted:
                Fail(kAborted);
                return Gate::Closed;
            default:
                Fail("internal error.");
                return Gate::Closed;
        }
    }
}

bool CMacroPrg::FailAt(const CMacroStatementBase& statement, const char* text) {
    errors_.AddLocatedError(statement.GetFileName().c_str(),
                            static_cast<std::int32_t>(statement.GetLineNumber()), text);
    return false;
}

/// Collects what a failed statement has reported.
/// @return whether the run goes on.
bool CMacroPrg::PassOver(CMacroStatementBase& statement) {
    passedError_ = true;
    errors_.TakeErrors(statement.GetErrors());
    FailAt(statement, kRunTimeError);
    if (stopOnError_) {
        SetState(State::Failed);
        return false;
    }
    // With a target the lines of an error passed over go nowhere else.
    if (errorTarget_ != nullptr) errors_.Clear();
    return true;
}

/// Ends a run that has come to the end of its program. An abort that is requested at this very moment is seen
/// by either this run or nobody: the request tells its caller which.
bool CMacroPrg::Finish() {
    State state = GetState();
    while (state != State::Aborting && state != State::Aborted) {
        if (state_.compare_exchange_weak(state, passedError_ ? State::Failed : State::Finished))
            return !passedError_;
    }
    return Fail(kAborted);
}

}  // namespace macroengine
