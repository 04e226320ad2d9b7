#include "macroengine/ArgumentText.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "categories/CMacroProperty.h"
#include "runtime/Limits.h"
#include "runtime/ValueText.h"

namespace macroengine {

namespace {

void AppendQuoted(std::string_view text, std::string& out) {
    out += '"';
    for (const char c : text) {
        if (c == '"') out += '\\';
        out += c;
    }
    out += '"';
}

/// Writes an array. It may be nested as deep as a script likes, so the levels that are open are kept here;
/// and it may hold the same part many times over, so its text has a limit.
void AppendArray(const SharedArray& whole, std::string& out) {
    struct Level {
        const SharedArray* array;
        std::uint32_t next;
    };
    std::vector<Level> levels{{&whole, 0}};
    out += '[';
    while (!levels.empty()) {
        Level& level = levels.back();
        if (out.size() >= limits::kArrayTextBytes) {
            out.resize(limits::kArrayTextBytes);
            out += "...";
            return;
        }
        if (level.next == level.array->GetSize()) {
            out += ']';
            levels.pop_back();
            continue;
        }
        if (level.next > 0) out += ", ";
        const ValueView element = level.array->At(level.next++);
        if (element.eType == ValueKind::Array) {
            out += '[';
            levels.push_back({element.array, 0});
        } else if (element.eType == ValueKind::String) {
            AppendQuoted(element.Text(), out);
        } else {
            out += ValueText(element).Get();
        }
    }
}

}  // namespace

}  // namespace macroengine

const char* FormatMacroArgument(CMacroPropertyIF* property, unsigned int index) {
    auto* const call = dynamic_cast<macroengine::CMacroProperty*>(property);
    if (call == nullptr) return nullptr;
    const macroengine::ValueView argument = call->GetArgument(index);
    if (argument.eType == macroengine::ValueKind::None) return nullptr;
    std::string text;
    if (argument.eType == macroengine::ValueKind::Array) {
        macroengine::AppendArray(*argument.array, text);
    } else {
        text = macroengine::ValueText(argument).Get();
    }
    return call->Keep(std::move(text));
}
