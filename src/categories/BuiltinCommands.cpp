#include "categories/BuiltinCommands.h"

#include <memory>

#include "categories/ArrayCommands.h"
#include "categories/CMacroCategoryCmdList.h"
#include "categories/NamespaceCommand.h"
#include "categories/StringCommands.h"
#include "categories/SystemCommands.h"
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

std::unique_ptr<CMacroCategoryBase> MakeNamespace(const Builtin& row, CMacroCategoryCmdList& list) {
    return std::make_unique<CMacroCategoryUsingNameSpace>(row.category, row.command, list);
}

constexpr bool kSource = true;
constexpr bool kNoDestination = false;
constexpr bool kBareCall = true;

// In the order of registration.
constexpr Builtin kBuiltins[] = {
    {"wait_ms", "wait_ms", Make<CMacroCategoryCmdWaitms_waitms>, !kSource, kNoDestination, kBareCall},
    {"string", "format", Make<CMacroCategoryCmdString_Format>, kSource},
    {"string", "int2hex", Make<CMacroCategoryCmdString_int2Hexstr>, kSource},
    {"string", "int2dec", Make<CMacroCategoryCmdString_int2Decstr>, kSource},
    {"array", "init", Make<CMacroCategoryCmdArray_Init>, kSource},
    {"array", "max", Make<CMacroCategoryCmdArray_Max>, kSource},
    {"system", "abort", Make<CMacroCategorySystem_Abort>},
    {"using", "namespace", MakeNamespace},
};

}  // namespace

void RegisterBuiltinCommands(CMacroCategoryCmdList& list) {
    for (const Builtin& row : kBuiltins)
        list.AddOwned(row.make(row, list), row.bareCall);
}

}  // namespace macroengine
