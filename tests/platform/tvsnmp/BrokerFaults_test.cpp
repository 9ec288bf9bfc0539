#include <gtest/gtest.h>
#include <mosquitto.h>
#include <stdlib.h>

#include <chrono>
#include <thread>

#include "tests/platform/tvsnmp/SessionSupport.h"
#include "tests/support/EventBroker.h"
#include "tests/support/FreePort.h"

/// @file
/// What becomes of sessions whose broker fails, and of what strangers publish.

namespace zntopo::test {
namespace {

using Clock = std::chrono::steady_clock;

class BrokerFaultsTest : public testing::Test {
 protected:
  void SetUp() override {
    ZNTOPO_NEED_BROKER();
    setEnv("TV_EVENT_KEEPALIVE", "5");
  }
  void TearDown() override {
    unsetenv("TV_EVENT_BROKER");
    unsetenv("TV_EVENT_KEEPALIVE");
  }

  void startBroker(const std::string& configuration = "") {
    broker_ = std::make_unique<EventBroker>(configuration);
    setEnv("TV_EVENT_BROKER", broker_->name());
  }
  std::string nameWithUser(const std::string& user) const {
    return "mqtt://" + user + "@127.0.0.1:" + std::to_string(broker_->port());
  }

  /// Receives numbers, of which this is the next, until something else comes, and gives that.
  static std::string behindNumbers(const OpenSession& session, int number) {
    for (;; ++number) {
      const std::string last = next(session);
      if (last != "60001102: " + std::to_string(number)) return last;
    }
  }

  std::unique_ptr<EventBroker> broker_;
};

TEST_F(BrokerFaultsTest, AKilledBrokerEndsTheSessionBehindTheLastEvent) {
  startBroker();
  const OpenSession session = openSession(kTwo);
  ASSERT_TRUE(session);
  for (int i = 0; i < 10; ++i) ASSERT_EQ(sendNumber(session, 60001102, i), EventError::None);
  for (int i = 0; i < 5; ++i) ASSERT_EQ(next(session), "60001102: " + std::to_string(i));
  broker_->crash();
  EXPECT_EQ(behindNumbers(session, 5), "the event broker was lost");
  EXPECT_EQ(next(session), "the event broker was lost");
  EXPECT_EQ(described(sendNumber(session, 60001102, 11)), "the event broker was lost");
}

TEST_F(BrokerFaultsTest, AKilledBrokerEndsTheSessionWhileEventsFlow) {
  startBroker();
  const OpenSession receiver = openSession(kTwo);
  const OpenSession sender = openSession("");
  ASSERT_TRUE(sender && receiver);
  std::thread sending([&sender] {
    for (int i = 0; sendNumber(sender, 60001102, i) == EventError::None; ++i) {
    }
  });
  for (int i = 0; i < 100; ++i) ASSERT_EQ(next(receiver), "60001102: " + std::to_string(i));
  broker_->crash();
  sending.join();
  EXPECT_EQ(behindNumbers(receiver, 100), "the event broker was lost");
}

TEST_F(BrokerFaultsTest, ASessionDoesNotComeBackWithItsBrokerANewOneDoes) {
  startBroker();
  const OpenSession before = openSession(kTwo);
  ASSERT_TRUE(before);
  broker_->crash();
  EXPECT_EQ(next(before), "the event broker was lost");
  broker_->start();
  EXPECT_EQ(described(sendNumber(before, 60001102, 1)), "the event broker was lost");
  const OpenSession behind = openSession(kTwo);
  ASSERT_TRUE(behind);
  ASSERT_EQ(sendNumber(behind, 60001102, 2), EventError::None);
  EXPECT_EQ(next(behind), "60001102: 2");
}

TEST_F(BrokerFaultsTest, AFrozenBrokerIsMissed) {
  startBroker();
  const OpenSession session = openSession(kTwo);
  ASSERT_TRUE(session);
  broker_->freeze();
  EXPECT_EQ(sendNumber(session, 60001102, 1), EventError::None);
  EXPECT_EQ(next(session), "the event broker was lost");
  EXPECT_EQ(described(sendNumber(session, 60001102, 1)), "the event broker was lost");
}

TEST_F(BrokerFaultsTest, AFrozenBrokerThatThawsInTimeLosesNothing) {
  startBroker();
  const OpenSession session = openSession(kTwo);
  ASSERT_TRUE(session);
  broker_->freeze();
  for (int i = 0; i < 2000; ++i) ASSERT_EQ(sendNumber(session, 60001102, i), EventError::None);
  broker_->thaw();
  for (int i = 0; i < 2000; ++i) ASSERT_EQ(next(session), "60001102: " + std::to_string(i));
}

TEST_F(BrokerFaultsTest, TheEndOfASessionDoesNotWaitLongForAFrozenBroker) {
  startBroker();
  OpenSession session = openSession(kTwo);
  ASSERT_TRUE(session);
  broker_->freeze();
  for (int i = 0; i < 5000; ++i) ASSERT_EQ(sendNumber(session, 60001102, i), EventError::None);
  const auto start = Clock::now();
  session.reset();
  EXPECT_LT(Clock::now() - start, std::chrono::seconds(60));
}

/// Why the broker does not have all that was sent on a session, as its end tells.
std::string whyUnsent(OpenSession session) {
  TVsnmpErrno = 0;
  session.reset();
  return TVsnmpErrString(TVsnmpErrno);
}

TEST_F(BrokerFaultsTest, TheEndOfASessionTellsWhetherTheBrokerHasAll) {
  startBroker();
  OpenSession session = openSession("");
  ASSERT_TRUE(session);
  EXPECT_EQ(whyUnsent(openSession("")), "no error");
  ASSERT_EQ(sendNumber(session, 60001102, 1), EventError::None);
  EXPECT_EQ(whyUnsent(std::move(session)), "no error");
  session = openSession("");
  broker_->freeze();
  ASSERT_EQ(sendNumber(session, 60001102, 1), EventError::None);
  EXPECT_EQ(whyUnsent(std::move(session)), "the event broker does not answer");
  broker_->thaw();
  session = openSession(kTwo);
  broker_->crash();
  ASSERT_EQ(next(session), "the event broker was lost");
  EXPECT_EQ(sendNumber(session, 60001102, 1), EventError::Lost);
  EXPECT_EQ(whyUnsent(std::move(session)), "the event broker was lost");
}

TEST_F(BrokerFaultsTest, TheEndOfASessionTellsThatItMayNotSend) {
  const Scratch scratch;
  startBroker("allow_anonymous true\nacl_file " + scratch.write("acl", "topic read tv/event/#\n") +
              "\n");
  OpenSession session = openSession("");
  ASSERT_TRUE(session);
  ASSERT_EQ(sendNumber(session, 60001102, 3), EventError::None);
  EXPECT_EQ(whyUnsent(std::move(session)),
            "the event broker refuses the session; look at its users and access lists");
}

TEST_F(BrokerFaultsTest, ABrokerThatTakesNothingMakesSendingFailBeforeMemoryDoes) {
  startBroker();
  OpenSession session = openSession("");
  ASSERT_TRUE(session);
  broker_->freeze();
  const tvsnmp::EventVariable large{{1, 3}, tvsnmp::kTextType, 0, std::string(50000, 'x')};
  EventError error = EventError::None;
  int count = 0;
  for (; error == EventError::None; ++count) {
    error = tvsnmp::sendEvent(session.get(), {60001102, {large}});
  }
  EXPECT_EQ(error, EventError::Stalled);
  EXPECT_NEAR(count, (64 << 20) / 50100, 30);
}

TEST_F(BrokerFaultsTest, WithoutABrokerASessionIsRefusedAtOnce) {
  const std::string nobody = "mqtt://127.0.0.1:" + std::to_string(freePort());
  EXPECT_FALSE(openSession(kTwo, nobody.c_str()));
  EXPECT_STREQ(TVsnmpErrString(TVsnmpErrno), "the event broker cannot be reached");
}

TEST_F(BrokerFaultsTest, ABrokerThatSaysNothingIsGivenUp) {
  startBroker();
  broker_->freeze();
  EXPECT_FALSE(openSession(kTwo));
  EXPECT_STREQ(TVsnmpErrString(TVsnmpErrno), "the event broker does not answer");
}

TEST_F(BrokerFaultsTest, WhoIsNotKnownToTheBrokerIsRefused) {
  startBroker("allow_anonymous false\n");
  EXPECT_FALSE(openSession(kTwo));
  EXPECT_STREQ(TVsnmpErrString(TVsnmpErrno),
               "the event broker refuses the session; look at its users and access lists");
}

TEST_F(BrokerFaultsTest, ASendWithoutTheRightEndsTheSession) {
  const Scratch scratch;
  const std::string list =
      scratch.write("acl", "topic read tv/event/#\n\nuser writer\ntopic tv/event/#\n");
  startBroker("allow_anonymous true\nacl_file " + list + "\n");
  const OpenSession reader = openSession(kTwo);
  const OpenSession writer = openSession("", nameWithUser("writer").c_str());
  ASSERT_TRUE(reader && writer);
  ASSERT_EQ(sendNumber(writer, 60001102, 4), EventError::None);
  EXPECT_EQ(next(reader), "60001102: 4");
  EXPECT_EQ(sendNumber(reader, 60001102, 3), EventError::None);
  EXPECT_EQ(next(reader),
            "the event broker refuses the session; look at its users and access lists");
  EXPECT_EQ(described(sendNumber(reader, 60001102, 3)),
            "the event broker refuses the session; look at its users and access lists");
}

TEST_F(BrokerFaultsTest, ABrokerThatMayLoseEventsIsRefused) {
  startBroker("max_qos 0\nallow_anonymous true\n");
  EXPECT_FALSE(openSession(kTwo));
  EXPECT_STREQ(TVsnmpErrString(TVsnmpErrno),
               "the event broker refuses the session; look at its users and access lists");
}

TEST_F(BrokerFaultsTest, SettingsThatAreNotUnderstoodAreRefused) {
  EXPECT_FALSE(openSession(kTwo, "broker"));
  EXPECT_EQ(std::string(TVsnmpErrString(TVsnmpErrno)).rfind("the event broker's name is not", 0),
            0U);
  EXPECT_FALSE(openSession(kTwo, "mqtts://broker:notaport"));
  setEnv("TV_EVENT_CA", "/no/such/file");
  EXPECT_FALSE(openSession(kTwo, "mqtts://127.0.0.1"));
  EXPECT_STREQ(TVsnmpErrString(TVsnmpErrno),
               "the files that TV_EVENT_CA, TV_EVENT_CERT and TV_EVENT_KEY name cannot be used");
  unsetenv("TV_EVENT_CA");
  for (const char* const seconds : {"4", "65536", "ten", "10s", "-10"}) {
    setEnv("TV_EVENT_KEEPALIVE", seconds);
    EXPECT_FALSE(openSession(kTwo, "mqtt://127.0.0.1"));
    EXPECT_STREQ(TVsnmpErrString(TVsnmpErrno),
                 "TV_EVENT_KEEPALIVE is not a number from 5 to 65535");
  }
}

/// A broker that speaks TLS alone, with a certificate that it has signed itself.
class SecureBrokerTest : public BrokerFaultsTest {
 protected:
  void SetUp() override {
    BrokerFaultsTest::SetUp();
    if (IsSkipped() || HasFatalFailure()) return;
    makeCertificate("broker");
    makeCertificate("other");
  }
  void TearDown() override {
    for (const char* const name : {"TV_EVENT_CA", "TV_EVENT_CERT", "TV_EVENT_KEY"}) unsetenv(name);
    BrokerFaultsTest::TearDown();
  }

  void makeCertificate(const std::string& name) const {
    const std::string command =
        "openssl req -x509 -newkey ec -pkeyopt ec_paramgen_curve:prime256v1 -nodes -days 2 -subj "
        "/CN=127.0.0.1 -addext "
        "subjectAltName=IP:127.0.0.1 -keyout " +
        file(name + ".key") + " -out " + file(name + ".pem") + " >" + file("log") + " 2>&1";
    ASSERT_EQ(std::system(command.c_str()), 0) << scratch_.read("log");
  }
  std::string file(const std::string& name) const { return scratch_.path(name); }
  void startSecure(const std::string& more = "") {
    startBroker("allow_anonymous true\ncertfile " + file("broker.pem") + "\nkeyfile " +
                file("broker.key") + "\n" + more);
    setEnv("TV_EVENT_BROKER", "mqtts://127.0.0.1:" + std::to_string(broker_->port()));
  }
  static std::string failureToOpen() {
    EXPECT_FALSE(openSession(kTwo));
    return std::string(TVsnmpErrString(TVsnmpErrno)).substr(0, 60);
  }

  const Scratch scratch_;
};

constexpr const char* kUntrusted = "the event broker and this process do not trust each other; T";

TEST_F(SecureBrokerTest, CarriesEventsOfWhoTrustsIt) {
  startSecure();
  setEnv("TV_EVENT_CA", file("broker.pem"));
  const OpenSession session = openSession(kTwo);
  ASSERT_TRUE(session) << TVsnmpErrString(TVsnmpErrno);
  for (int i = 0; i < 1000; ++i) ASSERT_EQ(sendNumber(session, 60001102, i), EventError::None);
  for (int i = 0; i < 1000; ++i) ASSERT_EQ(next(session), "60001102: " + std::to_string(i));
}

TEST_F(SecureBrokerTest, IsNotUsedByWhoDoesNotTrustIt) {
  startSecure();
  EXPECT_EQ(failureToOpen(), kUntrusted);
  setEnv("TV_EVENT_CA", file("other.pem"));
  EXPECT_EQ(failureToOpen(), kUntrusted);
}

TEST_F(SecureBrokerTest, MayAskForACertificate) {
  startSecure("cafile " + file("other.pem") + "\nrequire_certificate true\n");
  setEnv("TV_EVENT_CA", file("broker.pem"));
  EXPECT_FALSE(openSession(kTwo));
  setEnv("TV_EVENT_CERT", file("other.pem"));
  setEnv("TV_EVENT_KEY", file("other.key"));
  const OpenSession session = openSession(kTwo);
  ASSERT_TRUE(session) << TVsnmpErrString(TVsnmpErrno);
  ASSERT_EQ(sendNumber(session, 60001102, 3), EventError::None);
  EXPECT_EQ(next(session), "60001102: 3");
}

TEST_F(SecureBrokerTest, IsNotSpokenToInTheClear) {
  startSecure();
  setEnv("TV_EVENT_BROKER", broker_->name());
  EXPECT_FALSE(openSession(kTwo));
}

/// Publishes bytes that no session of ours would.
void publish(int port, const std::string& topic, const std::vector<std::string>& payloads) {
  mosquitto* const stranger = mosquitto_new(nullptr, true, nullptr);
  ASSERT_EQ(mosquitto_connect(stranger, "127.0.0.1", port, 60), MOSQ_ERR_SUCCESS);
  std::size_t acknowledged = 0;
  mosquitto_user_data_set(stranger, &acknowledged);
  mosquitto_publish_callback_set(
      stranger, [](mosquitto*, void* count, int) { ++*static_cast<std::size_t*>(count); });
  for (const std::string& payload : payloads) {
    ASSERT_EQ(mosquitto_publish(stranger, nullptr, topic.c_str(), static_cast<int>(payload.size()),
                                payload.data(), 1, false),
              MOSQ_ERR_SUCCESS);
  }
  while (acknowledged < payloads.size()) {
    ASSERT_EQ(mosquitto_loop(stranger, 100, 1), MOSQ_ERR_SUCCESS);
  }
  mosquitto_destroy(stranger);
}

TEST_F(BrokerFaultsTest, WhatStrangersPublishComesAsNoNotification) {
  startBroker();
  const OpenSession session = openSession(kTwo);
  ASSERT_TRUE(session);
  publish(broker_->port(), "tv/event/60001102",
          {"", "x", std::string(300, '\xA7'), std::string(60000, '0'), std::string(1000000, '0')});
  for (int i = 0; i < 5; ++i) EXPECT_EQ(next(session), "no notification");
  ASSERT_EQ(sendNumber(session, 60001102, 5), EventError::None);
  EXPECT_EQ(next(session), "60001102: 5");
}

}  // namespace
}  // namespace zntopo::test
