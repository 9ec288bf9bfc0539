#include "tools/export/Rfc8345Names.h"
#include "tools/export/UniqueNames.h"

namespace zntopo::tools::rfc8345 {

namespace {

template <typename Entity>
std::vector<std::string> namesOf(const std::vector<Entity>& entities,
                                 std::size_t width = kNameWidth) {
  UniqueNames unique(width);
  std::vector<std::string> names;
  for (const Entity& one : entities) names.push_back(unique.take(one.name, one.id));
  return names;
}

Json begin(const char* idName, const std::string& id, const EntityModel& from, std::size_t width) {
  Json to = {{idName, id}};
  if (!from.name.empty()) to["name"] = plainText(from.name, width);
  writeEntity(to, from);
  return to;
}

Json subnetsJson(const NetworkModel& model, const Names& names) {
  Json list;
  for (Index i = 0; i < model.subnets.size(); ++i) {
    const SubnetModel& from = model.subnets[i];
    Json to = begin("subnet-id", names.subnet(i), from, kNameWidth);
    if (from.prefix) to["prefix"] = from.prefix->text();
    writeFields(to, from, fields::kSubnet);
    if (!from.prefix) writeFields(to, from, fields::kBareSubnet);
    list.push_back(std::move(to));
  }
  return list;
}

Json meshesJson(const NetworkModel& model, const Names& names) {
  Json list;
  const std::vector<std::string> ids = namesOf(model.meshes);
  for (Index i = 0; i < model.meshes.size(); ++i) {
    Json to = begin("mesh-id", ids[i], model.meshes[i], kNameWidth);
    for (const EndPoint& end : model.meshes[i].members)
      to["member"].push_back(names.reference(end));
    list.push_back(std::move(to));
  }
  return list;
}

Json memberJson(const HsrpMemberModel& from, const Names& names) {
  Json to = names.reference(from.interface);
  to["address"] = from.address.text();
  writeFields(to, from, fields::kHsrpMember);
  for (const HsrpTrackModel& one : from.tracks) {
    Json track = names.reference(one.interface);
    writeFields(track, one, fields::kHsrpTrack);
    to["track"].push_back(std::move(track));
  }
  return to;
}

Json hsrpGroupsJson(const NetworkModel& model, const Names& names) {
  Json list;
  const std::vector<std::string> ids = namesOf(model.hsrpGroups);
  for (Index i = 0; i < model.hsrpGroups.size(); ++i) {
    const HsrpGroupModel& from = model.hsrpGroups[i];
    Json to = begin("group-id", ids[i], from, kNameWidth);
    writeFields(to, from, fields::kHsrpGroup);
    for (const HsrpMemberModel& one : from.members) to["member"].push_back(memberJson(one, names));
    list.push_back(std::move(to));
  }
  return list;
}

Json containersJson(const NetworkModel& model, const Names& names) {
  Json list;
  for (Index i = 0; i < model.containers.size(); ++i) {
    const ContainerModel& from = model.containers[i];
    Json to = begin("container-id", names.container(i), from, fields::kContainerNameWidth);
    writeFields(to, from, fields::kContainer);
    for (const ContainerMemberModel& one : from.members) {
      Json member = names.reference(one.interface);
      writeFields(member, one, fields::kContainerMember);
      to["member"].push_back(std::move(member));
    }
    list.push_back(std::move(to));
  }
  return list;
}

Json associationsJson(const NetworkModel& model, const Names& names) {
  Json list;
  for (const AssociationModel& from : model.associations) {
    Json to = {{"left-container", names.container(from.left)},
               {"right-container", names.container(from.right)}};
    // A relation is a key of the list, so it is told whatever it is.
    to["relation"] = from.relation;
    writeFields(to, from, fields::kAssociation);
    list.push_back(std::move(to));
  }
  return list;
}

Json auditJson(const NetworkModel& model) {
  Json list;
  for (const AuditModel& from : model.audit) {
    Json to = Json::object();
    writeFields(to, from, fields::kAudit);
    list.push_back(std::move(to));
  }
  return list;
}

}  // namespace

Names::Names(const NetworkModel& model)
    : nodes_(namesOf(model.nodes)),
      subnets_(namesOf(model.subnets)),
      containers_(namesOf(model.containers, fields::kContainerNameWidth)) {
  for (const NodeModel& node : model.nodes) tps_.push_back(namesOf(node.interfaces));
}

Json Names::reference(const EndPoint& end) const {
  return {{"node-ref", node(end.node)}, {"tp-ref", tp(end)}};
}

Json groupsJson(const NetworkModel& model, const Names& names) {
  Json to = Json::object();
  const auto add = [&](const char* name, Json list) {
    if (!list.empty()) to[name] = std::move(list);
  };
  add("subnet", subnetsJson(model, names));
  add("mesh", meshesJson(model, names));
  add("hsrp-group", hsrpGroupsJson(model, names));
  add("interface-container", containersJson(model, names));
  add("container-association", associationsJson(model, names));
  add("audit", auditJson(model));
  return to;
}

}  // namespace zntopo::tools::rfc8345
