#include "tools/zntopo/Paths.h"

#include "tools/network/PlainText.h"

namespace zntopo::tools {

namespace {

using InterfaceList = ZNTopoAPI::OwnedInterfaceList;

InterfaceList pathBetweenNodes(Session& session, const PathQuestion& question,
                               const NamedNode& from, const NamedNode& to,
                               ZNTopoAPIStatus& status) {
  return session.api().getL2PathBetweenNodes(from.id(), to.id(), question.maxHops, status,
                                             ZNAddress::IPv4, question.crossRouters);
}

/// Between two addresses of one kind the library is asked by address, so that the path begins
/// and ends with the interfaces that own them. It finds an interface by the first of its
/// addresses of a kind only, so otherwise it is asked for the path between the nodes.
InterfaceList pathBetween(Session& session, const PathQuestion& question, const NamedNode& from,
                          const NamedNode& to, Answer& answer) {
  ZNTopoAPIStatus& status = answer.status;
  if (!from.address || !to.address || from.address->isV6() != to.address->isV6()) {
    return pathBetweenNodes(session, question, from, to, status);
  }
  const auto type = from.address->isV6() ? ZNAddress::IPv6 : ZNAddress::IPv4;
  auto path = session.api().getL2Path(from.address->text(), to.address->text(), question.maxHops,
                                      status, type, question.crossRouters);
  if (status.getStatus() != ZN_API_UNKNOWN_IP) return path;
  answer.note = "No interface has one of the addresses as its first: this is the path between " +
                printable(from.node->getName()) + " and " + printable(to.node->getName()) +
                ", which own them.";
  status.reset();
  return pathBetweenNodes(session, question, from, to, status);
}

}  // namespace

void addPathOptions(CLI::App& command, PathQuestion& question) {
  addLimit(command, "--max-hops", question.maxHops, "The most links to cross");
  command.add_flag("--cross-routers", question.crossRouters,
                   "Go through routers too (the ends may always be routers)");
}

ZNTopoAPI::OwnedInterfaceList findPath(Session& session, const PathQuestion& question,
                                       Answer& answer) {
  const NamedNode from = findNode(session, question.from);
  const NamedNode to = findNode(session, question.to);
  InterfaceList found = pathBetween(session, question, from, to, answer);
  if (answer.status.getStatus() == ZN_API_NO_PATH && !question.crossRouters) {
    answer.note = "A path through routers is looked for with --cross-routers only.";
  }
  return found;
}

}  // namespace zntopo::tools
