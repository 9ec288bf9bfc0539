#include "tests/model/ModelFixture.h"

namespace zntopo::test {

namespace {

using testing::ElementsAre;

class PingStateTest : public ModelTest {
 protected:
  InetAddressIPv4 address_{"10.0.0.1", false,      ObjID("a"),      ObjID("if"),
                           ObjID("s"), 0U,         "255.255.255.0", Ping_Responding,
                           77,         "10.0.0.1", WorkingDB};
};

}  // namespace

TEST_F(PingStateTest, NothingChangesWhileTheTopologyIsNotReady) {
  gateway().topoMode = 1;
  EXPECT_EQ(ZN_API_DB_NOT_READY, address_.setPingState(Ping_Disabled, true).getStatus());
  EXPECT_EQ(Ping_Responding, address_.getPingState());
  EXPECT_THAT(gateway().calls(), ElementsAre("getTopoMode(1)"));
}

TEST_F(PingStateTest, WithoutUpdateOnlyTheObjectChanges) {
  EXPECT_TRUE(address_.setPingState(Ping_Unreachable, false).isOK());
  EXPECT_EQ(Ping_Unreachable, address_.getPingState());
  EXPECT_EQ(77, address_.getPingStateUpdTime());
  EXPECT_THAT(gateway().calls(), ElementsAre("getTopoMode(1)"));
}

TEST_F(PingStateTest, WithUpdateTheStoreIsWrittenAndTheWorldIsTold) {
  EXPECT_TRUE(address_.setPingState(Ping_AgentDown, true).isOK());
  EXPECT_EQ(77, address_.getPingStateUpdTime());
  EXPECT_THAT(gateway().calls(), ElementsAre("getTopoMode(1)", "setAddressState(1, a, 3)",
                                             "ensureNotificationClient()",
                                             "sendAttributeNotification(25, a, 4, 3, NULL, 0)"));
}

TEST_F(PingStateTest, TheSameStateIsWrittenAndToldAgain) {
  address_.setPingState(Ping_Responding, true);
  EXPECT_EQ(1, gateway().callCount("setAddressState"));
  EXPECT_EQ(1, gateway().callCount("sendAttributeNotification"));
}

TEST_F(PingStateTest, AFailedWriteLeavesTheObjectChangedAndTellsNobody) {
  gateway().failWith("setAddressState", ZN_API_SQL_EXEC_ERROR);
  EXPECT_EQ(ZN_API_SQL_EXEC_ERROR, address_.setPingState(Ping_Disabled, true).getStatus());
  EXPECT_EQ(Ping_Disabled, address_.getPingState());
  EXPECT_EQ(0, gateway().callCount("sendAttributeNotification"));
}

TEST_F(PingStateTest, WithoutAClientItsStatusComesBackAndTheObjectStaysChanged) {
  gateway().failWith("ensureNotificationClient", ZN_API_NOTIFCHANNEL_CREATION_ERROR);
  EXPECT_EQ(ZN_API_NOTIFCHANNEL_CREATION_ERROR,
            address_.setPingState(Ping_Disabled, true).getStatus());
  EXPECT_EQ(Ping_Disabled, address_.getPingState());
  EXPECT_EQ(1, gateway().callCount("setAddressState"));
  EXPECT_EQ(0, gateway().callCount("sendAttributeNotification"));
}

TEST_F(PingStateTest, TheStatusOfTheSendComesBack) {
  gateway().failWith("sendAttributeNotification", ZN_API_ATTR_NOTIF_GEN_ERROR);
  EXPECT_EQ(ZN_API_ATTR_NOTIF_GEN_ERROR, address_.setPingState(Ping_Disabled, true).getStatus());
}

}  // namespace zntopo::test
