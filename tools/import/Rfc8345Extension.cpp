#include "tools/import/Rfc8345Extension.h"

#include <algorithm>
#include <set>

#include "tools/import/FieldReader.h"
#include "tools/import/Rfc8345Keys.h"

namespace zntopo::tools::rfc8345 {

namespace {

class Extension {
 public:
  Extension(const Document& document, const Layers& layers, NetworkModel& model,
            NetworkReport& report)
      : document_(document), layers_(layers), model_(model), report_(report) {}

  void add() {
    for (const Network& network : document_.networks) addSubnetsAndVlans(network);
    // What comes last counts, and that is the lowest layer.
    const auto& order = layers_.order();
    for (auto at = order.rbegin(); at != order.rend(); ++at) addNode(*at);
    for (const Network& network : document_.networks) {
      if (!network.extension) continue;
      JsonObject attributes(*network.extension);
      addGroups(attributes, network, layers_, subnets_, model_, report_);
      attributes.find("subnet");
      attributes.find("vlan");
      attributes.countUnread(report_);
    }
  }

 private:
  void addSubnetsAndVlans(const Network& network) {
    if (!network.extension) return;
    JsonObject attributes(*network.extension);
    ListKeys ids;
    for (const JsonPlace& place : attributes.list("subnet")) addSubnet(network, place, ids);
    std::set<int> numbers;
    for (const JsonPlace& place : attributes.list("vlan")) addVlan(network, place, numbers);
  }

  void addSubnet(const Network& network, const JsonPlace& place, ListKeys& ids) {
    JsonObject object(place);
    const std::string id = ids.read(object, "subnet-id", kNameWidth);
    const auto prefix = readPrefix(object);
    // An identifier tells apart what has one prefix, in two zones say.
    const bool isOneOfItsPrefix = prefix && !isLocal(*prefix) && !object.find("identifier");
    const Index index = isOneOfItsPrefix
                            ? model_.subnetOf(*prefix)
                            : model_.subnetOfKey(segmentKey(network.id, id), id, false);
    SubnetModel& subnet = model_.subnets[index];
    if (prefix) {
      subnet.prefix = prefix;
      subnet.isV6 = prefix->network.isV6();
    }
    readName(object, subnet);
    readEntity(object, subnet, report_);
    readFields(object, subnet, fields::kSubnet, report_);
    checkIdentifier(object, subnet.addressId);
    if (!prefix) readFields(object, subnet, fields::kBareSubnet, report_);
    object.countUnread(report_);
    subnets_[{network.id, id}] = index;
  }

  /// Prefixes that every wire has for itself.
  static bool isLocal(const IpPrefix& prefix) {
    return prefix.network.scope() == AddressScope::LinkLocal || prefix.network.isLoopback();
  }

  std::optional<IpPrefix> readPrefix(JsonObject& object) {
    const auto place = object.find("prefix");
    if (!place) return std::nullopt;
    const auto prefix = IpPrefix::parse(place->text());
    if (!prefix) report_.add("prefix that is none", place->where());
    return prefix;
  }

  static void readName(JsonObject& object, EntityModel& entity) {
    if (const auto name = object.find("name")) entity.name = name->name(kNameWidth);
  }

  void addVlan(const Network& network, const JsonPlace& place, std::set<int>& numbers) {
    JsonObject object(place);
    const JsonPlace number = object.get("vlan-id");
    const auto value = number.number();
    if (!value || *value < 1 || *value > 4094) {
      report_.add("VLAN number outside 1 to 4094", number.where());
      return;
    }
    if (!numbers.insert(*value).second) {
      throw ImportError(number.where(),
                        "the VLAN " + std::to_string(*value) + " is told of already");
    }
    VlanModel& vlan = model_.vlans[model_.vlanOf(vlanKey(network.id, *value), "", *value)];
    readName(object, vlan);
    readEntity(object, vlan, report_);
    object.countUnread(report_);
  }

  void addNode(const NodeAt& at) {
    const Node& node = layers_.node(at);
    const bool isDevice = layers_.role(at) == Layers::Role::Device;
    if (node.extension && !isDevice) {
      report_.add("node-attributes of what is no device", node.extension->where());
    } else if (node.extension) {
      readNode(*node.extension, model_.nodes[layers_.device(at)]);
    }
    for (std::size_t i = 0; i < node.tps.size(); ++i) {
      if (!node.tps[i].extension) continue;
      if (const auto end = layers_.interface(at, i)) {
        readInterface(*node.tps[i].extension, layers_.network(at), model_.at(*end));
      } else {
        report_.add("termination-point-attributes of what is no interface",
                    node.tps[i].extension->where());
      }
    }
  }

  void readNode(const JsonPlace& place, NodeModel& node) {
    JsonObject object(place);
    readFields(object, node, fields::kNode, report_);
    readEntity(object, node, report_);
    readProperties(object, node.properties, report_);
    if (const auto list = object.find("feature")) {
      node.features = 0;
      for (const JsonPlace& feature : list->elements()) {
        const auto bit = numberOf(names::kFeature, feature.text());
        if (!bit) report_.add("feature that is none", feature.where());
        node.features |= static_cast<unsigned>(bit.value_or(0));
      }
    }
    object.countUnread(report_);
  }

  void readInterface(const JsonPlace& place, const Network& network, InterfaceModel& interface) {
    JsonObject object(place);
    readFields(object, interface, fields::kInterface, report_);
    readEntity(object, interface, report_);
    readProperties(object, interface.properties, report_);
    std::set<std::string> known;
    for (const JsonPlace& address : object.list("address")) {
      readAddress(address, network, interface, known);
    }
    object.countUnread(report_);
  }

  /// What is told of an address that the interface has.
  void readAddress(const JsonPlace& place, const Network& network, InterfaceModel& interface,
                   std::set<std::string>& known) {
    JsonObject object(place);
    const JsonPlace ip = object.get("ip");
    const auto value = IpAddress::parse(ip.text());
    if (value && !known.insert(value->text()).second) {
      throw ImportError(ip.where(), "the address " + value->text() + " is told of already");
    }
    AddressModel* const address = value ? addressOf(interface, *value) : nullptr;
    if (address == nullptr) {
      report_.add("address that its interface does not have", ip.where());
      return;
    }
    if (const auto reference = object.find("subnet-ref")) {
      putIntoSubnet(*reference, network, *address);
    }
    readFields(object, *address, fields::kAddress, report_);
    checkIdentifier(object, address->id);
    if (address->address.isV6()) readV6(object, interface, *address);
    object.countUnread(report_);
  }

  static AddressModel* addressOf(InterfaceModel& interface, const IpAddress& ip) {
    const auto found =
        std::find_if(interface.addresses.begin(), interface.addresses.end(),
                     [&](const AddressModel& address) { return address.address == ip; });
    return found == interface.addresses.end() ? nullptr : &*found;
  }

  void putIntoSubnet(const JsonPlace& reference, const Network& network, AddressModel& address) {
    const auto subnet = subnets_.find({network.id, reference.text()});
    if (subnet == subnets_.end()) {
      report_.add("subnet-ref that does not exist", reference.where());
      return;
    }
    const auto& prefix = model_.subnets[subnet->second].prefix;
    if (prefix && !prefix->contains(address.address)) {
      report_.add("subnet-ref around another address", reference.where());
      return;
    }
    address.subnet = subnet->second;
    if (prefix && !address.prefixLength) address.prefixLength = prefix->length;
  }

  /// What only IPv6 addresses have.
  void readV6(JsonObject& object, InterfaceModel& interface, AddressModel& address) {
    readFields(object, address, fields::kV6Address, report_);
    checkIdentifier(object, address.dnsId);
    if (const auto mapped = object.find("mapped-ipv4")) {
      const auto v4 = IpAddress::parse(mapped->text());
      if (v4 && !v4->isV6() && addressOf(interface, *v4) != nullptr) {
        address.mappedV4 = v4;
      } else {
        report_.add("mapped-ipv4 that its interface does not have", mapped->where());
      }
    }
    if (const auto place = object.find("monitoring")) {
      JsonObject monitoring(*place);
      if (!address.monitoring) address.monitoring.emplace();
      readFields(monitoring, *address.monitoring, fields::kMonitoring, report_);
      monitoring.countUnread(report_);
    }
  }

  const Document& document_;
  const Layers& layers_;
  NetworkModel& model_;
  NetworkReport& report_;
  SubnetIds subnets_;
};

}  // namespace

void addExtension(const Document& document, const Layers& layers, NetworkModel& model,
                  NetworkReport& report) {
  Extension(document, layers, model, report).add();
}

}  // namespace zntopo::tools::rfc8345
