#include "macroengine/SystemVariable.h"

#include <cstdint>
#include <optional>
#include <string>
#include <variant>

#include "categories/SystemVariableStore.h"

namespace {

std::string OrEmpty(const char* text) {
    return text == nullptr ? std::string() : std::string(text);
}

/// Reads a variable that holds the kind.
template <class Kind, class Value>
bool Get(const char* name, Value& value) {
    const std::optional<macroengine::SystemValue> read = macroengine::ReadSystemVariable(OrEmpty(name));
    const Kind* const found = read ? std::get_if<Kind>(&*read) : nullptr;
    if (found == nullptr) return false;
    value = *found;
    return true;
}

}  // namespace

bool GetSystemVariable(const char* name, long& value) {
    return Get<std::int32_t>(name, value);
}

bool GetSystemVariable(const char* name, double& value) {
    return Get<double>(name, value);
}

bool SetSystemVariable(const char* name, long value) {
    return macroengine::WriteSystemVariable(OrEmpty(name), std::int64_t{value});
}

bool SetSystemVariable(const char* name, double value) {
    return macroengine::WriteSystemVariable(OrEmpty(name), value);
}
