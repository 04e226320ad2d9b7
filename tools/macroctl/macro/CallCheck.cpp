#include "macro/CallCheck.h"

#include <cstdint>
#include <string>
#include <string_view>

#include <macroengine/MacroCalls.h>

#include "board/BoardCommands.h"
#include "board/DeviceMap.h"

namespace macroctl {

namespace {

constexpr int kIntegerLiteral = 0;
constexpr int kTextLiteral = 2;

constexpr std::uint32_t kHighestByte = 0xFF;

struct CheckedCommand {
    std::string_view name;
    Operation operation;
    BusKind bus;
};

constexpr CheckedCommand kCheckedCommands[] = {
    {"read", Operation::Read, BusKind::TwoWire},     {"read3", Operation::Read, BusKind::ThreeWire},
    {"write", Operation::Write, BusKind::TwoWire},   {"write3", Operation::Write, BusKind::ThreeWire},
    {"preset", Operation::Preset, BusKind::TwoWire}, {"preset3", Operation::Preset, BusKind::ThreeWire},
};

const CheckedCommand* CommandOf(const MacroCall& call) {
    if (std::string_view(call.category) != kBoardCategory) return nullptr;
    for (const CheckedCommand& command : kCheckedCommands) {
        if (command.name == call.command) return &command;
    }
    return nullptr;
}

const MacroCallArgument* Literal(const MacroCall& call, unsigned int index, int type) {
    if (index >= call.argumentCount || call.arguments[index].type != type) return nullptr;
    return &call.arguments[index];
}

class CallCheck {
public:
    CallCheck(const DeviceMap& device, std::vector<std::string>& findings)
        : device_(device), findings_(findings) {}

    void Check(const MacroCall& call) {
        const CheckedCommand* const command = CommandOf(call);
        if (command == nullptr) return;
        if (const auto* name = Literal(call, 0, kTextLiteral)) CheckName(call, *command, name->text);
        if (const auto* address = Literal(call, 0, kIntegerLiteral))
            CheckAddress(call, *command, static_cast<std::uint32_t>(address->integer));
    }

private:
    void CheckName(const MacroCall& call, const CheckedCommand& command, const char* name) {
        std::string reason;
        const Register* const reg = device_.Find(command.bus, name, reason);
        if (reg != nullptr) reason = DeviceMap::ReasonAgainst(command.operation, *reg);
        Report(call, reason);
        const auto* value = Literal(call, 1, kIntegerLiteral);
        if (reg != nullptr && value != nullptr)
            Report(call, DeviceMap::ReasonAgainstValue(*reg, value->integer));
    }

    void CheckAddress(const MacroCall& call, const CheckedCommand& command, std::uint32_t address) {
        if (address > device_.HighestAddress()) Report(call, OutOfRange(0));
        Report(call, device_.ReasonAgainst(command.operation, command.bus, address));
        const auto* value = Literal(call, 1, kIntegerLiteral);
        if (value != nullptr && static_cast<std::uint32_t>(value->integer) > kHighestByte)
            Report(call, OutOfRange(1));
    }

    /// The engine's words for an argument out of range.
    static std::string OutOfRange(unsigned int index) {
        return "argument error. (argument[" + std::to_string(index) + "] is out of range.)";
    }

    void Report(const MacroCall& call, const std::string& reason) {
        if (reason.empty()) return;
        findings_.push_back(std::string(call.file) + "(" + std::to_string(call.line) +
                            "): error : " + call.category + "." + call.command + "() " + reason);
    }

    const DeviceMap& device_;
    std::vector<std::string>& findings_;
};

bool Visit(const MacroCall& call, void* context) {
    static_cast<CallCheck*>(context)->Check(call);
    return true;
}

}  // namespace

std::vector<std::string> FindRegisterMistakes(CMacroFileIF& file, const DeviceMap& device) {
    std::vector<std::string> findings;
    CallCheck check(device, findings);
    VisitMacroCalls(&file, Visit, &check);
    return findings;
}

}  // namespace macroctl
