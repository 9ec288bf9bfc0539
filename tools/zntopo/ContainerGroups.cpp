#include "tools/zntopo/ContainerGroups.h"

#include <tuple>

#include "tools/zntopo/Names.h"
#include "tools/zntopo/fields/EntityFields.h"

namespace zntopo::tools {

namespace {

std::vector<ContainerDetails> readContainers(Session& session, const std::set<ObjID>& ids) {
  auto containers = readGroups<&ZNTopoAPI::getIfcsByObjIDList, ContainerDetails>(session, ids);
  sortByName(containers);
  return containers;
}

void addMembers(Session& session, ContainerDetails& container) {
  Identifiers interfaces;
  for (const ZNIfcInfo& info : container.object->getAllIfcInfos()) {
    for (const ZNIfcIFInfo& one : info.getAllIfcIFInfos()) interfaces.add(one.getInterfaceObjId());
  }
  const Names names(session, interfaces);
  for (const ZNIfcInfo& info : container.object->getAllIfcInfos()) {
    for (const ZNIfcIFInfo& one : info.getAllIfcIFInfos()) {
      // Of a member that was read, the containment is what it shows as its type.
      container.members.push_back({one.getSeqNum(),
                                   names.end(info.getIfcInfoObjID(), one.getInterfaceObjId()),
                                   one.getIfcType()});
    }
  }
  const bool isOrdered = container.object->isOrdered();
  sortBy(container.members, [&](const ContainerMember& one) {
    return std::tuple(isOrdered ? one.sequence : 0, naturalKey(one.end));
  });
}

void addAssociations(Session& session, ContainerDetails& container) {
  Identifiers ids;
  for (const auto& one : container.object->getAllIfcAssocInfos()) {
    ids.add(one->getLeftIfcId());
    ids.add(one->getRightIfcId());
  }
  const auto names = namesById(session, "nwifc", ids);
  const auto nameOf = [&](const ObjID& id) {
    const auto found = names.find(id.toString());
    return found == names.end() ? id.toString() : found->second;
  };
  for (const auto& one : container.object->getAllIfcAssocInfos()) {
    container.associations.push_back(
        {one, nameOf(one->getLeftIfcId()), nameOf(one->getRightIfcId())});
  }
  sortBy(container.associations, [](const ContainerAssociation& one) {
    return std::tuple(one.object->getIfcRelationType(), Natural{one.left}, Natural{one.right});
  });
}

void complete(Session& session, ContainerDetails& container) {
  addMembers(session, container);
  addAssociations(session, container);
}

void addLists(const ContainerDetails& container, View& view) {
  view.addList("members", "interface", containerMemberFields(), container.members);
  view.addList("associations", "association", containerAssociationFields(), container.associations);
}

}  // namespace

void sortByName(std::vector<ContainerDetails>& containers) {
  sortBy(containers, [](const ContainerDetails& one) { return naturalKey(*one.object); });
}

constinit const GroupKind<ContainerDetails> kContainers = {
    .name = {.word = "container", .rows = "nwifc where"},
    .argument = "A name, an identifier or the beginning of a name",
    .listKey = "containers",
    .viewKey = "container",
    .fields = containerFields,
    .read = readContainers,
    .complete = complete,
    .addLists = addLists,
};

}  // namespace zntopo::tools
