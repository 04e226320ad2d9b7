#pragma once

#include <cstdint>
#include <forward_list>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "categories/CMacroCategoryCmdList.h"
#include "host/CErrorMessageTable.h"
#include "macroengine/CMacroPropertyIF.h"
#include "runtime/CMacroCommonValue.h"

namespace macroengine {

/// What a command sees of one call. Made for the call, and gone after it: nothing is worked out before it is
/// asked for.
class CMacroProperty : public CMacroPropertyIF {
public:
    CMacroProperty(const CommandEntry& entry, const SourceUnit& unit, std::uint32_t line,
                   const CallOperands& operands);
    CMacroProperty(const CMacroProperty&) = delete;
    CMacroProperty& operator=(const CMacroProperty&) = delete;
    ~CMacroProperty() override;

    int CheckArgumentCount(unsigned int min, unsigned int max) override;
    bool GetArgInteger(unsigned int index, unsigned int min, unsigned int max, int& value) override;
    const char* GetArgString(unsigned int index) override;
    bool GetAssignedInteger(unsigned int min, unsigned int max, int& value) override;
    bool GetAssignedFloating(double min, double max, double& value) override;
    bool CheckNoAssignedValue(bool silent) override;
    const char* GetMacroFolder() override;
    const char* GetFileName() override;
    unsigned int GetLineNumber() override;
    bool SetResultStringArray(int count, const char* const* texts) override;
    bool SetResultFloatingArray(int count, const double* values) override;
    bool SetResultIntegerArray(int count, const int* values) override;
    bool SetResultString(const char* text) override;
    bool SetResultFloating(double value) override;
    bool SetResultInteger(int value) override;
    bool SetResultBoolean(bool value) override;
    bool AddErrorMessage(const char* text) override;
    const char* GetWorkFolder() override;
    const char* GetFullPathFromWorkFolder(const char* path) override;
    const char* EscapeBackslash(const char* text) override;
    const char* GetFullPathFromMacroFolder(const char* path) override;
    const char* NormalizePath(const char* path) override;
    bool GetArgFloating(unsigned int index, double min, double max, double& value) override;
    int GetArgArraySize(unsigned int index) override;
    bool GetArgArrayInteger(unsigned int index, unsigned int element, int& value) override;
    bool GetArgArrayFloating(unsigned int index, unsigned int element, double& value) override;
    const char* GetArgArrayString(unsigned int index, unsigned int element) override;
    int GetAssignedArraySize() override;
    bool GetAssignedArrayInteger(unsigned int element, int& value) override;
    bool GetAssignedArrayFloating(unsigned int element, double& value) override;
    const char* GetAssignedArrayString(unsigned int element) override;
    int GetArgType(unsigned int index) override;

    /// @return an argument, of kind none when there is none at the index.
    ValueView GetArgument(unsigned int index) const;

    /// @return what is assigned to the call, of kind none when nothing is.
    ValueView GetAssigned() const;

    /// Makes any value the result, also one that no typed operation sets.
    void SetResult(CMacroCommonValue value);

    /// @return a text that stays valid as long as this object.
    const char* Keep(std::string text);

    CErrorMessageTable& GetErrors();

    /// @return the result, which the object gives up.
    CMacroCommonValue TakeResult() { return std::move(result_); }

private:
    bool Fail(std::string_view text);
    bool FailAtName(std::string_view before, std::string_view after);
    bool FailAtArgument(unsigned int index, std::string_view after);
    bool FindArgumentElement(unsigned int index, unsigned int element, ValueView& value);
    bool FindAssignedElement(unsigned int element, ValueView& value);
    const char* KeepText(const ValueView& text);
    const char* GetFullPath(const char* folder, const char* path);
    template <class Value, class ToValue>
    bool SetResultArray(int count, const Value* values, ToValue toValue);

    const CommandEntry& entry_;
    const SourceUnit& unit_;
    std::uint32_t line_;
    const CallOperands& operands_;
    CMacroCommonValue result_;
    std::unique_ptr<CErrorMessageTable> errors_;  ///< made for the first message: most calls have none
    const char* macroFolder_ = nullptr;
    std::forward_list<std::string> kept_;
};

}  // namespace macroengine
