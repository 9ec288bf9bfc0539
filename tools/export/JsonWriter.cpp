#include "tools/export/JsonWriter.h"

#include "tools/export/FieldWriter.h"
#include "tools/export/NodeLook.h"

namespace zntopo::tools {

namespace {

Json known(const std::string& text) { return text.empty() ? Json() : Json(text); }
Json known(const std::optional<int>& number) { return number ? Json(*number) : Json(); }
Json known(const std::optional<int>& number, std::span<const NumberName<>> names) {
  if (!number) return {};
  const auto name = nameOf(names, *number);
  return name ? Json(*name) : Json(*number);
}
Json textOf(const std::optional<IpAddress>& address) {
  return address ? Json(address->text()) : Json();
}

class Writer {
 public:
  Writer(const StoredNetwork& network, std::ostream& out)
      : network_(network), model_(network.model), out_(out) {}

  void write() {
    out_ << "{\n\"format\": \"zntopo\",\n\"version\": 1";
    writeList("nodes", model_.nodes.size(), [&](Index i) { return node(i); });
    writeList("links", model_.links.size(), [&](Index i) { return link(model_.links[i]); });
    writeList("subnets", model_.subnets.size(), [&](Index i) { return subnet(model_.subnets[i]); });
    writeList("vlans", model_.vlans.size(), [&](Index i) { return vlan(model_.vlans[i]); });
    writeList("meshes", model_.meshes.size(), [&](Index i) { return mesh(model_.meshes[i]); });
    writeList("hsrp_groups", model_.hsrpGroups.size(),
              [&](Index i) { return hsrpGroup(model_.hsrpGroups[i]); });
    writeList("containers", model_.containers.size(),
              [&](Index i) { return container(model_.containers[i]); });
    writeList("associations", model_.associations.size(),
              [&](Index i) { return association(model_.associations[i]); });
    out_ << "\n}\n";
  }

 private:
  /// Objects one a line, so that a large network is never one text.
  template <typename Make>
  void writeList(const char* name, std::size_t count, const Make& make) {
    out_ << ",\n\"" << name << "\": [";
    for (Index i = 0; i < count; ++i) out_ << (i > 0 ? ",\n" : "\n") << lineOf(make(i));
    out_ << (count > 0 ? "\n]" : "]");
  }

  static Json entity(const EntityModel& from) {
    Json to = {{"id", from.id},
               {"name", from.name},
               {"description", known(from.description)},
               {"zone", known(from.zone)},
               {"legacy_id", known(from.legacyId)}};
    const auto status = from.status;
    to["status"] = known(status ? std::optional(status->overall) : std::nullopt, names::kStatus);
    to["ipv6_status"] = known(status ? std::optional(status->v6) : std::nullopt, names::kStatus);
    to["status_time"] = known(status ? std::optional(status->changeTime) : std::nullopt);
    to["user_variables"] = Json::object();
    for (const UserVariableModel& one : from.variables) {
      std::visit([&](const auto& value) { to["user_variables"][one.name] = value; }, one.value);
    }
    return to;
  }

  static Json properties(const std::vector<PropertyModel>& from) {
    Json to = Json::object();
    for (const PropertyModel& one : from) to[one.name] = one.value;
    return to;
  }

  Json node(Index index) const {
    const NodeModel& from = model_.nodes[index];
    const NodeTraits& traits = network_.traits[index];
    Json to = entity(from);
    to["kind"] = kindName(kindOf(traits));
    to["capabilities"] = traits.capabilities;
    to["management_address"] = textOf(from.managementAddress);
    to["system_oid"] = known(from.systemOid);
    to["contact"] = known(from.contact);
    to["location"] = known(from.location);
    to["snmp_state"] = known(from.snmpState, names::kSnmpState);
    to["layer2_domain"] = known(from.layer2Domain);
    to["properties"] = properties(from.properties);
    to["interfaces"] = Json::array();
    for (const InterfaceModel& one : from.interfaces) to["interfaces"].push_back(interface(one));
    return to;
  }

  Json interface(const InterfaceModel& from) const {
    Json to = entity(from);
    to["alias"] = known(from.alias);
    to["physical_address"] = known(from.physicalAddress);
    to["index"] = known(from.index);
    to["type"] = known(from.type);
    to["speed"] = known(from.speed);
    to["admin_state"] = known(from.adminState, names::kAdminState);
    to["oper_state"] = known(from.operState, names::kOperState);
    to["access_port"] = from.isAccessPort;
    to["linked_elsewhere"] = from.isLinkedElsewhere;
    to["properties"] = properties(from.properties);
    to["vlans"] = Json::array();
    for (const Index vlan : from.vlans) to["vlans"].push_back(model_.vlans[vlan].id);
    to["addresses"] = Json::array();
    for (const AddressModel& one : from.addresses) to["addresses"].push_back(address(one));
    return to;
  }

  Json address(const AddressModel& from) const {
    Json to = {{"id", from.id},
               {"address", from.address.text()},
               {"prefix_length", known(from.prefixLength)},
               {"subnet", from.subnet ? Json(model_.subnets[*from.subnet].id) : Json()},
               {"dns_name", known(from.dnsName)},
               {"mapped_ipv4", textOf(from.mappedV4)},
               {"monitoring", nullptr}};
    if (!from.monitoring) return to;
    to["monitoring"] = {
        {"status", known(std::optional(from.monitoring->status), names::kStatus)},
        {"net_to_media", known(std::optional(from.monitoring->netToMedia), names::kNetToMedia)},
        {"preference", known(std::optional(from.monitoring->preference), names::kPreference)},
        {"origin", known(std::optional(from.monitoring->origin), names::kOrigin)},
        {"time", from.monitoring->lastTime}};
    return to;
  }

  Json end(const EndPoint& at) const {
    return {{"node", model_.nodes[at.node].id}, {"interface", model_.at(at).id}};
  }

  Json link(const LinkModel& from) const {
    return {{"source", end(from.left)}, {"target", end(from.right)}};
  }

  static Json subnet(const SubnetModel& from) {
    Json to = entity(from);
    to["ip_level"] = from.isV6 ? 6 : 4;
    to["prefix"] = from.prefix ? Json(from.prefix->text()) : Json();
    return to;
  }

  static Json vlan(const VlanModel& from) {
    Json to = entity(from);
    to["number"] = from.number;
    return to;
  }

  Json mesh(const MeshModel& from) const {
    Json to = entity(from);
    to["members"] = Json::array();
    for (const EndPoint& one : from.members) to["members"].push_back(end(one));
    return to;
  }

  Json hsrpGroup(const HsrpGroupModel& from) const {
    Json to = entity(from);
    to["number"] = from.number;
    to["members"] = Json::array();
    for (const HsrpMemberModel& one : from.members) {
      Json member = end(one.interface);
      member["address"] = one.address.text();
      member["state"] = known(std::optional(one.state), names::kHsrpState);
      member["priority"] = one.priority;
      member["certainty"] = one.certainty;
      member["tracks"] = Json::array();
      for (const HsrpTrackModel& track : one.tracks) {
        Json tracked = end(track.interface);
        tracked["decrement"] = track.decrement;
        member["tracks"].push_back(std::move(tracked));
      }
      to["members"].push_back(std::move(member));
    }
    return to;
  }

  Json container(const ContainerModel& from) const {
    Json to = entity(from);
    to["type"] = from.type;
    to["application"] = from.application;
    to["ordered"] = from.isOrdered;
    to["members"] = Json::array();
    for (const ContainerMemberModel& one : from.members) {
      Json member = end(one.interface);
      member["containment"] = one.containment;
      member["sequence"] = one.sequence;
      to["members"].push_back(std::move(member));
    }
    return to;
  }

  Json association(const AssociationModel& from) const {
    return {{"left", model_.containers[from.left].id},
            {"right", model_.containers[from.right].id},
            {"relation", from.relation},
            {"state", from.state},
            {"state_time", from.stateChangeTime},
            {"description", known(from.description)},
            {"extra_info", known(from.extraInfo)}};
  }

  const StoredNetwork& network_;
  const NetworkModel& model_;
  std::ostream& out_;
};

}  // namespace

void writeNetworkJson(const StoredNetwork& network, std::ostream& out) {
  Writer(network, out).write();
}

}  // namespace zntopo::tools
