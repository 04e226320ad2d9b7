#include "categories/CMacroProperty.h"

#include <utility>

#include "platform/CodePage.h"
#include "platform/NativePath.h"

namespace macroengine {

namespace {

const char* OrEmpty(const char* text) {
    return text == nullptr ? "" : text;
}

/// A range without an inside checks nothing.
bool IsOutOfRange(std::int32_t value, unsigned int min, unsigned int max) {
    const auto number = static_cast<std::uint32_t>(value);
    return min < max && (number < min || number > max);
}

bool IsOutOfRange(double value, double min, double max) {
    return max > min && !(value >= min && value <= max);
}

/// @return false for a value that is no number.
bool ToFloating(const ValueView& view, double& value) {
    if (view.eType != ValueKind::Integer && view.eType != ValueKind::Floating) return false;
    value = view.eType == ValueKind::Integer ? view.integer : view.floating;
    return true;
}

bool EndsInBackslash(std::string_view text) {
    if (text.empty() || text.back() != '\\') return false;
    if (!platform::HasDoubleByteCharacters()) return true;
    const char* const end = text.data() + text.size();
    const char* last = text.data();
    for (const char* position = last; position != end; position += platform::CharacterLength(position, end)) {
        last = position;
    }
    return last == end - 1;
}

constexpr std::string_view kBadPosition = "system error: parameter position is invalid.";

}  // namespace

CMacroProperty::CMacroProperty(const CommandEntry& entry, const SourceUnit& unit, std::uint32_t line,
                               const CallOperands& operands)
    : entry_(entry), unit_(unit), line_(line), operands_(operands) {}

CMacroProperty::~CMacroProperty() = default;

// Messages

CErrorMessageTable& CMacroProperty::GetErrors() {
    if (errors_ == nullptr) errors_ = std::make_unique<CErrorMessageTable>();
    return *errors_;
}

bool CMacroProperty::Fail(std::string_view text) {
    GetErrors().AddLocatedError(unit_.fileName.c_str(), static_cast<std::int32_t>(line_), text);
    return false;
}

bool CMacroProperty::FailAtName(std::string_view before, std::string_view after) {
    return Fail(std::string(before).append(entry_.GetName()).append(after));
}

bool CMacroProperty::FailAtArgument(unsigned int index, std::string_view after) {
    return FailAtName("", "() argument error. (argument[" + std::to_string(index) + std::string(after));
}

bool CMacroProperty::AddErrorMessage(const char* text) {
    Fail(OrEmpty(text));
    return true;
}

// Texts that are handed out

const char* CMacroProperty::Keep(std::string text) {
    return kept_.emplace_front(std::move(text)).c_str();
}

/// A value sees the first bytes of a block that may hold more: then the NUL is not where the value ends.
const char* CMacroProperty::KeepText(const ValueView& text) {
    if (text.length == 0) return "";
    if (text.text->GetUsed() == text.length) return text.text->Bytes();
    return Keep(std::string(text.Text()));
}

// Arguments

ValueView CMacroProperty::GetArgument(unsigned int index) const {
    return index < operands_.arguments.size() ? operands_.arguments[index] : ValueView();
}

int CMacroProperty::CheckArgumentCount(unsigned int min, unsigned int max) {
    const std::size_t count = operands_.arguments.size();
    if (count >= min && count <= max) return static_cast<int>(count);
    FailAtName("", "() argument error. (argument count is invalid)");
    return -1;
}

int CMacroProperty::GetArgType(unsigned int index) {
    return static_cast<int>(GetArgument(index).eType);
}

bool CMacroProperty::GetArgInteger(unsigned int index, unsigned int min, unsigned int max, int& value) {
    const ValueView argument = GetArgument(index);
    if (argument.eType != ValueKind::Integer) return FailAtArgument(index, "] type isn't interger)");
    if (IsOutOfRange(argument.integer, min, max)) return FailAtArgument(index, "] is out of range.)");
    value = argument.integer;
    return true;
}

bool CMacroProperty::GetArgFloating(unsigned int index, double min, double max, double& value) {
    double number = 0.0;
    if (!ToFloating(GetArgument(index), number)) return FailAtArgument(index, "] type isn't interger)");
    if (IsOutOfRange(number, min, max)) return FailAtArgument(index, "] is out of range.)");
    value = number;
    return true;
}

const char* CMacroProperty::GetArgString(unsigned int index) {
    const ValueView argument = GetArgument(index);
    if (argument.eType == ValueKind::String) return KeepText(argument);
    FailAtArgument(index, "] type isn't string)");
    return nullptr;
}

int CMacroProperty::GetArgArraySize(unsigned int index) {
    const ValueView argument = GetArgument(index);
    if (argument.eType == ValueKind::Array) return static_cast<int>(argument.array->GetSize());
    if (index >= operands_.arguments.size()) {
        Fail(kBadPosition);
    } else {
        FailAtArgument(index, "] is not array)");
    }
    return -1;
}

bool CMacroProperty::FindArgumentElement(unsigned int index, unsigned int element, ValueView& value) {
    if (index >= operands_.arguments.size()) return Fail(kBadPosition);
    const ValueView argument = GetArgument(index);
    if (argument.eType != ValueKind::Array) return FailAtArgument(index, "] is not array)");
    if (element >= argument.array->GetSize()) {
        return FailAtArgument(index, "] is array, but elements is not exist)");
    }
    value = argument.array->At(element);
    return true;
}

bool CMacroProperty::GetArgArrayInteger(unsigned int index, unsigned int element, int& value) {
    ValueView found;
    if (!FindArgumentElement(index, element, found)) return false;
    if (found.eType != ValueKind::Integer) {
        return FailAtArgument(index, "] is array, but elements is not integer)");
    }
    value = found.integer;
    return true;
}

bool CMacroProperty::GetArgArrayFloating(unsigned int index, unsigned int element, double& value) {
    ValueView found;
    if (!FindArgumentElement(index, element, found)) return false;
    return ToFloating(found, value) || FailAtArgument(index, "] is array, but elements is not floating)");
}

const char* CMacroProperty::GetArgArrayString(unsigned int index, unsigned int element) {
    ValueView found;
    if (!FindArgumentElement(index, element, found)) return nullptr;
    if (found.eType == ValueKind::String) return KeepText(found);
    FailAtArgument(index, "] is array, but elements is not string)");
    return nullptr;
}

// The assigned value

ValueView CMacroProperty::GetAssigned() const {
    return operands_.assigned == nullptr ? ValueView() : *operands_.assigned;
}

bool CMacroProperty::CheckNoAssignedValue(bool silent) {
    if (operands_.assigned == nullptr) return true;
    return silent ? false : FailAtName("assigned value isn't needed at ", "()");
}

bool CMacroProperty::GetAssignedInteger(unsigned int min, unsigned int max, int& value) {
    if (operands_.assigned == nullptr) return FailAtName("assigned value is needed at ", "()");
    const ValueView& assigned = *operands_.assigned;
    if (assigned.eType != ValueKind::Integer) {
        return FailAtName("", "() assigned value error. (type isn't interger)");
    }
    if (IsOutOfRange(assigned.integer, min, max))
        return FailAtName("", "() assigned value error. (out of range.)");
    value = assigned.integer;
    return true;
}

bool CMacroProperty::GetAssignedFloating(double min, double max, double& value) {
    if (operands_.assigned == nullptr) return FailAtName("assigned value is needed at ", "()");
    double number = 0.0;
    if (!ToFloating(*operands_.assigned, number)) {
        return FailAtName("", "() assigned value error. (type isn't floating)");
    }
    if (IsOutOfRange(number, min, max)) return FailAtName("", "() assigned value error. (out of range.)");
    value = number;
    return true;
}

int CMacroProperty::GetAssignedArraySize() {
    if (operands_.assigned != nullptr && operands_.assigned->eType == ValueKind::Array) {
        return static_cast<int>(operands_.assigned->array->GetSize());
    }
    FailAtName("", "() assigned value error. (assigned variable is not array)");
    return -1;
}

bool CMacroProperty::FindAssignedElement(unsigned int element, ValueView& value) {
    if (operands_.assigned == nullptr || operands_.assigned->eType != ValueKind::Array) {
        return FailAtName("", "() assigned value error. (assigned value is not array)");
    }
    const SharedArray& array = *operands_.assigned->array;
    if (element >= array.GetSize()) {
        return FailAtName("",
                          "() assigned value error. (assigned value is array, but elements is not exist)");
    }
    value = array.At(element);
    return true;
}

bool CMacroProperty::GetAssignedArrayInteger(unsigned int element, int& value) {
    ValueView found;
    if (!FindAssignedElement(element, found)) return false;
    if (found.eType != ValueKind::Integer) {
        return FailAtName("",
                          "() assigned value error. (assigned value is array, but elements is not integer)");
    }
    value = found.integer;
    return true;
}

bool CMacroProperty::GetAssignedArrayFloating(unsigned int element, double& value) {
    ValueView found;
    if (!FindAssignedElement(element, found)) return false;
    // Unlike an element of an argument, an integer is not converted here.
    if (found.eType != ValueKind::Floating) {
        return FailAtName("",
                          "() assigned value error. (assigned value is array, but elements is not floating)");
    }
    value = found.floating;
    return true;
}

const char* CMacroProperty::GetAssignedArrayString(unsigned int element) {
    ValueView found;
    if (!FindAssignedElement(element, found)) return nullptr;
    if (found.eType == ValueKind::String) return KeepText(found);
    FailAtName("", "() assigned value error. (assigned value is array, but elements is not string)");
    return nullptr;
}

// The result

void CMacroProperty::SetResult(CMacroCommonValue value) {
    result_ = std::move(value);
}

template <class Value, class ToValue>
bool CMacroProperty::SetResultArray(int count, const Value* values, ToValue toValue) {
    if (count <= 0 || values == nullptr) return true;
    CMacroCommonValue result = CMacroCommonValue::Array(SharedArray::Create());
    SharedArray& array = result.MutableArray();
    for (int i = 0; i < count; ++i) {
        CMacroCommonValue element = toValue(values[i]);
        array.AppendFrom(element.Cell());
    }
    result_ = std::move(result);
    return true;
}

bool CMacroProperty::SetResultStringArray(int count, const char* const* texts) {
    return SetResultArray(count, texts,
                          [](const char* text) { return CMacroCommonValue::String(OrEmpty(text)); });
}

bool CMacroProperty::SetResultFloatingArray(int count, const double* values) {
    return SetResultArray(count, values, CMacroCommonValue::Floating);
}

bool CMacroProperty::SetResultIntegerArray(int count, const int* values) {
    return SetResultArray(count, values, CMacroCommonValue::Integer);
}

bool CMacroProperty::SetResultString(const char* text) {
    result_ = CMacroCommonValue::String(OrEmpty(text));
    return true;
}

bool CMacroProperty::SetResultFloating(double value) {
    result_ = CMacroCommonValue::Floating(value);
    return true;
}

bool CMacroProperty::SetResultInteger(int value) {
    result_ = CMacroCommonValue::Integer(value);
    return true;
}

bool CMacroProperty::SetResultBoolean(bool value) {
    result_ = CMacroCommonValue::Boolean(value);
    return true;
}

// Places and paths

const char* CMacroProperty::GetFileName() {
    return unit_.fileName.c_str();
}

unsigned int CMacroProperty::GetLineNumber() {
    return line_;
}

const char* CMacroProperty::GetMacroFolder() {
    if (macroFolder_ == nullptr) macroFolder_ = Keep(platform::FolderOf(unit_.fileName));
    return macroFolder_;
}

const char* CMacroProperty::GetWorkFolder() {
    const bool hasWorkFolder = unit_.workFolder != nullptr && !unit_.workFolder->empty();
    return hasWorkFolder ? unit_.workFolder->c_str() : GetMacroFolder();
}

const char* CMacroProperty::GetFullPath(const char* folder, const char* path) {
    if (platform::IsAbsolute(path)) return NormalizePath(path);
    std::string full = folder;
    if (!EndsInBackslash(full)) full += '\\';
    return NormalizePath(full.append(path).c_str());
}

const char* CMacroProperty::GetFullPathFromWorkFolder(const char* path) {
    return GetFullPath(GetWorkFolder(), OrEmpty(path));
}

const char* CMacroProperty::GetFullPathFromMacroFolder(const char* path) {
    return GetFullPath(GetMacroFolder(), OrEmpty(path));
}

const char* CMacroProperty::NormalizePath(const char* path) {
    return Keep(platform::CollapseDoubledBackslashes(OrEmpty(path)));
}

const char* CMacroProperty::EscapeBackslash(const char* text) {
    std::string escaped;
    const std::string_view source = OrEmpty(text);
    const char* const end = source.data() + source.size();
    for (const char* position = source.data(); position != end;) {
        const std::size_t length = platform::CharacterLength(position, end);
        if (*position == '\\') escaped += '\\';
        escaped.append(position, length);
        position += length;
    }
    return Keep(std::move(escaped));
}

}  // namespace macroengine
