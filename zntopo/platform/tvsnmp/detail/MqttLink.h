#pragma once

#include <mosquitto.h>

#include <chrono>
#include <condition_variable>
#include <deque>
#include <mutex>
#include <string_view>

#include "zntopo/platform/tvsnmp/detail/Channel.h"

namespace tvsnmp {

/// One connection to a broker and the thread that serves it. The thread shares the ownership, so
/// that a connection which nobody waits for any more may take its time to fail.
///
/// All operations may be called by several threads at once.
class MqttLink {
 public:
  /// What may wait for the broker's acknowledgement, in bytes: some 200,000 events.
  static constexpr std::size_t kMostUnacknowledged = std::size_t{64} << 20;

  explicit MqttLink(Subscription subscription) : subscription_(std::move(subscription)) {}
  ~MqttLink();
  MqttLink(const MqttLink&) = delete;
  MqttLink& operator=(const MqttLink&) = delete;

  EventError prepare(const BrokerSettings& settings);
  /// The thread's body: connects, and serves the connection until it ends.
  void serve();
  /// Waits until the broker has accepted the session and its subscriptions.
  EventError awaitReady(std::chrono::seconds patience);
  EventError send(unsigned event, std::string_view bytes);
  /// Waits until all is acknowledged, at most so long, and makes serve() end. Tells why the broker
  /// does not have all that was to be sent; None if it has.
  EventError close(std::chrono::seconds patience);
  /// Nothing is appended to the pipe from now on.
  void abandon();

 private:
  enum class Phase { Connecting, Ready, Ended };

  static MqttLink& of(void* link) { return *static_cast<MqttLink*>(link); }
  EventError secure(const BrokerSettings& settings);
  void setCallbacks();
  void connected(int answer);
  void subscribed(int count, const int* granted);
  void acknowledged(int answer);
  void received(const mosquitto_message& message);
  /// One turn of serving; other than MOSQ_ERR_SUCCESS at the connection's end.
  int turn();
  bool mayLeave();
  void end(EventError error);
  /// What an end without a word of the broker means.
  EventError reasonOf(int result);
  /// Remembers the first failure of what was to be sent.
  EventError notSent(EventError error);
  void forget(std::size_t size);
  void wake() const;

  const Subscription subscription_;
  BrokerSettings settings_;
  mosquitto* client_ = nullptr;
  int wake_ = -1;

  std::mutex mutex_;  // guards what follows
  std::condition_variable changed_;
  Phase phase_ = Phase::Connecting;
  EventError error_ = EventError::None;
  bool isAbandoned_ = false;
  bool isClosing_ = false;
  std::chrono::steady_clock::time_point leaveBy_;
  std::deque<std::size_t> unacknowledged_;  // sizes, in the order of sending
  std::size_t bytes_ = 0;
  EventError unsent_ = EventError::None;  // why not all of it got to the broker
};

}  // namespace tvsnmp
