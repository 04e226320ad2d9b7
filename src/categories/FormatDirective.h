#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace macroengine {

/// A format of the C library's printf family with at most one conversion, taken apart before the C library
/// sees it.
///
/// A script may write any format: only one whose conversion suits the value gets through, so the C library
/// never reads an argument that is not there.
class FormatDirective {
public:
    enum class Value { Integer, Floating, String };

    /// Takes a format apart.
    /// @return false when it holds a second conversion, a `*`, an unknown conversion or one that does not
    ///         suit the value.
    bool Parse(std::string_view format, Value value);

    // Each writes the format with its value.
    // Returns false when the text would not fit into a buffer of 1024 bytes with its NUL.
    bool Format(std::int32_t value, std::string& text) const;
    bool Format(double value, std::string& text) const;
    bool Format(const char* value, std::string& text) const;

private:
    template <class Argument>
    bool FormatValue(Argument value, std::string& text) const;
    bool ParseConversion(std::string_view& rest, Value value);

    std::string before_;  ///< the text before the conversion, or all of it without one
    std::string after_;
    std::string
        directive_;         ///< the conversion in the form that is handed to the C library; empty without one
    bool tooWide_ = false;  ///< the text can't fit, whatever the value is
};

}  // namespace macroengine
