#include "tools/zntopo/NetworkPart.h"

#include <algorithm>

namespace zntopo::tools {

namespace {

void addOnce(std::vector<ObjID>& ids, const ObjID& id) {
  if (std::find(ids.begin(), ids.end(), id) == ids.end()) ids.push_back(id);
}

}  // namespace

void addPartOptions(CLI::App& command, PartOptions& options, const std::string& aboutPath) {
  auto* const node =
      addNameArgument(command, "--node", options.node, "node", "Only what is around this node")
          ->type_name("NODE");
  addLimit(command, "--hops", options.hops, "How far around it")->needs(node);
  auto* const from =
      addNameArgument(command, "--from", options.path.from, "node", aboutPath)->type_name("A");
  auto* const to =
      addNameArgument(command, "--to", options.path.to, "node", "The other end of the path")
          ->type_name("B")
          ->needs(from);
  from->needs(to);
  addPathOptions(command, options.path);
}

std::vector<ObjID> neighbourhood(Session& session, const std::string& node, int hops, int maxNodes,
                                 ZNTopoAPIStatus& status) {
  const NamedNode start = findNode(session, node);
  const auto links = session.api().getNodeNeighbors(start.id(), status, hops, maxNodes);
  if (status.getStatus() != ZN_API_INCOMPLETE_NEIGHBOR_INFO) check(status);
  std::set<std::string> known = {start.id()};
  std::vector<ObjID> ids = {start.node->getObjID()};
  for (const ZNConnection& link : *links) {
    for (const ObjID& id : {link.getSrcNodeObjID(), link.getDestNodeObjID()}) {
      if (known.insert(id.toString()).second) ids.push_back(id);
    }
  }
  return ids;
}

std::vector<ZNRefPtr<ZNInterface>> requirePath(Session& session, const PathQuestion& question,
                                               Answer& answer) {
  const auto found = findPath(session, question, answer);
  check(answer.status);
  return {found->begin(), found->end()};
}

std::vector<ObjID> nodesOf(const std::vector<ZNRefPtr<ZNInterface>>& path) {
  std::vector<ObjID> ids;
  for (const auto& interface : path) addOnce(ids, interface->getParentObjID());
  return ids;
}

}  // namespace zntopo::tools
