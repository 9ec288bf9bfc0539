#include "zntopo/platform/tvxpl/TvXplMsg.h"

#include <gtest/gtest.h>

using namespace TvXplMsg;

TEST(TvXplMsgTest, AnEmptyListFormatsToNothing) {
  const MessageList_t list;
  EXPECT_EQ(list.GetMessageCount(), 0);
  EXPECT_EQ(list.Format(fRecurse_k), "");
}

TEST(TvXplMsgTest, MessagesKeepTheirOrderAndGetALineEach) {
  MessageList_t list;
  list.Add(Message_t(kWarning, "first"));
  list.Add(Message_t(CreateError_t("second")));
  EXPECT_EQ(list.GetMessageCount(), 2);
  EXPECT_EQ(list.Format(fNone_k), "first\nsecond\n");
  EXPECT_EQ(list.Format(fRecurse_k), "first\nsecond\n");
  EXPECT_EQ(list.GetMessage(0).GetSeverity(), kWarning);
  EXPECT_EQ(list.GetMessage(1).GetSeverity(), kError);
  EXPECT_EQ(list.GetMessage(1).GetText(), "second");
}

TEST(TvXplMsgTest, AnIndexOutsideTheListGivesAnEmptyMessage) {
  MessageList_t list;
  list.Add(CreateError_t("only"));
  EXPECT_EQ(list.GetMessage(-1).GetText(), "");
  EXPECT_EQ(list.GetMessage(1).GetText(), "");
  EXPECT_EQ(list.GetMessage(1).GetSeverity(), kInformation);
}

TEST(TvXplMsgTest, AnExceptionCarriesItsMessages) {
  MessageList_t list;
  list.Add(CreateError_t("broken"));
  try {
    throw Exception_t(list);
  } catch (const Exception_t& exception) {
    EXPECT_EQ(exception.GetMessages().Format(fRecurse_k), "broken\n");
  }
}
