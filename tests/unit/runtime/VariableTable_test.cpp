#include "runtime/VariableTable.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "support/ValueDescription.h"

namespace macroengine {
namespace {

using test::Describe;
using test::Integer;

TEST(VariableTable, IsEmptyAtFirst) {
    const VariableTable variables;
    EXPECT_EQ(variables.GetCount(), 0U);
    EXPECT_EQ(variables.Find("x"), nullptr);
    EXPECT_EQ(variables.Find(""), nullptr);
}

TEST(VariableTable, AVariableExistsOnceSomethingWasAssigned) {
    VariableTable variables;
    Variable& variable = variables.Bind("x");
    EXPECT_EQ(variable.name, "x");
    EXPECT_EQ(Describe(variable.value), "none");
    EXPECT_EQ(variables.Find("x"), nullptr);
    variable.value = Integer(1);
    ASSERT_EQ(variables.Find("x"), &variable);
    EXPECT_EQ(Describe(variables.Find("x")->value), "integer 1");
}

TEST(VariableTable, OneNameIsOneVariable) {
    VariableTable variables;
    Variable& first = variables.Bind("value");
    EXPECT_EQ(&variables.Bind(std::string("val") + "ue"), &first);
    EXPECT_EQ(variables.GetCount(), 1U);
}

TEST(VariableTable, NamesCompareByteByByte) {
    VariableTable variables;
    const std::vector<std::string> names = {"value", "Value", "VALUE", "value1",    "_",     "\x83\\",
                                            "\x83",  "",      "v",     "value\xFF", "val ue"};
    for (const std::string& name : names)
        variables.Bind(name).value = Integer(static_cast<int>(name.size()));
    EXPECT_EQ(variables.GetCount(), names.size());
    for (const std::string& name : names) {
        ASSERT_NE(variables.Find(name), nullptr) << name;
        EXPECT_EQ(variables.Find(name)->name, name);
        EXPECT_EQ(Describe(variables.Find(name)->value), "integer " + std::to_string(name.size())) << name;
    }
    EXPECT_EQ(variables.Find("valu"), nullptr);
    EXPECT_EQ(variables.Find("vALUE"), nullptr);
}

TEST(VariableTable, NamesOfOneHashAreTwoVariables) {
    VariableTable variables;
    variables.Bind("costarring").value = Integer(1);
    variables.Bind("liquid").value = Integer(2);
    EXPECT_EQ(variables.GetCount(), 2U);
    EXPECT_EQ(Describe(variables.Find("costarring")->value), "integer 1");
    EXPECT_EQ(Describe(variables.Find("liquid")->value), "integer 2");
}

TEST(VariableTable, AVariableNeverMoves) {
    VariableTable variables;
    std::vector<Variable*> bound;
    for (int i = 0; i < 10000; ++i)
        bound.push_back(&variables.Bind("variable" + std::to_string(i)));
    for (int i = 0; i < 10000; ++i) {
        const std::string name = "variable" + std::to_string(i);
        ASSERT_EQ(&variables.Bind(name), bound[static_cast<std::size_t>(i)]);
        ASSERT_EQ(bound[static_cast<std::size_t>(i)]->name, name);
    }
    EXPECT_EQ(variables.GetCount(), 10000U);
}

}  // namespace
}  // namespace macroengine
