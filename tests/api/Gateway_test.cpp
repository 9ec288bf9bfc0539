// What topology objects ask of the API, each through its own door.

#include "tests/support/ApiFixture.h"
#include "tests/support/FreshProcess.h"
#include "zntopo/api/ZNTopoAPIDefaultFactory.h"
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

TEST_P(GatewayTest, WritesAnswerWithTheStatusOfTheImplementation) {
  ZNNode node;
  ZNInterface interface;
  int id = 1;
  const std::pair<ZNTopoAPIStatus, const char*> answers[] = {
      {gateway.setEntityStatus(ActiveDB, ObjID("x"), 1, 1L << 40, ZNEntity::Overall, E_Node),
       "setEntityStatus"},
      {gateway.setAddressState(ActiveDB, ObjID("x"), 1), "setAddressState"},
      {gateway.setNWNodeStatus(ActiveDB, ObjID("x"), 1, 6), "setNWNodeStatus"},
      {gateway.setNWInterfaceState(ActiveDB, ObjID("x"), 1, 0), "setNWInterfaceState"},
      {gateway.setHSRPAddressInfo(ActiveDB, ZNHSRPAddressInfo()), "setHSRPAddressInfo"},
      {gateway.setL2DomainIdOfNode(ActiveDB, node, id), "setL2DomainIdOfNode"},
      {gateway.setL2DomainIdOfInterface(ActiveDB, interface, id), "setL2DomainIdOfInterface"},
      {gateway.setNWIfcAssocInfoState(ObjID("x"), ObjID("y"), 1, 2), "setNWIfcAssocInfoState"}};
  for (const auto& [answer, operation] : answers) {
    EXPECT_EQ(answer.getStatus(), ZN_API_NOT_SUPPORTED_OPERATION) << operation;
    EXPECT_EQ(answer.getAuxMsg(), std::string(operation) + " is not supported yet\n");
  }
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
