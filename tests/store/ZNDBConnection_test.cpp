#include "zntopo/store/ZNDBConnection.h"

#include <gtest/gtest.h>

#include "tests/support/CapturedLog.h"
#include "tests/support/TestStore.h"

namespace zntopo::test {
namespace {

class ZNDBConnectionTest : public testing::Test {
 protected:
  ZNDBConnection connect(const std::string& name) {
    TvDbil::DbSource_t source(messages_, name);
    return ZNDBConnection(messages_, source);
  }

  TvXplMsg::MessageList_t messages_;
};

TEST_F(ZNDBConnectionTest, AnOpenConnectionIsValidBothWays) {
  TestStore store;
  const ZNDBConnection connection = connect(store.engine().store());
  EXPECT_TRUE(connection.isValid());
  EXPECT_TRUE(connection.IsValid());
  EXPECT_NE(connection.getDbConnection(), nullptr);
  EXPECT_EQ(messages_.GetMessageCount(), 0);
}

TEST_F(ZNDBConnectionTest, AConnectionThatWouldNotOpenKeepsItsPlatformObject) {
  const CapturedLog log(MC_CRITICAL);
  const ZNDBConnection connection = connect("/nowhere/at/all.db");
  EXPECT_TRUE(connection.isValid());
  EXPECT_FALSE(connection.IsValid());
  EXPECT_NE(connection.getDbConnection(), nullptr);
  EXPECT_GT(messages_.GetMessageCount(), 0);
  EXPECT_EQ(log.lines(),
            std::vector<std::string>{"Error : ZNDBConnection construction failed! \n"});
}

TEST_F(ZNDBConnectionTest, TransactionsGoThrough) {
  TestStore store;
  ZNDBConnection connection = connect(store.engine().store());
  EXPECT_FALSE(connection.InTransaction());
  EXPECT_EQ(connection.StartTransaction(messages_), TvDbil::DBIL_SUCCESS);
  EXPECT_TRUE(connection.InTransaction());
  EXPECT_EQ(connection.CommitTransaction(messages_), TvDbil::DBIL_SUCCESS);
  EXPECT_FALSE(connection.InTransaction());
  EXPECT_EQ(connection.StartTransaction(messages_), TvDbil::DBIL_SUCCESS);
  EXPECT_EQ(connection.RollbackTransaction(messages_), TvDbil::DBIL_SUCCESS);
  EXPECT_FALSE(connection.InTransaction());
}

TEST_F(ZNDBConnectionTest, WithoutAPlatformObjectEachOperationFails) {
  TestStore store;
  ZNDBConnection connection = connect(store.engine().store());
  ZNDBTestAccess::dropPlatformConnection(connection);
  EXPECT_FALSE(connection.isValid());
  EXPECT_FALSE(connection.IsValid());
  EXPECT_EQ(connection.StartTransaction(messages_), TvDbil::DBIL_ERROR);
  EXPECT_EQ(connection.CommitTransaction(messages_), TvDbil::DBIL_ERROR);
  EXPECT_EQ(connection.RollbackTransaction(messages_), TvDbil::DBIL_ERROR);
  const CapturedLog log;
  EXPECT_FALSE(connection.InTransaction());
  EXPECT_EQ(log.lines(), std::vector<std::string>{"Error : myConn is empty !! \n"});
}

}  // namespace
}  // namespace zntopo::test
