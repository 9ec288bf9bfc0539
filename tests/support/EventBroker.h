#pragma once

#include <gtest/gtest.h>
#include <sys/types.h>

#include <memory>
#include <optional>
#include <string>

#include "tests/support/Scratch.h"
#include "tests/support/TestEngine.h"

/// @file
/// A broker of a test's own, and what events are carried by.

namespace zntopo::test {

/// Why there can be no broker here; empty if there can.
std::string whyBrokerIsMissing();

/// A mosquitto of its own on a free port of 127.0.0.1, for the life of this object. It ends with
/// the thread that started it, however that ends.
///
/// Throws std::runtime_error with the broker's output if it can't be started.
class EventBroker {
 public:
  /// @param configuration lines behind those that the library asks for.
  explicit EventBroker(std::string configuration = "");
  ~EventBroker();
  EventBroker(const EventBroker&) = delete;
  EventBroker& operator=(const EventBroker&) = delete;

  /// Starts the broker on its port and waits until it takes connections.
  void start();
  /// The broker is gone at once.
  void crash();
  /// It does nothing any more, with its connections open, until it is thawed.
  void freeze() const;
  void thaw() const;

  int port() const { return port_; }
  /// As TV_EVENT_BROKER names it.
  std::string name() const { return "mqtt://127.0.0.1:" + std::to_string(port_); }
  const Scratch& scratch() const { return scratch_; }

 private:
  bool tryToStart();

  std::string configuration_;
  Scratch scratch_;
  int port_ = 0;
  pid_t pid_ = -1;
};

/// What carries events: a loop inside the process, or a broker.
enum class EventMode { Loop, Broker };

/// Names the cases of a suite.
struct EventModeNames {
  std::string operator()(const testing::TestParamInfo<EventMode>& info) const {
    return info.param == EventMode::Loop ? "loop" : "broker";
  }
};

inline void PrintTo(EventMode mode, std::ostream* stream) {
  *stream << (mode == EventMode::Loop ? "loop" : "broker");
}

/// Sets what carries the events of this process.
class Carrier {
 public:
  explicit Carrier(EventMode mode);

  EventBroker& broker() { return *broker_; }

 private:
  std::optional<EventBroker> broker_;
};

/// The suites run each test in a process of its own, where the session of the process is fresh.
/// There each makes its Carrier.
class CarriedEventsTest : public testing::TestWithParam<EventMode> {
 protected:
  void SetUp() override;
};

/// Makes TV_EVENT_BROKER name a fresh broker, or nothing.
class EventModeFixture : public testing::TestWithParam<EventMode> {
 protected:
  void SetUp() override;

  std::unique_ptr<EventBroker> broker_;
};

}  // namespace zntopo::test

/// Runs the cases of a suite with each.
#define ZNTOPO_ON_EVENT_MODES(Suite)                                                       \
  INSTANTIATE_TEST_SUITE_P(                                                                \
      Modes, Suite,                                                                        \
      testing::Values(::zntopo::test::EventMode::Loop, ::zntopo::test::EventMode::Broker), \
      ::zntopo::test::EventModeNames())

/// Ends the test here if there can be no broker: skipped, or failed where engines are required.
#define ZNTOPO_NEED_BROKER()                                               \
  do {                                                                     \
    const std::string zntopoWhy = ::zntopo::test::whyBrokerIsMissing();    \
    if (!zntopoWhy.empty()) {                                              \
      if (::zntopo::test::enginesAreRequired()) GTEST_FAIL() << zntopoWhy; \
      GTEST_SKIP() << zntopoWhy;                                           \
    }                                                                      \
  } while (false)
