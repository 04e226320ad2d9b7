#include "registers/ComparisonText.h"

#include <nlohmann/json.hpp>

#include "text/Utf8.h"

namespace macroctl {

namespace {

using Json = nlohmann::ordered_json;

const char* KindText(ChangeKind kind) {
    switch (kind) {
        case ChangeKind::Added:
            return "added";
        case ChangeKind::Removed:
            return "removed";
        case ChangeKind::Renamed:
            return "renamed";
        case ChangeKind::Moved:
            return "moved";
        case ChangeKind::Width:
            return "width";
        case ChangeKind::Access:
            return "access";
        case ChangeKind::Endianness:
            return "endianness";
        case ChangeKind::InitialValue:
            return "initial value";
        case ChangeKind::Text:
            break;
    }
    return "text";
}

std::string Padded(std::string text, std::size_t width) {
    text.resize(width, ' ');
    return text;
}

/// What the words of the JSON form mean to a person; empty where the kind of the change says it all.
std::string WhatText(const std::string& what) {
    if (what == "address_2wire") return "two-wire address ";
    if (what == "address_3wire") return "three-wire address ";
    if (what == "endian_2wire") return "two-wire ";
    if (what == "endian_3wire") return "three-wire ";
    if (what == "lsb") return "LSB ";
    if (what == "pieces") return "pieces ";
    return {};
}

std::string Line(const Change& change) {
    std::string line = Padded(change.breaking ? "breaking" : "compatible", 12) +
                       Padded(KindText(change.kind), 15) + OnOneLine(change.name);
    switch (change.kind) {
        case ChangeKind::Added:
        case ChangeKind::Removed:
            return line;
        case ChangeKind::Renamed:
            return line + ": was " + OnOneLine(change.before.text);
        case ChangeKind::Text:
            return line + ": " + change.what;
        default:
            return line + ": " + WhatText(change.what) + change.before.text + " -> " + change.after.text;
    }
}

Json ValueOf(const ChangedValue& value) {
    if (value.missing) return nullptr;
    return value.number ? Json(*value.number) : Json(ValidUtf8(value.text));
}

Json Describe(const Change& change) {
    Json object = {{"change", KindText(change.kind)},
                   {"breaking", change.breaking},
                   {"register", ValidUtf8(change.name)}};
    if (!change.what.empty()) {
        object["what"] = change.what;
        object["old"] = ValueOf(change.before);
        object["new"] = ValueOf(change.after);
    }
    return object;
}

}  // namespace

void WriteComparisonText(const Comparison& comparison, Output& out) {
    for (const Change& change : comparison.Changes())
        out.Write(Line(change) + "\n");
}

void WriteComparisonJson(const Comparison& comparison, const std::string& before, const std::string& after,
                         Output& out) {
    out.Write("{\n  \"old\": " + Json(ValidUtf8(before)).dump() +
              ",\n  \"new\": " + Json(ValidUtf8(after)).dump() +
              ",\n  \"breaking\": " + (comparison.IsBreaking() ? "true" : "false") + ",\n  \"changes\": [");
    const char* separator = "\n    ";
    for (const Change& change : comparison.Changes()) {
        out.Write(separator + Describe(change).dump());
        separator = ",\n    ";
    }
    out.Write(comparison.Changes().empty() ? "]\n}\n" : "\n  ]\n}\n");
}

}  // namespace macroctl
