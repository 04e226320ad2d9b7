#include <string>

#include "formats/Formats.h"
#include "formats/RegisterText.h"

namespace macroctl {

namespace {

/// Keeps a text within its cell, and what Markdown and HTML would take for markup as it is.
std::string Cell(std::string_view text) {
    std::string result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        if (c == '\r' && i + 1 < text.size() && text[i + 1] == '\n') continue;
        if (c == '\r' || c == '\n') {
            result += "<br>";
        } else if (c == '<') {
            result += "&lt;";
        } else if (c == '&') {
            result += "&amp;";
        } else {
            if (std::string_view("\\`*_[]|~").find(c) != std::string_view::npos) result += '\\';
            result += c;
        }
    }
    return result;
}

std::string Row(const RegisterFile& file, const Register& reg) {
    std::string row = "| " + Cell(reg.name) + " | " + AddressText(reg.twoWire) + " | " +
                      AddressText(reg.threeWire) + " | " + std::to_string(reg.lsb) + " | " +
                      std::to_string(reg.length) + " | " + AccessText(reg.access) + " | " + EndianText(reg);
    if (file.IsLineBased()) row += " | " + InitialValueText(file, reg);
    return row + " | " + Cell(DescriptionText(reg)) + " | " + Cell(reg.function) + " |\n";
}

}  // namespace

void WriteMarkdown(std::vector<RegisterFile>& files, Output& out) {
    for (const RegisterFile& file : files) {
        if (&file != &files.front()) out.Write("\n");
        out.Write("# " + Cell(FileName(file.Path())) + "\n\n");
        const bool initial = file.IsLineBased();
        out.Write(std::string("| Name | 2-wire | 3-wire | LSB | Length | Access | Byte order |") +
                  (initial ? " Initial |" : "") + " Description | Function |\n");
        out.Write(std::string("|---|---:|---:|---:|---:|---|---|") + (initial ? "---:|" : "") + "---|---|\n");
        for (const Register& reg : file.Registers())
            out.Write(Row(file, reg));
    }
}

}  // namespace macroctl
