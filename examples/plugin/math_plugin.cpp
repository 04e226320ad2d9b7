// A plug-in that brings two commands of a category of its own:
//
//     root = math.sqrt(2)
//     average = math.mean(samples)
//
// Built as a shared library, it is loaded with `macroctl run --plugin LIBRARY FILE`.

#include <cmath>
#include <limits>

#include <macroengine/CMacroCategoryBase.h>
#include <macroengine/CMacroPropertyIF.h>
#include <macroengine/Plugin.h>

namespace {

class SquareRoot : public CMacroCategoryBase {
public:
    SquareRoot() : CMacroCategoryBase("math", "sqrt", true, false, "") {}

    bool Run(CMacroPropertyIF* property) override {
        double value = 0;
        if (property->CheckArgumentCount(1, 1) < 0) return false;  // the reason is already reported
        if (!property->GetArgFloating(0, 0, std::numeric_limits<double>::max(), value)) return false;
        return property->SetResultFloating(std::sqrt(value));
    }
};

class Mean : public CMacroCategoryBase {
public:
    Mean() : CMacroCategoryBase("math", "mean", true, false, "") {}

    bool Run(CMacroPropertyIF* property) override {
        if (property->CheckArgumentCount(1, 1) < 0) return false;
        const int count = property->GetArgArraySize(0);
        if (count < 0) return false;
        if (count == 0) {
            property->AddErrorMessage("math.mean() of an array without elements");
            return false;
        }
        double sum = 0;
        for (int i = 0; i < count; ++i) {
            double value = 0;
            if (!property->GetArgArrayFloating(0, static_cast<unsigned int>(i), value)) return false;
            sum += value;
        }
        return property->SetResultFloating(sum / count);
    }
};

}  // namespace

extern "C" MACROENGINE_PLUGIN_EXPORT bool RegisterMacroPlugin(CMacroFileIF* file) {
    // The commands outlive every file they are registered with, as static objects do until the library goes.
    static SquareRoot squareRoot;
    static Mean mean;
    return file->RegisterCategory(nullptr, &squareRoot, false) &&
           file->RegisterCategory(nullptr, &mean, false);
}
