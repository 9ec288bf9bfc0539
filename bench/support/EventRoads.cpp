#include "bench/support/EventRoads.h"

#include <mosquitto.h>

#include <condition_variable>
#include <cstdlib>
#include <deque>
#include <mutex>
#include <stdexcept>

#include "bench/support/WarmCache.h"
#include "zntopo/api/ZNTopoAPI.h"
#include "zntopo/api/ZNTopoAPI_Impl.h"
#include "zntopo/notify/SessionManagementNotification.h"
#include "zntopo/notify/TopoNotificationClientFactory.h"
#include "zntopo/notify/TopologyAttrChangeNotification.h"
#include "zntopo/platform/tvsnmp/detail/BrokerName.h"
#include "zntopo/platform/tvutil/TvUtil.h"

namespace zntopo::bench {

namespace {

constexpr int kSnmpStatusType = 6;

[[noreturn]] void fail(const std::string& what) { throw std::runtime_error(what); }

void require(const ZNTopoAPIStatus& status) {
  if (!status.isOK()) fail(status.getStatusMsg() + " " + status.getAuxMsg());
}

ObjID someNode() { return ObjID(shuffledNodeIDs().front()); }

/// A state that is another one each time.
SnmpState nextState() {
  static unsigned count = 0;
  return ++count % 2 == 0 ? RESPONDING : UNREACHABLE;
}

/// The events of this process, which has one session.
TopologyNotificationClient& consumer() {
  static const auto& client = *new ZNRefPtr<TopologyNotificationClient>([] {
    auto* const factory = TopoNotificationClientFactory::instance();
    ZNTopoAPIStatus status;
    auto made = factory->createNotificationClient(ALL, status);
    require(status);
    require(factory->receiveNotification());
    return made;
  }());
  return *client;
}

/// Takes from the library.
class LibraryRoad : public EventRoad {
 public:
  LibraryRoad() { consumer(); }
  void take() override {
    const auto notification = consumer().getNextNotification();
    if (notification->getTopologyNotificationType() == SessionManagementNotif) {
      fail("the session is lost");
    }
  }
};

class SetterRoad : public LibraryRoad {
 public:
  SetterRoad() {
    ZNTopoAPIStatus status;
    node_ = ZNTopoAPI().getNodeByObjID(someNode(), status);
    require(status);
  }
  void send() override { require(node_->setSnmpState(nextState(), true)); }

 private:
  ZNRefPtr<ZNNode> node_;
};

class SenderRoad : public LibraryRoad {
 public:
  void send() override {
    require(consumer().sendNotification(new TopologyAttrChangeNotification(
        E_Node, AttributeChangeNotif, node_, Snmp_State, E_Integer, nextState(), "", ObjID(), 0)));
  }

 private:
  const ObjID node_ = someNode();
};

class StoreRoad : public EventRoad {
 public:
  void send() override { require(impl_.setNWNodeStatus(node_, nextState(), kSnmpStatusType)); }
  void take() override {}

 private:
  ZNTopoAPI_Impl impl_;
  const ObjID node_ = someNode();
};

/// Counts what has come.
class Arrivals {
 public:
  void add() {
    const std::lock_guard hold(mutex_);
    ++count_;
    changed_.notify_one();
  }
  void take() {
    std::unique_lock hold(mutex_);
    changed_.wait(hold, [this] { return count_ > 0; });
    --count_;
  }

 private:
  std::mutex mutex_;
  std::condition_variable changed_;
  int count_ = 0;
};

std::string sampleBytes() {
  std::string bytes;
  if (tvsnmp::encode(sampleEvent(), bytes) != tvsnmp::EventError::None) fail("no event");
  return bytes;
}

void check(int result) {
  if (result != MOSQ_ERR_SUCCESS) fail(mosquitto_strerror(result));
}

/// The client library with a thread of its own, set up as the platform's sessions are: as many
/// messages on their way, and none that waits for the packet before it.
class BareBrokerRoad : public EventRoad {
 public:
  BareBrokerRoad() {
    mosquitto_lib_init();
    client_ = mosquitto_new(nullptr, true, this);
    if (client_ == nullptr) fail("no client of the broker");
    mosquitto_max_inflight_messages_set(client_, kInFlight);
    mosquitto_int_option(client_, MOSQ_OPT_TCP_NODELAY, 1);
    mosquitto_subscribe_callback_set(
        client_, [](mosquitto*, void* road, int, int, const int*) { of(road).subscribed_.add(); });
    mosquitto_message_callback_set(client_, [](mosquitto*, void* road, const mosquitto_message*) {
      of(road).arrivals_.add();
    });
    const auto broker = tvsnmp::parseBrokerName(std::getenv("TV_EVENT_BROKER"));
    if (!broker) fail("TV_EVENT_BROKER is not understood");
    check(mosquitto_connect(client_, broker->host.c_str(), broker->port, kKeepalive));
    check(mosquitto_loop_start(client_));
    check(mosquitto_subscribe(client_, nullptr, kTopic, kQos));
    subscribed_.take();
  }
  ~BareBrokerRoad() override {
    mosquitto_disconnect(client_);
    mosquitto_loop_stop(client_, false);
    mosquitto_destroy(client_);
  }

  void send() override {
    check(mosquitto_publish(client_, nullptr, kTopic, static_cast<int>(bytes_.size()),
                            bytes_.data(), kQos, false));
  }
  void take() override { arrivals_.take(); }

 private:
  static constexpr const char* kTopic = "bench/event";
  static constexpr int kQos = 1;
  static constexpr int kInFlight = 200;
  static constexpr int kKeepalive = 60;

  static BareBrokerRoad& of(void* road) { return *static_cast<BareBrokerRoad*>(road); }

  const std::string bytes_ = sampleBytes();
  mosquitto* client_ = nullptr;
  Arrivals subscribed_;
  Arrivals arrivals_;
};

/// A queue of texts.
class BareQueueRoad : public EventRoad {
 public:
  void send() override {
    const std::lock_guard hold(mutex_);
    waiting_.push_back(bytes_);
    changed_.notify_one();
  }
  void take() override {
    std::unique_lock hold(mutex_);
    changed_.wait(hold, [this] { return !waiting_.empty(); });
    waiting_.pop_front();
  }

 private:
  const std::string bytes_ = sampleBytes();
  std::mutex mutex_;
  std::condition_variable changed_;
  std::deque<std::string> waiting_;
};

tvsnmp::EventVariable variable(const TVsnmpArc* name, const std::string& text) {
  return {{name, name + marloAttributesLen}, tvsnmp::kTextType, 0, text};
}
tvsnmp::EventVariable variable(long number) {
  return {{marloDataId, marloDataId + marloAttributesLen}, tvsnmp::kIntegerType, number, ""};
}

}  // namespace

bool hasBroker() {
  const char* const broker = std::getenv("TV_EVENT_BROKER");
  return broker != nullptr && *broker != '\0';
}

std::unique_ptr<EventRoad> makeSetterRoad() { return std::make_unique<SetterRoad>(); }
std::unique_ptr<EventRoad> makeSenderRoad() { return std::make_unique<SenderRoad>(); }
std::unique_ptr<EventRoad> makeStoreRoad() { return std::make_unique<StoreRoad>(); }

std::unique_ptr<EventRoad> makeBareRoad() {
  if (hasBroker()) return std::make_unique<BareBrokerRoad>();
  return std::make_unique<BareQueueRoad>();
}

tvsnmp::Event sampleEvent() {
  const std::string id = shuffledNodeIDs().front();
  return {
      60001102,
      {variable(marloSourceNameId, ""), variable(marloTVwOIDId, id), variable(marloDataId, "marlo"),
       variable(E_Node), variable(Snmp_State), variable(E_Integer), variable(UNREACHABLE),
       variable(marloDataId, ""), variable(marloTVwOIDId, ""), variable(0)}};
}

}  // namespace zntopo::bench
