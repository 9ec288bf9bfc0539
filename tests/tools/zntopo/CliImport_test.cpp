#include <gmock/gmock.h>

#include <fstream>
#include <sstream>

#include "tests/support/CliSupport.h"

namespace zntopo::test {
namespace {

using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;

using CliImportTest = CliSampleTest;

std::string sampleText() { return contentOf(samplePath()); }

std::string oneNode(const std::string& id) {
  return R"({"ietf-network:networks": {"network": [{"network-id": "n", "node": [{"node-id": ")" +
         id + R"("}]}]}})";
}

TEST_P(CliImportTest, ImportingTheSameAgainChangesNothing) {
  const std::string before = dump();
  const CliResult again = zntopoRun({"import", samplePath(), "--json"});
  EXPECT_EQ(again.status, 0) << again.err;
  EXPECT_EQ(again.json()["rows"]["added"], 0);
  EXPECT_EQ(again.json()["rows"]["changed"], 0);
  EXPECT_EQ(dump(), before);
}

TEST_P(CliImportTest, WhatWasNotCarriedOverIsReported) {
  const auto json = zntopoRun({"import", samplePath(), "--json"}).json();
  bool isThere = false;
  for (const auto& note : json["notes"]) {
    isThere = isThere || note["what"] == "layer-3 link (makes no layer-2 link)";
    EXPECT_THAT(note["first"].get<std::string>(), HasSubstr("/ietf-network:networks/network/"));
  }
  EXPECT_TRUE(isThere);
}

TEST_P(CliImportTest, AFileThatIsNoNetworkIsRefusedAndTheStoreIsAsBefore) {
  const std::string sample = sampleText();
  const std::pair<std::string, std::string> files[] = {
      {"empty", ""},
      {"blank", "\n \n"},
      {"truncated", sample.substr(0, sample.size() / 2)},
      {"binary", std::string("\x7f"
                             "ELF\x02\x01\x01\0\0\0",
                             10) +
                     std::string(5000, '\xff')},
      {"zeros", std::string(10000, '\0')},
      {"deep", std::string(2'000'000, '[')},
      {"number", R"({"networks": {"network": [{"network-id": 1e999}]}})"},
      {"number type", R"({"networks": {"network": 99999999999999999999999999}})"},
      {"utf8", oneNode("\xff\xfe")},
      {"nul", oneNode("a\\u0000b")},
      {"control", oneNode("a\\u001bb")},
      {"no name", oneNode("")},
      {"long name", oneNode(std::string(256, 'x'))},
      {"two keys", R"({"networks": {"network": [], "network": []}})"},
      {"two ids", R"({"networks": {"network": [{"network-id": "n"}, {"network-id": "n"}]}})"},
      {"other", R"({"hello": "world"})"},
  };
  const std::string before = dump();
  for (const auto& [name, content] : files) {
    const std::string path = write(name, content);
    const CliResult result = zntopoRun({"import", path});
    EXPECT_EQ(result.status, 1) << name;
    EXPECT_EQ(result.out, "") << name;
    EXPECT_THAT(result.err, HasSubstr("ZN_API_ILLEGAL_INPUT")) << name;
    EXPECT_THAT(result.err, HasSubstr(path)) << name;
  }
  EXPECT_EQ(dump(), before);
}

TEST_P(CliImportTest, FilesWithoutAnyNodeDoNotMakeAStoreReady) {
  const std::string none = write("none.json", R"({"networks": {"network": []}})");
  const std::string before = dump();
  const CliResult result = zntopoRun({"import", none, "--json"});
  EXPECT_EQ(result.status, 1);
  EXPECT_EQ(result.json()["status"]["name"], "ZN_API_ILLEGAL_INPUT");
  EXPECT_THAT(result.err, HasSubstr("There is no node in these files."));
  EXPECT_EQ(dump(), before);
  EXPECT_EQ(zntopoRun({"import", none, samplePath()}).status, 0);
}

TEST_P(CliImportTest, OneBadFileKeepsTheGoodOnesOut) {
  const std::string before = dump();
  const std::string good = write("good.json", oneNode("new"));
  const std::string bad = write("bad.json", "{");
  EXPECT_EQ(zntopoRun({"import", good, bad}).status, 1);
  EXPECT_EQ(zntopoRun({"import", good, "/nonexistent/file"}).status, 1);
  EXPECT_EQ(dump(), before);
  EXPECT_EQ(zntopoRun({"import", good}).status, 0);
  EXPECT_NE(dump(), before);
}

TEST_P(CliImportTest, HostileNamesAreImportedAndFoundAgain) {
  for (const std::string& name :
       {std::string("x'; drop table nwnode; --"), std::string("a\"b"), std::string("100%_!"),
        std::string("O'Brien"), std::string("semi;colon"), std::string("?"),
        std::string("\xe6\xb8\xaf-1"), std::string("back\\slash"), std::string("' or '1'='1"),
        std::string(255, 'y')}) {
    const auto json = nlohmann::json{
        {"networks", {{"network", {{{"network-id", "n"}, {"node", {{{"node-id", name}}}}}}}}}};
    ASSERT_EQ(zntopoRun({"import", write("hostile.json", json.dump())}).status, 0) << name;
    const CliResult found = zntopoRun({"node", "--json", "--", name});
    EXPECT_EQ(found.status, 0) << name << found.err;
    EXPECT_EQ(found.json()["node"]["name"], name);
  }
}

TEST_P(CliImportTest, HostileNamesThatNobodyHasAreJustNotFound) {
  const std::string before = dump();
  for (const char* name : {"' or '1'='1", "x'; delete from nwnode; --", "%", "_", "nobody"}) {
    const CliResult result = zntopoRun({"node", name, "--json"});
    EXPECT_EQ(result.status, 1) << name;
    EXPECT_EQ(result.json()["status"]["name"], "ZN_API_OBJ_NOT_EXIST") << name;
  }
  EXPECT_EQ(dump(), before);
}

TEST_P(CliImportTest, AFileIsReadAndCountedOnceHoweverOftenItIsNamed) {
  const auto once = zntopoRun({"import", samplePath(), "--json"}).json();
  const auto twice = zntopoRun({"import", samplePath(), samplePath("./harbor-campus.rfc8345.json"),
                                samplePath(), "--json"})
                         .json();
  EXPECT_EQ(twice["found"], once["found"]);
  EXPECT_EQ(twice["rows"], once["rows"]);
  EXPECT_EQ(twice["notes"], once["notes"]);
  const std::string copy = write("copy.json", sampleText());
  EXPECT_EQ(zntopoRun({"import", samplePath(), copy, "--json"}).json()["found"], once["found"]);
}

TEST_P(CliImportTest, AZoneIsAShortTextWithoutControlCharacters) {
  const std::string before = dump();
  for (const std::string& zone :
       {std::string("a\nb"), std::string("\x1b[2J"), std::string("\xff"), std::string(65, 'z')}) {
    const CliResult result = zntopoRun({"import", samplePath(), "--zone", zone});
    EXPECT_EQ(result.status, 2) << zone;
    EXPECT_THAT(result.err, HasSubstr("--zone: the zone "));
    EXPECT_THAT(result.err, Not(HasSubstr("\x1b")));
  }
  EXPECT_EQ(dump(), before);
  EXPECT_EQ(zntopoRun({"import", samplePath(), "--zone", std::string(62, 'z') + "\xc3\xa9"}).status,
            0);
  EXPECT_THAT(zntopoRun({"import", "--help"}).out, HasSubstr("--zone TEXT  "));
}

TEST_P(CliImportTest, ErrorsShowNoControlCharacters) {
  for (const std::string& call :
       {write("a\x1b[2J\nb.json", "{"), write("c\x1b[2J.graphml", "<graphml><x/>"),
        write("keys.json", "{\"\\u001b[2J\": 1e999}"), std::string("/nonexistent/\x1b[2J\r")}) {
    const CliResult result = zntopoRun({"import", call});
    EXPECT_EQ(result.status, 1);
    EXPECT_THAT(result.err, HasSubstr("?[2J"));
    EXPECT_THAT(result.err, Not(testing::ContainsRegex("[\x1b\r]")));
  }
  EXPECT_THAT(zntopoRun({"import", "--format", "\x1b[2J", "x"}).err, HasSubstr("?[2J"));
}

TEST_P(CliImportTest, ATerminalShowsABarThatIsWipedAtTheEnd) {
  const std::string graph = samplePath("skerry-ring.graphml");
  const CliResult result = zntopoRunOnTerminal({"import", samplePath(), graph});
  EXPECT_EQ(result.status, 0) << result.err;
  EXPECT_THAT(result.out, HasSubstr("Found 33 nodes"));
  EXPECT_THAT(result.err, HasSubstr("\r\033[KReading " + graph + " [" + std::string(30, '#') +
                                    "] 100%\r\033[K"));
  EXPECT_THAT(result.err, testing::ContainsRegex("\r\033\\[KWriting \\[#+[.]+\\] [1-9][0-9]%"));
  EXPECT_THAT(result.err, EndsWith("\r\033[K"));
  EXPECT_EQ(zntopoRun({"import", samplePath(), graph}).err, "");
}

ZNTOPO_ON_ENGINES(CliImportTest, kMainEngines);

}  // namespace
}  // namespace zntopo::test
