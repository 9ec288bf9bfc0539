#include "tools/import/Rfc8345Reader.h"

#include <algorithm>

#include "tools/import/Rfc8345Document.h"
#include "tools/import/Rfc8345Extension.h"
#include "tools/import/Rfc8345Keys.h"
#include "tools/import/Rfc8345Layers.h"

namespace zntopo::tools {

namespace rfc8345 {

namespace {

/// Fills the devices and interfaces that the layers found with what the document says of them.
class Builder {
 public:
  Builder(const Document& document, NetworkModel& model, NetworkReport& report)
      : document_(document), model_(model), report_(report), layers_(document, model, report) {}

  void build() {
    for (const NodeAt& at : layers_.order()) addNode(at);
    for (std::size_t i = 0; i < document_.networks.size(); ++i) addLinks(i);
    noteMissingLayer2();
    for (const NodeAt& at : layers_.order()) {
      if (layers_.role(at) == Layers::Role::Segment) addSegment(at);
    }
    for (std::size_t i = 0; i < document_.networks.size(); ++i) addSegmentMembers(i);
    for (NodeModel& node : model_.nodes) markAsSwitchPorts(node);
    addExtension(document_, layers_, model_, report_);
    model_.assignSubnets();
  }

 private:
  void addNode(const NodeAt& at) {
    const Node& node = layers_.node(at);
    if (layers_.role(at) == Layers::Role::VirtualRouter) addVirtualAddresses(at);
    if (layers_.role(at) != Layers::Role::Device) return;
    NodeModel& device = model_.nodes[layers_.device(at)];
    if (device.description.empty()) device.description = node.description;
    if (layers_.network(at).kind == Kind::Layer3 && node.hasRouterId) device.isRouter = true;
    for (const IpAddress& address : node.managementAddresses) {
      if (!device.managementAddress && !address.isV6()) device.managementAddress = address;
    }
    for (std::size_t tp = 0; tp < node.tps.size(); ++tp) addTp(at, tp);
  }

  void addTp(const NodeAt& at, std::size_t index) {
    const TerminationPoint& tp = layers_.node(at).tps[index];
    InterfaceModel& interface = model_.at(*layers_.interface(at, index));
    if (interface.description.empty()) interface.description = tp.description;
    if (interface.physicalAddress.empty()) interface.physicalAddress = tp.macAddress;
    if (!interface.index) interface.index = tp.index;
    if (!interface.speed) interface.speed = tp.speed;
    for (const TpVlan& vlan : tp.vlans) addVlan(at, vlan, interface);
    for (const TpAddress& address : tp.addresses) {
      addAddress(interface, address, layers_.node(at).prefixes);
    }
  }

  void addVlan(const NodeAt& at, const TpVlan& vlan, InterfaceModel& interface) {
    const std::string key = vlanKey(layers_.network(at).id, vlan.number);
    interface.vlans.insert(model_.vlanOf(key, vlan.name, vlan.number));
    if (vlan.isUntagged) interface.isAccessPort = true;
  }

  /// A port with VLANs beside its untagged one is a trunk.
  static void markAsSwitchPorts(NodeModel& node) {
    for (InterfaceModel& interface : node.interfaces) {
      if (interface.vlans.size() > 1) interface.isAccessPort = false;
    }
  }

  static void addAddress(InterfaceModel& interface, const TpAddress& told,
                         const std::vector<NodePrefix>& prefixes) {
    AddressModel address{told.address, told.prefixLength, told.prefixLength.has_value(), {}};
    if (!address.prefixLength) address.prefixLength = concludedLength(told.address, prefixes);
    const auto known =
        std::find_if(interface.addresses.begin(), interface.addresses.end(),
                     [&](const AddressModel& other) { return other.address == told.address; });
    if (known == interface.addresses.end()) {
      interface.addresses.push_back(address);
    } else if (!known->isLengthTold && address.prefixLength &&
               (address.isLengthTold || !known->prefixLength)) {
      *known = address;
    }
  }

  /// The length of the narrowest of a node's prefixes around an address; a prefix of one host
  /// counts only if there is no other, and the default route not at all.
  static std::optional<int> concludedLength(const IpAddress& address,
                                            const std::vector<NodePrefix>& prefixes) {
    std::optional<int> best;
    std::optional<int> host;
    for (const NodePrefix& prefix : prefixes) {
      if (!prefix.length || *prefix.length == 0) continue;
      if (!IpPrefix{prefix.network, *prefix.length}.contains(address)) continue;
      if (*prefix.length == address.bits()) {
        host = prefix.length;
      } else if (!best || *best < *prefix.length) {
        best = prefix.length;
      }
    }
    return best ? best : host;
  }

  void addVirtualAddresses(const NodeAt& at) {
    const Node& node = layers_.node(at);
    for (const TerminationPoint& tp : node.tps) {
      for (const TpRef& reference : tp.supports) {
        const auto end = layers_.interface(reference);
        if (!end) continue;
        for (const TpAddress& address : tp.addresses) {
          addAddress(model_.at(*end), address, node.prefixes);
        }
      }
    }
  }

  void noteMissingLayer2() {
    if (document_.networks.empty()) return;
    for (std::size_t i = 0; i < document_.networks.size(); ++i) {
      if (layers_.isPhysical(i) || document_.networks[i].kind == Kind::Layer2) return;
    }
    report_.add("file without a physical or a layer-2 network (no layer-2 links)",
                document_.networks.front().where);
  }

  void addLinks(std::size_t index) {
    const Network& network = document_.networks[index];
    for (const Link& link : network.links) {
      if (layers_.isPhysical(index) || network.kind == Kind::Layer2) {
        addLink(index, link);
      } else if (network.kind == Kind::Layer3) {
        report_.add("layer-3 link (makes no layer-2 link)", link.where);
      } else {
        report_.add("link of a network that is neither physical nor layer 2", link.where);
      }
    }
  }

  void addLink(std::size_t network, const Link& link) {
    const auto source = endOf(network, link, link.source, link.destination);
    const auto destination = endOf(network, link, link.destination, link.source);
    if (!source || !destination) {
      report_.add("link to a node or termination point that does not exist", link.where);
    } else if (source->node == destination->node) {
      report_.add("link inside one node", link.where);
    } else {
      model_.addLink(*source, *destination);
    }
  }

  /// The interface at one end of a link. An end without a termination point gets an interface
  /// made for it, one for all links to the same node.
  std::optional<EndPoint> endOf(std::size_t network, const Link& link, const LinkEnd& end,
                                const LinkEnd& other) {
    const std::string& networkId = document_.networks[network].id;
    if (!end.tp.empty()) return layers_.interface({{networkId, end.node}, end.tp});
    const auto at = layers_.find({networkId, end.node});
    const auto otherAt = layers_.find({networkId, other.node});
    if (!at || !otherAt || layers_.role(*at) != Layers::Role::Device) return std::nullopt;
    const std::string key = "end\n" + networkId + "\n" + end.node + "\n" + other.node;
    const auto [known, isNew] = madeEnds_.try_emplace(key);
    if (isNew) {
      report_.add("link without a termination point (an interface was made for it)", link.where);
      NodeModel& owner = model_.nodes[layers_.device(*at)];
      InterfaceModel interface;
      interface.key = key;
      interface.name = "to " + other.node;
      interface.isNameMade = true;
      if (interface.name.size() > 255) throw ImportError(link.where, "has too long a node name");
      owner.interfaces.push_back(std::move(interface));
      known->second = {layers_.device(*at), owner.interfaces.size() - 1};
    }
    return known->second;
  }

  void addSegment(const NodeAt& at) {
    const Node& node = layers_.node(at);
    std::vector<Index>& subnets = segments_[at];
    for (const NodePrefix& prefix : node.prefixes) {
      const auto length = prefix.length ? prefix.length : lengthElsewhere(at.network, prefix);
      if (!length) {
        report_.add("prefix without a length", node.where);
        continue;
      }
      subnets.push_back(model_.subnetOf({prefix.network.network(*length), *length}));
    }
    if (subnets.empty()) {
      subnets.push_back(
          model_.subnetOfKey(segmentKey(layers_.network(at).id, node.id), node.id, false));
    }
    for (const Index subnet : subnets) {
      std::string& description = model_.subnets[subnet].description;
      description += (description.empty() ? "" : ", ") + node.id;
    }
  }

  /// The length that the other nodes of a network give a prefix, if they agree on one.
  std::optional<int> lengthElsewhere(std::size_t network, const NodePrefix& wanted) const {
    std::optional<int> length;
    for (const Node& node : document_.networks[network].nodes) {
      for (const NodePrefix& prefix : node.prefixes) {
        if (!prefix.length || !(prefix.network == wanted.network)) continue;
        if (length && length != prefix.length) return std::nullopt;
        length = prefix.length;
      }
    }
    return length;
  }

  void addSegmentMembers(std::size_t index) {
    const Network& network = document_.networks[index];
    for (const Link& link : network.links) {
      addSegmentMember(index, link.source, link.destination);
      addSegmentMember(index, link.destination, link.source);
    }
  }

  /// Addresses behind a link to a segment lie in its subnet, if their own length says nothing.
  void addSegmentMember(std::size_t index, const LinkEnd& segmentEnd, const LinkEnd& memberEnd) {
    const std::string& networkId = document_.networks[index].id;
    const auto segment = layers_.find({networkId, segmentEnd.node});
    const auto member = layers_.find({networkId, memberEnd.node});
    if (!segment || !member || !segments_.contains(*segment)) return;
    const Node& node = layers_.node(*member);
    const auto tp = node.tpIndex.find(memberEnd.tp);
    if (tp == node.tpIndex.end()) return;
    for (const TpAddress& told : node.tps[tp->second].addresses) {
      if (const auto end = layers_.interface(*member, tp->second)) {
        putIntoSegment(model_.at(*end), told.address, segments_[*segment]);
      }
      for (const TpRef& reference : node.tps[tp->second].supports) {
        const auto below = layers_.interface(reference);
        if (below) putIntoSegment(model_.at(*below), told.address, segments_[*segment]);
      }
    }
  }

  void putIntoSegment(InterfaceModel& interface, const IpAddress& ip,
                      const std::vector<Index>& subnets) {
    for (AddressModel& address : interface.addresses) {
      if (!(address.address == ip) || address.prefixLength || address.subnet) continue;
      for (const Index subnet : subnets) {
        const auto& prefix = model_.subnets[subnet].prefix;
        if (prefix && !prefix->contains(ip)) continue;
        address.subnet = subnet;
        if (prefix) address.prefixLength = prefix->length;
        break;
      }
    }
  }

  const Document& document_;
  NetworkModel& model_;
  NetworkReport& report_;
  Layers layers_;
  std::map<NodeAt, std::vector<Index>> segments_;
  std::map<std::string, EndPoint> madeEnds_;
};

}  // namespace
}  // namespace rfc8345

NetworkModel readRfc8345(const InputFile& file, NetworkReport& report,
                         const ProgressFunction& progress) {
  const nlohmann::json json = loadJson(file, {}, progress);
  const rfc8345::Document document = rfc8345::readDocument(json, file.label, report);
  NetworkModel model;
  rfc8345::Builder(document, model, report).build();
  const std::string doubled = model.doubledIdentifier();
  if (!doubled.empty()) {
    throw ImportError(file.label, "the identifier \"" + doubled + "\" is that of two objects");
  }
  return model;
}

}  // namespace zntopo::tools
