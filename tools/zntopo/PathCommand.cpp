#include <vector>

#include "tools/zntopo/Commands.h"
#include "tools/zntopo/Names.h"
#include "tools/zntopo/Paths.h"
#include "tools/zntopo/TextTable.h"

namespace zntopo::tools {

namespace {

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

void path(const Context& context, const PathQuestion& question, Answer& answer) {
  Session session(context);
  const ZNTopoAPI::OwnedInterfaceList found = findPath(session, question, answer);
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

void addOptions(CLI::App& command, PathQuestion& question) {
  addNodeArgument(command, "A", question.from);
  addNodeArgument(command, "B", question.to);
  addPathOptions(command, question);
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
