#pragma once

class CMacroFileIF;

namespace macroctl {

/// A board without hardware, seen as the commands of the category `board`. It outlives the macro file that it
/// is registered with.
class Board {
public:
    virtual ~Board() = default;

    /// @return false when the file has a category `board` of another form.
    virtual bool RegisterWith(CMacroFileIF& file) = 0;
};

}  // namespace macroctl
