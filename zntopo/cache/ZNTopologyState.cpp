#include "zntopo/cache/ZNTopologyState.h"

namespace zntopo {

std::string ZNTopologyState::getStateAsString() const {
  switch (static_cast<int>(myState)) {
    case READY:
      return "READY";
    case TOPOLOGY_INTERNAL_PROCESSING:
      return "TOPOLOGY_INTERNAL_PROCESSING";
    default:
      return "UNKNOWN";
  }
}

std::string ZNTopologyState::toString() const {
  return " Topology State = " + getStateAsString() + "\n";
}

}  // namespace zntopo
