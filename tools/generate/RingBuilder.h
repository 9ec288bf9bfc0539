#pragma once

#include "tools/generate/CampusPlan.h"
#include "tools/network/NetworkModel.h"

namespace zntopo::tools {

/// The number of parts that a ring comes in. Throws PlanError if the plan can't be met.
int ringParts(const CampusPlan& plan);

/// One part: each node is wired to the next, the last of all to the first.
NetworkModel buildRingPart(const CampusPlan& plan, int part);

}  // namespace zntopo::tools
