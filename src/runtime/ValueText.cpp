#include "runtime/ValueText.h"

#include <charconv>
#include <system_error>

namespace macroengine {

namespace {

/// Below this size a text that grows is simply copied; from there on it gets room to grow in place.
constexpr std::size_t kRoomFrom = 64;

}  // namespace

ValueText::ValueText(const ValueView& value) {
    char* const last = buffer_ + sizeof buffer_;
    switch (value.eType) {
        case ValueKind::Integer: {
            const auto end = std::to_chars(buffer_, last, value.integer).ptr;
            text_ = std::string_view(buffer_, static_cast<std::size_t>(end - buffer_));
            break;
        }
        case ValueKind::Floating: {
            const auto end = std::to_chars(buffer_, last, value.floating, std::chars_format::general, 6).ptr;
            text_ = std::string_view(buffer_, static_cast<std::size_t>(end - buffer_));
            break;
        }
        case ValueKind::Boolean:
            text_ = value.boolean ? "true" : "false";
            break;
        case ValueKind::String:
            text_ = value.Text();
            break;
        default:
            break;
    }
}

std::int32_t TruncateToInteger(double value) {
    constexpr double kLimit = 9223372036854775808.0;
    if (!(value >= -kLimit && value < kLimit)) return 0;
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(static_cast<std::int64_t>(value)));
}

CMacroCommonValue Concatenate(const ValueView& left, std::string_view right) {
    ValueView whole = left;
    if (right.empty()) return CMacroCommonValue(whole);
    if (left.text != nullptr && left.text->Extend(left.length, right)) {
        whole.length += static_cast<std::uint32_t>(right.size());
        return CMacroCommonValue(whole);
    }
    const std::size_t length = left.length + right.size();
    const std::size_t capacity = length < kRoomFrom ? length : length + length / 2;
    whole.text = SharedText::Create(left.Text(), right, capacity);
    whole.length = static_cast<std::uint32_t>(length);
    CMacroCommonValue result(whole);
    whole.text->Release();
    return result;
}

}  // namespace macroengine
