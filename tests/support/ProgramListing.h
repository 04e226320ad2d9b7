#pragma once

#include <string>

#include "host/CMacroPrg.h"

namespace macroengine::test {

/// Lists what a program consists of, one group a line:
///
///     0 L1 compare, if false:2
///     1 L2 assign
///     2 L3 endif
///
/// The number of the group, the line of its first statement, and its statements. Behind the line stands a "+"
/// for each level of inclusion of the file that it is in.
std::string ListProgram(const CMacroPrg& program);

}  // namespace macroengine::test
