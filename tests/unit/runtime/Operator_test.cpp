#include "runtime/Operator.h"

#include <gtest/gtest.h>
#include <string>

namespace macroengine {
namespace {

TEST(Operator, EveryTextMeansItsOperator) {
    const struct {
        const char* text;
        Operator expected;
    } cases[] = {
        {"+", Operator::Add},         {"-", Operator::Subtract},
        {"*", Operator::Multiply},    {"/", Operator::Divide},
        {"&", Operator::And},         {"|", Operator::Or},
        {"<<", Operator::ShiftLeft},  {">>", Operator::ShiftRight},
        {"==", Operator::Equal},      {"!=", Operator::NotEqual},
        {"<", Operator::Less},        {"<=", Operator::LessOrEqual},
        {">", Operator::Greater},     {">=", Operator::GreaterOrEqual},
        {"&&", Operator::LogicalAnd}, {"||", Operator::LogicalOr},
    };
    for (const auto& c : cases)
        EXPECT_EQ(OperatorFromText(c.text), c.expected) << c.text;
}

TEST(Operator, AnyOtherTextIsUnknown) {
    for (const char* text :
         {"", " ", "%", "^", "=", "!", "=>", "=<", "<>", "++", "+ ", " +", "<<<", "&&&", "a"})
        EXPECT_EQ(OperatorFromText(text), Operator::Unknown) << text;
    EXPECT_EQ(OperatorFromText(std::string("+\0", 2)), Operator::Unknown);
}

}  // namespace
}  // namespace macroengine
