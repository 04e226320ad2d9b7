#include <gtest/gtest.h>
#include <string>

#include "categories/CMacroProperty.h"
#include "support/TemporaryFolder.h"
#include "support/ValueDescription.h"

namespace macroengine::test {
namespace {

/// What a plug-in may hand to a built-in command that it calls: an object that is not the engine's own.
class ForeignProperty : public CMacroPropertyIF {
public:
    explicit ForeignProperty(CMacroPropertyIF& inner) : inner_(inner) {}

    int CheckArgumentCount(unsigned int min, unsigned int max) override {
        return inner_.CheckArgumentCount(min, max);
    }
    bool GetArgInteger(unsigned int index, unsigned int min, unsigned int max, int& value) override {
        return inner_.GetArgInteger(index, min, max, value);
    }
    const char* GetArgString(unsigned int index) override { return inner_.GetArgString(index); }
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
        return hasPaths ? inner_.GetFullPathFromWorkFolder(path) : nullptr;
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
    int GetArgType(unsigned int index) override { return inner_.GetArgType(index); }

    bool hasPaths = true;  ///< false: no path can be completed

private:
    CMacroPropertyIF& inner_;
};

class ForeignCall : public testing::Test {
protected:
    /// Returns the description of the result, or the last error line.
    std::string Call(const char* category, const char* command,
                     const std::vector<CMacroCommonValue>& arguments,
                     const CMacroCommonValue* assigned = nullptr, bool hasPaths = true) {
        CMacroCategoryCmdList list("");
        SourceUnit unit;
        unit.fileName = folder_.PathOf("a.mac");
        const std::vector<ValueView> views = test::ViewsOf(arguments);
        const CallOperands operands{views, assigned == nullptr ? nullptr : &assigned->View()};
        CMacroProperty own(*list.FindEntry(category, command), unit, 7, operands);
        ForeignProperty foreign(own);
        foreign.hasPaths = hasPaths;
        if (list.FindCommand(category, command)->Run(&foreign)) return Describe(own.TakeResult());
        return own.GetErrors().GetMessage(own.GetErrors().GetCount() - 1);
    }
    std::string Error(const std::string& message) const {
        return folder_.PathOf("a.mac") + "(7): error : " + message;
    }

    TemporaryFolder folder_;
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
    EXPECT_EQ(Call("system", "csvfile_read", {Text("a.csv")}, nullptr, false), "text \"\"");
}

}  // namespace
}  // namespace macroengine::test
