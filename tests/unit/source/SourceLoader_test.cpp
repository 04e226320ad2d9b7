#include "source/SourceLoader.h"

#include <gtest/gtest.h>
#include <random>
#include <string>

#include "platform/File.h"
#include "source/CLex.h"
#include "support/EncodedLine.h"
#include "support/TemporaryFolder.h"
#include "support/TokenList.h"

namespace macroengine {
namespace {

using test::EncodedLine;
using test::Lines;

class SourceLoader : public testing::Test {
protected:
    /// Loads a file with these bytes. @return the text, or the errors' lines with the folder cut off.
    std::string Load(const std::string& name, const std::string& bytes) {
        return LoadPath(folder_.Write(name, bytes));
    }

    std::string LoadPath(const std::string& path) {
        platform::File file;
        CErrorMessageTable errors;
        SourceText text(std::string("what was there"));
        const bool loaded = LoadSource(path, file, errors, text);
        EXPECT_FALSE(file.IsOpen());
        EXPECT_EQ(*text.End(), '\0');
        const std::string whole(text.Begin(), text.End());
        if (loaded) {
            EXPECT_TRUE(errors.IsEmpty());
            return whole;
        }
        EXPECT_EQ(whole, "");
        std::string lines;
        for (const std::string& line : test::TakeLines(errors))
            lines += line;
        const std::size_t at = lines.find(folder_.Path());
        if (at != std::string::npos) lines.erase(at, folder_.Path().size() + 1);
        return lines;
    }

    test::TemporaryFolder folder_;
};

TEST_F(SourceLoader, APlainFileIsReadAsItStands) {
    const std::string everyLineEnd = "a\nb\r\nc\rd";
    const std::string anyBytes("\0\xFF\x1A\xEF\xBB\xBF\t\0", 8);
    for (const char* name :
         {"a.mac", "a.txt", "a", "a.", "a.io", "a.iodx", "a.data", "a.dat.mac", "iod", "dat"}) {
        SCOPED_TRACE(name);
        for (const std::string& bytes : {everyLineEnd, anyBytes, std::string("\n"), std::string("x")})
            EXPECT_EQ(Load(name, bytes), bytes);
    }
}

TEST_F(SourceLoader, IodAndDatFilesAreEncodedInAnyMixOfCase) {
    for (const char* name : {"a.iod", "a.IOD", "a.Iod", "a.dat", "a.DAT", "a.dAt", ".dat", "a.mac.iod"}) {
        SCOPED_TRACE(name);
        EXPECT_EQ(Load(name, EncodedLine("x = 1") + "\n"), "x = 1\r\n");
    }
}

TEST_F(SourceLoader, TheExtensionIsThatOfTheNameNotOfTheFolder) {
    folder_.MakeFolder("m.iod");
    EXPECT_EQ(Load("m.iod/a", "x = 1"), "x = 1");
    EXPECT_EQ(Load("m.iod/a.mac", "x = 1"), "x = 1");
    EXPECT_EQ(Load("m.iod/a.dat", EncodedLine("x = 1")), "x = 1\r\n");
}

TEST_F(SourceLoader, AnEncodedFileIsDecodedLineByLine) {
    const std::string a = EncodedLine("first = 1");
    const std::string b = EncodedLine("second = \"\x83\\\"");
    const std::string c = EncodedLine("third");
    const struct {
        std::string bytes;
        std::string expected;
    } cases[] = {
        {a + "\n" + b + "\n" + c + "\n", "first = 1\r\nsecond = \"\x83\\\"\r\nthird\r\n"},
        {a + "\r\n" + b + "\r\n" + c + "\r\n", "first = 1\r\nsecond = \"\x83\\\"\r\nthird\r\n"},
        // The last line needs no line end.
        {a + "\n" + b, "first = 1\r\nsecond = \"\x83\\\"\r\n"},
        // A line that decodes to nothing is an empty line, so the line numbers stay in step.
        {a + "\n\n" + c + "\n", "first = 1\r\n\r\nthird\r\n"},
        {a + "\n?!=\n" + c + "\n", "first = 1\r\n\r\nthird\r\n"},
        {a + "\nx*xx\n" + c + "\n", "first = 1\r\n\r\nthird\r\n"},
        {"\n", "\r\n"},
        {"\n\n\n", "\r\n\r\n\r\n"},
        {"?", "\r\n"},
        // What is faulty in a line is passed over.
        {"=" + a.substr(0, 2) + "/ " + a.substr(2) + "\n", "first = 1\r\n"},
        // A carriage return alone ends no line.
        {a + "\r" + a + "\n", "first = 1first = 1\r\n"},
        // A NUL ends what counts of its line.
        {a + std::string(1, '\0') + b + "\n" + c, "first = 1\r\nthird\r\n"},
    };
    for (const auto& test : cases) {
        SCOPED_TRACE(test.bytes);
        EXPECT_EQ(Load("a.iod", test.bytes), test.expected);
    }
}

TEST_F(SourceLoader, AnEncodedLineOf4096BytesOrMoreIsEmpty) {
    const std::string longest(4095, 'x');
    for (const std::size_t length : {4096U, 6000U, 50000U}) {
        SCOPED_TRACE(length);
        const std::string bytes = EncodedLine(longest) + "\n" + EncodedLine(std::string(length, 'y')) + "\n" +
                                  EncodedLine("end") + "\n";
        EXPECT_EQ(Load("a.dat", bytes), longest + "\r\n\r\nend\r\n");
    }
}

TEST_F(SourceLoader, ARegisterFileIsPlainWhenALineHoldsTheMarker) {
    const std::string encoded = EncodedLine("[REGISTER] x = 1");
    const struct {
        std::string bytes;
        std::string expected;
    } cases[] = {
        {"[REGISTER]", "[REGISTER]"},
        {"\n\n[REGISTER]\nA\n", "\n\n[REGISTER]\nA\n"},
        {"// see [REGISTER] below", "// see [REGISTER] below"},
        {"\"x[REGISTER]x\"\r\n", "\"x[REGISTER]x\"\r\n"},
        {std::string(10000, ' ') + "[REGISTER]", std::string(10000, ' ') + "[REGISTER]"},
        // Without it the file is encoded, and what it decodes to does not matter.
        {encoded + "\n", "[REGISTER] x = 1\r\n"},
        {"[register]\n", ""},
        {"[REGISTERS]\n", ""},
        {"REGISTER\n" + encoded, ""},
    };
    for (const char* name : {"a.rgi", "a.RGI", "a.Rgi"}) {
        for (const auto& c : cases) {
            SCOPED_TRACE(c.bytes);
            const std::string text = Load(name, c.bytes);
            if (c.expected.empty()) {
                EXPECT_NE(text, c.bytes);
                EXPECT_EQ(text.substr(text.size() - 2), "\r\n");
            } else {
                EXPECT_EQ(text, c.expected);
            }
        }
    }
}

TEST_F(SourceLoader, TheMarkerMakesNoOtherFilePlain) {
    const std::string decoded = "\xBB\xBE\x77\xB6\xCE\xEE\r\nx\r\n";
    EXPECT_EQ(Load("a.iod", "[REGISTER]\n" + EncodedLine("x")), decoded);
}

TEST_F(SourceLoader, AFileThatCannotBeOpenedIsReportedWithItsPath) {
    for (const char* name : {"none.mac", "none.iod", "none.dat", "none.rgi", "none/a.mac", "none"}) {
        SCOPED_TRACE(name);
        EXPECT_EQ(LoadPath(folder_.PathOf(name)), std::string("error : File open error. (") + name + ")");
    }
    EXPECT_EQ(LoadPath(""), "error : File open error. ()");
}

TEST_F(SourceLoader, AFolderIsAFileThatCannotBeOpened) {
    for (const char* name : {"folder", "folder.mac", "folder.iod", "folder.rgi"}) {
        SCOPED_TRACE(name);
        EXPECT_EQ(LoadPath(folder_.MakeFolder(name)), std::string("error : File open error. (") + name + ")");
    }
}

TEST_F(SourceLoader, AnEmptyFileOfAnyExtensionIsAReadError) {
    for (const char* name : {"a.mac", "a.iod", "a.dat", "a.rgi", "a", "a.TXT"}) {
        SCOPED_TRACE(name);
        EXPECT_EQ(Load(name, ""), std::string("error : File read error. (") + name + ")");
    }
}

TEST_F(SourceLoader, ThePathInAMessageStandsAsItWasGiven) {
    platform::File file;
    CErrorMessageTable errors;
    SourceText text;
    EXPECT_FALSE(LoadSource("no\\such/..\\file.mac", file, errors, text));
    EXPECT_EQ(test::TakeLines(errors), Lines{"error : File open error. (no\\such/..\\file.mac)"});
}

TEST_F(SourceLoader, BothSeparatorsLeadToTheFile) {
    folder_.MakeFolder("sub");
    folder_.Write("sub/a.mac", "x = 1");
    EXPECT_EQ(LoadPath(folder_.Path() + "\\sub\\a.mac"), "x = 1");
    EXPECT_EQ(LoadPath(folder_.Path() + "/sub\\a.mac"), "x = 1");
    EXPECT_EQ(LoadPath(folder_.Path() + "/sub/a.mac"), "x = 1");
}

TEST_F(SourceLoader, ALoadForgetsTheErrorsOfTheOneBefore) {
    platform::File file;
    CErrorMessageTable errors;
    SourceText text;
    errors.AddError("of the load before");
    EXPECT_FALSE(LoadSource(folder_.PathOf("none"), file, errors, text));
    EXPECT_EQ(errors.GetCount(), 1U);
    EXPECT_TRUE(LoadSource(folder_.Write("a.mac", "x"), file, errors, text));
    EXPECT_TRUE(errors.IsEmpty());
    EXPECT_EQ(std::string(text.Begin(), text.End()), "x");
}

TEST_F(SourceLoader, ALoadWhileAFileIsOpenIsRefused) {
    const std::string path = folder_.Write("a.mac", "x");
    platform::File file;
    CErrorMessageTable errors;
    SourceText text;
    ASSERT_TRUE(file.OpenForReading(path));
    errors.AddError("of the load before");
    EXPECT_FALSE(LoadSource(path, file, errors, text));
    EXPECT_EQ(test::TakeLines(errors),
              (Lines{"error : of the load before", "error : File is alredy opened."}));
    EXPECT_TRUE(file.IsOpen());
    file.Close();
    EXPECT_TRUE(LoadSource(path, file, errors, text));
}

// Through the lexer.

/// A lexer with a load under way.
class BusyLexer : public CLex {
public:
    explicit BusyLexer(const std::string& path) { EXPECT_TRUE(file_.OpenForReading(path)); }
    bool IsOpen() const { return file_.IsOpen(); }
    void Close() { file_.Close(); }
};

TEST_F(SourceLoader, ALexerThatHoldsAFileOpenRefusesALoad) {
    const std::string path = folder_.Write("a.mac", "x");
    BusyLexer lexer(path);
    EXPECT_FALSE(lexer.LoadFile(path));
    EXPECT_EQ(test::TakeLines(lexer.GetErrors()), Lines{"error : File is alredy opened."});
    lexer.Close();
    EXPECT_TRUE(lexer.LoadFile(path));
    EXPECT_FALSE(lexer.IsOpen());
    EXPECT_EQ(test::ReadAll(lexer), (Lines{"1: word x", "1: end"}));
}

TEST_F(SourceLoader, ALexerBeginsAtLineOneUnderThePathAsItWasGiven) {
    folder_.Write("a.mac", "x\n$\n");
    const std::string path = folder_.Path() + "\\a.mac";
    CLex lexer;
    ASSERT_TRUE(lexer.LoadFile(path));
    EXPECT_EQ(lexer.GetLine(), 1U);
    EXPECT_EQ(lexer.GetFilePath(), path);
    EXPECT_EQ(test::ReadAll(lexer),
              (Lines{"1: word x", "2: operator \\n", "2: operator $", "3: operator \\n", "3: end"}));
}

TEST_F(SourceLoader, ALexerThatCouldNotLoadHasNoTokens) {
    const std::string path = folder_.PathOf("none.mac");
    CLex lexer;
    EXPECT_FALSE(lexer.LoadFile(path));
    EXPECT_EQ(test::TakeLines(lexer.GetErrors()), Lines{"error : File open error. (" + path + ")"});
    EXPECT_EQ(test::ReadAll(lexer), Lines{"1: end"});
}

TEST_F(SourceLoader, ALexerWhoseSecondLoadFailsHasNoTokensLeftOfTheFirst) {
    const std::string long1 = "a_word_that_is_too_long_to_be_kept_inside_the_string_object another";
    CLex lexer;
    ASSERT_TRUE(lexer.LoadFile(folder_.Write("a.mac", long1)));
    ASSERT_NE(lexer.PeekToken(), nullptr);
    EXPECT_FALSE(lexer.LoadFile(folder_.PathOf("none.mac")));
    lexer.GetErrors().Clear();
    EXPECT_EQ(test::ReadAll(lexer), Lines{"1: end"});
}

TEST_F(SourceLoader, LineNumbersOfAnEncodedFileAreThoseOfItsLines) {
    const std::string bytes = EncodedLine("a") + "\n\n??\n" + EncodedLine(std::string(5000, 'y')) + "\n" +
                              EncodedLine("b \x80") + "\n";
    const std::string path = folder_.Write("a.iod", bytes);
    CLex lexer;
    ASSERT_TRUE(lexer.LoadFile(path));
    EXPECT_EQ(test::ReadAll(lexer), (Lines{"1: word a", "2: operator \\n", "3: operator \\n",
                                           "4: operator \\n", "5: operator \\n", "5: word b", "failed",
                                           path + "(5): error : find invalid letter(s) in file.", "5: end"}));
}

TEST_F(SourceLoader, AFileOfRandomBytesLoadsInEveryForm) {
    std::minstd_rand random(7);
    for (const char* name : {"a.mac", "a.iod", "a.rgi"}) {
        for (int round = 0; round < 50; ++round) {
            std::string bytes;
            for (int i = 0; i < 2000; ++i)
                bytes += static_cast<char>(random() >> 8 & 0xFF);
            CLex lexer;
            ASSERT_TRUE(lexer.LoadFile(folder_.Write(name, bytes)));
            EXPECT_FALSE(test::ReadAll(lexer).empty());
        }
    }
}

}  // namespace
}  // namespace macroengine
