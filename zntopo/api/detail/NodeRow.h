#pragma once

#include "zntopo/api/detail/CapabilityColumns.h"
#include "zntopo/api/detail/EntityRow.h"
#include "zntopo/core/ZNRefPtr.h"
#include "zntopo/model/TopoDBType.h"
#include "zntopo/model/ZNNode.h"
#include "zntopo/store/StoreAccess.h"

/// @file
/// The row of the big select of nodes: its columns, and the node that is made of it.

namespace zntopo::detail {

/// The columns in the order of the statement, counted from 0.
enum NodeColumn : int {
  N_ObjId,
  N_EntityName,
  N_IPLevel,
  N_QRMObjId,
  N_Description,
  N_ZoneNumber,
  N_V6CompoundStatus,
  N_V6GlobalStatus,
  N_V6SiteStatus,
  N_StatusChangeTimeUTC,
  N_CreateTimeUTC,
  N_ChangeTimeUTC,
  N_hasDynamicProperty,
  N_hasAddress,
  N_isATM,
  N_isOSPF,
  N_isBGP,
  N_isHSRP,
  N_isFrameRelay,
  N_isMultiHome,
  N_isMPLS,
  N_isLanSwitch,
  N_isManageable,
  N_isIPV6Router,
  N_isIPV4Router,
  N_SysOID,
  N_V4ManagementAddress,
  N_Status,
  N_L2DomainId,
  N_SNMPState,
  N_PubV4ManagementAdd,
  N_V4ManagementAddressRD,
  N_isVRRP,
  N_isRMON,
  N_isRMON2,
  N_isDS1,
  N_isDS3,
  N_isSONET,
  N_isCDP,
  N_isSTP,
  N_isWireless,
  N_sysContact,
  N_sysLocation,
  N_isSNMPSupported,
  NODE_COLUMN_COUNT
};

inline constexpr Column kNodeColumns[] = {
    textColumn("ObjId", 37),
    textColumn("EntityName", 256),
    intColumn("IPLevel"),
    textColumn("QRMObjId", 37),
    textColumn("Description", 2001),
    textColumn("ZoneNumber", 65),
    intColumn("V6CompoundStatus"),
    intColumn("V6GlobalStatus"),
    intColumn("V6SiteStatus"),
    intColumn("StatusChangeTimeUTC"),
    intColumn("CreateTimeUTC"),
    intColumn("ChangeTimeUTC"),
    intColumn("hasDynamicProperty"),
    intColumn("hasAddress"),
    intColumn("isATM"),
    intColumn("isOSPF"),
    intColumn("isBGP"),
    intColumn("isHSRP"),
    intColumn("isFrameRelay"),
    intColumn("isMultiHome"),
    intColumn("isMPLS"),
    intColumn("isLanSwitch"),
    intColumn("isManageable"),
    intColumn("isIPV6Router"),
    intColumn("isIPV4Router"),
    textColumn("SysOID", 65),
    textColumn("V4ManagementAddress", 16),
    intColumn("Status"),
    intColumn("L2DomainId"),
    intColumn("SNMPState"),
    textColumn("PubV4ManagementAdd", 16),
    intColumn("V4ManagementAddressRD"),
    intColumn("isVRRP"),
    intColumn("isRMON"),
    intColumn("isRMON2"),
    intColumn("isDS1"),
    intColumn("isDS3"),
    intColumn("isSONET"),
    intColumn("isCDP"),
    intColumn("isSTP"),
    intColumn("isWireless"),
    textColumn("sysContact", 129),
    textColumn("sysLocation", 129),
    intColumn("isSNMPSupported"),
};
static_assert(sizeof(kNodeColumns) / sizeof(Column) == NODE_COLUMN_COUNT);

/// What makes the mask of a node's capabilities.
inline constexpr CapabilityColumn kNodeCapabilityColumns[] = {
    whenPositive(N_isLanSwitch, NodeCapability::LanSwitch),
    whenPositive(N_isIPV4Router, NodeCapability::IPv4Router),
    whenPositive(N_isIPV6Router, NodeCapability::IPv6Router),
    whenPositive(N_isATM, NodeCapability::ATM),
    whenNonZero(N_isHSRP, NodeCapability::HSRP),
    whenPositive(N_isFrameRelay, NodeCapability::FrameRelay),
    whenPositive(N_isCDP, NodeCapability::CDP),
    whenPositive(N_isBGP, NodeCapability::BGP),
    whenPositive(N_isOSPF, NodeCapability::OSPF),
    whenPositive(N_isSTP, NodeCapability::STP),
    whenPositive(N_isVRRP, NodeCapability::VRRP),
    whenPositive(N_isWireless, NodeCapability::Wireless),
    whenPositive(N_isSONET, NodeCapability::SONET),
    whenPositive(N_isRMON, NodeCapability::RMON),
    whenPositive(N_isRMON2, NodeCapability::RMON2),
    whenPositive(N_isDS1, NodeCapability::DS1),
    whenPositive(N_isDS3, NodeCapability::DS3),
    whenPositive(N_isMPLS, NodeCapability::MPLS),
    whenPositive(N_isMultiHome, NodeCapability::MultiHome),
    whenPositive(N_isManageable, NodeCapability::Manageable),
    whenPositive(N_isSNMPSupported, NodeCapability::SnmpSupported),
};

/// What a node has in common with other entities. Its addresses hang on its interfaces.
inline constexpr EntityColumns kNodeEntityColumns = {
    .objID = N_ObjId,
    .name = N_EntityName,
    .ipLevel = N_IPLevel,
    .zoneNumber = N_ZoneNumber,
    .qrmObjID = N_QRMObjId,
    .description = N_Description,
    .status = N_Status,
    .v6CompoundStatus = N_V6CompoundStatus,
    .v6GlobalStatus = N_V6GlobalStatus,
    .v6SiteStatus = N_V6SiteStatus,
    .createTime = N_CreateTimeUTC,
    .changeTime = N_ChangeTimeUTC,
    .statusChangeTime = N_StatusChangeTimeUTC,
    .routeDistinguisher = N_V4ManagementAddressRD,
    .hasDynamicProperty = N_hasDynamicProperty,
    .absentQRMObjID = 0,
};

/// The node of a complete row, with nothing hanging on it yet.
ZNRefPtr<ZNNode> nodeFromRow(const Row& row, TopoDBType dbType);

}  // namespace zntopo::detail
