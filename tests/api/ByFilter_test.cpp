// Nodes, subnets, entities and addresses by attribute filters.

#include "tests/support/ApiFixture.h"
#include "tests/support/AttributeFilters.h"
#include "tests/support/CapturedLog.h"
#include "zntopo/model/IPv6AddrToBin.h"

namespace zntopo::test {
namespace {

using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;
using testing::StartsWith;
using testing::UnorderedElementsAre;

std::vector<std::string> idsOf(const ZNTopoAPI::OwnedIDList& ids) {
  return {ids->begin(), ids->end()};
}

/// One of the operations that give identifiers.
struct IDOperation {
  const char* name;
  ZNTopoAPI::OwnedIDList (ZNTopoAPI_Impl::*run)(const ZNTopoFilter&, ZNTopoAPIStatus&);
  const char* table;
  /// The texts of a column that is not bound, up to the statement, and of a failed execution.
  const char* columnText;
  const char* execText;
  bool showsSql;
  bool asksForReadiness;
  const char* nullLine;
};

constexpr IDOperation kOperations[] = {
    {"getNodeIDsByFilter", &ZNTopoAPI_Impl::getNodeIDsByFilter, "nwnode",
     "Problem binding values for getNodeIDsByFilter", "Problem Executing SQL Command", false, true,
     "Found Null data in retrieval of getNodeIDsByFilter\n"},
    {"getSubnetIDsByFilter", &ZNTopoAPI_Impl::getSubnetIDsByFilter, "nwentity",
     "Problem binding values for getSubnetIDsByFilter:", "Problem Executing SQL Command", true,
     false, "Found Null data in retrieval of getSubnetIDsByFilter\n"},
    {"getEntityIDsByFilter", &ZNTopoAPI_Impl::getEntityIDsByFilter, "nwentity",
     "Problem binding values for getEntityIDsByFilter", "Problem Executing SQL Command", false,
     false, "Found Null data in retrieval of getEntIDsByFilter\n"},
    {"getAddressIDsByFilter", &ZNTopoAPI_Impl::getAddressIDsByFilter, "address",
     "Problem binding values for getObjIDs:", "Problem Executing SQL Command:", true, true,
     "Found Null data in retrieval of getObjIDs\n"},
};

class ByFilterTest : public ApiTest {
 protected:
  auto nodes(const ZNTopoFilter& filter) { return idsOf(impl.getNodeIDsByFilter(filter, status)); }
  auto subnets(const ZNTopoFilter& filter) {
    return idsOf(impl.getSubnetIDsByFilter(filter, status));
  }
  auto entities(const ZNTopoFilter& filter) {
    return idsOf(impl.getEntityIDsByFilter(filter, status));
  }
  auto addresses(const ZNTopoFilter& filter) {
    return idsOf(impl.getAddressIDsByFilter(filter, status));
  }

  void addThreeNodes() {
    store->addNode("n1", "core-1", {{"IPLevel", 4}, {"isCDP", 1}});
    store->addNode("n2", "core-2", {{"IPLevel", 6}, {"isSTP", 1}});
    store->addNode("n3", "edge", {{"IPLevel", 4}, {"Description", "core-like"}});
  }
  /// A subnet with an address of its own.
  void addSubnet(const std::string& id, const std::string& name, int level, int scope = 0) {
    store->addEntity(id, name, 7, {{"IPLevel", level}});
    store->addAddress("own-" + id, id, "", "10.0.0.0", {{"isSubnet", 1}, {"V6ScopeType", scope}});
  }
  bool isStatementFailure() const {
    return status.getStatus() == ZN_API_SQL_BIND_STATEMENT_ERROR ||
           status.getStatus() == ZN_API_SQL_EXEC_ERROR;
  }

  ZNTopoAPI api;
};
ZNTOPO_ON_ENGINES(ByFilterTest, kEngines);

// ---- nodes ------------------------------------------------------------------------------------

TEST_P(ByFilterTest, AFreshFilterSelectsAllNodes) {
  addThreeNodes();
  EXPECT_THAT(nodes({}), UnorderedElementsAre("n1", "n2", "n3"));
  EXPECT_TRUE(status.isOK());
  EXPECT_EQ(status.getAuxMsg(), "");
}

TEST_P(ByFilterTest, NodesAreThoseOfTheKindOne) {
  addThreeNodes();
  store->execute("update nwnode set EntityType = 2 where ObjId = 'n2'");
  EXPECT_THAT(nodes({}), UnorderedElementsAre("n1", "n3"));
}

TEST_P(ByFilterTest, AnIPLevelAloneSelectsNodesOfTheLevelWithoutAnyAddress) {
  addThreeNodes();
  EXPECT_THAT(nodes(ofLevel(ZNEntity::IPv4)), UnorderedElementsAre("n1", "n3"));
  EXPECT_THAT(nodes(ofLevel(ZNEntity::IPv6)), ElementsAre("n2"));
  EXPECT_THAT(nodes(ofLevel(ZNEntity::AllProtocol)), IsEmpty()) << "no node has the level 0";
  EXPECT_TRUE(status.isOK());
}

TEST_P(ByFilterTest, ANameIsAPatternForNamesAndDescriptionsOfNodes) {
  addThreeNodes();
  EXPECT_THAT(nodes(named("core-%")), UnorderedElementsAre("n1", "n2", "n3"));
  EXPECT_THAT(nodes(named("core-_")), UnorderedElementsAre("n1", "n2"));
  EXPECT_THAT(nodes(named("core")), IsEmpty()) << "neither a part of a name nor an expression";
  EXPECT_THAT(nodes(named("CORE-1")), IsEmpty());
  EXPECT_THAT(nodes(named("")), SizeIs(3));
  EXPECT_TRUE(status.isOK());
}

TEST_P(ByFilterTest, ADomainSelectsNothingSinceItCannotBeSet) {
  addThreeNodes();
  ZNTopoFilter filter;
  filter.MarkFieldToBeFiltered(ZNTopoFilter::F_L2DomainId);
  EXPECT_THAT(nodes(filter), IsEmpty());
  EXPECT_TRUE(status.isOK());
}

TEST_P(ByFilterTest, AnIPv4AddressFindsTheOwnersOfItsInterfaces) {
  addThreeNodes();
  store->addInterface("i1", "n1", "eth0");
  store->addInterface("i2", "n2", "eth0");
  store->addAddress("a1", "i1", "n1", "10.0.0.1", {{"IPLevel", 4}});
  store->addAddress("a2", "i2", "n2", "10.0.0.2", {{"IPLevel", 4}});
  EXPECT_THAT(nodes(withAddress("10.0.0.1", ZNAddress::IPv4)), ElementsAre("n1"));
  EXPECT_THAT(nodes(withAddress("10.0.0.%", ZNAddress::IPv4)), IsEmpty()) << "no pattern here";
  EXPECT_THAT(nodes(withAddress("10.0.0.1", ZNAddress::IPv6)), SizeIs(3)) << "another type is none";
  store->addInterface("i3", "n1", "eth1");
  store->addAddress("a3", "i3", "n1", "10.0.0.1", {{"IPLevel", 4}, {"RouteDistinguisher", 7}});
  EXPECT_THAT(nodes(withAddress("10.0.0.1", ZNAddress::IPv4)), ElementsAre("n1", "n1"))
      << "one for each interface";
  EXPECT_TRUE(status.isOK());
}

TEST_P(ByFilterTest, AnIPv4AddressMakesALevelAndANameMeanNothing) {
  addThreeNodes();
  store->addInterface("i1", "n1", "eth0");
  store->addAddress("a1", "i1", "n1", "10.0.0.1", {{"IPLevel", 4}});
  ZNTopoFilter filter = withAddress("10.0.0.1", ZNAddress::IPv4);
  filter.setIPLevel(ZNEntity::IPv6);
  filter.setRegexEntityName("no such node");
  EXPECT_THAT(nodes(filter), ElementsAre("n1"));
  EXPECT_TRUE(status.isOK());
}

TEST_P(ByFilterTest, AnAddressAndCapabilitiesEndInAFailedStatement) {
  addThreeNodes();
  ZNTopoFilter filter = withAddress("10.0.0.1", ZNAddress::IPv4);
  filter.setOrCapabilityNames(capabilities({"isCDP"}));
  EXPECT_THAT(nodes(filter), IsEmpty());
  EXPECT_TRUE(isStatementFailure()) << status.getStatus();
}

TEST_P(ByFilterTest, OneOfTheCapabilitiesIsEnough) {
  addThreeNodes();
  ZNTopoFilter filter = ableTo({"isCDP", "isSTP"});
  EXPECT_THAT(nodes(filter), UnorderedElementsAre("n1", "n2"));
  filter.setIPLevel(ZNEntity::IPv6);
  EXPECT_THAT(nodes(filter), ElementsAre("n2"));
  EXPECT_TRUE(status.isOK());
  filter.setOrCapabilityNames(capabilities({"isNothing"}));
  EXPECT_THAT(nodes(filter), IsEmpty());
  EXPECT_TRUE(isStatementFailure());
  filter.setOrCapabilityNames({});
  EXPECT_THAT(nodes(filter), IsEmpty());
  EXPECT_TRUE(isStatementFailure());
}

TEST_P(ByFilterTest, CapabilitiesThatAllMustBeThereOrMissingChangeNoResult) {
  addThreeNodes();
  ZNTopoFilter filter;
  filter.setCapabilityNames(capabilities({"isCDP", "isNothing"}));
  filter.setExcludeCapabilityNames(capabilities({"isSTP", "isNothing"}));
  EXPECT_THAT(nodes(filter), UnorderedElementsAre("n1", "n2", "n3"));
  EXPECT_TRUE(status.isOK());
}

TEST_P(ByFilterTest, TheWorkingTablesHaveNodesOfTheirOwn) {
  addThreeNodes();
  store->addNode("w", "core-w", {}, WorkingDB);
  store->execute("update state set TopologyReady = 0");
  EXPECT_THAT(idsOf(working.getNodeIDsByFilter(named("core%"), status)), ElementsAre("w"));
  EXPECT_TRUE(status.isOK());
}

// ---- node objects -----------------------------------------------------------------------------

TEST_P(ByFilterTest, AFilterThatThreeNodesPassGivesOneNode) {
  addThreeNodes();
  const auto ids = nodes({});
  ASSERT_THAT(ids, SizeIs(3));
  const auto found = impl.getNodesByFilter({}, status);
  EXPECT_TRUE(status.isOK());
  ASSERT_THAT(*found, SizeIs(1));
  EXPECT_EQ(found->front()->getObjID(), ObjID(ids.front()));
}

TEST_P(ByFilterTest, AFilterThatNoNodePassesTellsOfAnEmptyList) {
  addThreeNodes();
  const CapturedLog log;
  EXPECT_THAT(*impl.getNodesByFilter(named("none"), status), IsEmpty());
  EXPECT_EQ(status.getStatus(), ZN_API_EMPTY_OBJID_LIST);
  EXPECT_EQ(status.getAuxMsg(), "The NodeObjIDList is empty\n");
  EXPECT_THAT(log.text(), HasSubstr("Fail in  getNodesByObjIDList()," + status.getStatusMsg() +
                                    ":The NodeObjIDList is empty\n\n "));
}

TEST_P(ByFilterTest, ANodeObjectsFailedStatementIsToldAsAnEmptyList) {
  addThreeNodes();
  EXPECT_THAT(*impl.getNodesByFilter(ableTo({"isNothing"}), status), IsEmpty());
  EXPECT_EQ(status.getStatus(), ZN_API_EMPTY_OBJID_LIST);
}

TEST_P(ByFilterTest, NodeObjectsOfAStoreThatIsNotReadySaySo) {
  addThreeNodes();
  store->execute("update state set TopologyReady = 0");
  EXPECT_THAT(*impl.getNodesByFilter({}, status), IsEmpty());
  EXPECT_EQ(status.getStatus(), ZN_API_DB_NOT_READY);
}

// ---- subnets ----------------------------------------------------------------------------------

TEST_P(ByFilterTest, SubnetsAreThoseWithAnAddressOfTheirOwn) {
  addSubnet("s4", "10.0.0.0", 4);
  addSubnet("s6", "2001:db8::", 6, 3);
  store->addEntity("bare", "bare", 7);
  store->addEntity("vlan", "10.0.0.0", 4);
  EXPECT_THAT(subnets({}), UnorderedElementsAre("s4", "s6"));
  EXPECT_THAT(subnets(ofLevel(ZNEntity::IPv6)), ElementsAre("s6"));
  EXPECT_THAT(subnets(named("10.%")), ElementsAre("s4"));
  EXPECT_THAT(subnets(named("")), IsEmpty()) << "an empty name is looked for";
  EXPECT_THAT(subnets(ofScope(InetAddressIPv6::Global)), ElementsAre("s6"));
  EXPECT_TRUE(status.isOK());
}

TEST_P(ByFilterTest, TheDescriptionOfASubnetIsLookedAtToo) {
  addSubnet("s", "net", 4);
  store->execute("update nwentity set Description = 'the quay'");
  EXPECT_THAT(subnets(named("the%")), ElementsAre("s"));
}

// ---- entities ---------------------------------------------------------------------------------

TEST_P(ByFilterTest, AFreshFilterOfEntitiesEndsInAFailedStatement) {
  store->addEntity("s", "net", 7);
  EXPECT_THAT(entities({}), IsEmpty());
  EXPECT_TRUE(isStatementFailure()) << status.getStatus();
}

TEST_P(ByFilterTest, EntitiesHaveALevelAKindAndAName) {
  store->addEntity("s4", "net", 7, {{"IPLevel", 4}});
  store->addEntity("s6", "net6", 7, {{"IPLevel", 6}});
  store->addEntity("v", "net", 4, {{"IPLevel", 4}, {"Description", "office"}});
  EXPECT_THAT(entities(ofLevel(ZNEntity::IPv6)), ElementsAre("s6"));
  ZNTopoFilter filter = ofKind(E_Vlan);
  EXPECT_THAT(entities(filter), ElementsAre("v"));
  filter.setRegexEntityName("net%");
  EXPECT_THAT(entities(filter), ElementsAre("v"));
  filter.setEntityType(E_Subnet);
  EXPECT_THAT(entities(filter), UnorderedElementsAre("s4", "s6"));
  filter.setIPLevel(ZNEntity::IPv4);
  EXPECT_THAT(entities(filter), ElementsAre("s4"));
  EXPECT_THAT(entities(named("office")), IsEmpty()) << "descriptions are not looked at";
  EXPECT_TRUE(status.isOK());
}

TEST_P(ByFilterTest, EntitiesOfTheWorkingTablesCannotBeFiltered) {
  store->addEntity("w", "net", 7, {}, WorkingDB);
  EXPECT_THAT(*working.getEntityIDsByFilter(named("net"), status), IsEmpty());
  EXPECT_TRUE(isStatementFailure()) << status.getStatus();
}

// ---- addresses --------------------------------------------------------------------------------

TEST_P(ByFilterTest, AddressesOfSubnetsAreLeftOut) {
  addSubnet("s4", "10.0.0.0", 4);
  store->addAddress("a", "i", "n", "10.0.0.1");
  EXPECT_THAT(addresses({}), ElementsAre("a"));
  EXPECT_TRUE(status.isOK());
}

TEST_P(ByFilterTest, AddressesHaveATypeATextALevelAndAScope) {
  store->addAddress("a4", "i", "n", "10.0.0.1", {{"IPLevel", 4}});
  store->addAddress("b4", "i", "n", "10.0.1.1", {{"IPLevel", 4}});
  store->addAddress(
      "a6", "i", "n", "",
      {{"AddressType", 2}, {"IPLevel", 6}, {"V6Address", "2001:db8::1"}, {"V6ScopeType", 3}});
  EXPECT_THAT(addresses(withAddress("10.0.0.%", ZNAddress::IPv4)), ElementsAre("a4"));
  EXPECT_THAT(addresses(withAddress("10.0.0", ZNAddress::IPv4)), IsEmpty());
  EXPECT_THAT(addresses(withAddress("2001:db8:%", ZNAddress::IPv6)), ElementsAre("a6"));
  EXPECT_THAT(addresses(ofLevel(ZNEntity::IPv4)), UnorderedElementsAre("a4", "b4"));
  EXPECT_THAT(addresses(ofScope(InetAddressIPv6::Global)), ElementsAre("a6"));
  EXPECT_TRUE(status.isOK());
}

TEST_P(ByFilterTest, APrefixSelectsTheAddressesThatBeginWithItsBits) {
  const auto add = [this](const std::string& id, const std::string& address) {
    store->addAddress(id, "i", "n", "",
                      {{"AddressType", 2},
                       {"V6Address", address},
                       {"V6AddressBS", IPv6AddrToBin(address).getBinStr()}});
  };
  add("in", "2001:db8::1");
  add("near", "2001:db8:8000::1");
  add("out", "2001:db9::1");
  store->addAddress("v4", "i", "n", "10.0.0.1");
  ZNTopoFilter filter;
  filter.setPrefixAddressStr("2001:db8::");
  filter.setPrefixLength(33);
  EXPECT_THAT(addresses(filter), ElementsAre("in"));
  filter.setPrefixLength(32);
  EXPECT_THAT(addresses(filter), UnorderedElementsAre("in", "near"));
  filter.setPrefixLength(0);
  EXPECT_THAT(addresses(filter), UnorderedElementsAre("in", "near", "out")) << "all that have bits";
  EXPECT_TRUE(status.isOK());
}

TEST_P(ByFilterTest, ThereIsNeverANextPageOfAddresses) {
  store->addAddress("a", "i", "n", "10.0.0.1");
  EXPECT_THAT(addresses({}), SizeIs(1));
  EXPECT_FALSE(impl.getAddressIDsByFilterNext(status));
  status = ZNTopoAPIStatus(ZN_API_NO_PATH, "of before\n");
  EXPECT_FALSE(impl.getAddressIDsByFilterNext(status));
  EXPECT_EQ(status.getStatus(), ZN_API_NO_PATH);
  EXPECT_EQ(status.getAuxMsg(), "of before\n");
}

TEST_P(ByFilterTest, APageMakesNoDifferenceAndIsNotTouched) {
  addThreeNodes();
  BatchInfo batch(2);
  EXPECT_THAT(idsOf(api.getNodeIDsByFilter({}, status, &batch)), SizeIs(3));
  EXPECT_THAT(*api.getNodesByFilter({}, status, &batch), SizeIs(1));
  EXPECT_THAT(idsOf(api.getSubnetIDsByFilter({}, status, &batch)), IsEmpty());
  EXPECT_THAT(idsOf(api.getEntityIDsByFilter(named("x"), status, &batch)), IsEmpty());
  EXPECT_THAT(idsOf(api.getAddressIDsByFilter({}, status, &batch)), IsEmpty());
  EXPECT_TRUE(status.isOK());
  EXPECT_EQ(batch.getBatchSize(), 2);
  EXPECT_FALSE(batch.hasNext());
  EXPECT_EQ(batch.getResultSetID(), 0);
}

// ---- all of them ------------------------------------------------------------------------------

/// A filter that every operation makes a statement of.
ZNTopoFilter levelOfAll() { return ofLevel(ZNEntity::IPv4); }

TEST_P(ByFilterTest, ATextThatClosesItsQuoteAddsNoStatement) {
  addThreeNodes();
  const std::string smuggled = "x'; delete from nwnode; --";
  const struct {
    ZNTopoAPI::OwnedIDList (ZNTopoAPI_Impl::*run)(const ZNTopoFilter&, ZNTopoAPIStatus&);
    ZNTopoFilter filter;
  } attempts[] = {
      {&ZNTopoAPI_Impl::getNodeIDsByFilter, named(smuggled)},
      {&ZNTopoAPI_Impl::getNodeIDsByFilter, withAddress(smuggled, ZNAddress::IPv4)},
      {&ZNTopoAPI_Impl::getNodeIDsByFilter, ableTo({"isCDP = 1); delete from nwnode; --"})},
      {&ZNTopoAPI_Impl::getSubnetIDsByFilter, named(smuggled)},
      {&ZNTopoAPI_Impl::getEntityIDsByFilter, named(smuggled)},
      {&ZNTopoAPI_Impl::getAddressIDsByFilter, withAddress(smuggled, ZNAddress::IPv4)},
      {&ZNTopoAPI_Impl::getAddressIDsByFilter, withAddress(smuggled, ZNAddress::IPv6)},
  };
  for (const auto& attempt : attempts) {
    const StatementSpy spy;
    EXPECT_THAT(*(impl.*attempt.run)(attempt.filter, status), IsEmpty());
    EXPECT_EQ(status.getStatus(), ZN_API_SQL_BIND_STATEMENT_ERROR) << spy.statements().back();
    EXPECT_THAT(status.getAuxMsg(), HasSubstr("more than one statement"));
    EXPECT_THAT(spy.statements().back(), HasSubstr("; delete from nwnode; --"));
  }
  EXPECT_THAT(*impl.getNodesByFilter(named(smuggled), status), IsEmpty());
  EXPECT_EQ(status.getStatus(), ZN_API_EMPTY_OBJID_LIST);
  EXPECT_EQ(store->count("nwnode"), 3);
}

TEST_P(ByFilterTest, AConditionInATextIsRun) {
  addThreeNodes();
  EXPECT_THAT(nodes(named("x' or '1' = '1")), UnorderedElementsAre("n1", "n2", "n3"));
  EXPECT_TRUE(status.isOK());
}

TEST_P(ByFilterTest, ABackslashInAPatternEscapesOnPostgreSqlAlone) {
  store->addNode("n1", "core%");
  store->addNode("n2", "core\\-2");
  EXPECT_THAT(nodes(named("core\\%")), ElementsAre(store->isPostgres() ? "n1" : "n2"));
  EXPECT_TRUE(status.isOK());
}

TEST_P(ByFilterTest, FailedStepsTellTheirTexts) {
  for (const IDOperation& operation : kOperations) {
    const auto fails = [&](StatementSpy::Step step, ZNTopoStatus code, const std::string& text,
                           bool withSql) {
      StatementSpy spy;
      spy.fail(step, operation.table);
      EXPECT_THAT(*(impl.*operation.run)(levelOfAll(), status), IsEmpty());
      EXPECT_EQ(status.getStatus(), code) << operation.name;
      const std::string sql = withSql ? spy.statements().back() : "";
      EXPECT_THAT(status.getAuxMsg(), StartsWith(text + sql + "\n")) << operation.name;
      EXPECT_THAT(status.getAuxMsg(), HasSubstr(StatementSpy::kMessage)) << operation.name;
    };
    fails(StatementSpy::BindSql, ZN_API_SQL_BIND_STATEMENT_ERROR,
          "Unable to bind SQL Statement: ", true);
    fails(StatementSpy::BindColumn, ZN_API_SQL_BIND_COLUMN_ERROR, operation.columnText,
          operation.showsSql);
    fails(StatementSpy::Exec, ZN_API_SQL_EXEC_ERROR, operation.execText, operation.showsSql);
  }
}

TEST_P(ByFilterTest, WithoutAConnectionTheHoldersStatusComesBack) {
  breakConnections();
  for (const IDOperation& operation : kOperations) {
    const CapturedLog log;
    EXPECT_THAT(*(working.*operation.run)(levelOfAll(), status), IsEmpty());
    EXPECT_EQ(status.getStatus(), ZN_API_DB_CONNECTION_FAILURE) << operation.name;
    EXPECT_THAT(log.lines(), Contains("Fail to get a connection \n")) << operation.name;
  }
}

TEST_P(ByFilterTest, NodesAndAddressesWaitForAReadyStoreTheOthersDoNot) {
  addThreeNodes();
  addSubnet("s", "net", 4);
  store->addAddress("a", "i", "n1", "10.0.0.1", {{"IPLevel", 4}});
  store->execute("update state set TopologyReady = 0");
  for (const IDOperation& operation : kOperations) {
    const auto ids = (impl.*operation.run)(levelOfAll(), status);
    EXPECT_EQ(ids->empty(), operation.asksForReadiness) << operation.name;
    EXPECT_EQ(status.getStatus(), operation.asksForReadiness ? ZN_API_DB_NOT_READY : ZN_API_SUCCESS)
        << operation.name;
  }
}

TEST_P(ByFilterTest, TheLogShowsEachStatementAsItGoesToTheStore) {
  for (const IDOperation& operation : kOperations) {
    const CapturedLog log(MC_INFO);
    const StatementSpy spy;
    (impl.*operation.run)(levelOfAll(), status);
    EXPECT_THAT(log.lines(), Contains(std::string(operation.name) +
                                      " SQL String: " + spy.statements().back() + " \n"));
    const bool saysExecuting = operation.name == std::string("getNodeIDsByFilter") ||
                               operation.name == std::string("getEntityIDsByFilter");
    const auto lines = log.lines();
    EXPECT_EQ(std::count(lines.begin(), lines.end(), "Executing .. \n"), saysExecuting)
        << operation.name;
  }
}

TEST_P(ByFilterTest, ARowWithoutAnIdentifierIsLeftOutAndLogged) {
  // The keys can't be NULL, but a text can be empty, which counts as absent.
  store->addNode("n", "net", {{"IPLevel", 4}});
  store->addNode("", "net", {{"IPLevel", 4}});
  addSubnet("s", "net", 4);
  store->execute("update nwentity set EntityType = 7 where ObjId = ''");
  store->addAddress("own", "", "", "10.0.0.0", {{"isSubnet", 1}});
  store->addAddress("a", "i", "n", "10.0.0.1", {{"IPLevel", 4}});
  store->addAddress("", "i", "n", "10.0.0.2", {{"IPLevel", 4}});
  for (const IDOperation& operation : kOperations) {
    const CapturedLog log(MC_INFO);
    const auto ids = idsOf((impl.*operation.run)(levelOfAll(), status));
    EXPECT_TRUE(status.isOK()) << operation.name;
    EXPECT_THAT(ids, AllOf(Not(IsEmpty()), Not(Contains("")))) << operation.name;
    EXPECT_THAT(log.lines(), Contains(operation.nullLine)) << operation.name;
  }
}

TEST_P(ByFilterTest, OperationsOpenAndCloseTheirScope) {
  const CapturedLog log(MC_INFO);
  for (const IDOperation& operation : kOperations) {
    (impl.*operation.run)(levelOfAll(), status);
    EXPECT_THAT(log.lines(), Contains("+" + std::string(operation.name) + "\n"));
    EXPECT_THAT(log.lines(), Contains("-" + std::string(operation.name) + "\n"));
  }
  impl.getNodesByFilter({}, status);
  EXPECT_THAT(log.lines(), Contains("+getNodesByFilter\n"));
}

}  // namespace
}  // namespace zntopo::test
