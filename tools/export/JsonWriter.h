#pragma once

#include <ostream>

#include "tools/export/StoreReader.h"

namespace zntopo::tools {

/// Writes a network as JSON for programs that want it without the rules of a standard;
/// docs/export.md has every member. Objects refer to each other by identifier.
void writeNetworkJson(const StoredNetwork& network, std::ostream& out);

}  // namespace zntopo::tools
