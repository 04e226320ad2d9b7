// Lists the registers of a sectioned register file:
//
//     example_register_list FILE

#include <cstdio>

#include <macroengine/CRegDefFileIF.h>

int main(int argc, char** argv) {
    if (argc != 2) return std::puts("usage: example_register_list FILE"), 2;
    CRegDefFileIF* file = CreateRegDefFile();
    const bool ok = file->Load(argv[1]);
    for (std::uint32_t i = 0; i < file->GetErrorCount(); ++i)
        std::puts(file->GetErrorMessage(i));
    for (std::uint32_t i = 0; i < file->GetRegisterCount(); ++i) {
        const CRegFieldsIF* fields = file->GetRegister(i);
        std::printf("0x%04X %s\n", unsigned{fields->GetAddress2Wire()}, fields->GetName());
    }
    DeleteRegDefFile(file);
    return ok ? 0 : 1;
}
