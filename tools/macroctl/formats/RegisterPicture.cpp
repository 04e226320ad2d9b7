#include "formats/RegisterPicture.h"

#include <cstddef>

#include "text/Hexadecimal.h"

namespace macroctl {

namespace {

constexpr unsigned int kCell = 22;
constexpr unsigned int kHeader = 14;

std::string Number(unsigned int value) {
    return std::to_string(value);
}

std::string Text(unsigned int x, unsigned int y, const char* style, const std::string& text) {
    return "<text class=\"" + std::string(style) + "\" x=\"" + Number(x) + "\" y=\"" + Number(y) + "\">" +
           text + "</text>";
}

std::string Cell(unsigned int x, unsigned int y, bool own) {
    return "<rect" + std::string(own ? " class=\"own\"" : "") + " x=\"" + Number(x) + "\" y=\"" + Number(y) +
           "\" width=\"" + Number(kCell) + "\" height=\"" + Number(kCell) + "\"/>";
}

/// The row of one byte. Its bits count from those of the least significant byte, whose significance is 0.
std::string Row(const Register& reg, unsigned int significance, unsigned int left, unsigned int top) {
    std::string row;
    for (unsigned int i = 0; i < 8; ++i) {
        const unsigned int bit = significance * 8 + 7 - i;
        const bool own = bit >= reg.lsb && bit < reg.lsb + reg.length;
        const unsigned int x = left + i * kCell;
        row += Cell(x, top, own);
        if (own) row += Text(x + kCell / 2, top + 15, "bit", Number(bit - reg.lsb));
    }
    return row;
}

/// @return the room for the addresses of a register at this place.
unsigned int LabelWidth(const Register& reg, const RegisterPlace& place) {
    constexpr unsigned int kLetterWidth = 7;
    const std::size_t letters = Hexadecimal(place.address + reg.ByteCount() - 1, 4).size();
    return kLetterWidth * static_cast<unsigned int>(letters) + 14;
}

/// @param other  a place with the same byte order, whose addresses stand beside those of the first.
std::string Draw(const Register& reg, const RegisterPlace& place, const RegisterPlace* other) {
    const unsigned int count = reg.ByteCount();
    const unsigned int firstLabel = LabelWidth(reg, place);
    const unsigned int left = firstLabel + (other != nullptr ? LabelWidth(reg, *other) : 0);
    const unsigned int width = left + 8 * kCell + 1;
    const unsigned int height = kHeader + count * kCell + 1;
    std::string drawing = "<svg width=\"" + Number(width) + "\" height=\"" + Number(height) +
                          "\" viewBox=\"0 0 " + Number(width) + " " + Number(height) + "\" role=\"img\">";
    drawing += "<title>bits " + Number(reg.lsb) + " to " + Number(reg.lsb + reg.length - 1) + "</title>";
    for (unsigned int i = 0; i < 8; ++i)
        drawing += Text(left + i * kCell + kCell / 2, kHeader - 4, "position", Number(7 - i));
    for (unsigned int i = 0; i < count; ++i) {
        const unsigned int top = kHeader + i * kCell;
        drawing += Text(firstLabel - 6, top + 15, "address", Hexadecimal(place.address + i, 4));
        if (other != nullptr)
            drawing += Text(left - 6, top + 15, "address", Hexadecimal(other->address + i, 4));
        drawing += Row(reg, place.bigEndian ? count - 1 - i : i, left, top);
    }
    return drawing + "</svg>";
}

}  // namespace

std::string DrawRegister(const Register& reg) {
    if (reg.length == 0) return {};
    const RegisterPlace& two = reg.twoWire;
    const RegisterPlace& three = reg.threeWire;
    if (!two.given || !three.given) return Draw(reg, two.given ? two : three, nullptr);
    const bool alike = two.bigEndian == three.bigEndian || reg.ByteCount() == 1;
    if (!alike) return Draw(reg, two, nullptr) + Draw(reg, three, nullptr);
    return Draw(reg, two, two.address == three.address ? nullptr : &three);
}

}  // namespace macroctl
