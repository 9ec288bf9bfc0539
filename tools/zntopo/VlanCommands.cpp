#include <limits>
#include <tuple>

#include "tools/zntopo/GroupKind.h"
#include "tools/zntopo/Names.h"
#include "tools/zntopo/fields/VlanFields.h"

namespace zntopo::tools {

namespace {

/// VLANs by their number; those without one last.
std::vector<VlanDetails> readVlans(Session& session, const std::set<ObjID>& ids) {
  auto vlans = readGroups<&ZNTopoAPI::getVlansByObjIDList, VlanDetails>(session, ids);
  sortBy(vlans, [](const VlanDetails& vlan) {
    const Json number = vlanNumber(*vlan.object);
    return std::tuple(
        number.is_number() ? number.get<long long>() : std::numeric_limits<long long>::max(),
        Natural{vlan.object->getName()}, Natural{vlan.object->getZoneNumber()});
  });
  return vlans;
}

void addMembers(Session& session, VlanDetails& vlan) {
  Identifiers interfaces;
  for (const ZNVlanInfo& info : vlan.object->getVlanInfoList()) {
    for (const ZNVlanIFInfo& one : info.getVlanIFInfoList()) interfaces.add(one.getIFObjID());
  }
  const Names names(session, interfaces);
  for (const ZNVlanInfo& info : vlan.object->getVlanInfoList()) {
    for (const ZNVlanIFInfo& one : info.getVlanIFInfoList()) {
      vlan.members.push_back({names.end(info.getNodeObjID(), one.getIFObjID()),
                              one.getBoardNumber(), one.getPortNumber()});
    }
  }
  sortBy(vlan.members, [](const VlanMember& one) { return naturalKey(one.end); });
}

void addLists(const VlanDetails& vlan, View& view) {
  view.addList("members", "interface", vlanMemberFields(), vlan.members);
}

std::vector<Condition> byNumber(const std::string& text) {
  const auto number = wholeNumber(text);
  if (!number) return {};
  return {
      {"ObjId in (select ObjID from userdefvar where VarName = 'VlanId' and "
       "((VarValType in (0, 1, 2) and IntVal = " +
           std::to_string(*number) + ") or (VarValType = 3 and StrVal = ?)))",
       {text}}};
}

constexpr GroupKind<VlanDetails> kVlans = {
    .name = {.word = "VLAN", .rows = "nwentity where EntityType = 4 and", .otherNames = byNumber},
    .argument = "A name, an identifier, a number or the beginning of a name",
    .listKey = "vlans",
    .viewKey = "vlan",
    .fields = vlanFields,
    .read = readVlans,
    .complete = addMembers,
    .addLists = addLists,
};

}  // namespace

constinit const Command kVlansCommand = {
    .name = "vlans",
    .about = "List all VLANs, by number.",
    .examples =
        "  zntopo vlans\n"
        "  zntopo vlans --json",
    .empty = R"({"vlans": []})",
    .prepare = prepare<listGroups<kVlans>>,
};

constinit const Command kVlanCommand = {
    .name = "vlan",
    .about = "Show one VLAN with the interfaces in it.",
    .examples =
        "  zntopo vlan 10\n"
        "  zntopo vlan quay --json",
    .empty = R"({"vlan": null})",
    .prepare = prepare<addGroupOptions<kVlans>, showGroup<kVlans>>,
};

}  // namespace zntopo::tools
