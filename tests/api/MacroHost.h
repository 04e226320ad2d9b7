#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <utility>

#include <macroengine/ArgumentText.h>
#include <macroengine/CMacroCategoryBase.h>
#include <macroengine/CMacroFileIF.h>
#include <macroengine/CMacroPropertyIF.h>

#include "support/TemporaryFolder.h"

namespace macroengine::test {

/// A command that does what a test tells it to: `probe.call`, which may stand on either side of `=`, unless
/// it is given other names.
class ProbeCommand : public CMacroCategoryBase {
public:
    using Action = std::function<bool(CMacroPropertyIF*)>;

    explicit ProbeCommand(Action action, const char* category = "probe", const char* command = "call",
                          const char* nameSpace = "")
        : ProbeCommand(std::move(action), category, command, nameSpace, true, true) {}

    ProbeCommand(Action action, const char* category, const char* command, const char* nameSpace,
                 bool canAssignSrc, bool canAssignDest)
        : CMacroCategoryBase(category, command, canAssignSrc, canAssignDest, nameSpace),
          action_(std::move(action)) {}

    bool Run(CMacroPropertyIF* property) override { return action_(property); }

private:
    Action action_;
};

/// A macro file object and a folder with its files, for one test.
class MacroHost {
public:
    explicit MacroHost(const std::string& nameSpace = "") : file_(CreateMacroFile(nameSpace, false)) {
        file_->RegisterCategory(nullptr, &put_, false);
    }
    ~MacroHost() { DeleteMacroFile(file_); }
    MacroHost(const MacroHost&) = delete;
    MacroHost& operator=(const MacroHost&) = delete;

    CMacroFileIF* operator->() const { return file_; }
    CMacroFileIF* Get() const { return file_; }

    TemporaryFolder& GetFolder() { return folder_; }

    /// Writes the text to a file of the folder and loads it.
    bool Load(const std::string& text, const std::string& name = "a.mac") {
        folder_.Write(name, text);
        // With the separator that every system takes.
        return file_->Load((folder_.Path() + "/" + name).c_str());
    }

    /// Takes the error lines, joined by line feeds, without the folder of the files.
    std::string TakeErrors() {
        std::string lines;
        for (std::uint32_t i = 0; i < file_->GetErrorCount(); ++i) {
            std::string line = file_->GetErrorMessage(i);
            for (const std::string& folder : {folder_.Path() + "/", folder_.PathOf("")}) {
                for (std::size_t at = line.find(folder); at != std::string::npos; at = line.find(folder))
                    line.erase(at, folder.size());
            }
            lines.append(i > 0 ? "\n" : "").append(line);
        }
        file_->ClearErrors();
        return lines;
    }

    /// Takes what `test.put(value, ...)` was called with: the values of a call joined by blanks, calls by
    /// line feeds.
    std::string TakeOutput() { return std::exchange(output_, std::string()); }

    /// Loads and runs a text. @return the output, then the error lines.
    std::string Output(const std::string& text) {
        if (Load(text)) file_->Run();
        const std::string errors = TakeErrors();
        std::string output = TakeOutput();
        if (!output.empty() && !errors.empty()) output += "\n";
        return output + errors;
    }

private:
    bool Put(CMacroPropertyIF* property) {
        const int count = property->CheckArgumentCount(0, 1000);
        if (count < 0) return false;
        std::string line;
        for (unsigned int i = 0; i < static_cast<unsigned int>(count); ++i)
            line.append(i > 0 ? " " : "").append(FormatMacroArgument(property, i));
        output_.append(output_.empty() ? "" : "\n").append(line);
        return true;
    }

    TemporaryFolder folder_;
    std::string output_;
    ProbeCommand put_{[this](CMacroPropertyIF* property) { return Put(property); }, "test", "put"};
    CMacroFileIF* file_;
};

}  // namespace macroengine::test
