#include "tools/network/StoreStatement.h"

#include <gmock/gmock.h>

#include <array>

#include "tests/support/TestStore.h"
#include "tools/network/StoreError.h"

namespace zntopo::tools {
namespace {

using test::StoreTest;
using testing::ElementsAre;
using testing::HasSubstr;

class StoreStatementTest : public StoreTest {
 protected:
  void SetUp() override {
    StoreTest::SetUp();
    if (IsSkipped() || HasFatalFailure()) return;
    store_->addNode("n1", "o'hara");
    store_->addNode("n2", "x\"; drop table nwnode; --", {{"Description", nullptr}});
    TvXplMsg::MessageList_t messages;
    const TvDbil::DbSource_t source(messages);
    connection_.emplace(messages, &source);
  }
  void TearDown() override {
    connection_.reset();
    StoreTest::TearDown();
  }

  std::optional<TvDbil::DbConnection_t> connection_;
};

TEST_P(StoreStatementTest, TextsAreAskedForByParameters) {
  const std::string sql = "select ObjId, EntityName from nwnode where EntityName in (" +
                          parameterMarks(2) + ") order by ObjId";
  EXPECT_THAT(
      selectTexts(*connection_, sql, 2, {"o'hara", "x\"; drop table nwnode; --"}),
      ElementsAre(ElementsAre("n1", "o'hara"), ElementsAre("n2", "x\"; drop table nwnode; --")));
  EXPECT_TRUE(selectTexts(*connection_, sql, 2, {"nobody", "' or '1'='1"}).empty());
}

TEST_P(StoreStatementTest, NullIsAnEmptyText) {
  EXPECT_THAT(
      selectTexts(*connection_, "select Description from nwnode where ObjId = ?", 1, {"n2"}),
      ElementsAre(ElementsAre("")));
}

TEST_P(StoreStatementTest, AStatementMayRunAgainWithOtherParameters) {
  StoreStatement statement(*connection_, "select ObjId from nwnode where EntityName = ?");
  std::array<char, 40> id{};
  int length = 0;
  statement.bind(id.data(), id.size(), &length);
  statement.add("o'hara");
  statement.execute();
  ASSERT_TRUE(statement.fetch());
  EXPECT_STREQ(id.data(), "n1");
  EXPECT_FALSE(statement.fetch());
  const char* const none = nullptr;
  statement.add(none);
  statement.execute();
  EXPECT_FALSE(statement.fetch());
}

TEST_P(StoreStatementTest, ATextThatIsCutOffIsKnown) {
  StoreStatement statement(*connection_, "select EntityName from nwnode order by ObjId");
  std::array<char, 8> name{};
  statement.bind(name.data(), name.size(), nullptr);
  statement.execute();
  ASSERT_TRUE(statement.fetch());
  EXPECT_FALSE(statement.isCut());
  ASSERT_TRUE(statement.fetch());
  EXPECT_TRUE(statement.isCut());
  EXPECT_STREQ(name.data(), "x\"; dro");
}

TEST_P(StoreStatementTest, AFailureHasItsComplaintAndTheReason) {
  try {
    executeText(*connection_, "delete from no_such_table", "can't tidy up");
    FAIL();
  } catch (const StoreError& error) {
    EXPECT_EQ(error.status().getStatus(), ZN_API_SQL_EXEC_ERROR);
    EXPECT_THAT(error.what(), testing::StartsWith("can't tidy up\n"));
    EXPECT_THAT(error.what(), HasSubstr("no_such_table"));
  }
}

ZNTOPO_ON_ENGINES(StoreStatementTest, test::kEngines);

}  // namespace
}  // namespace zntopo::tools
