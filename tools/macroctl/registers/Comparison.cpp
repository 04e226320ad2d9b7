#include "registers/Comparison.h"

#include <algorithm>
#include <map>
#include <tuple>
#include <utility>

#include "registers/LineTemplate.h"
#include "text/Hexadecimal.h"

namespace macroctl {

namespace {

ChangedValue NumberValue(std::uint32_t number) {
    return {std::to_string(number), number, false};
}

ChangedValue HexadecimalValue(std::uint32_t number) {
    return {Hexadecimal(number, 4), number, false};
}

ChangedValue TextValue(std::string_view text) {
    return {std::string(text), std::nullopt, false};
}

ChangedValue AddressValue(const RegisterPlace& place) {
    return place.given ? HexadecimalValue(place.address) : ChangedValue{"none", std::nullopt, true};
}

/// What makes a register the same one under another name.
using Location = std::tuple<bool, std::uint32_t, bool, std::uint32_t, unsigned int, unsigned int>;

Location LocationOf(const Register& reg) {
    return {reg.twoWire.given, reg.twoWire.address, reg.threeWire.given, reg.threeWire.address,
            reg.lsb,           reg.length};
}

using Registers = std::vector<Register>;

/// For each register of the old file the register of the new one, by index.
class Pairing {
public:
    Pairing(const Registers& before, const Registers& after)
        : partner_(before.size(), nullptr), paired_(after.size(), false) {
        PairBy(before, after, [](const Register& reg) { return reg.name; });
        PairBy(before, after, LocationOf);
    }

    const Register* PartnerOf(std::size_t index) const { return partner_[index]; }
    bool IsAdded(std::size_t index) const { return !paired_[index]; }

private:
    /// Pairs what has no partner yet and agrees in the key. Of several alike the first goes with the first.
    template <class KeyOf>
    void PairBy(const Registers& before, const Registers& after, KeyOf keyOf) {
        struct Candidates {
            std::vector<std::size_t> indexes;
            std::size_t used = 0;
        };
        std::map<decltype(keyOf(before.front())), Candidates> free;
        for (std::size_t i = 0; i < after.size(); ++i) {
            if (!paired_[i]) free[keyOf(after[i])].indexes.push_back(i);
        }
        for (std::size_t i = 0; i < before.size(); ++i) {
            if (partner_[i] != nullptr) continue;
            const auto found = free.find(keyOf(before[i]));
            if (found == free.end() || found->second.used == found->second.indexes.size()) continue;
            const std::size_t index = found->second.indexes[found->second.used++];
            partner_[i] = &after[index];
            paired_[index] = true;
        }
    }

    std::vector<const Register*> partner_;
    std::vector<bool> paired_;
};

/// @return whether nothing that could be done with a register before is impossible now.
bool KeepsRights(Access before, Access after) {
    return (!CanRead(before) || CanRead(after)) && (!CanWrite(before) || CanWrite(after));
}

}  // namespace

Comparison::Comparison(const RegisterFile& before, const RegisterFile& after)
    : bothHaveInitialValues_(before.IsLineBased() && after.IsLineBased()),
      sameFormat_(before.IsLineBased() == after.IsLineBased()) {
    const Pairing pairing(before.Registers(), after.Registers());
    for (std::size_t i = 0; i < before.Registers().size(); ++i) {
        const Register& reg = before.Registers()[i];
        const Register* const partner = pairing.PartnerOf(i);
        if (partner == nullptr) {
            Add(ChangeKind::Removed, true, reg.name);
        } else {
            Compare(reg, *partner);
        }
    }
    for (std::size_t i = 0; i < after.Registers().size(); ++i) {
        if (pairing.IsAdded(i)) Add(ChangeKind::Added, false, after.Registers()[i].name);
    }
}

bool Comparison::IsBreaking() const {
    return std::any_of(changes_.begin(), changes_.end(),
                       [](const Change& change) { return change.breaking; });
}

void Comparison::Compare(const Register& before, const Register& after) {
    if (before.name != after.name)
        Add(ChangeKind::Renamed, true, after.name, "name", TextValue(before.name), TextValue(after.name));
    for (const BusKind bus : kBuses)
        ComparePlace(before, after, bus);
    if (before.lsb != after.lsb)
        Add(ChangeKind::Moved, true, after.name, "lsb", NumberValue(before.lsb), NumberValue(after.lsb));
    if (before.length != after.length)
        Add(ChangeKind::Width, true, after.name, "length", NumberValue(before.length),
            NumberValue(after.length));
    if (before.access != after.access)
        Add(ChangeKind::Access, !KeepsRights(before.access, after.access), after.name, "rw",
            TextValue(AccessText(before.access)), TextValue(AccessText(after.access)));
    if (bothHaveInitialValues_ && before.initialValue != after.initialValue)
        Add(ChangeKind::InitialValue, false, after.name, "initial_value",
            {Hexadecimal(before.initialValue, 1), before.initialValue, false},
            {Hexadecimal(after.initialValue, 1), after.initialValue, false});
    if (sameFormat_) CompareTexts(before, after);
}

void Comparison::ComparePlace(const Register& before, const Register& after, BusKind bus) {
    const std::string suffix = bus == BusKind::TwoWire ? "_2wire" : "_3wire";
    const RegisterPlace& from = before.On(bus);
    const RegisterPlace& to = after.On(bus);
    // An address on a second bus takes nothing away from the first.
    if (from.given != to.given || from.address != to.address)
        Add(ChangeKind::Moved, from.given, after.name, "address" + suffix, AddressValue(from),
            AddressValue(to));
    if (from.given && to.given && from.bigEndian != to.bigEndian)
        Add(ChangeKind::Endianness, true, after.name, "endian" + suffix,
            TextValue(from.bigEndian ? "big" : "little"), TextValue(to.bigEndian ? "big" : "little"));
}

void Comparison::CompareTexts(const Register& before, const Register& after) {
    if (bothHaveInitialValues_) {
        // The texts of a line-based file are the register's line, which holds what is compared above.
        const LineTemplate from(before.function);
        const LineTemplate to(after.function);
        if (LocationOf(before) == LocationOf(after) && from.pieces != to.pieces)
            Add(ChangeKind::Moved, true, after.name, "pieces", TextValue(from.pieces), TextValue(to.pieces));
        if (from.notes != to.notes)
            Add(ChangeKind::Text, false, after.name, "notes", TextValue(from.notes), TextValue(to.notes));
        return;
    }
    if (before.description != after.description)
        Add(ChangeKind::Text, false, after.name, "description", TextValue(before.description),
            TextValue(after.description));
    if (before.function != after.function)
        Add(ChangeKind::Text, false, after.name, "function", TextValue(before.function),
            TextValue(after.function));
}

void Comparison::Add(ChangeKind kind, bool breaking, std::string_view name, std::string what,
                     ChangedValue before, ChangedValue after) {
    changes_.push_back(
        {kind, breaking, std::string(name), std::move(what), std::move(before), std::move(after)});
}

}  // namespace macroctl
