#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace macroengine {

/// The `#define` table: names, each with a body of token texts.
///
/// An entry stays where it is and as it is until the table dies, so views into its texts stay valid.
class MacroTable {
public:
    MacroTable() = default;
    MacroTable(const MacroTable&) = delete;
    MacroTable& operator=(const MacroTable&) = delete;

    /// Enters a name. A name that is there with the very same body is accepted.
    /// @return false when the name has another body, which it keeps.
    bool Define(std::string_view name, std::vector<std::string> body);

    /// Copies every macro of the other table whose name this table lacks.
    void CopyMissing(const MacroTable& other);

    bool IsEmpty() const { return entries_.empty(); }

    /// @return whether the name is defined.
    bool Contains(std::string_view name) const { return entries_.count(name) != 0; }

    /// Replaces a text by the texts it stands for, and those by theirs. A name is replaced once at most in
    /// the whole substitution; where it comes up again it stands for itself.
    /// @return false when all substitutions together have added more than the limit. A name that stands for
    /// one token adds nothing.
    bool Substitute(std::string_view text, std::vector<std::string_view>& texts);

private:
    struct Entry {
        std::string name;
        std::vector<std::string> body;
        std::uint64_t usedIn = 0;  ///< the last substitution that replaced this name
    };

    /// @return the entry to replace the text by, marked as used; null when the text stands for itself.
    const Entry* UseEntry(std::string_view text);

    std::unordered_map<std::string_view, std::unique_ptr<Entry>> entries_;  ///< keyed by the entry's own name
    std::uint64_t substitutions_ = 0;
    std::uint32_t growth_ = 0;
};

}  // namespace macroengine
