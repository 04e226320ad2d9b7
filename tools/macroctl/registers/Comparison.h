#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "registers/RegisterFile.h"

namespace macroctl {

enum class ChangeKind { Added, Removed, Renamed, Moved, Width, Access, Endianness, InitialValue, Text };

/// One side of a change.
struct ChangedValue {
    std::string text;
    std::optional<std::uint32_t> number;  ///< when it is one
    bool missing = false;                 ///< There is no such value on this side.
};

/// One difference between two register files.
struct Change {
    ChangeKind kind;
    bool breaking;
    std::string name;  ///< the register's; of a renamed one the new name
    std::string
        what;  ///< what has changed about it, in the words of the JSON form of registers; may be empty
    ChangedValue before;
    ChangedValue after;
};

/// What has changed from one register file to the next.
///
/// Registers are told apart by their names, several of one name by their order. A register whose name is gone
/// is a renamed one when a new name has just its addresses and bits.
///
/// A change is breaking when a program that was right for the old file may be wrong for the new one: a
/// register that is removed, renamed, or moved, one with other bits or another byte order, a right that is
/// taken away. What is added, a right that comes along, another initial value and another text break nothing.
class Comparison {
public:
    /// The files may go when the comparison has been made.
    Comparison(const RegisterFile& before, const RegisterFile& after);

    /// The changes in the order of the old file; what is added comes last, in the order of the new one.
    const std::vector<Change>& Changes() const { return changes_; }

    bool IsBreaking() const;

private:
    void Compare(const Register& before, const Register& after);
    void ComparePlace(const Register& before, const Register& after, BusKind bus);
    void CompareTexts(const Register& before, const Register& after);
    void Add(ChangeKind kind, bool breaking, std::string_view name, std::string what = {},
             ChangedValue before = {}, ChangedValue after = {});

    const bool bothHaveInitialValues_;
    const bool sameFormat_;
    std::vector<Change> changes_;
};

}  // namespace macroctl
