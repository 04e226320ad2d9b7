#include "source/MacroTable.h"

#include <utility>

#include "runtime/Limits.h"

namespace macroengine {

bool MacroTable::Define(std::string_view name, std::vector<std::string> body) {
    const auto found = entries_.find(name);
    if (found != entries_.end()) return found->second->body == body;
    auto entry = std::make_unique<Entry>();
    entry->name = name;
    entry->body = std::move(body);
    const std::string_view key = entry->name;
    entries_.emplace(key, std::move(entry));
    return true;
}

void MacroTable::CopyMissing(const MacroTable& other) {
    // A name that is there keeps its body.
    for (const auto& [name, entry] : other.entries_)
        Define(name, entry->body);
}

const MacroTable::Entry* MacroTable::UseEntry(std::string_view text) {
    const auto found = entries_.find(text);
    if (found == entries_.end() || found->second->usedIn == substitutions_) return nullptr;
    found->second->usedIn = substitutions_;
    return found->second.get();
}

bool MacroTable::Substitute(std::string_view text, std::vector<std::string_view>& texts) {
    ++substitutions_;
    const Entry* const first = UseEntry(text);
    if (first == nullptr) {
        texts.push_back(text);
        return true;
    }
    // A chain of macros may be as long as the file: the bodies still to be done are kept here, not on the
    // stack.
    struct Rest {
        const Entry* entry;
        std::size_t next;
    };
    std::vector<Rest> rests{{first, 0}};
    bool isFirst = true;
    while (!rests.empty()) {
        Rest& rest = rests.back();
        if (rest.next == rest.entry->body.size()) {
            rests.pop_back();
            continue;
        }
        // Names are counted as well: a chain of them that ends in nothing takes its time all the same.
        if (!isFirst && ++growth_ > limits::kSubstitutedTokens) return false;
        isFirst = false;
        const std::string_view part = rest.entry->body[rest.next++];
        if (const Entry* const inner = UseEntry(part)) {
            rests.push_back({inner, 0});
        } else {
            texts.push_back(part);
        }
    }
    return true;
}

}  // namespace macroengine
