#pragma once

#include <cstdlib>

namespace zntopo::tools {

/// Whether TV_EVENT_BROKER names a broker; without one events stay in the process.
inline bool hasBroker() {
  const char* const broker = std::getenv("TV_EVENT_BROKER");
  return broker != nullptr && *broker != '\0';
}

}  // namespace zntopo::tools
