#include <macroengine/CMacroFileIF.h>

// A file that cannot be loaded takes the consumer through the library and back without needing a macro.
int main() {
    CMacroFileIF* file = CreateMacroFile("consumer", false);
    if (file == nullptr) return 1;
    const bool loaded = file->Load("no such file.mac");
    const bool reported = file->GetErrorCount() > 0;
    DeleteMacroFile(file);
    return !loaded && reported && file == nullptr ? 0 : 1;
}
