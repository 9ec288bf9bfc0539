// The state setters of objects that were read from a real store.

#include "tests/support/ApiFixture.h"
#include "zntopo/model/TopologyGateway.h"

namespace zntopo::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

const std::string kNode = uuid(1);
const std::string kInterface = uuid(2, 'b');
const std::string kAddress = uuid(3, 'c');
const std::string kGroup = uuid(4, 'd');
const std::string kContainer = uuid(5, 'd');

/// A store with an object of each kind, in both sets.
class SettersTest : public ApiTest {
 protected:
  void SetUp() override {
    ApiTest::SetUp();
    if (!store) return;
    for (const TopoDBType set : {ActiveDB, WorkingDB}) fill(set);
    ZNTopoAPI_Impl::cache()->removeIfc(ObjID(kContainer));
  }
  // Containers outlive a cleared cache.
  void TearDown() override { ZNTopoAPI_Impl::cache()->removeIfc(ObjID(kContainer)); }

  void fill(TopoDBType set) {
    const TableSet tables(set);
    store->addNode(kNode, "node", {{"Status", 1}, {"SNMPState", 0}}, set);
    store->addInterface(kInterface, kNode, "eth0", {{"IfAdminState", 1}, {"IfOperStatus", 1}}, set);
    store->addAddress(kAddress, kInterface, kNode, "192.0.2.1", {{"PingState", 0}}, set);
    store->addEntity(kGroup, "group", E_HSRP, {}, set);
    store->insert(tables.hsrpaddressTbl_, {{"ObjID", kGroup},
                                           {"AddressID", kAddress},
                                           {"AddressIfObjID", kInterface},
                                           {"state", 5},
                                           {"HSRPPriority", 100},
                                           {"HSRPNumber", 1},
                                           {"HSRPStateCertainty", 50}});
    store->insert(tables.nwifcTbl_, {{"ObjId", kContainer}, {"EntityName", "c"}, {"Status", 1}});
    store->insert(tables.nwifcascTbl_, {{"LeftIFContainerObjID", kContainer},
                                        {"RightIFContainerObjID", "right"},
                                        {"RelType", 3},
                                        {"State", 1}});
  }

  OpenImpl& implOf(TopoDBType set) { return set == WorkingDB ? working : impl; }

  ZNRefPtr<ZNNode> node(TopoDBType set = ActiveDB) {
    return implOf(set).getNodeByObjID(ObjID(kNode), status);
  }
  ZNRefPtr<ZNInterface> interface(TopoDBType set = ActiveDB) {
    return implOf(set).getInterfaceByObjID(ObjID(kInterface), status);
  }
  ZNRefPtr<ZNAddress> address(TopoDBType set = ActiveDB) {
    return implOf(set).getAddressByObjID(ObjID(kAddress), status);
  }
  ZNRefPtr<ZNHSRP> group(TopoDBType set = ActiveDB) {
    return implOf(set).getHSRPsByObjIDList({ObjID(kGroup)}, notFound, status, false, -1)->front();
  }
  ZNRefPtr<ZNIfc> container() { return impl.getIfcByObjID(ObjID(kContainer), status); }

  std::string valueOf(const std::string& column, const std::string& table, TopoDBType set) {
    const std::string ending = set == WorkingDB ? "_update" : "";
    const std::string key = table == "address" || table == "hsrpaddress" ? "AddressId" : "ObjId";
    const std::string& id = table == "nwnode"                              ? kNode
                            : table == "nwinterface"                       ? kInterface
                            : table == "address" || table == "hsrpaddress" ? kAddress
                            : table == "nwifc"                             ? kContainer
                                                                           : kGroup;
    return store
        ->value("select " + column + " from " + table + ending + " where " + key + " = '" + id +
                "'")
        .value_or("NULL");
  }

  /// A setter that wrote the store has told the world, or the status says why it could not.
  void expectTold(const ZNTopoAPIStatus& answer) {
    const ZNTopoAPIStatus client = topologyGateway().ensureNotificationClient();
    EXPECT_EQ(answer.getStatus(), client.getStatus()) << answer.getAuxMsg();
  }
};
ZNTOPO_ON_ENGINES(SettersTest, kMainEngines);

TEST_P(SettersTest, AStatusOfAnEntityIsWrittenWithItsTime) {
  for (const TopoDBType set : {ActiveDB, WorkingDB}) {
    impl.clearCache();
    const auto changed = node(set);
    expectTold(changed->setOverallStatus(ObjectStatus::Critical, 5000, true, ActiveDB));
    EXPECT_EQ(changed->getOverallStatus().getStatus(), ObjectStatus::Critical);
    EXPECT_EQ(valueOf("Status", "nwnode", set), "6");
    EXPECT_EQ(valueOf("StatusChangeTimeUTC", "nwnode", set), "5000");
  }
}

TEST_P(SettersTest, TheThreeStatusesOfIPv6AreWrittenToAColumnEach) {
  const auto changed = interface();
  expectTold(changed->setV6OverallStatus(ObjectStatus::Warning, 1, true));
  expectTold(changed->setV6SiteStatus(ObjectStatus::Marginal, 2, true));
  expectTold(changed->setV6GlobalStatus(ObjectStatus::Major, 3, true));
  EXPECT_EQ(valueOf("V6CompoundStatus", "nwinterface", ActiveDB), "3");
  EXPECT_EQ(valueOf("V6SiteStatus", "nwinterface", ActiveDB), "4");
  EXPECT_EQ(valueOf("V6GlobalStatus", "nwinterface", ActiveDB), "5");
  EXPECT_EQ(valueOf("StatusChangeTimeUTC", "nwinterface", ActiveDB), "3");
}

TEST_P(SettersTest, TheStatusOfAContainerIsWrittenToItsOwnTable) {
  const auto changed = container();
  ASSERT_FALSE(changed.isNull());
  EXPECT_EQ(changed->getEntityType(), E_IfC);
  expectTold(changed->setStatus(ObjectStatus::Critical, true));
  EXPECT_EQ(valueOf("Status", "nwifc", ActiveDB), "6");
}

TEST_P(SettersTest, TheStatusOfAGroupIsWrittenToTheTableOfAllEntities) {
  expectTold(group()->setOverallStatus(ObjectStatus::Critical, 5000, true, ActiveDB));
  EXPECT_EQ(valueOf("Status", "nwentity", ActiveDB), "6");
}

TEST_P(SettersTest, AStatusThatIsTheSameWritesNothing) {
  const auto changed = node();
  const StatementSpy spy;
  EXPECT_TRUE(changed->setOverallStatus(ObjectStatus::Normal, 5000, true, ActiveDB).isOK());
  EXPECT_THAT(spy.statements(), IsEmpty());
}

TEST_P(SettersTest, ThePingStateOfAnAddressIsWrittenEvenIfItIsTheSame) {
  for (const TopoDBType set : {ActiveDB, WorkingDB}) {
    impl.clearCache();
    const auto changed = address(set);
    for (int i = 0; i < 2; ++i) {
      const StatementSpy spy;
      expectTold(changed->setPingState(Ping_Unreachable, true));
      EXPECT_EQ(changed->getPingState(), Ping_Unreachable);
      EXPECT_EQ(valueOf("PingState", "address", set), "2");
      EXPECT_THAT(spy.statements(), testing::Contains(StartsWith(" update address")));
    }
  }
}

TEST_P(SettersTest, TheSnmpStateOfANodeIsWritten) {
  const auto changed = node();
  expectTold(changed->setSnmpState(AGENT_DOWN, true));
  EXPECT_EQ(changed->getSnmpState(), AGENT_DOWN);
  EXPECT_EQ(valueOf("SNMPState", "nwnode", ActiveDB), "3");
  EXPECT_EQ(valueOf("Status", "nwnode", ActiveDB), "1");
}

TEST_P(SettersTest, TheStatesOfAnInterfaceAreWrittenIfTheyAreNew) {
  const auto changed = interface();
  expectTold(changed->setIfAdminStatus(Down, true));
  expectTold(changed->setIfOperStatus(lowerLayerDown, true));
  EXPECT_EQ(valueOf("IfAdminState", "nwinterface", ActiveDB), "2");
  EXPECT_EQ(valueOf("IfOperStatus", "nwinterface", ActiveDB), "7");
  const StatementSpy spy;
  EXPECT_TRUE(changed->setIfOperStatus(lowerLayerDown, true).isOK());
  EXPECT_THAT(spy.statements(), IsEmpty());
}

TEST_P(SettersTest, AnL2DomainIsWrittenAndNobodyIsTold) {
  for (const TopoDBType set : {ActiveDB, WorkingDB}) {
    impl.clearCache();
    EXPECT_TRUE(node(set)->setL2DomainID(12).isOK());
    EXPECT_TRUE(interface(set)->setL2DomainID(13).isOK());
    EXPECT_EQ(valueOf("L2DomainId", "nwnode", set), "12");
    EXPECT_EQ(valueOf("L2DomainId", "nwinterface", set), "13");
  }
}

TEST_P(SettersTest, AMemberOfAGroupIsWrittenWithAllThatItHas) {
  for (const TopoDBType set : {ActiveDB, WorkingDB}) {
    impl.clearCache();
    const auto changed = group(set);
    ASSERT_EQ(changed->getHSRPAddrInfoList().size(), 1U);
    ZNHSRPAddressInfo member = changed->getHSRPAddrInfoList().front();
    expectTold(changed->setHSRPState(member, ZNHSRPAddressInfo::Active, 70, true, ActiveDB));
    EXPECT_EQ(changed->getActiveAddressInfoList().size(), 1U);
    EXPECT_EQ(valueOf("state", "hsrpaddress", set), "6");
    EXPECT_EQ(valueOf("HSRPStateCertainty", "hsrpaddress", set), "70");
    EXPECT_EQ(valueOf("HSRPPriority", "hsrpaddress", set), "100");
    expectTold(changed->setHSRPStateAndPriority(member, ZNHSRPAddressInfo::Active, 70, 110, true,
                                                ActiveDB));
    EXPECT_EQ(valueOf("HSRPPriority", "hsrpaddress", set), "110");
  }
}

TEST_P(SettersTest, TheStateOfAnAssociationIsWrittenThroughTheSharedInstance) {
  const auto holder = container();
  ASSERT_FALSE(holder.isNull());
  ASSERT_EQ(holder->getAllIfcAssocInfos().size(), 1U);
  const auto association = holder->getAllIfcAssocInfos().front();
  expectTold(association->updateState(4, true));
  EXPECT_EQ(association->getAssocState(), 4);
  EXPECT_EQ(store->value("select State from nwifcasc"), "4");
  EXPECT_EQ(store->value("select State from nwifcasc_update"), "1");
}

TEST_P(SettersTest, WithoutAWriteTheStoreIsNotAskedForAnything) {
  const auto changed = node();
  const StatementSpy spy;
  EXPECT_TRUE(changed->setOverallStatus(ObjectStatus::Critical, 5000, false, ActiveDB).isOK());
  EXPECT_TRUE(changed->setSnmpState(AGENT_DOWN, false).isOK());
  EXPECT_THAT(spy.allStatements(), IsEmpty());
}

TEST_P(SettersTest, AfterAFailedWriteTheObjectStaysChangedAndTheStatusIsThatOfTheStore) {
  const auto changed = node();
  const auto changedInterface = interface();
  const auto changedAddress = address();
  const auto changedGroup = group();
  ZNHSRPAddressInfo member = changedGroup->getHSRPAddrInfoList().front();
  StatementSpy spy;
  spy.fail(StatementSpy::Exec, "update ");
  const std::pair<ZNTopoAPIStatus, const char*> answers[] = {
      {changed->setOverallStatus(ObjectStatus::Critical, 5000, true, ActiveDB), "setEntityStatus"},
      {changed->setSnmpState(AGENT_DOWN, true), "setNWNodeStatus"},
      {changed->setL2DomainID(12), "setL2DomainIdOfNode"},
      {changedInterface->setIfOperStatus(down, true), "setNWInterfaceState"},
      {changedAddress->setPingState(Ping_Unreachable, true), "setAddressState"},
      {changedGroup->setHSRPState(member, ZNHSRPAddressInfo::Active, 70, true, ActiveDB),
       "setHSRPAddressInfo"}};
  for (const auto& [answer, operation] : answers) {
    EXPECT_EQ(answer.getStatus(), ZN_API_SQL_EXEC_ERROR) << operation;
    EXPECT_THAT(answer.getAuxMsg(),
                StartsWith(std::string("Problem Executing SQL Command in ") + operation + "()\n"));
  }
  EXPECT_EQ(changed->getOverallStatus().getStatus(), ObjectStatus::Critical);
  EXPECT_EQ(changed->getSnmpState(), AGENT_DOWN);
  EXPECT_EQ(changedInterface->getIfOperStatus(), down);
  EXPECT_EQ(changedAddress->getPingState(), Ping_Unreachable);
  EXPECT_EQ(changedGroup->getActiveAddressInfoList().size(), 1U);
  EXPECT_EQ(valueOf("Status", "nwnode", ActiveDB), "1");
}

TEST_P(SettersTest, WhileTheModelIsBeingRebuiltTheObjectChangesAndTheStoreDoesNot) {
  const auto changed = node();
  store->execute("update state set TopologyReady = 0");
  impl.clearCache();
  const ZNTopoAPIStatus answer = changed->setSnmpState(AGENT_DOWN, true);
  EXPECT_EQ(answer.getStatus(), ZN_API_DB_NOT_READY);
  EXPECT_EQ(answer.getAuxMsg(), "Topology DB is not ready\n");
  EXPECT_EQ(changed->getSnmpState(), AGENT_DOWN);
  EXPECT_EQ(valueOf("SNMPState", "nwnode", ActiveDB), "0");
}

}  // namespace
}  // namespace zntopo::test
