#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace macroengine {

/// The base of the coders that turn one byte sequence into another.
template <class Input, class Output>
class MimeCoder {
public:
    MimeCoder() = default;
    MimeCoder(const MimeCoder&) = default;
    MimeCoder& operator=(const MimeCoder&) = default;
    virtual ~MimeCoder() = default;

    /// Decodes a range. With `final` what is left of an incomplete group is dropped.
    /// @return the position behind the last byte written.
    virtual Output Decode(Input first, Input last, Output out, bool final) = 0;

    /// Drops what is left of an incomplete group.
    /// @return `out`.
    virtual Output Finish(Output out) = 0;
};

/// Decodes the text form of encoded files: Base64 with "-" as the last letter of the alphabet and "*" as the
/// pad.
///
/// Line ends are ignored; any other foreign character is skipped and counted as a fault, as is a misplaced
/// pad.
template <class Input, class Output>
class Base64Decoder : public MimeCoder<Input, Output> {
public:
    Output Decode(Input first, Input last, Output out, bool final) override {
        for (; first != last; ++first) {
            const int value = ValueOf(static_cast<unsigned char>(*first));
            if (value == kIgnored) continue;
            if (value == kForeign) {
                ++faults_;
                continue;
            }
            group_[held_++] = value;
            if (held_ == 4) {
                out = DecodeGroup(out);
                held_ = 0;
            }
        }
        return final ? Finish(out) : out;
    }

    Output Finish(Output out) override {
        held_ = 0;
        return out;
    }

    std::uint32_t GetFaults() const { return faults_; }

private:
    static constexpr int kPad = 64;
    static constexpr int kIgnored = -1;
    static constexpr int kForeign = -2;

    static int ValueOf(unsigned char c) {
        if (c >= 'A' && c <= 'Z') return c - 'A';
        if (c >= 'a' && c <= 'z') return c - 'a' + 26;
        if (c >= '0' && c <= '9') return c - '0' + 52;
        if (c == '+') return 62;
        if (c == '-') return 63;
        if (c == '*') return kPad;
        return c == '\r' || c == '\n' ? kIgnored : kForeign;
    }

    Output DecodeGroup(Output out) {
        if (ended_) {
            ++faults_;
            ended_ = false;
        }
        const auto [a, b, c, d] = group_;
        if (a == kPad || b == kPad) {
            ++faults_;
            return out;
        }
        out = Put(out, a << 2 | b >> 4);
        if (c == kPad) {
            ended_ = true;
            return out;
        }
        out = Put(out, b << 4 | c >> 2);
        if (d == kPad) {
            ended_ = true;
            return out;
        }
        return Put(out, c << 6 | d);
    }

    static Output Put(Output out, int value) {
        *out = static_cast<char>(static_cast<unsigned char>(value & 0xFF));
        return ++out;
    }

    int group_[4] = {};
    int held_ = 0;
    bool ended_ = false;
    std::uint32_t faults_ = 0;
};

/// A decoded line may hold up to this many bytes; a longer one counts as an empty line.
constexpr std::size_t kEncodedLineLimit = 4095;

/// As DecodeSourceLine, but tells a line that is too long from an empty one.
/// @return false when the line is too long; nothing is appended then.
bool DecodeLineWithinLimit(std::string_view line, std::string& out);

/// Decodes one line of an encoded file and appends the bytes of the source line it stands for to `out`.
///
/// The line decodes to the bitwise complement of the source text, up to its first NUL.
/// @return the number of bytes appended.
std::size_t DecodeSourceLine(std::string_view line, std::string& out);

}  // namespace macroengine
