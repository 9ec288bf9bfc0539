#include <optional>
#include <tuple>

#include "tools/zntopo/GroupKind.h"
#include "tools/zntopo/Names.h"
#include "tools/zntopo/fields/ContainerFields.h"
#include "tools/zntopo/fields/EntityFields.h"

namespace zntopo::tools {

namespace {

void sortByName(std::vector<ContainerDetails>& containers) {
  sortBy(containers, [](const ContainerDetails& one) { return naturalKey(*one.object); });
}

std::vector<ContainerDetails> readContainers(Session& session, const std::set<ObjID>& ids) {
  auto containers = readGroups<&ZNTopoAPI::getIfcsByObjIDList, ContainerDetails>(session, ids);
  sortByName(containers);
  return containers;
}

std::vector<ContainerDetails> readContainersOf(Session& session, int type) {
  ZNTopoAPIStatus status;
  const auto found = session.api().getIfcsByType(type, status, -1);
  check(status);
  auto containers = detailsOf<ContainerDetails>(*found);
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

constexpr GroupKind<ContainerDetails> kContainers = {
    .name = {.word = "container", .rows = "nwifc where"},
    .argument = "A name, an identifier or the beginning of a name",
    .listKey = "containers",
    .viewKey = "container",
    .fields = containerFields,
    .read = readContainers,
    .complete = complete,
    .addLists = addLists,
};

struct ContainersOptions {
  std::optional<int> type;
};

void addOptions(CLI::App& command, ContainersOptions& options) {
  command.add_option("--type", options.type, "Only containers of this type")->type_name("NUMBER");
}

void containers(const Context& context, const ContainersOptions& options, Answer& answer) {
  Session session(context, Session::Load::NodesAlone);
  const auto found =
      options.type ? readContainersOf(session, *options.type) : readContainers(session, {});
  listingOf(kContainers, found).fill(answer, kContainers.listKey, kContainers.name.word);
}

}  // namespace

constinit const Command kContainersCommand = {
    .name = "containers",
    .about = "List all interface containers, by name.",
    .examples =
        "  zntopo containers\n"
        "  zntopo containers --type 2 --json",
    .empty = R"({"containers": []})",
    .prepare = prepare<addOptions, containers>,
};

constinit const Command kContainerCommand = {
    .name = "container",
    .about = "Show one interface container with its members and its associations.",
    .examples =
        "  zntopo container site1-wan-a\n"
        "  zntopo container site1-core-trunk --json",
    .empty = R"({"container": null})",
    .prepare = prepare<addGroupOptions<kContainers>, showGroup<kContainers>>,
};

}  // namespace zntopo::tools
