#include <gtest/gtest.h>

#include "zntopo/model/ZNConnData.h"
#include "zntopo/model/ZNConnection.h"

namespace zntopo::test {

namespace {

const ObjID kNull;

}  // namespace

TEST(ConnDataTest, AnInterfaceIsTheSourceOrTheDestination) {
  const ZNConnData data("i1", "i2", "n1", "n2", true);
  bool isSrc = false;
  EXPECT_TRUE(data.isInterfacePartOfConnection("i1", isSrc));
  EXPECT_TRUE(isSrc);
  EXPECT_TRUE(data.isInterfacePartOfConnection("i2", isSrc));
  EXPECT_FALSE(isSrc);
}

TEST(ConnDataTest, AnotherInterfaceLeavesTheSideAlone) {
  const ZNConnData data("i1", "i2", "n1", "n2", true);
  bool isSrc = true;
  EXPECT_FALSE(data.isInterfacePartOfConnection("i3", isSrc));
  EXPECT_TRUE(isSrc);
}

TEST(ConnDataTest, AnInterfaceThatIsBothIsTheDestination) {
  const ZNConnData data("i1", "i1", "n1", "n2", true);
  bool isSrc = true;
  EXPECT_TRUE(data.isInterfacePartOfConnection("i1", isSrc));
  EXPECT_FALSE(isSrc);
}

TEST(ConnDataTest, ItIsPopulatedWithAllFourIdentifiers) {
  EXPECT_TRUE(ZNConnData("i1", "i2", "n1", "n2", true).isPopulated());
  EXPECT_FALSE(ZNConnData(kNull, "i2", "n1", "n2", true).isPopulated());
  EXPECT_FALSE(ZNConnData("i1", kNull, "n1", "n2", true).isPopulated());
  EXPECT_FALSE(ZNConnData("i1", "i2", kNull, "n2", true).isPopulated());
  EXPECT_FALSE(ZNConnData("i1", "i2", "n1", kNull, true).isPopulated());
}

TEST(ConnDataTest, TheNodesCanBeSet) {
  ZNConnData data("i1", "i2", kNull, kNull, false);
  data.setSrcNodeObjID("n1");
  data.setDestNodeObjID("n2");
  EXPECT_EQ(ObjID("n1"), data.getSrcNodeObjID());
  EXPECT_EQ(ObjID("n2"), data.getDestNodeObjID());
}

TEST(ConnectionTest, TheTextBeginsWithTheOwnSide) {
  const ZNConnection nodeSide(ZNConnData("i1", "i2", "n1", "n2", true));
  EXPECT_EQ("\n ([ n1 ,i1], [n2 ,i2] )", nodeSide.toString());
  const ZNConnection farSide(ZNConnData("i1", "i2", "n1", "n2", false));
  EXPECT_EQ("\n ([ n2 ,i2], [n1 ,i1] )", farSide.toString());
  EXPECT_EQ(ObjID("i1"), farSide.getSrcInterfaceObjID());
  EXPECT_EQ(ObjID("n2"), farSide.getDestNodeObjID());
}

}  // namespace zntopo::test
