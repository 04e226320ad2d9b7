#include "runtime/CMacroStatementBase.h"

#include <gtest/gtest.h>
#include <string>

#include "unit/runtime/StatementOutcome.h"

namespace macroengine {
namespace {

using test::TakeErrorText;
using test::UnitOfFile;

/// A statement that adds nothing to the base.
class Plain : public CMacroStatementBase {
public:
    Plain(SourceUnit& unit, std::uint32_t line) : CMacroStatementBase(Kind::Operate, unit, line) {}
    using CMacroStatementBase::Fail;
};

TEST(CMacroStatementBase, TheBaseRunsNothingAndFails) {
    SourceUnit unit = UnitOfFile("a.mac");
    Plain statement(unit, 3);
    EXPECT_FALSE(statement.vfRun());
    EXPECT_EQ(TakeErrorText(statement.GetErrors()), "");
}

TEST(CMacroStatementBase, KnowsWhereItComesFrom) {
    SourceUnit unit = UnitOfFile("sub\\a.mac");
    unit.compileNumber = 2;
    Plain statement(unit, 3);
    EXPECT_EQ(&statement.GetUnit(), &unit);
    EXPECT_EQ(statement.GetFileName(), "sub\\a.mac");
    EXPECT_EQ(statement.GetCompileNumber(), 2U);
    EXPECT_EQ(statement.GetLineNumber(), 3U);
    statement.SetLineNumber(70000);
    EXPECT_EQ(statement.GetLineNumber(), 70000U);
}

TEST(CMacroStatementBase, GoesOnInOrderWithoutABreakAtConstruction) {
    SourceUnit unit = UnitOfFile("a.mac");
    Plain statement(unit, 3);
    EXPECT_EQ(statement.GetNextIndex(), -1);
    EXPECT_FALSE(statement.HasBreakFlag());
    EXPECT_FALSE(statement.IsBreakStatement());
    statement.SetBreakFlag(true);
    EXPECT_TRUE(statement.HasBreakFlag());
    EXPECT_FALSE(statement.IsBreakStatement());
}

TEST(CMacroStatementBase, AMessageCarriesTheFileAndTheLine) {
    const struct {
        const char* file;
        std::uint32_t line;
        const char* expected;
    } cases[] = {
        {"a.mac", 3, "a.mac(3): error : text"},
        {"", 3, "(3): error : text"},
        {"a.mac", 0, "a.mac: error : text"},
    };
    for (const auto& c : cases) {
        SourceUnit unit = UnitOfFile(c.file);
        Plain statement(unit, c.line);
        EXPECT_FALSE(statement.Fail("text"));
        EXPECT_EQ(TakeErrorText(statement.GetErrors()), c.expected);
    }
}

}  // namespace
}  // namespace macroengine
