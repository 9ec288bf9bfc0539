#include "zntopo/api/detail/NodeRow.h"

#include "zntopo/api/detail/RowValues.h"

namespace zntopo::detail {

namespace {

ZNRefPtr<InetAddressIPv4> managementAddressOf(const Row& row, TopoDBType dbType) {
  std::string address = "-";
  std::string publicAddress = "-";
  if (row.isPresent(N_V4ManagementAddress)) {
    address = row.text(N_V4ManagementAddress);
    publicAddress = row.text(N_PubV4ManagementAdd);
  }
  // The route distinguisher counts as 0 where it is NULL.
  return new InetAddressIPv4(address, publicAddress, row.integer(N_V4ManagementAddressRD), dbType);
}

NodeProperty propertyOf(const Row& row, TopoDBType dbType) {
  NodeProperty property;
  property.capabilitySet = ZNNodeCapabilitySet(capabilityMask(row, kNodeCapabilityColumns));
  property.entityOid = row.text(N_SysOID);
  property.V4MgmtAddress = managementAddressOf(row, dbType);
  property.sysContact = row.text(N_sysContact);
  property.sysLocation = row.text(N_sysLocation);
  if (row.isPresent(N_L2DomainId)) property.L2DomainID = row.integer(N_L2DomainId);
  if (row.isPresent(N_SNMPState)) {
    property.mySnmpState = getSnmpStateFromInt(row.integer(N_SNMPState));
  }
  return property;
}

}  // namespace

ZNRefPtr<ZNNode> nodeFromRow(const Row& row, TopoDBType dbType) {
  ZNRefPtr<ZNNode> node(
      new ZNNode(entityFromRow(row, kNodeEntityColumns, E_Node, dbType), propertyOf(row, dbType)));
  // A copied entity has no parent: it is set on the node itself.
  node->setPartOf(AssEndPoint("UNKNOWN", ObjID(), E_Unknown));
  return node;
}

}  // namespace zntopo::detail
