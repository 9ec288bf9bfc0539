// What topology objects ask of the API, each through its own door.

#include "tests/support/ApiFixture.h"
#include "tests/support/FreshProcess.h"
#include "zntopo/api/ZNTopoAPIDefaultFactory.h"
#include "zntopo/api/detail/UpdateSql.h"
#include "zntopo/model/TopologyGateway.h"

namespace zntopo::test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

class GatewayTest : public ApiTest {
 protected:
  void SetUp() override {
    ApiTest::SetUp();
    if (!store) return;
    for (const TopoDBType set : {ActiveDB, WorkingDB}) {
      store->addNode(uuid(1), "node", {}, set);
      store->addInterface(uuid(2, 'c'), uuid(1), "eth0", {}, set);
      store->addAddress(uuid(3, 'b'), uuid(2, 'c'), uuid(1), "192.0.2.1", {}, set);
    }
  }

  TopologyGateway& gateway = topologyGateway();
};
ZNTOPO_ON_ENGINES(GatewayTest, kMainEngines);

TEST_P(GatewayTest, ThereIsOneGateway) { EXPECT_EQ(&gateway, &topologyGateway()); }

TEST_P(GatewayTest, TheTopologyModeIsThatOfTheCache) {
  EXPECT_EQ(gateway.getTopoMode(ActiveDB), 0);
  int mode = 1;
  ZNTopoAPI_Impl::cache()->setTopoMode(mode);
  EXPECT_EQ(gateway.getTopoMode(WorkingDB), 1);
  mode = 0;
  ZNTopoAPI_Impl::cache()->setTopoMode(mode);
}

TEST_P(GatewayTest, ReadsOfATableSetGoToItsTables) {
  for (const TopoDBType set : {ActiveDB, WorkingDB}) {
    impl.clearCache();
    const std::string ending = set == WorkingDB ? "_update " : " ";
    const StatementSpy spy;
    EXPECT_EQ(gateway.getNodeByObjID(set, ObjID(uuid(1)), status)->getDBType(), set);
    EXPECT_THAT(spy.statements(), Contains(HasSubstr("from nwnode" + ending)));
    EXPECT_FALSE(gateway.getInterfaceByObjID(set, ObjID(uuid(2, 'c')), status).isNull());
    EXPECT_THAT(spy.statements(), Contains(HasSubstr("from nwinterface" + ending)));
    EXPECT_FALSE(gateway.getAddressByObjID(set, ObjID(uuid(3, 'b')), status).isNull());
    EXPECT_THAT(spy.statements(), Contains(HasSubstr("from address" + ending)));
    EXPECT_THAT(*gateway.getInterfacesByNodeObjIDList(set, {ObjID(uuid(1))}, status), SizeIs(1));
    EXPECT_TRUE(status.isOK()) << status.getAuxMsg();
  }
}

TEST_P(GatewayTest, OtherReadsGoToTheActiveTables) {
  const StatementSpy spy;
  EXPECT_THAT(*gateway.getInterfacesByObjIDList({ObjID(uuid(2, 'c'))}, notFound, status),
              SizeIs(1));
  EXPECT_THAT(*gateway.getAddrsByObjIDs({ObjID(uuid(3, 'b'))}, status), SizeIs(1));
  EXPECT_THAT(*gateway.getIfcInfosByObjIDList({ObjID(uuid(1))}, status, 0), IsEmpty());
  EXPECT_TRUE(status.isOK()) << status.getAuxMsg();
  for (const std::string& sql : spy.statements()) {
    EXPECT_EQ(sql.find("_update"), std::string::npos) << sql;
  }
}

TEST(GatewayFactoryTest, BeforeTheFactorysInitialisationThereIsNoAddressByItsText) {
  inFreshProcess([] {
    ZNTopoAPIStatus status;
    EXPECT_TRUE(topologyGateway().getAddressByIP("192.0.2.1", status, -1).isNull());
    EXPECT_EQ(status.getStatus(), ZN_API_NOT_INITED);
  });
}

TEST_P(GatewayTest, AfterItAnAddressByItsTextIsFound) {
  ZNTopoAPIDefaultFactory().initZNTopoAPI();
  EXPECT_FALSE(gateway.getAddressByIP("192.0.2.1", status, -1).isNull());
  EXPECT_TRUE(status.isOK());
}

TEST_P(GatewayTest, WritesGoToTheTablesOfTheSet) {
  const ObjID id("x");
  for (const TopoDBType set : {ActiveDB, WorkingDB}) {
    const TableSet tables(set);
    ZNNode node;
    ZNInterface interface;
    int domain = 1;
    const ZNHSRPAddressInfo member;
    const StatementSpy spy;
    const ZNTopoAPIStatus answers[] = {
        gateway.setEntityStatus(set, id, 1, 5000, ZNEntity::Overall, E_Node),
        gateway.setAddressState(set, id, 1),
        gateway.setNWNodeStatus(set, id, 1, 6),
        gateway.setNWInterfaceState(set, id, 1, 0),
        gateway.setHSRPAddressInfo(set, member),
        gateway.setL2DomainIdOfNode(set, node, domain),
        gateway.setL2DomainIdOfInterface(set, interface, domain)};
    for (const ZNTopoAPIStatus& answer : answers) EXPECT_TRUE(answer.isOK()) << answer.getAuxMsg();
    EXPECT_THAT(
        spy.statements(),
        ElementsAre(detail::entityStatusUpdate(tables, id, 1, 5000, ZNEntity::Overall, E_Node),
                    detail::pingStateUpdate(tables, id, 1),
                    detail::nodeStatusUpdate(tables, id, 1, 6),
                    detail::interfaceStateUpdate(tables, id, 1, 0),
                    detail::hsrpAddressUpdate(tables, member),
                    detail::l2DomainUpdate(tables.nwnodeTbl_, ObjID(), 1),
                    detail::l2DomainUpdate(tables.nwinterfaceTbl_, ObjID(), 1)));
  }
}

TEST_P(GatewayTest, ATimeBeyondThatOfTheStoreIsItsLast) {
  const StatementSpy spy;
  gateway.setEntityStatus(ActiveDB, ObjID("x"), 1, 1L << 40, ZNEntity::Overall, E_Node);
  EXPECT_THAT(spy.statements(), Contains(HasSubstr("STATUSCHANGETIMEUTC = 2147483647 ")));
}

TEST_P(GatewayTest, AnAssociationIsWrittenThroughTheSharedInstance) {
  const StatementSpy spy;
  EXPECT_TRUE(gateway.setNWIfcAssocInfoState(ObjID("x"), ObjID("y"), 1, 2).isOK());
  EXPECT_THAT(spy.statements(), ElementsAre(detail::ifcAssociationUpdate()));
}

TEST_P(GatewayTest, GroupsOfAnAddressAreRead) {
  const std::string address = uuid(3, 'b');
  store->insert("hsrpaddress",
                {{"ObjID", "g"}, {"AddressID", address}, {"AddressIfObjID", uuid(2, 'c')}});
  EXPECT_THAT(*gateway.getHSRPObjIDsByIFAddressObjID(ActiveDB, ObjID(address),
                                                     TopologyGateway::HSRP_Address, status),
              testing::ElementsAre(ObjID("g")));
  EXPECT_TRUE(status.isOK());
}

TEST_P(GatewayTest, ObjectsLoadThroughIt) {
  const auto node = impl.getNodeByObjID(ObjID(uuid(1)), status);
  ASSERT_FALSE(node.isNull());
  const auto interfaces = node->getInterfacesList();
  ASSERT_TRUE(interfaces);
  ASSERT_THAT(*interfaces, SizeIs(1));
  EXPECT_EQ(interfaces->front()->getObjID(), ObjID(uuid(2, 'c')));
}

}  // namespace
}  // namespace zntopo::test
