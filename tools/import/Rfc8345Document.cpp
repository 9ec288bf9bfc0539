#include "tools/import/Rfc8345Document.h"

#include <algorithm>
#include <limits>
#include <set>

namespace zntopo::tools::rfc8345 {

namespace {

constexpr std::size_t kPhysicalAddressWidth = 256;

/// Notes an element's index under its key; a key that is there already is an error.
void indexUnique(std::map<std::string, std::size_t>& index, const std::string& key,
                 std::size_t position, const std::string& where) {
  if (!index.emplace(key, position).second) {
    throw ImportError(where, "the identifier \"" + key + "\" is taken already");
  }
}

/// Calls a reader with the attributes object of a name, if there is one.
template <typename Reader>
void withAttributes(JsonObject& object, const std::string& name, NetworkReport& report,
                    const Reader& reader) {
  const auto place = object.find(name);
  if (!place) return;
  JsonObject attributes(*place);
  reader(attributes);
  attributes.countUnread(report);
}

std::optional<IpAddress> readAddress(const JsonPlace& place, NetworkReport& report,
                                     const std::string& what) {
  const std::string text = place.text();
  if (text.empty()) return std::nullopt;
  const auto address = IpAddress::parse(text);
  if (!address) report.add(what, place.where());
  return address;
}

/// "10.0.0.1" or "10.0.0.1/24".
void readTpAddress(const JsonPlace& place, TerminationPoint& tp, NetworkReport& report) {
  const std::string text = place.text();
  const std::size_t slash = text.find('/');
  const auto address = IpAddress::parse(std::string_view(text).substr(0, slash));
  std::optional<int> length;
  if (address && slash != std::string::npos) {
    length = parsePrefixLength(std::string_view(text).substr(slash + 1), *address);
  }
  if (!address || (slash != std::string::npos && !length)) {
    report.add("ip-address that is none", place.where());
  } else if (address->isUnspecified()) {
    report.add("ip-address that stands for no address (0.0.0.0 or ::)", place.where());
  } else {
    tp.addresses.push_back({*address, length});
  }
}

void addVlan(TerminationPoint& tp, const JsonPlace& number, const std::string& name,
             bool isUntagged, NetworkReport& report) {
  const auto value = number.number();
  if (value == 0) return;  // how files say "none"
  if (!value || *value < 1 || *value > 4094) {
    report.add("VLAN number outside 1 to 4094", number.where());
  } else {
    tp.vlans.push_back({*value, name, isUntagged});
  }
}

void readVlans(JsonObject& attributes, TerminationPoint& tp, NetworkReport& report) {
  for (const JsonPlace& entry : attributes.list("vlan-id-name")) {
    JsonObject vlan(entry);
    const std::string name = vlan.text("vlan-name");
    if (name.size() > kNameWidth) throw ImportError(entry.where(), "has too long a vlan-name");
    addVlan(tp, vlan.get("vlan-id"), name, false, report);
    vlan.countUnread(report);
  }
  for (const char* name : {"vlan-id", "outer-tag"}) {
    const auto place = attributes.find(name);
    if (!place) continue;
    if (!place->value().is_array()) {
      addVlan(tp, *place, "", false, report);
      continue;
    }
    for (const JsonPlace& number : place->elements()) addVlan(tp, number, "", false, report);
  }
  if (const auto place = attributes.find("port-vlan-id")) addVlan(tp, *place, "", true, report);
}

/// Bits per second, as a number or as a text of one; beyond 31 bits it stays at the highest.
std::optional<int> readSpeed(JsonObject& attributes, NetworkReport& report) {
  auto place = attributes.find("rate");
  if (!place) place = attributes.find("speed");
  if (!place) return std::nullopt;
  double value = -1;
  if (place->value().is_number()) {
    value = place->value().get<double>();
  } else {
    const std::string text = place->text();
    char* end = nullptr;
    value = std::strtod(text.c_str(), &end);
    if (text.empty() || *end != '\0') value = -1;
  }
  if (!(value >= 0)) {
    report.add("rate that is no number", place->where());
    return std::nullopt;
  }
  return static_cast<int>(std::min<double>(value, std::numeric_limits<int>::max()));
}

void readLayer2(JsonObject& attributes, TerminationPoint& tp, NetworkReport& report) {
  if (const auto name = attributes.find("interface-name"); name && !name->text().empty()) {
    tp.interfaceName = name->name(kNameWidth);
  }
  tp.description = attributes.prose("description");
  if (const auto mac = attributes.find("mac-address"); mac && !mac->text().empty()) {
    tp.macAddress = mac->name(kPhysicalAddressWidth);
  }
  if (const auto index = attributes.find("if-index")) tp.index = index->number();
  tp.speed = readSpeed(attributes, report);
  readVlans(attributes, tp, report);
}

void readLayer3(JsonObject& attributes, TerminationPoint& tp, NetworkReport& report) {
  for (const JsonPlace& place : attributes.list("ip-address")) readTpAddress(place, tp, report);
  tp.isUnnumbered = attributes.find("unnumbered-id") || attributes.find("unnumbered");
}

std::vector<NodeRef> readNodeRefs(JsonObject& node, NetworkReport& report) {
  std::vector<NodeRef> result;
  for (const JsonPlace& place : node.list("supporting-node")) {
    JsonObject reference(place);
    result.push_back({reference.get("network-ref").text(), reference.get("node-ref").text()});
    reference.countUnread(report);
  }
  return result;
}

TerminationPoint readTp(const JsonPlace& place, NetworkReport& report) {
  JsonObject object(place);
  TerminationPoint tp;
  tp.where = place.where();
  tp.id = object.get("tp-id").name(kNameWidth);
  for (const JsonPlace& support : object.list("supporting-termination-point")) {
    JsonObject reference(support);
    tp.supports.push_back({{reference.get("network-ref").text(), reference.get("node-ref").text()},
                           reference.get("tp-ref").text()});
    reference.countUnread(report);
  }
  withAttributes(object, "l2-termination-point-attributes", report,
                 [&](JsonObject& attributes) { readLayer2(attributes, tp, report); });
  withAttributes(object, "l3-termination-point-attributes", report,
                 [&](JsonObject& attributes) { readLayer3(attributes, tp, report); });
  tp.extension = object.find("zntopo-topology:termination-point-attributes");
  object.countUnread(report);
  return tp;
}

void readPrefix(const JsonPlace& place, Node& node, NetworkReport& report) {
  JsonObject object(place);
  const JsonPlace member = object.get("prefix");
  const std::string text = member.text();
  if (const auto prefix = IpPrefix::parse(text)) {
    node.prefixes.push_back({prefix->network, prefix->length});
  } else if (const auto address = IpAddress::parse(text)) {
    node.prefixes.push_back({*address, std::nullopt});
  } else {
    report.add("prefix that is none", member.where());
  }
  object.countUnread(report);
}

void readFlags(JsonObject& attributes, Node& node) {
  for (const JsonPlace& flag : attributes.list("flag")) node.flags.push_back(flag.text());
}

void readNodeName(JsonObject& attributes, Node& node) {
  const auto name = attributes.find("name");
  if (name && !name->text().empty() && node.name.empty()) node.name = name->name(kNameWidth);
}

void readNodeLayers(JsonObject& object, Node& node, NetworkReport& report) {
  withAttributes(object, "l2-node-attributes", report, [&](JsonObject& attributes) {
    readNodeName(attributes, node);
    readFlags(attributes, node);
    node.description = attributes.prose("description");
    for (const JsonPlace& place : attributes.list("management-address")) {
      const auto address = readAddress(place, report, "management-address that is none");
      if (address) node.managementAddresses.push_back(*address);
    }
  });
  withAttributes(object, "l3-node-attributes", report, [&](JsonObject& attributes) {
    readNodeName(attributes, node);
    readFlags(attributes, node);
    for (const JsonPlace& place : attributes.list("router-id")) {
      if (readAddress(place, report, "router-id that is no address")) node.hasRouterId = true;
    }
    for (const JsonPlace& place : attributes.list("prefix")) readPrefix(place, node, report);
  });
}

Node readNode(const JsonPlace& place, NetworkReport& report) {
  JsonObject object(place);
  Node node;
  node.where = place.where();
  node.id = object.get("node-id").name(kNameWidth);
  node.supports = readNodeRefs(object, report);
  readNodeLayers(object, node, report);
  node.extension = object.find("zntopo-topology:node-attributes");
  for (const JsonPlace& tp : object.list("termination-point")) {
    node.tps.push_back(readTp(tp, report));
    indexUnique(node.tpIndex, node.tps.back().id, node.tps.size() - 1, tp.where());
  }
  object.countUnread(report);
  return node;
}

LinkEnd readEnd(JsonObject& link, const std::string& member, const std::string& prefix,
                NetworkReport& report) {
  JsonObject end(link.get(member));
  LinkEnd result{end.get(prefix + "-node").text(), end.text(prefix + "-tp")};
  end.countUnread(report);
  return result;
}

Link readLink(const JsonPlace& place, NetworkReport& report) {
  JsonObject object(place);
  Link link;
  link.where = place.where();
  link.id = object.get("link-id").name(2000);
  link.source = readEnd(object, "source", "source", report);
  link.destination = readEnd(object, "destination", "dest", report);
  object.countUnread(report);
  return link;
}

Kind readKind(JsonObject& network, NetworkReport& report) {
  const auto place = network.find("network-types");
  if (!place) return Kind::Untyped;
  JsonObject types(*place);
  if (place->value().empty()) return Kind::Untyped;
  const bool isLayer2 = types.find("l2-topology") || types.find("l2-network");
  const bool isLayer3 = types.find("l3-unicast-topology") || types.find("l3-topology");
  types.countUnread(report);
  return isLayer2 ? Kind::Layer2 : isLayer3 ? Kind::Layer3 : Kind::Other;
}

Network readNetwork(const JsonPlace& place, NetworkReport& report) {
  JsonObject object(place);
  Network network;
  network.where = place.where();
  network.id = object.get("network-id").name(2000);
  network.kind = readKind(object, report);
  network.extension = object.find("zntopo-topology:network-attributes");
  object.find("supporting-network");  // the nodes' own references say the same in detail
  for (const JsonPlace& node : object.list("node")) {
    network.nodes.push_back(readNode(node, report));
    indexUnique(network.nodeIndex, network.nodes.back().id, network.nodes.size() - 1, node.where());
  }
  std::set<std::string> linkIds;
  for (const JsonPlace& link : object.list("link")) {
    network.links.push_back(readLink(link, report));
    if (!linkIds.insert(network.links.back().id).second) {
      throw ImportError(link.where(),
                        "the identifier \"" + network.links.back().id + "\" is taken already");
    }
  }
  object.countUnread(report);
  return network;
}

}  // namespace

bool Node::hasAddresses() const {
  return std::any_of(tps.begin(), tps.end(),
                     [](const TerminationPoint& tp) { return !tp.addresses.empty(); });
}

bool Node::hasFlag(const std::string& flag) const {
  return std::find(flags.begin(), flags.end(), flag) != flags.end();
}

Document readDocument(const nlohmann::json& json, const std::string& file, NetworkReport& report) {
  if (!json.is_object()) throw ImportError(file, "the document is no object");
  JsonObject root(JsonPlace(json, file + ": "));
  const auto networks = root.find("networks");
  if (!networks) {
    throw ImportError(file, "is no RFC 8345 document: it has no member \"ietf-network:networks\"");
  }
  JsonObject object(*networks);
  Document document;
  for (const JsonPlace& place : object.list("network")) {
    document.networks.push_back(readNetwork(place, report));
    indexUnique(document.networkIndex, document.networks.back().id, document.networks.size() - 1,
                place.where());
  }
  object.countUnread(report);
  root.countUnread(report);
  return document;
}

}  // namespace zntopo::tools::rfc8345
