// The state setters of nodes and interfaces: what they ask, write and tell, and what a failure
// leaves behind.
#include "tests/model/ModelFixture.h"

namespace zntopo::test {

namespace {

using testing::ElementsAre;

/// One setter: an object and the call that gives it a new state.
struct Setter {
  const char* name;
  ZNTopoAPIStatus (*change)(ZNNode&, ZNInterface&, bool updateDB);
  int (*current)(const ZNNode&, const ZNInterface&);
  int newState;
  const char* write;
  const char* writeCall;
  const char* sendCall;
};

void PrintTo(const Setter& setter, std::ostream* out) { *out << setter.name; }

const Setter kSetters[] = {
    {"SnmpState",
     [](ZNNode& node, ZNInterface&, bool updateDB) {
       return node.setSnmpState(UNREACHABLE, updateDB);
     },
     [](const ZNNode& node, const ZNInterface&) { return int(node.getSnmpState()); }, UNREACHABLE,
     "setNWNodeStatus", "setNWNodeStatus(1, n, 2, 6)",
     "sendAttributeNotification(1, n, 5, 2, NULL, 0)"},
    {"IfAdminStatus",
     [](ZNNode&, ZNInterface& interface, bool updateDB) {
       return interface.setIfAdminStatus(Down, updateDB);
     },
     [](const ZNNode&, const ZNInterface& interface) { return int(interface.getIfAdminStatus()); },
     Down, "setNWInterfaceState", "setNWInterfaceState(1, i, 2, 0)",
     "sendAttributeNotification(2, i, 2, 2, NULL, 0)"},
    {"IfOperStatus",
     [](ZNNode&, ZNInterface& interface, bool updateDB) {
       return interface.setIfOperStatus(dormant, updateDB);
     },
     [](const ZNNode&, const ZNInterface& interface) { return int(interface.getIfOperStatus()); },
     dormant, "setNWInterfaceState", "setNWInterfaceState(1, i, 5, 1)",
     "sendAttributeNotification(2, i, 3, 5, NULL, 0)"},
};

class StateSetterTest : public ModelTest, public testing::WithParamInterface<Setter> {
 protected:
  ZNTopoStatus change(bool updateDB) {
    return GetParam().change(node_, interface_, updateDB).getStatus();
  }
  int current() const { return GetParam().current(node_, interface_); }

  ZNNode node_{entityOf(ObjID("n"), E_Node, WorkingDB)};
  ZNInterface interface_{entityOf(ObjID("i"), E_Interface, WorkingDB)};
};

}  // namespace

TEST_P(StateSetterTest, NothingChangesWhileTheTopologyIsNotReady) {
  const int before = current();
  gateway().topoMode = 2;
  EXPECT_EQ(ZN_API_DB_NOT_READY, change(true));
  EXPECT_EQ(before, current());
  EXPECT_THAT(gateway().calls(), ElementsAre("getTopoMode(1)"));
}

TEST_P(StateSetterTest, WithoutUpdateOnlyTheObjectChanges) {
  EXPECT_EQ(ZN_API_SUCCESS, change(false));
  EXPECT_EQ(GetParam().newState, current());
  EXPECT_THAT(gateway().calls(), ElementsAre("getTopoMode(1)"));
}

TEST_P(StateSetterTest, WithUpdateTheStoreIsWrittenAndTheWorldIsTold) {
  EXPECT_EQ(ZN_API_SUCCESS, change(true));
  EXPECT_THAT(gateway().calls(), ElementsAre("getTopoMode(1)", GetParam().writeCall,
                                             "ensureNotificationClient()", GetParam().sendCall));
}

TEST_P(StateSetterTest, AFailedWriteLeavesTheObjectChangedAndTellsNobody) {
  gateway().failWith(GetParam().write, ZN_API_SQL_EXEC_ERROR);
  EXPECT_EQ(ZN_API_SQL_EXEC_ERROR, change(true));
  EXPECT_EQ(GetParam().newState, current());
  EXPECT_EQ(0, gateway().callCount("sendAttributeNotification"));
}

TEST_P(StateSetterTest, WithoutAClientItsStatusComesBackAndTheObjectStaysChanged) {
  gateway().failWith("ensureNotificationClient", ZN_API_NOTIFCHANNEL_CREATION_ERROR);
  EXPECT_EQ(ZN_API_NOTIFCHANNEL_CREATION_ERROR, change(true));
  EXPECT_EQ(GetParam().newState, current());
  EXPECT_EQ(1, gateway().callCount(GetParam().write));
  EXPECT_EQ(0, gateway().callCount("sendAttributeNotification"));
}

TEST_P(StateSetterTest, TheStatusOfTheSendComesBack) {
  gateway().failWith("sendAttributeNotification", ZN_API_ATTR_NOTIF_GEN_ERROR);
  EXPECT_EQ(ZN_API_ATTR_NOTIF_GEN_ERROR, change(true));
}

INSTANTIATE_TEST_SUITE_P(All, StateSetterTest, testing::ValuesIn(kSetters),
                         [](const auto& test) { return test.param.name; });

using SameStateTest = ModelTest;

TEST_F(SameStateTest, AnInterfacesOwnStateIsNeitherWrittenNorTold) {
  ZNInterface interface(entityOf(ObjID("i"), E_Interface));
  EXPECT_TRUE(interface.setIfOperStatus(up, true).isOK());
  EXPECT_TRUE(interface.setIfAdminStatus(Up, true).isOK());
  EXPECT_EQ(0, gateway().callCount("setNWInterfaceState"));
  EXPECT_EQ(0, gateway().callCount("sendAttributeNotification"));
}

TEST_F(SameStateTest, ANodesOwnSnmpStateIsWrittenAndTold) {
  ZNNode node(entityOf(ObjID("n"), E_Node));
  EXPECT_TRUE(node.setSnmpState(RESPONDING, true).isOK());
  EXPECT_EQ(1, gateway().callCount("setNWNodeStatus"));
  EXPECT_EQ(1, gateway().callCount("sendAttributeNotification"));
}

using L2DomainTest = ModelTest;

TEST_F(L2DomainTest, ANodesDomainIsStoredFirstAndNobodyIsTold) {
  ZNNode node(entityOf(ObjID("n"), E_Node, WorkingDB));
  gateway().topoMode = 1;  // neither asks for readiness
  EXPECT_TRUE(node.setL2DomainID(5).isOK());
  EXPECT_EQ(5, node.getL2DomainID());
  EXPECT_THAT(gateway().calls(), ElementsAre("setL2DomainIdOfNode(1, n, 5)"));
}

TEST_F(L2DomainTest, AnInterfacesDomainIsWrittenThroughACopyThatHasIt) {
  ZNInterface interface(entityOf(ObjID("i"), E_Interface, WorkingDB));
  EXPECT_TRUE(interface.setL2DomainID(6).isOK());
  EXPECT_EQ(6, interface.getL2DomainID());
  EXPECT_THAT(gateway().calls(), ElementsAre("setL2DomainIdOfInterface(1, i, 6, 6)"));
}

TEST_F(L2DomainTest, TheNewDomainStaysAfterAFailure) {
  ZNNode node(entityOf(ObjID("n"), E_Node));
  ZNInterface interface(entityOf(ObjID("i"), E_Interface));
  gateway().failWith("setL2DomainIdOfNode", ZN_API_SQL_EXEC_ERROR);
  gateway().failWith("setL2DomainIdOfInterface", ZN_API_SQL_EXEC_ERROR);
  EXPECT_EQ(ZN_API_SQL_EXEC_ERROR, node.setL2DomainID(5).getStatus());
  EXPECT_EQ(ZN_API_SQL_EXEC_ERROR, interface.setL2DomainID(6).getStatus());
  EXPECT_EQ(5, node.getL2DomainID());
  EXPECT_EQ(6, interface.getL2DomainID());
}

}  // namespace zntopo::test
