#include <gtest/gtest.h>
#include <locale.h>
#include <string>

#include "platform/CodePage.h"
#include "support/ChildProcess_posix.h"

namespace macroengine::platform {
namespace {

TEST(CodePagePosix, ALookUpLeavesTheLocaleOfTheProcess) {
    const std::string before = setlocale(LC_ALL, nullptr);
    SystemCodePage();
    EXPECT_EQ(setlocale(LC_ALL, nullptr), before);
}

TEST(CodePagePosix, ALocaleThatDoesNotExistHasNoDoubleByteCharacters) {
    EXPECT_EQ(test::RunInChild(
                  [] {
                      setenv("LC_ALL", "no_such.locale", 1);
                      return SystemCodePage();
                  },
                  test::ChildEnd::Properly),
              0);
}

TEST(CodePagePosix, Utf8HasNoDoubleByteCharacters) {
    EXPECT_EQ(test::RunInChild([] {
                  setenv("LC_ALL", "C.UTF-8", 1);
                  return SystemCodePage();
              }),
              0);
}

TEST(CodePagePosix, TheFirstQuestionLooksUp) {
    EXPECT_EQ(test::RunInChild([] {
                  setenv("MACROENGINE_CODEPAGE", "932", 1);
                  detail::activeCodePage = detail::kUnknownCodePage;
                  const char text[] = "\x83\\";
                  return static_cast<int>(CharacterLength(text, text + 2));
              }),
              2);
}

}  // namespace
}  // namespace macroengine::platform
