#pragma once

#include <algorithm>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "tools/network/NameUuid.h"
#include "tools/network/NetworkModel.h"
#include "tools/network/StoreRows.h"
#include "zntopo/api/ZNTopoAPI.h"
#include "zntopo/model/SubnetEndPoint.h"

/// @file
/// What a network says of its subnets, VLANs, HSRP groups and containers, and what the library
/// reads of them in a store: in the same words, so that they can be compared.

namespace zntopo::test {

/// By the identifier of an object: a line for each thing that is said of it.
using Lines = std::map<std::string, std::set<std::string>>;

struct GroupLines {
  Lines vlans, subnets, hsrpGroups, containers;
};

inline std::string join(const std::vector<std::string>& parts) {
  std::string result;
  for (const std::string& part : parts) result += (result.empty() ? "" : " ") + part;
  return result;
}

/// What networks say. Objects that another of them brings are said once.
class ToldGroups {
 public:
  void add(const tools::NetworkModel& model) {
    for (tools::Index i = 0; i < model.vlans.size(); ++i) addVlan(model, i);
    for (tools::Index i = 0; i < model.subnets.size(); ++i) addSubnet(model, i);
    for (const auto& group : model.hsrpGroups) addHsrpGroup(model, group);
    for (const auto& container : model.containers) addContainer(model, container);
    for (const auto& one : model.associations) addAssociation(model, one);
  }
  const GroupLines& lines() const { return lines_; }

 private:
  static std::string id(const std::string& key) { return tools::nameUuid("\n" + key); }
  static std::string id(const tools::NetworkModel& model, const tools::EndPoint& end) {
    return id(model.at(end).key);
  }

  /// Calls a visitor with every interface of a network.
  template <typename Visitor>
  static void forEachInterface(const tools::NetworkModel& model, const Visitor& visit) {
    for (tools::EndPoint end; end.node < model.nodes.size(); ++end.node) {
      const auto& interfaces = model.nodes[end.node].interfaces;
      for (end.interface = 0; end.interface < interfaces.size(); ++end.interface) visit(end);
    }
  }

  void addVlan(const tools::NetworkModel& model, tools::Index index) {
    const tools::VlanModel& vlan = model.vlans[index];
    auto& lines = lines_.vlans[id(vlan.key)];
    const std::string number = std::to_string(vlan.number);
    lines.insert("number " + number);
    lines.insert("name " + (vlan.name.empty() ? "VLAN " + number : vlan.name));
    forEachInterface(model, [&](const tools::EndPoint& end) {
      if (!model.at(end).vlans.contains(index)) return;
      lines.insert(join({"member", id(model.nodes[end.node].key), id(model, end)}));
    });
  }

  void addSubnet(const tools::NetworkModel& model, tools::Index index) {
    const tools::SubnetModel& subnet = model.subnets[index];
    auto& lines = lines_.subnets[id(subnet.key)];
    lines.insert("name " + subnet.name);
    lines.insert(subnet.isV6 ? "level 6" : "level 4");
    forEachInterface(model, [&](const tools::EndPoint& end) {
      for (const tools::AddressModel& address : model.at(end).addresses) {
        if (address.subnet != index) continue;
        lines.insert(join({"end", id(model.nodes[end.node].key), id(model, end),
                           id(tools::addressKey(model.at(end).key, address.address))}));
      }
    });
  }

  void addHsrpGroup(const tools::NetworkModel& model, const tools::HsrpGroupModel& group) {
    auto& lines = lines_.hsrpGroups[id(group.key)];
    lines.insert("name " + group.name);
    for (const tools::HsrpMemberModel& member : group.members) {
      std::vector<std::string> parts = {
          "member",
          id(model, member.interface),
          id(tools::addressKey(model.at(member.interface).key, member.address)),
          std::to_string(group.number),
          std::to_string(member.state),
          std::to_string(member.priority),
          std::to_string(member.certainty)};
      for (const tools::HsrpTrackModel& track : member.tracks) {
        parts.push_back("track " + id(model, track.interface) + " " +
                        std::to_string(track.decrement));
      }
      lines.insert(join(parts));
    }
  }

  void addContainer(const tools::NetworkModel& model, const tools::ContainerModel& container) {
    auto& lines = lines_.containers[id(container.key)];
    lines.insert("name " + container.name);
    lines.insert(join({"is", std::to_string(container.type), std::to_string(container.application),
                       container.isOrdered ? "ordered" : "unordered"}));
    std::vector<tools::ContainerMemberModel> members = container.members;
    std::stable_sort(members.begin(), members.end(), [](const auto& one, const auto& other) {
      return one.sequence < other.sequence;
    });
    std::vector<std::string> parts = {"members"};
    for (const tools::ContainerMemberModel& member : members) {
      parts.push_back(std::to_string(member.sequence) + " " + id(model, member.interface) + " " +
                      std::to_string(member.containment));
    }
    lines.insert(join(parts));
  }

  /// An association is said of both its containers.
  void addAssociation(const tools::NetworkModel& model, const tools::AssociationModel& one) {
    const tools::ContainerModel& left = model.containers[one.left];
    const tools::ContainerModel& right = model.containers[one.right];
    const auto orDash = [](const std::string& text) { return text.empty() ? "-" : text; };
    const std::string line =
        join({"association", id(left.key), id(right.key), std::to_string(left.type),
              std::to_string(right.type), std::to_string(one.relation), std::to_string(one.state),
              std::to_string(one.stateChangeTime), orDash(one.description), orDash(one.extraInfo)});
    lines_.containers[id(left.key)].insert(line);
    lines_.containers[id(right.key)].insert(line);
  }

  GroupLines lines_;
};

/// What the library reads. A failure is one more line, under the name of the kind.
class ReadGroups {
 public:
  explicit ReadGroups(ZNTopoAPI& api) : api_(api) {
    readVlans();
    readSubnets();
    readHsrpGroups();
    readContainers();
  }
  const GroupLines& lines() const { return lines_; }

 private:
  void noteFailure(Lines& lines, const std::string& kind) const {
    if (!status_.isOK()) lines[kind].insert("failure " + status_.getAuxMsg());
  }

  void readVlans() {
    const auto vlans = api_.getVlansByObjIDList({}, notFound_, status_, true, -1);
    noteFailure(lines_.vlans, "VLANs");
    for (const auto& vlan : *vlans) {
      auto& lines = lines_.vlans[vlan->getObjID().toString()];
      lines.insert("name " + vlan->getName());
      for (const UserDefVar& one : vlan->getUserVars()) {
        if (one.getName() != "VlanId") continue;
        lines.insert("number " + std::to_string(one.getValue().getLongVal()));
      }
      for (const ZNVlanInfo& info : vlan->getVlanInfoList()) {
        for (const ZNVlanIFInfo& member : info.getVlanIFInfoList()) {
          lines.insert(
              join({"member", info.getNodeObjID().toString(), member.getIFObjID().toString()}));
        }
      }
    }
  }

  void readSubnets() {
    const auto subnets =
        api_.getSubnetsByObjIDList({}, status_, false, true, ZNEntity::AllProtocol, -1);
    noteFailure(lines_.subnets, "subnets");
    for (const auto& subnet : *subnets) {
      auto& lines = lines_.subnets[subnet->getObjID().toString()];
      lines.insert("name " + subnet->getName());
      lines.insert("level " + std::to_string(subnet->getIPLevel()));
      for (const SubnetEndPoint& end : subnet->getSubnetEndPointList()) {
        lines.insert(join({"end", end.getNodeObjID().toString(), end.getIFObjID().toString(),
                           end.getAddressID().toString()}));
      }
    }
  }

  void readHsrpGroups() {
    const auto groups = api_.getHSRPsByObjIDList({}, notFound_, status_, true, -1);
    noteFailure(lines_.hsrpGroups, "HSRP groups");
    for (const auto& group : *groups) {
      auto& lines = lines_.hsrpGroups[group->getObjID().toString()];
      lines.insert("name " + group->getName());
      for (const ZNHSRPAddressInfo& member : group->getHSRPAddrInfoList()) {
        std::vector<std::string> parts = {"member",
                                          member.getIFObjID().toString(),
                                          member.getAddressID().toString(),
                                          std::to_string(member.getHSRPNumber()),
                                          std::to_string(member.getHSRPState()),
                                          std::to_string(member.getHSRPPriority()),
                                          std::to_string(member.getHSRPStateCertainty())};
        for (const TrackInterfaceInfo& track : member.getTrackInterfaceInfoList()) {
          parts.push_back("track " + track.ifObjID.toString() + " " +
                          std::to_string(track.ifPriority));
        }
        lines.insert(join(parts));
      }
    }
  }

  void readContainers() {
    const auto containers = api_.getIfcsByObjIDList({}, notFound_, status_, true, -1);
    noteFailure(lines_.containers, "containers");
    for (const auto& container : *containers) {
      auto& lines = lines_.containers[container->getObjID().toString()];
      lines.insert("name " + container->getName());
      lines.insert(join({"is", std::to_string(container->getIfcType()),
                         std::to_string(container->getAppsId()),
                         container->isOrdered() ? "ordered" : "unordered"}));
      std::vector<std::string> parts = {"members"};
      // A member that was read shows its containment type as its type.
      const auto members = container->getAllIfcIFInfosByOrder();
      for (const ZNIfcIFInfo& member : *members) {
        parts.push_back(std::to_string(member.getSeqNum()) + " " +
                        member.getInterfaceObjId().toString() + " " +
                        std::to_string(member.getIfcType()));
      }
      lines.insert(join(parts));
      for (const auto& one : container->getAllIfcAssocInfos()) readAssociation(*one, lines);
    }
  }

  static void readAssociation(const ZNIfcAssocInfo& one, std::set<std::string>& lines) {
    lines.insert(join({"association", one.getLeftIfcId().toString(), one.getRightIfcId().toString(),
                       std::to_string(one.getLeftIfcType()), std::to_string(one.getRightIfcType()),
                       std::to_string(one.getIfcRelationType()),
                       std::to_string(one.getAssocState()), std::to_string(one.getAssocStateTime()),
                       one.getAssocDescription(), one.getAssocExtraInfo()}));
  }

  ZNTopoAPI& api_;
  ZNTopoAPIStatus status_;
  std::set<ObjID> notFound_;
  GroupLines lines_;
};

}  // namespace zntopo::test
