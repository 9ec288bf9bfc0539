#include "zntopo/model/SnmpState.h"

namespace zntopo {

SnmpState getSnmpStateFromInt(int value) { return static_cast<SnmpState>(value); }

int getSnmpStateAsInt(SnmpState state) {
  return state >= NOT_RESPONDING && state <= Disabled ? state : 0;
}

}  // namespace zntopo
