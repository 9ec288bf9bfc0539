#pragma once

#include "zntopo/platform/Export.h"

namespace zntopo {

/// How a node answers SNMP, as the column SNMPState of nwnode holds it.
enum SnmpState : int {
  RESPONDING = 0,
  NOT_RESPONDING = 1,
  UNREACHABLE = 2,
  AGENT_DOWN = 3,
  Disabled = 4
};

/// Any number is handed through unchanged.
ZNTOPO_EXPORT SnmpState getSnmpStateFromInt(int value);
/// 1 to 4 for these states, 0 for anything else.
ZNTOPO_EXPORT int getSnmpStateAsInt(SnmpState state);

}  // namespace zntopo
