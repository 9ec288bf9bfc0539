#include "tests/support/FakeTopologyGateway.h"

#include <algorithm>
#include <type_traits>

#include "zntopo/model/ZNHSRPAddressInfo.h"

namespace zntopo::test {

namespace {

std::string text(const ObjID& id) { return id.getStrValue(); }
std::string text(const std::string& value) { return value; }
std::string text(const ObjectStatus& status) { return status.toString(); }

template <typename Number,
          typename = std::enable_if_t<std::is_arithmetic_v<Number> || std::is_enum_v<Number>>>
std::string text(Number number) {
  return std::to_string(static_cast<long long>(number));
}

template <typename Container>
std::string ids(const Container& container) {
  std::string joined;
  for (const ObjID& id : container) joined += (joined.empty() ? "" : " ") + text(id);
  return "[" + joined + "]";
}

template <typename First, typename... Rest>
std::string arguments(const First& first, const Rest&... rest) {
  std::string joined = text(first);
  ((joined += ", " + text(rest)), ...);
  return joined;
}

template <typename Map>
typename Map::mapped_type answerFrom(const Map& map, const typename Map::key_type& key) {
  const auto found = map.find(key);
  return found == map.end() ? typename Map::mapped_type() : found->second;
}

}  // namespace

FakeTopologyGateway& FakeTopologyGateway::instance() {
  static auto* const gateway = new FakeTopologyGateway();
  return *gateway;
}

void FakeTopologyGateway::reset() {
  Answers dropped;  // dies behind the lock: what it holds may call back
  std::lock_guard lock(mutex_);
  calls_.clear();
  operations_.clear();
  std::swap(dropped, answers_);
  topoMode = 0;
}

std::vector<std::string> FakeTopologyGateway::calls() const {
  std::lock_guard lock(mutex_);
  return calls_;
}

int FakeTopologyGateway::callCount(const std::string& operation) const {
  std::lock_guard lock(mutex_);
  return static_cast<int>(std::count(operations_.begin(), operations_.end(), operation));
}

void FakeTopologyGateway::failWith(const std::string& operation, ZNTopoStatus status,
                                   const std::string& aux) {
  std::lock_guard lock(mutex_);
  answers_.statuses[operation] = ZNTopoAPIStatus(status, aux);
}

void FakeTopologyGateway::succeed(const std::string& operation) {
  std::lock_guard lock(mutex_);
  answers_.statuses.erase(operation);
}

void FakeTopologyGateway::onCall(std::function<void(const std::string&)> hook) {
  std::lock_guard lock(mutex_);
  answers_.hook = std::move(hook);
}

void FakeTopologyGateway::addNode(const ZNRefPtr<ZNNode>& node) {
  answers_.nodes[text(node->getObjID())] = node;
}

void FakeTopologyGateway::addInterface(const ZNRefPtr<ZNInterface>& interface) {
  answers_.interfaces[text(interface->getObjID())] = interface;
}

void FakeTopologyGateway::addInterfaceOfNode(const ObjID& nodeID,
                                             const ZNRefPtr<ZNInterface>& interface) {
  addInterface(interface);
  answers_.interfacesOfNode[text(nodeID)].push_back(interface);
}

void FakeTopologyGateway::addAddress(const ZNRefPtr<ZNAddress>& address) {
  answers_.addresses[text(address->getAddressID())] = address;
}

void FakeTopologyGateway::answerAddressByIP(const std::string& ip,
                                            const ZNRefPtr<ZNAddress>& address) {
  std::lock_guard lock(mutex_);
  answers_.addressesByIP[ip] = address;
}

void FakeTopologyGateway::answerHSRPObjIDs(const ObjID& id, const std::list<ObjID>& groups) {
  std::lock_guard lock(mutex_);
  answers_.hsrpObjIDs[text(id)] = groups;
}

void FakeTopologyGateway::answerIfcInfos(const ObjID& nodeID, int ifcType,
                                         const std::list<ZNIfcInfo>& infos) {
  std::lock_guard lock(mutex_);
  answers_.ifcInfos[{text(nodeID), ifcType}] = infos;
}

ZNTopoAPIStatus FakeTopologyGateway::enter(const std::string& operation,
                                           const std::string& arguments) {
  std::function<void(const std::string&)> hook;
  {
    std::lock_guard lock(mutex_);
    calls_.push_back(operation + "(" + arguments + ")");
    operations_.push_back(operation);
    hook = answers_.hook;
  }
  if (hook) hook(operation);
  std::lock_guard lock(mutex_);
  return answerFrom(answers_.statuses, operation);
}

int FakeTopologyGateway::getTopoMode(TopoDBType dbType) {
  enter("getTopoMode", arguments(dbType));
  return topoMode;
}

ZNTopoAPIStatus FakeTopologyGateway::setEntityStatus(TopoDBType dbType, const ObjID& id,
                                                     int newStatus, long statusChangeTimeUTC,
                                                     ZNEntity::EntityStatusType statusType,
                                                     EntityType entityType) {
  return enter("setEntityStatus",
               arguments(dbType, id, newStatus, statusChangeTimeUTC, statusType, entityType));
}

ZNTopoAPIStatus FakeTopologyGateway::setAddressState(TopoDBType dbType, const ObjID& id,
                                                     int state) {
  return enter("setAddressState", arguments(dbType, id, state));
}

ZNTopoAPIStatus FakeTopologyGateway::setNWNodeStatus(TopoDBType dbType, const ObjID& id,
                                                     int newStatus, int statusType) {
  return enter("setNWNodeStatus", arguments(dbType, id, newStatus, statusType));
}

ZNTopoAPIStatus FakeTopologyGateway::setNWInterfaceState(TopoDBType dbType, const ObjID& id,
                                                         int newValue, int attributeType) {
  return enter("setNWInterfaceState", arguments(dbType, id, newValue, attributeType));
}

ZNTopoAPIStatus FakeTopologyGateway::setHSRPAddressInfo(TopoDBType dbType,
                                                        const ZNHSRPAddressInfo& info) {
  return enter("setHSRPAddressInfo",
               arguments(dbType, info.getAddressID(), info.getHSRPState(),
                         info.getHSRPStateCertainty(), info.getHSRPPriority()));
}

ZNTopoAPIStatus FakeTopologyGateway::setL2DomainIdOfNode(TopoDBType dbType, ZNNode& node, int& id) {
  return enter("setL2DomainIdOfNode", arguments(dbType, node.getObjID(), id));
}

ZNTopoAPIStatus FakeTopologyGateway::setL2DomainIdOfInterface(TopoDBType dbType,
                                                              ZNInterface& interface, int& id) {
  return enter("setL2DomainIdOfInterface",
               arguments(dbType, interface.getObjID(), interface.getL2DomainID(), id));
}

ZNTopoAPIStatus FakeTopologyGateway::setNWIfcAssocInfoState(const ObjID& leftIfcObjID,
                                                            const ObjID& rightIfcObjID,
                                                            int assocType, int state) {
  return enter("setNWIfcAssocInfoState", arguments(leftIfcObjID, rightIfcObjID, assocType, state));
}

ZNTopoAPIStatus FakeTopologyGateway::ensureNotificationClient() {
  return enter("ensureNotificationClient", "");
}

ZNTopoAPIStatus FakeTopologyGateway::sendStatusNotification(const StatusChange& change) {
  return enter("sendStatusNotification",
               arguments(change.entityType, change.objID, change.newStatus, change.previousStatus,
                         change.statusChangeTimeUTC, change.statusType));
}

ZNTopoAPIStatus FakeTopologyGateway::sendAttributeNotification(const AttributeChange& change) {
  return enter("sendAttributeNotification",
               arguments(change.entityType, change.objID, change.attribute, change.value,
                         change.hsrpOrIfcObjID, change.assocType));
}

std::unique_ptr<TopologyGateway::AddressVector> FakeTopologyGateway::getAddrsByObjIDs(
    const std::list<ObjID>& addressIDs, ZNTopoAPIStatus& status) {
  status = enter("getAddrsByObjIDs", ids(addressIDs));
  auto result = std::make_unique<AddressVector>();
  if (!status.isOK()) return result;
  for (const ObjID& id : addressIDs) {
    ZNRefPtr<ZNAddress> address = answerFrom(answers_.addresses, text(id));
    if (!address.isNull()) result->push_back(address);
  }
  return result;
}

ZNRefPtr<ZNAddress> FakeTopologyGateway::getAddressByObjID(TopoDBType dbType, const ObjID& id,
                                                           ZNTopoAPIStatus& status) {
  status = enter("getAddressByObjID", arguments(dbType, id));
  return status.isOK() ? answerFrom(answers_.addresses, text(id)) : ZNRefPtr<ZNAddress>();
}

ZNRefPtr<ZNAddress> FakeTopologyGateway::getAddressByIP(const std::string& ip,
                                                        ZNTopoAPIStatus& status,
                                                        int routeDistinguisher) {
  status = enter("getAddressByIP", arguments(ip, routeDistinguisher));
  std::lock_guard lock(mutex_);
  return status.isOK() ? answerFrom(answers_.addressesByIP, ip) : ZNRefPtr<ZNAddress>();
}

ZNRefPtr<ZNNode> FakeTopologyGateway::getNodeByObjID(TopoDBType dbType, const ObjID& id,
                                                     ZNTopoAPIStatus& status) {
  status = enter("getNodeByObjID", arguments(dbType, id));
  return status.isOK() ? answerFrom(answers_.nodes, text(id)) : ZNRefPtr<ZNNode>();
}

ZNRefPtr<ZNInterface> FakeTopologyGateway::getInterfaceByObjID(TopoDBType dbType, const ObjID& id,
                                                               ZNTopoAPIStatus& status) {
  status = enter("getInterfaceByObjID", arguments(dbType, id));
  return status.isOK() ? answerFrom(answers_.interfaces, text(id)) : ZNRefPtr<ZNInterface>();
}

std::unique_ptr<TopologyGateway::InterfaceList> FakeTopologyGateway::getInterfacesByObjIDList(
    const std::set<ObjID>& interfaceIDs, std::set<ObjID>& notFound, ZNTopoAPIStatus& status) {
  status = enter("getInterfacesByObjIDList", ids(interfaceIDs));
  auto result = std::make_unique<InterfaceList>();
  if (!status.isOK()) return result;
  for (const ObjID& id : interfaceIDs) {
    ZNRefPtr<ZNInterface> interface = answerFrom(answers_.interfaces, text(id));
    if (interface.isNull()) {
      notFound.insert(id);
    } else {
      result->push_back(interface);
    }
  }
  return result;
}

std::unique_ptr<TopologyGateway::InterfaceList> FakeTopologyGateway::getInterfacesByNodeObjIDList(
    TopoDBType dbType, const std::list<ObjID>& nodeIDs, ZNTopoAPIStatus& status) {
  status = enter("getInterfacesByNodeObjIDList", text(dbType) + ", " + ids(nodeIDs));
  auto result = std::make_unique<InterfaceList>();
  if (!status.isOK()) return result;
  for (const ObjID& id : nodeIDs) {
    InterfaceList ofNode = answerFrom(answers_.interfacesOfNode, text(id));
    result->splice(result->end(), ofNode);
  }
  return result;
}

std::unique_ptr<TopologyGateway::IfcInfoMap> FakeTopologyGateway::getIfcInfosByObjIDList(
    const std::set<ObjID>& nodeIDs, ZNTopoAPIStatus& status, int ifcType) {
  status = enter("getIfcInfosByObjIDList", ids(nodeIDs) + ", " + text(ifcType));
  auto result = std::make_unique<IfcInfoMap>();
  if (!status.isOK()) return result;
  std::lock_guard lock(mutex_);
  for (const ObjID& id : nodeIDs) {
    const auto found = answers_.ifcInfos.find({text(id), ifcType});
    if (found != answers_.ifcInfos.end()) (*result)[id] = new std::list<ZNIfcInfo>(found->second);
  }
  return result;
}

std::unique_ptr<std::list<ObjID>> FakeTopologyGateway::getHSRPObjIDsByIFAddressObjID(
    TopoDBType dbType, const ObjID& id, HSRPObjType objType, ZNTopoAPIStatus& status) {
  status = enter("getHSRPObjIDsByIFAddressObjID", arguments(dbType, id, objType));
  std::lock_guard lock(mutex_);
  return std::make_unique<std::list<ObjID>>(
      status.isOK() ? answerFrom(answers_.hsrpObjIDs, text(id)) : std::list<ObjID>());
}

}  // namespace zntopo::test

zntopo::TopologyGateway& zntopo::topologyGateway() { return test::FakeTopologyGateway::instance(); }
