#pragma once

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
  N_isSNMPSupported
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

/// A capability of nodes: the column that tells it and its bit.
struct NodeCapabilityBit {
  NodeColumn column;
  unsigned long mask;
  /// Negative values set the bit, too.
  bool countsNegative = false;
};

inline constexpr NodeCapabilityBit kNodeCapabilityBits[] = {
    {N_isLanSwitch, 0x1},     {N_isIPV4Router, 0x2},     {N_isIPV6Router, 0x4},
    {N_isATM, 0x8},           {N_isHSRP, 0x10, true},    {N_isFrameRelay, 0x20},
    {N_isCDP, 0x40},          {N_isBGP, 0x80},           {N_isOSPF, 0x100},
    {N_isSTP, 0x200},         {N_isVRRP, 0x400},         {N_isWireless, 0x800},
    {N_isSONET, 0x1000},      {N_isRMON, 0x2000},        {N_isRMON2, 0x4000},
    {N_isDS1, 0x8000},        {N_isDS3, 0x10000},        {N_isMPLS, 0x20000},
    {N_isMultiHome, 0x40000}, {N_isManageable, 0x80000}, {N_isSNMPSupported, 0x200000},
};

/// True if what a node can't do without is there.
bool isNodeRowComplete(const Row& row);

/// The node of a complete row, with nothing hanging on it yet.
ZNRefPtr<ZNNode> makeNode(const Row& row, TopoDBType dbType);

}  // namespace zntopo::detail
