#include "text/Similar.h"

#include <algorithm>
#include <numeric>

namespace macroctl {

namespace {

char Lower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

/// Beyond this two names have little in common: a third of the letters, three at most. Of two letters none
/// may differ but in case.
std::size_t GreatestDistance(std::string_view name) {
    return std::min<std::size_t>(name.size() / 3, 3);
}

}  // namespace

Similar::Similar(std::string_view written) : written_(written), limit_(GreatestDistance(written) + 1) {}

void Similar::Offer(std::string_view name) {
    const std::size_t size = name.size();
    if (std::max(size, written_.size()) - std::min(size, written_.size()) >= limit_) return;
    const std::size_t distance = DistanceTo(name);
    if (distance >= limit_) return;
    limit_ = distance;
    best_ = name;
}

/// The number of letters to insert, drop, change or swap with their neighbour that leads from one name to the
/// other. Case costs nothing.
std::size_t Similar::DistanceTo(std::string_view name) {
    beforeLast_.assign(name.size() + 1, 0);
    last_.resize(name.size() + 1);
    std::iota(last_.begin(), last_.end(), std::size_t{0});
    for (std::size_t i = 1; i <= written_.size(); ++i) {
        row_.assign(name.size() + 1, i);
        for (std::size_t k = 1; k <= name.size(); ++k)
            row_[k] = Cell(name, i, k);
        std::swap(beforeLast_, last_);
        std::swap(last_, row_);
    }
    return last_.back();
}

std::size_t Similar::Cell(std::string_view name, std::size_t i, std::size_t k) const {
    const char a = Lower(written_[i - 1]);
    const char b = Lower(name[k - 1]);
    std::size_t best = std::min({last_[k] + 1, row_[k - 1] + 1, last_[k - 1] + (a == b ? 0U : 1U)});
    if (i > 1 && k > 1 && a == Lower(name[k - 2]) && b == Lower(written_[i - 2]))
        best = std::min(best, beforeLast_[k - 2] + 1);
    return best;
}

std::string DidYouMean(std::string_view name) {
    if (name.empty()) return {};
    return std::string(", did you mean \"").append(name).append("\"?");
}

}  // namespace macroctl
