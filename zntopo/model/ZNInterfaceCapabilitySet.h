#pragma once

#include "zntopo/model/ZNCapabilitySet.h"

namespace zntopo {

/// Chooses the capability tables of interfaces.
struct ZNTOPO_EXPORT InterfaceCapabilities;

extern template class ZNCapabilitySet<InterfaceCapabilities>;

/// What an interface can do.
using ZNInterfaceCapabilitySet = ZNCapabilitySet<InterfaceCapabilities>;

}  // namespace zntopo
