#pragma once

#include "macroengine/CRegDefFileIF.h"

namespace macroengine::fuzz {

/// Loads a file and asks for all there is to ask, up to one past the end of each list.
void LoadAndVisit(CRegDefFileIF& file, const char* path);

}  // namespace macroengine::fuzz
