#pragma once

#include "runtime/CMacroStatementBase.h"

namespace macroengine {

/// `if`, `elseif`, `else`, `endif`, `loop`, `endloop` and the jumps between them. Targets are indexes of the
/// program's groups.
class CMacroStatementControl final : public CMacroStatementBase {
public:
    enum class Control : std::uint8_t {
        If = 0,
        ElseIf = 1,
        Else = 2,
        EndIf = 3,
        Loop = 4,
        EndLoop = 5,    ///< the jump back to the loop
        LoopExit = 6,   ///< where the loop goes on when it is done
        BranchEnd = 7,  ///< the jump behind the endif, at the end of a branch
        Unknown = 8
    };

    CMacroStatementControl(SourceUnit& unit, std::uint32_t line);

    void SetControl(Control control) { control_ = control; }
    Control GetControl() const { return control_; }
    void SetCondition(Operand operand) { condition_ = std::move(operand); }
    const Operand& GetCondition() const { return condition_; }

    /// Where to go on after a condition that holds, and where a jump leads.
    void SetJumpTarget(std::int32_t group) { jumpTarget_ = group; }
    std::int32_t GetJumpTarget() const { return jumpTarget_; }

    /// Where to go on after a condition that does not hold.
    void SetFalseTarget(std::int32_t group) { falseTarget_ = group; }
    std::int32_t GetFalseTarget() const { return falseTarget_; }

    bool vfRun() override;
    std::int32_t GetNextIndex() const override;

private:
    bool RunIf();
    bool RunLoop();
    bool RunCondition(const char* wrongKind);

    /// Where the last run has led.
    enum class Way : std::uint8_t { InOrder, ToJumpTarget, ToFalseTarget };

    Control control_ = Control::Unknown;
    Way way_ = Way::InOrder;
    std::int32_t jumpTarget_ = kNextInOrder;
    std::int32_t falseTarget_ = kNextInOrder;
    Operand condition_;
};

}  // namespace macroengine
