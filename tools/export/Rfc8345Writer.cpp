#include "tools/export/Rfc8345Writer.h"

#include <map>
#include <set>

#include "tools/export/Rfc8345Names.h"
#include "tools/export/UniqueNames.h"

namespace zntopo::tools {

namespace rfc8345 {

namespace {

constexpr const char* kNetwork = "zntopo";

/// VLANs of which no two have one number, as a layer-2 network has them, with their members.
struct VlanPlane {
  std::set<int> numbers;
  std::vector<Index> vlans;
  std::map<EndPoint, std::vector<int>> members;
};

class Writer {
 public:
  Writer(const NetworkModel& model, std::ostream& out, NetworkReport& report)
      : model_(model), names_(model), out_(out), report_(report) {
    for (Index i = 0; i < model.vlans.size(); ++i) addToPlane(i);
    for (EndPoint end; end.node < model.nodes.size(); ++end.node) {
      const auto& interfaces = model.nodes[end.node].interfaces;
      for (end.interface = 0; end.interface < interfaces.size(); ++end.interface) addMembers(end);
    }
  }

  void write() {
    out_ << "{\"ietf-network:networks\": {\"network\": [\n";
    begin(kNetwork);
    writeList("node", model_.nodes.size(), [&](Index i) { return node(i); });
    writeList("ietf-network-topology:link", model_.links.size(), [&](Index i) { return link(i); });
    end(0, groupsJson(model_, names_));
    for (std::size_t plane = 1; plane < planes_.size(); ++plane) writePlane(plane);
    out_ << "\n]}}\n";
  }

 private:
  void addToPlane(Index vlan) {
    const int number = model_.vlans[vlan].number;
    planeOf_.emplace_back();
    if (number < 1 || number > 4094) {
      report_.add("VLAN without a number from 1 to 4094", model_.vlans[vlan].name);
      return;
    }
    std::size_t plane = 0;
    while (plane < planes_.size() && planes_[plane].numbers.contains(number)) ++plane;
    if (plane == planes_.size()) planes_.emplace_back();
    planes_[plane].numbers.insert(number);
    planes_[plane].vlans.push_back(vlan);
    planeOf_.back() = plane;
  }

  void addMembers(const EndPoint& end) {
    for (const Index vlan : model_.at(end).vlans) {
      if (const auto plane = planeOf_[vlan]) {
        planes_[*plane].members[end].push_back(model_.vlans[vlan].number);
      }
    }
  }

  static std::string planeId(std::size_t plane) {
    return std::string(kNetwork) + "-vlans-" + std::to_string(plane + 1);
  }

  void begin(const std::string& id) {
    const Json types = {{"ietf-l2-topology:l2-topology", Json::object()},
                        {"ietf-l3-unicast-topology:l3-unicast-topology", Json::object()}};
    out_ << "{\"network-id\": " << lineOf(id) << ",\n\"network-types\": " << lineOf(types);
  }

  /// Objects one a line, so that a large network is never one text, and two can be compared.
  template <typename Make>
  void writeList(const char* name, std::size_t count, const Make& make) {
    if (count == 0) return;
    out_ << ",\n\"" << name << "\": [";
    for (Index i = 0; i < count; ++i) out_ << (i > 0 ? ",\n" : "\n") << lineOf(make(i));
    out_ << "\n]";
  }

  void end(std::size_t plane, Json attributes) {
    if (plane < planes_.size()) {
      for (const Index vlan : planes_[plane].vlans) attributes["vlan"].push_back(vlanJson(vlan));
    }
    if (!attributes.empty()) {
      out_ << ",\n\"zntopo-topology:network-attributes\": {";
      const char* between = "\n";
      for (const auto& [name, list] : attributes.items()) {
        out_ << between << lineOf(name) << ": [";
        for (std::size_t i = 0; i < list.size(); ++i)
          out_ << (i > 0 ? ",\n" : "\n") << lineOf(list[i]);
        out_ << "\n]";
        between = ",\n";
      }
      out_ << "\n}";
    }
    out_ << "}";
  }

  Json vlanJson(Index index) const {
    const VlanModel& from = model_.vlans[index];
    Json to = {{"vlan-id", from.number}};
    if (!from.name.empty()) to["name"] = plainText(from.name, kNameWidth);
    writeEntity(to, from);
    return to;
  }

  /// VLANs whose numbers are taken, in a network of parts of the same nodes.
  void writePlane(std::size_t plane) {
    out_ << ",\n";
    begin(planeId(plane));
    std::map<Index, Json> tps;
    for (const auto& [end, numbers] : planes_[plane].members) {
      Json tp = {{"tp-id", names_.tp(end)}};
      tp["supporting-termination-point"].push_back({{"network-ref", kNetwork},
                                                    {"node-ref", names_.node(end.node)},
                                                    {"tp-ref", names_.tp(end)}});
      addVlans(tp["ietf-l2-topology:l2-termination-point-attributes"], numbers);
      tps[end.node].push_back(std::move(tp));
    }
    std::vector<Json> nodes;
    for (auto& [node, list] : tps) {
      Json one = {{"node-id", names_.node(node)}};
      one["supporting-node"].push_back(
          {{"network-ref", kNetwork}, {"node-ref", names_.node(node)}});
      one["ietf-network-topology:termination-point"] = std::move(list);
      nodes.push_back(std::move(one));
    }
    writeList("node", nodes.size(), [&](Index i) { return nodes[i]; });
    end(plane, Json::object());
  }

  static void addVlans(Json& attributes, const std::vector<int>& numbers) {
    for (const int number : numbers) attributes["vlan-id-name"].push_back({{"vlan-id", number}});
  }

  /// A member that is left out while it is empty.
  static void put(Json& to, const char* name, Json value) {
    if (!value.empty()) to[name] = std::move(value);
  }

  Json node(Index index) const {
    const NodeModel& from = model_.nodes[index];
    Json to = {{"node-id", names_.node(index)}};
    Json layer2 = Json::object();
    const std::string name = plainText(from.name, kNameWidth);
    if (name != names_.node(index)) put(layer2, "name", name);
    if (from.managementAddress) layer2["management-address"] = {from.managementAddress->text()};
    put(to, "ietf-l2-topology:l2-node-attributes", std::move(layer2));
    Json own = Json::object();
    writeEntity(own, from);
    writeFields(own, from, fields::kNode);
    writeProperties(own, from.properties);
    for (const NumberName<>& feature : names::kFeature) {
      if ((from.features & static_cast<unsigned>(feature.number)) != 0) {
        own["feature"].push_back(feature.name);
      }
    }
    put(to, "zntopo-topology:node-attributes", std::move(own));
    Json tps = Json::array();
    for (Index i = 0; i < from.interfaces.size(); ++i) tps.push_back(interface({index, i}));
    put(to, "ietf-network-topology:termination-point", std::move(tps));
    return to;
  }

  Json interface(const EndPoint& end) const {
    const InterfaceModel& from = model_.at(end);
    Json to = {{"tp-id", names_.tp(end)}};
    Json layer2 = Json::object(), layer3 = Json::object(), own = Json::object();
    const std::string name = plainText(from.name, kNameWidth);
    if (name != names_.tp(end)) put(layer2, "interface-name", name);
    if (!planes_.empty()) {
      const auto members = planes_.front().members.find(end);
      if (members != planes_.front().members.end()) addVlans(layer2, members->second);
    }
    writeEntity(own, from);
    writeFields(own, from, fields::kInterface);
    writeProperties(own, from.properties);
    for (const AddressModel& one : from.addresses) {
      const std::string length = one.prefixLength ? "/" + std::to_string(*one.prefixLength) : "";
      layer3["ip-address"].push_back(one.address.text() + length);
      own["address"].push_back(address(one));
    }
    put(to, "ietf-l2-topology:l2-termination-point-attributes", std::move(layer2));
    put(to, "ietf-l3-unicast-topology:l3-termination-point-attributes", std::move(layer3));
    put(to, "zntopo-topology:termination-point-attributes", std::move(own));
    return to;
  }

  Json address(const AddressModel& from) const {
    Json to = {{"ip", from.address.text()}};
    writeFields(to, from, fields::kAddress);
    if (from.subnet) to["subnet-ref"] = names_.subnet(*from.subnet);
    writeFields(to, from, fields::kV6Address);
    if (from.mappedV4) to["mapped-ipv4"] = from.mappedV4->text();
    if (from.monitoring) {
      to["monitoring"] = Json::object();
      writeFields(to["monitoring"], *from.monitoring, fields::kMonitoring);
    }
    return to;
  }

  Json link(Index index) {
    const LinkModel& from = model_.links[index];
    const std::string id = names_.node(from.left.node) + "," + names_.tp(from.left) + "," +
                           names_.node(from.right.node) + "," + names_.tp(from.right);
    return {{"link-id", linkIds_.take(id)},
            {"source",
             {{"source-node", names_.node(from.left.node)}, {"source-tp", names_.tp(from.left)}}},
            {"destination",
             {{"dest-node", names_.node(from.right.node)}, {"dest-tp", names_.tp(from.right)}}}};
  }

  const NetworkModel& model_;
  const Names names_;
  std::ostream& out_;
  NetworkReport& report_;
  std::vector<VlanPlane> planes_;
  /// Of each VLAN; nothing for one that can't be written.
  std::vector<std::optional<std::size_t>> planeOf_;
  /// The width that the reader gives to identifiers of links.
  UniqueNames linkIds_{2000};
};

}  // namespace
}  // namespace rfc8345

void writeRfc8345(const NetworkModel& model, std::ostream& out, NetworkReport& report) {
  rfc8345::Writer(model, out, report).write();
}

}  // namespace zntopo::tools
