#include "tools/zntopo/Commands.h"
#include "tools/zntopo/Session.h"
#include "tools/zntopo/fields/EntityFields.h"
#include "tools/zntopo/fields/NodeFields.h"

namespace zntopo::tools {

namespace {

struct NodesOptions {
  int ipLevel = 0;
};

void addOptions(CLI::App& command, NodesOptions& options) {
  addIpLevelOption(command, options.ipLevel, "nodes");
}

void nodes(const Context& context, const NodesOptions& options, Answer& answer) {
  Session session(context, Session::Load::NodesAlone);
  ZNTopoAPIStatus status;
  std::set<ObjID> notFound;
  const auto list =
      session.api().getNodesByObjIDList({}, notFound, status, false, false, true,
                                        static_cast<ZNEntity::IPLevel>(options.ipLevel), -1);
  check(status);
  std::vector<ZNRefPtr<ZNNode>> nodes(list->begin(), list->end());
  sortBy(nodes, [](const ZNRefPtr<ZNNode>& node) { return naturalKey(*node); });
  Listing<ZNNode> listing(nodeFields());
  for (const auto& node : nodes) listing.add(*node);
  listing.fill(answer, "nodes", "node");
}

}  // namespace

constinit const Command kNodesCommand = {
    .name = "nodes",
    .about = "List all nodes, by name.",
    .examples =
        "  zntopo nodes\n"
        "  zntopo nodes --ip-level 6 --json",
    .empty = R"({"nodes": []})",
    .prepare = prepare<addOptions, nodes>,
};

}  // namespace zntopo::tools
