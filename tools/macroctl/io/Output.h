#pragma once

#include <string_view>

namespace macroctl {

/// Standard output for texts that are written byte for byte. There is one at a time.
class Output {
public:
    Output();
    Output(const Output&) = delete;
    Output& operator=(const Output&) = delete;

    void Write(std::string_view text);

    /// @return false, after a word on standard error, when not everything could be written.
    bool Finish();

private:
    bool good_ = true;
};

}  // namespace macroctl
