#pragma once

#include <string>
#include <vector>

#include "categories/CMacroCategoryCmdList.h"
#include "runtime/SourceUnit.h"
#include "support/ValueDescription.h"

namespace macroengine::test {

/// Calls the built-in commands as line 7 of the macro file "a.mac" does.
class CommandCaller {
public:
    /// @param workFolder  empty for the folder of the macro file.
    explicit CommandCaller(std::string workFolder = "") : workFolder_(std::move(workFolder)) {
        unit_.fileName = "a.mac";
        unit_.workFolder = &workFolder_;
    }

    /// Returns the description of the result, or the error lines (see Error); "failed" for a failure without
    /// a line.
    std::string Call(const std::string& name, const std::vector<CMacroCommonValue>& arguments,
                     const CMacroCommonValue* assigned = nullptr) {
        const std::size_t point = name.find('.');
        CommandEntry* const entry =
            list_.FindEntry(name.substr(0, point), point == std::string::npos ? "" : name.substr(point + 1));
        if (entry == nullptr) return "no such command";
        unit_.errors.Clear();
        CMacroCommonValue result;
        const std::vector<ValueView> views = ViewsOf(arguments);
        const CallOperands operands{views, assigned == nullptr ? nullptr : &assigned->View()};
        if (list_.Execute(*entry, unit_, 7, operands, result)) return Describe(result);
        lastResult_ = Describe(result);
        std::string lines;
        for (std::uint32_t i = 0; i < unit_.errors.GetCount(); ++i)
            lines.append(i > 0 ? "\n" : "").append(unit_.errors.GetMessage(i));
        return lines.empty() ? "failed" : lines;
    }

    /// Returns what the last call that failed has left as its result.
    const std::string& ResultOfFailure() const { return lastResult_; }

    CMacroCategoryCmdList& GetList() { return list_; }

private:
    std::string workFolder_;
    SourceUnit unit_;
    CMacroCategoryCmdList list_{""};
    std::string lastResult_;
};

/// Returns the line that a command's message becomes.
inline std::string Error(const std::string& message) {
    return "a.mac(7): error : " + message;
}

}  // namespace macroengine::test
