#pragma once

#include <string>

#include "categories/CMacroCategoryCmdList.h"
#include "compiler/MacroCompiler.h"
#include "host/CErrorMessageTable.h"
#include "host/CMacroPrg.h"
#include "support/TemporaryFolder.h"

namespace macroengine::bench {

/// A macro with the built-in commands, compiled and ready to run.
class CompiledProgram {
public:
    explicit CompiledProgram(const std::string& text) {
        isCompiled_ =
            MacroCompiler(program_, commands_, errors_).CompileFile(folder_.Write("main.mac", text), nullptr);
    }

    bool IsCompiled() const { return isCompiled_; }
    CMacroPrg& GetProgram() { return program_; }

private:
    test::TemporaryFolder folder_;
    CErrorMessageTable errors_;
    CMacroCategoryCmdList commands_{""};
    CMacroPrg program_;
    bool isCompiled_ = false;
};

}  // namespace macroengine::bench
