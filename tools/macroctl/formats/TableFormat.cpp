#include <algorithm>
#include <cstdlib>
#include <string>

#include "formats/Formats.h"
#include "formats/RegisterText.h"
#include "platform/Terminal.h"
#include "text/Utf8.h"

namespace macroctl {

namespace {

const std::string kGap = "  ";

constexpr std::size_t kLeastTextWidth = 12;
constexpr std::size_t kNoLimit = static_cast<std::size_t>(-1);

/// The width of the lines: what COLUMNS says, else that of the terminal. What goes elsewhere is not cut.
std::size_t LineWidth() {
    const char* const text = std::getenv("COLUMNS");
    const long columns = text != nullptr ? std::strtol(text, nullptr, 10) : 0;
    if (columns > 0) return static_cast<std::size_t>(columns);
    const std::size_t terminal = TerminalColumns();
    return terminal > 0 ? terminal : kNoLimit;
}

struct Column {
    const char* title;
    bool alignRight;
    std::string (*textOf)(const RegisterFile& file, const Register& reg);
};

std::string OrDash(const std::string& text) {
    return text.empty() ? "-" : text;
}

const Column kColumns[] = {
    {"NAME", false, [](const RegisterFile&, const Register& reg) { return OnOneLine(reg.name); }},
    {"2-WIRE", true,
     [](const RegisterFile&, const Register& reg) { return OrDash(AddressText(reg.twoWire)); }},
    {"3-WIRE", true,
     [](const RegisterFile&, const Register& reg) { return OrDash(AddressText(reg.threeWire)); }},
    {"LSB", true, [](const RegisterFile&, const Register& reg) { return std::to_string(reg.lsb); }},
    {"LEN", true, [](const RegisterFile&, const Register& reg) { return std::to_string(reg.length); }},
    {"RW", false,
     [](const RegisterFile&, const Register& reg) { return std::string(AccessText(reg.access)); }},
    {"ENDIAN", false, [](const RegisterFile&, const Register& reg) { return EndianText(reg); }},
    {"INITIAL", true, InitialValueText},
    {"DESCRIPTION", false,
     [](const RegisterFile&, const Register& reg) { return OnOneLine(DescriptionText(reg)); }},
    {"FUNCTION", false, [](const RegisterFile&, const Register& reg) { return OnOneLine(reg.function); }},
};

constexpr std::size_t kColumnCount = sizeof kColumns / sizeof kColumns[0];
constexpr std::size_t kDescription = kColumnCount - 2;
constexpr std::size_t kFunction = kColumnCount - 1;

/// One table. A column that no register fills is left out.
class Table {
public:
    explicit Table(const RegisterFile& file) : file_(file) {
        for (const Register& reg : file.Registers()) {
            for (std::size_t i = 0; i < kColumnCount; ++i)
                widths_[i] = std::max(widths_[i], DisplayWidth(kColumns[i].textOf(file, reg)));
        }
        for (std::size_t i = 0; i < kColumnCount; ++i) {
            if (widths_[i] > 0) widths_[i] = std::max(widths_[i], DisplayWidth(kColumns[i].title));
        }
        FitTexts(LineWidth());
    }

    void Write(Output& out) const {
        WriteLine(out, [](std::size_t i) { return std::string(kColumns[i].title); });
        for (const Register& reg : file_.Registers())
            WriteLine(out, [&](std::size_t i) { return kColumns[i].textOf(file_, reg); });
    }

private:
    /// Narrows the texts until the line fits: half of the room for each, and what one doesn't need for the
    /// other. Where there is hardly any room they keep a little and the line gets longer.
    void FitTexts(std::size_t lineWidth) {
        std::size_t used = 0;
        for (std::size_t i = 0; i < kColumnCount; ++i) {
            if (widths_[i] > 0 && i > 0) used += kGap.size();
            if (i < kDescription) used += widths_[i];
        }
        std::size_t& description = widths_[kDescription];
        std::size_t& function = widths_[kFunction];
        const std::size_t room = lineWidth > used ? lineWidth - used : 0;
        if (description + function <= room) return;
        const std::size_t half = std::max(room / 2, kLeastTextWidth);
        const std::size_t forFunction = room > description ? room - description : 0;
        if (description == 0 || function == 0) {
            description = std::min(description, std::max(room, kLeastTextWidth));
            function = std::min(function, std::max(room, kLeastTextWidth));
        } else {
            function = std::min(function, std::max(half, forFunction));
            description = std::min(description, std::max(half, room > function ? room - function : 0));
        }
    }

    template <class TextOf>
    void WriteLine(Output& out, TextOf textOf) const {
        std::string line;
        for (std::size_t i = 0; i < kColumnCount; ++i) {
            if (widths_[i] == 0) continue;
            const std::string text = CutToWidth(textOf(i), widths_[i]);
            const std::string padding(widths_[i] - DisplayWidth(text), ' ');
            if (i > 0) line += kGap;
            line += kColumns[i].alignRight ? padding + text : text + padding;
        }
        line.erase(line.find_last_not_of(' ') + 1);
        out.Write(line + "\n");
    }

    const RegisterFile& file_;
    std::size_t widths_[kColumnCount] = {};
};

}  // namespace

void WriteTable(std::vector<RegisterFile>& files, Output& out) {
    for (const RegisterFile& file : files) {
        if (files.size() > 1) {
            if (&file != &files.front()) out.Write("\n");
            out.Write(file.Path() + "\n");
        }
        if (!file.Registers().empty()) Table(file).Write(out);
    }
}

void WriteListing(std::vector<RegisterFile>& files, Output& out) {
    for (RegisterFile& file : files)
        out.Write(file.Listing());
}

}  // namespace macroctl
