#include <algorithm>

#include "tests/support/ApiFixture.h"
#include "tests/support/CapturedLog.h"
#include "zntopo/api/detail/NodeSql.h"

namespace zntopo::test {
namespace {

using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

using testing::SizeIs;
using testing::UnorderedElementsAre;

class NodeRetrievalTest : public ApiTest {
 protected:
  void addNodes(int from, int to) {
    for (int i = from; i <= to; ++i) store->addNode(uuid(i), "node" + std::to_string(i));
  }

  static std::set<ObjID> ids(int from, int to) {
    std::set<ObjID> result;
    for (int i = from; i <= to; ++i) result.insert(ObjID(uuid(i)));
    return result;
  }

  /// The names of the nodes of a request by identifiers.
  std::vector<std::string> get(const std::set<ObjID>& asked, bool isQRMID = false) {
    return names(*impl.getNodesByObjIDList(asked, notFound, status, false, isQRMID, false,
                                           ZNEntity::AllProtocol, -1));
  }

  std::vector<std::string> getAll(ZNEntity::IPLevel level, int rd) {
    return names(*impl.getNodesByObjIDList({}, notFound, status, false, false, true, level, rd));
  }

  static std::vector<std::string> names(const std::list<ZNRefPtr<ZNNode>>& nodes) {
    std::vector<std::string> result;
    for (const auto& node : nodes) result.push_back(node->getName());
    return result;
  }

  static ZNTopoConfig nothingButNodes() {
    ZNTopoConfig config;
    config.setLoadNodeIfcInfo(false);
    config.setLoadNodeVlanInfo(false);
    config.setLoadNodeL2ConnectionInfo(false);
    return config;
  }
};
ZNTOPO_ON_ENGINES(NodeRetrievalTest, kMainEngines);

// ---- one node -------------------------------------------------------------------------------

TEST_P(NodeRetrievalTest, ANodeIsFoundByItsIdentifierAndByItsLegacyIdentifier) {
  store->addNode(uuid(1), "edge", {{"QRMObjId", "77"}});
  const auto node = impl.getNodeByObjID(ObjID(uuid(1)), status);
  ASSERT_FALSE(node.isNull());
  EXPECT_EQ(node->getName(), "edge");
  EXPECT_TRUE(status.isOK());
  EXPECT_EQ(status.getAuxMsg(), "");
  impl.clearCache();
  const auto legacy = impl.getNodeByQRMObjID(ObjID(77), status);
  ASSERT_FALSE(legacy.isNull());
  EXPECT_EQ(legacy->getName(), "edge");
  // The second time it comes from the cache.
  EXPECT_TRUE(impl.getNodeByQRMObjID(ObjID(77), status) == legacy);
  EXPECT_TRUE(impl.getNodeByObjID(ObjID(uuid(1)), status) == legacy);
}

TEST_P(NodeRetrievalTest, ANullIdentifierIsRefused) {
  EXPECT_TRUE(impl.getNodeByObjID(ObjID(), status).isNull());
  EXPECT_EQ(status.getStatus(), ZN_API_INVALID_ID);
  EXPECT_EQ(status.getAuxMsg(), "Null Node ID\n");
  EXPECT_TRUE(impl.getNodeByQRMObjID(ObjID(), status).isNull());
  EXPECT_EQ(status.getStatus(), ZN_API_INVALID_ID);
  EXPECT_EQ(status.getAuxMsg(), "Null QRM Node ID\n");
}

TEST_P(NodeRetrievalTest, AnUnknownIdentifierIsNamedInTheText) {
  EXPECT_TRUE(impl.getNodeByObjID(ObjID("nobody"), status).isNull());
  EXPECT_EQ(status.getStatus(), ZN_API_INVALID_ID);
  EXPECT_EQ(status.getAuxMsg(), "The ObjID: nobody is not a valid ObjID in RZ \n");
  EXPECT_TRUE(impl.getNodeByQRMObjID(ObjID(5), status).isNull());
  EXPECT_EQ(status.getStatus(), ZN_API_INVALID_ID);
  EXPECT_EQ(status.getAuxMsg(), "The QRMObjID: 5 is not a valid QRMObjID in RZ\n");
}

TEST_P(NodeRetrievalTest, AStoreThatFailsReadsAsAnInvalidIdentifier) {
  store->addNode(uuid(1), "edge");
  store->execute("update state set TopologyReady = 0");
  EXPECT_TRUE(impl.getNodeByObjID(ObjID(uuid(1)), status).isNull());
  EXPECT_EQ(status.getStatus(), ZN_API_INVALID_ID);
  breakConnections();
  EXPECT_TRUE(working.getNodeByObjID(ObjID(uuid(1)), status).isNull());
  EXPECT_EQ(status.getStatus(), ZN_API_INVALID_ID);
  EXPECT_THAT(status.getAuxMsg(), HasSubstr("The ObjID: " + uuid(1) + " is not a valid"));
}

// ---- batches --------------------------------------------------------------------------------

TEST_P(NodeRetrievalTest, AHundredAndTwentyIdentifiersMakeThreeBatches) {
  ZNTopoAPI::setTopoConfiguration(nothingButNodes());
  addNodes(1, 40);     // found in the first batch
  addNodes(60, 70);    // found in the second
  addNodes(110, 115);  // found in the third
  const StatementSpy spy;
  EXPECT_THAT(get(ids(1, 120)), SizeIs(40 + 11 + 6));
  EXPECT_TRUE(status.isOK());
  const std::vector<std::string> statements = spy.statements();
  ASSERT_EQ(statements.size(), 3u);
  const std::size_t sizes[] = {50, 49, 21};
  for (std::size_t i = 0; i < 3; ++i) {
    const std::string& sql = statements[i];
    EXPECT_EQ(std::count(sql.begin(), sql.end(), '\''), static_cast<int>(2 * sizes[i])) << sql;
  }
  EXPECT_THAT(statements[0], HasSubstr("('" + uuid(1) + "','"));
  EXPECT_THAT(statements[1], HasSubstr("('" + uuid(51) + "','"));
  EXPECT_THAT(statements[2], HasSubstr("('" + uuid(100) + "','"));
  // Only the misses of the last batch remain.
  std::set<ObjID> missing = ids(100, 109);
  missing.merge(ids(116, 120));
  EXPECT_EQ(notFound, missing);
}

TEST_P(NodeRetrievalTest, TheStatementOfABatchIsExact) {
  ZNTopoAPI::setTopoConfiguration(nothingButNodes());
  const StatementSpy spy;
  get({ObjID(uuid(1)), ObjID(uuid(2))});
  EXPECT_THAT(spy.statements(),
              ElementsAre(detail::nodeSelect(" NODE.ObjID in ('" + uuid(1) + "','" + uuid(2) + "')",
                                             "nwnode NODE ")));
}

TEST_P(NodeRetrievalTest, ABadBatchStopsTheWalkAndWhatWasGatheredStays) {
  ZNTopoAPI::setTopoConfiguration(nothingButNodes());
  addNodes(1, 120);
  StatementSpy spy;
  spy.fail(StatementSpy::Exec, uuid(51));  // in the second batch
  EXPECT_THAT(get(ids(1, 120)), SizeIs(50));
  EXPECT_EQ(status.getStatus(), ZN_API_SQL_EXEC_ERROR);
  EXPECT_THAT(spy.statements(), SizeIs(2));
}

TEST_P(NodeRetrievalTest, TheRouteDistinguisherOfARequestByIdentifiersIsNotLookedAt) {
  store->addNode(uuid(1), "edge", {{"V4ManagementAddressRD", 3}});
  const auto nodes = impl.getNodesByObjIDList({ObjID(uuid(1))}, notFound, status, true, false,
                                              false, ZNEntity::IPv6, 99);
  EXPECT_THAT(names(*nodes), ElementsAre("edge"));
}

// ---- cache and store ------------------------------------------------------------------------

TEST_P(NodeRetrievalTest, ARequestThatTheCacheServesWhollyMakesNoStatement) {
  addNodes(1, 3);
  get(ids(1, 3));
  notFound = {ObjID("of before")};
  const StatementSpy spy;
  EXPECT_THAT(get(ids(1, 3)), ElementsAre("node1", "node2", "node3"));
  EXPECT_THAT(spy.statements(), IsEmpty());
  EXPECT_THAT(notFound, IsEmpty());
}

TEST_P(NodeRetrievalTest, AMixedRequestGivesOnlyWhatWasReadFromTheStore) {
  addNodes(1, 2);
  get({ObjID(uuid(1))});
  EXPECT_THAT(get(ids(1, 2)), ElementsAre("node2"));
  EXPECT_THAT(notFound, ElementsAre(ObjID(uuid(1))));
  EXPECT_TRUE(status.isOK());
  // Now both are in the cache.
  EXPECT_THAT(get(ids(1, 2)), ElementsAre("node1", "node2"));
  EXPECT_THAT(notFound, IsEmpty());
}

TEST_P(NodeRetrievalTest, AMixedRequestByLegacyIdentifiersGivesWhatWasReadToo) {
  store->addNode(uuid(1), "one", {{"QRMObjId", "1"}});
  store->addNode(uuid(2), "two", {{"QRMObjId", "2"}});
  get({ObjID(1)}, true);
  EXPECT_THAT(get({ObjID(1), ObjID(2), ObjID(3)}, true), ElementsAre("two"));
  EXPECT_THAT(notFound, ElementsAre(ObjID(1), ObjID(3)));
}

TEST_P(NodeRetrievalTest, AnIdentifierOfAnotherKindIsNotFoundInTheCache) {
  addNodes(1, 1);
  get({ObjID(uuid(1))});
  EXPECT_THAT(get({ObjID("text")}), IsEmpty());
  EXPECT_THAT(notFound, ElementsAre(ObjID("text")));
  EXPECT_TRUE(status.isOK());
}

TEST_P(NodeRetrievalTest, NoIdentifiersAreRefused) {
  EXPECT_THAT(get({}), IsEmpty());
  EXPECT_EQ(status.getStatus(), ZN_API_EMPTY_OBJID_LIST);
  EXPECT_EQ(status.getAuxMsg(), "The NodeObjIDList is empty\n");
  notFound = {ObjID("of before")};
  EXPECT_THAT(names(*impl.getNodesByObjIDList_Int({}, notFound, status, false, false, false,
                                                  ZNEntity::AllProtocol, -1)),
              IsEmpty());
  EXPECT_EQ(status.getStatus(), ZN_API_EMPTY_OBJID_LIST);
  EXPECT_THAT(notFound, IsEmpty());
}

TEST_P(NodeRetrievalTest, ALoneNullIdentifierMakesAMalformedStatement) {
  const StatementSpy spy;
  EXPECT_THAT(get({ObjID()}), IsEmpty());
  EXPECT_THAT(spy.statements(), ElementsAre(HasSubstr(" where  NODE.ObjID in )")));
  EXPECT_TRUE(status.getStatus() == ZN_API_SQL_BIND_STATEMENT_ERROR ||
              status.getStatus() == ZN_API_SQL_EXEC_ERROR)
      << status.getStatus();
}

TEST_P(NodeRetrievalTest, AModelThatIsNotReadyGivesNothing) {
  addNodes(1, 1);
  store->execute("update state set TopologyReady = 2");
  const StatementSpy spy;
  EXPECT_THAT(get(ids(1, 1)), IsEmpty());
  EXPECT_EQ(status.getStatus(), ZN_API_DB_NOT_READY);
  EXPECT_EQ(status.getAuxMsg(), "Topology DB is not ready\n");
  EXPECT_THAT(spy.statements(), IsEmpty());
}

// ---- all nodes ------------------------------------------------------------------------------

TEST_P(NodeRetrievalTest, AllNodesAreReadInOneStatementWhateverTheCacheHas) {
  addNodes(1, 60);
  get(ids(1, 10));
  notFound = {ObjID("of before")};
  const StatementSpy spy;
  EXPECT_THAT(getAll(ZNEntity::AllProtocol, -1), SizeIs(60));
  EXPECT_THAT(notFound, IsEmpty());
  EXPECT_EQ(spy.statements().front(), detail::nodeSelect("", "nwnode NODE "));
  EXPECT_EQ(spy.statements().size(), 4u);  // and one of each loader that is on
}

TEST_P(NodeRetrievalTest, AllNodesMayBeRestricted) {
  store->addNode(uuid(1), "four", {{"V4ManagementAddressRD", 1}});
  store->addNode(uuid(2), "six", {{"IPLevel", 6}, {"V4ManagementAddressRD", 1}});
  store->addNode(uuid(3), "other", {{"V4ManagementAddressRD", 0}});
  EXPECT_THAT(getAll(ZNEntity::IPv4, -1), UnorderedElementsAre("four", "other"));
  EXPECT_THAT(getAll(ZNEntity::IPv6, -1), ElementsAre("six"));
  EXPECT_THAT(getAll(ZNEntity::AllProtocol, 1), UnorderedElementsAre("four", "six"));
  EXPECT_THAT(getAll(ZNEntity::IPv4, 0), ElementsAre("other"));
}

TEST_P(NodeRetrievalTest, AllOfAnEmptyStoreIsNothingAndOK) {
  const StatementSpy spy;
  EXPECT_THAT(getAll(ZNEntity::AllProtocol, -1), IsEmpty());
  EXPECT_TRUE(status.isOK());
  EXPECT_THAT(spy.statements(), SizeIs(1));  // no loader runs for no nodes
}

// ---- rows that end the reading ---------------------------------------------------------------

TEST_P(NodeRetrievalTest, ARowWithoutANameEndsTheReadingWithTheStatusOK) {
  store->addNode(uuid(1), "first", {{"hasDynamicProperty", 1}});
  store->addNode(uuid(2), "second", {{"EntityName", nullptr}});
  store->addNode(uuid(3), "third");
  store->insert("userdefvar",
                {{"ObjID", uuid(1)}, {"VarName", "owner"}, {"VarValType", 3}, {"StrVal", "me"}});
  const StatementSpy spy;
  const auto nodes =
      impl.getNodesByWhere("", "(select * from nwnode order by ObjId) NODE ", status, false);
  EXPECT_THAT(names(*nodes), ElementsAre("first"));
  EXPECT_TRUE(status.isOK());
  EXPECT_THAT(spy.statements(), SizeIs(1));  // no loader ran
  EXPECT_TRUE(nodes->front()->getUserVars().empty());
  ZNRefPtr<ZNNode> cached;
  EXPECT_FALSE(ZNTopoAPI_Impl::cache()->inNodeIDCache(ObjID(uuid(1)), cached));
}

TEST_P(NodeRetrievalTest, SoDoesARowWithoutALevel) {
  store->addNode(uuid(1), "first", {{"IPLevel", nullptr}});
  EXPECT_THAT(get(ids(1, 1)), IsEmpty());
  EXPECT_TRUE(status.isOK());
  EXPECT_THAT(notFound, ElementsAre(ObjID(uuid(1))));
}

TEST_P(NodeRetrievalTest, TheEndOfTheReadingIsLogged) {
  store->addNode(uuid(1), "first", {{"EntityName", nullptr}});
  const CapturedLog log(MC_INFO);
  get(ids(1, 1));
  EXPECT_THAT(log.lines(), AllOf(Contains("Received NULL values for critical data\n"),
                                 Contains("Unable to create Entity!\n"),
                                 Contains("The NotFoundID list size = 1\n")));
}

TEST_P(NodeRetrievalTest, AFetchThatFailsIsTheEndOfTheRows) {
  ZNTopoAPI::setTopoConfiguration(nothingButNodes());
  addNodes(1, 5);
  StatementSpy spy;
  spy.fail(StatementSpy::Fetch, " NODE ", TvDbil::DBIL_ERROR, 4);
  EXPECT_THAT(get(ids(1, 5)), SizeIs(3));
  EXPECT_TRUE(status.isOK());
  EXPECT_THAT(notFound, SizeIs(2));
}

TEST_P(NodeRetrievalTest, InformationIsNoFailureOfNodes) {
  addNodes(1, 2);
  StatementSpy spy;
  spy.answer(StatementSpy::BindSql, " NODE ", TvDbil::DBIL_SUCCESS_WITH_INFO);
  spy.answer(StatementSpy::Fetch, " NODE ", TvDbil::DBIL_SUCCESS_WITH_INFO);
  EXPECT_THAT(get(ids(1, 2)), SizeIs(2));
  EXPECT_TRUE(status.isOK());
}

// ---- the log --------------------------------------------------------------------------------

TEST_P(NodeRetrievalTest, TheRoadOfARequestIsLogged) {
  addNodes(1, 2);
  get({ObjID(uuid(1))});
  const CapturedLog log(MC_INFO);
  get(ids(1, 2));
  get(ids(1, 2));
  getAll(ZNEntity::IPv4, 8);
  EXPECT_THAT(log.lines(), AllOf(Contains("FOUND Node = " + uuid(1) + " IN CACHE! \n"),
                                 Contains("ObjIDs to be retrieve from DB :  NODE.ObjID in ('" +
                                          uuid(2) + "')\n"),
                                 Contains("SQL Statement:  NODE.ObjID in ('" + uuid(2) + "') \n"),
                                 Contains("The NotFoundID list size = 1\n"),
                                 Contains("Found all node in cache ! \n"), Contains("RD = 8 \n"),
                                 Contains("SQL Statement:   NODE.IPLevel = 4   AND  "
                                          "NODE.V4ManagementAddressRD = 8 \n")));
  EXPECT_THAT(log.lines(),
              AllOf(Contains("+getNodesByObjIDList\n"), Contains("-getNodesByObjIDList\n"),
                    Contains("+getNodesByObjIDList_Int\n"), Contains("+getNodesByWhere\n")));
}

}  // namespace
}  // namespace zntopo::test
