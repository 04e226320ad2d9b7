#include "common/HostCommands.h"

#include <functional>
#include <utility>

#include "macroengine/CMacroCategoryBase.h"
#include "macroengine/CMacroPropertyIF.h"
#include "support/ValueDescription.h"

namespace macroengine::fuzz {

namespace {

using Action = std::function<bool(CMacroPropertyIF&)>;

class HostCommand : public CMacroCategoryBase {
public:
    HostCommand(const char* name, bool canAssignSrc, bool canAssignDest, Action action)
        : CMacroCategoryBase("fuzz", name, canAssignSrc, canAssignDest, ""), action_(std::move(action)) {}

    bool Run(CMacroPropertyIF* property) override { return action_(*property); }

private:
    Action action_;
};

std::string DescribeArgument(CMacroPropertyIF& property, unsigned int index) {
    int integer = 0;
    double floating = 0.0;
    switch (property.GetArgType(index)) {
        case 0:
            property.GetArgInteger(index, 0, 0, integer);
            return test::Describe(ValueView::Integer(integer));
        case 1:
            property.GetArgFloating(index, 0.0, 0.0, floating);
            return test::Describe(ValueView::Floating(floating));
        case 2:
            return test::Describe(test::Text(property.GetArgString(index)));
        case 3:
            return "boolean";
        default:
            return "array of " + std::to_string(property.GetArgArraySize(index));
    }
}

std::string DescribeArguments(CMacroPropertyIF& property) {
    std::string text = "show ";
    const int count = property.CheckArgumentCount(0, 1000);
    for (int i = 0; i < count; ++i)
        text.append(i > 0 ? ", " : "").append(DescribeArgument(property, static_cast<unsigned int>(i)));
    return text;
}

}  // namespace

HostCommands::HostCommands(CMacroCategoryCmdList& list, CMacroPrg& program) {
    const auto add = [this](const char* name, bool canAssignSrc, bool canAssignDest, Action action) {
        commands_.push_back(
            std::make_unique<HostCommand>(name, canAssignSrc, canAssignDest, std::move(action)));
    };
    add("show", false, false, [this](CMacroPropertyIF& property) {
        shown_.push_back(DescribeArguments(property));
        return true;
    });
    add("take", false, true, [this](CMacroPropertyIF& property) {
        double value = 0.0;
        if (!property.GetAssignedFloating(0.0, 0.0, value)) return false;
        shown_.push_back("take " + test::Describe(ValueView::Floating(value)));
        return true;
    });
    add("truth", true, false, [](CMacroPropertyIF& property) { return property.SetResultBoolean(true); });
    add("nothing", true, false, [](CMacroPropertyIF&) { return true; });
    add("refuse", true, false, [](CMacroPropertyIF& property) {
        property.AddErrorMessage("fuzz.refuse() refuses");
        return false;
    });
    add("stop", false, false, [&program](CMacroPropertyIF&) { return program.RequestAbort(); });
    for (const auto& command : commands_)
        list.AddCategoryCommand(nullptr, command.get(), false);
}

HostCommands::~HostCommands() = default;

}  // namespace macroengine::fuzz
