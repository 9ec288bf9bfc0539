#include "tools/network/StoreRows.h"

#include <algorithm>
#include <cctype>
#include <set>

#include "tools/network/NameUuid.h"
#include "zntopo/model/EntityType.h"

namespace zntopo::tools {

namespace {

using Values = std::map<std::string, Cell>;

constexpr std::size_t kDescriptionWidth = 2000;
constexpr int kIPv4 = 4;
constexpr int kIPv6 = 6;

constexpr ColumnDef key(const char* name, int width = 36) {
  return {name, ColumnDef::Text, ColumnDef::Key, width};
}
constexpr ColumnDef intKey(const char* name) { return {name, ColumnDef::Int, ColumnDef::Key, 0}; }
constexpr ColumnDef text(const char* name, int width) {
  return {name, ColumnDef::Text, ColumnDef::Value, width};
}
constexpr ColumnDef id(const char* name) { return text(name, 36); }
constexpr ColumnDef number(const char* name) { return {name, ColumnDef::Int, ColumnDef::Value, 0}; }
constexpr ColumnDef sticky(const char* name) {
  return {name, ColumnDef::Int, ColumnDef::Sticky, 0};
}
constexpr ColumnDef created(const char* name) {
  return {name, ColumnDef::Int, ColumnDef::Created, 0};
}
constexpr ColumnDef changed(const char* name) {
  return {name, ColumnDef::Int, ColumnDef::Changed, 0};
}

/// The columns that the entity table and the tables of kinds share.
std::vector<ColumnDef> entityColumns(std::vector<ColumnDef> more) {
  std::vector<ColumnDef> result = {key("ObjId"),
                                   text("EntityName", 255),
                                   number("IPLevel"),
                                   text("Description", 2000),
                                   number("EntityType"),
                                   text("ZoneNumber", 64),
                                   created("CreateTimeUTC"),
                                   changed("ChangeTimeUTC"),
                                   number("hasDynamicProperty"),
                                   sticky("hasAddress")};
  result.insert(result.end(), more.begin(), more.end());
  return result;
}

std::vector<TableDef> makeTables() {
  std::vector<TableDef> tables(TableCount);
  tables[NwEntity] = {"nwentity", entityColumns({number("RouteDistinguisher")})};
  tables[NwNode] = {
      "nwnode",
      entityColumns({number("isLanSwitch"), number("isManageable"), number("isIPV4Router"),
                     number("isIPV6Router"), text("SysOID", 64), text("V4ManagementAddress", 15),
                     text("PubV4ManagementAdd", 15), number("V4ManagementAddressRD")})};
  tables[NwInterface] = {
      "nwinterface",
      entityColumns({id("NodeObjID"), text("PhysicalAddress", 256), text("VendorCard", 3),
                     text("VendorPort", 3), text("Port", 3), number("IfIndex"), text("IfName", 255),
                     text("IfAlias", 255), text("nodeName", 255), sticky("isL2Connected"),
                     number("routeDistinguisher"), number("IfSpeed"), number("isAccessPort")})};
  tables[NwVlan] = {"nwvlan", {key("ObjId")}};
  tables[UserDefVar] = {
      "userdefvar", {key("ObjID"), key("VarName", 128), number("VarValType"), number("IntVal")}};
  tables[Address] = {
      "address",
      {key("AddressId"), id("ObjId"), number("AddressType"), number("IPLevel"), number("isSubnet"),
       id("SubnetObjId"), text("V6Address", 41), text("V6AddressBS", 129), number("V6ScopeType"),
       number("PrefixLength"), text("V4Address", 16), id("NodeObjId"), number("RouteDistinguisher"),
       text("PubV4Address", 16)}};
  tables[Containment] = {"containment",
                         {key("ContainerObjID"), key("ContainedObjID"), number("ContainerType"),
                          number("ContainedType"), id("ContainedNodeObjId")}};
  tables[NwInterfaceAsc] = {"NWInterfaceAsc",
                            {key("leftobjid"), key("rightobjid"), id("leftifnodeobjid"),
                             id("rightifnodeobjid"), intKey("reltype")}};
  return tables;
}

std::string orDash(const std::string& value) { return value.empty() ? "-" : value; }

Cell optionalCell(const std::optional<int>& value) { return value ? Cell(*value) : Cell(); }

/// Turns one model into rows.
class RowMaker {
 public:
  RowMaker(const NetworkModel& model, const std::string& zone, RowSet& rows, NetworkReport& report)
      : model_(model), zone_(zone), rows_(rows), report_(report) {}

  void make() {
    for (const LinkModel& link : model_.links) {
      linked_.insert(link.left);
      linked_.insert(link.right);
    }
    for (Index i = 0; i < model_.nodes.size(); ++i) addNode(i);
    for (const SubnetModel& subnet : model_.subnets) addSubnet(subnet);
    for (const VlanModel& vlan : model_.vlans) addVlan(vlan);
    for (const LinkModel& link : model_.links) addLink(link);
  }

 private:
  std::string uuid(const std::string& objectKey) const {
    return nameUuid(zone_ + "\n" + objectKey);
  }
  std::string nodeId(Index node) const { return uuid(model_.nodes[node].key); }

  /// Puts the entity's row, and hands the values on for the row of the kind.
  Values putEntity(const std::string& objectId, const std::string& name, EntityType type,
                   int ipLevel, const std::string& description, bool hasAddress) {
    std::string cut = cutText(description, kDescriptionWidth);
    if (cut.size() < description.size()) {
      report_.add("description of more than 2000 bytes (cut)", name);
    }
    Values values = {{"ObjId", objectId},
                     {"EntityName", name},
                     {"IPLevel", ipLevel},
                     {"Description", orDash(cut)},
                     {"EntityType", static_cast<int>(type)},
                     {"ZoneNumber", textCell(zone_)},
                     {"hasDynamicProperty", type == E_Vlan ? 1 : 0},
                     {"hasAddress", hasAddress ? 1 : 0}};
    Values entity = values;
    entity["RouteDistinguisher"] = 0;
    rows_.put(NwEntity, entity);
    return values;
  }

  /// IPv6 for what has IPv6 addresses beyond the link, and no IPv4 address.
  static int ipLevel(bool hasV4, bool hasV6) { return hasV6 && !hasV4 ? kIPv6 : kIPv4; }

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

  void addNode(Index index) {
    const NodeModel& node = model_.nodes[index];
    Families families;
    int vlanPorts = 0;
    for (const InterfaceModel& interface : node.interfaces) {
      families.look(interface);
      vlanPorts += interface.vlans.empty() ? 0 : 1;
    }
    const int level = ipLevel(families.hasV4 || node.managementAddress, families.hasV6);
    Values values = putEntity(nodeId(index), node.name, E_Node, level, node.description, false);
    values["isLanSwitch"] = vlanPorts > 1 ? 1 : 0;
    values["isManageable"] = node.managementAddress ? 1 : 0;
    values["isIPV4Router"] = node.isRouter ? 1 : 0;
    values["isIPV6Router"] = node.isRouter && families.hasV6 ? 1 : 0;
    values["SysOID"] = "-";
    if (node.managementAddress) {
      values["V4ManagementAddress"] = node.managementAddress->text();
      values["PubV4ManagementAdd"] = node.managementAddress->text();
      values["V4ManagementAddressRD"] = 0;
    }
    rows_.put(NwNode, values);
    for (Index i = 0; i < node.interfaces.size(); ++i) addInterface({index, i});
  }

  void addInterface(const EndPoint& end) {
    const InterfaceModel& interface = model_.at(end);
    const std::string interfaceId = uuid(interface.key);
    Families families;
    families.look(interface);
    Values values =
        putEntity(interfaceId, interface.name, E_Interface, ipLevel(families.hasV4, families.hasV6),
                  interface.description, !interface.addresses.empty());
    const PortPlace place = interface.isNameMade ? PortPlace() : portPlace(interface.name);
    values["NodeObjID"] = nodeId(end.node);
    values["PhysicalAddress"] = textCell(interface.physicalAddress);
    values["VendorCard"] = place.card;
    values["VendorPort"] = place.port;
    values["Port"] = place.port;
    values["IfIndex"] = optionalCell(interface.index);
    values["IfName"] = interface.name;
    values["IfAlias"] = orDash(interface.alias);
    values["nodeName"] = model_.nodes[end.node].name;
    values["isL2Connected"] = linked_.contains(end) ? 1 : 0;
    values["routeDistinguisher"] = 0;
    values["IfSpeed"] = optionalCell(interface.speed);
    values["isAccessPort"] = interface.isAccessPort ? 1 : 0;
    rows_.put(NwInterface, values);
    addContainment(nodeId(end.node), E_Node, interfaceId, end.node);
    for (const Index vlan : interface.vlans) {
      addContainment(uuid(model_.vlans[vlan].key), E_Vlan, interfaceId, end.node);
    }
    for (const AddressModel& address : interface.addresses) addAddress(end, address);
  }

  void addContainment(const std::string& container, EntityType type, const std::string& interface,
                      Index node) {
    rows_.put(Containment, {{"ContainerObjID", container},
                            {"ContainedObjID", interface},
                            {"ContainerType", static_cast<int>(type)},
                            {"ContainedType", static_cast<int>(E_Interface)},
                            {"ContainedNodeObjId", nodeId(node)}});
  }

  static void putAddressText(const IpAddress& ip, Values& values) {
    values["AddressType"] = ip.isV6() ? 2 : 1;
    values["IPLevel"] = ip.isV6() ? kIPv6 : kIPv4;
    if (ip.isV6()) {
      values["V6Address"] = ip.text();
      values["V6AddressBS"] = ip.bitText();
      values["V6ScopeType"] = static_cast<int>(ip.scope());
    } else {
      values["V4Address"] = ip.text();
    }
  }

  void addAddress(const EndPoint& end, const AddressModel& address) {
    const std::string ip = address.address.text();
    Values values = {{"AddressId", uuid(model_.at(end).key + "\naddress\n" + ip)},
                     {"ObjId", uuid(model_.at(end).key)},
                     {"NodeObjId", nodeId(end.node)},
                     {"isSubnet", 0},
                     {"PrefixLength", optionalCell(address.prefixLength)},
                     {"RouteDistinguisher", 0}};
    putAddressText(address.address, values);
    if (!address.address.isV6()) values["PubV4Address"] = ip;
    if (address.subnet) values["SubnetObjId"] = uuid(model_.subnets[*address.subnet].key);
    rows_.put(Address, values);
  }

  /// The subnet and its own address. That has no public form and no route distinguisher: who
  /// looks for a host's address must not find the network's. An IPv6 network of one or two
  /// addresses has none at all, since IPv6 is looked up by the text alone.
  void addSubnet(const SubnetModel& subnet) {
    const bool isV6 = subnet.isV6;
    const bool hasAddress = subnet.prefix && !(isV6 && subnet.prefix->length >= 127);
    const std::string subnetId = uuid(subnet.key);
    putEntity(subnetId, subnet.name, E_Subnet, isV6 ? kIPv6 : kIPv4, subnet.description,
              hasAddress);
    if (!hasAddress) return;
    Values values = {{"AddressId", uuid(subnet.key + "\naddress")},
                     {"ObjId", subnetId},
                     {"SubnetObjId", subnetId},
                     {"isSubnet", 1},
                     {"PrefixLength", subnet.prefix->length}};
    putAddressText(subnet.prefix->network, values);
    rows_.put(Address, values);
  }

  void addVlan(const VlanModel& vlan) {
    const std::string vlanId = uuid(vlan.key);
    const std::string label = "VLAN " + std::to_string(vlan.number);
    putEntity(vlanId, vlan.name.empty() ? label : vlan.name, E_Vlan, kIPv4, label, false);
    rows_.put(NwVlan, {{"ObjId", vlanId}});
    constexpr int kLong = 1;
    rows_.put(
        UserDefVar,
        {{"ObjID", vlanId}, {"VarName", "VlanId"}, {"VarValType", kLong}, {"IntVal", vlan.number}});
  }

  /// The end with the lower identifier is the left one, whoever tells of the link.
  void addLink(const LinkModel& link) {
    std::pair<std::string, std::string> left = {uuid(model_.at(link.left).key),
                                                nodeId(link.left.node)};
    std::pair<std::string, std::string> right = {uuid(model_.at(link.right).key),
                                                 nodeId(link.right.node)};
    if (right < left) std::swap(left, right);
    constexpr int kLayer2 = 1;
    rows_.put(NwInterfaceAsc, {{"leftobjid", left.first},
                               {"rightobjid", right.first},
                               {"leftifnodeobjid", left.second},
                               {"rightifnodeobjid", right.second},
                               {"reltype", kLayer2}});
  }

  const NetworkModel& model_;
  const std::string& zone_;
  RowSet& rows_;
  NetworkReport& report_;
  std::set<EndPoint> linked_;
};

}  // namespace

const TableDef& tableDef(Table table) {
  static const auto* const tables = new std::vector<TableDef>(makeTables());
  return (*tables)[table];
}

void RowSet::put(Table table, const std::map<std::string, Cell>& values) {
  const TableDef& definition = tableDef(table);
  Row row{table, {}};
  std::string rowKey;
  for (const ColumnDef& column : definition.columns) {
    const auto value = values.find(column.name);
    row.cells.push_back(value == values.end() ? Cell() : value->second);
    if (column.role == ColumnDef::Key && column.type == ColumnDef::Text) {
      rowKey += std::get<std::string>(row.cells.back()) + "\n";
    }
  }
  const auto [known, isNew] = index_.try_emplace({table, rowKey}, rows_.size());
  if (isNew) {
    rows_.push_back(std::move(row));
    return;
  }
  Row& before = rows_[known->second];
  for (std::size_t i = 0; i < row.cells.size(); ++i) {
    const bool isSticky = definition.columns[i].role == ColumnDef::Sticky;
    if (isSticky && before.cells[i] == Cell(1)) row.cells[i] = 1;
  }
  before = std::move(row);
}

void addRows(const NetworkModel& model, const std::string& zone, RowSet& rows,
             NetworkReport& report) {
  RowMaker(model, zone, rows, report).make();
}

PortPlace portPlace(const std::string& interfaceName) {
  const auto isDigit = [](char c) { return std::isdigit(static_cast<unsigned char>(c)) != 0; };
  // What follows a full stop numbers a part of the port.
  const std::string name = interfaceName.substr(0, interfaceName.find_last_of('.'));
  std::size_t start = name.size();
  while (start > 0 && isDigit(name[start - 1])) --start;
  PortPlace place;
  const std::string port = name.substr(start);
  if (!port.empty() && port.size() <= 3) place.port = port;
  if (start == name.size() || start == 0 || name[start - 1] != '/') return place;
  const std::size_t cardEnd = --start;
  while (start > 0 && (isDigit(name[start - 1]) || name[start - 1] == '/')) --start;
  std::string card = name.substr(start, cardEnd - start);
  while (card.size() > 3) {
    const std::size_t slash = card.find_last_of('/');
    card.resize(slash == std::string::npos ? 0 : slash);
  }
  if (!card.empty() && isDigit(card.front())) place.card = card;
  return place;
}

std::string cutText(const std::string& text, std::size_t width) {
  if (text.size() <= width) return text;
  const auto isInside = [&](std::size_t i) {
    return (static_cast<unsigned char>(text[i]) & 0xc0) == 0x80;
  };
  std::size_t end = width;
  while (end > 0 && isInside(end)) --end;
  return text.substr(0, end);
}

}  // namespace zntopo::tools
