#pragma once

#include <optional>

#include "tests/support/TestStore.h"
#include "zntopo/platform/tvdbil/TvDbil.h"

namespace zntopo::test {

/// A fresh store of each engine, and a connection to it.
class ConnectedStoreTest : public StoreTest {
 protected:
  void SetUp() override {
    StoreTest::SetUp();
    if (IsSkipped() || HasFatalFailure()) return;
    TvXplMsg::MessageList_t messages;
    const TvDbil::DbSource_t source(messages, store_->engine().store());
    connection_.emplace(messages, &source);
    ASSERT_TRUE(connection_->IsValid());
  }
  void TearDown() override { connection_.reset(); }

  std::string value(const std::string& sql) { return store_->value(sql).value_or("NULL"); }

  std::optional<TvDbil::DbConnection_t> connection_;
};

}  // namespace zntopo::test
