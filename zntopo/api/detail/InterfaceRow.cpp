#include "zntopo/api/detail/InterfaceRow.h"

#include <cstring>

#include "zntopo/api/detail/CapabilityColumns.h"
#include "zntopo/api/detail/RowValues.h"

namespace zntopo::detail {

namespace {

constexpr CapabilityColumn kCapabilityColumns[] = {
    whenNonZero(IF_isAccessPort, InterfaceCapability::AccessPort),
    whenNonZero(IF_isL2Connected, InterfaceCapability::L2Connected),
    whenNonZero(IF_isATM, InterfaceCapability::ATM),
    whenNonZero(IF_isHSRP, InterfaceCapability::HSRP),
    whenNonZero(IF_isFrameRelay, InterfaceCapability::FrameRelay),
    whenNonZero(IF_isCDP, InterfaceCapability::CDP),
    whenNonZero(IF_isBGP, InterfaceCapability::BGP),
    whenNonZero(IF_isOSPF, InterfaceCapability::OSPF),
    whenNonZero(IF_isSTP, InterfaceCapability::STP),
    whenNonZero(IF_isVRRP, InterfaceCapability::VRRP),
    whenNonZero(IF_isWireless, InterfaceCapability::Wireless),
    whenNonZero(IF_isSONET, InterfaceCapability::SONET),
    whenNonZero(IF_isDS1, InterfaceCapability::DS1),
    whenNonZero(IF_isDS3, InterfaceCapability::DS3),
    whenNonZero(IF_isMPLS, InterfaceCapability::MPLS),
    whenNonZero(IF_isMeshInterface, InterfaceCapability::MeshInterface),
};

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
  property.capaSet = ZNInterfaceCapabilitySet(capabilityMask(row, kCapabilityColumns));
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

}  // namespace

ZNRefPtr<ZNInterface> interfaceFromRow(const Row& row, TopoDBType dbType) {
  ZNRefPtr<ZNInterface> interface(new ZNInterface(
      entityFromRow(row, kInterfaceEntityColumns, E_Interface, dbType), propertyFromRow(row)));
  interface->setPartOf(
      AssEndPoint(presentText(row, IF_nodeName, "UNKNOWN"), presentID(row, IF_NodeObjID), E_Node));
  return interface;
}

}  // namespace zntopo::detail
