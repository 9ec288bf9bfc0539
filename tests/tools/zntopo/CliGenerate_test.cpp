#include <gmock/gmock.h>

#include "tests/support/CliSupport.h"

namespace zntopo::test {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

class CliGenerateTest : public CliTest {
 protected:
  void SetUp() override {
    CliTest::SetUp();
    if (IsSkipped() || HasFatalFailure()) return;
    ASSERT_EQ(zntopoRun({"init"}).status, 0);
  }
};

TEST_P(CliGenerateTest, WritesWhatIsAskedForAndSaysSo) {
  const CliResult result =
      zntopoRun({"generate", "--nodes", "40", "--interfaces", "600", "--sites", "2", "--json"});
  ASSERT_EQ(result.status, 0) << result.err;
  EXPECT_EQ(result.json()["generated"]["nodes"], 40);
  EXPECT_EQ(result.json()["generated"]["interfaces"], 600);
  EXPECT_EQ(result.json()["tables"]["nwnode"], 40);
  EXPECT_EQ(zntopoRun({"nodes", "--json"}).json()["nodes"].size(), 40u);
  EXPECT_EQ(zntopoRun({"state", "--json"}).json()["state"], "READY");
}

TEST_P(CliGenerateTest, ADryRunShowsTheSameAndWritesNothing) {
  const std::vector<std::string> options = {"generate", "--nodes", "40", "--sites", "2"};
  std::vector<std::string> dry = options;
  dry.insert(dry.end(), {"--dry-run", "--json"});
  const std::string before = dump();
  const auto shown = zntopoRun(dry).json();
  EXPECT_EQ(shown["dry_run"], true);
  EXPECT_EQ(dump(), before);
  std::vector<std::string> wet = options;
  wet.push_back("--json");
  const auto written = zntopoRun(wet).json();
  EXPECT_EQ(shown["tables"], written["tables"]);
  EXPECT_EQ(shown["generated"], written["generated"]);
  EXPECT_THAT(zntopoRun({"generate", "--ring", "5", "--dry-run"}).out,
              StartsWith("Would write 5 nodes, 20 interfaces, "));
}

TEST_P(CliGenerateTest, ATerminalShowsABarThatIsWipedAtTheEnd) {
  const CliResult result = zntopoRunOnTerminal({"generate", "--nodes", "40", "--sites", "2"});
  EXPECT_EQ(result.status, 0) << result.err;
  EXPECT_THAT(result.err, testing::ContainsRegex("\r\033\\[KWriting \\[#+[.]+\\] [1-9][0-9]%"));
  EXPECT_THAT(result.err, testing::EndsWith("\r\033[K"));
}

TEST_P(CliGenerateTest, AStoreWithTopologyIsRefusedWithWhatToDo) {
  ASSERT_EQ(zntopoRun({"generate", "--ring", "4"}).status, 0);
  const std::string before = dump();
  const CliResult again = zntopoRun({"generate", "--ring", "5"});
  EXPECT_EQ(again.status, 1);
  EXPECT_THAT(again.err, HasSubstr("--merge"));
  EXPECT_EQ(dump(), before);
  const CliResult merged = zntopoRun({"generate", "--ring", "4", "--merge", "--json"});
  EXPECT_EQ(merged.json()["rows"]["added"], 0);
  EXPECT_EQ(merged.json()["rows"]["changed"], 0);
  EXPECT_EQ(dump(), before);
}

TEST_P(CliGenerateTest, WhatCannotBeMetIsAnError) {
  const CliResult result = zntopoRun({"generate", "--nodes", "100", "--interfaces", "90"});
  EXPECT_EQ(result.status, 1);
  EXPECT_THAT(result.err, HasSubstr("ZN_API_ILLEGAL_INPUT"));
  EXPECT_THAT(result.err, HasSubstr("need at least"));
  EXPECT_EQ(zntopoRun({"generate", "--nodes", "0"}).status, 2);
  EXPECT_EQ(zntopoRun({"generate", "--ring", "5", "--nodes", "5"}).status, 2);
  EXPECT_EQ(zntopoRun({"generate", "--user-variables", "2"}).status, 2);
}

TEST_P(CliGenerateTest, ARingIsWalkedAllTheWayRound) {
  ASSERT_EQ(zntopoRun({"generate", "--ring", "30"}).status, 0);
  const auto path = zntopoRun({"path", "ring-01", "ring-16", "--json"}).json();
  EXPECT_EQ(path["hops"], 15);
  EXPECT_EQ(zntopoRun({"neighbors", "ring-07", "--json"}).json()["connections"].size(), 2u);
}

ZNTOPO_ON_ENGINES(CliGenerateTest, kMainEngines);

}  // namespace
}  // namespace zntopo::test
