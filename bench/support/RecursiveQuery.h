#pragma once

#include <cstddef>
#include <string>

#include "zntopo/platform/tvdbil/TvDbil.h"

/// @file
/// The walks as recursive queries: what a program would otherwise ask the store itself. The texts
/// are the best that can be asked of both engines alike, and each row is read.

namespace zntopo::bench {

/// The number of links on a path between two nodes, 0 without one. Every link of the network is
/// followed once from each side, and the reading stops at the far node. Throws
/// std::runtime_error.
std::size_t recursivePath(TvDbil::DbConnection_t& connection, const std::string& fromNode,
                          const std::string& toNode);

/// The number of links between the nodes that are at most so many hops away. Throws
/// std::runtime_error.
std::size_t recursiveNeighbors(TvDbil::DbConnection_t& connection, const std::string& fromNode,
                               int hops);

}  // namespace zntopo::bench
