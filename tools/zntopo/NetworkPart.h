#pragma once

#include <optional>
#include <string>
#include <vector>

#include "tools/export/StoreReader.h"
#include "tools/zntopo/Paths.h"

/// @file
/// The part of a network that a subcommand exports or draws.

namespace zntopo::tools {

/// What a call asks for: everything, the neighbourhood of a node, or a path.
struct PartOptions {
  std::string node;
  int hops = 1;
  PathQuestion path;

  bool isNeighbourhood() const { return !node.empty(); }
  bool isPath() const { return !path.from.empty(); }
};

/// The options --node, --hops, --from, --to, --max-hops and --cross-routers, each with what the
/// subcommand does with a path.
void addPartOptions(CLI::App& command, PartOptions& options, const std::string& aboutPath);

/// The nodes within some hops of a node, the node itself among them, the nearest first. Of more
/// than maxNodes nodes the status is ZN_API_INCOMPLETE_NEIGHBOR_INFO, and some of them are left
/// out.
std::vector<ObjID> neighbourhood(Session& session, const std::string& node, int hops, int maxNodes,
                                 ZNTopoAPIStatus& status);

/// The interfaces of the path that is asked for. Throws a Failure without one.
std::vector<ZNRefPtr<ZNInterface>> requirePath(Session& session, const PathQuestion& question,
                                               Answer& answer);
/// The nodes of a path, each once.
std::vector<ObjID> nodesOf(const std::vector<ZNRefPtr<ZNInterface>>& path);

}  // namespace zntopo::tools
