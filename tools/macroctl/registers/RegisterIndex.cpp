#include "registers/RegisterIndex.h"

#include <algorithm>
#include <cstddef>
#include <numeric>

namespace macroctl {

namespace {

char Lower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

/// The number of letters to insert, drop, change or swap with their neighbour that leads from one name to the
/// other. Case costs nothing.
class EditDistance {
public:
    std::size_t operator()(std::string_view from, std::string_view to) {
        beforeLast_.assign(to.size() + 1, 0);
        last_.resize(to.size() + 1);
        std::iota(last_.begin(), last_.end(), std::size_t{0});
        for (std::size_t i = 1; i <= from.size(); ++i) {
            row_.assign(to.size() + 1, i);
            for (std::size_t k = 1; k <= to.size(); ++k)
                row_[k] = Cell(from, to, i, k);
            std::swap(beforeLast_, last_);
            std::swap(last_, row_);
        }
        return last_.back();
    }

private:
    std::size_t Cell(std::string_view from, std::string_view to, std::size_t i, std::size_t k) const {
        const char a = Lower(from[i - 1]);
        const char b = Lower(to[k - 1]);
        std::size_t best = std::min({last_[k] + 1, row_[k - 1] + 1, last_[k - 1] + (a == b ? 0U : 1U)});
        if (i > 1 && k > 1 && a == Lower(to[k - 2]) && b == Lower(from[i - 2]))
            best = std::min(best, beforeLast_[k - 2] + 1);
        return best;
    }

    std::vector<std::size_t> beforeLast_;
    std::vector<std::size_t> last_;
    std::vector<std::size_t> row_;
};

/// Beyond this two names have little in common: a third of the letters, three at most. Of two letters none
/// may differ but in case.
std::size_t GreatestDistance(std::string_view name) {
    return std::min<std::size_t>(name.size() / 3, 3);
}

}  // namespace

RegisterIndex::RegisterIndex(const std::vector<Register>& registers) : registers_(registers) {
    byName_.reserve(registers.size());
    for (const Register& reg : registers)
        byName_.emplace(reg.name, &reg);
}

const Register* RegisterIndex::Find(std::string_view name) const {
    const auto found = byName_.find(name);
    return found != byName_.end() ? found->second : nullptr;
}

std::string_view RegisterIndex::FindSimilar(std::string_view name) const {
    EditDistance distance;
    std::string_view closest;
    std::size_t limit = GreatestDistance(name) + 1;  // the distance that the next one has to stay below
    for (const Register& reg : registers_) {
        const std::size_t size = reg.name.size();
        if (std::max(size, name.size()) - std::min(size, name.size()) >= limit) continue;
        const std::size_t found = distance(name, reg.name);
        if (found >= limit) continue;
        limit = found;
        closest = reg.name;
    }
    return closest;
}

}  // namespace macroctl
