// What hangs on nodes: user variables, layer-2 connections, VLANs and containers.

#include "tests/support/ApiFixture.h"
#include "tests/support/CapturedLog.h"
#include "zntopo/api/detail/AttachmentSql.h"
#include "zntopo/api/detail/NodeSql.h"
#include "zntopo/core/ObjIDLookup.h"

namespace zntopo::test {
namespace {

using testing::AllOf;
using testing::Contains;
using testing::Each;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;

/// Identifiers that nothing has.
std::list<ObjID> manyIDs(int count) {
  std::list<ObjID> ids;
  for (int i = 1; i <= count; ++i) ids.emplace_back(uuid(i, 'f'));
  return ids;
}

/// The base of the suites here.
class AttachmentTest : public ApiTest {
 protected:
  const ObjID node1{uuid(1)};
  const ObjID node2{uuid(2)};
};

// ---- user variables -----------------------------------------------------------------------------

class UserVarTest : public AttachmentTest {
 protected:
  void addVar(const std::string& owner, const std::string& name, int type, const Value& text,
              const Value& number, const Value& real = nullptr) {
    store->insert("userdefvar", {{"ObjID", owner},
                                 {"VarName", name},
                                 {"VarValType", type},
                                 {"StrVal", text},
                                 {"IntVal", number},
                                 {"FloatVal", real}});
  }

  std::map<std::string, VarValue> varsOfNode1() {
    const auto map = impl.getUserDefVarsByObjIDList({node1}, status);
    EXPECT_TRUE(status.isOK()) << status.getAuxMsg();
    std::map<std::string, VarValue> result;
    const auto found = findObjID(*map, node1);
    if (found == map->end()) return result;
    for (const UserDefVar& var : *found->second) result.emplace(var.getName(), var.getValue());
    return result;
  }
};
ZNTOPO_ON_ENGINES(UserVarTest, kMainEngines);

TEST_P(UserVarTest, EachTypeIsBuiltFromItsColumn) {
  addVar(uuid(1), "short", 0, nullptr, 65537);
  addVar(uuid(1), "long", 1, nullptr, -5);
  addVar(uuid(1), "longlong", 2, nullptr, -6);
  addVar(uuid(1), "text", 3, "hello", nullptr);
  addVar(uuid(1), "float", 5, nullptr, 1, 2.5);
  addVar(uuid(1), "bool", 6, nullptr, 1);
  auto vars = varsOfNode1();
  ASSERT_THAT(vars, SizeIs(6));
  EXPECT_EQ(vars["short"].getValType(), VarValue::VT_Short);
  EXPECT_EQ(vars["short"].getShortVal(), 1);
  EXPECT_EQ(vars["long"].getValType(), VarValue::VT_Long);
  EXPECT_EQ(vars["long"].getLongVal(), -5);
  EXPECT_EQ(vars["longlong"].getValType(), VarValue::VT_LongLong);
  EXPECT_EQ(vars["longlong"].getLongLongVal(), -6);
  EXPECT_EQ(vars["text"].getValType(), VarValue::VT_Str);
  EXPECT_EQ(vars["text"].getStrVal(), "hello");
  EXPECT_EQ(vars["float"].getValType(), VarValue::VT_Float);
  EXPECT_EQ(vars["float"].getFloatVal(), 2.5f);
  // Built from an int, a boolean is tagged as a long.
  EXPECT_EQ(vars["bool"].getValType(), VarValue::VT_Long);
  EXPECT_EQ(vars["bool"].getLongVal(), 1);
}

TEST_P(UserVarTest, AFloatDependsOnTheWholeNumberBesideIt) {
  addVar(uuid(1), "lost", 5, nullptr, nullptr, 2.5);
  addVar(uuid(1), "kept", 5, nullptr, 0, nullptr);
  auto vars = varsOfNode1();
  ASSERT_THAT(vars, SizeIs(1));
  EXPECT_EQ(vars.at("kept").getFloatVal(), 0.0f);
}

TEST_P(UserVarTest, ARowWithoutWhatItNeedsLeavesAnEmptyVector) {
  addVar(uuid(1), "text", 3, nullptr, 4);
  addVar(uuid(1), "number", 1, "4", nullptr);
  addVar(uuid(1), "octets", 7, "4", 4);
  const auto map = impl.getUserDefVarsByObjIDList({node1, node2}, status);
  ASSERT_THAT(*map, SizeIs(1));
  EXPECT_THAT(*map->at(node1), IsEmpty());
}

TEST_P(UserVarTest, AnUnknownTypeIsLoggedWithTheTextAsItIs) {
  addVar(uuid(1), "octets", 7, "4", 4);
  const CapturedLog log(MC_INFO);
  varsOfNode1();
  EXPECT_THAT(log.lines(), Contains(HasSubstr("Unknown user defined variable type/n")));
}

TEST_P(UserVarTest, NoIdentifiersAreRefused) {
  EXPECT_THAT(*impl.getUserDefVarsByObjIDList({}, status), IsEmpty());
  EXPECT_EQ(status.getStatus(), ZN_API_EMPTY_OBJID_LIST);
  EXPECT_EQ(status.getAuxMsg(), "The UserDefVar ObjIDList is empty\n");
}

TEST_P(UserVarTest, AModelThatIsNotReadyHasNone) {
  addVar(uuid(1), "text", 3, "x", 4);
  store->execute("update state set TopologyReady = 0");
  EXPECT_THAT(*impl.getUserDefVarsByObjIDList({node1}, status), IsEmpty());
  EXPECT_EQ(status.getStatus(), ZN_API_DB_NOT_READY);
}

TEST_P(UserVarTest, TheWholeListIsAskedForAtEachBoundary) {
  std::list<ObjID> ids = manyIDs(120);
  ids.push_back(node1);
  addVar(uuid(1), "text", 3, "x", 4);
  const StatementSpy spy;
  const auto map = impl.getUserDefVarsByObjIDList(ids, status);
  ASSERT_THAT(*map, SizeIs(1));
  EXPECT_THAT(*map->at(node1), SizeIs(1));  // and not three times
  EXPECT_THAT(spy.statements(),
              AllOf(SizeIs(3), Each(detail::userVarSelect(TableSet(), E_Unknown, "", ids))));
}

TEST_P(UserVarTest, AllVariablesOfAKindAreThoseOfItsTable) {
  store->addNode(uuid(1), "edge");
  store->addInterface(uuid(2, 'c'), uuid(1), "eth0");
  store->addEntity(uuid(3, 'd'), "vlan", 4);
  addVar(uuid(1), "ofNode", 3, "x", 1);
  addVar(uuid(2, 'c'), "ofInterface", 3, "x", 1);
  addVar(uuid(3, 'd'), "ofVlan", 3, "x", 1);
  const std::pair<EntityType, std::string> kinds[] = {
      {E_Node, uuid(1)}, {E_Interface, uuid(2, 'c')}, {E_Vlan, uuid(3, 'd')}};
  for (const auto& [kind, owner] : kinds) {
    // The list is not used in the statement.
    const auto map = impl.getUserDefVarsByObjIDList_Int({ObjID("nobody")}, status, kind);
    ASSERT_THAT(*map, SizeIs(1)) << kind;
    EXPECT_EQ(map->begin()->first, ObjID(owner));
  }
}

TEST_P(UserVarTest, AKindWithoutATableFails) {
  EXPECT_THAT(*impl.getUserDefVarsByObjIDList_Int({}, status, E_Subnet), IsEmpty());
  EXPECT_TRUE(status.getStatus() == ZN_API_SQL_BIND_STATEMENT_ERROR ||
              status.getStatus() == ZN_API_SQL_EXEC_ERROR);
}

TEST_P(UserVarTest, ARowWithInformationEndsTheReading) {
  addVar(uuid(1), "a", 3, "x", 1);
  StatementSpy spy;
  spy.answer(StatementSpy::Fetch, "userdefvar", TvDbil::DBIL_SUCCESS_WITH_INFO);
  EXPECT_THAT(varsOfNode1(), IsEmpty());
}

// ---- layer-2 connections
// ---------------------------------------------------------------------------

class ConnDataTest : public AttachmentTest {
 protected:
  void SetUp() override {
    AttachmentTest::SetUp();
    if (!store) return;
    store->addLink(uuid(11, 'c'), uuid(21, 'c'), uuid(1), uuid(2));
  }
};
ZNTOPO_ON_ENGINES(ConnDataTest, kMainEngines);

TEST_P(ConnDataTest, EachEndThatIsAskedForGetsARecordOfItsOwn) {
  const auto map = impl.getConnDatasByNodeObjIDList({node1, node2}, status, false);
  EXPECT_TRUE(status.isOK());
  ASSERT_THAT(*map, SizeIs(2));
  const auto& left = *map->at(node1);
  const auto& right = *map->at(node2);
  ASSERT_THAT(left, SizeIs(1));
  ASSERT_THAT(right, SizeIs(1));
  EXPECT_FALSE(left.front() == right.front());
  EXPECT_TRUE(left.front()->isNodeSide());
  EXPECT_FALSE(right.front()->isNodeSide());
  for (const auto& record : {left.front(), right.front()}) {
    EXPECT_EQ(record->getSrcInterfaceObjID(), ObjID(uuid(11, 'c')));
    EXPECT_EQ(record->getDestInterfaceObjID(), ObjID(uuid(21, 'c')));
    EXPECT_EQ(record->getSrcNodeObjID(), node1);
    EXPECT_EQ(record->getDestNodeObjID(), node2);
  }
}

TEST_P(ConnDataTest, TheOtherEndGetsNoneUnlessItIsAskedFor) {
  const auto map = impl.getConnDatasByNodeObjIDList({node2}, status, false);
  ASSERT_THAT(*map, SizeIs(1));
  EXPECT_THAT(*map->at(node2), SizeIs(1));
}

TEST_P(ConnDataTest, ANodeWithoutLinksHasAnEmptyVector) {
  const auto map = impl.getConnDatasByNodeObjIDList({ObjID(uuid(9))}, status, false);
  ASSERT_THAT(*map, SizeIs(1));
  EXPECT_THAT(*map->begin()->second, IsEmpty());
}

TEST_P(ConnDataTest, ALinkOfANodeWithItselfGivesBothRecords) {
  store->addLink(uuid(12, 'c'), uuid(13, 'c'), uuid(1), uuid(1));
  const auto map = impl.getConnDatasByNodeObjIDList({node1}, status, false);
  EXPECT_THAT(*map->at(node1), SizeIs(3));
}

TEST_P(ConnDataTest, AllConnectionsAreReadAndOnlyThoseOfTheKeysKept) {
  store->addLink(uuid(31, 'c'), uuid(41, 'c'), uuid(3), uuid(4));
  const StatementSpy spy;
  const auto map = impl.getConnDatasByNodeObjIDList({node1}, status, true);
  EXPECT_THAT(spy.statements(),
              ElementsAre("select leftobjid, rightobjid, leftifnodeobjid, rightifnodeobjid from "
                          "NWInterfaceAsc where reltype = 1 "));
  ASSERT_THAT(*map, SizeIs(1));
  EXPECT_THAT(*map->at(node1), SizeIs(1));
}

TEST_P(ConnDataTest, OtherRelationsAndRowsWithHolesAreLeftOut) {
  store->addLink(uuid(12, 'c'), uuid(22, 'c'), uuid(1), uuid(2), {{"reltype", 2}});
  store->execute("update NWInterfaceAsc set reltype = 2");
  store->insert("NWInterfaceAsc", {{"leftobjid", uuid(14, 'c')},
                                   {"rightobjid", uuid(24, 'c')},
                                   {"leftifnodeobjid", uuid(1)},
                                   {"rightifnodeobjid", nullptr},
                                   {"reltype", 1}});
  store->addLink(uuid(15, 'c'), uuid(25, 'c'), uuid(1), uuid(2));
  const CapturedLog log(MC_INFO);
  const auto map = impl.getConnDatasByNodeObjIDList({node1}, status, false);
  ASSERT_THAT(*map->at(node1), SizeIs(1));
  EXPECT_EQ(map->at(node1)->front()->getSrcInterfaceObjID(), ObjID(uuid(15, 'c')));
  EXPECT_THAT(log.lines(), AllOf(Contains("One of RelatedTo table entries's row is empty \n"),
                                 Contains(" getAll : 0 ! \n")));
}

TEST_P(ConnDataTest, NoIdentifiersGiveAnEmptyMapAndOK) {
  const CapturedLog log(MC_INFO);
  EXPECT_THAT(*impl.getConnDatasByNodeObjIDList({}, status, false), IsEmpty());
  EXPECT_TRUE(status.isOK());
  EXPECT_THAT(log.lines(), Contains(" empty ObjID list ! \n"));
  EXPECT_THAT(*impl.getConnDatasByNodeObjIDList_Int({}, status, false), IsEmpty());
  EXPECT_TRUE(status.isOK());
}

TEST_P(ConnDataTest, ManyIdentifiersGoInBatches) {
  const StatementSpy spy;
  const auto map = impl.getConnDatasByNodeObjIDList(manyIDs(120), status, false);
  EXPECT_THAT(*map, SizeIs(120));
  EXPECT_THAT(spy.statements(), SizeIs(3));
}

TEST_P(ConnDataTest, ARowWithInformationEndsTheReading) {
  StatementSpy spy;
  spy.answer(StatementSpy::Fetch, "NWInterfaceAsc", TvDbil::DBIL_SUCCESS_WITH_INFO);
  const auto map = impl.getConnDatasByNodeObjIDList({node1}, status, false);
  EXPECT_THAT(*map->at(node1), IsEmpty());
  EXPECT_TRUE(status.isOK());
}

// ---- VLANs
// -------------------------------------------------------------------------------------------

class VlanInfoTest : public AttachmentTest {
 protected:
  const ObjID vlan1{uuid(1, 'd')};
  const ObjID vlan2{uuid(2, 'd')};

  void addMember(int vlan, int node, int interface, const Value& port = "3",
                 const Value& card = "1") {
    store->addInterface(
        uuid(interface, 'c'), uuid(node), "if" + std::to_string(interface),
        {{"NodeName", "node" + std::to_string(node)}, {"VendorPort", port}, {"VendorCard", card}});
    addContainment(vlan, node, interface, 4);
  }

  void addContainment(int vlan, int node, int interface, int containerType) {
    store->insert("containment", {{"ContainerObjID", uuid(vlan, 'd')},
                                  {"ContainedObjID", uuid(interface, 'c')},
                                  {"ContainedNodeObjId", uuid(node)},
                                  {"ContainerType", containerType},
                                  {"ContainedType", 2}});
  }
};
ZNTOPO_ON_ENGINES(VlanInfoTest, kMainEngines);

TEST_P(VlanInfoTest, OfNodesTheInterfacesAreGroupedByVlan) {
  addMember(1, 1, 11);
  addMember(1, 1, 12);
  addMember(2, 1, 13);
  addMember(1, 2, 21);
  const auto map = impl.getVlanInfosByObjIDList({node1}, status, true, false);
  EXPECT_TRUE(status.isOK());
  ASSERT_THAT(*map, SizeIs(1));
  std::map<ObjID, std::size_t> members;
  for (const ZNVlanInfo& info : *map->at(node1)) {
    EXPECT_EQ(info.getNodeObjID(), node1);
    EXPECT_EQ(info.getNodeName(), "node1");
    members[info.getVlanObjID()] = info.getVlanIFInfoList().size();
  }
  EXPECT_EQ(members, (std::map<ObjID, std::size_t>{{vlan1, 2}, {vlan2, 1}}));
}

TEST_P(VlanInfoTest, OfVlansTheyAreGroupedByNode) {
  addMember(1, 1, 11);
  addMember(1, 1, 12);
  addMember(1, 2, 21);
  const auto map = impl.getVlanInfosByObjIDList({vlan1}, status, false, false);
  ASSERT_THAT(*map, SizeIs(1));
  std::map<ObjID, std::size_t> members;
  for (const ZNVlanInfo& info : *map->at(vlan1)) {
    EXPECT_EQ(info.getVlanObjID(), vlan1);
    members[info.getNodeObjID()] = info.getVlanIFInfoList().size();
  }
  EXPECT_EQ(members, (std::map<ObjID, std::size_t>{{node1, 2}, {node2, 1}}));
}

TEST_P(VlanInfoTest, AMemberHasItsLabels) {
  addMember(1, 1, 11, "12", "7");
  const auto map = impl.getVlanInfosByObjIDList({node1}, status, true, false);
  const ZNVlanIFInfo& member = map->at(node1)->front().getVlanIFInfoList().front();
  EXPECT_EQ(member.getIFObjID(), ObjID(uuid(11, 'c')));
  EXPECT_EQ(member.getPortNumber(), "12");
  EXPECT_EQ(member.getBoardNumber(), "7");
}

TEST_P(VlanInfoTest, AMemberWithoutCardOrPortIsLeftOut) {
  addMember(1, 1, 11, nullptr, "1");
  addMember(1, 1, 12, "1", nullptr);
  const CapturedLog log(MC_INFO);
  EXPECT_THAT(*impl.getVlanInfosByObjIDList({node1}, status, true, false), IsEmpty());
  EXPECT_TRUE(status.isOK());
  EXPECT_THAT(log.lines(),
              AllOf(Contains("Card and Port number for this interface is not define \n"),
                    Contains(HasSubstr("Executing SQL: select  a.ContainerObjID")),
                    Contains("Execution complete \n")));
}

TEST_P(VlanInfoTest, OtherContainersCountOnlyWhereTheyAreAskedForByIdentifier) {
  addMember(1, 1, 11);
  addContainment(2, 1, 11, 10);
  EXPECT_THAT(*impl.getVlanInfosByObjIDList({node1}, status, true, false)->at(node1), SizeIs(1));
  EXPECT_THAT(*impl.getVlanInfosByObjIDList({vlan2}, status, false, false), SizeIs(1));
  EXPECT_THAT(*impl.getVlanInfosByObjIDList({}, status, false, true), SizeIs(1));
}

TEST_P(VlanInfoTest, AllAreReadInOneStatementAndWithoutAsForTheVendor) {
  addMember(1, 1, 11);
  addMember(2, 2, 21);
  const StatementSpy spy;
  const auto map = impl.getVlanInfosByObjIDList(manyIDs(60), status, true, true);
  EXPECT_THAT(spy.statements(),
              ElementsAre(detail::vlanInfoSelect(TableSet(), {}, true, true, false)));
  EXPECT_THAT(*map, SizeIs(2));
}

TEST_P(VlanInfoTest, NoIdentifiersGiveAnEmptyMapAndOK) {
  EXPECT_THAT(*impl.getVlanInfosByObjIDList({}, status, true, false), IsEmpty());
  EXPECT_TRUE(status.isOK());
}

TEST_P(VlanInfoTest, ManyIdentifiersGoInBatches) {
  const StatementSpy spy;
  impl.getVlanInfosByObjIDList(manyIDs(120), status, true, false);
  EXPECT_THAT(spy.statements(), SizeIs(3));
}

// ---- containers
// -------------------------------------------------------------------------------------

class IfcInfoTest : public AttachmentTest {
 protected:
  const ObjID ifc1{uuid(1, 'e')};
  const ObjID ifc2{uuid(2, 'e')};

  void addMember(int ifc, int node, int interface, int type, int sequence) {
    store->addInterface(uuid(interface, 'c'), uuid(node), "if" + std::to_string(interface));
    store->insert("nwifcctm", {{"ContainerObjId", uuid(ifc, 'e')},
                               {"InterfaceObjId", uuid(interface, 'c')},
                               {"NodeObjId", uuid(node)},
                               {"ContainmentType", 30},
                               {"IFCType", type},
                               {"SequenceNumber", sequence}});
  }
};
ZNTOPO_ON_ENGINES(IfcInfoTest, kMainEngines);

TEST_P(IfcInfoTest, OfNodesTheMembersAreGroupedByContainer) {
  addMember(1, 1, 11, 5, 1);
  addMember(1, 1, 12, 5, 2);
  addMember(2, 1, 13, 6, 3);
  addMember(1, 2, 21, 5, 4);
  const auto map = impl.getIfcInfosByObjIDList({node1}, status, true, false, 0);
  EXPECT_TRUE(status.isOK());
  ASSERT_THAT(*map, SizeIs(1));
  std::map<ObjID, std::size_t> members;
  for (const ZNIfcInfo& info : *map->at(node1)) {
    members[info.getIfcInfoObjID()] = info.getAllIfcIFInfos().size();
  }
  EXPECT_EQ(members, (std::map<ObjID, std::size_t>{{ifc1, 2}, {ifc2, 1}}));
}

TEST_P(IfcInfoTest, OfContainersTheyAreGroupedByNode) {
  addMember(1, 1, 11, 5, 1);
  addMember(1, 2, 21, 5, 4);
  const auto map = impl.getIfcInfosByObjIDList({ifc1}, status, false, false, 0);
  ASSERT_THAT(*map, SizeIs(1));
  std::map<ObjID, std::size_t> members;
  for (const ZNIfcInfo& info : *map->at(ifc1)) {
    members[info.getIfcInfoObjID()] = info.getAllIfcIFInfos().size();
  }
  EXPECT_EQ(members, (std::map<ObjID, std::size_t>{{node1, 1}, {node2, 1}}));
}

TEST_P(IfcInfoTest, AMemberShowsItsContainmentTypeAsItsType) {
  addMember(1, 1, 11, 5, 17);
  const auto map = impl.getIfcInfosByObjIDList({node1}, status, true, false, 0);
  const ZNIfcIFInfo& member = map->at(node1)->front().getAllIfcIFInfos().front();
  EXPECT_EQ(member.getIfcObjId(), ifc1);
  EXPECT_EQ(member.getInterfaceObjId(), ObjID(uuid(11, 'c')));
  EXPECT_EQ(member.getIfcType(), 30);
  EXPECT_EQ(member.getContainmentType(), 5);
  EXPECT_EQ(member.getSeqNum(), 17);
}

TEST_P(IfcInfoTest, ATypeRestrictsThemAndZeroDoesNot) {
  addMember(1, 1, 11, 5, 1);
  addMember(2, 1, 12, 6, 2);
  EXPECT_THAT(*impl.getIfcInfosByObjIDList({node1}, status, true, false, 6)->at(node1), SizeIs(1));
  EXPECT_THAT(*impl.getIfcInfosByObjIDList({node1}, status, true, false, 0)->at(node1), SizeIs(2));
  EXPECT_THAT(*impl.getIfcInfosByObjIDList({}, status, true, true, 5)->at(node1), SizeIs(1));
  EXPECT_THAT(*impl.getIfcInfosByObjIDList({}, status, false, true, 0), SizeIs(2));
}

TEST_P(IfcInfoTest, NoIdentifiersGiveAnEmptyMapAndOK) {
  EXPECT_THAT(*impl.getIfcInfosByObjIDList({}, status, true, false, 0), IsEmpty());
  EXPECT_TRUE(status.isOK());
}

TEST_P(IfcInfoTest, ManyIdentifiersGoInBatches) {
  const std::list<ObjID> ids = manyIDs(120);
  const StatementSpy spy;
  impl.getIfcInfosByObjIDList({ids.begin(), ids.end()}, status, true, false, 0);
  EXPECT_THAT(spy.statements(), SizeIs(3));
}

// ---- on nodes
// ----------------------------------------------------------------------------------------

class AttachmentsTest : public AttachmentTest {
 protected:
  void SetUp() override {
    AttachmentTest::SetUp();
    if (!store) return;
    store->addNode(uuid(1), "edge", {{"hasDynamicProperty", 1}});
    store->addInterface(uuid(11, 'c'), uuid(1), "eth0");
    store->insert("userdefvar",
                  {{"ObjID", uuid(1)}, {"VarName", "owner"}, {"VarValType", 3}, {"StrVal", "me"}});
    store->addLink(uuid(11, 'c'), uuid(21, 'c'), uuid(1), uuid(2));
    store->insert("containment", {{"ContainerObjID", uuid(1, 'd')},
                                  {"ContainedObjID", uuid(11, 'c')},
                                  {"ContainedNodeObjId", uuid(1)},
                                  {"ContainerType", 4}});
    store->insert("nwifcctm", {{"ContainerObjId", uuid(1, 'e')},
                               {"InterfaceObjId", uuid(11, 'c')},
                               {"NodeObjId", uuid(1)},
                               {"IFCType", 5}});
  }

  ZNRefPtr<ZNNode> read() { return impl.getNodeByObjID(node1, status); }
  bool isCached() {
    ZNRefPtr<ZNNode> node;
    return ZNTopoAPI_Impl::cache()->inNodeIDCache(node1, node);
  }
};
ZNTOPO_ON_ENGINES(AttachmentsTest, kMainEngines);

TEST_P(AttachmentsTest, ANodeComesWithAllThatHangsOnIt) {
  const auto node = read();
  ASSERT_FALSE(node.isNull());
  ASSERT_THAT(node->getUserVars(), SizeIs(1));
  EXPECT_EQ(node->getUserVars().front().getName(), "owner");
  EXPECT_THAT(node->getConnDataList(), SizeIs(1));
  EXPECT_THAT(node->getVlanInfoList(), SizeIs(1));
  EXPECT_THAT(node->getIfcInfoList(), SizeIs(1));
  EXPECT_TRUE(isCached());
}

TEST_P(AttachmentsTest, SoDoAllNodesAtOnce) {
  const auto nodes =
      impl.getNodesByObjIDList({}, notFound, status, false, false, true, ZNEntity::AllProtocol, -1);
  ASSERT_THAT(*nodes, SizeIs(1));
  EXPECT_THAT(nodes->front()->getUserVars(), SizeIs(1));
  EXPECT_THAT(nodes->front()->getConnDataList(), SizeIs(1));
  EXPECT_THAT(nodes->front()->getVlanInfoList(), SizeIs(1));
  EXPECT_THAT(nodes->front()->getIfcInfoList(), SizeIs(1));
}

TEST_P(AttachmentsTest, TheLoadersRunInTheirOrder) {
  const StatementSpy spy;
  const CapturedLog log(MC_INFO);
  read();
  EXPECT_THAT(spy.statements(),
              ElementsAre(HasSubstr(" from nwnode NODE "), HasSubstr("from userdefvar a "),
                          HasSubstr("from NWInterfaceAsc "), HasSubstr("from nwifcctm a, "),
                          HasSubstr("from containment a, ")));
  EXPECT_THAT(log.lines(), AllOf(Contains("Populating Layer 2 information ..\n"),
                                 Contains("Begin getting IfcInfo Objects ..\n"),
                                 Contains("End getting IfcInfo Objects ..\n"),
                                 Contains("Begin getting VlanInfo Objects ..\n"),
                                 Contains("End getting VlanInfo Objects ..\n")));
}

TEST_P(AttachmentsTest, WithoutADynamicPropertyNoVariablesAreAskedFor) {
  store->execute("update nwnode set hasDynamicProperty = 0");
  const StatementSpy spy;
  EXPECT_THAT(read()->getUserVars(), IsEmpty());
  EXPECT_THAT(spy.statements(), Not(Contains(HasSubstr("userdefvar"))));
}

TEST_P(AttachmentsTest, EachLoaderHasItsSwitch) {
  ZNTopoConfig config;
  config.setLoadNodeL2ConnectionInfo(false);
  ZNTopoAPI::setTopoConfiguration(config);
  auto node = read();
  EXPECT_THAT(node->getConnDataList(), IsEmpty());
  EXPECT_THAT(node->getIfcInfoList(), SizeIs(1));
  EXPECT_THAT(node->getVlanInfoList(), SizeIs(1));
  config.setLoadNodeL2ConnectionInfo(true);
  config.setLoadNodeIfcInfo(false);
  ZNTopoAPI::setTopoConfiguration(config);
  impl.clearCache();
  node = read();
  EXPECT_THAT(node->getConnDataList(), SizeIs(1));
  EXPECT_THAT(node->getIfcInfoList(), IsEmpty());
  config.setLoadNodeIfcInfo(true);
  config.setLoadNodeVlanInfo(false);
  ZNTopoAPI::setTopoConfiguration(config);
  impl.clearCache();
  node = read();
  EXPECT_THAT(node->getIfcInfoList(), SizeIs(1));
  EXPECT_THAT(node->getVlanInfoList(), IsEmpty());
}

TEST_P(AttachmentsTest, ALoaderThatFailsLeavesTheNodesOutOfTheCache) {
  struct Case {
    const char* table;
    const char* line;
  };
  const Case cases[] = {{"from userdefvar", "Failed in getUserDefVarsByObjIDLIst \n"},
                        {"from NWInterfaceAsc", "Failed in getConnDatasByNodeObjIDList \n"},
                        {"from nwifcctm", "Failed in getIfcInfoByObjIDList \n"},
                        {"from containment", "Failed in getVlanInfoByObjIDList \n"}};
  for (const Case& each : cases) {
    StatementSpy spy;
    spy.fail(StatementSpy::Exec, each.table);
    const CapturedLog log(MC_INFO);
    const auto nodes = impl.getNodesByObjIDList_Int({node1}, notFound, status, false, false, false,
                                                    ZNEntity::AllProtocol, -1);
    EXPECT_THAT(*nodes, SizeIs(1)) << each.table;
    EXPECT_EQ(status.getStatus(), ZN_API_SQL_EXEC_ERROR) << each.table;
    EXPECT_THAT(log.lines(), Contains(each.line));
    EXPECT_FALSE(isCached()) << each.table;
    EXPECT_THAT(spy.statements().back(), HasSubstr(each.table));  // later loaders do not run
  }
}

TEST_P(AttachmentsTest, TheConnectionOfTheNodesIsHeldWhileTheRestIsLoaded) {
  read();
  EXPECT_GE(ZNDBTestAccess::connectionCount(), 2);
  EXPECT_EQ(ZNDBTestAccess::connectionCount(), static_cast<int>(ZNDBTestAccess::idleCount()));
}

}  // namespace
}  // namespace zntopo::test
