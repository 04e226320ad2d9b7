#include "macroengine/CRegFieldsIF.h"

CRegFieldsIF::CRegFieldsIF() = default;
CRegFieldsIF::CRegFieldsIF(const CRegFieldsIF& other) = default;
CRegFieldsIF& CRegFieldsIF::operator=(const CRegFieldsIF& other) = default;
CRegFieldsIF::~CRegFieldsIF() = default;
