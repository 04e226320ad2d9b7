#include "runtime/CMacroStatementControl.h"

namespace macroengine {

CMacroStatementControl::CMacroStatementControl(SourceUnit& unit, std::uint32_t line)
    : CMacroStatementBase(Kind::Control, unit, line) {}

bool CMacroStatementControl::vfRun() {
    switch (control_) {
        case Control::If:
        case Control::ElseIf:
            return RunIf();
        case Control::Loop:
            return RunLoop();
        case Control::EndLoop:
        case Control::BranchEnd:
            SetNextIndex(jumpTarget_);
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
    SetNextIndex(condition.boolean ? jumpTarget_ : falseTarget_);
    return true;
}

}  // namespace macroengine
