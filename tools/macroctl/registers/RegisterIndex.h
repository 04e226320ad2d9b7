#pragma once

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "registers/Register.h"

namespace macroctl {

/// Finds registers by their names, which compare with case.
class RegisterIndex {
public:
    /// @param registers  outlives this object and doesn't change.
    explicit RegisterIndex(const std::vector<Register>& registers);

    /// @return the register; of several of one name the first. Null when there is none.
    const Register* Find(std::string_view name) const;

    /// @return the register's name that is closest to a name that isn't there, the empty text when none is
    ///         close enough to be what was meant.
    std::string_view FindSimilar(std::string_view name) const;

private:
    const std::vector<Register>& registers_;
    std::unordered_map<std::string_view, const Register*> byName_;
};

}  // namespace macroctl
