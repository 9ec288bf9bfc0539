#include "zntopo/api/detail/InterfaceRow.h"

#include <cstring>

#include "zntopo/api/detail/RowValues.h"

namespace zntopo::detail {

namespace {

struct Capability {
  InterfaceColumn column;
  unsigned long mask;
};

constexpr Capability kCapabilities[] = {
    {IF_isAccessPort, 0x1},  {IF_isL2Connected, 0x2},
    {IF_isATM, 0x8},         {IF_isHSRP, 0x10},
    {IF_isFrameRelay, 0x20}, {IF_isCDP, 0x40},
    {IF_isBGP, 0x80},        {IF_isOSPF, 0x100},
    {IF_isSTP, 0x200},       {IF_isVRRP, 0x400},
    {IF_isWireless, 0x800},  {IF_isSONET, 0x1000},
    {IF_isDS1, 0x8000},      {IF_isDS3, 0x10000},
    {IF_isMPLS, 0x20000},    {IF_isMeshInterface, 0x100000},
};

unsigned long capabilityMask(const Row& row) {
  unsigned long capaMask = 0;
  for (const Capability& capability : kCapabilities) {
    if (presentInt(row, capability.column) != 0) capaMask |= capability.mask;
  }
  return capaMask;
}

/// Three characters and a terminator at most; the column's buffer is no wider.
void copyNumber(char (&number)[4], const Row& row, InterfaceColumn column) {
  if (row.isPresent(column)) std::strncpy(number, row.text(column), sizeof number - 1);
}

/// Columns that are absent leave the property as it is reset. The column AscChangeTime is read
/// as well; no property holds it.
IFProperty propertyFromRow(const Row& row) {
  IFProperty property;
  copyNumber(property.portNumber, row, IF_Port);
  copyNumber(property.vendorPortNumber, row, IF_VendorPort);
  copyNumber(property.vendorCardNumber, row, IF_VendorCard);
  property.vpi = static_cast<short>(presentInt(row, IF_Vpi, property.vpi));
  property.vci = static_cast<short>(presentInt(row, IF_Vci, property.vci));
  property.L2DomainID = static_cast<short>(presentInt(row, IF_L2DomainId, property.L2DomainID));
  property.capaSet = ZNInterfaceCapabilitySet(capabilityMask(row));
  property.ifType = static_cast<short>(presentInt(row, IF_IfType, property.ifType));
  property.ifName = presentText(row, IF_IfName, "-");
  property.ifAlias = presentText(row, IF_IfAlias, "-");
  property.ifIndex = static_cast<short>(presentInt(row, IF_IfIndex, property.ifIndex));
  property.physicalAddress = presentText(row, IF_PhysicalAddress);
  property.ifOperStatus = static_cast<IfOperStatus>(presentInt(row, IF_IfOperStatus, up));
  property.ifAdminStatus = static_cast<IfAdminStatus>(presentInt(row, IF_IfAdminState, Up));
  property.ifSpeed = presentInt(row, IF_IfSpeed, property.ifSpeed);
  return property;
}

ZNEntity entityFromRow(const Row& row, TopoDBType dbType) {
  return ZNEntity(ObjID(row.text(IF_ObjId)), presentText(row, IF_ZoneNumber),
                  presentID(row, IF_QRMObjId), row.text(IF_EntityName),
                  presentText(row, IF_Description), E_Interface, presentStatus(row, IF_Status),
                  presentStatus(row, IF_V6CompoundStatus), presentStatus(row, IF_V6GlobalStatus),
                  presentStatus(row, IF_V6SiteStatus), presentInt(row, IF_CreateTimeUTC),
                  presentInt(row, IF_ChangeTimeUTC), presentInt(row, IF_StatusChangeTimeUTC),
                  presentInt(row, IF_routeDistinguisher), ipLevelOf(row, IF_IPLevel), dbType);
}

}  // namespace

bool hasCriticalInterfaceData(const Row& row) {
  return row.isPresent(IF_ObjId) && row.isPresent(IF_EntityName) && row.isPresent(IF_IPLevel);
}

ZNRefPtr<ZNInterface> interfaceFromRow(const Row& row, TopoDBType dbType) {
  ZNRefPtr<ZNInterface> interface(
      new ZNInterface(entityFromRow(row, dbType), propertyFromRow(row)));
  interface->setPartOf(
      AssEndPoint(presentText(row, IF_nodeName, "UNKNOWN"), presentID(row, IF_NodeObjID), E_Node));
  return interface;
}

}  // namespace zntopo::detail
