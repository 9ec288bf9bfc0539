// The engines accept each statement of this floor, on both table sets.

#include "tests/api/ApiFixture.h"
#include "zntopo/api/detail/AttachmentSql.h"
#include "zntopo/api/detail/EntitySql.h"
#include "zntopo/api/detail/GroupSql.h"
#include "zntopo/api/detail/NodeSql.h"
#include "zntopo/store/detail/QuotedList.h"

namespace zntopo::test {
namespace {

using namespace zntopo::detail;

std::vector<std::string> nodeStatements(const TableSet& tables) {
  const std::list<ObjID> ids = {ObjID(uuid(1)), ObjID("x")};
  std::vector<std::string> all = {
      nodeSelect("", nodeTables(tables)),
      nodeSelect(nodeIDCondition(ids, false), nodeTables(tables)),
      nodeSelect(nodeIDCondition(ids, true), nodeTables(tables)),
      nodeSelect(allNodesCondition(ZNEntity::IPv4, 3), nodeTables(tables)),
      nodeSelect(allNodesCondition(ZNEntity::IPv6, -1), nodeTables(tables)),
      nodeSelect(allNodesCondition(ZNEntity::AllProtocol, 0), nodeTables(tables)),
      userVarSelect(tables, E_Unknown, "", ids),
      userVarSelect(tables, E_Vlan, "", ids),
      userVarSelect(tables, E_Node, tables.nwnodeTbl_, ids),
      userVarSelect(tables, E_Interface, tables.nwinterfaceTbl_, ids),
      userVarSelect(tables, E_HSRP, tables.nwhsrpTbl_, ids),
      userVarSelect(tables, E_IfC, tables.nwifcTbl_, ids),
      connDataSelect(tables, ids, false),
      connDataSelect(tables, ids, true),
      vlanInfoSelect(tables, ids, true, false, false),
      vlanInfoSelect(tables, ids, false, false, false),
      vlanInfoSelect(tables, {}, true, true, false),
      vlanInfoSelect(tables, ids, true, false, true),
      ifcInfoSelect(tables, ids, true, false, 0),
      ifcInfoSelect(tables, ids, false, false, 2),
      ifcInfoSelect(tables, {}, true, true, 0),
      ifcInfoSelect(tables, {}, true, true, 2)};
  for (const NodeNameClass nameClass : {NodeNameClass::FullDns, NodeNameClass::PartialDns,
                                        NodeNameClass::IPv4, NodeNameClass::IPv6}) {
    for (const int rd : {-1, 4}) all.push_back(nodeNameSelect(nameClass, tables, "name", rd));
  }
  return all;
}

std::vector<std::string> groupStatements(const TableSet& tables) {
  const std::list<ObjID> ids = {ObjID(uuid(1)), ObjID("x")};
  return {
      entitySelect(tables, subnetsByIDs(ids, false)),
      entitySelect(tables, subnetsByIDs(ids, true)),
      entitySelect(tables, allSubnets(ZNEntity::AllProtocol, -1)),
      entitySelect(tables, allSubnets(ZNEntity::IPv4, 3)),
      entitySelect(tables, allSubnets(ZNEntity::IPv6, 0)),
      endPointsSql(tables, ids.front()),
      endPointsOfSubnetsSql(tables, ids),
      vlanInfoSelect(tables, ids, false, false, false),
      vlanInfoSelect(tables, {}, false, true, false),
      userVarSelect(tables, E_Vlan, tables.nwvlanTbl_, {}),
      ifcInfoSelect(tables, ids, false, false, 0),
      ifcInfoSelect(tables, {}, false, true, 0),
      entitySelect(tables, quotedList(" ObjID in (", ids)),
      entitySelect(tables, allVlans(-1)),
      entitySelect(tables, allVlans(3)),
      entitySelect(tables, allHSRPs(-1)),
      entitySelect(tables, allHSRPs(3)),
      ifcEntitySelect(tables, ""),
      ifcEntitySelect(tables, allIfcs(3)),
      ifcEntitySelect(tables, ifcsOfType(5, -1)),
      ifcEntitySelect(tables, ifcsOfType(5, 3)),
      ifcEntitySelect(tables, quotedList(" ObjId in (", ids)),
      ifcDataSql(tables, ids.front()),
      ifcAssociationsSql(tables, ids.front()),
      hsrpInfoSelect(tables, ids, false),
      hsrpInfoSelect(tables, {}, true),
      hsrpsByMemberSql(tables, "AddressID", ids.front()),
      hsrpsByMemberSql(tables, "AddressIFObjID", ids.front()),
  };
}

class PreparedStatementsTest : public ApiTest {};
INSTANTIATE_TEST_SUITE_P(Engines, PreparedStatementsTest, testing::ValuesIn(kMainEngines),
                         EngineNames());

TEST_P(PreparedStatementsTest, EveryStatementOnNodesIsAccepted) {
  for (const TopoDBType type : {ActiveDB, WorkingDB}) {
    for (const std::string& sql : nodeStatements(TableSet(type))) {
      EXPECT_NO_THROW(store->execute(sql)) << sql;
    }
  }
}

TEST_P(PreparedStatementsTest, GroupsCantBeAskedForByWhatTheyTrack) {
  EXPECT_FALSE(store->accepts(hsrpsByNothingSql(TableSet())));
}

TEST_P(PreparedStatementsTest, EveryStatementOnEntitiesAndGroupsIsAccepted) {
  for (const TopoDBType type : {ActiveDB, WorkingDB}) {
    for (const std::string& sql : groupStatements(TableSet(type))) {
      EXPECT_NO_THROW(store->execute(sql)) << sql;
    }
  }
}

}  // namespace
}  // namespace zntopo::test
