#pragma once

#include <mutex>

struct SNMPSession;

namespace zntopo {

class TopologySession;

namespace detail {

/// The platform's session of a TopologySession, which its receiving threads hold, too: closed once,
/// by whoever comes first. Its mutex is taken behind the guard of the event sessions, if that is
/// taken.
class EventChannel {
 public:
  /// Takes a session over; null if it could not be opened.
  explicit EventChannel(SNMPSession* session) : session_(session) {}
  ~EventChannel() { close(); }
  EventChannel(const EventChannel&) = delete;
  EventChannel& operator=(const EventChannel&) = delete;

  /// Gives the session, or null if it is closed or was never open, to a function. It is not closed
  /// meanwhile.
  template <typename Use>
  auto use(const Use& function) {
    const std::lock_guard hold(mutex_);
    return function(session_);
  }
  /// Waits for a bounded time until all is sent. Wakes the receivers.
  void close();
  /// A descriptor of the caller's own that is readable when the session has an event or has ended;
  /// negative if there is none.
  int duplicateDescriptor();

 private:
  std::mutex mutex_;
  SNMPSession* session_;
};

EventChannel& channelOf(const TopologySession& session);

}  // namespace detail
}  // namespace zntopo
