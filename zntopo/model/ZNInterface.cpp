#include "zntopo/model/ZNInterface.h"

#include <cstring>
#include <utility>

#include "zntopo/core/MCLog.h"
#include "zntopo/model/TopologyAttributeType.h"
#include "zntopo/model/ZNNode.h"
#include "zntopo/model/detail/LeafLock.h"
#include "zntopo/model/detail/WriteThrough.h"

namespace zntopo {

namespace {

/// What stands for a text that the store does not have.
constexpr const char* kAbsent = "-";
constexpr std::size_t kInterfaceNameLength = 33;

template <std::size_t size>
std::string boundedText(const char (&text)[size]) {
  return std::string(text, strnlen(text, size));
}

}  // namespace

/// In what the state setters differ.
struct ZNInterface::StateRow {
  int storeKind;
  TopologyAttributeType attribute;
};

ZNInterface::ZNInterface() { _entityType = E_Interface; }

ZNInterface::ZNInterface(const ZNEntity& ent) : ZNEntity(ent) { _entityType = E_Interface; }

ZNInterface::ZNInterface(const ZNEntity& ent, const ConnDataVector& connData)
    : ZNInterface(ent, connData, IFProperty()) {}

ZNInterface::ZNInterface(const ZNEntity& ent, const IFProperty& ifProp)
    : ZNInterface(ent, ConnDataVector(), ifProp) {}

ZNInterface::ZNInterface(ZNEntity&& ent, IFProperty&& ifProp)
    : ZNEntity(std::move(ent)), ifProperty(std::move(ifProp)) {
  _entityType = E_Interface;
}

ZNInterface::ZNInterface(const ZNEntity& ent, const ConnDataVector& connData,
                         const IFProperty& ifProp)
    : ZNInterface(ent, connData, ifProp, AddressVector()) {}

ZNInterface::ZNInterface(const ZNEntity& ent, const ConnDataVector& connData,
                         const IFProperty& ifProp, const AddressVector& addresses)
    : ZNEntity(ent), ifProperty(ifProp), myAddressList(addresses) {
  _entityType = E_Interface;
  if (!connData.empty()) myConnData.publish(connData);
}

ZNInterface::ZNInterface(const ZNInterface& other) = default;
ZNInterface& ZNInterface::operator=(const ZNInterface& other) = default;
ZNInterface::~ZNInterface() = default;

const ZNInterface::ConnDataVector& ZNInterface::getConnData() const {
  if (!myConnData.get().empty()) return myConnData.get();
  ZNTopoAPIStatus status;
  const ZNRefPtr<ZNNode> node = topologyGateway().getNodeByObjID(_dbType, getParentObjID(), status);
  if (!status.isOK()) {
    MCLog::log(MC_CRITICAL, "getNodeByObjID() fail in ZNInterface::getConnData() \n");
    return myConnData.get();
  }
  if (node.isNull()) return myConnData.get();
  ConnDataVector own;
  for (const ZNRefPtr<ZNConnData>& link : node->getConnDataList()) {
    bool isSrc = false;
    if (!link.isNull() && link->isInterfacePartOfConnection(getObjID(), isSrc)) {
      own.push_back(link);
    }
  }
  detail::LeafLock lock(this);
  if (!own.empty() && myConnData.get().empty()) myConnData.publish(std::move(own));
  return myConnData.get();
}

void ZNInterface::addConnData(ZNRefPtr<ZNConnData>& connData) {
  detail::LeafLock lock(this);
  myConnData.edit().push_back(connData);
}

bool ZNInterface::isConnDataListEmptyNoNodeAccess() const { return myConnData.get().empty(); }

ZNRefPtr<ZNInterface> ZNInterface::peerOf(const ZNConnData& connData) const {
  bool isSrc = false;
  if (!connData.isInterfacePartOfConnection(getObjID(), isSrc)) return {};
  const ObjID& peer = isSrc ? connData.getDestInterfaceObjID() : connData.getSrcInterfaceObjID();
  if (peer.isNull()) return {};
  ZNTopoAPIStatus status;
  return topologyGateway().getInterfaceByObjID(_dbType, peer, status);
}

ZNRefPtr<ZNInterface> ZNInterface::getConnectedL2Interface() const {
  const ConnDataVector& links = getConnData();
  return links.empty() || links.front().isNull() ? ZNRefPtr<ZNInterface>() : peerOf(*links.front());
}

std::unique_ptr<std::list<ZNRefPtr<ZNInterface>>> ZNInterface::getConnectedL2Interfaces() const {
  auto peers = std::make_unique<std::list<ZNRefPtr<ZNInterface>>>();
  for (const ZNRefPtr<ZNConnData>& link : getConnData()) {
    if (!link.isNull()) peers->push_back(peerOf(*link));
  }
  return peers;
}

std::string ZNInterface::getInterfaceName() const {
  std::string name = getIfAlias();
  if (name == kAbsent) name = getIfName();
  if (name == kAbsent) name = getDescription();
  if (name == kAbsent) name = getCardLoc() + "/" + getPortNum();
  name.resize(kInterfaceNameLength);
  return name;
}

ObjID ZNInterface::getParentObjID() const {
  MutexLockInternal lock(myMutex);
  return _partOf.getObjID();
}

std::string ZNInterface::getCardLoc() const {
  MutexLockInternal lock(myMutex);
  return boundedText(ifProperty.vendorCardNumber);
}

std::string ZNInterface::getPortNum() const {
  MutexLockInternal lock(myMutex);
  return boundedText(ifProperty.vendorPortNumber);
}

std::string ZNInterface::getAuxPortNum() const {
  MutexLockInternal lock(myMutex);
  return boundedText(ifProperty.portNumber);
}

short ZNInterface::getVPI() const { return locked(ifProperty.vpi); }
short ZNInterface::getVCI() const { return locked(ifProperty.vci); }
bool ZNInterface::isValidATMInterface() const { return getVPI() != 0 || getVCI() != 0; }

bool ZNInterface::isATMEnabled() const {
  MutexLockInternal lock(myMutex);
  return isATM();
}

IfOperStatus ZNInterface::getIfOperStatus() const { return locked(ifProperty.ifOperStatus); }
std::string ZNInterface::getIfName() const { return locked(ifProperty.ifName); }
std::string ZNInterface::getIfAlias() const { return locked(ifProperty.ifAlias); }
int ZNInterface::getIfSpeed() const { return locked(ifProperty.ifSpeed); }
short ZNInterface::getIfIndex() const { return locked(ifProperty.ifIndex); }
short ZNInterface::getIfType() const { return locked(ifProperty.ifType); }
std::string ZNInterface::getPhysAddr() const { return locked(ifProperty.physicalAddress); }

const IFProperty& ZNInterface::getIFProperty() const {
  MutexLockInternal lock(myMutex);
  return ifProperty;
}

const ZNInterface::AddressVector& ZNInterface::getAddressList() const {
  MutexLockInternal lock(myMutex);
  return myAddressList;
}

ZNTopoAPIStatus ZNInterface::setL2DomainID(int id) {
  ifProperty.L2DomainID = static_cast<short>(id);
  ZNInterface copy(*this);
  return topologyGateway().setL2DomainIdOfInterface(_dbType, copy, id);
}

template <typename State>
ZNTopoAPIStatus ZNInterface::changeState(AtomicField<State>& field, State newState, bool updateDB,
                                         const StateRow& row) {
  MutexLockInternal lock(myMutex);
  detail::WriteThroughSteps steps;
  steps.change = [&]() -> std::optional<ZNTopoAPIStatus> {
    if (field == newState) return ZNTopoAPIStatus();
    field = newState;
    return std::nullopt;
  };
  steps.write = [&](TopologyGateway& gateway) {
    return gateway.setNWInterfaceState(_dbType, _id, newState, row.storeKind);
  };
  steps.notify = [&](TopologyGateway& gateway) {
    return gateway.sendAttributeNotification(
        {_entityType, _id, row.attribute, newState, ObjID(), 0});
  };
  return detail::writeThrough({true, true}, _dbType, updateDB, steps);
}

ZNTopoAPIStatus ZNInterface::setIfAdminStatus(IfAdminStatus newStatus, bool updateDB) {
  return changeState(ifProperty.ifAdminStatus, newStatus, updateDB, {0, IfAdmin_Status});
}

ZNTopoAPIStatus ZNInterface::setIfOperStatus(IfOperStatus newStatus, bool updateDB) {
  return changeState(ifProperty.ifOperStatus, newStatus, updateDB, {1, IfOper_Status});
}

std::vector<ZNCapability> ZNInterface::getCapabilityList() const {
  MutexLockInternal lock(myMutex);
  return ifProperty.capaSet.toCapabilityList();
}

bool ZNInterface::isInHSRP() const {
  MutexLockInternal lock(myMutex);
  return isHSRP();
}

const std::list<ObjID>& ZNInterface::getHSRPObjIDs() const {
  if (!isInHSRP() || !myHSRPObjIDList.get().empty()) return myHSRPObjIDList.get();
  ZNTopoAPIStatus status;
  const auto groups = topologyGateway().getHSRPObjIDsByIFAddressObjID(
      _dbType, getObjID(), TopologyGateway::HSRP_Interface, status);
  if (!status.isOK()) {
    MCLog::log(MC_CRITICAL, "getHSRPObjIDsByIFAddressObjID() fail for interface : %s\n",
               getObjID().getStrValue().c_str());
    return myHSRPObjIDList.get();
  }
  detail::LeafLock lock(this);
  if (groups && !groups->empty() && myHSRPObjIDList.get().empty()) {
    myHSRPObjIDList.publish(*groups);
  }
  return myHSRPObjIDList.get();
}

}  // namespace zntopo
