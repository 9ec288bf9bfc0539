#pragma once

#include <memory>
#include <string>

#include "zntopo/platform/tvsnmp/detail/EventPdu.h"

/// @file
/// The ways on which a change becomes known, of the library and without it.

namespace zntopo::bench {

/// A way on which changes travel, in their order. One thread may send while another takes.
///
/// Both operations throw std::runtime_error.
class EventRoad {
 public:
  EventRoad() = default;
  virtual ~EventRoad() = default;
  EventRoad(const EventRoad&) = delete;
  EventRoad& operator=(const EventRoad&) = delete;

  virtual void send() = 0;
  /// Waits until the next change has come.
  virtual void take() = 0;
};

/// True if TV_EVENT_BROKER names a broker; without one events go round inside the process.
bool hasBroker();

/// A setter of a cached node writes the store and sends; the consumer of this process takes.
std::unique_ptr<EventRoad> makeSetterRoad();
/// The same without the store.
std::unique_ptr<EventRoad> makeSenderRoad();
/// The write of that setter alone, which goes nowhere.
std::unique_ptr<EventRoad> makeStoreRoad();
/// The bytes of such an event, published at the broker and received back with its client library
/// alone; without a broker through a queue between threads.
std::unique_ptr<EventRoad> makeBareRoad();

/// The event that these setters send.
tvsnmp::Event sampleEvent();

}  // namespace zntopo::bench
