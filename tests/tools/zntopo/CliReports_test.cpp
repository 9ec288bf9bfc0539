#include <gmock/gmock.h>

#include <algorithm>

#include "tests/support/CliSupport.h"
#include "tests/support/Golden.h"

/// @file
/// What the command says of the topology as a whole: counters, the audit trail, and the dump of
/// nodes. Counters and rows are held against statements on the store that are written by hand.

namespace zntopo::test {
namespace {

using Json = nlohmann::json;
using testing::HasSubstr;
using testing::SizeIs;
using testing::StartsWith;

class CliReportsTest : public CliSampleTest {
 protected:
  int count(const std::string& sql) const { return std::stoi(select(sql, 1)[0][0]); }

  /// The actions of a call of "audit".
  Json actions(std::vector<std::string> options = {}) const {
    options.insert(options.begin(), "audit");
    return answerOf(options)["actions"];
  }
};
ZNTOPO_ON_ENGINES(CliReportsTest, kEngines);

/// What golden files hold.
class CliReportsGoldenTest : public CliReportsTest {};
ZNTOPO_ON_ENGINES(CliReportsGoldenTest, kEngines);

TEST_P(CliReportsTest, TheInfoCountsTheRowsOfTheStore) {
  const std::pair<const char*, const char*> counters[] = {
      {"nodes", "nwnode"},
      {"ipv4_nodes", "nwnode where IPLevel = 4"},
      {"ipv6_nodes", "nwnode where IPLevel = 6"},
      {"snmp_nodes", "nwnode where SysOID <> '-'"},
      {"interfaces", "nwinterface"},
      {"ipv4_interfaces", "nwinterface where IPLevel = 4"},
      {"ipv6_interfaces", "nwinterface where IPLevel = 6"},
      {"links", "NWInterfaceAsc where RelType = 1"},
      {"ipv4_addresses", "address where AddressType = 1"},
      {"ipv6_addresses", "address where AddressType = 2"},
      {"dns_names", "address where AddressType = 16"},
      {"ipv4_subnets", "nwentity where EntityType = 7 and IPLevel = 4"},
      {"ipv6_subnets", "nwentity where EntityType = 7 and IPLevel = 6"},
      {"vlans", "nwentity where EntityType = 4"},
      {"hsrp_groups", "nwentity where EntityType = 11"},
      {"meshes", "nwentity where EntityType = 10"},
  };
  const Json info = answerOf({"info"});
  EXPECT_EQ(info["state"], "READY");
  for (const auto& [member, rows] : counters) {
    EXPECT_EQ(info[member], count(std::string("select count(*) from ") + rows)) << member;
    EXPECT_GT(info[member], 0) << member;
  }
  const Json domains = info["route_distinguishers"];
  ASSERT_THAT(domains, SizeIs(2));
  EXPECT_TRUE(domains[0]["route_distinguisher"].is_null());
  EXPECT_EQ(domains[1]["route_distinguisher"], 0);
  EXPECT_EQ(domains[0]["nodes"].get<int>() + domains[1]["nodes"].get<int>(), info["nodes"]);
}

TEST_P(CliReportsGoldenTest, TheInfoIsAlignedForPeople) {
  expectGolden("zntopo/info.txt", zntopoRun({"info"}).out);
}

TEST_P(CliReportsTest, WithoutAReadyStoreThereIsNoInfo) {
  executeOn(store(), "update state set TopologyReady = 0");
  const CliResult result = zntopoRun({"info"});
  EXPECT_EQ(result.status, 1);
  EXPECT_EQ(result.out, "");
  EXPECT_THAT(result.err, HasSubstr("ZN_API_DB_NOT_READY"));
  EXPECT_THAT(result.err, HasSubstr("TOPOLOGY_INTERNAL_PROCESSING"));
}

TEST_P(CliReportsTest, TheAuditTrailHasEachRowByTime) {
  const Json all = actions();
  EXPECT_EQ(static_cast<int>(all.size()), count("select count(*) from nwtopoaudittrail"));
  EXPECT_GT(all.size(), 3U);
  for (std::size_t i = 1; i < all.size(); ++i) {
    EXPECT_LE(all[i - 1]["time_utc"].get<long>(), all[i]["time_utc"].get<long>());
  }
}

TEST_P(CliReportsGoldenTest, TheAuditTrailIsAlignedForPeople) {
  expectGolden("zntopo/audit.txt", zntopoRun({"audit"}).out);
}

TEST_P(CliReportsTest, AWindowAndKindsLimitTheTrail) {
  const Json all = actions();
  const std::string time = all[2]["time"];
  const long seconds = all[2]["time_utc"];
  const auto countOf = [&](const std::string& condition) {
    return count("select count(*) from nwtopoaudittrail where " + condition);
  };
  const std::string at = std::to_string(seconds);
  EXPECT_EQ(actions({"--from", time}).size(), countOf("ActionTimeUTC >= " + at));
  EXPECT_EQ(actions({"--to", time}).size(), countOf("ActionTimeUTC <= " + at));
  EXPECT_EQ(actions({"--from", time, "--to", time}).size(), countOf("ActionTimeUTC = " + at));
  // The day of the time, from its beginning to its end.
  const std::string day = time.substr(0, 10);
  const std::string begin = std::to_string(seconds - seconds % 86400);
  EXPECT_EQ(actions({"--from", day, "--to", day}).size(),
            countOf("ActionTimeUTC >= " + begin + " and ActionTimeUTC < " + begin + " + 86400"));
  for (const auto& [word, type] : {std::pair("object-deletion", 1), std::pair("object-creation", 2),
                                   std::pair("attribute-change", 6)}) {
    EXPECT_EQ(actions({"--type", word}).size(), countOf("ActionType = " + std::to_string(type)));
  }
  for (const auto& [word, kind] :
       {std::pair("node", 1), std::pair("interface", 2), std::pair("vlan", 4),
        std::pair("subnet", 7), std::pair("hsrp-group", 11), std::pair("address", 25)}) {
    EXPECT_EQ(actions({"--object", word}).size(), countOf("ObjectType = " + std::to_string(kind)));
  }
}

TEST_P(CliReportsTest, MeshesAndContainersHaveTheWordsThatFilesHaveForThem) {
  executeOn(store(), "delete from nwtopoaudittrail");
  for (const auto& [word, kind] : {std::pair("mesh", 10), std::pair("interface-container", 12)}) {
    executeOn(store(),
              "insert into nwtopoaudittrail (ActionTimeUTC, ActionType, ObjID, ActionDetail, "
              "ObjectType, ActionInfo) values (5, 2, '" +
                  std::string(word) + "', 0, " + std::to_string(kind) + ", null)");
    const Json found = actions({"--object", word});
    ASSERT_THAT(found, SizeIs(1));
    EXPECT_EQ(found[0]["object"], word);
    EXPECT_EQ(found[0]["id"], word);
  }
}

TEST_P(CliReportsTest, NumbersWithoutAWordAreTold) {
  executeOn(store(),
            "insert into nwtopoaudittrail (ActionTimeUTC, ActionType, ObjID, ActionDetail, "
            "ObjectType, ActionInfo) values (5, 77, 'gone', 88, 99, null)");
  const Json action = actions({"--to", "1970-01-01T00:00:09Z"})[0];
  EXPECT_EQ(action["time"], "1970-01-01T00:00:05Z");
  EXPECT_EQ(action["type"], 77);
  EXPECT_EQ(action["detail"], 88);
  EXPECT_EQ(action["object"], 99);
  EXPECT_EQ(action["id"], "gone");
  EXPECT_TRUE(action["name"].is_null());
  EXPECT_TRUE(action["info"].is_null());
}

TEST_P(CliReportsTest, WhatIsNoTimeAndNoWordIsAWrongCall) {
  const std::pair<std::vector<std::string>, const char*> calls[] = {
      {{"audit", "--from", "yesterday"}, "\"yesterday\" is no time: write 2026-11-21 or "},
      {{"audit", "--to", "2026-02-30"}, "\"2026-02-30\" is no time"},
      {{"audit", "--from", "1970-01-01"}, "\"1970-01-01\" is before all times"},
      {{"audit", "--type", "explosion"}, "explosion"},
      {{"audit", "--object", "tunnel"}, "tunnel"},
      {{"dump"}, "NODE"},
  };
  for (const auto& [call, complaint] : calls) {
    const CliResult result = zntopoRun(call);
    EXPECT_EQ(result.status, 2) << testing::PrintToString(call);
    EXPECT_THAT(result.err, HasSubstr(complaint));
    EXPECT_EQ(result.out, "");
  }
  EXPECT_EQ(zntopoRun({"audit", "--to", "1970-01-01"}).status, 0) << "it ends that day";
  const CliResult swapped = zntopoRun({"audit", "--from", "2026-02-02", "--to", "2026-02-01"});
  EXPECT_EQ(swapped.status, 1);
  EXPECT_THAT(swapped.err, HasSubstr("--from 2026-02-02 is behind --to 2026-02-01"));
}

TEST_P(CliReportsTest, ADumpIsTheFormOfTheLibrary) {
  // Times of the import are in the form, so it is held against the dump tool.
  const std::vector<std::string> detailed = {"TOPODUMP_DETAIL=1"};
  std::string form = topodumpRun({"-nodeif", "core-1"}, detailed).out;
  EXPECT_THAT(form, HasSubstr("\n ============ IfC Information ===================="));
  const Json dumped = zntopoRun({"dump", "core-1", "--json"}, detailed).json()["nodes"];
  ASSERT_THAT(dumped, SizeIs(1));
  EXPECT_EQ(dumped[0]["name"], "core-1");
  EXPECT_EQ(dumped[0]["form"], "text");
  EXPECT_EQ(dumped[0]["dump"], form);
  std::replace(form.begin(), form.end(), '\t', ' ');
  EXPECT_EQ(zntopoRun({"dump", "core-1"}, detailed).out, form);
}

TEST_P(CliReportsTest, ADumpOfSeveralNodesHasThemInTheirOrder) {
  const std::string both = zntopoRun({"dump", "core-2", "10.20.1.11", "--xml"}).out;
  const std::string second = zntopoRun({"dump", "core-2", "--xml"}).out;
  EXPECT_EQ(both, second + zntopoRun({"dump", "core-1", "--xml"}).out);
  EXPECT_THAT(second, StartsWith("<ZNNode>\n<ZNEntity>\n"));
  EXPECT_THAT(second, HasSubstr("\n<ZNInterface>\n"));
  EXPECT_EQ(failureOf({"dump", "core-1", "nobody"}), "ZN_API_OBJ_NOT_EXIST");
}

}  // namespace
}  // namespace zntopo::test
