#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <initializer_list>
#include <memory>
#include <string>

#include "tests/support/TestEngine.h"
#include "zntopo/platform/tvdbil/TvDbil.h"

namespace zntopo::test {

using TvDbil::DbConnection_t;
using TvDbil::DbilReturnCode;
using TvDbil::DbSource_t;
using TvDbil::DbStatement_t;
using TvDbil::MessageList_t;

/// A fresh store with one open connection, on each engine.
class EngineFixture : public testing::TestWithParam<Engine> {
 protected:
  void SetUp() override {
    ZNTOPO_NEED_ENGINE(GetParam());
    engine_ = std::make_unique<TestEngine>(GetParam());
    connection_ = open();
    ASSERT_TRUE(connection_->IsValid()) << told();
  }

  std::unique_ptr<DbConnection_t> open() { return open(engine_->store()); }
  std::unique_ptr<DbConnection_t> open(const std::string& store) {
    const DbSource_t source(messages_, store);
    return std::make_unique<DbConnection_t>(messages_, &source);
  }

  /// Executes a statement in a connection, by default in the one of the fixture.
  DbilReturnCode execute(const std::string& sql) { return execute(sql, *connection_); }
  DbilReturnCode execute(const std::string& sql, DbConnection_t& connection) {
    DbStatement_t statement(messages_, &connection);
    const DbilReturnCode bound = statement.BindSql(messages_, sql.c_str());
    return bound != TvDbil::DBIL_SUCCESS ? bound : DbilReturnCode(statement.Exec(messages_));
  }
  void mustExecute(std::initializer_list<const char*> statements) {
    for (const char* sql : statements) ASSERT_EQ(execute(sql), TvDbil::DBIL_SUCCESS) << told();
  }

  /// The first column of the first row as text; "NULL" for NULL, "none" without a row, and the
  /// messages if something failed.
  std::string ask(const std::string& sql) { return ask(sql, *connection_); }
  std::string ask(const std::string& sql, DbConnection_t& connection) {
    DbStatement_t statement(messages_, &connection);
    char value[300] = {};
    int indicator = 0;
    if (statement.BindSql(messages_, sql.c_str()) != TvDbil::DBIL_SUCCESS ||
        statement.BindColumn(messages_, 1, value, &indicator, sizeof value) !=
            TvDbil::DBIL_SUCCESS ||
        statement.Exec(messages_) != TvDbil::DBIL_SUCCESS) {
      return told();
    }
    const DbilReturnCode fetched = statement.Fetch(messages_);
    if (fetched == TvDbil::DBIL_NO_DATA) return "none";
    if (fetched != TvDbil::DBIL_SUCCESS) return told();
    return indicator < 0 ? "NULL" : value;
  }

  std::string told() const { return messages_.Format(TvXplMsg::fRecurse_k); }

  std::unique_ptr<TestEngine> engine_;
  MessageList_t messages_;
  std::unique_ptr<DbConnection_t> connection_;
};

}  // namespace zntopo::test
