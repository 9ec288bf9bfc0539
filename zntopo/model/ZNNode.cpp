#include "zntopo/model/ZNNode.h"

#include <utility>

#include "zntopo/core/MCLog.h"
#include "zntopo/core/ObjIDLookup.h"
#include "zntopo/model/TopologyAttributeType.h"
#include "zntopo/model/ZNRefPtrConversion.h"
#include "zntopo/model/detail/LeafLock.h"
#include "zntopo/model/detail/WriteThrough.h"

namespace zntopo {

namespace {

/// The number by which the store's update knows the SNMP state.
constexpr int kSnmpStatusType = 6;

/// Stands in for a management address that a node does not have. Lives forever.
const InetAddressIPv4& noAddress() {
  static const auto* const address = new InetAddressIPv4();
  return *address;
}

const InetAddressIPv4& addressOf(const ZNRefPtr<InetAddressIPv4>& handle) {
  return handle.isNull() ? noAddress() : *handle;
}

/// True if both tell the same, so that the one read before can go on being used.
bool sameAddress(const ZNRefPtr<InetAddressIPv4>& left, const ZNRefPtr<InetAddressIPv4>& right) {
  if (left.isNull() || right.isNull()) return left.isNull() && right.isNull();
  if (left == right) return true;
  return left->getAddressID() == right->getAddressID() &&
         left->getAssEntityID() == right->getAssEntityID() &&
         left->getSubnetObjID() == right->getSubnetObjID() &&
         left->getAddressAsString() == right->getAddressAsString() &&
         left->getPublicAddress() == right->getPublicAddress() &&
         left->getRouteDistinguisher() == right->getRouteDistinguisher() &&
         left->getPrefixLength() == right->getPrefixLength() &&
         left->isSubnetAddress() == right->isSubnetAddress() &&
         left->getDBType() == right->getDBType() && left->getPingState() == right->getPingState() &&
         left->getPingStateUpdTime() == right->getPingStateUpdTime();
}

}  // namespace

ZNNode::ZNNode() { _entityType = E_Node; }

ZNNode::ZNNode(const ZNEntity& ent) : ZNEntity(ent) { _entityType = E_Node; }

ZNNode::ZNNode(const ZNEntity& ent, const InterfaceList& ifs) : ZNNode(ent) {
  for (const ZNRefPtr<ZNInterface>& interface : ifs) {
    if (!interface.isNull()) addInterfaceID(interface->getObjID());
  }
}

ZNNode::ZNNode(const ZNEntity& ent, const NodeProperty& theProperty)
    : ZNEntity(ent), myNodeProperty(theProperty) {}

ZNNode::ZNNode(ZNEntity&& ent, NodeProperty&& theProperty)
    : ZNEntity(std::move(ent)), myNodeProperty(std::move(theProperty)) {}

ZNNode::ZNNode(const ZNNode& other) : ZNEntity(other) { copyOwnFields(other); }

ZNNode& ZNNode::operator=(const ZNNode& other) {
  if (this == &other) return *this;
  ZNEntity::operator=(other);
  copyOwnFields(other);
  return *this;
}

// The identifiers and the flag that tells that they are all there change together.
void ZNNode::copyOwnFields(const ZNNode& other) {
  detail::LeafLock lock(&other);
  myInterfaceList = other.myInterfaceList;
  myNodeProperty = other.myNodeProperty;
  myInterfaceLoaded = other.myInterfaceLoaded;
  myQRMObjectId = other.myQRMObjectId;
  myConnDataList = other.myConnDataList;
  myVlanInfoList = other.myVlanInfoList;
  myIfcInfoList = other.myIfcInfoList;
}

ZNNode::~ZNNode() = default;

std::string ZNNode::getIPv4ManagementAddress() const {
  return addressOf(myNodeProperty.V4MgmtAddress).getAddressAsString();
}

const InetAddressIPv4& ZNNode::getIPv4MgmtAddress() const {
  const InetAddressIPv4& held = addressOf(myNodeProperty.V4MgmtAddress);
  if (!held.getAddressID().isNull() && held.getAddressID().getLongValue() != 0) return held;
  ZNTopoAPIStatus status;
  const ZNRefPtr<ZNAddress> read = topologyGateway().getAddressByIP(
      held.getAddressAsString(), status, static_cast<int>(held.getRouteDistinguisher()));
  const ZNRefPtr<InetAddressIPv4> address = ZNRefPtrConversion::Address2IPv4(read);
  if (status.isOK() && !address.isNull()) {
    detail::LeafLock lock(this);
    myNodeProperty.V4MgmtAddress.publish(address, sameAddress);
  }
  return addressOf(myNodeProperty.V4MgmtAddress);
}

ZNNode::InterfaceList ZNNode::getInterfaceList() const {
  const std::unique_ptr<InterfaceList> list = getInterfacesList();
  return list ? *list : InterfaceList();
}

std::unique_ptr<ZNNode::InterfaceList> ZNNode::getInterfacesList() const {
  std::unique_ptr<InterfaceList> list;
  if (!myInterfaceLoaded && getInterfaceIDs(list)) return list;
  return fetchInterfaces(getInterfaceIDSet());
}

std::unique_ptr<ZNNode::InterfaceList> ZNNode::getL2LinkConnectedInterfacesList() const {
  std::set<ObjID> ids;
  for (const ZNRefPtr<ZNConnData>& link : myConnDataList) {
    if (link.isNull()) continue;
    const ObjID& own = link->getSrcNodeObjID() == getObjID() ? link->getSrcInterfaceObjID()
                                                             : link->getDestInterfaceObjID();
    if (!own.isNull()) ids.insert(own);
  }
  return fetchInterfaces(ids);
}

std::unique_ptr<ZNNode::InterfaceList> ZNNode::fetchInterfaces(const std::set<ObjID>& ids) const {
  ZNTopoAPIStatus status;
  std::set<ObjID> notFound;
  auto list = topologyGateway().getInterfacesByObjIDList(ids, notFound, status);
  if (!status.isOK()) {
    MCLog::log(MC_CRITICAL, "Error in getInterfacesByObjIDList() inside ZNNode. %s : %s \n",
               status.getStatusMsg().c_str(), status.getAuxMsg().c_str());
  }
  return list;
}

ZNRefPtr<ZNInterface> ZNNode::getInterfaceByAddressValue(const std::string& value,
                                                         ZNAddress::AddressType type) const {
  for (const ZNRefPtr<ZNInterface>& interface : getInterfaceList()) {
    if (interface.isNull()) continue;
    const auto addresses = interface->getAddressesByType(type);
    if (!addresses->empty() && addresses->front()->getAddressAsString() == value) {
      return interface;
    }
  }
  return {};
}

void ZNNode::setInterfaceIDSet(const std::set<ObjID>& ids) {
  for (const ObjID& id : ids) addInterfaceID(id);
  myInterfaceLoaded = true;
}

void ZNNode::addInterfaceID(const ObjID& id) {
  detail::LeafLock lock(this);
  myInterfaceList.edit().push_back(id);
}

std::set<ObjID> ZNNode::getInterfaceIDSet() const {
  std::set<ObjID> ids;
  for (const ObjID& id : getInterfaceIDList()) {
    if (!id.isNull()) ids.insert(id);
  }
  return ids;
}

const std::list<ObjID>& ZNNode::getInterfaceIDList() const {
  std::unique_ptr<InterfaceList> dropped;
  getInterfaceIDs(dropped);
  return myInterfaceList.get();
}

bool ZNNode::getInterfaceIDs(std::unique_ptr<InterfaceList>& out) const {
  if (myInterfaceLoaded) return false;
  ZNTopoAPIStatus status;
  out = topologyGateway().getInterfacesByNodeObjIDList(_dbType, {getObjID()}, status);
  if (!status.isOK()) {
    MCLog::log(MC_MAJOR, "Failed in getInterfacessByNodeObjIDList \n");
    return true;
  }
  detail::LeafLock lock(this);
  if (myInterfaceLoaded) return true;
  std::list<ObjID> ids = myInterfaceList.get();
  if (out) {
    for (const ZNRefPtr<ZNInterface>& interface : *out) ids.push_back(interface->getObjID());
  }
  myInterfaceList.publish(std::move(ids));
  myInterfaceLoaded = true;
  return true;
}

ZNTopoAPIStatus ZNNode::setL2DomainID(int id) {
  myNodeProperty.L2DomainID = id;
  return topologyGateway().setL2DomainIdOfNode(_dbType, *this, id);
}

std::set<std::string> ZNNode::getCapabilities() const {
  std::set<std::string> names;
  for (const ZNCapability& capability : getCapabilityListVal()) {
    names.insert(capability.getCapabilityName());
  }
  return names;
}

bool ZNNode::hasCapability(const std::string& name) const {
  return myNodeProperty.capabilitySet.isCapabilitySet(name);
}

std::unique_ptr<std::vector<ZNCapability>> ZNNode::getCapabilityList() const {
  return std::make_unique<std::vector<ZNCapability>>(getCapabilityListVal());
}

std::vector<ZNCapability> ZNNode::getCapabilityListVal() const {
  return myNodeProperty.capabilitySet.toCapabilityList();
}

void ZNNode::setIfcInfoList(const std::list<ZNIfcInfo>& list) { publishIfcInfo(list); }

void ZNNode::publishIfcInfo(const std::list<ZNIfcInfo>& list) const {
  detail::LeafLock lock(this);
  myIfcInfoList.publish(list);
}

const std::list<ZNIfcInfo>& ZNNode::getAllIfcInfo() const { return loadIfcInfo(0, nullptr); }

const std::list<ZNIfcInfo>& ZNNode::getIfcInfoByType(int IFCType) const {
  return loadIfcInfo(IFCType, "ZNNode::getIfcInfoByType() obtained the ifcInfoListMap");
}

const std::list<ZNIfcInfo>& ZNNode::loadIfcInfo(int IFCType, const char* logText) const {
  ZNTopoAPIStatus status;
  const auto infos = topologyGateway().getIfcInfosByObjIDList({getObjID()}, status, IFCType);
  if (logText) MCLog::log(MC_INFO, "%s", logText);
  if (infos) {
    const auto found = findObjID(*infos, getObjID());
    if (found != infos->end() && !found->second.isNull()) publishIfcInfo(*found->second);
  }
  return myIfcInfoList.get();
}

ZNTopoAPIStatus ZNNode::setSnmpState(SnmpState newState, bool updateDB) {
  MutexLockInternal lock(myMutex);
  detail::WriteThroughSteps steps;
  steps.change = [&]() -> std::optional<ZNTopoAPIStatus> {
    myNodeProperty.mySnmpState = newState;
    return std::nullopt;
  };
  steps.write = [&](TopologyGateway& gateway) {
    return gateway.setNWNodeStatus(_dbType, _id, newState, kSnmpStatusType);
  };
  steps.notify = [&](TopologyGateway& gateway) {
    return gateway.sendAttributeNotification({_entityType, _id, Snmp_State, newState, ObjID(), 0});
  };
  return detail::writeThrough({true, true}, _dbType, updateDB, steps);
}

}  // namespace zntopo
