#include "tools/export/StoreReader.h"

#include <algorithm>
#include <utility>

#include "tools/export/StoreIndex.h"
#include "tools/export/TableReader.h"
#include "tools/network/StoreRows.h"
#include "tools/network/ToolError.h"
#include "zntopo/api/ZNTopoFilter.h"
#include "zntopo/model/TopologyGateway.h"

namespace zntopo::tools {

namespace {

/// What the library reads of nodes at once.
constexpr std::size_t kNodesAtOnce = 50;
/// Of the time, the share of nodes with their interfaces.
constexpr double kNodeShare = 0.8;

/// What is told of a text that the store has a dash for when it is not known.
std::string fromDash(const std::string& text) { return text == "-" ? "" : text; }

UserVariableModel variableOf(const zntopo::UserDefVar& from) {
  const VarValue& value = from.getValue();
  switch (value.getValType()) {
    case VarValue::VT_Short:
      return {from.getName(), value.getShortVal()};
    case VarValue::VT_Long:
      return {from.getName(), static_cast<int>(value.getLongVal())};
    case VarValue::VT_LongLong:
      return {from.getName(), value.getLongLongVal()};
    case VarValue::VT_Float:
      return {from.getName(), value.getFloatVal()};
    case VarValue::VT_Bool:
      return {from.getName(), value.getBoolVal()};
    default:
      return {from.getName(), value.getValAsStr()};
  }
}

struct FeatureBit {
  NodeFeature feature;
  unsigned long capability;
};
constexpr FeatureBit kFeatureBits[] = {{SpeaksOspf, NodeCapability::OSPF},
                                       {SpeaksBgp, NodeCapability::BGP},
                                       {SpeaksCdp, NodeCapability::CDP},
                                       {SpeaksStp, NodeCapability::STP},
                                       {SpeaksSnmp, NodeCapability::SnmpSupported},
                                       {IsMultiHomed, NodeCapability::MultiHome},
                                       {IsWireless, NodeCapability::Wireless}};

/// What a row tells of the monitoring of an IPv6 address.
std::optional<MonitoringModel> monitoringOf(const ReadRow<Address>& row) {
  if (!row.has("PingStatus")) return std::nullopt;
  const MonitoringModel untold;
  return MonitoringModel{row.text("AddressQRMId"),
                         row.number("PingStatus").value_or(untold.status),
                         row.number("V6AddressNtmState").value_or(untold.netToMedia),
                         row.number("V6AddressStatus").value_or(untold.preference),
                         row.number("V6AddressType").value_or(untold.origin),
                         row.number("LastPingTimeUTC").value_or(untold.lastTime)};
}

class Reader {
 public:
  Reader(ZNTopoAPI& api, TvDbil::DbConnection_t& connection, const StoreScope& scope,
         const std::function<void(double)>& progress)
      : api_(api), connection_(connection), scope_(scope), progress_(progress) {}

  StoredNetwork read() {
    readNodes(scope_ ? *scope_ : allNodes());
    sortNodes();
    linkNodes();
    GroupReader groups(api_, connection_, !scope_, model(), index_);
    groups.readSubnets(wantedSubnets());
    groups.readVlans(wantedVlans());
    groups.readHsrpGroups();
    groups.readContainers();
    joinGroups();
    tell(0.9);
    addDetails(api_, connection_, !scope_, model(), index_);
    return std::move(stored_);
  }

 private:
  NetworkModel& model() { return stored_.model; }
  void tell(double part) const {
    if (progress_) progress_(part);
  }

  std::vector<ObjID> allNodes() {
    ZNTopoAPIStatus status;
    const auto ids = api_.getNodeIDsByFilter(ZNTopoFilter(), status);
    requireOk(status);
    return {ids->begin(), ids->end()};
  }

  void readNodes(const std::vector<ObjID>& ids) {
    const auto batches = batchesOf(ids, kNodesAtOnce);
    for (std::size_t i = 0; i < batches.size(); ++i) {
      tell(kNodeShare * static_cast<double>(i) / static_cast<double>(batches.size()));
      readBatch(batches[i]);
    }
  }

  void readBatch(const std::set<ObjID>& ids) {
    ZNTopoAPIStatus status;
    std::set<ObjID> notFound;
    const auto nodes = api_.getNodesByObjIDList(ids, notFound, status, false, false, false,
                                                ZNEntity::AllProtocol, -1);
    requireOk(status);
    for (const auto& node : *nodes) addNode(*node);
    const auto interfaces =
        topologyGateway().getInterfacesByNodeObjIDList(ActiveDB, {ids.begin(), ids.end()}, status);
    requireOk(status);
    if (!interfaces) return;
    for (const auto& interface : *interfaces) addInterface(*interface);
    readAddresses(ids);
  }

  void addNode(const ZNNode& from) {
    NodeModel node;
    fillEntity(node, from);
    const auto management = IpAddress::parse(from.getIPv4ManagementAddress());
    if (management && !management->isV6()) node.managementAddress = management;
    node.isRouter = from.isRouter();
    for (const auto& [feature, capability] : kFeatureBits) {
      if (from.getNodeCapabilitySet().isCapabilitySet(capability)) node.features |= feature;
    }
    node.systemOid = fromDash(from.getEntityOid());
    node.contact = from.getSysContact();
    node.location = from.getSysLocation();
    node.snmpState = from.getSnmpState();
    if (from.getL2DomainID() != -1) node.layer2Domain = from.getL2DomainID();
    for (const auto& link : from.getConnDataList()) links_.push_back(link);
    for (const ZNVlanInfo& info : from.getVlanInfoList()) {
      for (const ZNVlanIFInfo& member : info.getVlanIFInfoList()) {
        vlansOf_[member.getIFObjID().toString()].insert(info.getVlanObjID().toString());
      }
    }
    NodeTraits traits{from.isSwitch(), from.isRouter(), {}};
    for (const std::string& name : from.getCapabilities()) traits.capabilities.push_back(name);
    index_.nodes.emplace(node.id, model().nodes.size());
    model().nodes.push_back(std::move(node));
    stored_.traits.push_back(std::move(traits));
  }

  void addInterface(const ZNInterface& from) {
    const auto owner = index_.nodes.find(from.getParentObjID().toString());
    if (owner == index_.nodes.end()) return;
    const IFProperty& property = from.getIFProperty();
    InterfaceModel interface;
    fillEntity(interface, from);
    if (interface.name.empty()) interface.name = fromDash(property.ifName);
    const PortPlace place = portPlace(interface.name);
    interface.isNameMade = fromDash(place.port) != fromDash(from.getPortNum());
    interface.alias = fromDash(property.ifAlias);
    interface.physicalAddress = property.physicalAddress;
    interface.index = property.ifIndex;
    interface.type = property.ifType;
    interface.speed = property.ifSpeed;
    interface.adminState = property.ifAdminStatus;
    interface.operState = property.ifOperStatus;
    interface.isAccessPort = from.isAccessPort();
    // Until a link of the network ends here.
    interface.isLinkedElsewhere = from.isConnectedByL2Link();
    std::vector<InterfaceModel>& interfaces = model().nodes[owner->second].interfaces;
    index_.interfaces[interface.id] = {owner->second, interfaces.size()};
    interfaces.push_back(std::move(interface));
  }

  /// The library reads addresses by their own identifiers alone, and gives none to one that lies in
  /// no subnet.
  void readAddresses(const std::set<ObjID>& nodes) {
    const std::vector<std::string> ids(nodes.begin(), nodes.end());
    forEachRow<Address>(connection_, "NodeObjId", &ids, [&](const ReadRow<Address>& row) {
      const std::string text = row.text("V4Address") + row.text("V6Address");
      if (row.number("AddressType") == static_cast<int>(ZNAddress::DNS)) {
        index_.dnsNames[row.text("AddressId")] = row.text("DNSName");
      } else if (const auto ip = IpAddress::parse(text)) {
        addAddress(row, *ip);
      }
    });
  }

  void addAddress(const ReadRow<Address>& row, const IpAddress& ip) {
    const auto owner = index_.interfaces.find(row.text("ObjId"));
    if (owner == index_.interfaces.end()) return;
    AddressModel address{ip, row.number("PrefixLength")};
    address.id = row.text("AddressId");
    if (row.has("SubnetObjId")) subnetOf_[address.id] = row.text("SubnetObjId");
    if (ip.isV6()) address.monitoring = monitoringOf(row);
    model().at(owner->second).addresses.push_back(std::move(address));
  }

  /// By name, so that equal networks make equal files; then all places are known.
  void sortNodes() {
    std::vector<Index> order(model().nodes.size());
    for (Index i = 0; i < order.size(); ++i) order[i] = i;
    std::sort(order.begin(), order.end(), [&](Index left, Index right) {
      const NodeModel &one = model().nodes[left], &other = model().nodes[right];
      return std::tie(one.name, one.id) < std::tie(other.name, other.id);
    });
    std::vector<NodeModel> nodes;
    std::vector<NodeTraits> traits;
    for (const Index i : order) {
      nodes.push_back(std::move(model().nodes[i]));
      traits.push_back(std::move(stored_.traits[i]));
    }
    model().nodes = std::move(nodes);
    stored_.traits = std::move(traits);
    findPlaces();
  }

  void findPlaces() {
    for (EndPoint end; end.node < model().nodes.size(); ++end.node) {
      NodeModel& node = model().nodes[end.node];
      index_.nodes[node.id] = end.node;
      for (end.interface = 0; end.interface < node.interfaces.size(); ++end.interface) {
        const InterfaceModel& interface = node.interfaces[end.interface];
        index_.interfaces[interface.id] = end;
        for (Index i = 0; i < interface.addresses.size(); ++i) {
          index_.addresses.emplace(interface.addresses[i].id, AddressAt{end, i});
        }
      }
    }
  }

  /// Each link once, though both its nodes tell of it.
  void linkNodes() {
    std::set<std::pair<EndPoint, EndPoint>> links;
    for (const auto& link : std::exchange(links_, {})) {
      const auto left = index_.interfaces.find(link->getSrcInterfaceObjID().toString());
      const auto right = index_.interfaces.find(link->getDestInterfaceObjID().toString());
      if (left == index_.interfaces.end() || right == index_.interfaces.end()) continue;
      links.insert(std::minmax(left->second, right->second));
    }
    for (const auto& [left, right] : links) {
      model().addLink(left, right);
      model().at(left).isLinkedElsewhere = model().at(right).isLinkedElsewhere = false;
    }
  }

  std::set<std::string> wantedSubnets() const {
    std::set<std::string> wanted;
    for (const auto& [address, subnet] : subnetOf_) wanted.insert(subnet);
    return wanted;
  }
  std::set<std::string> wantedVlans() const {
    std::set<std::string> wanted;
    for (const auto& [interface, vlans] : vlansOf_) wanted.insert(vlans.begin(), vlans.end());
    return wanted;
  }

  void joinGroups() {
    for (const auto& [id, at] : index_.addresses) {
      const auto subnet = subnetOf_.find(id);
      if (subnet == subnetOf_.end()) continue;
      const auto known = index_.subnets.find(subnet->second);
      if (known == index_.subnets.end()) continue;
      model().at(at.interface).addresses[at.address].subnet = known->second;
    }
    for (const auto& [id, vlans] : vlansOf_) {
      const auto interface = index_.interfaces.find(id);
      if (interface == index_.interfaces.end()) continue;
      for (const std::string& vlan : vlans) {
        const auto known = index_.vlans.find(vlan);
        if (known != index_.vlans.end()) model().at(interface->second).vlans.insert(known->second);
      }
    }
  }

  ZNTopoAPI& api_;
  TvDbil::DbConnection_t& connection_;
  const StoreScope& scope_;
  const std::function<void(double)>& progress_;
  StoredNetwork stored_;
  StoreIndex index_;
  std::vector<ZNRefPtr<ZNConnData>> links_;
  /// The identifiers of the VLANs of an interface, and of the subnet of an address.
  std::map<std::string, std::set<std::string>> vlansOf_;
  std::map<std::string, std::string> subnetOf_;
};

}  // namespace

void requireOk(const ZNTopoAPIStatus& status) {
  if (!status.isOK()) throw ToolError(status);
}

void fillEntity(EntityModel& to, const ZNEntity& from) {
  to.id = to.key = from.getObjID().toString();
  to.zone = from.getZoneNumber();
  to.name = from.getName();
  to.description = fromDash(from.getDescription());
  if (!from.getQRMObjID().isNull() && from.getQRMObjID() != ObjID(0)) {
    to.legacyId = from.getQRMObjID().toString();
  }
  to.status = {from.getOverallStatus().getStatusAsInt(), from.getV6OverallStatus().getStatusAsInt(),
               static_cast<int>(from.getStatusChangeTime())};
  for (const zntopo::UserDefVar& one : from.getUserVars()) to.variables.push_back(variableOf(one));
}

std::vector<std::set<ObjID>> batchesOf(const std::vector<ObjID>& ids, std::size_t size) {
  std::map<ObjID::ObjType, std::set<ObjID>> kinds;
  for (const ObjID& id : ids) {
    const bool isFit = !id.isNull() && id.toString().find('\'') == std::string::npos;
    if (isFit) kinds[id.getIDType()].insert(id);
  }
  std::vector<std::set<ObjID>> batches;
  for (const auto& [kind, set] : kinds) {
    std::size_t count = 0;
    for (const ObjID& id : set) {
      if (count++ % size == 0) batches.emplace_back();
      batches.back().insert(batches.back().end(), id);
    }
  }
  return batches;
}

StoredNetwork readStore(ZNTopoAPI& api, TvDbil::DbConnection_t& connection, const StoreScope& scope,
                        const std::function<void(double)>& progress) {
  return Reader(api, connection, scope, progress).read();
}

}  // namespace zntopo::tools
