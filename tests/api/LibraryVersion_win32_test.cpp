#include <cstring>
#include <gtest/gtest.h>
#include <string>
#include <vector>
#include <windows.h>

namespace {

/// The version resource of the library that this program runs with.
std::vector<char> VersionResource() {
    char path[MAX_PATH] = "";
    GetModuleFileNameA(GetModuleHandleA("macroengine.dll"), path, MAX_PATH);
    std::vector<char> data(GetFileVersionInfoSizeA(path, nullptr));
    if (!GetFileVersionInfoA(path, 0, static_cast<DWORD>(data.size()), data.data())) data.clear();
    return data;
}

TEST(LibraryVersion, TheFilePropertiesTellTheProjectsVersion) {
    const std::vector<char> resource = VersionResource();
    ASSERT_FALSE(resource.empty());
    void* value = nullptr;
    UINT size = 0;
    for (const char* name : {"FileVersion", "ProductVersion"}) {
        const std::string path = std::string(R"(\StringFileInfo\040904E4\)") + name;
        ASSERT_TRUE(VerQueryValueA(resource.data(), path.c_str(), &value, &size)) << name;
        EXPECT_STREQ(static_cast<const char*>(value), MACROENGINE_VERSION) << name;
    }

    ASSERT_TRUE(VerQueryValueA(resource.data(), "\\", &value, &size));
    VS_FIXEDFILEINFO fixed{};
    ASSERT_EQ(size, sizeof fixed);
    std::memcpy(&fixed, value, sizeof fixed);
    const std::string number = std::to_string(HIWORD(fixed.dwFileVersionMS)) + "." +
                               std::to_string(LOWORD(fixed.dwFileVersionMS)) + "." +
                               std::to_string(HIWORD(fixed.dwFileVersionLS));
    EXPECT_EQ(number, MACROENGINE_VERSION);
    EXPECT_EQ(fixed.dwFileType, DWORD{VFT_DLL});
}

}  // namespace
