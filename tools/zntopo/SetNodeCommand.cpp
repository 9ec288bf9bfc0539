#include "tools/zntopo/Commands.h"
#include "tools/zntopo/StateChange.h"

namespace zntopo::tools {

namespace {

struct SetNodeOptions {
  std::string node;
  std::optional<int> status;
  std::optional<int> snmp;
};

void addOptions(CLI::App& command, SetNodeOptions& options) {
  addNodeArgument(command, "NODE", options.node);
  requireOneOf(command, {addNamedOption(command, "--status", options.status, kStatusNames, "STATUS",
                                        "The overall status of the node; of an IPv6 node its "
                                        "IPv6 status"),
                         addNamedOption(command, "--snmp", options.snmp, kAnswerNames, "STATE",
                                        "How the node answers SNMP")});
}

/// An IPv6 node shows its IPv6 status.
bool isV6(const ZNNode& node) { return node.getIPLevel() == ZNEntity::IPv6; }

void setNode(const Context& context, const SetNodeOptions& options, Answer& answer) {
  Session session(context, Session::Load::NodesAlone);
  requireReady(session);
  const ZNRefPtr<ZNNode> node = findNode(session, options.node).node;
  const NamedObject object = namedNode(session, node->getObjID());
  const Condition row = isIdentified(object.id);
  std::vector<StateChange> changes;
  if (options.status) {
    const ObjectStatus status(*options.status);
    changes.push_back({.object = object,
                       .states = {{isV6(*node) ? kNodeV6Status : kNodeStatus,
                                   node->getOverallStatus().getStatusAsInt(), *options.status}},
                       .rows = row,
                       .set =
                           [node, status] {
                             return isV6(*node) ? node->setV6OverallStatus(status, 0, true)
                                                : node->setOverallStatus(status, 0, true, ActiveDB);
                           },
                       .skipsTheSame = true,
                       .eventFailure = ZN_API_STATUS_NOTIF_GEN_ERROR});
  }
  if (options.snmp) {
    const auto state = static_cast<SnmpState>(*options.snmp);
    changes.push_back({.object = object,
                       .states = {{kSnmpState, node->getSnmpState(), *options.snmp}},
                       .rows = row,
                       .set = [node, state] { return node->setSnmpState(state, true); }});
  }
  change(session, changes, answer);
}

}  // namespace

constinit const Command kSetNodeCommand = {
    .name = "set node",
    .about = "Change the status of a node, or how it answers SNMP.",
    .examples =
        "  zntopo set node core-1 --status major\n"
        "  zntopo set node core-1 --status normal --snmp responding --json",
    .empty = kNoChanges,
    .prepare = prepare<addOptions, setNode>,
};

}  // namespace zntopo::tools
