#pragma once

#include <string>

#include "tools/zntopo/Commands.h"
#include "tools/zntopo/Lookup.h"

namespace zntopo::tools {

/// Which path between two nodes or addresses is looked for.
struct PathQuestion {
  std::string from;
  std::string to;
  int maxHops = 20;
  bool crossRouters = false;
};

/// Adds the options "--max-hops" and "--cross-routers".
void addPathOptions(CLI::App& command, PathQuestion& question);

/// The interfaces of the path. The answer's status tells of a failure, its note of a path other
/// than the one that was asked for, or where another one may be found. Throws a Failure for a node
/// that is not there.
ZNTopoAPI::OwnedInterfaceList findPath(Session& session, const PathQuestion& question,
                                       Answer& answer);

}  // namespace zntopo::tools
