#pragma once

#include "zntopo/api/ZNTopoAPI_Impl.h"
#include "zntopo/api/detail/EntityRow.h"
#include "zntopo/model/ZNHSRPAddressInfo.h"
#include "zntopo/model/ZNIfcAssocInfo.h"
#include "zntopo/store/StoreAccess.h"

/// @file
/// The rows of interface containers and of their associations, and of the members of HSRP groups.

namespace zntopo::detail {

// ---- containers ----

enum IfcEntityColumn : int {
  IFC_ObjId,
  IFC_EntityName,
  IFC_StatusChangeTimeUTC,
  IFC_CreateTimeUTC,
  IFC_ChangeTimeUTC,
  IFC_hasDynamicProperty,
  IFC_Description,
  IFC_ZoneNumber,
  IFC_RouteDistinguisher,
  IFC_Status,
  IFC_ENTITY_COLUMN_COUNT
};

inline constexpr Column kIfcEntityColumns[] = {
    textColumn("ObjId", 66),          textColumn("EntityName", 130),
    intColumn("StatusChangeTimeUTC"), intColumn("CreateTimeUTC"),
    intColumn("ChangeTimeUTC"),       intColumn("hasDynamicProperty"),
    textColumn("Description", 260),   textColumn("ZoneNumber", 65),
    intColumn("RouteDistinguisher"),  intColumn("Status"),
};
static_assert(sizeof(kIfcEntityColumns) / sizeof(Column) == IFC_ENTITY_COLUMN_COUNT);

/// Containers have no IP level: they are IPv4. Their user variables are not loaded.
inline constexpr EntityColumns kIfcEntityEntityColumns = {
    .objID = IFC_ObjId,
    .name = IFC_EntityName,
    .zoneNumber = IFC_ZoneNumber,
    .description = IFC_Description,
    .status = IFC_Status,
    .createTime = IFC_CreateTimeUTC,
    .changeTime = IFC_ChangeTimeUTC,
    .statusChangeTime = IFC_StatusChangeTimeUTC,
    .routeDistinguisher = IFC_RouteDistinguisher,
};

enum IfcDataColumn : int { IFCD_Type, IFCD_isOrdered, IFCD_AppsID, IFC_DATA_COLUMN_COUNT };

inline constexpr Column kIfcDataColumns[] = {intColumn("IFCType"), intColumn("isOrdered"),
                                             intColumn("AppsID")};
static_assert(sizeof(kIfcDataColumns) / sizeof(Column) == IFC_DATA_COLUMN_COUNT);

enum IfcAssociationColumn : int {
  IFCA_Left,
  IFCA_Right,
  IFCA_RelType,
  IFCA_LeftType,
  IFCA_RightType,
  IFCA_State,
  IFCA_StateChangeTime,
  IFCA_Description,
  IFCA_ExtraInfo,
  IFC_ASSOCIATION_COLUMN_COUNT
};

inline constexpr Column kIfcAssociationColumns[] = {
    textColumn("LeftIFContainerObjID", 37),
    textColumn("RightIFContainerObjID", 37),
    intColumn("RelType"),
    intColumn("LeftIfcType"),
    intColumn("RightIfcType"),
    intColumn("State"),
    intColumn("StateChangeTime"),
    textColumn("Description", 260),
    textColumn("ExtraInfo", 260),
};
static_assert(sizeof(kIfcAssociationColumns) / sizeof(Column) == IFC_ASSOCIATION_COLUMN_COUNT);

/// The same for the data and for the associations of a container.
inline constexpr AccessTexts kIfcDataTexts = {
    .column = {ZN_API_SQL_BIND_COLUMN_ERROR, "Problem binding values for Ifc Data"},
};

ZNRefPtr<ZNIfcAssocInfo> ifcAssociationFromRow(const Row& row);

// ---- HSRP groups ----

enum HSRPInfoColumn : int {
  H_Address,
  H_Interface,
  H_Group,
  H_State,
  H_Priority,
  H_Number,
  H_TrackList,
  H_Certainty,
  HSRP_INFO_COLUMN_COUNT
};

inline constexpr Column kHSRPInfoColumns[] = {
    textColumn("AddressID", 66),
    textColumn("AddressIfObjID", 66),
    textColumn("ObjID", 66),
    intColumn("state"),
    intColumn("HSRPPriority"),
    intColumn("HSRPNumber"),
    textColumn("TrackInterfaceList", 2000),
    intColumn("HSRPStateCertainty"),
};
static_assert(sizeof(kHSRPInfoColumns) / sizeof(Column) == HSRP_INFO_COLUMN_COUNT);

inline constexpr AccessTexts kHSRPInfoTexts = {
    .column = {ZN_API_SQL_BIND_COLUMN_ERROR, "Problem binding values for HSRPInfo"},
};

/// Adds a member under its group.
void addHSRPInfo(const Row& row, ZNTopoAPI_Impl::OwnedHSRPInfoMap::element_type& map);

}  // namespace zntopo::detail
