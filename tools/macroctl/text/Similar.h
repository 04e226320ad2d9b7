#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace macroctl {

/// Finds out of many names the one that somebody who wrote another may have meant.
///
/// @code
/// Similar similar("LIMTI");
/// for (const std::string& name : names) similar.Offer(name);
/// similar.Best();  // "LIMIT"
/// @endcode
class Similar {
public:
    /// @param written  outlives this object, as does each name that is offered.
    explicit Similar(std::string_view written);

    void Offer(std::string_view name);

    /// @return the closest name so far, of equals the first; the empty text when none is close enough to be
    ///         what was meant.
    std::string_view Best() const { return best_; }

private:
    std::size_t DistanceTo(std::string_view name);
    std::size_t Cell(std::string_view name, std::size_t i, std::size_t k) const;

    const std::string_view written_;
    std::size_t limit_;  // the distance that the next one has to stay below
    std::string_view best_;

    // Rows of the table of distances, kept for their memory.
    std::vector<std::size_t> beforeLast_;
    std::vector<std::size_t> last_;
    std::vector<std::size_t> row_;
};

/// @return `, did you mean "NAME"?`; the empty text for the empty name.
std::string DidYouMean(std::string_view name);

}  // namespace macroctl
