#pragma once

#include <memory>
#include <set>
#include <string>
#include <string_view>

#include "zntopo/platform/tvsnmp/detail/BrokerName.h"
#include "zntopo/platform/tvsnmp/detail/EventError.h"

namespace tvsnmp {

class EventPipe;

/// What carries the events of one session: it sends, and appends what comes to the session's pipe,
/// which outlives it. Its destructor finishes it.
class Channel {
 public:
  virtual ~Channel() = default;
  /// Never waits. May be called by several threads at once.
  virtual EventError send(unsigned event, std::string_view bytes) = 0;
  /// Ends the channel: waits for a bounded time until all is sent, and tells why some of what was
  /// to be sent is not. Nothing is sent afterwards.
  virtual EventError finish() = 0;
};

/// Which events a channel brings, and where to.
struct Subscription {
  std::set<unsigned> events;
  EventPipe* pipe;
};

/// A channel that reaches the sessions of this process alone.
std::unique_ptr<Channel> openLoop(Subscription subscription);

/// How a broker is spoken to.
struct BrokerSettings {
  BrokerName name;
  std::string client;  ///< the name of this session at the broker
  int keepalive = 10;  ///< in seconds
  // Files; empty for none.
  std::string authorities;
  std::string certificate;
  std::string key;
};

/// A channel through a broker; null with the error if there is none within 10 seconds.
std::unique_ptr<Channel> openMqtt(const BrokerSettings& settings, Subscription subscription,
                                  EventError& error);

}  // namespace tvsnmp
