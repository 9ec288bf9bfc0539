#include <gmock/gmock.h>

#include <set>

#include "tests/support/CliSupport.h"

namespace zntopo::test {
namespace {

using testing::HasSubstr;

/// A store with the sample network in GraphML.
class CliGraphmlTest : public CliTest {
 protected:
  void SetUp() override {
    CliTest::SetUp();
    if (IsSkipped() || HasFatalFailure()) return;
    ASSERT_EQ(zntopoRun({"init"}).status, 0);
    imported_ = zntopoRun({"import", sample(), "--json"});
    ASSERT_EQ(imported_.status, 0) << imported_.err;
  }

  static std::string sample() { return samplePath("skerry-ring.graphml"); }
  const CliResult& imported() const { return imported_; }

 private:
  CliResult imported_;
};

TEST_P(CliGraphmlTest, TheSampleIsFoundWithWhatWasLeftOut) {
  const auto json = imported().json();
  EXPECT_EQ(json["found"]["nodes"], 9);
  EXPECT_EQ(json["found"]["interfaces"], 20);
  EXPECT_EQ(json["found"]["links"], 10);
  ASSERT_EQ(json["notes"].size(), 2u);
  EXPECT_EQ(json["notes"][0]["what"], "edge attribute \"Operator\"");
  EXPECT_EQ(json["notes"][0]["first"], sample() + ":52:35");
  EXPECT_EQ(json["notes"][1]["what"], "edge from a node to itself");
}

TEST_P(CliGraphmlTest, ImportingTheSameAgainChangesNothing) {
  const std::string before = dump();
  const auto again = zntopoRun({"import", sample(), "--format", "graphml", "--json"}).json();
  EXPECT_EQ(again["rows"]["added"], 0);
  EXPECT_EQ(again["rows"]["changed"], 0);
  EXPECT_EQ(dump(), before);
}

TEST_P(CliGraphmlTest, PathsReadWell) {
  const CliResult result = zntopoRun({"path", "Outer Stack", "Northhaven-n1"});
  EXPECT_EQ(result.status, 0) << result.err;
  // Behind its way in, the last line may show another linked interface of the node.
  EXPECT_THAT(result.out, testing::StartsWith("NODE           IN                OUT\n"
                                              "Outer Stack                      to Gull Rock\n"
                                              "Gull Rock      to Outer Stack    to Northhaven-n0\n"
                                              "Northhaven-n0  to Gull Rock      to Northhaven-n1\n"
                                              "Northhaven-n1  to Northhaven-n0"));
  EXPECT_THAT(result.out, testing::EndsWith("\n3 hops\n"));
}

TEST_P(CliGraphmlTest, ParallelEdgesAreSeveralLinks) {
  const auto json = zntopoRun({"neighbors", "n6", "--json"}).json();
  std::multiset<std::string> ends;
  for (const auto& link : json["connections"]) {
    ends.insert(link["source_interface"].get<std::string>() + " - " +
                link["dest_node"].get<std::string>() + " " +
                link["dest_interface"].get<std::string>());
  }
  EXPECT_THAT(ends, testing::ElementsAre("to Northhaven-n1 - Northhaven-n1 to n6",
                                         "to Seal Bay (2) - Seal Bay to n6 (2)",
                                         "to Seal Bay - Seal Bay to n6"));
}

TEST_P(CliGraphmlTest, OnlyNamesThatTheFileGivesTellCardAndPort) {
  const auto json = zntopoRun({"interfaces", "Hub-n3", "--json"}).json();
  for (const auto& one : json["interfaces"]) EXPECT_EQ(one["card"], "0/0") << one;
  for (const char* node : {"n6", "Seal Bay"}) {
    const auto spur = zntopoRun({"interfaces", node, "--json"}).json()["interfaces"];
    ASSERT_EQ(spur.size(), 3u);
    for (const auto& one : spur) EXPECT_TRUE(one["port"].is_null()) << one;
  }
}

TEST_P(CliGraphmlTest, FilesOfBothFormatsGoInTogether) {
  const CliResult result = zntopoRun({"import", samplePath(), sample(), "--json"});
  EXPECT_EQ(result.status, 0) << result.err;
  EXPECT_EQ(result.json()["found"]["nodes"], 33);
}

TEST_P(CliGraphmlTest, AFileOfTheWrongFormatIsRefusedAndTheStoreIsAsBefore) {
  const std::string before = dump();
  const std::pair<std::vector<std::string>, std::string> calls[] = {
      {{write("a.gml", "graph [ node [ id 0 ] ]")}, "is neither RFC 8345 JSON, which begins"},
      {{write("page.html", "<html></html>")}, ":1:7: is no GraphML: the root element is \"html\""},
      {{"--format", "graphml", samplePath()}, ":1:1: "},
      {{"--format", "rfc8345", sample()}, "line 1, column 1"},
      {{write("cut.graphml", "<graphml><graph>\n<node id='0'/>")}, ":2:15: "},
      {{write("dtd.graphml", "<!DOCTYPE graphml SYSTEM 'x.dtd'><graphml/>")}, "<!DOCTYPE"},
      {{write("edge.graphml",
              "<graphml><graph>\n\n<edge source='a' target='b'/></graph></graphml>")},
       ":3:30: has an edge to the node \"a\", which is not there"},
  };
  for (const auto& [arguments, complaint] : calls) {
    std::vector<std::string> call = {"import"};
    call.insert(call.end(), arguments.begin(), arguments.end());
    const CliResult result = zntopoRun(call);
    EXPECT_EQ(result.status, 1) << complaint;
    EXPECT_EQ(result.out, "");
    EXPECT_THAT(result.err, HasSubstr("ZN_API_ILLEGAL_INPUT"));
    EXPECT_THAT(result.err, HasSubstr(complaint));
  }
  EXPECT_EQ(dump(), before);
  EXPECT_EQ(zntopoRun({"import", "--format", "gml", sample()}).status, 2);
}

TEST_P(CliGraphmlTest, HostileLabelsAreImportedAndFoundAgain) {
  for (const std::string& name : {std::string("x'; drop table nwnode; --"), std::string("100%_!"),
                                  std::string("\xe6\xb8\xaf"), std::string(255, 'y')}) {
    const std::string file = write("hostile.graphml",
                                   "<graphml><key id='l' attr.name='label'/><graph><node id='0'>"
                                   "<data key='l'>" +
                                       name + "</data></node></graph></graphml>");
    ASSERT_EQ(zntopoRun({"import", file}).status, 0) << name;
    const CliResult found = zntopoRun({"node", "--json", "--", name});
    EXPECT_EQ(found.status, 0) << name << found.err;
    EXPECT_EQ(found.json()["node"]["name"], name);
  }
}

ZNTOPO_ON_ENGINES(CliGraphmlTest, kMainEngines);

}  // namespace
}  // namespace zntopo::test
