#include <algorithm>
#include <tuple>

#include "tools/export/StoreIndex.h"
#include "tools/export/TableReader.h"
#include "tools/network/StoreRows.h"

namespace zntopo::tools {

namespace {

constexpr std::size_t kGroupsAtOnce = 500;

/// Sorts by name, and puts the places of all into the index.
template <typename Entity>
void sortAndIndex(std::vector<Entity>& entities, std::map<std::string, Index>& index) {
  std::sort(entities.begin(), entities.end(), [](const Entity& one, const Entity& other) {
    return std::tie(one.name, one.id) < std::tie(other.name, other.id);
  });
  for (Index i = 0; i < entities.size(); ++i) index[entities[i].id] = i;
}

/// Calls a reader for all objects of a kind (with no identifiers), or for the wanted ones.
template <typename Reader>
void readKind(bool isWhole, const std::set<std::string>& wanted, const Reader& reader) {
  if (isWhole) return reader(std::set<ObjID>());
  for (const std::set<ObjID>& batch : batchesOf(wanted, kGroupsAtOnce)) reader(batch);
}

}  // namespace

void GroupReader::readSubnets(const std::set<std::string>& wanted) {
  readKind(isWhole_, wanted, [&](const std::set<ObjID>& ids) { addSubnets(ids); });
  sortAndIndex(model_.subnets, index_.subnets);
  readPrefixes();
}

void GroupReader::addSubnets(const std::set<ObjID>& ids) {
  ZNTopoAPIStatus status;
  const auto subnets =
      api_.getSubnetsByObjIDList(ids, status, false, ids.empty(), ZNEntity::AllProtocol, -1);
  requireOk(status);
  for (const auto& from : *subnets) {
    SubnetModel subnet;
    fillEntity(subnet, *from);
    subnet.isV6 = from->getIPLevel() == ZNEntity::IPv6;
    model_.subnets.push_back(std::move(subnet));
  }
}

/// The library reads the own address of one subnet at a time.
void GroupReader::readPrefixes() {
  std::vector<std::string> ids;
  for (const SubnetModel& subnet : model_.subnets) ids.push_back(subnet.id);
  forEachRow<Address>(
      connection_, "ObjId", isWhole_ ? nullptr : &ids, [&](const ReadRow<Address>& row) {
        const auto known = index_.subnets.find(row.text("ObjId"));
        const auto ip = IpAddress::parse(row.text("V4Address") + row.text("V6Address"));
        if (known == index_.subnets.end() || !ip) return;
        SubnetModel& subnet = model_.subnets[known->second];
        subnet.addressId = row.text("AddressId");
        subnet.prefix = IpPrefix{*ip, row.number("PrefixLength").value_or(ip->bits())};
      });
}

void GroupReader::readVlans(const std::set<std::string>& wanted) {
  readKind(isWhole_, wanted, [&](const std::set<ObjID>& ids) { addVlans(ids); });
  sortAndIndex(model_.vlans, index_.vlans);
}

void GroupReader::addVlans(const std::set<ObjID>& ids) {
  ZNTopoAPIStatus status;
  std::set<ObjID> notFound;
  const auto vlans = api_.getVlansByObjIDList(ids, notFound, status, ids.empty(), -1);
  requireOk(status);
  for (const auto& from : *vlans) {
    VlanModel vlan;
    fillEntity(vlan, *from);
    // The number is a variable that the writing of the VLAN makes.
    std::erase_if(vlan.variables, [&](const UserVariableModel& one) {
      const auto* const number = std::get_if<int>(&one.value);
      if (one.name != "VlanId" || number == nullptr) return false;
      vlan.number = *number;
      return true;
    });
    model_.vlans.push_back(std::move(vlan));
  }
}

void GroupReader::readHsrpGroups() {
  ZNTopoAPIStatus status;
  std::set<ObjID> notFound;
  const auto groups = api_.getHSRPsByObjIDList({}, notFound, status, true, -1);
  requireOk(status);
  std::map<std::string, Index> ignored;
  for (const auto& from : *groups) {
    HsrpGroupModel group;
    fillEntity(group, *from);
    for (const ZNHSRPAddressInfo& info : from->getHSRPAddrInfoList()) addMember(info, group);
    if (isWhole_ || !group.members.empty()) model_.hsrpGroups.push_back(std::move(group));
  }
  sortAndIndex(model_.hsrpGroups, ignored);
}

void GroupReader::addMember(const ZNHSRPAddressInfo& from, HsrpGroupModel& group) const {
  const auto address = index_.addresses.find(from.getAddressID().toString());
  if (address == index_.addresses.end()) return;
  const AddressAt& at = address->second;
  HsrpMemberModel member;
  member.interface = at.interface;
  member.address = model_.at(at.interface).addresses[at.address].address;
  member.state = from.getHSRPState();
  member.priority = from.getHSRPPriority();
  member.certainty = from.getHSRPStateCertainty();
  for (const TrackInterfaceInfo& track : from.getTrackInterfaceInfoList()) {
    const auto tracked = index_.interfaces.find(track.ifObjID.toString());
    if (tracked == index_.interfaces.end()) continue;
    member.tracks.push_back({tracked->second, track.ifPriority});
  }
  group.number = from.getHSRPNumber();
  group.members.push_back(std::move(member));
}

void GroupReader::readContainers() {
  std::vector<ZNRefPtr<ZNIfcAssocInfo>> associations;
  readKind(isWhole_, isWhole_ ? std::set<std::string>() : containersOfNodes(),
           [&](const std::set<ObjID>& ids) { addContainers(ids, associations); });
  sortAndIndex(model_.containers, index_.containers);
  addAssociations(associations);
}

std::set<std::string> GroupReader::containersOfNodes() const {
  std::set<std::string> nodes, containers;
  for (const NodeModel& node : model_.nodes) nodes.insert(node.id);
  for (const std::set<ObjID>& batch : batchesOf(nodes, kGroupsAtOnce)) {
    ZNTopoAPIStatus status;
    const auto found = api_.getIfcInfosByObjIDList(batch, status, true, false, 0);
    requireOk(status);
    for (const auto& [node, infos] : *found) {
      for (const ZNIfcInfo& info : *infos) {
        for (const ZNIfcIFInfo& one : info.getAllIfcIFInfos()) {
          containers.insert(one.getIfcObjId().toString());
        }
      }
    }
  }
  return containers;
}

void GroupReader::addContainers(const std::set<ObjID>& ids,
                                std::vector<ZNRefPtr<ZNIfcAssocInfo>>& associations) {
  ZNTopoAPIStatus status;
  std::set<ObjID> notFound;
  const auto containers = api_.getIfcsByObjIDList(ids, notFound, status, ids.empty(), -1);
  requireOk(status);
  for (const auto& from : *containers) {
    ContainerModel container;
    fillEntity(container, *from);
    container.type = from->getIfcType();
    container.application = from->getAppsId();
    container.isOrdered = from->isOrdered();
    for (const ZNIfcInfo& info : from->getAllIfcInfos()) {
      for (const ZNIfcIFInfo& one : info.getAllIfcIFInfos()) {
        const auto end = index_.interfaces.find(one.getInterfaceObjId().toString());
        if (end == index_.interfaces.end()) continue;
        // Of a member that was read, the containment is what it shows as its type.
        container.members.push_back({end->second, one.getIfcType(), one.getSeqNum()});
      }
    }
    std::sort(container.members.begin(), container.members.end(),
              [](const ContainerMemberModel& one, const ContainerMemberModel& other) {
                return std::tie(one.sequence, one.interface) <
                       std::tie(other.sequence, other.interface);
              });
    const auto& told = from->getAllIfcAssocInfos();
    associations.insert(associations.end(), told.begin(), told.end());
    model_.containers.push_back(std::move(container));
  }
}

/// Each one once, though both its containers tell of it.
void GroupReader::addAssociations(const std::vector<ZNRefPtr<ZNIfcAssocInfo>>& associations) {
  std::map<std::tuple<Index, Index, int>, AssociationModel> known;
  for (const auto& from : associations) {
    const auto left = index_.containers.find(from->getLeftIfcId().toString());
    const auto right = index_.containers.find(from->getRightIfcId().toString());
    if (left == index_.containers.end() || right == index_.containers.end()) continue;
    const auto textOf = [](const std::string& text) { return text == "-" ? "" : text; };
    AssociationModel one{.left = left->second,
                         .right = right->second,
                         .relation = from->getIfcRelationType(),
                         .state = from->getAssocState(),
                         .stateChangeTime = from->getAssocStateTime(),
                         .description = textOf(from->getAssocDescription()),
                         .extraInfo = textOf(from->getAssocExtraInfo())};
    known.emplace(std::tuple(one.left, one.right, one.relation), std::move(one));
  }
  for (auto& [key, one] : known) model_.associations.push_back(std::move(one));
}

}  // namespace zntopo::tools
