// Events: how many a second go from a setter to the consumer, and how long each takes, against the
// broker and its client library alone, or against a queue where there is no broker; and what it
// costs to make the bytes of one and to read them.

// The encoding library's own headers, in the order that it asks for.
#include <net-snmp/net-snmp-config.h>
// clang-format off
#include <net-snmp/net-snmp-includes.h>
// clang-format on

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <map>
#include <memory>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "bench/Subjects.h"
#include "bench/support/EventRoads.h"
#include "zntopo/notify/TopologyNotificationFactory.h"

namespace zntopo::bench {

namespace {

using Clock = std::chrono::steady_clock;
using Seconds = std::chrono::duration<double>;
using MakeRoad = std::unique_ptr<EventRoad> (*)();

/// Lets a benchmark say what went wrong.
template <typename Body>
void guarded(benchmark::State& state, const Body& body) {
  try {
    body();
  } catch (const std::exception& failure) {
    state.SkipWithError(failure.what());
  }
}

// ---- the rate ----------------------------------------------------------------------------------

constexpr int kBatch = 1000;
constexpr int kBatches = 10;

/// The time of one change among a thousand that are sent one by one and then taken.
void flow(benchmark::State& state, MakeRoad make) {
  guarded(state, [&] {
    const auto road = make();
    for (auto _ : state) {
      const auto start = Clock::now();
      for (int i = 0; i < kBatch; ++i) road->send();
      for (int i = 0; i < kBatch; ++i) road->take();
      state.SetIterationTime(Seconds(Clock::now() - start).count() / kBatch);
    }
  });
}

// ---- the latency -------------------------------------------------------------------------------

constexpr int kEvents = 1000;
constexpr auto kPace = std::chrono::milliseconds(2);

/// How long each of so many changes took, at a steady pace, in order of length.
std::vector<double> latencies(EventRoad& road) {
  std::vector<Clock::time_point> sent(kEvents);
  std::vector<Clock::time_point> taken(kEvents);
  std::thread taking([&] {
    for (auto& time : taken) {
      road.take();
      time = Clock::now();
    }
  });
  const auto start = Clock::now();
  for (int i = 0; i < kEvents; ++i) {
    std::this_thread::sleep_until(start + i * kPace);
    sent[i] = Clock::now();
    road.send();
  }
  taking.join();
  std::vector<double> result;
  for (int i = 0; i < kEvents; ++i) result.push_back(Seconds(taken[i] - sent[i]).count());
  std::sort(result.begin(), result.end());
  return result;
}

/// The measurement of a road with this number. All percentiles are read off the same ones.
const std::vector<double>& measurement(MakeRoad make, std::size_t number) {
  static std::map<MakeRoad, std::vector<std::vector<double>>> all;
  std::vector<std::vector<double>>& ofRoad = all[make];
  while (ofRoad.size() <= number) ofRoad.push_back(latencies(*make()));
  return ofRoad[number];
}

/// The latency that so many of a hundred changes do not exceed.
void latency(benchmark::State& state, MakeRoad make, int percent) {
  static std::map<std::pair<MakeRoad, int>, std::size_t> taken;
  guarded(state, [&] {
    const std::size_t last = static_cast<std::size_t>(kEvents * percent / 100) - 1;
    for (auto _ : state) {
      state.SetIterationTime(measurement(make, taken[{make, percent}]++)[last]);
    }
  });
}

// ---- the bytes ---------------------------------------------------------------------------------

void encodeLibrary(benchmark::State& state) {
  const tvsnmp::Event event = sampleEvent();
  std::string bytes;
  for (auto _ : state) {
    if (tvsnmp::encode(event, bytes) != tvsnmp::EventError::None) state.SkipWithError("no bytes");
  }
}

/// A PDU of the encoding library with the variables of an event.
netsnmp_pdu* plainPdu(const tvsnmp::Event& event) {
  netsnmp_pdu* const pdu = snmp_pdu_create(SNMP_MSG_TRAP2);
  for (const tvsnmp::EventVariable& variable : event.variables) {
    const bool isText = variable.type == tvsnmp::kTextType;
    const void* const value =
        isText ? static_cast<const void*>(variable.text.data()) : &variable.integer;
    snmp_pdu_add_variable(pdu, variable.name.data(), variable.name.size(), variable.type, value,
                          isText ? variable.text.size() : sizeof variable.integer);
  }
  return pdu;
}

/// Without the two variables in front.
void encodeFloor(benchmark::State& state) {
  const tvsnmp::Event event = sampleEvent();
  std::vector<u_char> bytes(tvsnmp::kMostBytesOfEvent);
  for (auto _ : state) {
    netsnmp_pdu* const pdu = plainPdu(event);
    std::size_t left = bytes.size();
    if (snmp_pdu_build(pdu, bytes.data(), &left) == nullptr) state.SkipWithError("no bytes");
    snmp_free_pdu(pdu);
  }
}

std::string bytesOfSample(benchmark::State& state) {
  std::string bytes;
  if (tvsnmp::encode(sampleEvent(), bytes) != tvsnmp::EventError::None) {
    state.SkipWithError("no bytes");
  }
  return bytes;
}

void decodeLibrary(benchmark::State& state) {
  const std::string bytes = bytesOfSample(state);
  for (auto _ : state) {
    SNMPPdu* const pdu = tvsnmp::decode(bytes);
    const auto notification = TopologyNotificationFactory::createNotification(pdu);
    if (notification.isNull()) state.SkipWithError("no notification");
    TVsnmpFreePdu(pdu);
  }
}

void decodeFloor(benchmark::State& state) {
  const std::string bytes = bytesOfSample(state);
  std::vector<u_char> changeable(bytes.size());
  for (auto _ : state) {
    std::copy(bytes.begin(), bytes.end(), changeable.begin());
    netsnmp_pdu* const pdu = snmp_pdu_create(0);
    std::size_t left = changeable.size();
    if (snmp_pdu_parse(pdu, changeable.data(), &left) != 0) state.SkipWithError("no event");
    snmp_free_pdu(pdu);
  }
}

// ------------------------------------------------------------------------------------------------

void registerFlow(const std::string& name, MakeRoad make) {
  benchmark::RegisterBenchmark(name.c_str(), flow, make)->UseManualTime()->Iterations(kBatches);
}

void registerLatency(const std::string& name, MakeRoad make, int percent) {
  benchmark::RegisterBenchmark(name.c_str(), latency, make, percent)
      ->UseManualTime()
      ->Iterations(1);
}

}  // namespace

void registerEvents(const Setting& setting) {
  if (setting.shape != Setting::Shape::Campus || setting.userVariables) return;
  const std::string carrier = hasBroker() ? "Broker" : "Loop";
  registerFlow(carrier + "SetterToConsumer/library", makeSetterRoad);
  registerFlow(carrier + "SetterToConsumer/the write alone", makeStoreRoad);
  registerFlow(carrier + "SetterToConsumer/floor", makeBareRoad);
  registerFlow(carrier + "SenderToConsumer/library", makeSenderRoad);
  registerFlow(carrier + "SenderToConsumer/floor", makeBareRoad);
  for (const int percent : {50, 99, 100}) {
    const std::string name = carrier + "Latency" + std::to_string(percent);
    registerLatency(name + "/library", makeSetterRoad, percent);
    registerLatency(name + "/without the store", makeSenderRoad, percent);
    registerLatency(name + "/floor", makeBareRoad, percent);
  }
  if (hasBroker()) return;
  benchmark::RegisterBenchmark("EncodeEvent/library", encodeLibrary);
  benchmark::RegisterBenchmark("EncodeEvent/floor", encodeFloor);
  benchmark::RegisterBenchmark("DecodeEvent/library", decodeLibrary);
  benchmark::RegisterBenchmark("DecodeEvent/floor", decodeFloor);
}

}  // namespace zntopo::bench
