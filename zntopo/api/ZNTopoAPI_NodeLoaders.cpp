#include "zntopo/api/ZNTopoAPI_Impl.h"
#include "zntopo/api/detail/Batches.h"
#include "zntopo/api/detail/Grouping.h"
#include "zntopo/api/detail/NodeSql.h"
#include "zntopo/api/detail/OperationScope.h"
#include "zntopo/api/detail/QueryText.h"
#include "zntopo/core/MCLog.h"
#include "zntopo/core/ObjIDLookup.h"
#include "zntopo/store/StoreAccess.h"

namespace zntopo {

using detail::groupOf;
using detail::OperationScope;

namespace {

void logEmptyList() { MCLog::log(MC_INFO, " empty ObjID list ! \n"); }

/// Loads in batches; an entry that is there is not replaced by one of a later batch.
template <typename OwnedMap, typename Identifiers, typename Load>
OwnedMap loadInBatches(const Identifiers& ids, ZNTopoAPIStatus& status, const Load& load) {
  auto result = std::make_unique<typename OwnedMap::element_type>();
  detail::forEachBatch<std::list<ObjID>>(ids, ZNTopoAPI_Impl::NUM_NODE_PER_CALL,
                                         [&](const std::list<ObjID>& batch) {
                                           const OwnedMap part = load(batch);
                                           if (!status.isOK()) return false;
                                           result->merge(*part);
                                           return true;
                                         });
  return result;
}

/// Runs a loader's statement. The map is empty if it could not be prepared, else as far as it
/// came.
template <typename OwnedMap>
OwnedMap loadRows(OwnedMap map, const std::string& sql, ColumnList columns,
                  const AccessTexts& texts, ZNTopoAPIStatus& status, const RowHandler& onRow) {
  StoreAccess access(status, texts);
  if (!access.isConnected() || !access.prepare(sql)) {
    return std::make_unique<typename OwnedMap::element_type>();
  }
  if (access.bindColumns(columns) && access.exec()) access.fetch(onRow);
  return map;
}

// ---- user variables ----

enum UserVarColumn : int { U_VarName, U_VarValType, U_StrVal, U_IntVal, U_FloatVal, U_ObjID };

constexpr Column kUserVarColumns[] = {
    textColumn("VarName", 129), intColumn("VarValType"), textColumn("StrVal", 2001),
    intColumn("IntVal"),        floatColumn("FloatVal"), textColumn("ObjID", 37),
};

constexpr AccessTexts kUserVarTexts = {
    .column = {ZN_API_SQL_BIND_COLUMN_ERROR, "Problem binding values for UserDefVar"},
    .infoIsRow = false,
};

VarValue shortValue(const Row& row) { return static_cast<short>(row.integer(U_IntVal)); }
VarValue longValue(const Row& row) { return static_cast<long>(row.integer(U_IntVal)); }
VarValue longLongValue(const Row& row) { return static_cast<long long>(row.integer(U_IntVal)); }
VarValue textValue(const Row& row) { return row.text(U_StrVal); }
VarValue floatValue(const Row& row) { return row.real(U_FloatVal); }
// Made of an int, a boolean reads back as a long.
VarValue boolValue(const Row& row) { return row.integer(U_IntVal); }

struct UserVarType {
  VarValue::ValType type;
  /// The column that must be there. For a float that is the whole number beside it.
  UserVarColumn required;
  VarValue (*make)(const Row&);
};

constexpr UserVarType kUserVarTypes[] = {
    {VarValue::VT_Short, U_IntVal, shortValue},       {VarValue::VT_Long, U_IntVal, longValue},
    {VarValue::VT_LongLong, U_IntVal, longLongValue}, {VarValue::VT_Str, U_StrVal, textValue},
    {VarValue::VT_Float, U_IntVal, floatValue},       {VarValue::VT_Bool, U_IntVal, boolValue},
};

void addUserVar(const Row& row, std::vector<UserDefVar>& vars) {
  for (const UserVarType& entry : kUserVarTypes) {
    if (entry.type != row.integer(U_VarValType)) continue;
    if (row.isPresent(U_VarName) && row.isPresent(entry.required)) {
      vars.emplace_back(row.text(U_VarName), entry.make(row));
    }
    return;
  }
  MCLog::log(MC_INFO, "Unknown user defined variable type/n");
}

// ---- layer-2 connections ----

enum ConnDataColumn : int { C_LeftIF, C_RightIF, C_LeftNode, C_RightNode };

constexpr Column kConnDataColumns[] = {
    textColumn("leftobjid", 37),
    textColumn("rightobjid", 37),
    textColumn("leftifnodeobjid", 37),
    textColumn("rightifnodeobjid", 37),
};

constexpr AccessTexts kConnDataTexts = {
    .column = {ZN_API_SQL_BIND_COLUMN_ERROR, "Problem binding values for Layer 2 connectivity"},
    .infoIsRow = false,
};

using ConnDataMap = ZNTopoAPI_Impl::OwnedConnDataMap::element_type;

/// A link gives each of its nodes that is asked for a record of its own.
void addConnData(const Row& row, ConnDataMap& map) {
  for (int column = C_LeftIF; column <= C_RightNode; ++column) {
    if (row.isPresent(column)) continue;
    MCLog::log(MC_INFO, "One of RelatedTo table entries's row is empty \n");
    return;
  }
  for (const ConnDataColumn owner : {C_LeftNode, C_RightNode}) {
    const auto found = findObjID(map, row.text(owner));
    if (found == map.end()) continue;
    found->second->push_back(new ZNConnData(row.text(C_LeftIF), row.text(C_RightIF),
                                            row.text(C_LeftNode), row.text(C_RightNode),
                                            owner == C_LeftNode));
  }
}

// ---- VLANs ----

enum VlanInfoColumn : int { V_Container, V_Contained, V_Node, V_NodeName, V_Port, V_Card };

constexpr Column kVlanInfoColumns[] = {
    textColumn("ContainerObjID", 37), textColumn("ContainedObjID", 37), textColumn("NodeObjID", 37),
    textColumn("NodeName", 256),      textColumn("VendorPort", 4),      textColumn("VendorCard", 4),
};

constexpr AccessTexts kVlanInfoTexts = {
    .column = {ZN_API_SQL_BIND_COLUMN_ERROR, "Problem binding values for VlanInfo"},
    .executing = {"Executing SQL: %s\n"},
    .executed = {"Execution complete \n"},
};

using VlanInfoMap = ZNTopoAPI_Impl::OwnedVlanInfoMap::element_type;

void addVlanInfo(const Row& row, bool useNodeAsKey, VlanInfoMap& map) {
  if (!row.isPresent(V_Port) || !row.isPresent(V_Card)) {
    MCLog::log(MC_INFO, "Card and Port number for this interface is not define \n");
    return;
  }
  const ObjID vlan(row.text(V_Container));
  const ObjID node(row.text(V_Node));
  std::list<ZNVlanInfo>* const infos = groupOf(map, useNodeAsKey ? node : vlan);
  if (!infos) return;
  const ZNVlanIFInfo member(row.text(V_Contained), row.text(V_Port), row.text(V_Card));
  for (ZNVlanInfo& info : *infos) {
    if (useNodeAsKey ? info.getVlanObjID() == vlan : info.getNodeObjID() == node) {
      info.addIFInfo(member);
      return;
    }
  }
  infos->emplace_back(vlan, node, row.text(V_NodeName), std::list<ZNVlanIFInfo>{member});
}

// ---- containers ----

enum IfcInfoColumn : int {
  I_Container,
  I_Interface,
  I_Node,
  I_ContainmentType,
  I_Type,
  I_Sequence
};

constexpr Column kIfcInfoColumns[] = {
    textColumn("ContainerObjId", 37),
    textColumn("InterfaceObjId", 37),
    textColumn("NodeObjId", 37),
    intColumn("ContainmentType"),
    intColumn("IFCType"),
    intColumn("SequenceNumber"),
};

constexpr AccessTexts kIfcInfoTexts = {
    .column = {ZN_API_SQL_BIND_COLUMN_ERROR, "Problem binding values for IfcInfo"},
};

using IfcInfoMap = ZNTopoAPI_Impl::OwnedIfcInfoMap::element_type;

void addIfcInfo(const Row& row, bool useNodeAsKey, IfcInfoMap& map) {
  const ObjID container(row.text(I_Container));
  const ObjID node(row.text(I_Node));
  std::list<ZNIfcInfo>* const infos = groupOf(map, useNodeAsKey ? node : container);
  if (!infos) return;
  // The containment type goes in first: a member that was read shows it as its type.
  const ZNIfcIFInfo member(container, row.text(I_Interface), row.integer(I_ContainmentType),
                           row.integer(I_Type), row.integer(I_Sequence));
  const ObjID& other = useNodeAsKey ? container : node;
  for (ZNIfcInfo& info : *infos) {
    if (info.getIfcInfoObjID() == other) {
      info.addIfcIFInfo(member);
      return;
    }
  }
  infos->emplace_back(other, std::list<ZNIfcIFInfo>{member});
}

}  // namespace

ZNTopoAPI_Impl::OwnedUserVarMap ZNTopoAPI_Impl::getUserDefVarsByObjIDList(
    const std::list<ObjID>& theObjIDList, ZNTopoAPIStatus& theStatus) {
  const OperationScope scope("getUserDefVarsByObjIDList");
  theStatus.reset();
  auto nothing = std::make_unique<OwnedUserVarMap::element_type>();
  if (!validate(theStatus)) return nothing;
  if (theObjIDList.empty()) {
    detail::setFailure(theStatus, ZN_API_EMPTY_OBJID_LIST, "The UserDefVar ObjIDList is empty");
    return nothing;
  }
  // The whole list, not the batch, is asked for at each boundary.
  return loadInBatches<OwnedUserVarMap>(theObjIDList, theStatus, [&](const auto& /*batch*/) {
    return getUserDefVarsByObjIDList_Int(theObjIDList, theStatus, E_Unknown);
  });
}

ZNTopoAPI_Impl::OwnedUserVarMap ZNTopoAPI_Impl::getUserDefVarsByObjIDList_Int(
    const std::list<ObjID>& theObjIDList, ZNTopoAPIStatus& theStatus, EntityType eType) {
  const OperationScope scope("getUserDefVarsByObjIDList_Int");
  theStatus.reset();
  auto map = std::make_unique<OwnedUserVarMap::element_type>();
  auto& vars = *map;
  return loadRows(
      std::move(map),
      detail::userVarSelect(*this, eType, findTableNameFromEntityType(eType), theObjIDList),
      kUserVarColumns, kUserVarTexts, theStatus, [&vars](const Row& row) {
        if (auto* const owned = groupOf(vars, row.text(U_ObjID))) addUserVar(row, *owned);
        return true;
      });
}

ZNTopoAPI_Impl::OwnedConnDataMap ZNTopoAPI_Impl::getConnDatasByNodeObjIDList(
    const std::list<ObjID>& theObjIDList, ZNTopoAPIStatus& theStatus, bool getAll) {
  const OperationScope scope("getConnDatasByNodeObjIDList");
  theStatus.reset();
  if (getAll) return getConnDatasByNodeObjIDList_Int(theObjIDList, theStatus, true);
  if (theObjIDList.empty()) logEmptyList();
  return loadInBatches<OwnedConnDataMap>(theObjIDList, theStatus, [&](const auto& batch) {
    return getConnDatasByNodeObjIDList_Int(batch, theStatus, false);
  });
}

ZNTopoAPI_Impl::OwnedConnDataMap ZNTopoAPI_Impl::getConnDatasByNodeObjIDList_Int(
    const std::list<ObjID>& theObjIDList, ZNTopoAPIStatus& theStatus, bool getAll) {
  const OperationScope scope("getConnDatasByNodeObjIDList_Int");
  theStatus.reset();
  MCLog::log(MC_INFO, " getAll : %d ! \n", static_cast<int>(getAll));
  auto map = std::make_unique<ConnDataMap>();
  if (!getAll && theObjIDList.empty()) {
    logEmptyList();
    return map;
  }
  for (const ObjID& id : theObjIDList) groupOf(*map, id);
  ConnDataMap& connections = *map;
  return loadRows(std::move(map), detail::connDataSelect(*this, theObjIDList, getAll),
                  kConnDataColumns, kConnDataTexts, theStatus, [&connections](const Row& row) {
                    addConnData(row, connections);
                    return true;
                  });
}

ZNTopoAPI_Impl::OwnedVlanInfoMap ZNTopoAPI_Impl::getVlanInfosByObjIDList(
    const std::list<ObjID>& theObjIDList, ZNTopoAPIStatus& theStatus, bool useNodeAsKey,
    bool getAll) {
  const OperationScope scope("getVlanInfosByObjIDList");
  theStatus.reset();
  if (getAll) return getVlanInfosByObjIDList_Int({}, theStatus, useNodeAsKey, true);
  if (theObjIDList.empty()) logEmptyList();
  return loadInBatches<OwnedVlanInfoMap>(theObjIDList, theStatus, [&](const auto& batch) {
    return getVlanInfosByObjIDList_Int(batch, theStatus, useNodeAsKey, false);
  });
}

ZNTopoAPI_Impl::OwnedVlanInfoMap ZNTopoAPI_Impl::getVlanInfosByObjIDList_Int(
    const std::list<ObjID>& theObjIDList, ZNTopoAPIStatus& theStatus, bool useNodeAsKey,
    bool getAll) {
  const OperationScope scope("getVlanInfosByObjIDList_Int");
  theStatus.reset();
  TvDbil::DbilRdbmsVendor vendor = TvDbil::Unknown;
  if (!getAll) {
    // Only the optimiser's hint hangs on the vendor: the statement goes on without it.
    ZNTopoAPIStatus vendorStatus;
    getVendor(vendor, vendorStatus);
    if (!vendorStatus.isOK()) {
      MCLog::log(MC_MAJOR, " Failed to get vendorName.:%s:%d\n", "../ZNTopoAPI_NodeLoaders",
                 __LINE__);
      vendor = TvDbil::Unknown;
    }
  }
  auto map = std::make_unique<VlanInfoMap>();
  VlanInfoMap& vlans = *map;
  return loadRows(
      std::move(map),
      detail::vlanInfoSelect(*this, theObjIDList, useNodeAsKey, getAll, vendor == TvDbil::Solid),
      kVlanInfoColumns, kVlanInfoTexts, theStatus, [&vlans, useNodeAsKey](const Row& row) {
        addVlanInfo(row, useNodeAsKey, vlans);
        return true;
      });
}

ZNTopoAPI_Impl::OwnedIfcInfoMap ZNTopoAPI_Impl::getIfcInfosByObjIDList(const ObjIDSet& theObjIDs,
                                                                       ZNTopoAPIStatus& theStatus,
                                                                       bool useNodeAsKey,
                                                                       bool getAll, int IFCType) {
  const OperationScope scope("getIfcInfosByObjIDList");
  theStatus.reset();
  if (getAll) return getIfcInfosByObjIDList_Int({}, theStatus, useNodeAsKey, true, IFCType);
  if (theObjIDs.empty()) logEmptyList();
  return loadInBatches<OwnedIfcInfoMap>(theObjIDs, theStatus, [&](const auto& batch) {
    return getIfcInfosByObjIDList_Int(batch, theStatus, useNodeAsKey, false, IFCType);
  });
}

ZNTopoAPI_Impl::OwnedIfcInfoMap ZNTopoAPI_Impl::getIfcInfosByObjIDList_Int(
    const std::list<ObjID>& theObjIDList, ZNTopoAPIStatus& theStatus, bool useNodeAsKey,
    bool getAll, int IFCType) {
  const OperationScope scope("getIfcInfosByObjIDList_Int");
  theStatus.reset();
  auto map = std::make_unique<IfcInfoMap>();
  IfcInfoMap& containers = *map;
  return loadRows(
      std::move(map), detail::ifcInfoSelect(*this, theObjIDList, useNodeAsKey, getAll, IFCType),
      kIfcInfoColumns, kIfcInfoTexts, theStatus, [&containers, useNodeAsKey](const Row& row) {
        addIfcInfo(row, useNodeAsKey, containers);
        return true;
      });
}

}  // namespace zntopo
