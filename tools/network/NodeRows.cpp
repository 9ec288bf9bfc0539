#include <algorithm>
#include <utility>

#include "tools/network/RowContext.h"

namespace zntopo::tools {

namespace {

struct FeatureColumn {
  NodeFeature feature;
  ColumnOf<NwNode> column;
};
constexpr FeatureColumn kFeatureColumns[] = {{SpeaksOspf, "isOSPF"},
                                             {SpeaksBgp, "isBGP"},
                                             {SpeaksCdp, "isCDP"},
                                             {SpeaksStp, "isSTP"},
                                             {SpeaksSnmp, "isSNMPSupported"},
                                             {IsMultiHomed, "isMultiHome"},
                                             {IsWireless, "isWireless"}};

/// IPv6 for what has IPv6 addresses beyond the link, and no IPv4 address.
int ipLevel(bool hasV4, bool hasV6) { return hasV6 && !hasV4 ? kIPv6Level : kIPv4Level; }

struct Families {
  bool hasV4 = false;
  bool hasV6 = false;
  void look(const InterfaceModel& interface) {
    for (const AddressModel& address : interface.addresses) {
      const bool isV6 = address.address.isV6();
      if (!isV6) hasV4 = true;
      if (isV6 && address.address.scope() != AddressScope::LinkLocal) hasV6 = true;
    }
  }
};

/// What groups and links say of interfaces.
struct Marks {
  bool isLinked = false;
  bool isHsrp = false;
  bool isMesh = false;
};

class NodeRows {
 public:
  explicit NodeRows(RowContext& context) : context_(context), model_(context.model()) {
    for (const NodeModel& node : model_.nodes) marks_.emplace_back(node.interfaces.size());
    for (const LinkModel& link : model_.links) {
      marks(link.left).isLinked = true;
      marks(link.right).isLinked = true;
    }
    for (const HsrpGroupModel& group : model_.hsrpGroups) {
      for (const HsrpMemberModel& member : group.members) marks(member.interface).isHsrp = true;
    }
    for (const MeshModel& mesh : model_.meshes) {
      for (const EndPoint& member : mesh.members) marks(member).isMesh = true;
    }
  }

  void add() {
    for (Index i = 0; i < model_.nodes.size(); ++i) {
      if (!model_.nodes[i].isElsewhere) addNode(i);
    }
    for (const LinkModel& link : model_.links) addLink(link);
  }

 private:
  Marks& marks(const EndPoint& end) { return marks_[end.node][end.interface]; }

  void addNode(Index index) {
    const NodeModel& node = model_.nodes[index];
    Families families;
    int vlanPorts = 0;
    for (const InterfaceModel& interface : node.interfaces) {
      families.look(interface);
      vlanPorts += interface.vlans.empty() ? 0 : 1;
    }
    const int level = ipLevel(families.hasV4 || node.managementAddress, families.hasV6);
    auto row = context_.beginRow<NwNode>(node, context_.nodeId(index), E_Node, level, false);
    row["isLanSwitch"] = vlanPorts > 1 ? 1 : 0;
    row["isManageable"] = node.managementAddress ? 1 : 0;
    row["isIPV4Router"] = node.isRouter ? 1 : 0;
    row["isIPV6Router"] = node.isRouter && families.hasV6 ? 1 : 0;
    row["SysOID"] = orDash(node.systemOid);
    if (node.managementAddress) {
      row["V4ManagementAddress"] = row["PubV4ManagementAdd"] = node.managementAddress->text();
      row["V4ManagementAddressRD"] = 0;
    }
    putFeatures(index, row);
    context_.put(std::move(row));
    for (Index i = 0; i < node.interfaces.size(); ++i) addInterface({index, i});
    for (const PropertyModel& property : node.properties) {
      putProperty<NodeProperty>(context_.nodeId(index), property);
    }
  }

  void putFeatures(Index index, RowOf<NwNode>& row) {
    const NodeModel& node = model_.nodes[index];
    for (const auto& [feature, column] : kFeatureColumns) {
      row[column] = flagCell((node.features & feature) != 0);
    }
    row["isHSRP"] = flagCell(std::any_of(marks_[index].begin(), marks_[index].end(),
                                         [](const Marks& one) { return one.isHsrp; }));
    row["L2DomainId"] = cellOf(node.layer2Domain);
    row["SNMPState"] = cellOf(node.snmpState);
    row["sysContact"] = textCell(node.contact);
    row["sysLocation"] = textCell(node.location);
  }

  template <Table table>
  void putProperty(const std::string& objectId, const PropertyModel& property) {
    RowOf<table> row;
    row["ObjID"] = objectId;
    row["PropertyName"] = property.name;
    row["PropertyValue"] = property.value;
    context_.put(std::move(row));
  }

  void addInterface(const EndPoint& end) {
    const InterfaceModel& interface = model_.at(end);
    const std::string& interfaceId = context_.interfaceId(end);
    Families families;
    families.look(interface);
    auto row = context_.beginRow<NwInterface>(interface, interfaceId, E_Interface,
                                              ipLevel(families.hasV4, families.hasV6),
                                              !interface.addresses.empty());
    putPlace(end, row);
    putState(end, row);
    context_.put(std::move(row));
    context_.putContainment(context_.nodeId(end.node), E_Node, end);
    for (const Index vlan : interface.vlans) {
      context_.putContainment(context_.vlanId(vlan), E_Vlan, end);
    }
    for (const AddressModel& address : interface.addresses) addAddressRows(context_, end, address);
    for (const PropertyModel& property : interface.properties) {
      putProperty<InterfaceProperty>(interfaceId, property);
    }
  }

  void putPlace(const EndPoint& end, RowOf<NwInterface>& row) {
    const InterfaceModel& interface = model_.at(end);
    const PortPlace place = interface.isNameMade ? PortPlace() : portPlace(interface.name);
    row["NodeObjID"] = context_.nodeId(end.node);
    row["PhysicalAddress"] = textCell(interface.physicalAddress);
    row["VendorCard"] = place.card;
    row["VendorPort"] = row["Port"] = place.port;
    row["IfIndex"] = cellOf(interface.index);
    row["IfName"] = interface.name;
    row["IfAlias"] = orDash(interface.alias);
    row["nodeName"] = model_.nodes[end.node].name;
    row["routeDistinguisher"] = 0;
  }

  void putState(const EndPoint& end, RowOf<NwInterface>& row) {
    const InterfaceModel& interface = model_.at(end);
    const Marks& mark = marks(end);
    row["isL2Connected"] = mark.isLinked || interface.isLinkedElsewhere ? 1 : 0;
    row["isHSRP"] = flagCell(mark.isHsrp);
    row["isMeshInterface"] = flagCell(mark.isMesh);
    row["L2DomainId"] = cellOf(model_.nodes[end.node].layer2Domain);
    row["IfType"] = cellOf(interface.type);
    row["IfAdminState"] = cellOf(interface.adminState);
    row["IfOperStatus"] = cellOf(interface.operState);
    row["IfSpeed"] = cellOf(interface.speed);
    row["isAccessPort"] = interface.isAccessPort ? 1 : 0;
  }

  /// The end with the lower identifier is the left one, whoever tells of the link.
  void addLink(const LinkModel& link) {
    std::pair left(context_.interfaceId(link.left), context_.nodeId(link.left.node));
    std::pair right(context_.interfaceId(link.right), context_.nodeId(link.right.node));
    if (right < left) std::swap(left, right);
    constexpr int kLayer2 = 1;
    RowOf<NwInterfaceAsc> row;
    row["leftobjid"] = std::move(left.first);
    row["rightobjid"] = std::move(right.first);
    row["leftifnodeobjid"] = std::move(left.second);
    row["rightifnodeobjid"] = std::move(right.second);
    row["reltype"] = kLayer2;
    context_.put(std::move(row));
  }

  RowContext& context_;
  const NetworkModel& model_;
  std::vector<std::vector<Marks>> marks_;
};

}  // namespace

void addNodeRows(RowContext& context) { NodeRows(context).add(); }

}  // namespace zntopo::tools
