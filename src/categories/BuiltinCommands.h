#pragma once

class CMacroCategoryCmdList;

namespace macroengine {

/// Enters the commands that every macro file has.
void RegisterBuiltinCommands(CMacroCategoryCmdList& list);

}  // namespace macroengine
