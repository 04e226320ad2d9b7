#include "categories/SystemCsvCommand.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "categories/ArgumentRange.h"
#include "categories/CMacroProperty.h"
#include "categories/CommandFailure.h"
#include "categories/CsvReader.h"
#include "categories/NumberText.h"
#include "categories/WorkFolderPath.h"
#include "platform/File.h"
#include "runtime/CMacroCommonValue.h"
#include "source/Characters.h"

namespace macroengine {

namespace {

enum class CellKind { Integer, Hexadecimal, Floating, Text };

const char* SkipDigits(const char* position, const char* end) {
    while (position != end && IsDigit(*position))
        ++position;
    return position;
}

CellKind Classify(std::string_view cell) {
    if (cell.empty()) return CellKind::Text;
    const char* const end = cell.data() + cell.size();
    const char* const first = cell.data() + (cell.front() == '-' ? 1 : 0);
    const char* const stop = SkipDigits(first, end);
    if (stop == end) return CellKind::Integer;
    if (*stop == '.')
        return stop != first && SkipDigits(stop + 1, end) == end ? CellKind::Floating : CellKind::Text;
    const bool isPrefix = stop == cell.data() + 1 && cell.front() == '0' && (*stop == 'x' || *stop == 'X');
    return isPrefix && std::all_of(stop + 1, end, IsHexadecimalDigit) ? CellKind::Hexadecimal
                                                                      : CellKind::Text;
}

/// Takes a cell for the text that it is.
///
/// @param value  what the cell above it is: columns often say the same again, and then share its memory.
void TakeText(std::string_view cell, CMacroCommonValue& value) {
    const ValueView& above = value.View();
    if (above.eType != ValueKind::String || above.Text() != cell) value = CMacroCommonValue::String(cell);
}

/// Takes a cell for what it reads as. Returns false for a number out of range.
bool Convert(std::string_view cell, CMacroCommonValue& value) {
    switch (Classify(cell)) {
        case CellKind::Integer:
            // Too large a number is the nearest one, and a lone "-" is 0.
            value = CMacroCommonValue::Integer(ToInteger(cell).value);
            return true;
        case CellKind::Hexadecimal: {
            const auto number = ToUnsigned(cell.substr(2), 16);
            value = CMacroCommonValue::Integer(static_cast<std::int32_t>(number.value));
            return !number.isOutOfRange;
        }
        case CellKind::Floating: {
            const auto number = ToFloating(cell);
            value = CMacroCommonValue::Floating(number.value);
            return !number.isOutOfRange;
        }
        default:
            TakeText(cell, value);
            return true;
    }
}

bool ReadRows(CMacroPropertyIF* property, platform::File& file, bool converts, CMacroCommonValue& rows) {
    CsvReader reader(file);
    std::vector<std::string_view> cells;
    std::vector<CMacroCommonValue> values;
    rows = CMacroCommonValue::Array(SharedArray::Create());
    SharedArray& elements = rows.MutableArray();
    while (reader.ReadRow(cells)) {
        values.resize(cells.size());
        for (std::size_t i = 0; i < cells.size(); ++i) {
            if (!converts) {
                TakeText(cells[i], values[i]);
            } else if (!Convert(cells[i], values[i])) {
                return Fail(property, "Error: " + std::string(cells[i]) + " is out of range");
            }
        }
        elements.Append(CMacroCommonValue::Array(SharedArray::Create(values)).View());
    }
    return true;
}

}  // namespace

bool CMacroCategorySystem_CsvfileRead::Run(CMacroPropertyIF* property) {
    const int count = property->CheckArgumentCount(1, 2);
    if (count < 0) return false;
    const char* const name = property->GetArgString(0);
    if (name == nullptr) return false;
    if (*name == '\0') return Fail(property, "Error: target file is null string");
    int converts = 0;
    if (count > 1 && !ReadInRange(property, 1, 0, 1, converts)) return false;
    if (!property->CheckNoAssignedValue(false)) return false;

    const std::string path = WorkFolderPath(property, name);
    if (path.empty()) return property->SetResultString("");
    // Arrays in an array are more than the interface of plug-ins can set.
    auto* const call = dynamic_cast<CMacroProperty*>(property);
    if (call == nullptr) return Fail(property, "system.csvfile_read() system error");

    platform::File file;
    if (!file.OpenForReading(path)) return Fail(property, "File open error. (" + path + ")");
    CMacroCommonValue rows;
    if (!ReadRows(property, file, converts != 0, rows)) return false;
    if (file.HasReadError()) return Fail(property, "File read error. (" + path + ")");
    call->SetResult(std::move(rows));
    return true;
}

}  // namespace macroengine
