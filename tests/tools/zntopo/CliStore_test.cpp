#include <gmock/gmock.h>

#include <fstream>

#include "tests/support/CliSupport.h"
#include "tests/support/Places.h"
#include "zntopo/platform/tvdbil/TvDbil.h"

namespace zntopo::test {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

TEST_P(CliTest, InitMakesAnEmptyStoreThatIsNotReady) {
  const CliResult made = zntopoRun({"init"});
  EXPECT_EQ(made.status, 0) << made.err;
  EXPECT_THAT(made.out, StartsWith("Created the store "));
  EXPECT_EQ(zntopoRun({"state", "--json"}).json()["state"], "UNKNOWN");
  const CliResult nodes = zntopoRun({"nodes", "--json"});
  EXPECT_EQ(nodes.status, 1);
  EXPECT_EQ(nodes.json()["status"]["name"], "ZN_API_DB_NOT_READY");
  EXPECT_THAT(nodes.err, HasSubstr("Topology DB is not ready"));
}

TEST_P(CliTest, InAStoreThatIsNotReadyNothingIsSaidToBeMissing) {
  ASSERT_EQ(zntopoRun({"init"}).status, 0);
  const std::string id = "00000000-0000-0000-0000-000000000000";
  for (const std::vector<std::string>& call : {std::vector<std::string>{"node", "core-1"},
                                               {"node", "10.20.8.17"},
                                               {"node", id},
                                               {"interfaces", "core-1"},
                                               {"neighbors", "core-1"},
                                               {"vlans"},
                                               {"vlan", "10"},
                                               {"containers"},
                                               {"containers", "--type", "1"},
                                               {"container", id},
                                               {"hsrp"},
                                               {"hsrp", "10"},
                                               {"subnets"},
                                               {"subnets", "--from", "core-1"},
                                               {"subnet", "10.0.0.0/24"},
                                               {"connectivity", "core-1", "core-2"},
                                               {"path", "a", "b"}}) {
    const CliResult result = zntopoRun(call);
    EXPECT_EQ(result.status, 1) << call[0];
    EXPECT_THAT(result.err, HasSubstr("ZN_API_DB_NOT_READY")) << call[0];
    EXPECT_THAT(result.err, HasSubstr("Topology DB is not ready")) << call[0];
  }
}

TEST_P(CliTest, InitNeverGoesOverAStore) {
  ASSERT_EQ(zntopoRun({"init"}).status, 0);
  ASSERT_EQ(zntopoRun({"import", samplePath()}).status, 0);
  const std::string before = dump();
  const CliResult again = zntopoRun({"init"});
  EXPECT_EQ(again.status, 1);
  EXPECT_THAT(again.err, HasSubstr("ZN_API_DB_INIT_FAILURE"));
  EXPECT_EQ(dump(), before);
}

TEST_P(CliTest, WithoutTablesAQuestionSaysWhatToDo) {
  const bool isFile = GetParam() == Engine::Sqlite;
  if (isFile) write("cli.db", "");
  for (const std::vector<std::string>& call :
       {std::vector<std::string>{"import", samplePath()}, {"nodes"}, {"path", "a", "b"}}) {
    const CliResult result = zntopoRun(call);
    EXPECT_EQ(result.status, 1) << call[0];
    EXPECT_EQ(result.out, "") << call[0];
    EXPECT_THAT(result.err, HasSubstr(isFile ? "remove it or name another" : "run \"zntopo init\""))
        << call[0];
  }
}

TEST_P(CliTest, TheStoreOptionBeatsTheEnvironment) {
  const CliResult made = zntopoRun({"init", "--store", store()}, {"TV_TOPO_STORE=/nonexistent/x"});
  EXPECT_EQ(made.status, 0) << made.err;
  EXPECT_EQ(zntopoRun({"state"}).status, 0);
}

ZNTOPO_ON_ENGINES(CliTest, kMainEngines);

TEST(CliStoreTest, AMissingFileIsNotCreatedByAQuestion) {
  const CliResult result = zntopoRun({"nodes", "--store", "/tmp/zntopo-no-such-store.db"});
  EXPECT_EQ(result.status, 1);
  EXPECT_THAT(result.err, HasSubstr("ZN_API_DB_CONNECTION_FAILURE"));
  EXPECT_THAT(result.err, HasSubstr("zntopo init"));
  EXPECT_FALSE(std::filesystem::exists("/tmp/zntopo-no-such-store.db"));
}

TEST(CliStoreTest, APasswordIsNotShown) {
  for (const char* secret : {"Password=hunter2", "pwd={hunter2;x}", "PASSWORD = hunter2"}) {
    const std::string store = std::string("Driver=No Such Driver;") + secret + ";Database=x";
    for (const char* command : {"nodes", "init"}) {
      const CliResult result = zntopoRun({command, "--json", "--store", store});
      EXPECT_EQ(result.status, 1);
      EXPECT_THAT(result.err, HasSubstr("No Such Driver"));
      EXPECT_THAT(result.err + result.out, testing::Not(HasSubstr("hunter2")));
    }
  }
}

TEST(CliStoreTest, AFileThatIsNoStoreIsNotSentToInit) {
  const CliResult result = zntopoRun({"nodes", "--store", inSourceTree("README.md")});
  EXPECT_EQ(result.status, 1);
  EXPECT_THAT(result.err, HasSubstr("file is not a database"));
  EXPECT_THAT(result.err, testing::Not(HasSubstr("zntopo init")));
}

/// A folder that is removed at the end, whatever may be done in it.
class CliFolderTest : public testing::Test {
 protected:
  void SetUp() override { store_ = scratch_.path("x.db"); }
  void TearDown() override { allow(scratch_.folder(), std::filesystem::perms::owner_all); }
  static void allow(const std::filesystem::path& path, std::filesystem::perms what) {
    std::filesystem::permissions(path, what);
  }

  Scratch scratch_;
  std::string store_;
};

TEST_F(CliFolderTest, AFileWithoutATopologyIsNotSentToInitAndBack) {
  scratch_.write("empty.db", "");
  const std::string foreign = scratch_.path("foreign.db");
  TvXplMsg::MessageList_t messages;
  ASSERT_EQ(TvDbil::CreateStore(messages, TvDbil::DbSource_t(messages, foreign)),
            TvDbil::DBIL_SUCCESS);
  executeOn(foreign, "create table a (b int)");
  for (const char* name : {"empty.db", "foreign.db"}) {
    const std::string store = scratch_.path(name);
    for (const char* command : {"nodes", "init"}) {
      const CliResult result = zntopoRun({command, "--store", store});
      EXPECT_EQ(result.status, 1) << command << name;
      EXPECT_THAT(result.err, HasSubstr("is a file without a topology: remove it or name another"))
          << command << name;
      EXPECT_THAT(result.err, testing::Not(HasSubstr("zntopo init"))) << command << name;
    }
  }
}

TEST_F(CliFolderTest, WhoMayNotWriteIsToldWhatToAllow) {
  ASSERT_EQ(zntopoRun({"init", "--store", store_}).status, 0);
  ASSERT_EQ(zntopoRun({"import", samplePath(), "--store", store_}).status, 0);
  using std::filesystem::perms;
  allow(store_, perms::owner_all | perms::others_read);
  allow(scratch_.folder(),
        perms::owner_read | perms::owner_exec | perms::others_read | perms::others_exec);
  const CliResult question = zntopoRunAsNobody({"nodes", "--store", store_});
  EXPECT_EQ(question.status, 1);
  EXPECT_THAT(question.err, HasSubstr("You must be allowed to write to"));
  EXPECT_THAT(question.err, testing::Not(HasSubstr("zntopo init")));
  const CliResult import = zntopoRunAsNobody({"import", samplePath(), "--store", store_});
  EXPECT_EQ(import.status, 1);
  EXPECT_THAT(import.err, HasSubstr("You must be allowed to write to"));
  allow(store_, perms::all);
  const CliResult folder = zntopoRunAsNobody({"import", samplePath(), "--store", store_});
  EXPECT_EQ(folder.status, 1);
  EXPECT_THAT(folder.err, HasSubstr("the folder of this file"));
}

TEST(CliStoreTest, AnInitThatFailsLeavesNoFile) {
  EXPECT_EQ(zntopoRun({"init", "--store", "/nonexistent/folder/x.db"}).status, 1);
  EXPECT_FALSE(std::filesystem::exists("/nonexistent"));
}

}  // namespace
}  // namespace zntopo::test
