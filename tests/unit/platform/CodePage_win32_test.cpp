#include <gtest/gtest.h>
#include <string>

#include "platform/CodePage.h"
#include "platform/Environment.h"
#include "support/Probe_win32.h"

namespace macroengine::platform {
namespace {

// Where the system has double-byte characters of its own, its table and ours have to agree.
TEST(CodePageWin32, TheSystemsLeadBytesAreOurs) {
    SetEnvironmentText("MACROENGINE_CODEPAGE", "");
    RefreshCodePage();
    for (int first = 0; first < 256; ++first) {
        const char pair[] = {static_cast<char>(first), 'A'};
        EXPECT_EQ(CharacterLength(pair, pair + 2), IsDBCSLeadByte(static_cast<BYTE>(first)) ? 2U : 1U)
            << first;
    }
}

TEST(CodePageWin32, TheAnsiCodePageIsTheSystems) {
    EXPECT_EQ(SystemCodePage(), test::HasSystemCodePage(932) ? 932 : 0);
}

}  // namespace
}  // namespace macroengine::platform
