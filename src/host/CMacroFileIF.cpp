#include "macroengine/CMacroFileIF.h"

CMacroFileIF::CMacroFileIF() = default;
CMacroFileIF::CMacroFileIF(const CMacroFileIF& other) = default;
CMacroFileIF& CMacroFileIF::operator=(const CMacroFileIF& other) = default;
CMacroFileIF::~CMacroFileIF() = default;
