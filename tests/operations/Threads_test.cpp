// Every query operation from several threads on shared objects, while the cache and the log are
// turned upside down. Most of what this test shows, it shows under a sanitizer.

#include <atomic>
#include <latch>
#include <regex>
#include <sstream>
#include <thread>

#include "tests/operations/OperationFixture.h"
#include "tests/support/CapturedLog.h"
#include "zntopo/api/ZNTopoAPIDefaultFactory.h"

namespace zntopo::test {
namespace {

constexpr int kThreads = 8;
constexpr int kRounds = 3;
constexpr Size kSize{"shared", 12, 3, true};

/// The lines of a form without the values that setters change meanwhile, sorted.
std::vector<std::string> steadyLines(const Answer& answer) {
  static const std::regex named("(OverallStatus|SnmpState|StatusChangeTime)\\b.*");
  static const std::regex ping("NotRspd|Unreach");
  std::vector<std::string> lines;
  for (const std::string& item : answer.items) {
    std::istringstream text(item);
    for (std::string line; std::getline(text, line);) {
      lines.push_back(std::regex_replace(std::regex_replace(line, named, "$1"), ping, "ping"));
    }
  }
  std::sort(lines.begin(), lines.end());
  return lines;
}

/// Whether nothing stands in a form that does not stand in the whole one: a configuration may leave
/// links out.
bool isPartOfForm(const Answer& answer, const Answer& whole) {
  const auto some = steadyLines(answer);
  const auto all = steadyLines(whole);
  return answer.status == whole.status && answer.items.size() == whole.items.size() &&
         std::includes(all.begin(), all.end(), some.begin(), some.end());
}

/// True if an answer is what the operation gives whatever others do to the cache.
bool isFitting(const Operation& operation, const Answer& answer, const Answer& whole) {
  if (answer == whole) return true;
  switch (operation.whole) {
    case Whole::Always:
      return false;
    case Whole::OrNoPath:
      return answer == Answer{ZN_API_NO_PATH, {}};
    case Whole::States:
      return isPartOfForm(answer, whole);
    case Whole::Part:
      return answer.status == whole.status &&
             std::includes(whole.items.begin(), whole.items.end(), answer.items.begin(),
                           answer.items.end());
  }
  return false;
}

ZNTopoConfig configOf(int round) {
  ZNTopoConfig config;
  config.setNodeCacheSize(round % 5 * 4);
  config.setInterfaceCacheSize(round % 7 * 5);
  config.setAddressCacheSize(round % 3 * 6);
  config.setEnableFIFOCacheSwap(round % 2 == 0);
  config.setEnableCacheSwap(round % 11 != 0);
  config.setEnableAddressCacheSwap(round % 6 != 0);
  config.setLoadNodeL2ConnectionInfo(round % 9 != 0);
  config.setLoadNodeIfcInfo(round % 4 != 0);
  config.setLoadNodeVlanInfo(round % 8 != 0);
  return config;
}

class OperationThreadsTest : public OperationTest {
 protected:
  void SetUp() override {
    OperationTest::SetUp();
    if (!store) return;
    fill(kSize);
    ZNTopoAPIDefaultFactory().initZNTopoAPI();
    shared = ZNTopoAPIDefaultFactory().getRDInstance(status, ActiveDB);
    ASSERT_FALSE(shared.isNull());
    for (const Operation& operation : operations) {
      impl.getTopoCache()->clear(true);
      wholes.push_back(operation.run(Desk{kSize, *shared, impl}));
    }
  }

  /// Runs all operations some rounds long, each thread in an order of its own.
  void work(int number) {
    Desk fresh{kSize, *shared, impl};
    Desk held = fresh;
    held.hub = hub;
    held.leaf = leaf;
    held.interface = interface;
    held.address = address;
    for (int round = 0; round < kRounds; ++round) {
      for (std::size_t i = 0; i < operations.size(); ++i) {
        const std::size_t step = number % 2 == 0 ? i : operations.size() - 1 - i;
        const std::size_t which = (step + static_cast<std::size_t>(number) * 7) % operations.size();
        const Operation& operation = operations[which];
        const Answer answer = operation.run((round + number) % 2 == 0 ? fresh : held);
        EXPECT_TRUE(isFitting(operation, answer, wholes[which]))
            << operation.name << ": " << testing::PrintToString(answer) << " instead of "
            << testing::PrintToString(wholes[which]);
      }
    }
  }

  /// Clears, resizes and reconfigures what all share.
  void disturb(int round) {
    const int size = round % 13;
    switch (round % 8) {
      case 0:
        return shared->clearCache();
      case 1:
        return ZNTopoAPI::setCacheSize(size, size, size, size, size, size, size);
      case 2:
        return ZNTopoAPI::setTopoConfiguration(configOf(round));
      case 3:
        ZNTopoAPIDefaultFactory().initZNTopoAPI(configOf(round));
        return;
      case 4:
        return MCLog::setDebuggingLevel(static_cast<MCDebugLevel>(round / 8 % 8));
      case 5:
        return disturbLog(round);
      case 6:
        return store->execute("update state set TopologyReadyChangeTime = " +
                              std::to_string(2000 + round));
      default:
        EXPECT_TRUE(shared->isCacheValid());
        ZNTopoAPI::getTopoConfiguration().setNodeCacheSize(size);
    }
  }

  static void disturbLog(int round) {
    MCLog::setLimits(1 + round % 3, 100);
    if (round % 3 == 0) {
      MCLog::disableLogging();
    } else {
      MCLog::enableLogging();
    }
  }

  const std::vector<Operation> operations = allOperations();
  /// What each operation answers when nobody else works.
  std::vector<Answer> wholes;
  ZNRefPtr<ZNTopoAPI> shared;
  ZNRefPtr<ZNNode> hub;
  ZNRefPtr<ZNNode> leaf;
  ZNRefPtr<ZNInterface> interface;
  ZNRefPtr<ZNAddress> address;
};

TEST_P(OperationThreadsTest, EightThreadsAskEverythingWhileTheCacheIsTurnedUpsideDown) {
  const CapturedLog log(MC_NONE);
  hub = shared->getNodeByObjID(ObjID(nodeID(Part::Hub)), status);
  leaf = shared->getNodeByObjID(ObjID(nodeID(Part::Leaf)), status);
  interface = shared->getInterfaceByObjID(ObjID(downID(Part::Leaf, 1)), status);
  address = shared->getAddressByObjID(ObjID(hubAddressID(1)), status);

  std::latch start(kThreads + 1);
  std::atomic<int> busy{kThreads};
  std::vector<std::thread> threads;
  threads.reserve(kThreads);
  for (int number = 0; number < kThreads; ++number) {
    threads.emplace_back([&, number] {
      start.arrive_and_wait();
      work(number);
      --busy;
    });
  }
  start.arrive_and_wait();
  for (int round = 0; busy > 0; ++round) {
    disturb(round);
    std::this_thread::yield();
  }
  for (std::thread& thread : threads) thread.join();

  // Nothing of it is left behind.
  MCLog::enableLogging();
  ZNTopoAPI::setTopoConfiguration(ZNTopoConfig());
  for (std::size_t i = 0; i < operations.size(); ++i) {
    shared->clearCache();
    const Answer answer = operations[i].run(Desk{kSize, *shared, impl});
    const bool isMoved = operations[i].whole == Whole::States;
    EXPECT_TRUE(isMoved ? isPartOfForm(answer, wholes[i]) && isPartOfForm(wholes[i], answer)
                        : answer == wholes[i])
        << operations[i].name << ": " << testing::PrintToString(answer) << " instead of "
        << testing::PrintToString(wholes[i]);
  }
}

ZNTOPO_ON_ENGINES(OperationThreadsTest, kMainEngines);

}  // namespace
}  // namespace zntopo::test
