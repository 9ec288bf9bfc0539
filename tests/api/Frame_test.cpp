#include "tests/support/ApiFixture.h"
#include "tests/support/CachePeer.h"
#include "tests/support/CapturedLog.h"

namespace zntopo::test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

TEST(FrameTest, TheTablesAreThoseOfTheSet) {
  const OpenImpl active;
  const OpenImpl working(WorkingDB);
  EXPECT_EQ(active.tables().nwnodeTbl_, "nwnode");
  EXPECT_EQ(working.tables().nwnodeTbl_, "nwnode_update");
  EXPECT_EQ(active.tables().nwinterfaceassociationTbl_, "NWInterfaceAsc");
  EXPECT_EQ(working.tables().nwinterfaceassociationTbl_, "NWInterfaceAsc_update");
  EXPECT_EQ(working.tables().stateTbl_, "state");
  EXPECT_EQ(working.tables().nwtopoaudittrailTbl_, "nwtopoaudittrail");
  EXPECT_EQ(active.getDBType(), ActiveDB);
  EXPECT_EQ(working.getDBType(), WorkingDB);
}

TEST(FrameTest, ANumberThatIsNoTableSetHasTheTablesOfTheActiveOne) {
  const OpenImpl impl(static_cast<TopoDBType>(5));
  EXPECT_EQ(impl.tables().nwnodeTbl_, "nwnode");
}

TEST(FrameTest, TheConstructionIsLogged) {
  const CapturedLog log(MC_INFO);
  const OpenImpl active;
  const OpenImpl working(WorkingDB);
  EXPECT_THAT(log.lines(), ElementsAre("Creating ZNTopoAPI with TopoDBType : 0\n",
                                       "Creating ZNTopoAPI with TopoDBType : 1\n"));
}

TEST(FrameTest, AllInstancesShareOneCache) {
  const OpenImpl first;
  const OpenImpl second(WorkingDB);
  EXPECT_NE(ZNTopoAPI_Impl::cache(), nullptr);
  EXPECT_EQ(first.getTopoCache(), ZNTopoAPI_Impl::cache());
  EXPECT_EQ(second.getTopoCache(), ZNTopoAPI_Impl::cache());
  EXPECT_EQ(ZNTopoAPI_Impl::myCache, ZNTopoAPI_Impl::cache());
}

TEST(FrameTest, KindsOfObjectsHaveTheirTables) {
  const OpenImpl impl(WorkingDB);
  EXPECT_EQ(impl.findTableNameFromEntityType(E_Node), "nwnode_update");
  EXPECT_EQ(impl.findTableNameFromEntityType(E_Interface), "nwinterface_update");
  EXPECT_EQ(impl.findTableNameFromEntityType(E_Vlan), "nwvlan_update");
  EXPECT_EQ(impl.findTableNameFromEntityType(E_HSRP), "nwhsrp_update");
  EXPECT_EQ(impl.findTableNameFromEntityType(E_IfC), "nwifc_update");
  EXPECT_EQ(impl.findTableNameFromEntityType(E_Subnet), "ERROR");
  EXPECT_EQ(impl.findTableNameFromEntityType(E_Unknown), "ERROR");
}

TEST(FrameTest, AListBecomesASet) {
  EXPECT_EQ(ZNTopoAPI_Impl::ConvertObjIDListToSet({ObjID("b"), ObjID("a"), ObjID("b")}),
            (std::set<ObjID>{ObjID("a"), ObjID("b")}));
}

TEST(FrameTest, SomeOperationsHoldNoInformation) {
  const OpenImpl impl;
  EXPECT_FALSE(impl.isValid());
  EXPECT_FALSE(impl.isLastGetVlansValid());
  EXPECT_FALSE(impl.isLastGetIfcsValid());
  EXPECT_TRUE(impl.getAPIStatus().isOK());
  EXPECT_FALSE(impl.dumpCache());
}

TEST(FacadeTest, TheVersionsAreConstants) {
  const ZNTopoAPI api;
  EXPECT_EQ(api.getTopoAPIVersion(), "300");
  EXPECT_EQ(api.getTopoSchemaVersion(), "300");
  EXPECT_STREQ(_TVgetURL_OS(), "NT");
  EXPECT_EQ(_TVgetConsolidatedPatchNum(), 0);
}

TEST(FacadeTest, RefreshingIsNotSupportedAndLeavesTheStatus) {
  ZNTopoAPI api;
  ZNTopoAPIStatus status(ZN_API_NO_PATH, "of before\n");
  EXPECT_EQ(api.refreshTopology(status), ZN_API_NOT_SUPPORTED_OPERATION);
  EXPECT_EQ(status.getStatus(), ZN_API_NO_PATH);
  EXPECT_EQ(status.getAuxMsg(), "of before\n");
}

TEST(FacadeTest, ALookUpByManagementAddressGivesNothingAndLeavesTheStatus) {
  ZNTopoAPI api;
  ZNTopoAPIStatus status(ZN_API_NO_PATH, "of before\n");
  EXPECT_TRUE(api.getNodeByMmgtAddr("10.0.0.1", -1, status).isNull());
  EXPECT_EQ(status.getStatus(), ZN_API_NO_PATH);
  EXPECT_EQ(status.getAuxMsg(), "of before\n");
}

TEST(FacadeTest, TheConfigurationIsTheLiveRecordOfTheCache) {
  ZNTopoConfig config;
  config.setSubnetCacheSize(21);
  ZNTopoAPI::setTopoConfiguration(config);
  EXPECT_EQ(ZNTopoAPI_Impl::cache()->getTopoConfig().getSubnetCacheSize(), 21);
  ZNTopoAPI::getTopoConfiguration().setSubnetCacheSize(22);
  EXPECT_EQ(ZNTopoAPI_Impl::cache()->getTopoConfig().getSubnetCacheSize(), 22);
  EXPECT_EQ(&ZNTopoAPI::getTopoConfiguration(), &ZNTopoAPI_Impl::cache()->getTopoConfig());
}

TEST(FacadeTest, EachSizeReachesItsKind) {
  ZNTopoAPI::setTopoConfiguration(ZNTopoConfig());
  ZNTopoAPI::setCacheSize(1, 2, 3, 4, 5, 6, 7);
  const ZNTopoConfig& config = ZNTopoAPI::getTopoConfiguration();
  EXPECT_EQ(config.getNodeCacheSize(), 1);
  EXPECT_EQ(config.getInterfaceCacheSize(), 2);
  EXPECT_EQ(config.getAddressCacheSize(), 3);
  EXPECT_EQ(config.getSubnetCacheSize(), 4);
  EXPECT_EQ(config.getVlanCacheSize(), 5);
  EXPECT_EQ(config.getHSRPCacheSize(), 6);
  EXPECT_EQ(config.getIfcCacheSize(), 500);  // the last size is ignored
}

TEST(FacadeTest, TheCacheIsValidUntilAnEntryHasNoObject) {
  ZNTopoAPI api;
  EXPECT_TRUE(api.isCacheValid());
  ZNTopoCachePeer(*ZNTopoAPI_Impl::cache()).corruptAddress(ObjID("a"));
  EXPECT_FALSE(api.isCacheValid());
  api.clearCache();
  EXPECT_TRUE(api.isCacheValid());
}

/// Tells of its end.
class EndingImpl : public ZNTopoAPI_Impl {
 public:
  explicit EndingImpl(bool& ended) : ZNTopoAPI_Impl(WorkingDB), ended_(ended) {}
  ~EndingImpl() override { ended_ = true; }

 private:
  bool& ended_;
};

/// A facade that shows its implementation.
class OpenFacade : public ZNTopoAPI {
 public:
  using ZNTopoAPI::getImpl;
  using ZNTopoAPI::ZNTopoAPI;
};

TEST(FacadeTest, AFacadeOwnsItsImplementation) {
  bool ended = false;
  {
    const auto impl = new EndingImpl(ended);
    const OpenFacade api(impl, ActiveDB);
    EXPECT_EQ(api.getImpl(), impl);
    EXPECT_FALSE(ended);
  }
  EXPECT_TRUE(ended);
}

TEST(FacadeTest, WithoutAnImplementationItMakesOneForItsTables) {
  EXPECT_EQ(OpenFacade().getImpl()->getDBType(), ActiveDB);
  EXPECT_EQ(OpenFacade(WorkingDB).getImpl()->getDBType(), WorkingDB);
  EXPECT_EQ(OpenFacade(nullptr, WorkingDB).getImpl()->getDBType(), WorkingDB);
}

// ---- on a store -------------------------------------------------------------------------------

class FrameStoreTest : public ApiTest {};
ZNTOPO_ON_ENGINES(FrameStoreTest, kMainEngines);

TEST_P(FrameStoreTest, TheStateIsReadThroughTheFacade) {
  store->setReady(4711);
  const ZNTopologyState state = ZNTopoAPI().getTopologyState(status);
  EXPECT_TRUE(status.isOK());
  EXPECT_EQ(status.getAuxMsg(), "");
  EXPECT_EQ(state.getTopoState(), ZNTopologyState::READY);
  EXPECT_EQ(state.getLastTopoReadyChangeTime(), 4711);
}

TEST_P(FrameStoreTest, AStoreInWorkOrWithoutATimeIsTold) {
  store->execute("update state set TopologyReady = 2");
  EXPECT_EQ(ZNTopoAPI().getTopologyState(status).getTopoState(),
            ZNTopologyState::TOPOLOGY_INTERNAL_PROCESSING);
  store->execute("update state set PrevDiscoEndTime = NULL");
  EXPECT_EQ(ZNTopoAPI().getTopologyState(status).getTopoState(),
            ZNTopologyState::TOPOLOGY_INTERNAL_PROCESSING);
  store->execute("update state set CreateTime = NULL");
  EXPECT_EQ(ZNTopoAPI().getTopologyState(status).getTopoState(), ZNTopologyState::UNKNOWN);
  EXPECT_TRUE(status.isOK());
}

TEST_P(FrameStoreTest, AReadyModelOpensTheGate) {
  EXPECT_TRUE(impl.validate(status));
  EXPECT_TRUE(status.isOK());
  EXPECT_EQ(impl.getCacheTimeStamp(), 1000);
}

TEST_P(FrameStoreTest, AModelThatIsNotReadyKeepsTheGateShut) {
  store->execute("update state set TopologyReady = 0");
  status.reset();
  EXPECT_FALSE(impl.validate(status));
  EXPECT_EQ(status.getStatus(), ZN_API_DB_NOT_READY);
  EXPECT_EQ(status.getAuxMsg(), "Topology DB is not ready\n");
}

TEST_P(FrameStoreTest, TheWorkingTablesAreNotSubjectToReadiness) {
  store->execute("update state set TopologyReady = 0");
  const StatementSpy spy;
  EXPECT_TRUE(working.validate(status));
  EXPECT_EQ(status.getStatus(), ZN_API_NO_PATH);
  EXPECT_THAT(spy.allStatements(), IsEmpty());
}

TEST_P(FrameStoreTest, AClearedCacheForgetsTheTimeUntilTheNextQuery) {
  ASSERT_TRUE(impl.validate(status));
  impl.clearCache();
  EXPECT_EQ(impl.getCacheTimeStamp(), 0);
  EXPECT_TRUE(impl.validate(status));
  EXPECT_EQ(impl.getCacheTimeStamp(), 1000);
}

TEST_P(FrameStoreTest, TheVendorOfBothEnginesIsUnknown) {
  TvDbil::DbilRdbmsVendor vendor = TvDbil::Oracle;
  impl.getVendor(vendor, status);
  EXPECT_TRUE(status.isOK());
  EXPECT_EQ(vendor, TvDbil::Unknown);
}

TEST_P(FrameStoreTest, WithoutAConnectionTheVendorIsUnknownAndTheStatusSaysWhy) {
  breakConnections();
  TvDbil::DbilRdbmsVendor vendor = TvDbil::Oracle;
  impl.getVendor(vendor, status);
  EXPECT_EQ(status.getStatus(), ZN_API_DB_CONNECTION_FAILURE);
  EXPECT_EQ(status.getAuxMsg(), "ODBCConn - DB Connection Creation Failed\n");
  EXPECT_EQ(vendor, TvDbil::Unknown);
}

TEST_P(FrameStoreTest, AnObjectOfAnyKindIsLookedForInAFixedOrder) {
  store->addNode(uuid(1), "edge");
  store->addInterface(uuid(2), uuid(1), "eth0");
  ZNTopoAPI api;
  const auto node = api.getEntityByObjID(ObjID(uuid(1)), status);
  ASSERT_FALSE(node.isNull());
  EXPECT_EQ(node->getEntityType(), E_Node);
  EXPECT_TRUE(status.isOK());
  const auto interface = api.getEntityByObjID(ObjID(uuid(2)), status);
  ASSERT_FALSE(interface.isNull());
  EXPECT_EQ(interface->getEntityType(), E_Interface);
  EXPECT_TRUE(status.isOK());
}

TEST_P(FrameStoreTest, AnObjectThatNobodyKnowsEndsWithTheStatusOfTheLastKind) {
  ZNTopoAPI api;
  ZNTopoAPIStatus ofVlans;
  api.getVlanByObjID(ObjID(uuid(9)), ofVlans);
  const StatementSpy spy;
  EXPECT_TRUE(api.getEntityByObjID(ObjID(uuid(9)), status).isNull());
  EXPECT_EQ(status.getStatus(), ofVlans.getStatus());
  EXPECT_EQ(status.getAuxMsg(), ofVlans.getAuxMsg());
  // The look-ups that exist were made, nodes first.
  ASSERT_GE(spy.statements().size(), 2u);
  EXPECT_THAT(spy.statements()[0], HasSubstr(" from nwnode NODE "));
  EXPECT_THAT(spy.statements()[1], HasSubstr("from nwinterface a "));
}

TEST_P(FrameStoreTest, TheWorkingFacadeReadsTheTwinTables) {
  store->addNode(uuid(1), "edge", {}, WorkingDB);
  EXPECT_TRUE(ZNTopoAPI().getNodeByObjID(ObjID(uuid(1)), status).isNull());
  const auto node = ZNTopoAPI(WorkingDB).getNodeByObjID(ObjID(uuid(1)), status);
  ASSERT_FALSE(node.isNull());
  EXPECT_EQ(node->getDBType(), WorkingDB);
}

}  // namespace
}  // namespace zntopo::test
