#include <gtest/gtest.h>
#include <string>

#include "api/MacroHost.h"

namespace macroengine {
namespace {

using test::MacroHost;
using test::ProbeCommand;

/// A command that gives a name of its own.
ProbeCommand::Action Give(const std::string& name) {
    return [name](CMacroPropertyIF* property) { return property->SetResultString(name.c_str()); };
}

/// `x = meter.read()` of three providers, `string.format` of one beside the built-in, and `clock.read` of
/// one.
class Providers {
public:
    explicit Providers(MacroHost& host) {
        for (ProbeCommand* command : {&alpha_, &beta_, &format_, &clock_})
            host->RegisterCategory(nullptr, command, false);
    }

    ProbeCommand& GetAlpha() { return alpha_; }
    ProbeCommand& GetBeta() { return beta_; }
    ProbeCommand& GetFormat() { return format_; }

private:
    ProbeCommand alpha_{Give("alpha"), "meter", "read", "alpha"};
    ProbeCommand beta_{Give("beta"), "meter", "read", "beta"};
    ProbeCommand format_{Give("alpha's format"), "string", "format", "alpha"};
    ProbeCommand clock_{Give("clock"), "clock", "read", "third"};
};

std::string Output(const std::string& text, const std::string& nameSpace = "") {
    MacroHost host(nameSpace);
    Providers providers(host);
    return host.Output(text);
}

TEST(Namespaces, OneProviderIsAlwaysReachable) {
    const std::string read = "x = clock.read()\ntest.put(x)\n";
    EXPECT_EQ(Output(read), "clock");
    EXPECT_EQ(Output(read, "alpha"), "clock");
    EXPECT_EQ(Output("using.namespace(\"beta\")\n" + read), "clock");
}

TEST(Namespaces, OfSeveralProvidersTheCurrentNamespaceChooses) {
    EXPECT_EQ(Output(R"(
using.namespace("beta")
x = meter.read()
using.namespace("alpha")
y = meter.read()
using.namespace()
z = meter.read()
test.put(x, y, z)
)"),
              "beta alpha beta");
}

TEST(Namespaces, WithoutOneThatFitsTheCallFails) {
    const std::string read = "x = meter.read()\n";
    EXPECT_EQ(Output(read),
              "a.mac(1): error : meter.read() didn't support category command.\n"
              "a.mac(1): error : run time error !");
    EXPECT_EQ(Output(read, "gamma"),
              "a.mac(1): error : meter.read() didn't support category command.\n"
              "a.mac(1): error : run time error !");
    EXPECT_EQ(Output("using.namespace(\"third\")\n" + read),
              "a.mac(2): error : meter.read() didn't support category command.\n"
              "a.mac(2): error : run time error !");
}

TEST(Namespaces, ABuiltInCommandBelongsToTheEmptyOne) {
    const std::string format = "x = string.format(\"%d\", 5)\ntest.put(x)\n";
    EXPECT_EQ(Output(format), "5");
    EXPECT_EQ(Output("using.namespace(\"alpha\")\n" + format), "alpha's format");
    EXPECT_EQ(Output("using.namespace(\"alpha\")\nusing.namespace()\n" + format), "5");
    EXPECT_EQ(Output("using.namespace(\"beta\")\n" + format),
              "a.mac(2): error : string.format() didn't support category command.\n"
              "a.mac(2): error : run time error !");
    // What has one provider only stays reachable.
    EXPECT_EQ(Output("using.namespace(\"beta\")\nx = string.int2dec(5)\ntest.put(x)\n"), "5");
}

TEST(Namespaces, TheFactoryGivesTheFirstOne) {
    EXPECT_EQ(Output("x = meter.read()\ntest.put(x)\n", "beta"), "beta");
    EXPECT_EQ(Output("x = string.format(\"%d\", 5)\ntest.put(x)\n", "alpha"), "alpha's format");
    // It is never left behind.
    EXPECT_EQ(Output("using.namespace()\nusing.namespace()\nx = meter.read()\ntest.put(x)\n", "beta"),
              "beta");
    EXPECT_EQ(
        Output("using.namespace(\"alpha\")\nusing.namespace()\nx = meter.read()\ntest.put(x)\n", "beta"),
        "beta");
}

TEST(Namespaces, OnlyThoseOfRegisteredCommandsAreKnown) {
    const struct {
        const char* argument;
        const char* expected;
    } cases[] = {
        {"\"gamma\"", "Error: gamma is invalid namespace"},
        {"\"Alpha\"", "Error: Alpha is invalid namespace"},
        {"\"first\"", "Error: first is invalid namespace"},
        {"\"\"", "Error: namespace is null string"},
        {"1", "using.namespace() argument error. (argument[0] type isn't string)"},
        {"\"alpha\", \"beta\"", "using.namespace() argument error. (argument count is invalid)"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(Output("using.namespace(" + std::string(c.argument) + ")\n", "first"),
                  "a.mac(1): error : " + std::string(c.expected) + "\na.mac(1): error : run time error !");
    }
}

TEST(Namespaces, AreChosenWhenTheCallRuns) {
    EXPECT_EQ(Output(R"(
i = 0
loop i < 4
    if i == 0 || i == 2
        using.namespace("alpha")
    else
        using.namespace("beta")
    endif
    x = meter.read()
    test.put(i, x)
    i = i + 1
endloop
)"),
              "0 alpha\n1 beta\n2 alpha\n3 beta");
}

TEST(Namespaces, StayFromOneRunToTheNext) {
    MacroHost host;
    Providers providers(host);
    EXPECT_EQ(host.Output("using.namespace(\"beta\")\n"), "");
    EXPECT_EQ(host.Output("x = meter.read()\ntest.put(x)\n"), "beta");
}

TEST(Namespaces, EachFileHasItsOwn) {
    MacroHost first;
    MacroHost second;
    Providers ofFirst(first);
    Providers ofSecond(second);
    EXPECT_EQ(first.Output("using.namespace(\"beta\")\n"), "");
    EXPECT_EQ(second.Output("x = meter.read()\n"),
              "a.mac(1): error : meter.read() didn't support category command.\n"
              "a.mac(1): error : run time error !");
}

TEST(Namespaces, TheHostFindsWhatAScriptWouldRun) {
    MacroHost host;
    CMacroCategoryBase* const builtin = host->FindCommand("string", "format");
    Providers providers(host);
    EXPECT_EQ(host->FindCommand("meter", "read"), nullptr);
    EXPECT_EQ(host->FindCommand("string", "format"), builtin);
    host.Output("using.namespace(\"alpha\")\n");
    EXPECT_EQ(host->FindCommand("meter", "read"), &providers.GetAlpha());
    EXPECT_EQ(host->FindCommand("string", "format"), &providers.GetFormat());
    EXPECT_EQ(providers.GetBeta().GetMacroCategoryObject("meter", "read"), &providers.GetAlpha());
}

TEST(Namespaces, ACommandOfTheirNamesIsKnownWhateverTheNamespace) {
    // A call is refused by the run, not by the load.
    MacroHost host;
    Providers providers(host);
    EXPECT_TRUE(host.Load("x = meter.read()\n"));
    EXPECT_FALSE(host.Load("x = meter.write()\n"));
    EXPECT_EQ(host.TakeErrors(), "a.mac(1): error : \"write\" is not property of category(meter).");
}

}  // namespace
}  // namespace macroengine
