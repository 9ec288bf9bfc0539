#include "tools/zntopo/HsrpGroups.h"

#include <tuple>

#include "tools/zntopo/Names.h"
#include "tools/zntopo/fields/EntityFields.h"

namespace zntopo::tools {

namespace {

/// What members refer to, of all groups together.
struct References {
  Identifiers interfaces;
  Identifiers addresses;

  explicit References(const std::vector<HsrpDetails>& groups) {
    for (const HsrpDetails& group : groups) {
      for (const ZNHSRPAddressInfo& info : group.object->getHSRPAddrInfoList()) add(info);
    }
  }

 private:
  void add(const ZNHSRPAddressInfo& info) {
    interfaces.add(info.getIFObjID());
    addresses.add(info.getAddressID());
    for (const TrackInterfaceInfo& track : info.getTrackInterfaceInfoList()) {
      interfaces.add(track.ifObjID);
    }
  }
};

/// Makes members by names.
class MemberNames {
 public:
  MemberNames(Session& session, const References& references)
      : names_(session, references.interfaces),
        addresses_(addressesById(session, references.addresses)) {}

  HsrpMember member(const ZNHSRPAddressInfo& info) const {
    const auto address = addresses_.find(info.getAddressID().toString());
    HsrpMember result{
        .info = info,
        .end = names_.end(info.getIFObjID()),
        .address = address == addresses_.end() ? "" : address->second->getAddressAsString()};
    for (const TrackInterfaceInfo& track : info.getTrackInterfaceInfoList()) {
      result.tracks.push_back({names_.end(track.ifObjID), track.ifPriority});
    }
    return result;
  }

 private:
  Names names_;
  std::map<std::string, ZNRefPtr<ZNAddress>> addresses_;
};

int rank(ZNHSRPAddressInfo::HSRPState state) {
  if (state == ZNHSRPAddressInfo::Active) return 0;
  return state == ZNHSRPAddressInfo::StandBy ? 1 : 2;
}

void addLists(const HsrpDetails& group, View& view) {
  view.addList("members", "member", hsrpMemberFields(), group.members);
}

std::vector<Condition> byNumber(const std::string& text) {
  const auto number = wholeNumber(text);
  if (!number) return {};
  return {{"ObjId in (select ObjID from hsrpaddress where HSRPNumber = " + std::to_string(*number) +
               ")",
           {}}};
}

}  // namespace

std::vector<HsrpDetails> readHsrpGroups(Session& session, const std::set<ObjID>& ids) {
  auto groups = readGroups<&ZNTopoAPI::getHSRPsByObjIDList, HsrpDetails>(session, ids);
  const MemberNames names(session, References(groups));
  for (HsrpDetails& group : groups) {
    for (const ZNHSRPAddressInfo& info : group.object->getHSRPAddrInfoList()) {
      group.members.push_back(names.member(info));
    }
    sortBy(group.members, [](const HsrpMember& one) {
      return std::tuple(rank(one.info.getHSRPState()), -one.info.getHSRPPriority(),
                        naturalKey(one.end));
    });
  }
  sortBy(groups, [](const HsrpDetails& one) { return naturalKey(*one.object); });
  return groups;
}

constinit const GroupKind<HsrpDetails> kHsrpGroups = {
    .name = {.word = "HSRP group",
             .rows = "nwentity where EntityType = 11 and",
             .otherNames = byNumber},
    .argument = "One group alone: a name, an identifier, a number or the beginning of a name",
    .listKey = "groups",
    .viewKey = "groups",
    .fields = hsrpFields,
    .read = readHsrpGroups,
    .complete = [](Session&, HsrpDetails&) {},
    .addLists = addLists,
};

}  // namespace zntopo::tools
