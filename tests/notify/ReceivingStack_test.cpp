#include "tests/notify/NotifySupport.h"
#include "tests/support/CapturedLog.h"
#include "tests/support/PaintedStack.h"
#include "zntopo/notify/detail/EventChannel.h"
#include "zntopo/notify/detail/Receiver.h"

namespace zntopo::test {
namespace {

TEST(ReceivingStackTest, TheDeepestPathLeavesHalfOfTheStack) {
  inFreshProcess([] {
    unsetenv("TV_EVENT_BROKER");
    const Scratch scratch;
    setEnv("TV_TRACE", scratch.path("trace"));
    // Every line is logged, and a file is full after a few of them.
    const CapturedLog log(MC_VERBOSE);
    MCLog::setLimits(3, 1);
    FakeCacheOwner::instance().onCall([] { MCLog::log(MC_VERBOSE, "%s\n", "an update"); });
    TopologyNotificationClient client;
    TopologySession session(nullptr, "test", nullptr, nullptr,
                            ".1.3.6.1.4.1.47231.2.17.1.0.60001101,60001102,60001103,60001104");
    const OpenSession sender = openSession("");
    std::vector<tvsnmp::EventVariable> variables;
    for (int i = 0; i < 12; ++i) {
      variables.push_back({{1, 3}, tvsnmp::kTextType, 0, std::string(4000, 'x')});
    }
    const std::size_t used = stackUsed(detail::Receiver::kStackSize, [&] {
      detail::Receiver receiver(
          std::shared_ptr<detail::EventChannel>(&detail::channelOf(session), [](auto*) {}));
      for (unsigned event = 60001101; event <= 60001104; ++event) {
        EXPECT_EQ(tvsnmp::sendEvent(sender.get(), {event, variables}), EventError::None);
      }
      EXPECT_EQ(sendNumber(sender, 60001104, 0), EventError::None);
      std::thread closing([&session, &client] {
        for (int i = 0; i < 5; ++i) client.getNextNotification();
        session.closeSession();
      });
      receiver.run();
      closing.join();
    });
    RecordProperty("bytes", static_cast<int>(used));
    std::printf("stack used by receiving: %zu bytes\n", used);
    EXPECT_LT(used, detail::Receiver::kStackSize / 2);
    EXPECT_GT(used, 1000U);
  });
}

}  // namespace
}  // namespace zntopo::test
