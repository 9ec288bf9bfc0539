#include <gtest/gtest.h>

#include "zntopo/model/ContainmentAss.h"
#include "zntopo/model/RelatedToAss.h"

namespace zntopo::test {
namespace {

void expectEnd(const AssEndPoint& end, const std::string& name, const ObjID& id, EntityType type) {
  EXPECT_EQ(name, end.getName());
  EXPECT_EQ(id, end.getObjID());
  EXPECT_EQ(type, end.getType());
}

TEST(AssEndPointTest, ADefaultEndIsNull) { expectEnd(AssEndPoint(), "", ObjID(), E_Unknown); }

TEST(AssEndPointTest, FieldsAreReadAsTheyWereSetAndCopied) {
  AssEndPoint end("hall", ObjID("h1"), E_IfC);
  const AssEndPoint copy(end);
  end.setName("node");
  end.setObjID(ObjID("n1"));
  end.setType(E_Node);
  expectEnd(end, "node", ObjID("n1"), E_Node);
  end.setObjID(12L);
  expectEnd(end, "node", ObjID(12), E_Node);
  expectEnd(copy, "hall", ObjID("h1"), E_IfC);
}

TEST(ContainmentAssTest, ContainerAndContentsAreReadAsTheyWereSet) {
  EXPECT_TRUE(ContainmentAss().getContained().empty());
  expectEnd(ContainmentAss().getContainer(), "", ObjID(), E_Unknown);
  ContainmentAss containment(AssEndPoint("hall", ObjID("h1"), E_IfC),
                             {AssEndPoint("a", ObjID("a1"), E_Node)});
  expectEnd(containment.getContainer(), "hall", ObjID("h1"), E_IfC);
  ASSERT_EQ(1u, containment.getContained().size());
  expectEnd(containment.getContained().front(), "a", ObjID("a1"), E_Node);
  containment.setContainer(AssEndPoint("room", ObjID("r1"), E_IfC));
  containment.setContained({});
  expectEnd(containment.getContainer(), "room", ObjID("r1"), E_IfC);
  EXPECT_TRUE(containment.getContained().empty());
}

TEST(RelatedToAssTest, TheShortConstructorLeavesTheNodesNull) {
  const RelatedToAss relation(AssEndPoint("l", ObjID("l1"), E_Interface),
                              AssEndPoint("r", ObjID("r1"), E_Interface), 10000000000ULL, 1, 2,
                              true);
  expectEnd(relation.getLeftEnd(), "l", ObjID("l1"), E_Interface);
  expectEnd(relation.getRightEnd(), "r", ObjID("r1"), E_Interface);
  EXPECT_EQ(10000000000ULL, relation.getSpeed());
  EXPECT_EQ(1, relation.getProtocol());
  EXPECT_EQ(2, relation.getRelType());
  EXPECT_TRUE(relation.isDuplex());
  EXPECT_TRUE(relation.getLeftNodeID().isNull());
  EXPECT_TRUE(relation.getRightNodeID().isNull());
}

TEST(RelatedToAssTest, TheLongConstructorAndTheSettersSetEachField) {
  RelatedToAss relation(AssEndPoint(), AssEndPoint(), 1, 2, 3, false, ObjID("ln"), ObjID("rn"));
  EXPECT_EQ(ObjID("ln"), relation.getLeftNodeID());
  EXPECT_EQ(ObjID("rn"), relation.getRightNodeID());
  relation.setLeftEnd(AssEndPoint("l", ObjID("l1"), E_Interface));
  relation.setRightEnd(AssEndPoint("r", ObjID("r1"), E_Interface));
  relation.setSpeed(4);
  relation.setProtocol(5);
  relation.setRelType(6);
  relation.setDuplexMode(true);
  relation.setLeftNodeID(ObjID("a"));
  relation.setRightNodeID(ObjID("b"));
  const RelatedToAss copy(relation);
  expectEnd(copy.getLeftEnd(), "l", ObjID("l1"), E_Interface);
  expectEnd(copy.getRightEnd(), "r", ObjID("r1"), E_Interface);
  EXPECT_EQ(4u, copy.getSpeed());
  EXPECT_EQ(5, copy.getProtocol());
  EXPECT_EQ(6, copy.getRelType());
  EXPECT_TRUE(copy.isDuplex());
  EXPECT_EQ(ObjID("a"), copy.getLeftNodeID());
  EXPECT_EQ(ObjID("b"), copy.getRightNodeID());
}

}  // namespace
}  // namespace zntopo::test
