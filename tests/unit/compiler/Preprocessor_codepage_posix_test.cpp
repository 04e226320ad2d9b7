#include <gtest/gtest.h>
#include <string>

#include "support/CompiledMacro.h"
#include "support/ScopedCodePage.h"

// Here and not beside the other tests because file names are plain bytes only on a POSIX system.

namespace macroengine {
namespace {

using test::CompiledMacro;
using test::Lines;
using test::ScopedCodePage;

// The characters 0x83 0x5C and 0x95 0x5C end with the byte of "\".

TEST(PreprocessorCodePage, AnIncludeNameMayHoldDoubleByteCharacters) {
    const ScopedCodePage codePage(932);
    CompiledMacro macro;
    macro.GetFolder().Write("\x83\\.mac", "x = 5\n");
    EXPECT_EQ(macro.Compile("#include \"\x83\\.mac\" // \x95\\\n"), Lines{});
    EXPECT_EQ(macro.Run(), Lines{});
    EXPECT_EQ(macro.ValueOf("x"), "integer 5");
    EXPECT_EQ(macro.Compile("#include \"\x95\\.mac\"\n"),
              (Lines{"error : File open error. (\x95\\.mac)",
                     "main.mac(1): error : Failed to read include file(\"\x95\\.mac\")"}));
}

TEST(PreprocessorCodePage, AnIncludeNameMayEndWithSuchACharacter) {
    const ScopedCodePage codePage(932);
    CompiledMacro macro;
    macro.GetFolder().Write("\x83\\", "x = 5\n");
    EXPECT_EQ(macro.Compile("#include \"\x83\\\"\n"), Lines{});
}

TEST(PreprocessorCodePage, TheFolderOfAFileEndsAtASeparatorNotAtASecondByte) {
    const ScopedCodePage codePage(932);
    CompiledMacro macro;
    macro.GetFolder().MakeFolder("\x95\\");
    macro.GetFolder().Write("\x95\\/\x83\\.mac", "#include \"b.mac\"\nx = )\n");
    macro.GetFolder().Write("\x95\\/b.mac", "x = 7\n");
    EXPECT_EQ(macro.Compile("#include \"\x95\\\\\x83\\.mac\"\n"),
              (Lines{"\x95\\\\\x83\\.mac(2): error : syntax error ')'. Can't find Variable or value.",
                     "main.mac(1): error : Failed to read include file(\"\x95\\\\\x83\\.mac\")"}));
    EXPECT_EQ(macro.Run(), Lines{});
    EXPECT_EQ(macro.ValueOf("x"), "integer 7");
}

TEST(PreprocessorCodePage, TextKeepsItsBytes) {
    const ScopedCodePage codePage(932);
    CompiledMacro macro;
    EXPECT_EQ(macro.Compile("x = \"\x83\\\" + \"\x95\\\\\"\"\ntest.plain(\"\x83\\\")\n"), Lines{});
    EXPECT_EQ(macro.Run(), Lines{});
    EXPECT_EQ(macro.ValueOf("x"), "text \"\x83\\\x95\\\"\"");
    EXPECT_EQ(macro.GetCalls(), Lines{"test.plain(text \"\x83\\\")"});
}

TEST(PreprocessorCodePage, WithoutDoubleByteCharactersTheSameTextIsNotClosed) {
    const ScopedCodePage codePage(0);
    CompiledMacro macro;
    EXPECT_EQ(macro.Compile("x = \"\x83\\\"\n"),
              Lines{"main.mac(1): error : Can't find [\"] for the end of string."});
    EXPECT_EQ(macro.Compile("#include \"\x83\\\"\n"),
              Lines{"main.mac(1): error : Can't find [\"] for the end of string."});
}

}  // namespace
}  // namespace macroengine
