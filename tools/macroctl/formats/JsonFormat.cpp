#include <nlohmann/json.hpp>
#include <string>

#include "formats/Formats.h"
#include "formats/RegisterText.h"
#include "text/Utf8.h"

namespace macroctl {

namespace {

using Json = nlohmann::ordered_json;

Json AddressOf(const RegisterPlace& place) {
    return place.given ? Json(place.address) : Json(nullptr);
}

Json EndianOf(const RegisterPlace& place) {
    return place.given ? Json(EndianText(place)) : Json(nullptr);
}

Json Describe(const RegisterFile& file, const Register& reg) {
    return {
        {"name", ValidUtf8(reg.name)},
        {"address_2wire", AddressOf(reg.twoWire)},
        {"address_3wire", AddressOf(reg.threeWire)},
        {"lsb", reg.lsb},
        {"length", reg.length},
        {"rw", AccessText(reg.access)},
        {"endian_2wire", EndianOf(reg.twoWire)},
        {"endian_3wire", EndianOf(reg.threeWire)},
        {"initial_value", file.IsLineBased() ? Json(reg.initialValue) : Json(nullptr)},
        {"description", ValidUtf8(reg.description)},
        {"function", ValidUtf8(reg.function)},
    };
}

void WriteFile(const RegisterFile& file, Output& out) {
    out.Write("    {\n      \"file\": " + Json(ValidUtf8(file.Path())).dump() + ",\n      \"format\": \"" +
              (file.IsLineBased() ? "line-based" : "sectioned") + "\",\n      \"registers\": [");
    const char* separator = "\n";
    for (const Register& reg : file.Registers()) {
        out.Write(separator);
        out.Write("        " + Describe(file, reg).dump());
        separator = ",\n";
    }
    out.Write(file.Registers().empty() ? "]\n    }" : "\n      ]\n    }");
}

}  // namespace

/// Written register by register: a document of a large file would need many times its memory.
void WriteJson(std::vector<RegisterFile>& files, Output& out) {
    out.Write("{\n  \"files\": [\n");
    const char* separator = "";
    for (const RegisterFile& file : files) {
        out.Write(separator);
        WriteFile(file, out);
        separator = ",\n";
    }
    out.Write("\n  ]\n}\n");
}

}  // namespace macroctl
