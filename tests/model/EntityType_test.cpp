#include "zntopo/model/EntityType.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>

namespace zntopo::test {
namespace {

constexpr std::pair<EntityType, const char*> kTexts[] = {
    {E_Unknown, "Unknown"},
    {E_Node, "Node"},
    {E_Interface, "Interface"},
    {E_LogicalInterface, "LogicalInterface"},
    {E_Vlan, "Vlan"},
    {E_Card, "Card"},
    {E_PSU, "PSU"},
    {E_Subnet, "Subnet"},
    {E_Module, "Module"},
    {E_Mesh, "Mesh"},
    {E_HSRP, "HSRP"},
    {E_IfC, "InterfaceContainer"},
};

TEST(EntityTypeTest, EachKindHasItsStoredNumber) {
  const int numbers[] = {0, 1, 2, 3, 4, 5, 6, 7, 8, 10, 11, 12};
  int index = 0;
  for (const auto& [type, text] : kTexts) EXPECT_EQ(numbers[index++], type) << text;
  EXPECT_EQ(25, E_Address);
}

TEST(EntityTypeTest, EachKindHasItsText) {
  for (const auto& [type, text] : kTexts) EXPECT_EQ(text, getEntityTypeAsString(type));
}

TEST(EntityTypeTest, AnAddressAndNumbersThatAreNoKindAreAnInvalidType) {
  for (const int number : {-1, 9, 13, 24, 25, 26, 1000}) {
    EXPECT_EQ("InvalidType", getEntityTypeAsString(static_cast<EntityType>(number))) << number;
  }
  EXPECT_EQ("InvalidType", getEntityTypeAsString(E_Address));
}

TEST(EntityTypeTest, EachKindButAnAddressComesBackFromItsNumber) {
  for (const auto& [type, text] : kTexts) {
    EXPECT_EQ(type, getEntityTypeFromInt(type)) << text;
    EXPECT_EQ(type, getEntityTypeAsShort(type)) << text;
  }
  EXPECT_EQ(25, getEntityTypeAsShort(E_Address));
}

TEST(EntityTypeTest, NumbersThatAreNoKindAndThatOfAnAddressGiveUnknown) {
  for (const int number : {-1, 9, 13, 25, 65537}) {
    EXPECT_EQ(E_Unknown, getEntityTypeFromInt(number)) << number;
  }
}

}  // namespace
}  // namespace zntopo::test
