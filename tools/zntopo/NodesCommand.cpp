#include <utility>

#include "tools/zntopo/Commands.h"
#include "tools/zntopo/Session.h"
#include "tools/zntopo/fields/NodeFields.h"

namespace zntopo::tools {

namespace {

struct NodesOptions {
  int ipLevel = 0;
};

void addOptions(CLI::App& command, NodesOptions& options) {
  command.add_option("--ip-level", options.ipLevel, "Only nodes of this level")
      ->check(CLI::IsMember({4, 6}));
}

void nodes(const Context& context, const NodesOptions& options, Answer& answer) {
  Session session(context, Session::Load::NodesAlone);
  ZNTopoAPIStatus status;
  std::set<ObjID> notFound;
  auto list =
      session.api().getNodesByObjIDList({}, notFound, status, false, false, true,
                                        static_cast<ZNEntity::IPLevel>(options.ipLevel), -1);
  check(status);
  list->sort([](const ZNRefPtr<ZNNode>& left, const ZNRefPtr<ZNNode>& right) {
    return std::pair(left->getName(), left->getZoneNumber()) <
           std::pair(right->getName(), right->getZoneNumber());
  });
  Listing<ZNNode> listing(nodeFields());
  for (const auto& node : *list) listing.add(*node);
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
