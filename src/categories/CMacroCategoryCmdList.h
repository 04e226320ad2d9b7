#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "categories/RangeIndicator.h"
#include "macroengine/CMacroCategoryBase.h"
#include "runtime/CMacroCommonValue.h"
#include "runtime/SourceUnit.h"

namespace macroengine {

/// One command of a category, with all who provide it.
struct CommandEntry {
    struct Provider {
        std::string nameSpace;
        CMacroCategoryBase* command;
        CMacroCategoryBase* companion;
    };

    std::string category;
    std::string property;  ///< empty for a call of a category that needs a command's name and has none
    std::vector<Provider> providers;

    /// The provider that the namespace in force chooses, as of a generation of the list.
    CMacroCategoryBase* chosen = nullptr;
    std::uint64_t generation = 0;

    /// @return "category.property".
    std::string GetName() const { return category + "." + property; }
};

/// The operands of a call, resolved. Views suffice: no variable changes while a command runs.
struct CallOperands {
    const std::vector<ValueView>& arguments;
    const ValueView* assigned;  ///< null when nothing is assigned to the call
};

}  // namespace macroengine

/// The commands of one macro file: the built-in ones and those that the host registers.
///
/// Names compare byte by byte. One provider of a command is always reachable; with two or more the current
/// namespace chooses.
class CMacroCategoryCmdList {
public:
    /// Registers the built-in commands.
    /// @param nameSpace  the first element of the stack of namespaces.
    explicit CMacroCategoryCmdList(const std::string& nameSpace);
    CMacroCategoryCmdList(const CMacroCategoryCmdList&) = delete;
    CMacroCategoryCmdList& operator=(const CMacroCategoryCmdList&) = delete;
    virtual ~CMacroCategoryCmdList();

    /// @return whether the list still exists. A command may outlive the list that it was registered with.
    static bool IsAlive(const CMacroCategoryCmdList* list);

    /// Registers a command under the names that it carries. The first registration of a name stays.
    ///
    /// @param companion  kept beside the command; may be null.
    /// @param command    not owned.
    /// @param bareCall   whether the category is called without a command's name.
    /// @return false for a null command, for a category that exists with the other `bareCall`, and for a
    ///         command without a name whose category has no default.
    bool AddCategoryCommand(CMacroCategoryBase* companion, CMacroCategoryBase* command, bool bareCall);

    /// As AddCategoryCommand; the list destroys the command.
    void AddOwned(std::unique_ptr<CMacroCategoryBase> command, bool bareCall);

    /// @return whether the category is known and, unless `property` is empty, has a command of that name.
    bool IsCategory(std::string_view category, std::string_view property) const {
        return (categoryShapes_ & ShapeOf(category)) != 0 && HasCategory(category, property);
    }

    /// Finds what a call means: the command named, or with an empty `property` the default of the category.
    /// @return null when the category or the command is unknown. It stays valid as long as the list.
    macroengine::CommandEntry* FindEntry(std::string_view category, std::string_view property) const;

    /// @return the command of that name that a script would run under the namespace in force, or null.
    CMacroCategoryBase* FindCommand(std::string_view category, std::string_view property) const;

    /// Makes a namespace current. The empty text goes back to the one before, if there is one.
    /// @return false for a namespace under which nothing is registered.
    bool SetCurrentNamespace(std::string_view name);

    /// Forgets what the commands of the run before have left for later ones.
    void BeginRun() { rangeIndicator_.isSet = false; }

    /// @return what the conversions of the file share. It stays valid as long as the list.
    macroengine::RangeIndicator& GetRangeIndicator() { return rangeIndicator_; }

    /// Runs a command.
    ///
    /// @param result  receives what the command has set, of kind none if nothing.
    /// @return false with the reason in the unit's errors.
    bool Execute(macroengine::CommandEntry& entry, macroengine::SourceUnit& unit, std::uint32_t line,
                 const macroengine::CallOperands& operands, macroengine::CMacroCommonValue& result);

private:
    /// Keeps a list among those that exist.
    class Existence {
    public:
        explicit Existence(const CMacroCategoryCmdList* list);
        Existence(const Existence&) = delete;
        Existence& operator=(const Existence&) = delete;
        ~Existence();

    private:
        const CMacroCategoryCmdList* list_;
    };

    struct CategoryEntry {
        std::string name;
        bool bareCall = false;
        std::string defaultProperty;
        macroengine::CommandEntry
            unnamed;  ///< what a call without a command's name means if there is no default
        std::unordered_map<std::string_view, std::unique_ptr<macroengine::CommandEntry>> commands;
    };

    /// @return a bit that tells most names apart from those of the few categories without a look into a table.
    static std::uint64_t ShapeOf(std::string_view name) {
        if (name.empty()) return 1;
        return std::uint64_t{1} << ((static_cast<unsigned char>(name.front()) + name.size() * 11) % 64);
    }

    bool HasCategory(std::string_view category, std::string_view property) const;
    CategoryEntry& EnterCategory(const char* name, bool bareCall, const char* property);
    CMacroCategoryBase* Choose(macroengine::CommandEntry& entry) const;
    bool IsKnownNamespace(std::string_view name) const;

    Existence existence_;
    std::unordered_map<std::string_view, std::unique_ptr<CategoryEntry>> categories_;
    std::uint64_t categoryShapes_ = 0;  ///< of all categories
    std::vector<std::string> knownNamespaces_;
    std::vector<std::string> namespaceStack_;  ///< the last one is current
    macroengine::RangeIndicator rangeIndicator_;
    std::vector<std::unique_ptr<CMacroCategoryBase>> owned_;
    std::uint64_t generation_ = 1;  ///< raised by whatever may change the choice of a provider
};
