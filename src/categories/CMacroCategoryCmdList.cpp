#include "categories/CMacroCategoryCmdList.h"

#include <algorithm>
#include <exception>
#include <mutex>
#include <new>
#include <unordered_set>
#include <utility>

#include "categories/BuiltinCommands.h"
#include "categories/CMacroProperty.h"

using macroengine::CallOperands;
using macroengine::CMacroCommonValue;
using macroengine::CommandEntry;
using macroengine::SourceUnit;

namespace {

/// The lists of the process.
struct ExistingLists {
    static ExistingLists& Instance() {
        // Never destroyed: a host may delete its files while the process ends.
        static auto* const lists = new ExistingLists;
        return *lists;
    }

    std::mutex mutex;
    std::unordered_set<const CMacroCategoryCmdList*> lists;
};

/// @return what the exception has to say. It is a plug-in's own and may have nothing.
std::string WhatOf(const std::exception& exception) {
    const char* const what = exception.what();
    return what == nullptr ? "" : what;
}

}  // namespace

CMacroCategoryCmdList::Existence::Existence(const CMacroCategoryCmdList* list) : list_(list) {
    ExistingLists& existing = ExistingLists::Instance();
    const std::lock_guard<std::mutex> lock(existing.mutex);
    existing.lists.insert(list_);
}

CMacroCategoryCmdList::Existence::~Existence() {
    ExistingLists& existing = ExistingLists::Instance();
    const std::lock_guard<std::mutex> lock(existing.mutex);
    existing.lists.erase(list_);
}

bool CMacroCategoryCmdList::IsAlive(const CMacroCategoryCmdList* list) {
    ExistingLists& existing = ExistingLists::Instance();
    const std::lock_guard<std::mutex> lock(existing.mutex);
    return existing.lists.count(list) != 0;
}

CMacroCategoryCmdList::CMacroCategoryCmdList(const std::string& nameSpace)
    : existence_(this), namespaceStack_{nameSpace} {
    macroengine::RegisterBuiltinCommands(*this);
}

CMacroCategoryCmdList::~CMacroCategoryCmdList() = default;

CMacroCategoryCmdList::CategoryEntry& CMacroCategoryCmdList::EnterCategory(const char* name, bool bareCall,
                                                                           const char* property) {
    const auto found = categories_.find(name);
    if (found != categories_.end()) return *found->second;
    auto entry = std::make_unique<CategoryEntry>();
    entry->name = name;
    entry->bareCall = bareCall;
    if (bareCall) entry->defaultProperty = property;
    entry->unnamed.category = name;
    const std::string_view key = entry->name;
    categoryShapes_ |= ShapeOf(key);
    return *categories_.emplace(key, std::move(entry)).first->second;
}

bool CMacroCategoryCmdList::AddCategoryCommand(CMacroCategoryBase* companion, CMacroCategoryBase* command,
                                               bool bareCall) {
    if (command == nullptr) return false;
    const auto known = categories_.find(command->GetCategoryName());
    if (known != categories_.end() && known->second->bareCall != bareCall) return false;
    std::string property = command->GetPropertyName();
    if (property.empty() && known != categories_.end()) property = known->second->defaultProperty;
    if (property.empty()) return false;

    CategoryEntry& category = EnterCategory(command->GetCategoryName(), bareCall, property.c_str());
    auto found = category.commands.find(property);
    if (found == category.commands.end()) {
        auto entry = std::make_unique<CommandEntry>();
        entry->category = category.name;
        entry->property = std::move(property);
        const std::string_view key = entry->property;
        found = category.commands.emplace(key, std::move(entry)).first;
    }

    const std::string nameSpace = command->GetNameSpace();
    auto& providers = found->second->providers;
    const bool isNew = std::none_of(providers.begin(), providers.end(),
                                    [&](const auto& provider) { return provider.nameSpace == nameSpace; });
    if (isNew) providers.push_back({nameSpace, command, companion});
    if (!nameSpace.empty() && !IsKnownNamespace(nameSpace)) knownNamespaces_.push_back(nameSpace);
    ++generation_;
    return command->SetMacroCategoryList(this);
}

void CMacroCategoryCmdList::AddOwned(std::unique_ptr<CMacroCategoryBase> command, bool bareCall) {
    AddCategoryCommand(nullptr, command.get(), bareCall);
    owned_.push_back(std::move(command));
}

bool CMacroCategoryCmdList::HasCategory(std::string_view category, std::string_view property) const {
    const auto found = categories_.find(category);
    if (found == categories_.end()) return false;
    return property.empty() || found->second->commands.count(property) != 0;
}

CommandEntry* CMacroCategoryCmdList::FindEntry(std::string_view category, std::string_view property) const {
    const auto found = categories_.find(category);
    if (found == categories_.end()) return nullptr;
    CategoryEntry& entry = *found->second;
    if (property.empty()) property = entry.defaultProperty;
    if (property.empty()) return &entry.unnamed;
    const auto command = entry.commands.find(property);
    return command == entry.commands.end() ? nullptr : command->second.get();
}

CMacroCategoryBase* CMacroCategoryCmdList::Choose(CommandEntry& entry) const {
    if (entry.generation == generation_) return entry.chosen;
    entry.generation = generation_;
    entry.chosen = nullptr;
    if (entry.providers.size() == 1) {
        entry.chosen = entry.providers.front().command;
    } else {
        for (const auto& provider : entry.providers) {
            if (provider.nameSpace == namespaceStack_.back()) entry.chosen = provider.command;
        }
    }
    return entry.chosen;
}

CMacroCategoryBase* CMacroCategoryCmdList::FindCommand(std::string_view category,
                                                       std::string_view property) const {
    // The default command of a bare call goes by its name here as any other.
    CommandEntry* const entry = property.empty() ? nullptr : FindEntry(category, property);
    return entry == nullptr ? nullptr : Choose(*entry);
}

bool CMacroCategoryCmdList::IsKnownNamespace(std::string_view name) const {
    return std::find(knownNamespaces_.begin(), knownNamespaces_.end(), name) != knownNamespaces_.end();
}

bool CMacroCategoryCmdList::SetCurrentNamespace(std::string_view name) {
    if (name.empty()) {
        if (namespaceStack_.size() > 1) namespaceStack_.pop_back();
    } else if (IsKnownNamespace(name)) {
        namespaceStack_.emplace_back(name);
    } else {
        return false;
    }
    ++generation_;
    return true;
}

bool CMacroCategoryCmdList::Execute(CommandEntry& entry, SourceUnit& unit, std::uint32_t line,
                                    const CallOperands& operands, CMacroCommonValue& result) {
    const auto fail = [&](const std::string& text) {
        unit.errors.AddLocatedError(unit.fileName.c_str(), static_cast<std::int32_t>(line), text);
        return false;
    };
    if (entry.property.empty()) return fail("Need property name for " + entry.category + "() command.");
    CMacroCategoryBase* const command = Choose(entry);
    if (command == nullptr) return fail(entry.GetName() + "() didn't support category command.");

    macroengine::CMacroProperty property(entry, unit, line, operands);
    bool succeeded = false;
    try {
        succeeded = command->Run(&property);
    } catch (const std::bad_alloc&) {
        property.AddErrorMessage("Memory allocation error");
    } catch (const std::exception& exception) {
        // A command is often somebody else's: what it throws fails its statement and goes no further.
        property.AddErrorMessage(
            (entry.GetName() + "() threw an exception. (" + WhatOf(exception) + ")").c_str());
    } catch (...) {
        property.AddErrorMessage((entry.GetName() + "() threw an exception.").c_str());
    }
    if (!succeeded) unit.errors.TakeErrors(property.GetErrors());
    result = property.TakeResult();
    return succeeded;
}
