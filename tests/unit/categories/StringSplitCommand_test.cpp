#include "categories/StringSplitCommand.h"

#include <gtest/gtest.h>
#include <string>

#include "support/CommandCaller.h"
#include "support/ScopedCodePage.h"

namespace macroengine::test {
namespace {

std::string Split(const std::vector<CMacroCommonValue>& arguments) {
    return CommandCaller().Call("string.split", arguments);
}

TEST(StringSplit, CutsAtCommasUnlessToldOtherwise) {
    const ScopedCodePage codePage(0);
    EXPECT_EQ(Split({Text("a,,b,")}), R"([text "a", text "", text "b", text ""])");
    EXPECT_EQ(Split({Text("abc")}), R"([text "abc"])");
    EXPECT_EQ(Split({Text(",")}), R"([text "", text ""])");
    EXPECT_EQ(Split({Text(",,")}), R"([text "", text "", text ""])");
    EXPECT_EQ(Split({Text("a::b"), Text("::")}), R"([text "a", text "b"])");
    EXPECT_EQ(Split({Text("a:::b"), Text("::")}), R"([text "a", text ":b"])");
    EXPECT_EQ(Split({Text("a,b"), Text(";")}), R"([text "a,b"])");
    EXPECT_EQ(Split({Text("a b  c"), Text(" ")}), R"([text "a", text "b", text "", text "c"])");
    EXPECT_EQ(Split({Text("ab"), Text("abc")}), R"([text "ab"])");
    EXPECT_EQ(Split({Text("aaaa"), Text("aa")}), R"([text "", text "", text ""])");
    EXPECT_EQ(Split({Text("same"), Text("same")}), R"([text "", text ""])");
}

TEST(StringSplit, TrimsSpacesOnRequest) {
    const ScopedCodePage codePage(0);
    EXPECT_EQ(Split({Text(" a , b "), Text(","), Integer(1)}), R"([text "a", text "b"])");
    EXPECT_EQ(Split({Text(" a , b "), Text(","), Integer(0)}), R"([text " a ", text " b "])");
    EXPECT_EQ(Split({Text("  ,x  y,"), Text(","), Integer(1)}), R"([text "", text "x  y", text ""])");
    EXPECT_EQ(Split({Text("   "), Text(","), Integer(1)}), R"([text ""])");
    EXPECT_EQ(Split({Text("\ta \t"), Text(","), Integer(1)}), "[text \"\ta \t\"]");
}

TEST(StringSplit, ADelimiterDoesNotBeginInsideACharacter) {
    // The second byte of the first character is a vertical bar.
    const std::string text = "\x83|x|y";
    {
        const ScopedCodePage codePage(932);
        EXPECT_EQ(Split({Text(text), Text("|")}), "[text \"\x83|x\", text \"y\"]");
        EXPECT_EQ(Split({Text(text), Text("\x83|")}), "[text \"\", text \"x|y\"]");
    }
    const ScopedCodePage codePage(0);
    EXPECT_EQ(Split({Text(text), Text("|")}), "[text \"\x83\", text \"x\", text \"y\"]");
}

TEST(StringSplit, MakesAsManyPiecesAsThereAre) {
    std::string text;
    for (int i = 0; i < 100000; ++i)
        text += "x,";
    CommandCaller caller;
    const std::string pieces = caller.Call("string.split", {Text(text)});
    EXPECT_EQ(pieces.size(),
              1 + 100000 * std::string("text \"x\", ").size() + std::string("text \"\"]").size());
}

TEST(StringSplit, RefusesArgumentsInItsOwnOrder) {
    const std::string name = "string.split() argument error. ";
    const std::string count = Error(name + "(argument count is invalid)");
    EXPECT_EQ(Split({}), count);
    EXPECT_EQ(Split({Text("a"), Text(","), Integer(0), Integer(0)}), count);
    EXPECT_EQ(Split({Text("")}), Error("Error: target string is null."));
    EXPECT_EQ(Split({Text(""), Text(""), Integer(2)}), Error("Error: target string is null."));
    EXPECT_EQ(Split({Integer(5)}), Error(name + "(argument[0] type isn't string)") + "\n" +
                                       Error("Error: target string is null."));
    EXPECT_EQ(Split({Text("a"), Text(""), Integer(2)}), Error("Error: delimiter is null."));
    EXPECT_EQ(Split({Text("a"), Integer(1)}),
              Error(name + "(argument[1] type isn't string)") + "\n" + Error("Error: delimiter is null."));
    EXPECT_EQ(Split({Text("a"), Text(","), Integer(2)}), Error(name + "(argument[2] is out of range.)"));
    EXPECT_EQ(Split({Text("a"), Text(","), Integer(-1)}), Error(name + "(argument[2] is out of range.)"));
    EXPECT_EQ(Split({Text("a"), Text(","), Text("1")}), Error(name + "(argument[2] type isn't interger)"));
    const CMacroCommonValue assigned = Integer(1);
    EXPECT_EQ(CommandCaller().Call("string.split", {Text("a")}, &assigned),
              Error("assigned value isn't needed at string.split()"));
}

}  // namespace
}  // namespace macroengine::test
