#include "macroengine/CMacroPropertyIF.h"

CMacroPropertyIF::CMacroPropertyIF() = default;
CMacroPropertyIF::CMacroPropertyIF(const CMacroPropertyIF& other) = default;
CMacroPropertyIF& CMacroPropertyIF::operator=(const CMacroPropertyIF& other) = default;
CMacroPropertyIF::~CMacroPropertyIF() = default;
