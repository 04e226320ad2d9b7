#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "categories/CMacroCategoryCmdList.h"
#include "compiler/MacroCompiler.h"
#include "macroengine/CMacroPropertyIF.h"
#include "support/ProgramListing.h"
#include "support/TemporaryFolder.h"
#include "support/TokenList.h"
#include "support/ValueDescription.h"

namespace macroengine::test {

/// A command for tests. It keeps the arguments of each call and what was assigned to it, and gives back the
/// number of calls.
class RecordingCommand : public CMacroCategoryBase {
public:
    RecordingCommand(const char* category, const char* command, bool canAssignSrc, bool canAssignDest,
                     Lines& calls, const char* nameSpace = "")
        : CMacroCategoryBase(category, command, canAssignSrc, canAssignDest, nameSpace), calls_(calls) {}

    bool Run(CMacroPropertyIF* property) override {
        std::string call = std::string(GetCategoryName()) + "." + GetPropertyName() + "(";
        const int count = property->CheckArgumentCount(0, 1000000);
        for (unsigned int i = 0; i < static_cast<unsigned int>(count); ++i)
            call.append(i > 0 ? ", " : "").append(DescribeArgument(*property, i));
        call += ")";
        int assigned = 0;
        if (!property->CheckNoAssignedValue(true) && property->GetAssignedInteger(0, 0, assigned)) {
            call += " = " + std::to_string(assigned);
        }
        calls_.push_back(call);
        return property->SetResultInteger(static_cast<int>(calls_.size()));
    }

private:
    static std::string DescribeArgument(CMacroPropertyIF& property, unsigned int index) {
        int integer = 0;
        double floating = 0.0;
        switch (property.GetArgType(index)) {
            case 0:
                property.GetArgInteger(index, 0, 0, integer);
                return Describe(Integer(integer));
            case 1:
                property.GetArgFloating(index, 0.0, 0.0, floating);
                return Describe(Floating(floating));
            case 2:
                return Describe(Text(property.GetArgString(index)));
            default:
                return "type " + std::to_string(property.GetArgType(index));
        }
    }

    Lines& calls_;
};

/// A macro in a folder of its own, compiled and run without the object that a host would hold.
///
/// Beside the built-in commands it knows a category `test` of recording commands: `value` may be assigned,
/// `target` may be assigned to, `both` may be either, `plain` neither; and the category `bare`, which is
/// called without a command's name.
class CompiledMacro {
public:
    CompiledMacro() : commands_("initial") {
        AddCommand("test", "value", true, false);
        AddCommand("test", "target", false, true);
        AddCommand("test", "both", true, true);
        AddCommand("test", "plain", false, false);
        AddCommand("bare", "bare", false, true, true);
    }

    void AddCommand(const char* category, const char* command, bool canAssignSrc, bool canAssignDest,
                    bool bareCall = false, const char* nameSpace = "") {
        recorders_.push_back(std::make_unique<RecordingCommand>(category, command, canAssignSrc,
                                                                canAssignDest, calls_, nameSpace));
        commands_.AddCategoryCommand(nullptr, recorders_.back().get(), bareCall);
    }

    TemporaryFolder& GetFolder() { return folder_; }

    /// Compiles a text as the file `main.mac`. @return the lines that were reported; see CompileFile.
    Lines Compile(const std::string& text) {
        folder_.Write("main.mac", text);
        return CompileFile("main.mac");
    }

    /// Compiles a file of the folder into the program. @return the lines that were reported, without the
    /// folder of this object; the single line "refused" when the file was refused without a line.
    Lines CompileFile(const std::string& name) {
        CErrorMessageTable errors;
        const bool compiled =
            MacroCompiler(program_, commands_, errors).CompileFile(folder_.PathOf(name), nullptr);
        Lines lines = WithoutFolder(errors);
        if (compiled && !lines.empty()) lines.insert(lines.begin(), "accepted");
        if (!compiled && lines.empty()) lines.emplace_back("refused");
        return lines;
    }

    /// Runs the program. @return the lines that were reported.
    Lines Run() {
        const bool succeeded = program_.Run();
        Lines lines = WithoutFolder(program_.GetErrors());
        if (!succeeded && lines.empty()) lines.emplace_back("failed");
        return lines;
    }

    /// @return the value of a variable, "undefined" if nothing was assigned to it.
    std::string ValueOf(std::string_view variable) {
        const Variable* const found = program_.GetVariables().Find(variable);
        return found == nullptr ? "undefined" : Describe(found->value);
    }

    CMacroPrg& GetProgram() { return program_; }
    CMacroCategoryCmdList& GetCommands() { return commands_; }

    std::string Listing() { return ListProgram(program_); }
    std::int32_t GetGroupCount() const { return program_.GetGroupCount(); }
    const Lines& GetCalls() const { return calls_; }

private:
    Lines WithoutFolder(CErrorMessageTable& errors) const {
        Lines lines = TakeLines(errors);
        const std::string folder = folder_.PathOf("");
        for (std::string& line : lines) {
            for (std::size_t at = line.find(folder); at != std::string::npos; at = line.find(folder))
                line.erase(at, folder.size());
        }
        return lines;
    }

    TemporaryFolder folder_;
    Lines calls_;
    std::vector<std::unique_ptr<RecordingCommand>> recorders_;
    CMacroCategoryCmdList commands_;
    CMacroPrg program_;
};

/// The lines that compiling a text reports.
inline Lines ErrorsOf(const std::string& text) {
    return CompiledMacro().Compile(text);
}

/// Compiles and runs a text. @return the value of a variable afterwards, or all lines that were reported.
inline std::string ResultOf(const std::string& text, std::string_view variable) {
    CompiledMacro macro;
    Lines lines = macro.Compile(text);
    if (lines.empty()) lines = macro.Run();
    if (lines.empty()) return macro.ValueOf(variable);
    std::string all;
    for (const std::string& line : lines)
        all += line + "\n";
    return all;
}

}  // namespace macroengine::test
