#pragma once

#include <memory>

#include "zntopo/platform/tvsnmp/TvSnmp.h"
#include "zntopo/platform/tvsnmp/detail/Channel.h"
#include "zntopo/platform/tvsnmp/detail/EventPdu.h"
#include "zntopo/platform/tvsnmp/detail/EventPipe.h"

namespace tvsnmp {

/// A session with its parts. The channel ends before the pipe that it fills.
struct Session : SNMPSession {
  Session() : SNMPSession{} {}
  EventPipe pipe;
  std::unique_ptr<Channel> channel;
};

/// Sends an event on a session, which may be null, and returns without waiting for the broker.
EventError sendEvent(SNMPSession* session, const Event& event);

}  // namespace tvsnmp
