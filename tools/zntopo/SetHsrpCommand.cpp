#include <algorithm>

#include "tools/zntopo/HsrpGroups.h"
#include "tools/zntopo/StateChange.h"

namespace zntopo::tools {

namespace {

struct SetHsrpOptions {
  std::string group;
  std::string member;
  std::optional<int> state;
  std::optional<int> priority;
  std::optional<int> certainty;
};

CLI::Option* addNumber(CLI::App& command, const std::string& name, std::optional<int>& value,
                       int highest, const std::string& about) {
  return command.add_option(name, value, about + ", 0 to " + std::to_string(highest))
      ->type_name("NUMBER")
      ->check(CLI::Validator(CLI::Range(0, highest), ""));
}

void addOptions(CLI::App& command, SetHsrpOptions& options) {
  addNameArgument(command, "GROUP", options.group, kHsrpGroups.name.word,
                  "A name, an identifier, a number or the beginning of a name")
      ->required();
  addNameArgument(command, "MEMBER", options.member, "member",
                  "Its node, its address or its interface, by name or identifier")
      ->required();
  requireOneOf(command,
               {addNamedOption(command, "--state", options.state, kHsrpStateNames, "STATE",
                               "The state of the member"),
                addNumber(command, "--priority", options.priority, 64000, "The member's priority"),
                addNumber(command, "--certainty", options.certainty, 100,
                          "How certain the state is, in percent")});
}

bool isCalled(const HsrpMember& member, const std::string& text) {
  const auto address = IpAddress::parse(text);
  const std::string names[] = {member.end.node,      member.end.nodeId,
                               member.end.interface, member.end.interfaceId,
                               member.address,       member.info.getAddressID().toString()};
  return std::find(std::begin(names), std::end(names), address ? address->text() : text) !=
         std::end(names);
}

HsrpMember findMember(const HsrpDetails& group, const std::string& text) {
  std::vector<HsrpMember> found;
  std::copy_if(group.members.begin(), group.members.end(), std::back_inserter(found),
               [&](const HsrpMember& one) { return isCalled(one, text); });
  if (found.size() == 1) return found.front();
  std::vector<std::string> meanings;
  for (const HsrpMember& one : found.empty() ? group.members : found) {
    meanings.push_back(one.end.node + " " + one.end.interface + " " + one.address);
  }
  throw Failure(found.empty() ? ZN_API_OBJ_NOT_EXIST : ZN_API_NONUNIQUE_NAME,
                "The HSRP group [" + group.object->getName() + "] has " +
                    (found.empty() ? "no member [" : "several members [") + text + "]." +
                    mayBeOneOf(meanings));
}

/// What the options change of a member.
std::vector<NewState> statesOf(const SetHsrpOptions& options, const ZNHSRPAddressInfo& info) {
  std::vector<NewState> states;
  if (options.state) states.push_back({kHsrpState, info.getHSRPState(), *options.state});
  if (options.priority) {
    states.push_back({kHsrpPriority, info.getHSRPPriority(), *options.priority});
  }
  if (options.certainty) {
    states.push_back({kHsrpCertainty, info.getHSRPStateCertainty(), *options.certainty});
  }
  return states;
}

/// Sets a member; what the options do not name stays.
ZNTopoAPIStatus setMember(const SetHsrpOptions& options, ZNHSRP& group, ZNHSRPAddressInfo& info) {
  const int state = options.state.value_or(info.getHSRPState());
  const int certainty = options.certainty.value_or(info.getHSRPStateCertainty());
  const int priority = options.priority.value_or(info.getHSRPPriority());
  return group.setHSRPStateAndPriority(info, ZNHSRPAddressInfo::HSRPState{state}, certainty,
                                       priority, true, ActiveDB);
}

void setHsrp(const Context& context, const SetHsrpOptions& options, Answer& answer) {
  Session session(context, Session::Load::NodesAlone);
  requireReady(session);
  const HsrpDetails group = findGroup(session, kHsrpGroups, options.group);
  ZNHSRPAddressInfo info = findMember(group, options.member).info;
  change(session,
         {{.object = namedHsrp(session, group.object->getObjID(), info.getAddressID()),
           .states = statesOf(options, info),
           .rows = {"ADDRESSID = ?", {info.getAddressID().toString()}},
           .set = [&] { return setMember(options, *group.object, info); },
           .skipsTheSame = true}},
         answer);
}

}  // namespace

constinit const Command kSetHsrpCommand = {
    .name = "set hsrp",
    .about = "Change the state, the priority or the certainty of a member of an HSRP group.",
    .examples =
        "  zntopo set hsrp gateway-office core-1 --state StandBy\n"
        "  zntopo set hsrp 30 10.20.8.3 --state Active --priority 120 --json",
    .empty = kNoChanges,
    .prepare = prepare<addOptions, setHsrp>,
};

}  // namespace zntopo::tools
