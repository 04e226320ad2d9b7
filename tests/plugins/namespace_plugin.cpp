// Two providers of `x = meter.read()`, told apart by the namespaces `alpha` and `beta`.

#include <macroengine/CMacroCategoryBase.h>
#include <macroengine/CMacroPropertyIF.h>
#include <macroengine/Plugin.h>

namespace {

class MeterRead : public CMacroCategoryBase {
public:
    explicit MeterRead(const char* nameSpace) : CMacroCategoryBase("meter", "read", true, false, nameSpace) {}

    bool Run(CMacroPropertyIF* property) override {
        if (property->CheckArgumentCount(0, 0) < 0) return false;
        return property->SetResultString(GetNameSpace());
    }
};

}  // namespace

extern "C" MACROENGINE_PLUGIN_EXPORT bool RegisterMacroPlugin(CMacroFileIF* file) {
    static MeterRead alpha("alpha");
    static MeterRead beta("beta");
    return file->RegisterCategory(nullptr, &alpha, false) && file->RegisterCategory(nullptr, &beta, false);
}
