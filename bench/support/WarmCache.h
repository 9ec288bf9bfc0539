#pragma once

#include <string>
#include <vector>

#include "bench/support/Setting.h"
#include "zntopo/cache/ZNTopoConfig.h"

/// @file
/// The library as the benchmarks use it.

namespace zntopo::bench {

/// A configuration whose cache holds the whole network, its nodes with their links, containers
/// and VLANs or without.
ZNTopoConfig roomyConfig(const Setting& setting, bool withLists = true);

/// The identifiers of all nodes, in an order that is the same in each run and follows no other.
const std::vector<std::string>& shuffledNodeIDs();

/// The identifiers of all interfaces, in such an order.
const std::vector<std::string>& shuffledInterfaceIDs();

/// Puts all nodes, interfaces and addresses of the store into the cache, unless they are there.
/// Throws std::runtime_error.
void warmUp(const Setting& setting);

/// Empties the cache.
void coolDown();

/// A benchmark's complaint; empty if the library's answer is what the floor's is.
std::string differs(std::size_t library, std::size_t floor);

}  // namespace zntopo::bench
