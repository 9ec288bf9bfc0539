#include "tools/network/RowContext.h"

namespace zntopo::tools {

namespace {

void addVlan(RowContext& context, Index index) {
  VlanModel vlan = context.model().vlans[index];
  const std::string label = "VLAN " + std::to_string(vlan.number);
  if (vlan.name.empty()) vlan.name = label;
  if (vlan.description.empty()) vlan.description = label;
  // The library knows the number of a VLAN by this variable alone.
  vlan.variables.push_back({"VlanId", vlan.number});
  context.putEntity(vlan, context.vlanId(index), E_Vlan, kIPv4Level, false);
  RowOf<NwVlan> row;
  row["ObjId"] = context.vlanId(index);
  context.put(std::move(row));
}

void addMesh(RowContext& context, const MeshModel& mesh) {
  const std::string meshId = context.id(mesh);
  context.putEntity(mesh, meshId, E_Mesh, kIPv4Level, false);
  for (const EndPoint& member : mesh.members) context.putContainment(meshId, E_Mesh, member);
}

std::string trackList(const RowContext& context, const HsrpMemberModel& member) {
  std::string result;
  for (const HsrpTrackModel& track : member.tracks) {
    result +=
        "[" + context.interfaceId(track.interface) + "," + std::to_string(track.decrement) + "]";
  }
  return result;
}

void addHsrpMember(RowContext& context, const HsrpGroupModel& group, const std::string& groupId,
                   const HsrpMemberModel& member) {
  RowOf<HsrpAddress> row;
  row["AddressID"] = context.addressId(member.interface, member.address);
  row["AddressIfObjID"] = context.interfaceId(member.interface);
  row["ObjID"] = groupId;
  row["state"] = member.state;
  row["HSRPPriority"] = member.priority;
  row["HSRPNumber"] = group.number;
  row["TrackInterfaceList"] = textCell(trackList(context, member));
  row["HSRPStateCertainty"] = member.certainty;
  context.put(std::move(row));
}

void addHsrpGroup(RowContext& context, const HsrpGroupModel& group) {
  const std::string groupId = context.id(group);
  context.putEntity(group, groupId, E_HSRP, kIPv4Level, false);
  RowOf<NwHsrp> row;
  row["ObjId"] = groupId;
  context.put(std::move(row));
  for (const HsrpMemberModel& member : group.members) {
    addHsrpMember(context, group, groupId, member);
  }
}

void addContainerMember(RowContext& context, const ContainerModel& container,
                        const std::string& containerId, const ContainerMemberModel& member) {
  RowOf<NwIfcCtm> row;
  row["ContainerObjId"] = containerId;
  row["InterfaceObjId"] = context.interfaceId(member.interface);
  row["NodeObjId"] = context.nodeId(member.interface.node);
  row["ContainmentType"] = member.containment;
  row["IFCType"] = container.type;
  row["SequenceNumber"] = member.sequence;
  context.put(std::move(row));
}

void addContainer(RowContext& context, const ContainerModel& container) {
  const std::string containerId = context.id(container);
  const RowOf<NwEntity> entity =
      context.putEntity(container, containerId, E_IfC, kIPv4Level, false);
  const auto common = [&](ColumnOf<NwEntity> column) { return entity.cells[column.index]; };
  RowOf<NwIfc> row;
  row["ObjId"] = containerId;
  row["EntityName"] = container.name;
  row["Description"] = orDash(cutText(container.description, 259));
  row["ZoneNumber"] = common("ZoneNumber");
  row["StatusChangeTimeUTC"] = common("StatusChangeTimeUTC");
  row["hasDynamicProperty"] = common("hasDynamicProperty");
  row["RouteDistinguisher"] = common("RouteDistinguisher");
  row["Status"] = common("Status");
  row["IFCType"] = container.type;
  row["isOrdered"] = container.isOrdered ? 1 : 0;
  row["AppsID"] = container.application;
  context.put(std::move(row));
  for (const ContainerMemberModel& member : container.members) {
    addContainerMember(context, container, containerId, member);
  }
}

void addAssociation(RowContext& context, const AssociationModel& association) {
  const ContainerModel& left = context.model().containers[association.left];
  const ContainerModel& right = context.model().containers[association.right];
  RowOf<NwIfcAsc> row;
  row["LeftIFContainerObjID"] = context.id(left);
  row["RightIFContainerObjID"] = context.id(right);
  row["RelType"] = association.relation;
  row["LeftIfcType"] = left.type;
  row["RightIfcType"] = right.type;
  row["State"] = association.state;
  row["StateChangeTime"] = association.stateChangeTime;
  row["Description"] = orDash(association.description);
  row["ExtraInfo"] = orDash(association.extraInfo);
  context.put(std::move(row));
}

}  // namespace

void addGroupRows(RowContext& context) {
  const NetworkModel& model = context.model();
  for (Index i = 0; i < model.vlans.size(); ++i) {
    if (!model.vlans[i].isElsewhere) addVlan(context, i);
  }
  for (const MeshModel& mesh : model.meshes) {
    if (!mesh.isElsewhere) addMesh(context, mesh);
  }
  for (const HsrpGroupModel& group : model.hsrpGroups) {
    if (!group.isElsewhere) addHsrpGroup(context, group);
  }
  for (const ContainerModel& container : model.containers) {
    if (!container.isElsewhere) addContainer(context, container);
  }
  for (const AssociationModel& one : model.associations) addAssociation(context, one);
}

void addAuditRows(RowContext& context) {
  for (const AuditModel& audit : context.model().audit) {
    RowOf<NwTopoAuditTrail> row;
    row["ActionTimeUTC"] = audit.time;
    row["ActionType"] = audit.action;
    row["ObjID"] = context.id(audit.objectId, audit.objectKey);
    row["ActionDetail"] = audit.detail;
    row["ObjectType"] = audit.objectType;
    row["ActionInfo"] = audit.info;
    context.put(std::move(row));
  }
}

}  // namespace zntopo::tools
