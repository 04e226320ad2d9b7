#pragma once

#include <string>

#include "platform/CodePage.h"
#include "platform/Environment.h"

namespace macroengine::test {

/// Makes a code page the active one for as long as the object lives; 0 is one without double-byte characters.
class ScopedCodePage {
public:
    explicit ScopedCodePage(int codePage)
        : previous_(platform::GetEnvironmentText("MACROENGINE_CODEPAGE").value_or("")) {
        Choose(std::to_string(codePage));
    }
    ~ScopedCodePage() { Choose(previous_); }
    ScopedCodePage(const ScopedCodePage&) = delete;
    ScopedCodePage& operator=(const ScopedCodePage&) = delete;

private:
    static void Choose(const std::string& codePage) {
        platform::SetEnvironmentText("MACROENGINE_CODEPAGE", codePage);
        platform::RefreshCodePage();
    }

    std::string previous_;
};

}  // namespace macroengine::test
