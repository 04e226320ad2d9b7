#include <new>

#include "macroengine/CRegDefFileIF.h"
#include "regdef/CRegDefFile.h"
#include "regdef/PSCRegDefFile.h"

CRegDefFileIF* CreateRegDefFile() {
    return new (std::nothrow) macroengine::CRegDefFile();
}

CRegDefFileIF* CreatePSCRegDefFile() {
    return new (std::nothrow) macroengine::PSCRegDefFile();
}

void DeleteRegDefFile(CRegDefFileIF* file) {
    delete file;
}

bool MergeSplitRegisters(CRegDefFileIF* file) {
    auto* const reader = dynamic_cast<macroengine::PSCRegDefFile*>(file);
    return reader != nullptr && reader->MergeSplitRegisters();
}
