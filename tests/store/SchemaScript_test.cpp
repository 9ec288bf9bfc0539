#include "zntopo/store/SchemaScript.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include "tests/support/Places.h"
#include "tests/support/TestEngine.h"

namespace zntopo::test {
namespace {

using testing::HasSubstr;

std::string fileText(const std::string& name) {
  return contentOf(inSourceTree("data/schema/") + name);
}

TEST(SchemaScriptTest, TheLibraryCarriesTheScriptsOfTheDataFolder) {
  EXPECT_EQ(schemaScript("SQLite"), fileText("sqlite.sql"));
  EXPECT_EQ(schemaScript("PostgreSQL"), fileText("postgresql.sql"));
  EXPECT_EQ(schemaScript("Another"), "");
}

class CreateSchemaTest : public testing::TestWithParam<Engine> {
 protected:
  void SetUp() override {
    ZNTOPO_NEED_ENGINE(GetParam());
    engine_ = std::make_unique<TestEngine>(GetParam());
    TvDbil::DbSource_t source(messages_, engine_->store());
    connection_ = std::make_unique<TvDbil::DbConnection_t>(messages_, &source);
    ASSERT_TRUE(connection_->IsValid()) << messages_.Format(TvXplMsg::fRecurse_k);
  }
  void TearDown() override { connection_.reset(); }

  bool hasTable(const std::string& name) {
    TvXplMsg::MessageList_t messages;
    TvDbil::DbStatement_t statement(messages, connection_.get());
    const std::string sql = "select 1 from " + name;
    return statement.BindSql(messages, sql.c_str()) == TvDbil::DBIL_SUCCESS &&
           statement.Exec(messages) == TvDbil::DBIL_SUCCESS;
  }

  std::unique_ptr<TestEngine> engine_;
  TvXplMsg::MessageList_t messages_;
  std::unique_ptr<TvDbil::DbConnection_t> connection_;
};

ZNTOPO_ON_ENGINES(CreateSchemaTest, kEngines);

TEST_P(CreateSchemaTest, AnEmptyStoreGetsEveryTable) {
  EXPECT_EQ(createSchema(messages_, *connection_), TvDbil::DBIL_SUCCESS)
      << messages_.Format(TvXplMsg::fRecurse_k);
  EXPECT_FALSE(connection_->InTransaction());
  for (const char* name : {"nwnode", "nwnode_update", "NWInterfaceAsc_update", "state"}) {
    EXPECT_TRUE(hasTable(name)) << name;
  }
}

TEST_P(CreateSchemaTest, AFailureLeavesNothingBehind) {
  executeOn(engine_->store(), "create table userdefvar_update (somebody integer)");
  EXPECT_NE(createSchema(messages_, *connection_), TvDbil::DBIL_SUCCESS);
  EXPECT_THAT(messages_.Format(TvXplMsg::fRecurse_k), HasSubstr("userdefvar_update"));
  EXPECT_FALSE(connection_->InTransaction());
  EXPECT_FALSE(hasTable("nwentity"));
}

TEST(CreateSchemaOnNothingTest, AnEngineWithoutAScriptIsRefused) {
  TvXplMsg::MessageList_t messages;
  TvDbil::DbSource_t source(messages, "/nowhere/at/all.db");
  TvDbil::DbConnection_t connection(messages, &source);
  EXPECT_EQ(createSchema(messages, connection), TvDbil::DBIL_ERROR);
  EXPECT_THAT(messages.Format(TvXplMsg::fRecurse_k),
              HasSubstr("There is no schema for the engine \"\"."));
}

}  // namespace
}  // namespace zntopo::test
