#pragma once

#include <vector>

#include "zntopo/api/ZNTopoAPI_Impl.h"
#include "zntopo/model/UserDefVar.h"
#include "zntopo/store/StoreAccess.h"

/// @file
/// The rows of what hangs on objects: user variables, layer-2 connections, memberships in VLANs
/// and in containers. Their columns, what a failed reading tells, and where a row goes.

namespace zntopo::detail {

// ---- user variables ----

enum UserVarColumn : int {
  U_VarName,
  U_VarValType,
  U_StrVal,
  U_IntVal,
  U_FloatVal,
  U_ObjID,
  USER_VAR_COLUMN_COUNT
};

inline constexpr Column kUserVarColumns[] = {
    textColumn("VarName", 129), intColumn("VarValType"), textColumn("StrVal", 2001),
    intColumn("IntVal"),        floatColumn("FloatVal"), textColumn("ObjID", 37),
};
static_assert(sizeof(kUserVarColumns) / sizeof(Column) == USER_VAR_COLUMN_COUNT);

inline constexpr AccessTexts kUserVarTexts = {
    .column = {ZN_API_SQL_BIND_COLUMN_ERROR, "Problem binding values for UserDefVar"},
    .infoIsRow = false,
};

/// Appends the variable of a row; one without its value, or of an unknown type, is left out.
void addUserVar(const Row& row, std::vector<UserDefVar>& vars);

// ---- layer-2 connections ----

enum ConnDataColumn : int { C_LeftIF, C_RightIF, C_LeftNode, C_RightNode, CONN_DATA_COLUMN_COUNT };

inline constexpr Column kConnDataColumns[] = {
    textColumn("leftobjid", 37),
    textColumn("rightobjid", 37),
    textColumn("leftifnodeobjid", 37),
    textColumn("rightifnodeobjid", 37),
};
static_assert(sizeof(kConnDataColumns) / sizeof(Column) == CONN_DATA_COLUMN_COUNT);

inline constexpr AccessTexts kConnDataTexts = {
    .column = {ZN_API_SQL_BIND_COLUMN_ERROR, "Problem binding values for Layer 2 connectivity"},
    .infoIsRow = false,
};

using ConnDataMap = ZNTopoAPI_Impl::OwnedConnDataMap::element_type;

/// A link gives each of its nodes that is asked for, by a key in the map, a record of its own.
void addConnData(const Row& row, ConnDataMap& map);

// ---- VLANs ----

enum VlanInfoColumn : int {
  V_Container,
  V_Contained,
  V_Node,
  V_NodeName,
  V_Port,
  V_Card,
  VLAN_INFO_COLUMN_COUNT
};

inline constexpr Column kVlanInfoColumns[] = {
    textColumn("ContainerObjID", 37), textColumn("ContainedObjID", 37), textColumn("NodeObjID", 37),
    textColumn("NodeName", 256),      textColumn("VendorPort", 4),      textColumn("VendorCard", 4),
};
static_assert(sizeof(kVlanInfoColumns) / sizeof(Column) == VLAN_INFO_COLUMN_COUNT);

inline constexpr AccessTexts kVlanInfoTexts = {
    .column = {ZN_API_SQL_BIND_COLUMN_ERROR, "Problem binding values for VlanInfo"},
    .executing = {"Executing SQL: %s\n"},
    .executed = {"Execution complete \n"},
};

using VlanInfoMap = ZNTopoAPI_Impl::OwnedVlanInfoMap::element_type;

/// Adds an interface in a VLAN under its node (useNodeAsKey) or under its VLAN.
void addVlanInfo(const Row& row, bool useNodeAsKey, VlanInfoMap& map);

// ---- containers ----

enum IfcInfoColumn : int {
  I_Container,
  I_Interface,
  I_Node,
  I_ContainmentType,
  I_Type,
  I_Sequence,
  IFC_INFO_COLUMN_COUNT
};

inline constexpr Column kIfcInfoColumns[] = {
    textColumn("ContainerObjId", 37),
    textColumn("InterfaceObjId", 37),
    textColumn("NodeObjId", 37),
    intColumn("ContainmentType"),
    intColumn("IFCType"),
    intColumn("SequenceNumber"),
};
static_assert(sizeof(kIfcInfoColumns) / sizeof(Column) == IFC_INFO_COLUMN_COUNT);

inline constexpr AccessTexts kIfcInfoTexts = {
    .column = {ZN_API_SQL_BIND_COLUMN_ERROR, "Problem binding values for IfcInfo"},
};

using IfcInfoMap = ZNTopoAPI_Impl::OwnedIfcInfoMap::element_type;

/// Adds an interface in a container under its node (useNodeAsKey) or under its container.
void addIfcInfo(const Row& row, bool useNodeAsKey, IfcInfoMap& map);

}  // namespace zntopo::detail
