#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "runtime/CMacroCommonValue.h"
#include "runtime/SourceUnit.h"
#include "runtime/VariableTable.h"

namespace macroengine {

/// The root of the executable statements. The compiler makes and fills them, the program owns and runs them.
///
/// A statement that fails reports one line or more to its source unit, from where the runner collects them.
class CMacroStatementBase {
public:
    enum class Kind : std::uint8_t { Assign = 0, Operate = 1, Compare = 2, Control = 3, Category = 4 };

    /// Where to go on: with the next statement.
    static constexpr std::int32_t kNextInOrder = -1;

    CMacroStatementBase(const CMacroStatementBase&) = delete;
    CMacroStatementBase& operator=(const CMacroStatementBase&) = delete;
    virtual ~CMacroStatementBase();

    /// Carries the statement out.
    /// @return true on success; false when it has reported an error.
    virtual bool vfRun();

    virtual bool IsBreakStatement() const;

    Kind GetKind() const { return kind_; }
    const SourceUnit& GetUnit() const { return *unit_; }
    const std::string& GetFileName() const { return unit_->fileName; }
    std::uint32_t GetCompileNumber() const { return unit_->compileNumber; }
    std::uint32_t GetLineNumber() const { return line_; }
    void SetLineNumber(std::uint32_t line) { line_ = line; }

    /// @return what the statement has reported since the last collection.
    CErrorMessageTable& GetErrors() { return unit_->errors; }

    /// @return the group of statements to go on with after the run, or kNextInOrder.
    virtual std::int32_t GetNextIndex() const;

    /// Whether the run pauses before this statement's group. Nothing in the engine sets it.
    bool HasBreakFlag() const { return breakFlag_; }
    void SetBreakFlag(bool flag) {
        breakFlag_ = flag;
        unit_->hasBreakpoints |= flag;
    }

    /// Whether the statement lies in memory that somebody else gives back when it is destroyed.
    bool IsInArena() const { return isInArena_; }
    void SetInArena() { isInArena_ = true; }

protected:
    /// @param unit  outlives the statement.
    CMacroStatementBase(Kind kind, SourceUnit& unit, std::uint32_t line);

    /// Reports an error at the statement's place.
    /// @return false.
    bool Fail(std::string_view text);

    /// Resolves an operand; reports the reason when that fails.
    bool Resolve(const Operand& operand, ValueView& value) {
        const ValueView view = operand.View();
        value = view.eType == ValueKind::VariableReference ? view.variable->value.View() : view;
        return IsConcrete(value.eType) || ResolveReference(view, value);
    }

    SourceUnit& MutableUnit() { return *unit_; }

private:
    bool ResolveReference(const ValueView& operand, ValueView& value);

    SourceUnit* unit_;
    std::uint32_t line_;
    Kind kind_;
    bool breakFlag_ : 1;
    bool isInArena_ : 1;
};

/// Destroys a statement, wherever it lies.
struct StatementDeleter {
    StatementDeleter() = default;

    /// What make_unique has made may go on as a StatementPointer.
    template <class Statement>
    StatementDeleter(const std::default_delete<Statement>&) {}  // NOLINT(google-explicit-constructor)

    void operator()(CMacroStatementBase* statement) const {
        if (statement->IsInArena()) {
            statement->~CMacroStatementBase();
        } else {
            delete statement;
        }
    }
};

template <class Statement>
using StatementPointer = std::unique_ptr<Statement, StatementDeleter>;

}  // namespace macroengine
