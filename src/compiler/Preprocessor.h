#pragma once

#include <string_view>

#include "compiler/MacroCompiler.h"

namespace macroengine {

/// Consumes line ends and directive lines, wherever a statement may stand.
///
/// `#include "file"`, `#define name body`, and `#if exist category[.command]` with `#elseif`, `#else` and
/// `#endif`. There is no separate pass: a region that is skipped is never seen by the parsers, because the
/// lexer drops its tokens.
class Preprocessor {
public:
    explicit Preprocessor(MacroCompiler& compiler) : compiler_(compiler) {}

    static bool IsDirective(TokenCode code) {
        return code >= TokenCode::Define && code <= TokenCode::HashEndIf;
    }

    /// Consumes what stands before the next statement or the end. Each directive needs a line of its own.
    /// @return false with the reason reported.
    bool ParseDirectives();

private:
    bool Handle(TokenCode directive);
    bool HandleInclude();
    bool HandleDefine();
    bool HandleIf();
    bool HandleElseIf();
    bool HandleElse();
    bool HandleEndIf();

    bool ReadKeyword(Token& keyword);
    bool ReadExistTest(Token& keyword, bool& exists);
    void EnterBranch(bool exists);
    void SelectBranch();

    ConditionalState& GetState() { return compiler_.GetLexer().GetConditionalState(); }
    std::uint32_t GetBit();

    MacroCompiler& compiler_;
};

}  // namespace macroengine
