#pragma once

#include <condition_variable>
#include <cstddef>
#include <deque>
#include <mutex>
#include <string>
#include <string_view>
#include <thread>

#include "zntopo/platform/tvsnmp/detail/EventError.h"

namespace tvsnmp {

/// The way of received events from whoever takes them off the broker to the receiver: a queue that
/// never blocks the one side, and a thread that feeds the socket on which the other waits.
///
/// append() and fail() may be called by any thread at any time before the destructor.
class EventPipe {
 public:
  /// What may wait in the queue, in bytes with what holds them: some 400,000 events.
  static constexpr std::size_t kMostBytes = std::size_t{128} << 20;

  explicit EventPipe(std::size_t mostBytes = kMostBytes) : mostBytes_(mostBytes) {}
  ~EventPipe();
  EventPipe(const EventPipe&) = delete;
  EventPipe& operator=(const EventPipe&) = delete;

  /// Makes the socket, and the thread if events are to come; false if the system has none left.
  bool open(bool hasEvents);
  /// The receiver's end.
  int descriptor() const { return ends_[0]; }

  /// Appends an event. The event for which there is no room ends the pipe as fail() does.
  void append(std::string_view event);
  /// Ends the pipe: what was appended before is received, and behind it the error. The first error
  /// counts.
  void fail(EventError error);
  /// Waits for the next event; an error with which the pipe has ended.
  EventError receive(std::string& event);

 private:
  void forward();
  bool take(std::string& event);
  void shut();

  const std::size_t mostBytes_;
  int ends_[2] = {-1, -1};
  std::thread forwarder_;

  std::mutex mutex_;  // guards what follows
  std::condition_variable changed_;
  std::deque<std::string> waiting_;
  std::size_t bytes_ = 0;
  EventError error_ = EventError::None;
};

}  // namespace tvsnmp
