#include <utility>
#include <vector>

#include "tools/network/PlainText.h"
#include "tools/zntopo/Commands.h"
#include "tools/zntopo/Names.h"
#include "tools/zntopo/TextTable.h"

namespace zntopo::tools {

namespace {

struct PathOptions {
  std::string from;
  std::string to;
  int maxHops = 20;
  bool crossRouters = false;
};

using InterfaceList = ZNTopoAPI::OwnedInterfaceList;

InterfaceList pathBetweenNodes(Session& session, const PathOptions& options, const NamedNode& from,
                               const NamedNode& to, ZNTopoAPIStatus& status) {
  return session.api().getL2PathBetweenNodes(from.id(), to.id(), options.maxHops, status,
                                             ZNAddress::IPv4, options.crossRouters);
}

/// Between two addresses of one kind the library is asked by address, so that the path begins
/// and ends with the interfaces that own them. It finds an interface by the first of its
/// addresses of a kind only, so otherwise it is asked for the path between the nodes.
InterfaceList findPath(Session& session, const PathOptions& options, const NamedNode& from,
                       const NamedNode& to, Answer& answer) {
  ZNTopoAPIStatus& status = answer.status;
  if (!from.address || !to.address || from.address->isV6() != to.address->isV6()) {
    return pathBetweenNodes(session, options, from, to, status);
  }
  const auto type = from.address->isV6() ? ZNAddress::IPv6 : ZNAddress::IPv4;
  auto path = session.api().getL2Path(from.address->text(), to.address->text(), options.maxHops,
                                      status, type, options.crossRouters);
  if (status.getStatus() != ZN_API_UNKNOWN_IP) return path;
  answer.note = "No interface has one of the addresses as its first: this is the path between " +
                printable(from.node->getName()) + " and " + printable(to.node->getName()) +
                ", which own them.";
  status.reset();
  return pathBetweenNodes(session, options, from, to, status);
}

std::vector<LinkEnd> stepsOf(Session& session, const std::list<ZNRefPtr<ZNInterface>>& path) {
  Identifiers ids;
  for (const auto& interface : path) ids.add(interface->getObjID());
  const Names names(session, ids);
  std::vector<LinkEnd> steps;
  for (const auto& interface : path) steps.push_back(names.end(interface->getObjID()));
  return steps;
}

/// A line for each node, with the interfaces by which the path comes and goes.
std::string pathText(const std::vector<LinkEnd>& steps) {
  TextTable table({"NODE", "IN", "OUT"});
  for (std::size_t i = 0; i < steps.size();) {
    std::size_t last = i;
    while (last + 1 < steps.size() && steps[last + 1].nodeId == steps[i].nodeId) ++last;
    const bool isFirst = i == 0;
    const bool isLast = last + 1 == steps.size();
    // Within one interface nothing comes and nothing goes.
    const bool isNowhere = isFirst && isLast && steps[i].interfaceId == steps[last].interfaceId;
    const bool isStart = isNowhere || (isFirst && last == i);
    const bool isEnd = isNowhere || (isLast && last == i);
    table.add(
        {steps[i].node, isStart ? "" : steps[i].interface, isEnd ? "" : steps[last].interface});
    i = last + 1;
  }
  return table.text();
}

void path(const Context& context, const PathOptions& options, Answer& answer) {
  Session session(context);
  const NamedNode from = findNode(session, options.from);
  const NamedNode to = findNode(session, options.to);
  const InterfaceList found = findPath(session, options, from, to, answer);
  if (answer.status.getStatus() == ZN_API_NO_PATH && !options.crossRouters) {
    answer.note = "A path through routers is looked for with --cross-routers only.";
  }
  if (!answer.note.empty()) answer.json["note"] = answer.note;
  check(answer.status);
  const std::vector<LinkEnd> steps = stepsOf(session, *found);
  std::size_t hops = 0;
  for (std::size_t i = 0; i < steps.size(); ++i) {
    if (i > 0 && steps[i].nodeId != steps[i - 1].nodeId) ++hops;
    answer.json["interfaces"].push_back(fieldsJson(linkEndFields(), steps[i]));
  }
  answer.json["hops"] = hops;
  answer.text = pathText(steps) + counted(hops, "hop") + "\n";
}

void addOptions(CLI::App& command, PathOptions& options) {
  addNodeArgument(command, "A", options.from);
  addNodeArgument(command, "B", options.to);
  addLimit(command, "--max-hops", options.maxHops, "The most links to cross");
  command.add_flag("--cross-routers", options.crossRouters,
                   "Go through routers too (the ends may always be routers)");
}

}  // namespace

constinit const Command kPathCommand = {
    .name = "path",
    .about = "Show the layer-2 path between two nodes or addresses.",
    .examples =
        "  zntopo path 10.20.3.44 10.20.8.17\n"
        "  zntopo path core-1 \"harbor master pc\" --max-hops 8\n"
        "  zntopo path access-1 srv-nms --cross-routers --json",
    .empty = R"({"hops": 0, "interfaces": [], "note": null})",
    .prepare = prepare<addOptions, path>,
};

}  // namespace zntopo::tools
