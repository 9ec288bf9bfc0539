#pragma once

#include <string>

#include "tools/zntopo/EventObjects.h"
#include "zntopo/notify/TopologyNotification.h"

namespace zntopo::tools {

/// A received event, as "watch" shows it.
struct EventRecord {
  /// Seconds UTC, when it was received: what events tell of their time is not read.
  long time = 0;
  /// "status", "attribute", "life-cycle" or "state".
  std::string kind;
  NamedObject object;
  /// The state that has changed, as lists call it; empty for a life cycle event.
  std::string state;
  /// What it was, where the event tells that, and what it is.
  Json was;
  Json is;
  /// Of a life cycle event.
  Json zone;
  /// Of a change of the whole topology: when discoveries began and ended, and how it is discovered.
  int discoStartTime = 0;
  int discoEndTime = 0;
  int prevDiscoEndTime = 0;
  Json discovery;
};

/// What an event tells, with names. Names from before an event that makes them doubtful are
/// forgotten.
EventRecord recordOf(const TopologyNotification& event, EventObjects& objects);

/// One line for people, and one of JSON.
std::string textLine(const EventRecord& record);
std::string jsonLine(const EventRecord& record);

}  // namespace zntopo::tools
