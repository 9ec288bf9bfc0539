// The store goes away and comes back: the server is stopped and started, the disk unplugged and
// plugged in again.

#include <atomic>
#include <chrono>
#include <functional>
#include <memory>
#include <thread>

#include "tests/faults/FaultFixture.h"
#include "zntopo/model/InetAddress.h"

namespace zntopo::test {
namespace {

using Stop = PostgresServer::Stop;

using OutageTest = FaultTest;

TEST_P(OutageTest, EachQueryFailsAsItSaysAndWorksAgainAfterwards) {
  for (const Stop how : {Stop::Fast, Stop::Crash}) {
    const int before = ZNDBTestAccess::connectionCount();
    takeAway(how);
    expectFailures("while the store is away");
    EXPECT_EQ(ZNDBTestAccess::connectionCount(), before) << "the pool keeps its count";
    bringBack();
    expectRecovery("the store came back");
    EXPECT_EQ(ZNDBTestAccess::connectionCount(), before);
    EXPECT_EQ(ZNDBTestAccess::lostCount(), 0u);
  }
}

TEST_P(OutageTest, WithoutAnOpenConnectionNoneCanBeHadUntilTheStoreIsBack) {
  ZNDBTestAccess::forget();
  takeAway();
  expectFailures("with an empty pool");
  EXPECT_EQ(ZNDBTestAccess::connectionCount(), 0);
  bringBack();
  expectRecovery("the store came back to an empty pool");
}

TEST_P(OutageTest, AStoreThatComesAndGoesBetweenTwoQueriesIsNotNoticed) {
  for (std::size_t i = 0; i < questions().size(); i += 7) {
    takeAway();
    bringBack();
    EXPECT_EQ(askCold(questions()[i]), healthy_.answer(i)) << questions()[i].name;
  }
}

/// Objects that were read while the store was there, with nothing of what they read themselves.
struct Held {
  ZNRefPtr<ZNNode> node;
  ZNRefPtr<ZNInterface> interface;
  ZNRefPtr<ZNAddress> address;

  static Held read() {
    ZNTopoAPI_Impl::cache()->clear(true);
    ZNTopoAPI api;
    ZNTopoAPIStatus status;
    Held held{api.getNodeByObjID(ObjID(kBeta), status),
              api.getInterfaceByObjID(ObjID(interfaceID(2, 3)), status),
              api.getAddressByObjID(ObjID(addressID(2, 3)), status)};
    ZNTopoAPI_Impl::cache()->clear(true);
    return held;
  }
  bool isWhole() const { return !node.isNull() && !interface.isNull() && !address.isNull(); }
};

/// What objects ask of the store when they are asked: how many things they answer with.
struct ObjectQuestion {
  const char* name;
  std::size_t (*ask)(const Held&);
};

constexpr ObjectQuestion kObjectQuestions[] = {
    {"ZNNode::getInterfacesList",
     [](const Held& held) { return held.node->getInterfacesList()->size(); }},
    {"ZNNode::getInterfaceIDList",
     [](const Held& held) { return held.node->getInterfaceIDList().size(); }},
    {"ZNNode::getL2LinkConnectedInterfacesList",
     [](const Held& held) { return held.node->getL2LinkConnectedInterfacesList()->size(); }},
    {"ZNInterface::getConnData",
     [](const Held& held) { return held.interface->getConnData().size(); }},
    {"ZNInterface::getConnectedL2Interfaces",
     [](const Held& held) { return held.interface->getConnectedL2Interfaces()->size(); }},
    {"ZNInterface::getHSRPObjIDs",
     [](const Held& held) { return held.interface->getHSRPObjIDs().size(); }},
    {"ZNEntity::getAddresses",
     [](const Held& held) { return held.interface->getAddresses().size(); }},
    {"InetAddress::getHSRPObjIDs",
     [](const Held& held) {
       return dynamic_cast<const InetAddress&>(*held.address).getHSRPObjIDs().size();
     }},
};

TEST_P(OutageTest, ObjectsReadBeforeItAskAgainWhenTheStoreIsBack) {
  for (const ObjectQuestion& question : kObjectQuestions) {
    const std::size_t healthy = question.ask(Held::read());
    EXPECT_GT(healthy, 0u) << question.name;
    const Held held = Held::read();
    ASSERT_TRUE(held.isWhole()) << question.name;
    takeAway();
    EXPECT_EQ(question.ask(held), 0u) << question.name << " while the store is away";
    bringBack();
    EXPECT_EQ(question.ask(held), healthy) << question.name << " when it is back";
    expectNobodyHolds(question.name);
  }
}

/// Threads that ask until they are told to end.
class Askers {
 public:
  explicit Askers(int count) {
    for (int i = 0; i < count; ++i) {
      threads_.emplace_back([this, i] { run(static_cast<std::size_t>(i)); });
    }
  }
  ~Askers() {
    isOver_ = true;
    for (std::thread& thread : threads_) thread.join();
  }

  /// Waits until this many more queries ended well, or badly.
  bool awaitGood(int more) { return await(good_, more); }
  bool awaitBad(int more) { return await(bad_, more); }
  std::string complaint() {
    const std::lock_guard lock(mutex_);
    return complaint_;
  }

 private:
  void run(std::size_t first) {
    OpenImpl impl;
    for (std::size_t i = first; !isOver_; i = (i + 1) % questions().size()) {
      const Question& question = questions()[i];
      ZNTopoAPIStatus status;
      question.ask(impl, status);
      ++(status.getStatus() == question.healthy ? good_ : bad_);
      if (mayTell(question, status.getStatus())) continue;
      const std::lock_guard lock(mutex_);
      complaint_ += std::string(question.name) + ": " + status.getStatusMsg() + "\n";
    }
  }

  static bool await(const std::atomic<int>& count, int more) {
    const int goal = count + more;
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(120);
    while (count < goal) {
      if (std::chrono::steady_clock::now() > end) return false;
      std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    return true;
  }

  std::atomic<bool> isOver_ = false;
  std::atomic<int> good_ = 0;
  std::atomic<int> bad_ = 0;
  std::mutex mutex_;
  std::string complaint_;
  std::vector<std::thread> threads_;
};

TEST_P(OutageTest, ThreadsGoOnAskingThroughStopsAndStarts) {
  constexpr int kThreads = 4;
  {
    Askers askers(kThreads);
    for (const Stop how : {Stop::Fast, Stop::Crash}) {
      ASSERT_TRUE(askers.awaitGood(200));
      takeAway(how);
      ASSERT_TRUE(askers.awaitBad(200)) << "queries hang while the store is away";
      bringBack();
      ASSERT_TRUE(askers.awaitGood(200)) << "queries do not recover";
    }
    EXPECT_EQ(askers.complaint(), "");
  }
  expectRecovery("the threads have ended");
  // The deepest of them holds four connections at a time.
  EXPECT_LE(ZNDBTestAccess::connectionCount(), 4 * kThreads);
}

ZNTOPO_ON_ENGINES(OutageTest, kEngines);

}  // namespace
}  // namespace zntopo::test
