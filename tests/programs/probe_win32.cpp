// A program that tests start, to see from the outside what the library does with processes and their memory.
//
//   probe exit CODE                     ends with the code
//   probe report FILE [ARGUMENT...]     writes the folder it works in and then its arguments, each in a line
//   probe hold FILE                     keeps the file to itself for ten minutes
//   probe section NAME SIZE             adds 1 to the first and the last byte of a named section; ends with 0 if it has one

#include <cstdlib>
#include <cstring>
#include <fstream>
#include <windows.h>

namespace {

constexpr DWORD kTenMinutes = 600000;

int Report(int count, char** arguments) {
    char folder[MAX_PATH] = "";
    GetCurrentDirectoryA(MAX_PATH, folder);
    std::ofstream file(arguments[2], std::ios::binary);
    file << folder << '\n';
    for (int i = 3; i < count; ++i)
        file << arguments[i] << '\n';
    return file ? 0 : 1;
}

int Hold(const char* path) {
    const HANDLE file =
        CreateFileA(path, GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE) return 1;
    Sleep(kTenMinutes);
    CloseHandle(file);
    return 0;
}

int ChangeSection(const char* name, std::size_t size) {
    const HANDLE section = OpenFileMappingA(FILE_MAP_ALL_ACCESS, FALSE, name);
    if (section == nullptr) return 1;
    void* const view = MapViewOfFile(section, FILE_MAP_ALL_ACCESS, 0, 0, size);
    if (view == nullptr) return 2;
    auto* const bytes = static_cast<unsigned char*>(view);
    ++bytes[0];
    ++bytes[size - 1];
    UnmapViewOfFile(view);
    CloseHandle(section);
    return 0;
}

}  // namespace

int main(int count, char** arguments) {
    const auto isMode = [&](const char* mode, int least) {
        return count >= least && std::strcmp(arguments[1], mode) == 0;
    };
    if (isMode("exit", 3)) return static_cast<int>(std::strtoul(arguments[2], nullptr, 10));
    if (isMode("report", 3)) return Report(count, arguments);
    if (isMode("hold", 3)) return Hold(arguments[2]);
    if (isMode("section", 4)) return ChangeSection(arguments[2], std::strtoul(arguments[3], nullptr, 10));
    return 99;
}
