#pragma once

#include <string>

#include "tools/export/StoreReader.h"

/// @file
/// What people see of a node at a glance: what it is, and how it is doing.

namespace zntopo::tools {

enum class NodeKind { Router, Layer3Switch, Switch, Host };

NodeKind kindOf(const NodeTraits& traits);
/// "router", "layer-3 switch", "switch", "host".
const char* kindName(NodeKind kind);

/// "critical"; "no-status" for a number that is no state. Empty if no status is told.
std::string statusName(const EntityModel& entity);

}  // namespace zntopo::tools
