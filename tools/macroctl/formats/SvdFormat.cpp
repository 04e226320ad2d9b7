#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <tuple>

#include "formats/Formats.h"
#include "formats/Identifiers.h"
#include "formats/RegisterText.h"
#include "text/Hexadecimal.h"
#include "text/Markup.h"

// A register file describes bit fields, CMSIS-SVD registers with fields in them. Fields that share address,
// number of bytes and byte order are the fields of one register. Each bus of each file is a peripheral,
// because the addresses of the buses are not those of one memory.

namespace macroctl {

namespace {

std::string Element(std::size_t depth, const std::string& name, const std::string& text) {
    return std::string(2 * depth, ' ') + "<" + name + ">" + text + "</" + name + ">\n";
}

const char* AccessWord(bool read, bool write) {
    if (read && write) return "read-write";
    return read ? "read-only" : "write-only";
}

/// The fields that make one register of the device.
struct Word {
    std::uint32_t address = 0;
    unsigned int bytes = 0;
    bool bigEndian = false;
    std::vector<const Register*> fields;
};

std::vector<Word> WordsOf(const RegisterFile& file, BusKind bus) {
    std::vector<Word> words;
    std::map<std::tuple<std::uint32_t, unsigned int, bool>, std::size_t> known;
    for (const Register& reg : file.Registers()) {
        const RegisterPlace& place = reg.On(bus);
        // There is no word for what can neither be read nor written.
        if (!place.given || reg.length == 0 || reg.access == Access::NotConnected) continue;
        const auto entry =
            known.emplace(std::tuple(place.address, reg.ByteCount(), place.bigEndian), words.size());
        if (entry.second) words.push_back({place.address, reg.ByteCount(), place.bigEndian, {}});
        words[entry.first->second].fields.push_back(&reg);
    }
    return words;
}

class PeripheralWriter {
public:
    PeripheralWriter(const RegisterFile& file, BusKind bus, Output& out)
        : file_(file), bus_(bus), out_(out), words_(WordsOf(file, bus)) {}

    bool IsEmpty() const { return words_.empty(); }

    void Write(const std::string& name) {
        std::uint64_t size = 0;
        for (const Word& word : words_)
            size = std::max(size, std::uint64_t{word.address} + word.bytes);
        const char* const busWords = bus_ == BusKind::TwoWire ? "two-wire bus" : "three-wire bus";
        out_.Write("    <peripheral>\n" + Element(3, "name", name) +
                   Element(3, "description", EscapeMarkup(FileName(file_.Path())) + ", " + busWords) +
                   Element(3, "baseAddress", "0x0000") + "      <addressBlock>\n" +
                   Element(4, "offset", "0x0000") + Element(4, "size", Hexadecimal(size, 4)) +
                   Element(4, "usage", "registers") + "      </addressBlock>\n      <registers>\n");
        for (const Word& word : words_)
            WriteWord(word);
        out_.Write("      </registers>\n    </peripheral>\n");
    }

private:
    void WriteWord(const Word& word) {
        const auto any = [&word](bool (*allows)(Access)) {
            return std::any_of(word.fields.begin(), word.fields.end(),
                               [allows](const Register* reg) { return allows(reg->access); });
        };
        const std::string wordName = word.fields.size() == 1 ? std::string(word.fields.front()->name)
                                                             : "R_" + Hexadecimal(word.address, 4).substr(2);
        std::string text = "        <register>\n" + Element(5, "name", registerNames_.Make(wordName)) +
                           Element(5, "description", Description(word)) +
                           Element(5, "addressOffset", Hexadecimal(word.address, 4)) +
                           Element(5, "size", std::to_string(word.bytes * 8)) +
                           Element(5, "access", AccessWord(any(CanRead), any(CanWrite)));
        if (file_.IsLineBased()) text += Element(5, "resetValue", ResetValue(word));
        out_.Write(text + "          <fields>\n");
        Identifiers fieldNames;
        for (const Register* reg : word.fields)
            WriteField(*reg, fieldNames.Make(reg->name));
        out_.Write("          </fields>\n        </register>\n");
    }

    void WriteField(const Register& reg, const std::string& name) {
        std::string text = "            <field>\n" + Element(7, "name", name);
        const std::string description = EscapeMarkup(DescriptionAndFunction(reg));
        if (!description.empty()) text += Element(7, "description", description);
        text += Element(7, "bitOffset", std::to_string(reg.lsb)) +
                Element(7, "bitWidth", std::to_string(reg.length)) +
                Element(7, "access", AccessWord(CanRead(reg.access), CanWrite(reg.access)));
        out_.Write(text + "            </field>\n");
    }

    static std::string Description(const Word& word) {
        std::string text;
        if (word.fields.size() == 1) text = EscapeMarkup(DescriptionText(*word.fields.front()));
        if (text.empty()) text = std::to_string(word.bytes * 8) + " bits";
        if (word.bytes > 1) text += word.bigEndian ? " (big-endian)" : " (little-endian)";
        return text;
    }

    static std::string ResetValue(const Word& word) {
        std::uint64_t value = 0;
        for (const Register* reg : word.fields) {
            if (reg->lsb < 64) value |= std::uint64_t{reg->initialValue} << reg->lsb;
        }
        return Hexadecimal(value, static_cast<int>(std::min(word.bytes, 8U) * 2));
    }

    const RegisterFile& file_;
    const BusKind bus_;
    Output& out_;
    const std::vector<Word> words_;
    Identifiers registerNames_;
};

/// @return whether there was anything to write.
bool WritePeripherals(std::vector<RegisterFile>& files, Output& out) {
    bool written = false;
    Identifiers names;
    for (const RegisterFile& file : files) {
        const std::string prefix = files.size() > 1 ? FileStem(file.Path()) + "_" : std::string();
        for (const BusKind bus : kBuses) {
            PeripheralWriter writer(file, bus, out);
            if (writer.IsEmpty()) continue;
            writer.Write(names.Make(prefix + (bus == BusKind::TwoWire ? "TWO_WIRE" : "THREE_WIRE")));
            written = true;
        }
    }
    return written;
}

}  // namespace

void WriteSvd(std::vector<RegisterFile>& files, Output& out) {
    const std::string& path = files.front().Path();
    out.Write(
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
        "<device schemaVersion=\"1.3\" xmlns:xs=\"http://www.w3.org/2001/XMLSchema-instance\" "
        "xs:noNamespaceSchemaLocation=\"CMSIS-SVD.xsd\">\n");
    out.Write(Element(1, "name", Identifiers().Make(FileStem(path))) + Element(1, "version", "1.0") +
              Element(1, "description", "Registers of " + EscapeMarkup(FileName(path))) +
              Element(1, "addressUnitBits", "8") + Element(1, "width", "32") + "  <peripherals>\n");
    // The schema asks for a peripheral, and a peripheral for no register.
    if (!WritePeripherals(files, out))
        out.Write("    <peripheral>\n" + Element(3, "name", "EMPTY") + Element(3, "baseAddress", "0x0000") +
                  "    </peripheral>\n");
    out.Write("  </peripherals>\n</device>\n");
}

}  // namespace macroctl
