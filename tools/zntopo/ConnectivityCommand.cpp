#include "tools/zntopo/Commands.h"
#include "tools/zntopo/Links.h"
#include "tools/zntopo/Lookup.h"

namespace zntopo::tools {

namespace {

/// Where the library stops. It does not say so.
constexpr std::size_t kMostNodes = 200;

struct ConnectivityOptions {
  std::vector<std::string> nodes;
  bool withNeighbors = false;
};

/// How many nodes the links have as their ends: what the library counts.
std::size_t endNodes(const std::list<ZNConnection>& connections) {
  std::set<std::string> ids;
  for (const ZNConnection& connection : connections) {
    ids.insert(connection.getSrcNodeObjID().toString());
    ids.insert(connection.getDestNodeObjID().toString());
  }
  return ids.size();
}

void connectivity(const Context& context, const ConnectivityOptions& options, Answer& answer) {
  Session session(context);
  std::set<ObjID> ids;
  for (const std::string& node : options.nodes) ids.insert(findNodeId(session, node));
  std::set<ObjID> notFound;
  ZNTopoAPIStatus status;
  const auto connections =
      session.api().getConnectivity(ids, notFound, status, options.withNeighbors, false);
  check(status);
  const Listing<NamedLink> listing = linkListing(session, *connections);
  answer.json["connections"] = listing.json();
  const char* const around = ids.size() == 1 ? " and its neighbours" : " and their neighbours";
  answer.text = listing.text() + counted(listing.size(), "link") + " among " +
                counted(ids.size(), "node") + (options.withNeighbors ? around : "") + "\n";
  if (endNodes(*connections) < kMostNodes) return;
  answer.status = Failure(ZN_API_INCOMPLETE_NEIGHBOR_INFO,
                          "The links so far have " + std::to_string(kMostNodes) +
                              " nodes at their ends, and there it stops: ask for fewer nodes at "
                              "once, or for \"zntopo neighbors\" with --max-nodes.")
                      .status();
}

void addOptions(CLI::App& command, ConnectivityOptions& options) {
  addNodeArguments(command, "NODE", options.nodes);
  command.add_flag("--neighbors", options.withNeighbors,
                   "The links to their neighbours too, and those among the neighbours");
}

}  // namespace

constinit const Command kConnectivityCommand = {
    .name = "connectivity",
    .about = "List the layer-2 links among nodes.",
    .examples =
        "  zntopo connectivity core-1 core-2 dist-quay\n"
        "  zntopo connectivity core-1 --neighbors --json",
    .empty = R"({"connections": []})",
    .prepare = prepare<addOptions, connectivity>,
};

}  // namespace zntopo::tools
