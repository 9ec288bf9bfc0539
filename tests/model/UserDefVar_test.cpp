#include "zntopo/model/UserDefVar.h"

#include <gtest/gtest.h>

namespace zntopo::test {
namespace {

TEST(UserDefVarTest, ADefaultVariableHasNoNameAndACapabilityAsItsValue) {
  const UserDefVar var;
  EXPECT_EQ("", var.getName());
  EXPECT_EQ(VarValue::VT_Capability, var.getValue().getValType());
}

TEST(UserDefVarTest, NameAndValueAreReadAsTheyWereSet) {
  UserDefVar var("Rack", VarValue(4));
  EXPECT_EQ("Rack", var.getName());
  EXPECT_EQ(4, var.getValue().getLongVal());
  var.setName("Row");
  var.setValue(VarValue("B"));
  EXPECT_EQ("Row", var.getName());
  EXPECT_EQ("B", var.getValue().getStrVal());
}

TEST(UserDefVarTest, ACopyIsAValueOfItsOwn) {
  UserDefVar source("Key", VarValue("abc", 3U));
  const UserDefVar copy(source);
  source.setValue(VarValue("xyz", 3U));
  EXPECT_EQ("Key", copy.getName());
  EXPECT_TRUE(copy.getValue() == VarValue("abc", 3U));
}

TEST(UserDefVarTest, TheTextIsTheNameAndTheTextOfTheValue) {
  EXPECT_EQ("\nVarName:Rack\nVarValueType:long\tVarValue:4",
            UserDefVar("Rack", VarValue(4)).toString());
}

}  // namespace
}  // namespace zntopo::test
