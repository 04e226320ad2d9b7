#include "categories/BuiltinCommands.h"

#include <memory>

#include "categories/ArrayCommands.h"
#include "categories/CMacroCategoryCmdList.h"
#include "categories/NamespaceCommand.h"
#include "categories/StringCommands.h"
#include "categories/StringConversionCommands.h"
#include "categories/StringSplitCommand.h"
#include "categories/SystemCommands.h"
#include "categories/SystemCsvCommand.h"
#include "categories/SystemFileCommands.h"
#include "categories/SystemProcessCommand.h"
#include "categories/SystemTimeCommands.h"
#include "categories/SystemVariableCommand.h"
#include "categories/WaitCommand.h"

namespace macroengine {

namespace {

struct Builtin {
    const char* category;
    const char* command;
    std::unique_ptr<CMacroCategoryBase> (*make)(const Builtin& row, CMacroCategoryCmdList& list);
    bool canAssignSrc = false;
    bool canAssignDest = false;
    bool bareCall = false;
};

template <class Command>
std::unique_ptr<CMacroCategoryBase> Make(const Builtin& row, CMacroCategoryCmdList&) {
    return std::make_unique<Command>(row.category, row.command, row.canAssignSrc, row.canAssignDest, "");
}

template <class Conversion>
std::unique_ptr<CMacroCategoryBase> MakeConversion(const Builtin& row, CMacroCategoryCmdList& list) {
    return std::make_unique<Conversion>(row.category, row.command, list.GetRangeIndicator());
}

std::unique_ptr<CMacroCategoryBase> MakeVariable(const Builtin&, CMacroCategoryCmdList&) {
    return std::make_unique<CMacroCategorySystem_Variable>();
}

std::unique_ptr<CMacroCategoryBase> MakeNamespace(const Builtin& row, CMacroCategoryCmdList& list) {
    return std::make_unique<CMacroCategoryUsingNameSpace>(row.category, row.command, list);
}

constexpr bool kSource = true;
constexpr bool kDestination = true;
constexpr bool kBareCall = true;

// In the order of registration.
constexpr Builtin kBuiltins[] = {
    {"wait_ms", "wait_ms", Make<CMacroCategoryCmdWaitms_waitms>, !kSource, !kDestination, kBareCall},
    {"system", "file_write", Make<CMacroCategoryCmdSystem_FileWrite>},
    {"system", "mkdir", Make<CMacroCategorySystem_MkDir>},
    {"string", "format", Make<CMacroCategoryCmdString_Format>, kSource},
    {"string", "int2hex", Make<CMacroCategoryCmdString_int2Hexstr>, kSource},
    {"string", "int2dec", Make<CMacroCategoryCmdString_int2Decstr>, kSource},
    {"string", "str2dec", MakeConversion<CMacroCategoryCmdString_Str2Dec>, kSource},
    {"string", "hex2dec", MakeConversion<CMacroCategoryCmdString_Hex2Dec>, kSource},
    {"string", "str2float", MakeConversion<CMacroCategoryCmdString_Str2Float>, kSource},
    {"string", "split", Make<CMacroCategoryCmdString_Split>, kSource},
    {"system", "get_time_local", Make<CMacroCategorySystem_GetTimeLocal>, kSource},
    {"system", "get_time_serial", Make<CMacroCategorySystem_GetTimeSerial>, kSource},
    {"system", "command_exec", Make<CMacroCategorySystem_CommandExec>, kSource},
    {"system", "variable", MakeVariable, kSource, kDestination},
    {"array", "init", Make<CMacroCategoryCmdArray_Init>, kSource},
    {"array", "max", Make<CMacroCategoryCmdArray_Max>, kSource},
    {"system", "csvfile_read", Make<CMacroCategorySystem_CsvfileRead>, kSource},
    {"system", "abort", Make<CMacroCategorySystem_Abort>},
    {"system", "get_variable_type", Make<CMacroCategorySystem_GetVariableType>, kSource},
    {"system", "find_file", Make<CMacroCategorySystemFindFile>, kSource},
    {"using", "namespace", MakeNamespace},
};

}  // namespace

void RegisterBuiltinCommands(CMacroCategoryCmdList& list) {
    for (const Builtin& row : kBuiltins)
        list.AddOwned(row.make(row, list), row.bareCall);
}

}  // namespace macroengine
