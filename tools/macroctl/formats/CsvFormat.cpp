#include <initializer_list>
#include <string>

#include "formats/Formats.h"
#include "formats/RegisterText.h"

namespace macroctl {

namespace {

std::string Cell(std::string_view text) {
    if (text.find_first_of(",\"\r\n") == std::string_view::npos) return std::string(text);
    std::string quoted = "\"";
    for (const char c : text) {
        if (c == '"') quoted += '"';
        quoted += c;
    }
    return quoted + "\"";
}

void WriteRow(std::initializer_list<std::string_view> cells, Output& out) {
    std::string row;
    for (const std::string_view cell : cells)
        row.append(Cell(cell)).append(1, ',');
    row.back() = '\r';
    out.Write(row + "\n");
}

void WriteRegister(const RegisterFile& file, const Register& reg, Output& out) {
    WriteRow(
        {file.Path(), reg.name, AddressText(reg.twoWire), AddressText(reg.threeWire), std::to_string(reg.lsb),
         std::to_string(reg.length), AccessText(reg.access), EndianText(reg.twoWire),
         EndianText(reg.threeWire), InitialValueText(file, reg), reg.description, reg.function},
        out);
}

}  // namespace

void WriteCsv(std::vector<RegisterFile>& files, Output& out) {
    WriteRow({"file", "name", "address_2wire", "address_3wire", "lsb", "length", "rw", "endian_2wire",
              "endian_3wire", "initial_value", "description", "function"},
             out);
    for (const RegisterFile& file : files) {
        for (const Register& reg : file.Registers())
            WriteRegister(file, reg, out);
    }
}

}  // namespace macroctl
