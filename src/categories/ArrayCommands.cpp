#include "categories/ArrayCommands.h"

#include <limits>
#include <vector>

#include "categories/CommandFailure.h"
#include "macroengine/CMacroPropertyIF.h"
#include "runtime/ValueView.h"

namespace macroengine {

namespace {

constexpr int kInteger = static_cast<int>(ValueKind::Integer);
constexpr int kFloating = static_cast<int>(ValueKind::Floating);
constexpr int kString = static_cast<int>(ValueKind::String);
constexpr int kBoolean = static_cast<int>(ValueKind::Boolean);
constexpr int kArray = static_cast<int>(ValueKind::Array);
constexpr int kNone = static_cast<int>(ValueKind::None);

/// Reads all arguments into a table, each of exactly the kind.
/// @param read  stores the argument of an index, or returns false.
template <class Element, class Read>
bool ReadTable(CMacroPropertyIF* property, int count, int kind, std::vector<Element>& table, Read read) {
    table.resize(static_cast<std::size_t>(count));
    for (unsigned int i = 0; i < table.size(); ++i) {
        if (property->GetArgType(i) != kind) {
            return Fail(property, "array.init() argument error. (mixed difference types)");
        }
        if (!read(i, table[i])) return false;
    }
    return true;
}

}  // namespace

bool CMacroCategoryCmdArray_Init::Run(CMacroPropertyIF* property) {
    const int count = property->CheckArgumentCount(1, std::numeric_limits<unsigned int>::max());
    if (count < 0) return false;
    // The engine's own interface does not let none pass; that of a plug-in that calls the command may.
    if (count == 0) return Fail(property, "array.init() argument error. (need some arguments)");
    const int kind = property->GetArgType(0);
    switch (kind) {
        case kInteger: {
            std::vector<int> table;
            const auto read = [&](unsigned int i, int& value) {
                return property->GetArgInteger(i, 0, 0, value);
            };
            return ReadTable(property, count, kInteger, table, read) &&
                   property->SetResultIntegerArray(count, table.data());
        }
        case kFloating: {
            std::vector<double> table;
            const auto read = [&](unsigned int i, double& value) {
                return property->GetArgFloating(i, 0, 0, value);
            };
            return ReadTable(property, count, kFloating, table, read) &&
                   property->SetResultFloatingArray(count, table.data());
        }
        case kString: {
            std::vector<const char*> table;
            const auto read = [&](unsigned int i, const char*& text) {
                text = property->GetArgString(i);
                return text != nullptr;
            };
            return ReadTable(property, count, kString, table, read) &&
                   property->SetResultStringArray(count, table.data());
        }
        default:
            // A kind that the language does not have makes no array, and is no error.
            return kind < kBoolean || kind > kNone || Fail(property, "array.init() system error");
    }
}

bool CMacroCategoryCmdArray_Max::Run(CMacroPropertyIF* property) {
    if (property->CheckArgumentCount(1, 1) < 0) return false;
    if (property->GetArgType(0) != kArray) {
        return Fail(property, "array.max() : argument[0] is not array.");
    }
    const int size = property->GetArgArraySize(0);
    return size >= 0 && property->SetResultInteger(size);
}

}  // namespace macroengine
