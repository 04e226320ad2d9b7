#include "runtime/CMacroStatementControl.h"

namespace macroengine {

CMacroStatementControl::CMacroStatementControl(SourceUnit& unit, std::uint32_t line)
    : CMacroStatementBase(Kind::Control, unit, line) {}

std::int32_t CMacroStatementControl::GetNextIndex() const {
    switch (way_) {
        case Way::ToJumpTarget:
            return jumpTarget_;
        case Way::ToFalseTarget:
            return falseTarget_;
        default:
            return kNextInOrder;
    }
}

bool CMacroStatementControl::vfRun() {
    switch (control_) {
        case Control::If:
        case Control::ElseIf:
            return RunIf();
        case Control::Loop:
            return RunLoop();
        case Control::EndLoop:
        case Control::BranchEnd:
            way_ = Way::ToJumpTarget;
            return true;
        case Control::Else:
        case Control::EndIf:
        case Control::LoopExit:
            return true;
        case Control::Unknown:
            break;
    }
    return Fail("unknown control operand.");
}

bool CMacroStatementControl::RunIf() {
    return RunCondition("internal error : invalid eType at CMacroStatementControl::RunIf");
}

bool CMacroStatementControl::RunLoop() {
    return RunCondition("internal error : invalid eType at CMacroStatementControl::RunLoop");
}

bool CMacroStatementControl::RunCondition(const char* wrongKind) {
    ValueView condition;
    if (!Resolve(condition_, condition)) return false;
    if (condition.eType != ValueKind::Boolean) return Fail(wrongKind);
    way_ = condition.boolean ? Way::ToJumpTarget : Way::ToFalseTarget;
    return true;
}

}  // namespace macroengine
