// The store or the broker fails while states are set and events of them flow.

#include <atomic>
#include <iterator>
#include <thread>

#include "tests/faults/FaultFixture.h"
#include "tests/notify/NotifySupport.h"

namespace zntopo::test {
namespace {

using Stop = PostgresServer::Stop;

/// What a test in a process of its own needs: a store, a broker, a consumer, and cached objects.
class Stage : public FallibleStore {
 public:
  explicit Stage(Engine engine) : FallibleStore(engine), carrier_(EventMode::Broker) {
    keepWhatIsAcknowledged();
    consumer_.emplace();
    ZNTopoAPI api;
    ZNTopoAPIStatus status;
    node = api.getNodeByObjID(ObjID(kAlpha), status);
    interface = api.getInterfaceByObjID(ObjID(interfaceID(1, 2)), status);
    address = api.getAddressByObjID(ObjID(addressID(1, 2)), status);
    EXPECT_FALSE(node.isNull() || interface.isNull() || address.isNull());
  }

  EventBroker& broker() { return carrier_.broker(); }
  Consumer& consumer() { return *consumer_; }

  ZNRefPtr<ZNNode> node;
  ZNRefPtr<ZNInterface> interface;
  ZNRefPtr<ZNAddress> address;

 private:
  Carrier carrier_;
  std::optional<Consumer> consumer_;
};

/// A state that can be set, and where it is stored.
struct StateKind {
  const char* name;
  ZNTopoAPIStatus (*set)(Stage& stage, int value);
  int (*cached)(const Stage& stage);
  const char* column;
  const char* table;
  const char* key;
  std::string (*id)();

  std::string stored(Stage& stage) const {
    return stage.store_
        ->value(std::string("select ") + column + " from " + table + " where " + key + " = '" +
                id() + "'")
        .value_or("NULL");
  }
};

constexpr StateKind kStates[] = {
    {"SNMP state",
     [](Stage& stage, int value) {
       return stage.node->setSnmpState(static_cast<SnmpState>(value), true);
     },
     [](const Stage& stage) { return int{stage.node->getSnmpState()}; }, "SNMPState", "nwnode",
     "ObjId", [] { return kAlpha; }},
    {"operational state",
     [](Stage& stage, int value) {
       return stage.interface->setIfOperStatus(static_cast<IfOperStatus>(value), true);
     },
     [](const Stage& stage) { return int{stage.interface->getIfOperStatus()}; }, "IfOperStatus",
     "nwinterface", "ObjId", [] { return interfaceID(1, 2); }},
    {"ping state",
     [](Stage& stage, int value) {
       return stage.address->setPingState(static_cast<PingState>(value), true);
     },
     [](const Stage& stage) { return int{stage.address->getPingState()}; }, "PingState", "address",
     "AddressId", [] { return addressID(1, 2); }},
};

/// A state of every kind that no object begins with, nor has had the round before.
int valueOf(int round) { return 2 + round % 3; }

class EventFaultsTest : public testing::TestWithParam<Engine> {
 protected:
  void SetUp() override {
    ZNTOPO_NEED_ENGINE(GetParam());
    ZNTOPO_NEED_BROKER();
  }
};

TEST_P(EventFaultsTest, AStoreThatGoesBetweenTheWriteAndTheSendHasTheWriteAndTheWorldIsTold) {
  inFreshProcess([engine = GetParam()] {
    Stage stage(engine);
    int round = 0;
    for (const Stop how : {Stop::Fast, Stop::Crash}) {
      for (const StateKind& kind : kStates) {
        SCOPED_TRACE(kind.name);
        const int value = valueOf(round);
        ASSERT_NE(kind.stored(stage), std::to_string(value));
        ZNTopoAPIStatus answer(ZN_API_NO_PATH, "");
        // Whoever sends waits for the guard.
        clientFactory().Lock();
        std::thread setting([&] { answer = kind.set(stage, value); });
        const bool isStored =
            eventually([&] { return kind.stored(stage) == std::to_string(value); });
        stage.takeAway(how);
        clientFactory().Unlock();
        setting.join();
        ASSERT_TRUE(isStored) << answer.getStatus() << answer.getAuxMsg();
        ASSERT_EQ(answer.getStatus(), ZN_API_SUCCESS) << answer.getAuxMsg();
        EXPECT_EQ(stage.consumer().next(), "attribute " + std::to_string(value));
        EXPECT_EQ(kind.cached(stage), value);
        stage.bringBackWithNewConnection();
        EXPECT_EQ(kind.stored(stage), std::to_string(value));
      }
      ++round;
    }
  });
}

TEST_P(EventFaultsTest, AWriteThatFailsIsToldToNobodyElse) {
  inFreshProcess([engine = GetParam()] {
    Stage stage(engine);
    int round = 0;
    for (const StateKind& kind : kStates) {
      SCOPED_TRACE(kind.name);
      const std::string before = kind.stored(stage);
      stage.takeAway(Stop::Crash);
      const ZNTopoAPIStatus answer = kind.set(stage, valueOf(++round));
      EXPECT_TRUE(isStoreFailure(answer.getStatus())) << answer.getStatus();
      stage.bringBackWithNewConnection();
      EXPECT_EQ(kind.stored(stage), before);
      const int next = valueOf(++round);
      const ZNTopoAPIStatus second = kind.set(stage, next);
      EXPECT_TRUE(second.isOK()) << second.getAuxMsg();
      EXPECT_EQ(kind.stored(stage), std::to_string(next));
      // The first event to come is the one of the write that was done.
      EXPECT_EQ(stage.consumer().next(), "attribute " + std::to_string(next));
    }
  });
}

/// Sets states one by one on a thread of its own. What a setter has acknowledged is in the store:
/// an answer other than that of a failed write says so.
class Setting {
 public:
  explicit Setting(Stage& stage) {
    // Else an event of an earlier round may give a cached object the state that is to be set next,
    // and a state that an object has already is not written.
    ZNTopoAPI().clearCache();
    thread_ = std::thread([this, &stage] { run(stage); });
  }
  ~Setting() { end(); }
  Setting(const Setting&) = delete;
  Setting& operator=(const Setting&) = delete;

  bool awaitMore(int more) {
    const int goal = count_ + more;
    return eventually([&] { return count_ >= goal; });
  }
  bool awaitFailedSends(int count) {
    return eventually([&] { return failedSends_ >= count; });
  }
  void end() {
    isOver_ = true;
    if (thread_.joinable()) thread_.join();
  }
  const std::string& complaint() const { return complaint_; }

 private:
  void run(Stage& stage) {
    for (int round = 0; !isOver_; ++round) {
      for (const StateKind& kind : kStates) {
        const int value = valueOf(round);
        const ZNTopoStatus answer = kind.set(stage, value).getStatus();
        if (answer == ZN_API_ATTR_NOTIF_GEN_ERROR) ++failedSends_;
        const bool isTold = answer == ZN_API_SUCCESS || answer == ZN_API_ATTR_NOTIF_GEN_ERROR;
        const std::string stored = kind.stored(stage);
        if (!isTold || stored != std::to_string(value)) {
          complaint_ += std::string(kind.name) + " " + std::to_string(value) + " is stored as " +
                        stored + ", status " + std::to_string(answer) + "\n";
        }
        ++count_;
      }
    }
  }

  std::atomic<bool> isOver_{false};
  std::atomic<int> count_{0};
  std::atomic<int> failedSends_{0};
  std::string complaint_;
  std::thread thread_;
};

/// Takes the events of Setting in their order until something else comes; gives that.
std::string behindSettings(Consumer& consumer) {
  for (int round = 0;; ++round) {
    for (std::size_t i = 0; i < std::size(kStates); ++i) {
      std::string text = consumer.next();
      if (text != "attribute " + std::to_string(valueOf(round))) return text;
    }
  }
}

TEST_P(EventFaultsTest, WhileABrokerIsKilledAndStartedAgainTheStoreKeepsEveryWrite) {
  inFreshProcess([engine = GetParam()] {
    Stage stage(engine);
    Setting setting(stage);
    ASSERT_TRUE(setting.awaitMore(60));
    stage.broker().crash();
    ASSERT_TRUE(setting.awaitFailedSends(30));
    stage.broker().start();
    ASSERT_TRUE(setting.awaitMore(60));
    setting.end();
    EXPECT_EQ(setting.complaint(), "");
    EXPECT_EQ(behindSettings(stage.consumer()), "error 45");
    // Nobody opens the session again.
    const ZNTopoAPIStatus answer = kStates[0].set(stage, 1);
    EXPECT_EQ(answer.getStatus(), ZN_API_ATTR_NOTIF_GEN_ERROR);
    EXPECT_EQ(answer.getAuxMsg(), "there is no event session\n");
  });
}

TEST_P(EventFaultsTest, WhileABrokerIsFrozenTheStoreKeepsEveryWriteAndNobodyWaits) {
  inFreshProcess([engine = GetParam()] {
    setEnv("TV_EVENT_KEEPALIVE", "5");
    Stage stage(engine);
    Setting setting(stage);
    ASSERT_TRUE(setting.awaitMore(30));
    stage.broker().freeze();
    ASSERT_TRUE(setting.awaitMore(30)) << "setters wait for the broker";
    ASSERT_TRUE(setting.awaitFailedSends(10)) << "nobody misses the broker";
    setting.end();
    EXPECT_EQ(setting.complaint(), "");
    EXPECT_EQ(behindSettings(stage.consumer()), "error 45");
  });
}

ZNTOPO_ON_ENGINES(EventFaultsTest, kEngines);

}  // namespace
}  // namespace zntopo::test
