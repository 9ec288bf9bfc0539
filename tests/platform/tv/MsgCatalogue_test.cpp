#include "zntopo/platform/tv/MsgCatalogue.h"

#include <gtest/gtest.h>

TEST(MsgCatalogueTest, EveryStateThatIsKnownIsAskedToReopen) {
  // Known for the life of the process.
  static TvMsgState first{0};
  static TvMsgState second{0};
  static TvMsgState stranger{0};
  ____msg_register_first(&first);
  ____msg_register_first(&second);
  EXPECT_EQ(first.load(), 0);
  tvReopenMessageCatalogues();
  EXPECT_EQ(first.load(), 0x12344321);
  EXPECT_EQ(second.load(), 0x12344321);
  EXPECT_EQ(stranger.load(), 0);
}
