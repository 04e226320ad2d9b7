#pragma once

#include <cstdint>
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

    /// @return the group of statements to go on with, or kNextInOrder.
    std::int32_t GetNextIndex() const { return nextIndex_; }

    /// Whether the run pauses before this statement's group. Nothing in the engine sets it.
    bool HasBreakFlag() const { return breakFlag_; }
    void SetBreakFlag(bool flag) {
        breakFlag_ = flag;
        unit_->hasBreakpoints |= flag;
    }

protected:
    /// @param unit  outlives the statement.
    CMacroStatementBase(Kind kind, SourceUnit& unit, std::uint32_t line);

    /// Reports an error at the statement's place.
    /// @return false.
    bool Fail(std::string_view text);

    /// Resolves an operand; reports the reason when that fails.
    bool Resolve(const CMacroCommonValue& operand, ValueView& value) {
        value = operand.View();
        if (value.eType == ValueKind::VariableReference) value = value.variable->value.View();
        return IsConcrete(value.eType) || ResolveReference(operand, value);
    }

    SourceUnit& MutableUnit() { return *unit_; }
    void SetNextIndex(std::int32_t index) { nextIndex_ = index; }

private:
    bool ResolveReference(const CMacroCommonValue& operand, ValueView& value);

    SourceUnit* unit_;
    std::uint32_t line_;
    std::int32_t nextIndex_ = kNextInOrder;
    Kind kind_;
    bool breakFlag_ = false;
};

}  // namespace macroengine
