#include "common/RegisterFileVisit.h"

#include <cstring>
#include <initializer_list>

#include "common/Require.h"
#include "macroengine/CRegFieldsIF.h"

namespace macroengine::fuzz {

namespace {

void RequireText(const char* text) {
    Require(text != nullptr && std::strlen(text) < 1000000, "a text is given for everything");
}

void Visit(CRegFieldsIF& fields) {
    RequireText(fields.GetName());
    RequireText(fields.GetDescription());
    RequireText(fields.GetFunction());
    fields.GetRecordValue();
    fields.GetRecordValue2();
    fields.GetAddress2Wire();
    fields.GetAddress3Wire();
    for (const std::int32_t mode : {-1, 0, 1, 2}) {
        fields.GetAddress(mode);
        fields.GetBigEndian(mode);
    }
    fields.GetLsb();
    fields.GetLength();
    fields.GetRw();
    fields.GetFlag1();
    fields.GetFlag2();
}

void Visit(CRegDefFileIF& file) {
    for (std::uint32_t i = 0; i <= file.GetErrorCount(); ++i)
        RequireText(file.GetErrorMessage(i));
    for (std::uint32_t i = 0; i <= file.GetPreambleCount(); ++i)
        RequireText(file.GetPreamble(static_cast<std::int32_t>(i)));
    RequireText(file.GetPreamble(-1));
    for (std::uint32_t i = 0; i < file.GetRegisterCount(); ++i)
        Visit(*file.GetRegister(i));
    Require(file.GetRegister(file.GetRegisterCount()) == nullptr, "there is no register past the last");
    RequireText(file.GetListing());
}

}  // namespace

void LoadAndVisit(CRegDefFileIF& file, const char* path) {
    const bool isLoaded = file.Load(path);
    Require(isLoaded || file.GetErrorCount() > 0, "a load that fails says why");
    Visit(file);
    if (MergeSplitRegisters(&file)) Visit(file);
}

}  // namespace macroengine::fuzz
