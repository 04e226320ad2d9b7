// The order of the 33 operations that a command sees, as slot_order_test.cpp has it for the other interfaces.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <macroengine/CMacroPropertyIF.h>

#include "api/SlotCaller.h"

namespace {

using testing::ElementsAreArray;

// What a call stores goes through its last argument; the result tells nothing more.
class NotingProperty : public CMacroPropertyIF {
public:
    explicit NotingProperty(CallLog& log) : log_(log) {}
    int CheckArgumentCount(unsigned int min, unsigned int max) override {
        return log_.Enter("CheckArgumentCount", min, max), -1;
    }
    bool GetArgInteger(unsigned int index, unsigned int min, unsigned int max, int& value) override {
        return log_.Enter("GetArgInteger", index, min, max), value = 2, true;
    }
    const char* GetArgString(unsigned int index) override {
        return log_.Enter("GetArgString", index), "text";
    }
    bool GetAssignedInteger(unsigned int min, unsigned int max, int& value) override {
        return log_.Enter("GetAssignedInteger", min, max), value = 4, true;
    }
    bool GetAssignedFloating(double min, double max, double& value) override {
        return log_.Enter("GetAssignedFloating", min, max), value = 5, true;
    }
    bool CheckNoAssignedValue(bool silent) override {
        return log_.Enter("CheckNoAssignedValue", silent), false;
    }
    const char* GetMacroFolder() override { return log_.Enter("GetMacroFolder"), "folder"; }
    const char* GetFileName() override { return log_.Enter("GetFileName"), "file"; }
    unsigned int GetLineNumber() override { return log_.Enter("GetLineNumber"), 9; }
    bool SetResultStringArray(int count, const char* const* texts) override {
        return log_.Enter("SetResultStringArray", count, texts[0]), true;
    }
    bool SetResultFloatingArray(int count, const double* values) override {
        return log_.Enter("SetResultFloatingArray", count, values[0]), true;
    }
    bool SetResultIntegerArray(int count, const int* values) override {
        return log_.Enter("SetResultIntegerArray", count, values[0]), true;
    }
    bool SetResultString(const char* text) override { return log_.Enter("SetResultString", text), true; }
    bool SetResultFloating(double value) override { return log_.Enter("SetResultFloating", value), true; }
    bool SetResultInteger(int value) override { return log_.Enter("SetResultInteger", value), true; }
    bool SetResultBoolean(bool value) override { return log_.Enter("SetResultBoolean", value), true; }
    bool AddErrorMessage(const char* text) override { return log_.Enter("AddErrorMessage", text), true; }
    const char* GetWorkFolder() override { return log_.Enter("GetWorkFolder"), "work"; }
    const char* GetFullPathFromWorkFolder(const char* path) override {
        return log_.Enter("GetFullPathFromWorkFolder", path), "path";
    }
    const char* EscapeBackslash(const char* text) override {
        return log_.Enter("EscapeBackslash", text), "path";
    }
    const char* GetFullPathFromMacroFolder(const char* path) override {
        return log_.Enter("GetFullPathFromMacroFolder", path), "path";
    }
    const char* NormalizePath(const char* path) override { return log_.Enter("NormalizePath", path), "path"; }
    bool GetArgFloating(unsigned int index, double min, double max, double& value) override {
        return log_.Enter("GetArgFloating", index, min, max), value = 23, true;
    }
    int GetArgArraySize(unsigned int index) override { return log_.Enter("GetArgArraySize", index), 24; }
    bool GetArgArrayInteger(unsigned int index, unsigned int element, int& value) override {
        return log_.Enter("GetArgArrayInteger", index, element), value = 25, true;
    }
    bool GetArgArrayFloating(unsigned int index, unsigned int element, double& value) override {
        return log_.Enter("GetArgArrayFloating", index, element), value = 26, true;
    }
    const char* GetArgArrayString(unsigned int index, unsigned int element) override {
        return log_.Enter("GetArgArrayString", index, element), "text";
    }
    int GetAssignedArraySize() override { return log_.Enter("GetAssignedArraySize"), 28; }
    bool GetAssignedArrayInteger(unsigned int element, int& value) override {
        return log_.Enter("GetAssignedArrayInteger", element), value = 29, true;
    }
    bool GetAssignedArrayFloating(unsigned int element, double& value) override {
        return log_.Enter("GetAssignedArrayFloating", element), value = 30, true;
    }
    const char* GetAssignedArrayString(unsigned int element) override {
        return log_.Enter("GetAssignedArrayString", element), "text";
    }
    int GetArgType(unsigned int index) override { return log_.Enter("GetArgType", index), 8; }

private:
    CallLog& log_;
};

TEST(SlotOrder, OfACallsProperty) {
    CallLog log;
    NotingProperty property(log);
    SlotCaller call(static_cast<CMacroPropertyIF*>(&property), log);
    const char* const texts[] = {"a"};
    const double floatings[] = {0.5};
    const int integers[] = {7};
    int integer[4] = {};
    double floating[4] = {};

    call.Next<int>(1u, 11u);
    call.Next<bool>(2u, 12u, 22u, &integer[0]);
    call.Next<const char*>(3u);
    call.Next<bool>(4u, 14u, &integer[1]);
    call.Next<bool>(5.5, 15.5, &floating[0]);
    call.Next<bool>(true);
    call.Next<const char*>();
    call.Next<const char*>();
    call.Next<unsigned int>();
    call.Next<bool>(1, &texts[0]);
    call.Next<bool>(1, &floatings[0]);
    call.Next<bool>(1, &integers[0]);
    call.Next<bool>("result");
    call.Next<bool>(14.5);
    call.Next<bool>(-15);
    call.Next<bool>(true);
    call.Next<bool>("message");
    call.Next<const char*>();
    call.Next<const char*>("work");
    call.Next<const char*>("escape");
    call.Next<const char*>("macro");
    call.Next<const char*>("normal");
    call.Next<bool>(23u, 0.25, 0.5, &floating[1]);
    call.Next<int>(24u);
    call.Next<bool>(25u, 1u, &integer[2]);
    call.Next<bool>(26u, 1u, &floating[2]);
    call.Next<const char*>(27u, 1u);
    call.Next<int>();
    call.Next<bool>(29u, &integer[3]);
    call.Next<bool>(30u, &floating[3]);
    call.Next<const char*>(31u);
    call.Next<int>(32u);

    EXPECT_THAT(log.lines(), ElementsAreArray({
                                 "CheckArgumentCount(1, 11) = -1",
                                 "GetArgInteger(2, 12, 22) = true",
                                 "GetArgString(3) = text",
                                 "GetAssignedInteger(4, 14) = true",
                                 "GetAssignedFloating(5.5, 15.5) = true",
                                 "CheckNoAssignedValue(true) = false",
                                 "GetMacroFolder() = folder",
                                 "GetFileName() = file",
                                 "GetLineNumber() = 9",
                                 "SetResultStringArray(1, a) = true",
                                 "SetResultFloatingArray(1, 0.5) = true",
                                 "SetResultIntegerArray(1, 7) = true",
                                 "SetResultString(result) = true",
                                 "SetResultFloating(14.5) = true",
                                 "SetResultInteger(-15) = true",
                                 "SetResultBoolean(true) = true",
                                 "AddErrorMessage(message) = true",
                                 "GetWorkFolder() = work",
                                 "GetFullPathFromWorkFolder(work) = path",
                                 "EscapeBackslash(escape) = path",
                                 "GetFullPathFromMacroFolder(macro) = path",
                                 "NormalizePath(normal) = path",
                                 "GetArgFloating(23, 0.25, 0.5) = true",
                                 "GetArgArraySize(24) = 24",
                                 "GetArgArrayInteger(25, 1) = true",
                                 "GetArgArrayFloating(26, 1) = true",
                                 "GetArgArrayString(27, 1) = text",
                                 "GetAssignedArraySize() = 28",
                                 "GetAssignedArrayInteger(29) = true",
                                 "GetAssignedArrayFloating(30) = true",
                                 "GetAssignedArrayString(31) = text",
                                 "GetArgType(32) = 8",
                             }));
    EXPECT_THAT(integer, ElementsAreArray({2, 4, 25, 29}));
    EXPECT_THAT(floating, ElementsAreArray({5.0, 23.0, 26.0, 30.0}));
}

}  // namespace
