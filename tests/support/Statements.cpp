#include "tests/support/Statements.h"

#include <list>
#include <regex>
#include <set>

#include "tests/support/AttributeFilters.h"
#include "zntopo/api/detail/AddressSql.h"
#include "zntopo/api/detail/AttachmentSql.h"
#include "zntopo/api/detail/AttributeFilterSql.h"
#include "zntopo/api/detail/AuditSql.h"
#include "zntopo/api/detail/EntitySql.h"
#include "zntopo/api/detail/GroupSql.h"
#include "zntopo/api/detail/InterfaceSql.h"
#include "zntopo/api/detail/NodeSql.h"
#include "zntopo/api/detail/StatisticSql.h"
#include "zntopo/api/detail/UpdateSql.h"
#include "zntopo/filter/TopoFiltSql.h"
#include "zntopo/store/detail/QuotedList.h"

namespace zntopo::test {
namespace {

using namespace zntopo::detail;
using Texts = std::vector<std::string>;

const std::list<ObjID> kIDs = {ObjID("x"), ObjID("y")};

Texts stateStatements(const TableSet&) {
  return {
      "select TopologyReady, DISCOCYCLECOMPLETE, MeshState, HSRPState, ContainmentState, "
      "RelatedToState, TOPOLOGYREADYCHANGETIME,DiscoZoneComplete, DiscoZoneInProgress, "
      "ChangeTime, CreateTime, PrevDiscoEndTime from State",
      "select TopologyReady, TopologyReadyChangeTime from state",
  };
}

Texts nodeStatements(const TableSet& tables) {
  Texts all = {
      nodeSelect("", nodeTables(tables)),
      nodeSelect(nodeIDCondition(kIDs, false), nodeTables(tables)),
      nodeSelect(nodeIDCondition(kIDs, true), nodeTables(tables)),
      nodeSelect(allNodesCondition(ZNEntity::IPv4, 0), nodeTables(tables)),
      nodeSelect(allNodesCondition(ZNEntity::IPv6, -1), nodeTables(tables)),
      nodeSelect(allNodesCondition(ZNEntity::AllProtocol, 0), nodeTables(tables)),
      nodeSelect(allNodesCondition(ZNEntity::AllProtocol, -1), nodeTables(tables)),
  };
  for (const NodeNameClass nameClass : {NodeNameClass::FullDns, NodeNameClass::PartialDns,
                                        NodeNameClass::IPv4, NodeNameClass::IPv6}) {
    for (const int rd : {-1, 0}) all.push_back(nodeNameSelect(nameClass, tables, "name", rd));
  }
  return all;
}

Texts attachmentStatements(const TableSet& tables) {
  return {
      userVarSelect(tables, E_Unknown, "", kIDs),
      userVarSelect(tables, E_Vlan, "", kIDs),
      userVarSelect(tables, E_Node, tables.nwnodeTbl_, kIDs),
      userVarSelect(tables, E_Interface, tables.nwinterfaceTbl_, kIDs),
      userVarSelect(tables, E_HSRP, tables.nwhsrpTbl_, kIDs),
      userVarSelect(tables, E_IfC, tables.nwifcTbl_, kIDs),
      connDataSelect(tables, kIDs, false),
      connDataSelect(tables, kIDs, true),
      vlanInfoSelect(tables, kIDs, true, false, false),
      vlanInfoSelect(tables, kIDs, false, false, false),
      vlanInfoSelect(tables, {}, true, true, false),
      vlanInfoSelect(tables, {}, false, true, false),
      vlanInfoSelect(tables, kIDs, true, false, true),
      ifcInfoSelect(tables, kIDs, true, false, 0),
      ifcInfoSelect(tables, kIDs, false, false, 0),
      ifcInfoSelect(tables, kIDs, false, false, 2),
      ifcInfoSelect(tables, {}, true, true, 0),
      ifcInfoSelect(tables, {}, false, true, 0),
      ifcInfoSelect(tables, {}, true, true, 2),
  };
}

Texts interfaceStatements(const TableSet& tables) {
  return {
      interfaceSelect(tables, whereInterfaceIDs(kIDs, false)),
      interfaceSelect(tables, whereInterfaceIDs(kIDs, true)),
      interfaceSelect(tables, whereConnected()),
      interfaceSelect(tables, whereInterfacesOfNodes(kIDs)),
      interfaceIDsOfNodesSql(tables, kIDs),
      ownersOfIPv4Sql(tables, "10.0.0.1", -1),
      ownersOfIPv4Sql(tables, "10.0.0.1", 0),
      interfacesByNameSql(tables, "eth0", "core"),
      meshSql(tables, "x"),
      containedInterfacesSql(tables, "x"),
  };
}

Texts addressStatements(const TableSet& tables) {
  Texts all = {
      dnsNamesSql(tables, "x"),
      addressesByDnsNameSql(tables, "www%"),
      addressSelect(tables, "", ""),
      addressSelect(tables, addressesByIDs({"x", "y"}), ""),
      addressSelect(tables, addressByQRMID("1"), ""),
  };
  for (const auto type : {ZNAddress::IPv4, ZNAddress::IPv6, ZNAddress::DNS}) {
    all.push_back(addressSelect(tables, addressesOfType(type), ""));
  }
  for (const int rd : {-1, 0}) {
    all.push_back(addressSelect(tables, addressByIP("10.0.0.1", rd), ""));
    all.push_back(addressSelect(tables, addressByIP("::1", rd), ""));
  }
  for (const int mode : {0, 1, 2}) {
    all.push_back(
        addressSelect(tables, addressesByOwners(kIDs, mode), addressOwnerTables(tables, mode)));
  }
  return all;
}

Texts groupStatements(const TableSet& tables) {
  Texts all = {
      entitySelect(tables, subnetsByIDs(kIDs, false)),
      entitySelect(tables, subnetsByIDs(kIDs, true)),
      entitySelect(tables, quotedList(" ObjID in (", kIDs)),
      endPointsSql(tables, "x"),
      endPointsOfSubnetsSql(tables, kIDs),
      ifcEntitySelect(tables, ""),
      ifcEntitySelect(tables, allIfcs(0)),
      ifcEntitySelect(tables, quotedList(" ObjId in (", kIDs)),
      ifcDataSql(tables, "x"),
      ifcAssociationsSql(tables, "x"),
      hsrpInfoSelect(tables, kIDs, false),
      hsrpInfoSelect(tables, {}, true),
      hsrpsByMemberSql(tables, "AddressID", "x"),
      hsrpsByMemberSql(tables, "AddressIFObjID", "x"),
  };
  for (const int rd : {-1, 0}) {
    for (const auto level : {ZNEntity::AllProtocol, ZNEntity::IPv4, ZNEntity::IPv6}) {
      all.push_back(entitySelect(tables, allSubnets(level, rd)));
    }
    all.push_back(entitySelect(tables, allVlans(rd)));
    all.push_back(entitySelect(tables, allHSRPs(rd)));
    all.push_back(ifcEntitySelect(tables, ifcsOfType(2, rd)));
  }
  return all;
}

Texts infoStatements(const TableSet& tables) {
  const auto counts = statisticSelects(tables);
  Texts all(counts.begin(), counts.end());
  all.push_back(nodesByRDSelect(tables));
  all.push_back(auditTrailSelect(tables, 0, 0, ZNAuditAction::TypeDontCare,
                                 ZNAuditTrail::ObjectTypeDontCare));
  all.push_back(auditTrailSelect(tables, 1, 9, ZNAuditAction::ObjectCreation, ZNAuditTrail::Node));
  all.push_back(auditTrailSelect(tables, 1, 1, ZNAuditAction::TypeDontCare,
                                 ZNAuditTrail::ObjectTypeDontCare));
  return all;
}

/// A filter with all fields that statements know, but for an address.
ZNTopoFilter filterOfAll() {
  ZNTopoFilter filter = ableTo({"isCDP", "isSTP"});
  filter.setIPLevel(ZNEntity::IPv4);
  filter.MarkFieldToBeFiltered(ZNTopoFilter::F_L2DomainId);
  filter.setRegexEntityName("net%");
  filter.setV6ScopeType(InetAddressIPv6::Global);
  filter.setEntityType(E_Vlan);
  filter.setPrefixAddressStr("2001:db8::");
  filter.setPrefixLength(32);
  return filter;
}

Texts attributeFilterStatements(const TableSet& tables) {
  const ZNTopoFilter all = filterOfAll();
  Texts texts = {
      nodesByFilterSql(tables, {}),     nodesByFilterSql(tables, all),
      subnetsByFilterSql(tables, {}),   subnetsByFilterSql(tables, all),
      addressesByFilterSql(tables, {}),
  };
  for (const auto type : {ZNAddress::IPv4, ZNAddress::IPv6}) {
    ZNTopoFilter addressed = all;
    addressed.setAddressType(type);
    addressed.setAddressStr("10.%");
    texts.push_back(addressesByFilterSql(tables, addressed));
  }
  texts.push_back(nodesByFilterSql(tables, withAddress("10.0.0.1")));
  // The columns carry the name of the active table alone.
  if (tables.nwentityTbl_ == TableSet().nwentityTbl_) {
    texts.push_back(entitiesByFilterSql(tables, all));
    texts.push_back(entitiesByFilterSql(tables, named("net%")));
  }
  return texts;
}

/// These name their tables themselves, whatever the set.
Texts topoFilterStatements(const TableSet& /*tables*/) {
  const auto filterOf = [](const char* kind, const char* condition) {
    TopoFilt filter("f", kind, "");
    filter.setFinalWhereClause(condition);
    return filter;
  };
  Texts texts;
  for (const char* kind : {"Node", "Interface", "Address"}) {
    texts.push_back(objectsOfTopoFiltSql(
        filterOf(kind, " NODE.iplevel = 4 and IF.iplevel = 4 and ADDR.iplevel = 4 ")));
  }
  texts.push_back(objectsOfTopoFiltSql(filterOf("Node", " NODE.iplevel = 4 ")));
  texts.push_back(objectsOfTopoFiltSql(filterOf("Interface", " IF.iplevel = 4 ")));
  texts.push_back(objectsOfTopoFiltSql(filterOf("Address", " ADDR.iplevel = 4 ")));
  texts.push_back(addressesOfTopoFiltSql(filterOf("Address", " ADDR.iplevel = 4 ")));
  // In the language that is installed.
  for (const auto& [kind, condition] : {
           std::pair("Node", " ( NODE.ipLevel in ( 4 ) ) "),
           std::pair("Interface", " ( IF.ipLevel in ( 4 ) ) "),
           std::pair("Address", " ( ADDR.ipLevel in ( 4 ) ) "),
           std::pair("Node", " ( NODE.entityname like 'al%' escape '!' ) "),
           std::pair("Node",
                     " ( NODE.objid in ( select A_.nodeobjid from address A_ where ( "
                     "A_.pubv4address like '10.%' escape '!' ) ) OR ( "
                     "NODE.pubv4managementadd like '10.%' escape '!' ) ) "),
       }) {
    texts.push_back(objectsOfTopoFiltSql(filterOf(kind, condition)));
  }
  return texts;
}

}  // namespace

std::vector<std::string> everyStatement(const TableSet& tables) {
  Texts all;
  for (const auto family : {stateStatements, nodeStatements, attachmentStatements,
                            interfaceStatements, addressStatements, groupStatements, infoStatements,
                            attributeFilterStatements, topoFilterStatements}) {
    const Texts texts = family(tables);
    all.insert(all.end(), texts.begin(), texts.end());
  }
  return all;
}

std::vector<std::string> everyUpdate(const TableSet& tables) {
  const ObjID id("x");
  const ZNHSRPAddressInfo info(1, ObjID("y"), id, 110, ZNHSRPAddressInfo::Active, "", 70);
  Texts all = {
      hsrpAddressUpdate(tables, info),          interfaceStateUpdate(tables, id, 1, 0),
      interfaceStateUpdate(tables, id, 1, 1),   pingStateUpdate(tables, id, 1),
      l2DomainUpdate(tables.nwnodeTbl_, id, 1), l2DomainUpdate(tables.nwinterfaceTbl_, id, 1)};
  for (int type = 0; type <= 6; ++type) all.push_back(nodeStatusUpdate(tables, id, 1, type));
  for (int type = ZNEntity::IPv6Overall; type <= ZNEntity::Overall; ++type) {
    for (const EntityType kind : {E_Node, E_Interface, E_IfC, E_Subnet}) {
      const auto statusType = static_cast<ZNEntity::EntityStatusType>(type);
      all.push_back(entityStatusUpdate(tables, id, 1, 2, statusType, kind));
    }
  }
  std::string association = ifcAssociationUpdate();
  for (const char* value : {"1", "2", "'x'", "'y'", "3"}) {
    association.replace(association.find('?'), 1, value);
  }
  all.push_back(association);
  return all;
}

std::string shapeOf(const std::string& statement) {
  static const std::regex texts("'[^']*'(,'[^']*')*");
  return std::regex_replace(statement, texts, "?");
}

}  // namespace zntopo::test
