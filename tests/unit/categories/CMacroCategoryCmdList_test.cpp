#include "categories/CMacroCategoryCmdList.h"

#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <vector>

#include "macroengine/CMacroPropertyIF.h"
#include "support/ValueDescription.h"

namespace macroengine {
namespace {

using test::Describe;
using test::Integer;

/// A command that gives its own name as its result.
class Named : public CMacroCategoryBase {
public:
    Named(const char* category, const char* property, const char* nameSpace = "")
        : CMacroCategoryBase(category, property, true, true, nameSpace) {}

    bool Run(CMacroPropertyIF* property) override {
        return property->SetResultString(
            (std::string(GetCategoryName()) + "." + GetPropertyName() + "." + GetNameSpace()).c_str());
    }
};

/// @return what a call gives: its result, or the lines it reports.
std::string Call(CMacroCategoryCmdList& list, const char* category, const char* property) {
    CommandEntry* const entry = list.FindEntry(category, property);
    if (entry == nullptr) return "unknown";
    SourceUnit unit;
    unit.fileName = "a.mac";
    CMacroCommonValue result = Integer(99);
    if (list.Execute(*entry, unit, 4, {{}, nullptr}, result)) return Describe(result);
    std::string lines;
    for (std::uint32_t i = 0; i < unit.errors.GetCount(); ++i)
        lines.append(i > 0 ? "\n" : "").append(unit.errors.GetMessage(i));
    return lines;
}

std::string Ambiguous(const std::string& name) {
    return "a.mac(4): error : " + name + "() didn't support category command.";
}

TEST(CMacroCategoryCmdList, KnowsACategoryAndItsCommands) {
    CMacroCategoryCmdList list("");
    Named command("meter", "read");
    EXPECT_FALSE(list.IsCategory("meter", ""));
    EXPECT_FALSE(list.IsCategory("meter", "read"));
    EXPECT_TRUE(list.AddCategoryCommand(nullptr, &command, false));
    EXPECT_TRUE(list.IsCategory("meter", ""));
    EXPECT_TRUE(list.IsCategory("meter", "read"));
    for (const char* other : {"write", "Read", "READ", "rea", "read ", "meter", "read."})
        EXPECT_FALSE(list.IsCategory("meter", other)) << other;
    for (const char* other : {"", "Meter", "mete", "meter.read", "meter "}) {
        EXPECT_FALSE(list.IsCategory(other, "")) << other;
        EXPECT_FALSE(list.IsCategory(other, "read")) << other;
    }
}

TEST(CMacroCategoryCmdList, ACommandIsKnownInAnyNamespace) {
    CMacroCategoryCmdList list("");
    Named alpha("meter", "read", "alpha");
    Named beta("meter", "read", "beta");
    list.AddCategoryCommand(nullptr, &alpha, false);
    list.AddCategoryCommand(nullptr, &beta, false);
    EXPECT_TRUE(list.IsCategory("meter", "read"));
    EXPECT_EQ(list.FindCommand("meter", "read"), nullptr);
}

TEST(CMacroCategoryCmdList, ABareCallMeansTheDefaultCommand) {
    CMacroCategoryCmdList list("");
    Named measure("measure", "now");
    Named later("measure", "later");
    EXPECT_TRUE(list.AddCategoryCommand(nullptr, &measure, true));
    EXPECT_TRUE(list.AddCategoryCommand(nullptr, &later, true));
    EXPECT_EQ(Call(list, "measure", ""), "text \"measure.now.\"");
    EXPECT_EQ(Call(list, "measure", "now"), "text \"measure.now.\"");
    EXPECT_EQ(Call(list, "measure", "later"), "text \"measure.later.\"");
}

TEST(CMacroCategoryCmdList, ACategoryWithoutADefaultNeedsAName) {
    CMacroCategoryCmdList list("");
    Named command("meter", "read");
    list.AddCategoryCommand(nullptr, &command, false);
    EXPECT_EQ(Call(list, "meter", ""), "a.mac(4): error : Need property name for meter() command.");
    EXPECT_EQ(Call(list, "string", ""), "a.mac(4): error : Need property name for string() command.");
    EXPECT_EQ(list.FindEntry("unknown", ""), nullptr);
}

TEST(CMacroCategoryCmdList, ACategoryIsBareOrNot) {
    CMacroCategoryCmdList list("");
    Named first("meter", "read");
    Named second("meter", "write");
    EXPECT_TRUE(list.AddCategoryCommand(nullptr, &first, false));
    EXPECT_FALSE(list.AddCategoryCommand(nullptr, &second, true));
    EXPECT_FALSE(list.IsCategory("meter", "write"));
    EXPECT_EQ(second.GetMacroCategoryObject("meter", "read"), nullptr);

    Named third("measure", "now");
    Named fourth("measure", "later");
    EXPECT_TRUE(list.AddCategoryCommand(nullptr, &third, true));
    EXPECT_FALSE(list.AddCategoryCommand(nullptr, &fourth, false));
    EXPECT_FALSE(list.IsCategory("measure", "later"));

    Named built("wait_ms", "again");
    EXPECT_FALSE(list.AddCategoryCommand(nullptr, &built, false));
    Named string("string", "again");
    EXPECT_FALSE(list.AddCategoryCommand(nullptr, &string, true));
}

TEST(CMacroCategoryCmdList, ACommandWithoutANameTakesTheDefaultOfItsCategory) {
    CMacroCategoryCmdList list("alpha");
    Named named("measure", "now", "alpha");
    Named unnamed("measure", "", "beta");
    EXPECT_TRUE(list.AddCategoryCommand(nullptr, &named, true));
    EXPECT_TRUE(list.AddCategoryCommand(nullptr, &unnamed, true));
    EXPECT_EQ(list.FindCommand("measure", "now"), &named);
    EXPECT_TRUE(list.SetCurrentNamespace("beta"));
    EXPECT_EQ(list.FindCommand("measure", "now"), &unnamed);
    EXPECT_EQ(Call(list, "measure", ""), "text \"measure..beta\"");
}

TEST(CMacroCategoryCmdList, ACommandWithoutANameOrADefaultIsRefused) {
    CMacroCategoryCmdList list("");
    Named first("meter", "");
    EXPECT_FALSE(list.AddCategoryCommand(nullptr, &first, true));
    EXPECT_FALSE(list.AddCategoryCommand(nullptr, &first, false));
    EXPECT_FALSE(list.IsCategory("meter", ""));
    Named second("string", "");
    EXPECT_FALSE(list.AddCategoryCommand(nullptr, &second, false));
}

TEST(CMacroCategoryCmdList, RefusesNoCommandAtAll) {
    CMacroCategoryCmdList list("");
    Named companion("meter", "read");
    EXPECT_FALSE(list.AddCategoryCommand(nullptr, nullptr, false));
    EXPECT_FALSE(list.AddCategoryCommand(&companion, nullptr, true));
}

TEST(CMacroCategoryCmdList, TheFirstRegistrationOfANameStays) {
    CMacroCategoryCmdList list("");
    Named first("meter", "read", "alpha");
    Named second("meter", "read", "alpha");
    EXPECT_TRUE(list.AddCategoryCommand(nullptr, &first, false));
    EXPECT_TRUE(list.AddCategoryCommand(nullptr, &first, false));
    EXPECT_TRUE(list.AddCategoryCommand(nullptr, &second, false));
    // It still has one provider, and so needs no namespace.
    EXPECT_EQ(list.FindCommand("meter", "read"), &first);
    EXPECT_EQ(Call(list, "meter", "read"), "text \"meter.read.alpha\"");
    EXPECT_TRUE(list.SetCurrentNamespace("alpha"));
    EXPECT_EQ(list.FindCommand("meter", "read"), &first);
    Named format("string", "format");
    EXPECT_TRUE(list.AddCategoryCommand(nullptr, &format, false));
    EXPECT_NE(list.FindCommand("string", "format"), &format);
}

TEST(CMacroCategoryCmdList, TheCompanionIsKeptBesideTheCommand) {
    CMacroCategoryCmdList list("");
    Named command("meter", "read");
    Named companion("other", "names");
    EXPECT_TRUE(list.AddCategoryCommand(&companion, &command, false));
    EXPECT_FALSE(list.IsCategory("other", ""));
    const CommandEntry* const entry = list.FindEntry("meter", "read");
    ASSERT_NE(entry, nullptr);
    ASSERT_EQ(entry->providers.size(), 1U);
    EXPECT_EQ(entry->providers[0].command, &command);
    EXPECT_EQ(entry->providers[0].companion, &companion);
}

TEST(CMacroCategoryCmdList, OneProviderIsAlwaysReachable) {
    for (const char* initial : {"", "alpha", "beta", "unknown"}) {
        CMacroCategoryCmdList list(initial);
        Named alpha("meter", "read", "alpha");
        Named other("clock", "read", "beta");
        list.AddCategoryCommand(nullptr, &alpha, false);
        list.AddCategoryCommand(nullptr, &other, false);
        EXPECT_EQ(list.FindCommand("meter", "read"), &alpha);
        EXPECT_TRUE(list.SetCurrentNamespace("beta"));
        EXPECT_EQ(list.FindCommand("meter", "read"), &alpha);
        EXPECT_EQ(Call(list, "meter", "read"), "text \"meter.read.alpha\"");
    }
}

TEST(CMacroCategoryCmdList, OfSeveralProvidersTheNamespaceChooses) {
    CMacroCategoryCmdList list("");
    Named plain("meter", "read", "");
    Named alpha("meter", "read", "alpha");
    Named beta("meter", "read", "beta");
    Named gamma("clock", "read", "gamma");
    for (Named* command : {&plain, &alpha, &beta, &gamma})
        EXPECT_TRUE(list.AddCategoryCommand(nullptr, command, false));
    EXPECT_EQ(list.FindCommand("meter", "read"), &plain);
    EXPECT_TRUE(list.SetCurrentNamespace("beta"));
    EXPECT_EQ(list.FindCommand("meter", "read"), &beta);
    EXPECT_TRUE(list.SetCurrentNamespace("alpha"));
    EXPECT_EQ(Call(list, "meter", "read"), "text \"meter.read.alpha\"");
    EXPECT_TRUE(list.SetCurrentNamespace("gamma"));
    EXPECT_EQ(list.FindCommand("meter", "read"), nullptr);
    EXPECT_EQ(Call(list, "meter", "read"), Ambiguous("meter.read"));
    EXPECT_TRUE(list.SetCurrentNamespace(""));
    EXPECT_EQ(list.FindCommand("meter", "read"), &alpha);
}

TEST(CMacroCategoryCmdList, APlugInMayProvideABuiltInCommandOfItsOwn) {
    CMacroCategoryCmdList list("");
    CMacroCategoryBase* const builtin = list.FindCommand("string", "format");
    Named own("string", "format", "vendor");
    Named third("clock", "read", "third");
    EXPECT_TRUE(list.AddCategoryCommand(nullptr, &own, false));
    EXPECT_TRUE(list.AddCategoryCommand(nullptr, &third, false));
    EXPECT_EQ(list.FindCommand("string", "format"), builtin);
    EXPECT_TRUE(list.SetCurrentNamespace("vendor"));
    EXPECT_EQ(Call(list, "string", "format"), "text \"string.format.vendor\"");
    EXPECT_TRUE(list.SetCurrentNamespace("third"));
    EXPECT_EQ(Call(list, "string", "format"), Ambiguous("string.format"));
}

TEST(CMacroCategoryCmdList, TheFirstNamespaceComesFromTheConstructor) {
    CMacroCategoryCmdList list("vendor");
    Named own("string", "format", "vendor");
    list.AddCategoryCommand(nullptr, &own, false);
    EXPECT_EQ(list.FindCommand("string", "format"), &own);
    for (int i = 0; i < 3; ++i) {
        EXPECT_TRUE(list.SetCurrentNamespace(""));
        EXPECT_EQ(list.FindCommand("string", "format"), &own);
    }
}

TEST(CMacroCategoryCmdList, OnlyNamespacesOfRegisteredCommandsAreKnown) {
    CMacroCategoryCmdList list("initial");
    Named alpha("meter", "read", "alpha");
    EXPECT_FALSE(list.SetCurrentNamespace("alpha"));
    EXPECT_FALSE(list.SetCurrentNamespace("initial"));
    list.AddCategoryCommand(nullptr, &alpha, false);
    EXPECT_TRUE(list.SetCurrentNamespace("alpha"));
    EXPECT_FALSE(list.SetCurrentNamespace("Alpha"));
    EXPECT_FALSE(list.SetCurrentNamespace("initial"));
    // A registration that is refused makes no namespace known.
    Named refused("meter", "write", "beta");
    EXPECT_FALSE(list.AddCategoryCommand(nullptr, &refused, true));
    EXPECT_FALSE(list.SetCurrentNamespace("beta"));
}

TEST(CMacroCategoryCmdList, AProviderThatComesLaterTakesPart) {
    CMacroCategoryCmdList list("beta");
    Named alpha("meter", "read", "alpha");
    Named beta("meter", "read", "beta");
    list.AddCategoryCommand(nullptr, &alpha, false);
    CommandEntry* const entry = list.FindEntry("meter", "read");
    EXPECT_EQ(list.FindCommand("meter", "read"), &alpha);
    list.AddCategoryCommand(nullptr, &beta, false);
    EXPECT_EQ(list.FindEntry("meter", "read"), entry);
    EXPECT_EQ(list.FindCommand("meter", "read"), &beta);
}

TEST(CMacroCategoryCmdList, EntriesStayWhereTheyAre) {
    CMacroCategoryCmdList list("");
    std::vector<std::string> names;
    for (int i = 0; i < 1000; ++i)
        names.push_back("name" + std::to_string(i));
    std::vector<std::unique_ptr<Named>> commands;
    std::vector<CommandEntry*> entries;
    for (std::size_t i = 0; i < names.size(); ++i) {
        const char* const category = i % 2 == 0 ? names[i].c_str() : "shared";
        commands.push_back(std::make_unique<Named>(category, names[i].c_str()));
        ASSERT_TRUE(list.AddCategoryCommand(nullptr, commands.back().get(), false));
        entries.push_back(list.FindEntry(category, names[i]));
    }
    for (std::size_t i = 0; i < names.size(); ++i) {
        const char* const category = i % 2 == 0 ? names[i].c_str() : "shared";
        ASSERT_EQ(list.FindEntry(category, names[i]), entries[i]);
        ASSERT_EQ(entries[i]->GetName(), std::string(category) + "." + names[i]);
        ASSERT_EQ(list.FindCommand(category, names[i]), commands[i].get());
    }
}

TEST(CMacroCategoryCmdList, ACommandThatSetsNothingHasNoResult) {
    CMacroCategoryCmdList list("");
    EXPECT_EQ(Call(list, "using", "namespace"), "none");
}

/// Records that it is destroyed.
class Mortal : public Named {
public:
    explicit Mortal(int& deaths) : Named("mortal", "command"), deaths_(deaths) {}
    ~Mortal() override { ++deaths_; }

private:
    int& deaths_;
};

TEST(CMacroCategoryCmdList, DestroysWhatItOwnsAndNothingElse) {
    int deaths = 0;
    {
        Mortal outside(deaths);
        {
            CMacroCategoryCmdList list("");
            list.AddCategoryCommand(nullptr, &outside, false);
            // Refused as a second command of that name, but owned all the same.
            list.AddOwned(std::make_unique<Mortal>(deaths), false);
            EXPECT_EQ(list.FindCommand("mortal", "command"), &outside);
            EXPECT_EQ(deaths, 0);
        }
        EXPECT_EQ(deaths, 1);
    }
    EXPECT_EQ(deaths, 2);
}

TEST(CMacroCategoryBase, GivesBackWhatItWasMadeWith) {
    const char* const category = "meter";
    const char* const property = "read";
    const char* const nameSpace = "alpha";
    const struct {
        bool src;
        bool dest;
    } flags[] = {{false, false}, {false, true}, {true, false}, {true, true}};
    class Plain : public CMacroCategoryBase {
    public:
        using CMacroCategoryBase::CMacroCategoryBase;
        bool Run(CMacroPropertyIF*) override { return true; }
    };
    for (const auto& flag : flags) {
        const Plain command(category, property, flag.src, flag.dest, nameSpace);
        // The texts are not copied, and neither are they by a copy.
        const Plain copy(command);
        Plain assigned("other", "names", !flag.src, !flag.dest, "");
        assigned = command;
        for (const Plain* one : {&command, &copy, static_cast<const Plain*>(&assigned)}) {
            EXPECT_EQ(one->GetCategoryName(), category);
            EXPECT_EQ(one->GetPropertyName(), property);
            EXPECT_EQ(one->GetNameSpace(), nameSpace);
            EXPECT_EQ(one->CanAssignSrc(), flag.src);
            EXPECT_EQ(one->CanAssignDest(), flag.dest);
        }
    }
    const Plain null(nullptr, nullptr, false, false, nullptr);
    EXPECT_STREQ(null.GetCategoryName(), "");
    EXPECT_STREQ(null.GetPropertyName(), "");
    EXPECT_STREQ(null.GetNameSpace(), "");
}

TEST(CMacroCategoryBase, FindsCommandsOfTheListItIsIn) {
    CMacroCategoryCmdList list("alpha");
    Named alpha("meter", "read", "alpha");
    Named beta("meter", "read", "beta");
    Named clock("clock", "read", "beta");
    for (Named* command : {&alpha, &beta, &clock})
        list.AddCategoryCommand(nullptr, command, false);
    EXPECT_EQ(clock.GetMacroCategoryObject("meter", "read"), &alpha);
    EXPECT_EQ(clock.GetMacroCategoryObject("clock", "read"), &clock);
    EXPECT_NE(clock.GetMacroCategoryObject("string", "format"), nullptr);
    list.SetCurrentNamespace("beta");
    EXPECT_EQ(clock.GetMacroCategoryObject("meter", "read"), &beta);
    const struct {
        const char* category;
        const char* property;
    } unknown[] = {{"meter", "write"}, {"unknown", "read"}, {"meter", ""},
                   {"meter", nullptr}, {nullptr, "read"},   {nullptr, nullptr},
                   {"", ""},           {"wait_ms", ""},     {"Meter", "read"}};
    for (const auto& name : unknown)
        EXPECT_EQ(clock.GetMacroCategoryObject(name.category, name.property), nullptr);
}

TEST(CMacroCategoryBase, FindsNothingWithoutAList) {
    Named command("meter", "read");
    EXPECT_EQ(command.GetMacroCategoryObject("string", "format"), nullptr);
    CMacroCategoryCmdList list("");
    EXPECT_TRUE(command.SetMacroCategoryList(&list));
    EXPECT_NE(command.GetMacroCategoryObject("string", "format"), nullptr);
    const Named copy(command);
    EXPECT_NE(copy.GetMacroCategoryObject("string", "format"), nullptr);
    EXPECT_TRUE(command.SetMacroCategoryList(nullptr));
    EXPECT_EQ(command.GetMacroCategoryObject("string", "format"), nullptr);
}

}  // namespace
}  // namespace macroengine
