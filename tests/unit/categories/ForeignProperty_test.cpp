#include <gtest/gtest.h>
#include <optional>
#include <string>

#include "categories/CMacroProperty.h"
#include "support/TemporaryFolder.h"
#include "support/ValueDescription.h"

namespace macroengine::test {
namespace {

/// What an interface object answers other than the engine's own would.
struct Answers {
    bool hasPaths = true;               ///< false: no path can be completed
    std::optional<int> count;           ///< of the arguments, whatever the limits
    std::optional<int> kind;            ///< of every argument
    std::optional<unsigned int> texts;  ///< the number of arguments whose text is there
    bool checksRanges = true;           ///< false: an integer is given whatever its range
};

/// What a plug-in may hand to a built-in command that it calls: an object that is not the engine's own.
class ForeignProperty : public CMacroPropertyIF {
public:
    ForeignProperty(CMacroPropertyIF& inner, const Answers& answers) : inner_(inner), answers_(answers) {}

    int CheckArgumentCount(unsigned int min, unsigned int max) override {
        return answers_.count ? *answers_.count : inner_.CheckArgumentCount(min, max);
    }
    bool GetArgInteger(unsigned int index, unsigned int min, unsigned int max, int& value) override {
        if (!answers_.checksRanges) min = max = 0;
        return inner_.GetArgInteger(index, min, max, value);
    }
    const char* GetArgString(unsigned int index) override {
        return answers_.texts && index >= *answers_.texts ? nullptr : inner_.GetArgString(index);
    }
    bool GetAssignedInteger(unsigned int min, unsigned int max, int& value) override {
        return inner_.GetAssignedInteger(min, max, value);
    }
    bool GetAssignedFloating(double min, double max, double& value) override {
        return inner_.GetAssignedFloating(min, max, value);
    }
    bool CheckNoAssignedValue(bool silent) override { return inner_.CheckNoAssignedValue(silent); }
    const char* GetMacroFolder() override { return inner_.GetMacroFolder(); }
    const char* GetFileName() override { return inner_.GetFileName(); }
    unsigned int GetLineNumber() override { return inner_.GetLineNumber(); }
    bool SetResultStringArray(int count, const char* const* texts) override {
        return inner_.SetResultStringArray(count, texts);
    }
    bool SetResultFloatingArray(int count, const double* values) override {
        return inner_.SetResultFloatingArray(count, values);
    }
    bool SetResultIntegerArray(int count, const int* values) override {
        return inner_.SetResultIntegerArray(count, values);
    }
    bool SetResultString(const char* text) override { return inner_.SetResultString(text); }
    bool SetResultFloating(double value) override { return inner_.SetResultFloating(value); }
    bool SetResultInteger(int value) override { return inner_.SetResultInteger(value); }
    bool SetResultBoolean(bool value) override { return inner_.SetResultBoolean(value); }
    bool AddErrorMessage(const char* text) override { return inner_.AddErrorMessage(text); }
    const char* GetWorkFolder() override { return inner_.GetWorkFolder(); }
    const char* GetFullPathFromWorkFolder(const char* path) override {
        return answers_.hasPaths ? inner_.GetFullPathFromWorkFolder(path) : nullptr;
    }
    const char* EscapeBackslash(const char* text) override { return inner_.EscapeBackslash(text); }
    const char* GetFullPathFromMacroFolder(const char* path) override {
        return inner_.GetFullPathFromMacroFolder(path);
    }
    const char* NormalizePath(const char* path) override { return inner_.NormalizePath(path); }
    bool GetArgFloating(unsigned int index, double min, double max, double& value) override {
        return inner_.GetArgFloating(index, min, max, value);
    }
    int GetArgArraySize(unsigned int index) override { return inner_.GetArgArraySize(index); }
    bool GetArgArrayInteger(unsigned int index, unsigned int element, int& value) override {
        return inner_.GetArgArrayInteger(index, element, value);
    }
    bool GetArgArrayFloating(unsigned int index, unsigned int element, double& value) override {
        return inner_.GetArgArrayFloating(index, element, value);
    }
    const char* GetArgArrayString(unsigned int index, unsigned int element) override {
        return inner_.GetArgArrayString(index, element);
    }
    int GetAssignedArraySize() override { return inner_.GetAssignedArraySize(); }
    bool GetAssignedArrayInteger(unsigned int element, int& value) override {
        return inner_.GetAssignedArrayInteger(element, value);
    }
    bool GetAssignedArrayFloating(unsigned int element, double& value) override {
        return inner_.GetAssignedArrayFloating(element, value);
    }
    const char* GetAssignedArrayString(unsigned int element) override {
        return inner_.GetAssignedArrayString(element);
    }
    int GetArgType(unsigned int index) override {
        return answers_.kind ? *answers_.kind : inner_.GetArgType(index);
    }

private:
    CMacroPropertyIF& inner_;
    const Answers& answers_;
};

class ForeignCall : public testing::Test {
protected:
    /// Returns the description of the result, or the last error line.
    std::string Call(const char* category, const char* command,
                     const std::vector<CMacroCommonValue>& arguments,
                     const CMacroCommonValue* assigned = nullptr) {
        CMacroCategoryCmdList list("");
        SourceUnit unit;
        unit.fileName = folder_.PathOf("a.mac");
        const std::vector<ValueView> views = test::ViewsOf(arguments);
        const CallOperands operands{views, assigned == nullptr ? nullptr : &assigned->View()};
        CMacroProperty own(*list.FindEntry(category, command), unit, 7, operands);
        ForeignProperty foreign(own, answers_);
        if (list.FindCommand(category, command)->Run(&foreign)) return Describe(own.TakeResult());
        return own.GetErrors().GetMessage(own.GetErrors().GetCount() - 1);
    }
    std::string Error(const std::string& message) const {
        return folder_.PathOf("a.mac") + "(7): error : " + message;
    }

    TemporaryFolder folder_;
    Answers answers_;
};

TEST_F(ForeignCall, SystemVariablesAreSetAndRead) {
    const std::vector<CMacroCommonValue> name{Text("MACROENGINE_FOREIGN_TEST")};
    const CMacroCommonValue integer = Integer(-3);
    EXPECT_EQ(Call("system", "variable", name, &integer), "none");
    EXPECT_EQ(Call("system", "variable", name), "integer -3");
    const CMacroCommonValue floating = Floating(3.0);
    EXPECT_EQ(Call("system", "variable", name, &floating), "none");
    EXPECT_EQ(Call("system", "variable", name), "floating 3");
    const CMacroCommonValue text = Text("3");
    EXPECT_EQ(Call("system", "variable", name, &text), Error("Assigned value is invalid."));
}

TEST_F(ForeignCall, WhatFitsTheInterfaceWorks) {
    EXPECT_EQ(Call("string", "split", {Text("a,b")}), R"([text "a", text "b"])");
    EXPECT_EQ(Call("string", "hex2dec", {Text("1f")}), "integer 31");
    EXPECT_EQ(Call("system", "file_write", {Integer(0), Text("a.csv"), Text("1")}), "boolean true");
    EXPECT_EQ(Call("system", "find_file", {Text("*"), Integer(0)}), "text \"a.csv\"");
    EXPECT_EQ(Call("system", "get_variable_type", {Floating(1)}), "integer 1");
}

TEST_F(ForeignCall, ArraysInAnArrayDoNotFit) {
    folder_.Write("a.csv", "1\n");
    EXPECT_EQ(Call("system", "csvfile_read", {Text("a.csv")}), Error("system.csvfile_read() system error"));
}

TEST_F(ForeignCall, WithoutAPathAFileReadsAsTheEmptyText) {
    answers_.hasPaths = false;
    EXPECT_EQ(Call("system", "csvfile_read", {Text("a.csv")}), "text \"\"");
}

TEST_F(ForeignCall, WithoutAPathNoFileIsFound) {
    answers_.hasPaths = false;
    EXPECT_EQ(Call("system", "file_write", {Integer(0), Text("a.txt"), Text("x")}),
              Error("File open error. ()"));
    EXPECT_EQ(Call("system", "mkdir", {Text("a")}), Error("Failed to create directory."));
    EXPECT_EQ(Call("system", "find_file", {Text("*"), Integer(0)}), "text \"\"");
    EXPECT_EQ(Call("system", "command_exec", {Integer(1), Text("a"), Text("b")}),
              Error("system.command_exec() : Command(\\b) is not find."));
}

TEST_F(ForeignCall, AParameterWhoseTextIsNotThereIsLeftOut) {
    answers_.texts = 3;
    const std::string path = folder_.PathOf("a");
    EXPECT_EQ(Call("system", "command_exec", {Integer(1), Text(path), Text("b"), Text("c")}),
              Error("system.command_exec() : Command(" + path + "\\b) is not find."));
}

TEST_F(ForeignCall, AnArrayOfNoArgumentsFails) {
    answers_.count = 0;
    EXPECT_EQ(Call("array", "init", {}), Error("array.init() argument error. (need some arguments)"));
}

TEST_F(ForeignCall, OnlyNumbersAndTextsMakeAnArray) {
    for (const int kind : {3, 4, 5, 6, 7, 8}) {
        answers_.kind = kind;
        EXPECT_EQ(Call("array", "init", {Integer(1)}), Error("array.init() system error")) << kind;
    }
}

TEST_F(ForeignCall, AKindThatTheLanguageDoesNotHaveMakesNoArrayAndNoError) {
    for (const int kind : {-1, 9}) {
        answers_.kind = kind;
        EXPECT_EQ(Call("array", "init", {Integer(1)}), "none") << kind;
    }
}

TEST_F(ForeignCall, AReferenceToAResultIsFormattedAsAnInteger) {
    answers_.kind = 5;
    EXPECT_EQ(Call("string", "format", {Text("%d"), Integer(42)}), "text \"42\"");
}

TEST_F(ForeignCall, ARangeThatTheInterfaceDoesNotCheckIsKeptAllTheSame) {
    answers_.checksRanges = false;
    for (const int width : {33, 1000, 2147483647, 0, -1}) {
        EXPECT_EQ(Call("string", "int2hex", {Integer(7), Integer(width)}), "") << width;
        EXPECT_EQ(Call("string", "int2dec", {Integer(7), Integer(width)}), "") << width;
    }
    for (const int flag : {-1, 2}) {
        EXPECT_EQ(Call("string", "int2dec", {Integer(7), Integer(2), Integer(flag)}), "") << flag;
        EXPECT_EQ(Call("string", "split", {Text("a"), Text(","), Integer(flag)}), "") << flag;
        EXPECT_EQ(Call("system", "csvfile_read", {Text("a.csv"), Integer(flag)}), "") << flag;
        EXPECT_EQ(Call("system", "file_write", {Integer(flag), Text("a"), Text("b")}), "") << flag;
    }
    EXPECT_EQ(Call("system", "get_time_local", {Integer(6), Integer(0)}), "");
    EXPECT_EQ(Call("system", "get_time_local", {Integer(-1), Integer(0)}), "");
}

}  // namespace
}  // namespace macroengine::test
