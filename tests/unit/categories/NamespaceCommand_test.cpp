#include "categories/NamespaceCommand.h"

#include <gtest/gtest.h>
#include <string>

#include "macroengine/CMacroPropertyIF.h"
#include "support/CommandCaller.h"

namespace macroengine {
namespace {

using test::ArrayOf;
using test::Boolean;
using test::CommandCaller;
using test::Error;
using test::Floating;
using test::Integer;
using test::Text;

/// `meter.read()` of a namespace.
class MeterRead : public CMacroCategoryBase {
public:
    explicit MeterRead(const char* nameSpace) : CMacroCategoryBase("meter", "read", true, false, nameSpace) {}

    bool Run(CMacroPropertyIF* property) override { return property->SetResultString(GetNameSpace()); }
};

class UsingNamespace : public testing::Test {
protected:
    UsingNamespace() {
        caller_.GetList().AddCategoryCommand(nullptr, &alpha_, false);
        caller_.GetList().AddCategoryCommand(nullptr, &beta_, false);
    }

    std::string Use(const char* name) { return caller_.Call("using.namespace", {Text(name)}); }
    std::string GoBack() { return caller_.Call("using.namespace", {}); }
    std::string Read() { return caller_.Call("meter.read", {}); }

    MeterRead alpha_{"alpha"};
    MeterRead beta_{"beta"};
    CommandCaller caller_;
};

const std::string kAmbiguous = Error("meter.read() didn't support category command.");

TEST_F(UsingNamespace, MakesANamespaceCurrent) {
    EXPECT_EQ(Read(), kAmbiguous);
    EXPECT_EQ(Use("alpha"), "none");
    EXPECT_EQ(Read(), "text \"alpha\"");
    EXPECT_EQ(Use("beta"), "none");
    EXPECT_EQ(Read(), "text \"beta\"");
}

TEST_F(UsingNamespace, WithoutAnArgumentGoesBackButNeverBelowTheFirst) {
    Use("alpha");
    Use("beta");
    Use("beta");
    EXPECT_EQ(GoBack(), "none");
    EXPECT_EQ(Read(), "text \"beta\"");
    EXPECT_EQ(GoBack(), "none");
    EXPECT_EQ(Read(), "text \"alpha\"");
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(GoBack(), "none");
        EXPECT_EQ(Read(), kAmbiguous);
    }
    Use("beta");
    EXPECT_EQ(Read(), "text \"beta\"");
}

TEST_F(UsingNamespace, AnUnknownNamespaceIsRefusedAndChangesNothing) {
    Use("alpha");
    for (const char* name : {"gamma", "Alpha", "ALPHA", "alpha ", " ", "alph", "meter", "wait_ms"}) {
        EXPECT_EQ(Use(name), Error("Error: " + std::string(name) + " is invalid namespace"));
        EXPECT_EQ(Read(), "text \"alpha\"");
    }
    EXPECT_EQ(GoBack(), "none");
    EXPECT_EQ(Read(), kAmbiguous);
}

TEST_F(UsingNamespace, TheEmptyTextIsRefused) {
    Use("alpha");
    EXPECT_EQ(Use(""), Error("Error: namespace is null string"));
    EXPECT_EQ(Read(), "text \"alpha\"");
}

TEST_F(UsingNamespace, NeedsATextOrNothing) {
    for (const CMacroCommonValue& other :
         {Integer(1), Floating(1.0), Boolean(true), ArrayOf({Text("alpha")})}) {
        EXPECT_EQ(caller_.Call("using.namespace", {other}),
                  Error("using.namespace() argument error. (argument[0] type isn't string)"));
    }
    EXPECT_EQ(caller_.Call("using.namespace", {Text("alpha"), Text("beta")}),
              Error("using.namespace() argument error. (argument count is invalid)"));
}

TEST_F(UsingNamespace, CanNotBeAssignedTo) {
    const CMacroCommonValue assigned = Text("x");
    EXPECT_EQ(caller_.Call("using.namespace", {Text("alpha")}, &assigned),
              Error("assigned value isn't needed at using.namespace()"));
    // The text is looked at first.
    EXPECT_EQ(caller_.Call("using.namespace", {Text("")}, &assigned),
              Error("Error: namespace is null string"));
    EXPECT_EQ(Read(), kAmbiguous);
}

}  // namespace
}  // namespace macroengine
