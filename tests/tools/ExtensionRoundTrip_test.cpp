#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <nlohmann/json.hpp>
#include <set>

#include "tests/tools/import/Rfc8345Text.h"
#include "tools/generate/SiteBuilder.h"
#include "tools/network/NetworkFields.h"
#include "tools/network/StoreRows.h"

/// @file
/// The attributes of zntopo-topology have room for all that a network holds: a generated one,
/// written down with them and read again, gives the same rows.

namespace zntopo::tools {
namespace {

using nlohmann::json;

/// The members of an object by its table of fields; what is as it is when nothing is told is left
/// out.
template <typename Object, std::size_t count>
void writeFields(json& to, const Object& from, const Field<Object> (&fields)[count]) {
  const Object untold;
  for (const Field<Object>& field : fields) {
    const auto write = [&](const auto member) {
      if (from.*member == untold.*member) return;
      using Value = std::decay_t<decltype(from.*member)>;
      if constexpr (std::is_same_v<Value, int> || std::is_same_v<Value, std::optional<int>>) {
        const int number = std::optional<int>(from.*member).value_or(0);
        const auto name = nameOf(field.names, number);
        to[field.name] = name ? json(*name) : json(number);
      } else {
        to[field.name] = from.*member;
      }
    };
    std::visit(write, field.member);
  }
}

void writeEntity(json& to, const EntityModel& from) {
  writeFields(to, from, fields::kEntity);
  if (from.status) {
    to["status"] = json::object();
    writeFields(to["status"], *from.status, fields::kStatus);
  }
  for (const UserVariableModel& one : from.variables) {
    json variable = {{"name", one.name}};
    std::visit(
        [&](const auto& value) { variable[fields::kVariableValue[one.value.index()]] = value; },
        one.value);
    to["user-variable"].push_back(variable);
  }
}

void writeProperties(json& to, const std::vector<PropertyModel>& properties) {
  for (const PropertyModel& one : properties) {
    to["property"].push_back({{"name", one.name}, {"value", one.value}});
  }
}

/// A network as a document of one network "n", in which names are the identifiers.
class Writer {
 public:
  explicit Writer(const NetworkModel& model) : model_(model) {
    network_ = {{"network-id", "n"}};
    for (Index i = 0; i < model.nodes.size(); ++i) network_["node"].push_back(node(i));
    for (const LinkModel& link : model.links) {
      const InterfaceModel& left = model.at(link.left);
      network_["link"].push_back(
          {{"link-id", left.key},
           {"source", {{"source-node", nodeName(link.left)}, {"source-tp", left.name}}},
           {"destination",
            {{"dest-node", nodeName(link.right)}, {"dest-tp", model.at(link.right).name}}}});
    }
    network_["zntopo-topology:network-attributes"] = attributes();
  }
  std::string text() const { return json{{"networks", {{"network", {network_}}}}}.dump(); }

 private:
  const std::string& nodeName(const EndPoint& end) const { return model_.nodes[end.node].name; }
  json reference(const EndPoint& end) const {
    return {{"node-ref", nodeName(end)}, {"tp-ref", model_.at(end).name}};
  }

  /// Link-local subnets have their names in common.
  static std::string subnetId(Index index) { return "s" + std::to_string(index); }

  json node(Index index) {
    const NodeModel& from = model_.nodes[index];
    json own = json::object();
    writeFields(own, from, fields::kNode);
    writeEntity(own, from);
    writeProperties(own, from.properties);
    for (const NumberName& feature : names::kFeature) {
      if ((from.features & static_cast<unsigned>(feature.number)) != 0) {
        own["feature"].push_back(feature.name);
      }
    }
    json to = {{"node-id", from.name}, {"zntopo-topology:node-attributes", own}};
    if (from.managementAddress) {
      to["l2-node-attributes"]["management-address"] = {from.managementAddress->text()};
    }
    references_[from.key] = {{"node-ref", from.name}};
    for (Index i = 0; i < from.interfaces.size(); ++i) {
      to["termination-point"].push_back(interface({index, i}));
    }
    return to;
  }

  json interface(const EndPoint& end) {
    const InterfaceModel& from = model_.at(end);
    json own = json::object();
    writeFields(own, from, fields::kInterface);
    writeEntity(own, from);
    writeProperties(own, from.properties);
    references_[from.key] = reference(end);
    json addresses = json::array();
    for (const AddressModel& one : from.addresses) {
      const std::string ip = one.address.text();
      addresses.push_back(ip + "/" + std::to_string(*one.prefixLength));
      own["address"].push_back(address(one));
      references_[addressKey(from.key, one.address)] = reference(end);
      references_[addressKey(from.key, one.address)]["address"] = ip;
    }
    json vlans = json::array();
    for (const Index vlan : from.vlans) {
      vlans.push_back({{"vlan-id", model_.vlans[vlan].number}});
    }
    return {{"tp-id", from.name},
            {"l2-termination-point-attributes", {{"vlan-id-name", vlans}}},
            {"l3-termination-point-attributes", {{"ip-address", addresses}}},
            {"zntopo-topology:termination-point-attributes", own}};
  }

  json address(const AddressModel& from) const {
    json to = {{"ip", from.address.text()}};
    writeFields(to, from, fields::kAddress);
    if (from.mappedV4) to["mapped-ipv4"] = from.mappedV4->text();
    if (from.subnet) to["subnet-ref"] = subnetId(*from.subnet);
    if (from.monitoring) {
      to["monitoring"] = json::object();
      writeFields(to["monitoring"], *from.monitoring, fields::kMonitoring);
    }
    return to;
  }

  json attributes() {
    json to = json::object();
    for (Index i = 0; i < model_.subnets.size(); ++i) {
      const SubnetModel& from = model_.subnets[i];
      json& subnet =
          add(to["subnet"], from, {{"subnet-id", subnetId(i)}}, "subnet-ref", subnetId(i));
      subnet["prefix"] = from.prefix->text();
    }
    for (const VlanModel& from : model_.vlans) {
      add(to["vlan"], from, {{"vlan-id", from.number}}, "vlan-ref", from.number);
    }
    for (const MeshModel& from : model_.meshes) {
      json& mesh = add(to["mesh"], from, {{"mesh-id", from.name}}, "mesh-ref", from.name);
      for (const EndPoint& member : from.members) mesh["member"].push_back(reference(member));
    }
    addHsrpGroups(to["hsrp-group"]);
    addContainers(to["interface-container"]);
    for (const AssociationModel& from : model_.associations) {
      json one = {{"left-container", model_.containers[from.left].name},
                  {"right-container", model_.containers[from.right].name}};
      writeFields(one, from, fields::kAssociation);
      to["container-association"].push_back(one);
    }
    for (const AuditModel& from : model_.audit) {
      const auto known = references_.find(from.objectKey);
      json one = known != references_.end() ? known->second : json{{"node-ref", from.objectKey}};
      writeFields(one, from, fields::kAudit);
      to["audit"].push_back(one);
    }
    return to;
  }

  json& add(json& list, const EntityModel& from, json to, const std::string& refName,
            const json& refValue) {
    to["name"] = from.name;
    writeEntity(to, from);
    references_[from.key] = {{refName, refValue}};
    list.push_back(to);
    return list.back();
  }

  void addHsrpGroups(json& list) {
    for (const HsrpGroupModel& from : model_.hsrpGroups) {
      json& group = add(list, from, {{"group-id", from.name}}, "hsrp-group-ref", from.name);
      writeFields(group, from, fields::kHsrpGroup);
      for (const HsrpMemberModel& one : from.members) {
        json member = reference(one.interface);
        member["address"] = one.address.text();
        writeFields(member, one, fields::kHsrpMember);
        for (const HsrpTrackModel& track : one.tracks) {
          member["track"].push_back(reference(track.interface));
          writeFields(member["track"].back(), track, fields::kHsrpTrack);
        }
        group["member"].push_back(member);
      }
    }
  }

  void addContainers(json& list) {
    for (const ContainerModel& from : model_.containers) {
      json& container =
          add(list, from, {{"container-id", from.name}}, "interface-container-ref", from.name);
      writeFields(container, from, fields::kContainer);
      for (const ContainerMemberModel& one : from.members) {
        json member = reference(one.interface);
        writeFields(member, one, fields::kContainerMember);
        container["member"].push_back(member);
      }
    }
  }

  const NetworkModel& model_;
  json network_;
  /// How a line of the audit trail names an object, by its key.
  std::map<std::string, json> references_;
};

/// The keys that the objects of one network have in another one, which holds the same objects.
class KeyMap {
 public:
  KeyMap(const NetworkModel& from, const NetworkModel& to) {
    map(from.nodes, to.nodes);
    for (Index i = 0; i < from.nodes.size(); ++i) {
      map(from.nodes[i].interfaces, to.nodes.at(i).interfaces);
    }
    map(from.meshes, to.meshes);
    map(from.hsrpGroups, to.hsrpGroups);
    map(from.containers, to.containers);
    map(from.subnets, to.subnets);
    mapByName(from.vlans, to.vlans);
  }

  /// Gives all objects their keys in the other network.
  void apply(NetworkModel& model) const {
    for (NodeModel& node : model.nodes) {
      rename(node);
      for (InterfaceModel& one : node.interfaces) rename(one);
    }
    for (SubnetModel& one : model.subnets) rename(one);
    for (VlanModel& one : model.vlans) rename(one);
    for (MeshModel& one : model.meshes) rename(one);
    for (HsrpGroupModel& one : model.hsrpGroups) rename(one);
    for (ContainerModel& one : model.containers) rename(one);
    for (AuditModel& one : model.audit) one.objectKey = keyOf(one.objectKey);
  }

 private:
  template <typename Entity>
  void map(const std::vector<Entity>& from, const std::vector<Entity>& to) {
    ASSERT_EQ(from.size(), to.size());
    for (std::size_t i = 0; i < from.size(); ++i) keys_[from[i].key] = to[i].key;
  }
  template <typename Entity>
  void mapByName(const std::vector<Entity>& from, const std::vector<Entity>& to) {
    ASSERT_EQ(from.size(), to.size());
    std::map<std::string, std::string> byName;
    for (const Entity& one : to) byName[one.name] = one.key;
    ASSERT_EQ(byName.size(), to.size());
    for (const Entity& one : from) keys_[one.key] = byName[one.name];
  }
  void rename(EntityModel& entity) const { entity.key = keyOf(entity.key); }
  /// Also of addresses, whose keys begin with that of their interface, and of a node that is gone.
  std::string keyOf(const std::string& key) const {
    if (const auto known = keys_.find(key); known != keys_.end()) return known->second;
    const std::size_t address = key.find("\naddress\n");
    if (address != std::string::npos) return keyOf(key.substr(0, address)) + key.substr(address);
    return key.substr(key.find_last_of('\n') + 1);
  }

  std::map<std::string, std::string> keys_;
};

/// Every row as a line; each key once, as a store has it.
std::multiset<std::string> linesOf(const NetworkModel& model) {
  NetworkReport report;
  RowSet rows;
  addRows(model, "", rows, report);
  std::multiset<std::string> lines;
  for (const Row& row : rows.rows()) {
    std::string line = tableDef(row.table).name;
    for (const Cell& cell : row.cells) {
      line += "|";
      if (const auto* text = std::get_if<std::string>(&cell)) line += *text;
      if (const auto* number = std::get_if<int>(&cell)) line += std::to_string(*number);
      if (const auto* real = std::get_if<float>(&cell)) line += std::to_string(*real);
    }
    lines.insert(line);
  }
  return lines;
}

TEST(ExtensionRoundTripTest, AGeneratedSiteIsReadBackAsItWas) {
  CampusPlan plan;
  plan.nodes = 60;
  plan.interfaces = 1000;
  plan.sites = 1;
  plan.userVariableShare = 0.1;
  plan.brokenGroupShare = 0.3;
  const NetworkModel model = buildSite(plan, CampusLayout(plan), 0);
  ASSERT_FALSE(model.meshes.empty() || model.associations.empty() || model.audit.empty());
  test::Rfc8345Read read(Writer(model).text());
  for (const auto& note : read.report.notes()) ADD_FAILURE() << note.what << note.firstWhere;
  KeyMap(read.model, model).apply(read.model);
  const auto before = linesOf(model), after = linesOf(read.model);
  EXPECT_GT(before.size(), 4000u);
  EXPECT_EQ(before.size(), after.size());
  std::vector<std::string> lost, made;
  std::set_difference(before.begin(), before.end(), after.begin(), after.end(),
                      std::back_inserter(lost));
  std::set_difference(after.begin(), after.end(), before.begin(), before.end(),
                      std::back_inserter(made));
  EXPECT_TRUE(lost.empty()) << lost.size() << " rows were lost, the first: " << lost.front();
  EXPECT_TRUE(made.empty()) << made.size() << " rows were made, the first: " << made.front();
}

}  // namespace
}  // namespace zntopo::tools
