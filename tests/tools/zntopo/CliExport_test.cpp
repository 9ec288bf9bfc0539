#include <gmock/gmock.h>

#include <filesystem>

#include "tests/support/CliSupport.h"

namespace zntopo::test {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

class CliExportTest : public CliSampleTest {
 protected:
  std::string place(const std::string& name) const { return scratch_.path(name); }
  std::string content(const std::string& name) const { return scratch_.read(name); }

 private:
  Scratch scratch_;
};

TEST_P(CliExportTest, WhatWasExportedChangesNothingWhereItCameFrom) {
  const std::string before = dump();
  const CliResult result = zntopoRun({"export", "--output", place("copy.json")});
  EXPECT_EQ(result.status, 0) << result.err;
  EXPECT_EQ(result.out, "Wrote " + place("copy.json") + ": 24 nodes, 90 interfaces, 30 links\n");
  const auto rows = answerOf({"import", place("copy.json")})["rows"];
  EXPECT_EQ(rows["added"], 0);
  EXPECT_EQ(rows["changed"], 0);
  EXPECT_EQ(dump(), before);
}

TEST_P(CliExportTest, APartChangesNothingEither) {
  const std::string before = dump();
  ASSERT_EQ(zntopoRun({"export", "--node", "core-1", "--output", place("part.json")}).status, 0);
  EXPECT_EQ(answerOf({"import", place("part.json")})["rows"]["changed"], 0);
  EXPECT_EQ(dump(), before);
}

TEST_P(CliExportTest, StandardOutputHasTheNetworkAndNothingElse) {
  for (const char* format : {"rfc8345", "json", "graphml", "dot"}) {
    ASSERT_EQ(zntopoRun({"export", "--format", format, "--output", place(format)}).status, 0);
    const CliResult result = zntopoRun({"export", "--format", format});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.out, content(format));
    EXPECT_EQ(result.err, "");
    EXPECT_EQ(answerOf({"export", "--format", format})["document"], content(format));
  }
}

TEST_P(CliExportTest, ANeighbourhoodHasTheNodesOfItsHops) {
  const auto part = nlohmann::json::parse(
      zntopoRun({"export", "--format", "json", "--node", "access-1", "--hops", "1"}).out);
  std::set<std::string> names;
  for (const auto& node : part["nodes"]) names.insert(node["name"]);
  EXPECT_EQ(names, (std::set<std::string>{"access-1", "access-2", "crane-4-plc", "dist-quay",
                                          "gate-camera-2"}));
  EXPECT_EQ(part["links"].size(), 5u);
}

TEST_P(CliExportTest, APathHasItsNodes) {
  const auto part = nlohmann::json::parse(
      zntopoRun({"export", "--format", "json", "--from", "crane-4-plc", "--to", "customs-printer"})
          .out);
  EXPECT_EQ(part["nodes"].size(), 6u);
  EXPECT_EQ(part["links"].size(), 5u);
  EXPECT_EQ(failureOf({"export", "--from", "crane-4-plc", "--to", "border-1", "--max-hops", "1"}),
            "ZN_API_NO_PATH");
}

TEST_P(CliExportTest, AFileThatIsThereStaysUnlessForced) {
  ASSERT_EQ(zntopoRun({"export", "--output", place("file")}).status, 0);
  const std::string before = content("file");
  const CliResult refused = zntopoRun({"export", "--format", "dot", "--output", place("file")});
  EXPECT_EQ(refused.status, 1);
  EXPECT_THAT(refused.err, HasSubstr("replace it with --force"));
  EXPECT_EQ(content("file"), before);
  EXPECT_EQ(zntopoRun({"export", "--format", "dot", "--output", place("file"), "--force"}).status,
            0);
  EXPECT_THAT(content("file"), StartsWith("graph zntopo {"));
}

TEST_P(CliExportTest, WrongCallsAreRefused) {
  EXPECT_EQ(zntopoRun({"export", "--format", "png"}).status, 2);
  EXPECT_EQ(zntopoRun({"export", "--from", "core-1"}).status, 2);
  EXPECT_EQ(zntopoRun({"export", "--hops", "2"}).status, 2);
  EXPECT_EQ(zntopoRun({"export", "--force"}).status, 2);
  EXPECT_EQ(zntopoRun({"export", "--node", "a", "--from", "b", "--to", "c"}).status, 2);
  EXPECT_EQ(failureOf({"export", "--node", "nobody"}), "ZN_API_OBJ_NOT_EXIST");
}

TEST_P(CliExportTest, WhatCannotBeWrittenIsTold) {
  const CliResult result = zntopoRun({"export", "--output", place("no/file")});
  EXPECT_EQ(result.status, 1);
  EXPECT_THAT(result.err, HasSubstr("No such file or directory"));
}

ZNTOPO_ON_ENGINES(CliExportTest, kMainEngines);

}  // namespace
}  // namespace zntopo::test
