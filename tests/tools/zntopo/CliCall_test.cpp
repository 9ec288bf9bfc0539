#include <gmock/gmock.h>

#include <cstdio>
#include <filesystem>

#include "tests/support/CliSupport.h"
#include "tests/support/Places.h"

/// @file
/// How the command reads its words: no store is needed.

namespace zntopo::test {
namespace {

using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

struct WrongCall {
  std::vector<std::string> words;
  std::string complaint;
};

TEST(CliCallTest, AWrongCallEndsWithTwoAndSaysWhatIsWrong) {
  const WrongCall calls[] = {
      {{}, "A subcommand is missing."},
      {{"frobnicate"}, "There is no subcommand \"frobnicate\".\nSubcommands: init import"},
      {{"nodez"}, "There is no subcommand \"nodez\". Did you mean \"nodes\"?"},
      {{"--json", "pth", "a", "b"}, "There is no subcommand \"pth\". Did you mean \"path\"?"},
      {{"nodez", "--help"}, "There is no subcommand \"nodez\"."},
      {{"help", "nodez"}, "There is no subcommand \"nodez\"."},
      {{"\x1b[31m"}, "There is no subcommand \"?[31m\"."},
      {{"path", "a"}, "B is required"},
      {{"path", "a", "b", "--max-hops", "many"}, "many"},
      {{"path", "a", "b", "--max-hops", "0"}, "not in range 1 to 1000000"},
      {{"path", "a", "b", "--max-hops", "-3"}, "not in range 1 to 1000000"},
      {{"neighbors", "a", "--hops", "0"}, "not in range 1 to 1000000"},
      {{"neighbors", "a", "--max-nodes", "-1"}, "not in range 1 to 1000000"},
      {{"nodes", "--ip-level", "5"}, "5"},
      {{"nodes", "--no-such-option"}, "--no-such-option"},
      {{"nodes", "--store", ""}, "the name of the store is empty"},
      {{"--store", "", "nodes"}, "the name of the store is empty"},
      {{"import"}, "FILE is required"},
      {{"import", "--zone", std::string(65, 'x'), "f"}, "longer than 64 bytes"},
      {{"import", "--zone", "caf\xe9", "f"}, "is not UTF-8"},
      {{"node", ""}, "the name of the node is empty"},
      {{"node", "caf\xe9"}, "the name of the node is not UTF-8"},
      {{"interfaces", "a\nb"}, "the name of the node has a control character in it"},
      {{"neighbors", std::string(256, 'x')}, "the name of the node is longer than 255 bytes"},
      {{"vlan"}, "ID is required"},
      {{"vlan", ""}, "the name of the VLAN is empty"},
      {{"container", "caf\xe9"}, "the name of the container is not UTF-8"},
      {{"containers", "--type", "bundle"}, "bundle"},
      {{"hsrp", ""}, "the name of the HSRP group is empty"},
      {{"hsrp", "10", "20"}, "20"},
      {{"subnet", std::string(256, 'x')}, "the name of the subnet is longer than 255 bytes"},
      {{"subnets", "--hops", "2"}, "--from"},
      {{"subnets", "--from", ""}, "the name of the node is empty"},
      {{"subnets", "--from", "a", "--hops", "0"}, "not in range 1 to 1000000"},
      {{"subnets", "--ip-level", "5"}, "5"},
      {{"subnets", "--scope", "wide"}, "\"wide\" is none of link-local, site-local, global"},
      {{"connectivity"}, "NODE is required"},
      {{"connectivity", "core-1", "caf\xe9"}, "the name of the node is not UTF-8"},
      {{"path", "core-1", "caf\xe9"}, "the name of the node is not UTF-8"},
      {{"nodes", "--name", ""}, "the pattern is empty"},
      {{"nodes", "--name", "caf\xe9"}, "the pattern is not UTF-8"},
      {{"nodes", "--capability", "isRouter = 1 or 1"}, "isRouter = 1 or 1"},
      {{"nodes", "--address", "10.20.8.*"}, "\"10.20.8.*\" is no address"},
      {{"nodes", "--filter", ""}, "the name of the filter is empty"},
      {{"nodes", "--file", "x.xml"}, "--file requires --filter"},
      {{"interfaces"}, "NODE or --filter NAME is required"},
      {{"interfaces", "core-1", "--filter", "Uplinks"}, "excludes"},
      {{"addresses", "--prefix", "10.20.8.0"}, "\"10.20.8.0\" is no prefix"},
      {{"addresses", "--type", "ipx"}, "\"ipx\" is none of ipv4, ipv6, dns"},
      {{"addresses", "--type", "16"}, "\"16\" is none of ipv4, ipv6, dns"},
      {{"addresses", "--address", "a\nb"}, "the pattern has a control character in it"},
      {{"subnets", "--from", "a", "--name", "b"}, "excludes"},
      {{"filter"}, "A subcommand is missing.\nSubcommands of filter: list run check explain\n"},
      {{"--json", "filter"}, "A subcommand is missing.\nSubcommands of filter: list"},
      {{"filter", "lst"}, "There is no subcommand \"filter lst\". Did you mean \"filter list\"?"},
      {{"filter", "lst", "--help"}, "There is no subcommand \"filter lst\"."},
      {{"help", "filter", "rum"}, "Did you mean \"filter run\"?"},
      {{"filter", "nodes"}, "There is no subcommand \"filter nodes\".\nSubcommands of filter: "},
      {{"filter", "--nope"}, "A subcommand is missing.\nSubcommands of filter: list"},
      {{"filter", "list", "--nope"}, "--nope"},
      {{"filter", "run"}, "NAME is required"},
      {{"filter", "check"}, "FILE is required"},
      {{"filter", "check", ""}, "the name of the file is empty"},
      {{"filter", "list", "--file", ""}, "the name of the file is empty"},
  };
  for (const WrongCall& call : calls) {
    const std::string what = testing::PrintToString(call.words);
    const CliResult result = zntopoRun(call.words);
    EXPECT_EQ(result.status, 2) << what;
    EXPECT_EQ(result.out, "") << what;
    EXPECT_THAT(result.err, HasSubstr(call.complaint)) << what;
    EXPECT_THAT(result.err, Not(HasSubstr("select"))) << what;
    EXPECT_THAT(result.err, Not(HasSubstr("\xe9"))) << what;
  }
}

TEST(CliCallTest, HelpShowsExamplesOnStandardOutput) {
  const std::vector<std::string> commands = subcommands();
  EXPECT_THAT(commands, testing::IsSupersetOf({"init", "nodes", "path"}));
  for (const std::string& command : commands) {
    const CliResult result = zntopoRun(callOf(command, {"--help"}));
    EXPECT_EQ(result.status, 0) << command;
    EXPECT_THAT(result.out, HasSubstr("  zntopo " + command)) << command;
    EXPECT_THAT(result.out, HasSubstr("--store")) << command;
    EXPECT_THAT(result.out, HasSubstr("--json")) << command;
    EXPECT_EQ(result.err, "") << command;
    EXPECT_EQ(zntopoRun(callOf("help " + command)).out, result.out) << command;
  }
  EXPECT_THAT(zntopoRun({"--help"}).out, HasSubstr("Exit status"));
  EXPECT_EQ(zntopoRun({"help"}).out, zntopoRun({"--help"}).out);
  EXPECT_THAT(zntopoRun({"--version"}).out, StartsWith("zntopo "));
  EXPECT_THAT(zntopoRun({"addresses", "--help"}).out, HasSubstr(". One of ipv4, ipv6, dns"));
  EXPECT_THAT(zntopoRun({"path", "--help"}).out, HasSubstr("NUMBER:INT in [1 - 1000000]=20"));
}

TEST(CliCallTest, ACallThatIsFoundInThePathFindsItsDataToo) {
  const std::string folder = inBuildTree("tools");
  const std::string call =
      "cd / && env -u TV_DATA_PATH -u TV_ETC_PATH PATH='" + folder + "' zntopo filter list";
  FILE* const pipe = popen(call.c_str(), "r");
  ASSERT_NE(pipe, nullptr);
  std::string out;
  for (int c = 0; (c = std::fgetc(pipe)) != EOF;) out += static_cast<char>(c);
  EXPECT_EQ(pclose(pipe), 0);
  EXPECT_THAT(out, HasSubstr("Routers"));
}

}  // namespace
}  // namespace zntopo::test
