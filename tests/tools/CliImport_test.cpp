#include <gmock/gmock.h>

#include <fstream>
#include <sstream>

#include "tests/tools/CliSupport.h"

namespace zntopo::test {
namespace {

using testing::HasSubstr;

using CliImportTest = CliSampleTest;

std::string sampleText() {
  std::ifstream stream(samplePath());
  std::ostringstream text;
  text << stream.rdbuf();
  return text.str();
}

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

INSTANTIATE_TEST_SUITE_P(Engines, CliImportTest, testing::ValuesIn(kMainEngines), EngineNames());

}  // namespace
}  // namespace zntopo::test
