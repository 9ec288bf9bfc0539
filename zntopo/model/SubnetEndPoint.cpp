#include "zntopo/model/SubnetEndPoint.h"

#include "zntopo/model/TopologyGateway.h"
#include "zntopo/model/ZNInterface.h"
#include "zntopo/model/ZNNode.h"

namespace zntopo {

std::string SubnetEndPoint::toString(TopoDBType dbType) const {
  TopologyGateway& gateway = topologyGateway();
  ZNTopoAPIStatus status;
  const ZNRefPtr<ZNNode> node = gateway.getNodeByObjID(dbType, _nodeID, status);
  const ZNRefPtr<ZNInterface> interface = gateway.getInterfaceByObjID(dbType, _IFID, status);
  const ZNRefPtr<ZNAddress> address = gateway.getAddressByObjID(dbType, _addrID, status);
  return "(NodeID:" + _nodeID.getStrValue() + ", IFID:" + _IFID.getStrValue() +
         ", AddressID:" + _addrID.getStrValue() + ")" +
         " (NodeName:" + (node.isNull() ? "" : node->getName()) +
         ", IFName:" + (interface.isNull() ? "" : interface->getName()) +
         ", Address:" + (address.isNull() ? "" : address->getAddressAsString()) + ")";
}

}  // namespace zntopo
