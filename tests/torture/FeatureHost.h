#pragma once

#include <string>

#include "api/MacroHost.h"
#include "torture/EveryFeature.h"

namespace macroengine::test {

/// A macro file with every feature, which goes on after errors.
class FeatureHost {
public:
    FeatureHost() : path_(WriteMacroOfEveryFeature(host_.GetFolder())) {
        host_->RegisterCategory(nullptr, &fail_, false);
        host_->SetErrorHandling(false, nullptr, 0);
    }

    bool Load() { return host_->Load(path_.c_str()); }
    bool Run() { return host_->Run(); }

    /// Runs the program. @return all that it has put out and reported.
    std::string ResultOfRun() {
        TakeResult();
        host_->Run();
        return TakeResult();
    }

    std::string TakeResult() {
        const std::string errors = host_.TakeErrors();
        return host_.TakeOutput() + "\n" + errors;
    }

private:
    MacroHost host_;
    ProbeCommand fail_{[](CMacroPropertyIF* property) {
                           property->AddErrorMessage(property->GetArgString(0));
                           return false;
                       },
                       "test", "fail"};
    std::string path_;
};

}  // namespace macroengine::test
