#include <gmock/gmock.h>

#include "tests/tools/CliSupport.h"

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

TEST_P(CliTest, InitNeverGoesOverAStore) {
  ASSERT_EQ(zntopoRun({"init"}).status, 0);
  ASSERT_EQ(zntopoRun({"import", samplePath()}).status, 0);
  const std::string before = dump();
  const CliResult again = zntopoRun({"init"});
  EXPECT_EQ(again.status, 1);
  EXPECT_THAT(again.err, HasSubstr("ZN_API_DB_INIT_FAILURE"));
  EXPECT_EQ(dump(), before);
}

TEST_P(CliTest, WithoutTablesAQuestionPointsToInit) {
  if (GetParam() == Engine::Sqlite) write("cli.db", "");
  for (const std::vector<std::string>& call :
       {std::vector<std::string>{"import", samplePath()}, {"nodes"}, {"path", "a", "b"}}) {
    const CliResult result = zntopoRun(call);
    EXPECT_EQ(result.status, 1) << call[0];
    EXPECT_EQ(result.out, "") << call[0];
    EXPECT_THAT(result.err, HasSubstr("run \"zntopo init\"")) << call[0];
  }
}

TEST_P(CliTest, TheStoreOptionBeatsTheEnvironment) {
  const CliResult made = zntopoRun({"init", "--store", store()}, {"TV_TOPO_STORE=/nonexistent/x"});
  EXPECT_EQ(made.status, 0) << made.err;
  EXPECT_EQ(zntopoRun({"state"}).status, 0);
}

INSTANTIATE_TEST_SUITE_P(Engines, CliTest, testing::ValuesIn(kMainEngines), EngineNames());

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
  const CliResult result = zntopoRun({"nodes", "--store", ZNTOPO_SOURCE_DIR "/README.md"});
  EXPECT_EQ(result.status, 1);
  EXPECT_THAT(result.err, HasSubstr("file is not a database"));
  EXPECT_THAT(result.err, testing::Not(HasSubstr("zntopo init")));
}

TEST(CliStoreTest, AnInitThatFailsLeavesNoFile) {
  EXPECT_EQ(zntopoRun({"init", "--store", "/nonexistent/folder/x.db"}).status, 1);
  EXPECT_FALSE(std::filesystem::exists("/nonexistent"));
}

TEST(CliCallTest, AWrongCallEndsWithTwoAndNothingOnStandardOutput) {
  for (const std::vector<std::string>& call :
       std::vector<std::vector<std::string>>{{},
                                             {"frobnicate"},
                                             {"path", "a"},
                                             {"path", "a", "b", "--max-hops", "many"},
                                             {"nodes", "--ip-level", "5"},
                                             {"nodes", "--no-such-option"},
                                             {"import"},
                                             {"import", "--zone", std::string(65, 'x'), "f"}}) {
    const CliResult result = zntopoRun(call);
    EXPECT_EQ(result.status, 2) << (call.empty() ? "" : call[0]);
    EXPECT_EQ(result.out, "");
    EXPECT_NE(result.err, "");
  }
}

TEST(CliCallTest, HelpShowsExamplesOnStandardOutput) {
  const std::vector<std::string> commands = subcommands();
  EXPECT_THAT(commands, testing::IsSupersetOf({"init", "nodes", "path"}));
  for (const std::string& command : commands) {
    const CliResult result = zntopoRun({command, "--help"});
    EXPECT_EQ(result.status, 0) << command;
    EXPECT_THAT(result.out, HasSubstr("  zntopo " + command)) << command;
    EXPECT_THAT(result.out, HasSubstr("--store")) << command;
    EXPECT_EQ(result.err, "") << command;
  }
  EXPECT_THAT(zntopoRun({"--help"}).out, HasSubstr("Exit status"));
  EXPECT_THAT(zntopoRun({"--version"}).out, StartsWith("zntopo "));
}

}  // namespace
}  // namespace zntopo::test
