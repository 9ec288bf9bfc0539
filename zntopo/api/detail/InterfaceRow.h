#pragma once

#include "zntopo/api/detail/EntityRow.h"
#include "zntopo/core/ZNRefPtr.h"
#include "zntopo/model/TopoDBType.h"
#include "zntopo/model/ZNInterface.h"
#include "zntopo/store/StoreAccess.h"

/// @file
/// The row of the big select of interfaces.

namespace zntopo::detail {

/// The columns in the order of the statement.
enum InterfaceColumn : int {
  IF_ObjId,
  IF_EntityName,
  IF_IPLevel,
  IF_QRMObjId,
  IF_Description,
  IF_EntityType,
  IF_ZoneNumber,
  IF_V6CompoundStatus,
  IF_V6GlobalStatus,
  IF_V6SiteStatus,
  IF_StatusChangeTimeUTC,
  IF_CreateTimeUTC,
  IF_ChangeTimeUTC,
  IF_hasDynamicProperty,
  IF_hasAddress,
  IF_NodeObjID,
  IF_PhysicalAddress,
  IF_VendorCard,
  IF_VendorPort,
  IF_IfIndex,
  IF_IfName,
  IF_IfType,
  IF_Vpi,
  IF_Vci,
  IF_IfAlias,
  IF_nodeName,
  IF_isL2Connected,
  IF_Port,
  IF_isHSRP,
  IF_Status,
  IF_L2DomainId,
  IF_IfOperStatus,
  IF_IfAdminState,
  IF_isATM,
  IF_isOSPF,
  IF_isBGP,
  IF_isFrameRelay,
  IF_isMeshInterface,
  IF_isMPLS,
  IF_isVRRP,
  IF_isDS1,
  IF_isDS3,
  IF_isSONET,
  IF_isCDP,
  IF_isSTP,
  IF_isWireless,
  IF_routeDistinguisher,
  IF_IfSpeed,
  IF_isAccessPort,
  IF_AscChangeTime,
  INTERFACE_COLUMN_COUNT
};

inline constexpr Column kInterfaceColumns[] = {
    textColumn("ObjId", 37),
    textColumn("EntityName", 256),
    intColumn("IPLevel"),
    textColumn("QRMObjId", 37),
    textColumn("Description", 2001),
    intColumn("EntityType"),
    textColumn("ZoneNumber", 65),
    intColumn("V6CompoundStatus"),
    intColumn("V6GlobalStatus"),
    intColumn("V6SiteStatus"),
    intColumn("StatusChangeTimeUTC"),
    intColumn("CreateTimeUTC"),
    intColumn("ChangeTimeUTC"),
    intColumn("hasDynamicProperty"),
    intColumn("hasAddress"),
    textColumn("NodeObjID", 37),
    textColumn("PhysicalAddress", 257),
    textColumn("VendorCard", 4),
    textColumn("VendorPort", 4),
    intColumn("IfIndex"),
    textColumn("IfName", 256),
    intColumn("IfType"),
    intColumn("Vpi"),
    intColumn("Vci"),
    textColumn("IfAlias", 256),
    textColumn("nodeName", 256),
    intColumn("isL2Connected"),
    textColumn("Port", 4),
    intColumn("isHSRP"),
    intColumn("Status"),
    intColumn("L2DomainId"),
    intColumn("IfOperStatus"),
    intColumn("IfAdminState"),
    intColumn("isATM"),
    intColumn("isOSPF"),
    intColumn("isBGP"),
    intColumn("isFrameRelay"),
    intColumn("isMeshInterface"),
    intColumn("isMPLS"),
    intColumn("isVRRP"),
    intColumn("isDS1"),
    intColumn("isDS3"),
    intColumn("isSONET"),
    intColumn("isCDP"),
    intColumn("isSTP"),
    intColumn("isWireless"),
    intColumn("routeDistinguisher"),
    intColumn("IfSpeed"),
    intColumn("isAccessPort"),
    intColumn("AscChangeTime"),
};
static_assert(sizeof(kInterfaceColumns) / sizeof(Column) == INTERFACE_COLUMN_COUNT);

/// What an interface has in common with other entities.
inline constexpr EntityColumns kInterfaceEntityColumns = {
    .objID = IF_ObjId,
    .name = IF_EntityName,
    .ipLevel = IF_IPLevel,
    .zoneNumber = IF_ZoneNumber,
    .qrmObjID = IF_QRMObjId,
    .description = IF_Description,
    .status = IF_Status,
    .v6CompoundStatus = IF_V6CompoundStatus,
    .v6GlobalStatus = IF_V6GlobalStatus,
    .v6SiteStatus = IF_V6SiteStatus,
    .createTime = IF_CreateTimeUTC,
    .changeTime = IF_ChangeTimeUTC,
    .statusChangeTime = IF_StatusChangeTimeUTC,
    .routeDistinguisher = IF_routeDistinguisher,
    .hasDynamicProperty = IF_hasDynamicProperty,
    .hasAddress = IF_hasAddress,
    .refusal = "Unable to create Interface!\n",
};

/// The interface of a complete row, its parent set.
ZNRefPtr<ZNInterface> interfaceFromRow(const Row& row, TopoDBType dbType);

}  // namespace zntopo::detail
