#include <cstdio>

#include <macroengine/CMacroFileIF.h>

int main(int argc, char** argv) {
    if (argc != 2) return std::puts("usage: example_host FILE"), 2;
    CMacroFileIF* file = CreateMacroFile("", false);
    const bool ok = file->Load(argv[1]) && file->Run();
    for (std::uint32_t i = 0; i < file->GetErrorCount(); ++i)
        std::puts(file->GetErrorMessage(i));
    DeleteMacroFile(file);
    return ok ? 0 : 1;
}
