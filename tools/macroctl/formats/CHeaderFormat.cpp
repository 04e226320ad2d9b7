#include <cstdint>
#include <string>

#include "formats/Formats.h"
#include "formats/Identifiers.h"
#include "formats/RegisterText.h"
#include "text/Hexadecimal.h"
#include "text/Utf8.h"

namespace macroctl {

namespace {

/// Makes a text safe inside of a comment: nothing begins or ends one, and no line goes on.
std::string CommentText(std::string_view text) {
    std::string result;
    for (const char c : OnOneLine(text)) {
        const char before = result.empty() ? '\0' : result.back();
        if ((before == '*' && c == '/') || (before == '/' && c == '*')) result += ' ';
        // "??/" would be a backslash to an old compiler.
        if (before == '?' && c == '?') result += ' ';
        result += c;
    }
    return result;
}

std::string GuardName(const std::string& path) {
    std::string name = Identifiers().Make(FileStem(path)) + "_REGISTERS_H";
    for (char& c : name) {
        if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
    }
    return name;
}

/// A mask of more than 64 bits has no type that holds it.
constexpr unsigned int kWidestMask = 64;

std::string MaskText(const Register& reg) {
    const unsigned int bits = reg.lsb + reg.length;
    const std::uint64_t ones = reg.length >= 64 ? ~std::uint64_t{0} : (std::uint64_t{1} << reg.length) - 1;
    if (bits <= 32) return Hexadecimal(ones << reg.lsb, bits <= 8 ? 2 : bits <= 16 ? 4 : 8) + "u";
    return Hexadecimal(ones << reg.lsb, 16) + "ull";
}

class HeaderWriter {
public:
    explicit HeaderWriter(Output& out) : out_(out) {}

    void Write(const RegisterFile& file, const Register& reg) {
        name_ = names_.Make(reg.name);
        WriteComment(reg);
        WritePlace("2WIRE", reg.twoWire);
        WritePlace("3WIRE", reg.threeWire);
        Define("LSB", std::to_string(reg.lsb) + "u");
        Define("LENGTH", std::to_string(reg.length) + "u");
        if (reg.lsb + reg.length <= kWidestMask && reg.length > 0) Define("MASK", MaskText(reg));
        if (file.IsLineBased()) Define("INITIAL", InitialValueText(file, reg) + "u");
    }

private:
    void WriteComment(const Register& reg) {
        std::string text(DescriptionText(reg));
        if (!text.empty() && !reg.function.empty()) text += "; ";
        text += reg.function;
        out_.Write("\n/* " + CommentText(reg.name) + " (" + AccessText(reg.access) + ")" +
                   (text.empty() ? "" : ": ") + CommentText(text) + " */\n");
    }

    void WritePlace(const std::string& bus, const RegisterPlace& place) {
        if (!place.given) return;
        Define("ADDRESS_" + bus, AddressText(place) + "u");
        Define("BIG_ENDIAN_" + bus, place.bigEndian ? "1" : "0");
    }

    void Define(const std::string& what, const std::string& value) {
        out_.Write("#define " + name_ + "_" + what + " " + value + "\n");
    }

    Output& out_;
    Identifiers names_;
    std::string name_;
};

}  // namespace

void WriteCHeader(std::vector<RegisterFile>& files, Output& out) {
    const std::string guard = GuardName(files.front().Path());
    out.Write("#ifndef " + guard + "\n#define " + guard + "\n");
    out.Write(
        "\n/* Written by macroctl. LSB, LENGTH and MASK are those of the number that the register's bytes\n"
        " * make in their order. */\n");
    HeaderWriter writer(out);
    for (const RegisterFile& file : files) {
        for (const Register& reg : file.Registers())
            writer.Write(file, reg);
    }
    out.Write("\n#endif\n");
}

}  // namespace macroctl
