#include "formats/RegisterText.h"

#include "text/Hexadecimal.h"

namespace macroctl {

std::string AddressText(const RegisterPlace& place) {
    return place.given ? Hexadecimal(place.address, 4) : std::string();
}

const char* EndianText(const RegisterPlace& place) {
    if (!place.given) return "";
    return place.bigEndian ? "big" : "little";
}

std::string EndianText(const Register& reg) {
    std::string text = EndianText(reg.twoWire);
    const std::string other = EndianText(reg.threeWire);
    if (text.empty() || text == other) return other.empty() ? text : other;
    return other.empty() ? text : text + "/" + other;
}

std::string InitialValueText(const RegisterFile& file, const Register& reg) {
    if (!file.IsLineBased()) return {};
    const unsigned int bits = reg.length < 32 ? reg.length : 32;
    return Hexadecimal(reg.initialValue, static_cast<int>((bits + 3) / 4));
}

std::string_view DescriptionText(const Register& reg) {
    return reg.description == reg.name ? std::string_view() : reg.description;
}

std::string DescriptionAndFunction(const Register& reg) {
    std::string text(DescriptionText(reg));
    if (!text.empty() && !reg.function.empty()) text += "\n";
    return text.append(reg.function);
}

std::string FileName(const std::string& path) {
    return path.substr(path.find_last_of("/\\") + 1);
}

std::string FileStem(const std::string& path) {
    const std::string name = FileName(path);
    return name.substr(0, name.rfind('.'));
}

}  // namespace macroctl
