#include "tests/model/ModelFixture.h"

namespace zntopo::test {

namespace {

using testing::ElementsAre;

const ObjID kGroup1("group 1");
const ObjID kGroup2("group 2");

ZNRefPtr<ZNInterface> hsrpInterface(bool inHSRP) {
  IFProperty property;
  property.capaSet = ZNInterfaceCapabilitySet(inHSRP ? 0x10UL : 0UL);
  return interfaceOf(ObjID("if"), ObjID("node"), property);
}

class HSRPMembershipTest : public ModelTest {
 protected:
  InetAddressIPv4 address_{"10.0.0.1", false, ObjID("a"), ObjID("if"), WorkingDB};
};

}  // namespace

TEST_F(HSRPMembershipTest, ASubnetAddressIsInNoGroupAndAsksNobody) {
  const InetAddressIPv4 subnet("10.0.0.0", true, ObjID("a"), ObjID("if"), ActiveDB);
  EXPECT_FALSE(subnet.isInHSRP());
  EXPECT_TRUE(subnet.getHSRPObjIDs().empty());
  EXPECT_TRUE(gateway().calls().empty());
}

TEST_F(HSRPMembershipTest, WithoutAnOwnerNobodyIsAskedAndTheLoadIsLeftUndone) {
  InetAddressIPv4 lonely("10.0.0.1", ActiveDB);
  EXPECT_FALSE(lonely.isInHSRP());
  EXPECT_TRUE(gateway().calls().empty());
  gateway().addInterface(hsrpInterface(true));
  lonely.setAssEntityID(ObjID("if"));
  EXPECT_TRUE(lonely.isInHSRP());
}

TEST_F(HSRPMembershipTest, TheOwnerIsAskedInTheActiveTablesAndOnce) {
  gateway().addInterface(hsrpInterface(true));
  gateway().answerHSRPObjIDs(ObjID("a"), {kGroup1, kGroup2});
  EXPECT_TRUE(address_.isInHSRP());
  EXPECT_THAT(address_.getHSRPObjIDs(), ElementsAre(kGroup1, kGroup2));
  EXPECT_TRUE(address_.isInHSRP());
  EXPECT_THAT(gateway().calls(),
              ElementsAre("getInterfaceByObjID(0, if)", "getHSRPObjIDsByIFAddressObjID(0, a, 0)"));
}

TEST_F(HSRPMembershipTest, AnOwnerOutsideHSRPSettlesTheMatter) {
  gateway().addInterface(hsrpInterface(false));
  EXPECT_FALSE(address_.isInHSRP());
  EXPECT_TRUE(address_.getHSRPObjIDs().empty());
  EXPECT_THAT(gateway().calls(), ElementsAre("getInterfaceByObjID(0, if)"));
}

TEST_F(HSRPMembershipTest, AnOwnerThatIsNotToBeHadIsAskedForAgain) {
  gateway().failWith("getInterfaceByObjID", ZN_API_INVALID_ID);
  EXPECT_FALSE(address_.isInHSRP());
  gateway().succeed("getInterfaceByObjID");
  EXPECT_FALSE(address_.isInHSRP());  // there is none
  gateway().addInterface(hsrpInterface(true));
  EXPECT_TRUE(address_.isInHSRP());
  EXPECT_EQ(3, gateway().callCount("getInterfaceByObjID"));
}

TEST_F(HSRPMembershipTest, AFailedListOfGroupsGivesTheOwnersAnswerAndIsAskedForAgain) {
  gateway().addInterface(hsrpInterface(true));
  gateway().answerHSRPObjIDs(ObjID("a"), {kGroup1});
  gateway().failWith("getHSRPObjIDsByIFAddressObjID", ZN_API_SQL_EXEC_ERROR);
  EXPECT_TRUE(address_.isInHSRP());
  EXPECT_TRUE(address_.getHSRPObjIDs().empty());
  gateway().succeed("getHSRPObjIDsByIFAddressObjID");
  EXPECT_THAT(address_.getHSRPObjIDs(), ElementsAre(kGroup1));
}

}  // namespace zntopo::test
