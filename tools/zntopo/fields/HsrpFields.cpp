#include "tools/zntopo/fields/HsrpFields.h"

#include "tools/zntopo/fields/EntityFields.h"

namespace zntopo::tools {

namespace {

std::size_t activeMembers(const ZNHSRP& group) { return group.getActiveAddressInfoList().size(); }

Json fault(const HsrpDetails& details) {
  if (!isFaulty(*details.object)) return nullptr;
  return activeMembers(*details.object) == 0 ? "no_active_member" : "several_active_members";
}

std::string faultText(const HsrpDetails& details) {
  if (!isFaulty(*details.object)) return valueText(nullptr);
  const std::size_t active = activeMembers(*details.object);
  return active == 0 ? "no active member" : std::to_string(active) + " active members";
}

/// The members in some of the states, as "core-1 Vlan10".
template <typename Wanted>
Json membersThat(const HsrpDetails& details, const Wanted& isWanted) {
  Json result = Json::array();
  for (const HsrpMember& one : details.members) {
    const std::string label = one.end.node + " " + one.end.interface;
    if (!isWanted(one.info.getHSRPState())) continue;
    const bool isNamed = one.info.getHSRPState() == ZNHSRPAddressInfo::Active ||
                         one.info.getHSRPState() == ZNHSRPAddressInfo::StandBy;
    result.push_back(isNamed ? label : label + " (" + one.info.getHSRPStateAsString() + ")");
  }
  return result;
}

template <ZNHSRPAddressInfo::HSRPState state>
Json membersIn(const HsrpDetails& details) {
  return membersThat(details, [](auto one) { return one == state; });
}

Json otherMembers(const HsrpDetails& details) {
  return membersThat(details, [](auto one) {
    return one != ZNHSRPAddressInfo::Active && one != ZNHSRPAddressInfo::StandBy;
  });
}

constexpr Field<HsrpDetails> kOwnFields[] = {
    {.key = "number", .head = "NUMBER", .value = ofObject<&ZNHSRP::getHSRPNumber>},
    {.key = "fault", .head = "FAULT", .value = fault, .text = faultText, .isRare = true},
    {.head = "ACTIVE", .value = membersIn<ZNHSRPAddressInfo::Active>},
    {.head = "STANDBY", .value = membersIn<ZNHSRPAddressInfo::StandBy>},
    {.head = "OTHERS", .value = otherMembers, .isRare = true},
};

constexpr auto kHsrpFields =
    joined(kNameFields<HsrpDetails>, std::to_array(kOwnFields), kDescriptionFields<HsrpDetails>);

constexpr auto kTrackFields =
    joined(kEndFields<&HsrpTrack::end, HsrpTrack>,
           std::array{Field<HsrpTrack>{.key = "priority", .value = member<&HsrpTrack::priority>}});

template <auto pointer>
Json ofInfo(const HsrpMember& one) {
  return member<pointer>(one.info);
}

Json tracks(const HsrpMember& one) {
  Json result = Json::array();
  for (const HsrpTrack& track : one.tracks) {
    result.push_back(fieldsJson<HsrpTrack>(kTrackFields, track));
  }
  return result;
}

/// "Te1/0/1 (10), Te1/0/2 (10)", with the node where it is another one.
std::string tracksText(const HsrpMember& one) {
  Json result = Json::array();
  for (const HsrpTrack& track : one.tracks) {
    const bool isOwn = track.end.nodeId == one.end.nodeId || track.end.node.empty();
    result.push_back((isOwn ? "" : track.end.node + " ") + track.end.interface + " (" +
                     std::to_string(track.priority) + ")");
  }
  return valueText(result);
}

constexpr Field<HsrpMember> kOwnMemberFields[] = {
    {.key = "address", .head = "ADDRESS", .value = knownMember<&HsrpMember::address>},
    {.key = "state", .head = "STATE", .value = ofInfo<&ZNHSRPAddressInfo::getHSRPStateAsString>},
    {.key = "priority", .head = "PRIORITY", .value = ofInfo<&ZNHSRPAddressInfo::getHSRPPriority>},
    {.key = "certainty",
     .head = "CERTAINTY",
     .value = ofInfo<&ZNHSRPAddressInfo::getHSRPStateCertainty>},
    {.key = "tracks", .head = "TRACKS", .value = tracks, .text = tracksText},
};

constexpr auto kMemberFields =
    joined(kEndFields<&HsrpMember::end, HsrpMember>, std::to_array(kOwnMemberFields));

}  // namespace

bool isFaulty(const ZNHSRP& group) { return activeMembers(group) != 1; }

std::span<const Field<HsrpDetails>> hsrpFields() { return kHsrpFields; }
std::span<const Field<HsrpMember>> hsrpMemberFields() { return kMemberFields; }

}  // namespace zntopo::tools
