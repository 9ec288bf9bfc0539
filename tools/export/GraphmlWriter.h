#pragma once

#include <ostream>

#include "tools/export/StoreReader.h"

namespace zntopo::tools {

/// Writes a network as GraphML: nodes with their names, descriptions and ports, and an edge for
/// each link. Names, interfaces and links are what readGraphml makes of it; docs/export.md tells
/// what else other programs find in it.
void writeGraphml(const StoredNetwork& network, std::ostream& out);

}  // namespace zntopo::tools
