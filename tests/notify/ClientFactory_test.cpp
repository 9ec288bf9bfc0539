#include <thread>

#include "tests/notify/NotifySupport.h"
#include "tests/support/FreePort.h"

namespace zntopo::test {
namespace {

class ClientFactoryTest : public NotifyTest {};
ZNTOPO_ON_EVENT_MODES(ClientFactoryTest);

TEST_P(ClientFactoryTest, ThereIsOneFactoryOneSessionAndOneClient) {
  inFreshProcess([mode = GetParam()] {
    Carrier carrier(mode);
    auto* const factory = TopoNotificationClientFactory::instance();
    EXPECT_EQ(TopoNotificationClientFactory::instance(), factory);
    EXPECT_TRUE(factory->getNotificationClient().isNull());
    EXPECT_TRUE(factory->getTopologySession().isNull());
    ZNTopoAPIStatus status(ZN_API_NO_PATH, "old");
    const auto client = factory->createNotificationClient(ALL, status);
    EXPECT_TRUE(status.isOK());
    const auto session = factory->getTopologySession();
    EXPECT_EQ(factory->createNotificationClient(NONE, status), client);
    EXPECT_EQ(factory->getNotificationClient(), client);
    EXPECT_EQ(factory->getTopologySession(), session);
    EXPECT_NE(session->getSession(), nullptr);
    factory->doCleanup();
    EXPECT_EQ(session->getSession(), nullptr);
  });
}

TEST_P(ClientFactoryTest, ThreadsThatComeAtOnceGetTheSame) {
  inFreshProcess([mode = GetParam()] {
    Carrier carrier(mode);
    std::vector<ZNRefPtr<TopologyNotificationClient>> clients(4);
    std::vector<std::thread> threads;
    for (auto& client : clients) {
      threads.emplace_back([&client] {
        ZNTopoAPIStatus status;
        client = TopoNotificationClientFactory::instance()->createNotificationClient(ALL, status);
      });
    }
    for (std::thread& thread : threads) thread.join();
    for (const auto& client : clients) EXPECT_EQ(client, clients.front());
    clientFactory().doCleanup();
  });
}

TEST_P(ClientFactoryTest, TheFirstFilterHoldsForTheLifeOfTheProcess) {
  inFreshProcess([mode = GetParam()] {
    Carrier carrier(mode);
    Consumer consumer(STATUS_CHANGE_NOTIFICATION);
    ZNTopoAPIStatus status;
    clientFactory().createNotificationClient(ALL, status);
    ASSERT_EQ(consumer.send(attributeChange(1)), ZN_API_SUCCESS);
    ASSERT_EQ(
        consumer.send(new TopologyStateNotification(E_Unknown, TopologyStateNotif, ObjID(),
                                                    TOPOLOGY_READ_ONLY, 0, 0, 0, Full_Discovery)),
        ZN_API_SUCCESS);
    EXPECT_EQ(consumer.next(), "state 1");
  });
}

TEST_P(ClientFactoryTest, ReceivingBeforeThereIsASessionIsAnInternalErrorWithAText) {
  inFreshProcess([mode = GetParam()] {
    Carrier carrier(mode);
    const ZNTopoAPIStatus status = clientFactory().receiveNotification();
    EXPECT_EQ(status.getStatus(), ZN_API_INTERNAL_ERROR);
    EXPECT_EQ(status.getAuxMsg(),
              "There is no event session: call createNotificationClient first\n");
  });
}

TEST_P(ClientFactoryTest, TheQueueIsThereBeforeTheThreadIs) {
  inFreshProcess([mode = GetParam()] {
    Carrier carrier(mode);
    EXPECT_EQ(TopologyNotificationClient::queue.load(), nullptr);
    ZNTopoAPIStatus status;
    const auto client = clientFactory().createNotificationClient(ALL, status);
    ASSERT_NE(TopologyNotificationClient::queue.load(), nullptr);
    EXPECT_EQ(TopologyNotificationClient::queue.load()->getMaxQueueLength(), 1024);
    EXPECT_EQ(client->getNumberOfNotification(), 0);
    // A consumer that waits before the thread has started gets the first event all the same.
    std::thread waiting(
        [&client] { EXPECT_EQ(described(client->getNextNotification()), "attribute 8"); });
    ASSERT_TRUE(clientFactory().receiveNotification().isOK());
    ASSERT_TRUE(client->sendNotification(attributeChange(8)).isOK());
    waiting.join();
    clientFactory().doCleanup();
    EXPECT_EQ(described(client->getNextNotification()), "shutdown 0");
    EXPECT_EQ(described(client->getNextNotification()), "error 45");
  });
}

TEST_P(ClientFactoryTest, TheCleanUpBringsAShutdownAndBehindItTheLoss) {
  inFreshProcess([mode = GetParam()] {
    Carrier carrier(mode);
    Consumer consumer;
    clientFactory().doCleanup();
    EXPECT_EQ(consumer.next(), "shutdown 0");
    EXPECT_EQ(consumer.next(), "error 45");
  });
}

TEST_P(ClientFactoryTest, TheCleanUpOfAProcessThatOnlySendsNeitherWaitsNorCrashes) {
  inFreshProcess([mode = GetParam()] {
    Carrier carrier(mode);
    const OpenSession listener = openSession(kTwo);
    ZNTopoAPIStatus status;
    const auto client = clientFactory().createNotificationClient("", status);
    for (int i = 0; i < 100; ++i) ASSERT_TRUE(client->sendNotification(attributeChange(i)).isOK());
    clientFactory().doCleanup();
    EXPECT_EQ(client->getNumberOfNotification(), 1);
    EXPECT_EQ(described(client->getNextNotification()), "shutdown 0");
    // What was sent before it has arrived.
    for (int i = 0; i < 100; ++i) EXPECT_TRUE(receive(listener));
  });
}

TEST_P(ClientFactoryTest, TheCleanUpOfAProcessThatNeverNotifiedOpensASessionFirst) {
  inFreshProcess([mode = GetParam()] {
    Carrier carrier(mode);
    clientFactory().doCleanup();
    EXPECT_FALSE(clientFactory().getTopologySession().isNull());
    EXPECT_EQ(clientFactory().getTopologySession()->getSession(), nullptr);
    EXPECT_EQ(described(clientFactory().getNotificationClient()->getNextNotification()),
              "shutdown 0");
  });
}

TEST_P(ClientFactoryTest, ASecondCleanUpOnlyQueuesAnotherShutdown) {
  inFreshProcess([mode = GetParam()] {
    Carrier carrier(mode);
    clientFactory().doCleanup();
    clientFactory().doCleanup();
    EXPECT_EQ(clientFactory().getNotificationClient()->getNumberOfNotification(), 2);
  });
}

TEST_P(ClientFactoryTest, AfterTheCleanUpNothingIsReceivedAnyMore) {
  inFreshProcess([mode = GetParam()] {
    Carrier carrier(mode);
    ZNTopoAPIStatus status;
    clientFactory().createNotificationClient(ALL, status);
    clientFactory().doCleanup();
    EXPECT_EQ(clientFactory().receiveNotification().getStatus(), ZN_API_NOTIFCHANNEL_DISCONNECTED);
  });
}

TEST_P(ClientFactoryTest, NoNotificationIsNotSent) {
  inFreshProcess([mode = GetParam()] {
    Carrier carrier(mode);
    ZNTopoAPIStatus status;
    const auto client = clientFactory().createNotificationClient(ALL, status);
    EXPECT_EQ(client->sendNotification(Notification()).getStatus(), ZN_API_INTERNAL_ERROR);
    clientFactory().doCleanup();
  });
}

TEST(ClientFactoryAndBrokerTest, TheBrokerKnowsTheSessionByTheNameOfTheLibrary) {
  ZNTOPO_NEED_BROKER();
  inFreshProcess([] {
    Carrier carrier(EventMode::Broker);
    const Consumer consumer;
    EXPECT_TRUE(eventually([&] {
      return carrier.broker().scratch().read("log").find(" as topo_api_notif_srvr-") !=
             std::string::npos;
    })) << carrier.broker().scratch().read("log");
  });
}

TEST(ClientFactoryWithoutABrokerTest, AFailedSessionHoldsAndStartsNoThread) {
  inFreshProcess([] {
    setEnv("TV_EVENT_BROKER", "mqtt://127.0.0.1:" + std::to_string(freePort()));
    for (int i = 0; i < 2; ++i) {
      ZNTopoAPIStatus status;
      EXPECT_FALSE(clientFactory().createNotificationClient(ALL, status).isNull());
      EXPECT_EQ(status.getStatus(), ZN_API_NOTIFCHANNEL_CREATION_ERROR);
      EXPECT_EQ(clientFactory().receiveNotification().getStatus(),
                ZN_API_NOTIFCHANNEL_CREATION_ERROR);
      // Another broker comes too late.
      unsetenv("TV_EVENT_BROKER");
    }
    clientFactory().doCleanup();
    EXPECT_EQ(clientFactory().getNotificationClient()->getNumberOfNotification(), 1);
  });
}

}  // namespace
}  // namespace zntopo::test
