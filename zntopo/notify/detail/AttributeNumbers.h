#pragma once

#include "zntopo/model/TopologyAttributeType.h"

namespace zntopo::detail {

/// The number in events of what is no enumerator: of the state of an association of containers.
inline constexpr int kNoAttribute = 999;
/// The number of that state in this library.
inline constexpr int kBehindAttributes = HSRP_Priority + 1;

inline bool isAttribute(int value) { return value >= HSRP_State && value <= HSRP_Priority; }

}  // namespace zntopo::detail
