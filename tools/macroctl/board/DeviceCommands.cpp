#include "board/DeviceCommands.h"

#include <macroengine/CMacroPropertyIF.h>

#include "board/ArgumentValue.h"

namespace macroctl {

namespace {

constexpr unsigned int kHighestByte = 0xFF;

}  // namespace

DeviceCommand::DeviceCommand(const char* name, bool givesValue, Operation operation,
                             const DeviceAccess& access, BusKind kind)
    : BoardCommand(name, givesValue, access.console), access_(access), kind_(kind), operation_(operation) {}

bool DeviceCommand::Accept(CMacroPropertyIF& property, const std::string& reason) const {
    if (reason.empty()) return true;
    property.AddErrorMessage(
        (std::string(GetCategoryName()) + "." + GetPropertyName() + "() " + reason).c_str());
    return false;
}

bool DeviceCommand::FindTarget(CMacroPropertyIF& property, const Register*& reg, std::uint32_t& address) {
    reg = nullptr;
    if (static_cast<ArgumentKind>(property.GetArgType(0)) == ArgumentKind::Text) {
        std::string reason;
        reg = access_.map.Find(kind_, property.GetArgString(0), reason);
        return Accept(property, reg == nullptr ? reason : DeviceMap::ReasonAgainst(operation_, *reg));
    }
    int value = 0;
    if (!property.GetArgInteger(0, 0, access_.map.HighestAddress(), value)) return false;
    address = static_cast<std::uint32_t>(value);
    return Accept(property, access_.map.ReasonAgainst(operation_, kind_, address));
}

DeviceReadCommand::DeviceReadCommand(const char* name, const DeviceAccess& access, BusKind kind)
    : DeviceCommand(name, true, Operation::Read, access, kind) {}

bool DeviceReadCommand::Execute(CMacroPropertyIF& property) {
    const Register* reg = nullptr;
    std::uint32_t address = 0;
    if (property.CheckArgumentCount(1, 1) < 0) return false;
    if (!FindTarget(property, reg, address)) return false;
    if (reg == nullptr) return property.SetResultInteger(access_.bus.Read(kind_, address));

    std::uint32_t value = 0;
    ForEachPart(*reg, reg->On(kind_), [&](const RegisterPart& part) {
        const unsigned int bits = access_.bus.Read(kind_, part.address) & part.Mask();
        value |= std::uint32_t{bits} >> part.lsb << part.firstBit;
    });
    return property.SetResultInteger(static_cast<int>(value));
}

DeviceWriteCommand::DeviceWriteCommand(const char* name, Operation operation, const DeviceAccess& access,
                                       BusKind kind)
    : DeviceCommand(name, false, operation, access, kind), presets_(operation == Operation::Preset) {}

bool DeviceWriteCommand::Execute(CMacroPropertyIF& property) {
    const Register* reg = nullptr;
    std::uint32_t address = 0;
    int value = 0;
    if (property.CheckArgumentCount(2, 2) < 0) return false;
    if (!FindTarget(property, reg, address)) return false;
    if (reg == nullptr) {
        if (!property.GetArgInteger(1, 0, kHighestByte, value)) return false;
        Store(address, static_cast<std::uint8_t>(value));
        return true;
    }

    if (!property.GetArgInteger(1, 0, 0, value)) return false;
    if (!Accept(property, DeviceMap::ReasonAgainstValue(*reg, value))) return false;
    const auto bits = static_cast<std::uint32_t>(value);
    ForEachPart(*reg, reg->On(kind_), [&](const RegisterPart& part) {
        const int others = access_.registers.Peek(kind_, part.address) & ~part.Mask();
        const unsigned int own = bits >> part.firstBit << part.lsb & part.Mask();
        Store(part.address, static_cast<std::uint8_t>(static_cast<unsigned int>(others) | own));
    });
    return true;
}

void DeviceWriteCommand::Store(std::uint32_t address, std::uint8_t value) {
    if (presets_) {
        access_.registers.Poke(kind_, address, value);
    } else {
        access_.bus.Write(kind_, address, value);
    }
}

}  // namespace macroctl
