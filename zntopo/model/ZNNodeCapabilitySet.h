#pragma once

#include "zntopo/model/ZNCapabilitySet.h"

namespace zntopo {

/// Chooses the capability tables of nodes.
struct ZNTOPO_EXPORT NodeCapabilities;

extern template class ZNCapabilitySet<NodeCapabilities>;

/// What a node can do.
using ZNNodeCapabilitySet = ZNCapabilitySet<NodeCapabilities>;

}  // namespace zntopo
