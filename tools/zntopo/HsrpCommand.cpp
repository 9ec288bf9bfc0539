#include <algorithm>
#include <tuple>

#include "tools/zntopo/GroupKind.h"
#include "tools/zntopo/Names.h"
#include "tools/zntopo/fields/EntityFields.h"
#include "tools/zntopo/fields/HsrpFields.h"

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

constexpr GroupKind<HsrpDetails> kHsrpGroups = {
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

void addOptions(CLI::App& command, GroupOptions& options) {
  addNameArgument(command, "ID", options.text, kHsrpGroups.name.word, kHsrpGroups.argument);
}

std::string faultyText(const std::vector<HsrpDetails>& groups) {
  const auto faulty = std::count_if(groups.begin(), groups.end(),
                                    [](const HsrpDetails& one) { return isFaulty(*one.object); });
  if (faulty == 0) return "";
  return ", " + std::to_string(faulty) + " without exactly one active member";
}

void hsrp(const Context& context, const GroupOptions& options, Answer& answer) {
  Session session(context, Session::Load::NodesAlone);
  const bool isOne = !options.text.empty();
  const auto groups = isOne ? std::vector{findGroup(session, kHsrpGroups, options.text)}
                            : readHsrpGroups(session, {});
  for (const HsrpDetails& group : groups) {
    answer.json["groups"].push_back(viewOf(kHsrpGroups, group).json());
  }
  answer.text = isOne
                    ? viewOf(kHsrpGroups, groups.front()).text()
                    : listingOf(kHsrpGroups, groups).text() +
                          counted(groups.size(), kHsrpGroups.name.word) + faultyText(groups) + "\n";
}

}  // namespace

constinit const Command kHsrpCommand = {
    .name = "hsrp",
    .about =
        "List all HSRP groups, or show one with its members and what they track.\n"
        "A group with no active member, or with several, is pointed out.",
    .examples =
        "  zntopo hsrp\n"
        "  zntopo hsrp quay-gateway\n"
        "  zntopo hsrp 10 --json",
    .empty = R"({"groups": []})",
    .prepare = prepare<addOptions, hsrp>,
};

}  // namespace zntopo::tools
