// Reads a register file with both readers, and prints for each what it found and its first error line.

#include <cstdio>
#include <new>

#include <macroengine/CRegDefFileIF.h>

namespace {

void Read(const char* name, CRegDefFileIF* reader, const char* path) {
    reader->Load(path);
    std::printf("%s: %u records, %u errors\n", name, static_cast<unsigned>(reader->GetRegisterCount()),
                static_cast<unsigned>(reader->GetErrorCount()));
    if (reader->GetErrorCount() > 0) std::printf("%.200s\n", reader->GetErrorMessage(0));
    try {
        reader->GetListing();
        MergeSplitRegisters(reader);
    } catch (const std::bad_alloc&) {
        std::puts("no memory for the listing");
    }
    DeleteRegDefFile(reader);
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) return 2;
    Read("sectioned", CreateRegDefFile(), argv[1]);
    Read("line-based", CreatePSCRegDefFile(), argv[1]);
}
