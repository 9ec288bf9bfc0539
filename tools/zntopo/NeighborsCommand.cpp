#include "tools/network/PlainText.h"
#include "tools/zntopo/Commands.h"
#include "tools/zntopo/Links.h"
#include "tools/zntopo/Lookup.h"

namespace zntopo::tools {

namespace {

struct NeighborsOptions {
  std::string node;
  int hops = 1;
  int maxNodes = 1000;
};

void neighbors(const Context& context, const NeighborsOptions& options, Answer& answer) {
  Session session(context);
  const NamedNode start = findNode(session, options.node);
  const auto connections =
      session.api().getNodeNeighbors(start.id(), answer.status, options.hops, options.maxNodes);
  const Listing<NamedLink> listing = linkListing(session, *connections);
  answer.json["connections"] = listing.json();
  if (answer.status.isOK() || listing.size() > 0) {
    answer.text = listing.text() + counted(listing.size(), "link") + " within " +
                  counted(static_cast<std::size_t>(options.hops), "hop") + " of " +
                  printable(start.node->getName()) + "\n";
  }
}

void addOptions(CLI::App& command, NeighborsOptions& options) {
  addNodeArgument(command, "NODE", options.node);
  addLimit(command, "--hops", options.hops, "How far to go");
  addLimit(command, "--max-nodes", options.maxNodes,
           "Stop at so many nodes; what was found until then is shown");
}

}  // namespace

constinit const Command kNeighborsCommand = {
    .name = "neighbors",
    .about = "List the layer-2 links around a node, those among its outermost neighbours too.",
    .examples =
        "  zntopo neighbors core-1\n"
        "  zntopo neighbors core-1 --hops 2 --max-nodes 50 --json",
    .empty = R"({"connections": []})",
    .prepare = prepare<addOptions, neighbors>,
};

}  // namespace zntopo::tools
