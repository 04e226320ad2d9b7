#include "macroengine/CRegDefFileIF.h"

CRegDefFileIF::CRegDefFileIF() = default;
CRegDefFileIF::CRegDefFileIF(const CRegDefFileIF& other) = default;
CRegDefFileIF& CRegDefFileIF::operator=(const CRegDefFileIF& other) = default;
CRegDefFileIF::~CRegDefFileIF() = default;
