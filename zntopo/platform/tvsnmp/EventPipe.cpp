#include "zntopo/platform/tvsnmp/detail/EventPipe.h"

#include <sys/socket.h>
#include <unistd.h>

#include <cerrno>
#include <utility>

#include "zntopo/platform/tvsnmp/detail/EventPdu.h"
#include "zntopo/platform/tvsnmp/detail/QuietThread.h"

namespace tvsnmp {

namespace {

/// What an event costs in the queue.
std::size_t costOf(std::string_view event) { return event.size() + 2 * sizeof(std::string); }

}  // namespace

EventPipe::~EventPipe() {
  fail(EventError::Closed);
  // Wakes the forwarder from a socket that nobody reads.
  if (ends_[0] >= 0) shutdown(ends_[0], SHUT_RDWR);
  if (forwarder_.joinable()) forwarder_.join();
  for (const int end : ends_) {
    if (end >= 0) close(end);
  }
}

bool EventPipe::open(bool hasEvents) {
  if (socketpair(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0, ends_) != 0) return false;
  return !hasEvents || startQuietly(forwarder_, [this] { forward(); });
}

void EventPipe::append(std::string_view event) {
  const std::lock_guard hold(mutex_);
  if (error_ != EventError::None) return;
  if (bytes_ + costOf(event) > mostBytes_) {
    error_ = EventError::Overflow;
  } else {
    bytes_ += costOf(event);
    waiting_.emplace_back(event);
  }
  changed_.notify_one();
}

void EventPipe::fail(EventError error) {
  const std::lock_guard hold(mutex_);
  if (error_ != EventError::None) return;
  error_ = error;
  changed_.notify_one();
  // With a forwarder it is the one to shut the socket, behind what still waits.
  if (!forwarder_.joinable()) shut();
}

void EventPipe::shut() {
  if (ends_[1] >= 0) shutdown(ends_[1], SHUT_RDWR);
}

bool EventPipe::take(std::string& event) {
  std::unique_lock hold(mutex_);
  changed_.wait(hold, [this] { return !waiting_.empty() || error_ != EventError::None; });
  if (waiting_.empty() || error_ == EventError::Closed) return false;
  event = std::move(waiting_.front());
  waiting_.pop_front();
  bytes_ -= costOf(event);
  return true;
}

void EventPipe::forward() {
  std::string event;
  while (take(event)) {
    ssize_t sent = -1;
    do {
      sent = send(ends_[1], event.data(), event.size(), MSG_NOSIGNAL);
    } while (sent < 0 && errno == EINTR);
    if (sent < 0) {
      fail(EventError::System);
      break;
    }
  }
  shut();
}

EventError EventPipe::receive(std::string& event) {
  event.resize(kMostBytesOfEvent);
  ssize_t size = -1;
  do {
    size = recv(ends_[0], event.data(), event.size(), 0);
  } while (size < 0 && errno == EINTR);
  event.resize(size > 0 ? static_cast<std::size_t>(size) : 0);
  if (size > 0) return EventError::None;
  const std::lock_guard hold(mutex_);
  return error_ == EventError::None ? EventError::Closed : error_;
}

}  // namespace tvsnmp
