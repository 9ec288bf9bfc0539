#include "tests/support/ApiFixture.h"
#include "tests/support/CapturedLog.h"

namespace zntopo::test {
namespace {

using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;

class NodeByNameTest : public ApiTest {
 protected:
  /// The name of the node that is found, empty for none.
  std::string find(const std::string& name, int rd = -1) {
    const auto node = impl.getNodeByName(name, status, rd);
    return node.isNull() ? "" : node->getName();
  }

  void expectFailure(ZNTopoStatus code, const std::string& text) {
    EXPECT_EQ(status.getStatus(), code);
    EXPECT_EQ(status.getAuxMsg(), text + "\n");
  }
};
ZNTOPO_ON_ENGINES(NodeByNameTest, kMainEngines);

TEST_P(NodeByNameTest, AnEmptyNameIsRefused) {
  const CapturedLog log(MC_INFO);
  EXPECT_EQ(find(""), "");
  expectFailure(ZN_API_ILLEGAL_INPUT, "Null Node Name");
  EXPECT_THAT(log.lines(), Contains("Error: input name is empty\n"));
}

TEST_P(NodeByNameTest, AnIdentifierNeedsNoLookUp) {
  store->addNode(uuid(1), "edge");
  const StatementSpy spy;
  EXPECT_EQ(find(uuid(1)), "edge");
  EXPECT_TRUE(status.isOK());
  EXPECT_THAT(spy.statements().front(), HasSubstr(" from nwnode NODE "));
}

TEST_P(NodeByNameTest, AnIdentifierOfNoNodeIsToldWithItself) {
  EXPECT_EQ(find(uuid(9)), "");
  expectFailure(ZN_API_OBJ_NOT_EXIST,
                "Node [" + uuid(9) + "] not found for objid [" + uuid(9) + "].");
}

TEST_P(NodeByNameTest, AFullNameFitsExactly) {
  store->addNode(uuid(1), "edge.example.net");
  store->addNode(uuid(2), "edge.example.net.old");
  const StatementSpy spy;
  EXPECT_EQ(find("edge.example.net"), "edge.example.net");
  EXPECT_EQ(spy.statements().front(),
            "select objID from nwnode where entityname  = 'edge.example.net'");
  EXPECT_EQ(find("edge.example"), "");
  expectFailure(ZN_API_OBJ_NOT_EXIST, "ObjID for node [edge.example] not found.");
}

TEST_P(NodeByNameTest, APartialNameFitsFromItsBeginning) {
  store->addNode(uuid(1), "edge-1");
  store->addNode(uuid(2), "core-1");
  EXPECT_EQ(find("ed"), "edge-1");
  EXPECT_EQ(find("1"), "");  // a number is an address
  EXPECT_EQ(find("dge"), "");
  expectFailure(ZN_API_OBJ_NOT_EXIST, "ObjID for node [dge] not found.");
}

TEST_P(NodeByNameTest, APartialNameThatFitsTwoNodesIsNotUnique) {
  store->addNode(uuid(1), "edge-1");
  store->addNode(uuid(2), "edge-2");
  EXPECT_EQ(find("edge"), "");
  expectFailure(ZN_API_NONUNIQUE_NAME, "Node [edge] is not unique");
}

TEST_P(NodeByNameTest, ANameWithAQuoteBreaksTheStatement) {
  EXPECT_EQ(find("o'hare"), "");
  EXPECT_TRUE(status.getStatus() == ZN_API_SQL_BIND_STATEMENT_ERROR ||
              status.getStatus() == ZN_API_SQL_EXEC_ERROR);
}

TEST_P(NodeByNameTest, WithoutARouteDistinguisherAnAddressIsAPublicOne) {
  store->addNode(uuid(1), "edge");
  store->addAddress(uuid(10, 'b'), uuid(20, 'c'), uuid(1), "10.0.0.1",
                    {{"PubV4Address", "192.0.2.1"}, {"RouteDistinguisher", 0}});
  EXPECT_EQ(find("192.0.2.1"), "edge");
  EXPECT_EQ(find("10.0.0.1"), "");
  expectFailure(ZN_API_OBJ_NOT_EXIST, "ObjID for node [10.0.0.1] not found.");
}

TEST_P(NodeByNameTest, WithOneItIsAPrivateOneOfThatDomain) {
  store->addNode(uuid(1), "edge");
  store->addNode(uuid(2), "core");
  store->addAddress(uuid(10, 'b'), uuid(20, 'c'), uuid(1), "10.0.0.1",
                    {{"PubV4Address", "192.0.2.1"}, {"RouteDistinguisher", 0}});
  store->addAddress(uuid(11, 'b'), uuid(21, 'c'), uuid(2), "10.0.0.1",
                    {{"PubV4Address", "192.0.2.2"}, {"RouteDistinguisher", 7}});
  EXPECT_EQ(find("10.0.0.1", 0), "edge");
  EXPECT_EQ(find("10.0.0.1", 7), "core");
  EXPECT_EQ(find("192.0.2.1", 0), "");
  EXPECT_EQ(find("10.0.0.1", -2), "");  // only -1 means none
}

TEST_P(NodeByNameTest, AManagementAddressIsAlwaysComparedInItsPublicForm) {
  store->addNode(uuid(1), "edge",
                 {{"V4ManagementAddress", "10.9.9.9"},
                  {"PubV4ManagementAdd", "192.0.2.9"},
                  {"V4ManagementAddressRD", 4}});
  EXPECT_EQ(find("192.0.2.9"), "edge");
  EXPECT_EQ(find("192.0.2.9", 4), "edge");
  EXPECT_EQ(find("192.0.2.9", 5), "");
  EXPECT_EQ(find("10.9.9.9", 4), "");
}

TEST_P(NodeByNameTest, AnIPv6AddressIsLookedForInItsOwnColumn) {
  store->addNode(uuid(1), "edge");
  store->addAddress(uuid(10, 'b'), uuid(20, 'c'), uuid(1), "10.0.0.1",
                    {{"AddressType", 2},
                     {"V4Address", nullptr},
                     {"PubV4Address", nullptr},
                     {"V6Address", "2001:db8::1"},
                     {"RouteDistinguisher", 0}});
  EXPECT_EQ(find("2001:db8::1"), "edge");
  EXPECT_EQ(find("2001:db8::1", 0), "edge");
  EXPECT_EQ(find("2001:db8::1", 1), "");
}

TEST_P(NodeByNameTest, ANodeThatFitsByBothArmsIsFoundOnce) {
  store->addNode(uuid(1), "edge", {{"PubV4ManagementAdd", "192.0.2.1"}});
  store->addAddress(uuid(10, 'b'), uuid(20, 'c'), uuid(1), "192.0.2.1");
  EXPECT_EQ(find("192.0.2.1"), "edge");
}

TEST_P(NodeByNameTest, AnAddressWhoseNodeIsGoneIsToldWithTheIdentifier) {
  store->addAddress(uuid(10, 'b'), uuid(20, 'c'), uuid(1), "192.0.2.1");
  EXPECT_EQ(find("192.0.2.1"), "");
  expectFailure(ZN_API_OBJ_NOT_EXIST, "Node [192.0.2.1] not found for objid [" + uuid(1) + "].");
}

TEST_P(NodeByNameTest, AModelThatIsNotReadyIsToldAsSuch) {
  store->addNode(uuid(1), "edge");
  store->execute("update state set TopologyReady = 0");
  EXPECT_EQ(find("edge"), "");
  expectFailure(ZN_API_DB_NOT_READY, "Topology DB is not ready");
}

TEST_P(NodeByNameTest, TheRoadOfANameIsLogged) {
  store->addNode(uuid(1), "edge-1");
  store->addNode(uuid(2), "edge-2");
  const CapturedLog log(MC_INFO);
  find("edge-1");
  find("edge");
  find("nobody");
  find("a.b");
  find("::9");
  find("192.0.2.77");
  find(uuid(1));
  EXPECT_THAT(
      log.lines(),
      AllOf(Contains("Found partial DNSName = edge-1 \n"), Contains("Found full DNSName = a.b \n"),
            Contains("Found IPV6 Address = ::9 \n"), Contains("Found IPv4 = 192.0.2.77 \n"),
            Contains("Found UUID = " + uuid(1) + " \n"), Contains("ID:" + uuid(1) + "\n"),
            Contains("SQL is select objID from nwnode where entityname  like 'edge%' \n")));
  EXPECT_THAT(log.lines(), AllOf(Contains("Node [edge] is not unique\n"),
                                 Contains("ObjID for node [nobody] not found.\n"),
                                 Contains("SQL : select objID from nwnode where entityname  like "
                                          "'edge%' \n")));
}

// ---- lists of identifiers ---------------------------------------------------------------------

TEST_P(NodeByNameTest, AListOfIdentifiersLeavesOutWhatIsNull) {
  store->addNode(uuid(1), "a", {{"QRMObjId", "5"}});
  store->addNode(uuid(2), "b");
  store->addNode(uuid(3), "c", {{"QRMObjId", "7"}});
  const auto ids = impl.getObjIDListFromSQL("select QRMObjId from nwnode order by ObjId", status);
  EXPECT_THAT(*ids, ElementsAre(ObjID(5), ObjID(7)));
  EXPECT_TRUE(status.isOK());
  EXPECT_EQ(status.getAuxMsg(), "");
}

}  // namespace
}  // namespace zntopo::test
