#include <gmock/gmock.h>

#include <map>
#include <set>

#include "tests/support/CliSupport.h"

/// @file
/// What the command says of VLANs, containers, HSRP groups and subnets, held against statements on
/// the store that are written by hand.

namespace zntopo::test {
namespace {

using Json = nlohmann::json;
using Rows = std::multiset<std::vector<std::string>>;
using testing::HasSubstr;
using testing::Not;

/// The label of the interface i.
const std::string kLabel =
    "substr(case when i.IfAlias is null or i.IfAlias = '-' then i.IfName else i.IfAlias end, 1, "
    "33)";

std::string text(const Json& value) {
  if (value.is_null()) return "";
  if (value.is_boolean()) return value.get<bool>() ? "1" : "0";
  return value.is_string() ? value.get<std::string>() : value.dump();
}

/// The members of an object as texts, as a row of the store has them.
std::vector<std::string> texts(const Json& object, const std::vector<const char*>& names) {
  std::vector<std::string> result;
  for (const char* name : names) result.push_back(text(object[name]));
  return result;
}

Rows rowsOf(const Json& objects, const std::vector<const char*>& names) {
  Rows rows;
  for (const Json& object : objects) rows.insert(texts(object, names));
  return rows;
}

class CliGroupsTest : public CliTest {
 protected:
  void SetUp() override {
    CliTest::SetUp();
    if (IsSkipped() || HasFatalFailure()) return;
    ASSERT_EQ(zntopoRun({"init"}).status, 0);
    const CliResult filled = zntopoRun(filling());
    ASSERT_EQ(filled.status, 0) << filled.err;
  }

  /// The call that fills the store.
  virtual std::vector<std::string> filling() const = 0;

  Rows selectSet(const std::string& sql, std::size_t columns,
                 const std::vector<std::string>& parameters = {}) const {
    const auto rows = select(sql, columns, parameters);
    return {rows.begin(), rows.end()};
  }

  void expectVlans() const;
  void expectContainers() const;
  void expectHsrpGroups() const;
  void expectTracks(const Json& members) const;
  void expectSubnets() const;
  void expectSubnetsFrom(const std::string& node, int hops, const std::string& scope) const;
  void expectSubnetsFromIpv6Nodes() const;
};

void CliGroupsTest::expectVlans() const {
  const Json vlans = answerOf({"vlans"})["vlans"];
  EXPECT_FALSE(vlans.empty());
  EXPECT_EQ(rowsOf(vlans, {"id", "name", "number", "nodes", "interfaces"}),
            selectSet("select v.ObjId, v.EntityName, u.IntVal, count(distinct i.NodeObjID), "
                      "count(i.ObjId) from nwentity v "
                      "join userdefvar u on u.ObjID = v.ObjId and u.VarName = 'VlanId' "
                      "left join containment c on c.ContainerObjID = v.ObjId "
                      "left join nwinterface i on i.ObjId = c.ContainedObjID "
                      "and i.VendorCard is not null and i.VendorPort is not null "
                      "where v.EntityType = 4 group by v.ObjId, v.EntityName, u.IntVal",
                      5));
  for (const Json& vlan : vlans) {
    EXPECT_EQ(
        rowsOf(answerOf({"vlan", vlan["id"]})["vlan"]["members"], {"node", "interface", "port"}),
        selectSet("select n.EntityName, " + kLabel +
                      ", i.VendorPort from containment c, nwinterface i, nwnode n "
                      "where c.ContainerObjID = ? and i.ObjId = c.ContainedObjID "
                      "and n.ObjId = i.NodeObjID",
                  3, {vlan["id"]}))
        << vlan["name"];
  }
}

void CliGroupsTest::expectContainers() const {
  const Json containers = answerOf({"containers"})["containers"];
  EXPECT_FALSE(containers.empty());
  const std::string list =
      "select k.ObjId, k.EntityName, k.IFCType, k.AppsID, k.isOrdered, "
      "count(distinct m.NodeObjId), count(m.InterfaceObjId) from nwifc k "
      "left join nwifcctm m on m.ContainerObjId = k.ObjId ";
  const std::string grouped = "group by k.ObjId, k.EntityName, k.IFCType, k.AppsID, k.isOrdered";
  const std::vector<const char*> names = {"id",      "name",  "type",      "application",
                                          "ordered", "nodes", "interfaces"};
  EXPECT_EQ(rowsOf(containers, names), selectSet(list + grouped, names.size()));
  bool hasOrdered = false;
  for (const Json& one : containers) {
    const std::string type = text(one["type"]);
    EXPECT_EQ(rowsOf(answerOf({"containers", "--type", type})["containers"], names),
              selectSet(list + "where k.IFCType = " + type + " " + grouped, names.size()));
    const Json container = answerOf({"container", one["name"]})["container"];
    std::vector<std::vector<std::string>> members;
    for (const Json& member : container["members"]) {
      members.push_back(texts(member, {"sequence", "node", "interface", "containment"}));
    }
    const auto stored = select("select m.SequenceNumber, n.EntityName, " + kLabel +
                                   ", m.ContainmentType from nwifcctm m, nwinterface i, nwnode n "
                                   "where m.ContainerObjId = ? and i.ObjId = m.InterfaceObjId "
                                   "and n.ObjId = m.NodeObjId order by m.SequenceNumber",
                               4, {one["id"]});
    if (one["ordered"] == true) {
      hasOrdered = true;
      EXPECT_EQ(members, stored) << one["name"];
    }
    EXPECT_EQ(Rows(members.begin(), members.end()), Rows(stored.begin(), stored.end()));
    EXPECT_EQ(
        rowsOf(container["associations"], {"left", "right", "relation", "state", "left_type"}),
        selectSet("select l.EntityName, r.EntityName, a.RelType, a.State, a.LeftIfcType "
                  "from nwifcasc a, nwifc l, nwifc r where l.ObjId = a.LeftIFContainerObjID "
                  "and r.ObjId = a.RightIFContainerObjID and (l.ObjId = ? or r.ObjId = ?)",
                  5, {one["id"], one["id"]}))
        << one["name"];
  }
  EXPECT_TRUE(hasOrdered);
}

/// The tracked interfaces of members: their list as the store has it, and their names.
void CliGroupsTest::expectTracks(const Json& members) const {
  std::map<std::string, std::vector<std::string>> names;
  for (const auto& row : select("select i.ObjId, n.EntityName, " + kLabel +
                                    " from nwinterface i, nwnode n where n.ObjId = i.NodeObjID",
                                3)) {
    names[row[0]] = {row[1], row[2]};
  }
  std::size_t tracked = 0;
  for (const Json& member : members) {
    std::string list;
    for (const Json& track : member["tracks"]) {
      ++tracked;
      list += "[" + text(track["interface_id"]) + "," + text(track["priority"]) + "]";
      EXPECT_EQ(texts(track, {"node", "interface"}), names[track["interface_id"]]);
    }
    EXPECT_EQ(Rows({{list}}),
              selectSet("select TrackInterfaceList from hsrpaddress where AddressIfObjID = ?", 1,
                        {member["interface_id"]}));
  }
  EXPECT_GT(tracked, 0u);
}

void CliGroupsTest::expectHsrpGroups() const {
  static const std::map<std::string, std::string> states = {
      {"1", "Initial"}, {"2", "Learn"},  {"3", "Listen"},    {"4", "Speak"},
      {"5", "StandBy"}, {"6", "Active"}, {"7", "MiscState"}, {"9", "NoResponse"}};
  const Json groups = answerOf({"hsrp"})["groups"];
  EXPECT_FALSE(groups.empty());
  Rows faults;
  for (const auto& row : select("select g.EntityName, (select count(*) from hsrpaddress h where "
                                "h.ObjID = g.ObjId and h.state = 6) from nwentity g "
                                "where g.EntityType = 11",
                                2)) {
    const std::string fault = row[1] == "0" ? "no_active_member" : "several_active_members";
    faults.insert({row[0], row[1] == "1" ? "" : fault});
  }
  EXPECT_EQ(rowsOf(groups, {"name", "fault"}), faults);
  Json allMembers = Json::array();
  Rows shown;
  for (const Json& group : groups) {
    for (const Json& member : group["members"]) {
      allMembers.push_back(member);
      std::vector<std::string> row = texts(group, {"name", "number"});
      for (const std::string& one :
           texts(member, {"node", "interface", "address", "state", "priority", "certainty"})) {
        row.push_back(one);
      }
      shown.insert(row);
    }
    const Json alone = answerOf({"hsrp", group["id"]})["groups"];
    EXPECT_EQ(alone, Json::array({group}));
  }
  Rows stored;
  for (std::vector<std::string> row :
       select("select g.EntityName, h.HSRPNumber, n.EntityName, " + kLabel +
                  ", a.V4Address, h.state, h.HSRPPriority, h.HSRPStateCertainty "
                  "from nwentity g, hsrpaddress h, nwinterface i, nwnode n, address a "
                  "where g.EntityType = 11 and h.ObjID = g.ObjId and i.ObjId = h.AddressIfObjID "
                  "and n.ObjId = i.NodeObjID and a.AddressId = h.AddressID",
              8)) {
    row[5] = states.at(row[5]);
    stored.insert(row);
  }
  EXPECT_EQ(shown, stored);
  expectTracks(allMembers);
}

void CliGroupsTest::expectSubnets() const {
  const Json subnets = answerOf({"subnets"})["subnets"];
  EXPECT_FALSE(subnets.empty());
  EXPECT_EQ(rowsOf(subnets, {"id", "name", "ip_level", "nodes", "addresses"}),
            selectSet("select s.ObjId, s.EntityName, s.IPLevel, count(distinct i.NodeObjID), "
                      "count(i.ObjId) from nwentity s "
                      "left join address a on a.SubnetObjId = s.ObjId and a.ObjId <> s.ObjId "
                      "left join nwinterface i on i.ObjId = a.ObjId where s.EntityType = 7 "
                      "group by s.ObjId, s.EntityName, s.IPLevel",
                      5));
  Rows prefixes = rowsOf(subnets, {"id", "prefix"});
  std::erase_if(prefixes, [](const auto& row) { return row[1].empty(); });
  EXPECT_EQ(prefixes, selectSet("select ObjId, coalesce(V4Address, V6Address) || '/' || "
                                "PrefixLength from address where isSubnet = 1",
                                2));
  for (const std::string level : {"4", "6"}) {
    EXPECT_EQ(
        rowsOf(answerOf({"subnets", "--ip-level", level})["subnets"], {"id"}),
        selectSet("select ObjId from nwentity where EntityType = 7 and IPLevel = " + level, 1));
  }
  EXPECT_EQ(rowsOf(answerOf({"subnets", "--scope", "global"})["subnets"], {"id"}),
            selectSet("select ObjId from address where isSubnet = 1 and V6ScopeType = 3", 1));
  // The first of the IPv4 ones, and the last of all.
  for (const Json& subnet : {subnets.front(), subnets.back()}) {
    EXPECT_EQ(rowsOf(answerOf({"subnet", subnet["id"]})["subnet"]["end_points"],
                     {"node", "interface", "address"}),
              selectSet("select n.EntityName, " + kLabel +
                            ", coalesce(a.V4Address, a.V6Address) from address a, nwinterface i, "
                            "nwnode n where a.SubnetObjId = ? and a.ObjId <> a.SubnetObjId "
                            "and i.ObjId = a.ObjId and n.ObjId = i.NodeObjID",
                        3, {subnet["id"]}))
        << subnet["name"];
  }
}

/// The subnets around an IPv6 node, by way of those of one scope, or of all.
void CliGroupsTest::expectSubnetsFrom(const std::string& node, int hops,
                                      const std::string& scope) const {
  const std::string wanted =
      std::string(" in (select ObjId from address where isSubnet = 1 and V6ScopeType ") +
      (scope.empty()       ? "> 0"
       : scope == "global" ? "= 3"
                           : "= 1") +
      ")";
  const Rows stored = selectSet(
      "with recursive reached(subnet, hop) as ("
      "select a.SubnetObjId, 1 from address a, nwnode n "
      "where n.EntityName = ? and a.NodeObjId = n.ObjId and a.AddressType = 2 "
      "and a.SubnetObjId" +
          wanted +
          " union select b.SubnetObjId, r.hop + 1 from reached r, address a, address b "
          "where a.SubnetObjId = r.subnet and a.ObjId <> a.SubnetObjId "
          "and b.NodeObjId = a.NodeObjId and b.AddressType = 2 and b.SubnetObjId" +
          wanted + " and r.hop < " + std::to_string(hops) + ") select distinct subnet from reached",
      1, {node});
  std::vector<std::string> call = {"subnets", "--from", node, "--hops", std::to_string(hops)};
  if (!scope.empty()) call.insert(call.end(), {"--scope", scope});
  EXPECT_EQ(rowsOf(answerOf(call)["subnets"], {"id"}), stored) << testing::PrintToString(call);
  EXPECT_EQ(stored.empty(), scope == "link-local") << testing::PrintToString(call);
}

void CliGroupsTest::expectSubnetsFromIpv6Nodes() const {
  const Json nodes = answerOf({"nodes", "--ip-level", "6"})["nodes"];
  ASSERT_FALSE(nodes.empty());
  const std::string node = nodes[0]["name"];
  for (const int hops : {1, 2, 3, 9}) expectSubnetsFrom(node, hops, "");
  expectSubnetsFrom(node, 3, "global");
  expectSubnetsFrom(node, 3, "link-local");
  EXPECT_TRUE(answerOf({"subnets", "--from", node, "--ip-level", "4"})["subnets"].empty());
  EXPECT_THAT(zntopoRun({"subnets", "--from", node}).out,
              HasSubstr("1 subnet within 1 hop of " + node + "\n"));
}

/// The sample network.
class CliSampleGroupsTest : public CliGroupsTest {
 protected:
  std::vector<std::string> filling() const override { return {"import", samplePath()}; }
};

/// A generated one, in which half of the HSRP groups are broken.
class CliCampusGroupsTest : public CliGroupsTest {
 protected:
  std::vector<std::string> filling() const override {
    return {"generate", "--nodes", "60", "--sites", "2", "--broken-hsrp", "0.5"};
  }
};

TEST_P(CliSampleGroupsTest, VlansAreThoseOfTheStore) { expectVlans(); }
TEST_P(CliSampleGroupsTest, ContainersAreThoseOfTheStore) { expectContainers(); }
TEST_P(CliSampleGroupsTest, HsrpGroupsAreThoseOfTheStore) { expectHsrpGroups(); }
TEST_P(CliSampleGroupsTest, SubnetsAreThoseOfTheStore) { expectSubnets(); }
TEST_P(CliSampleGroupsTest, SubnetsAroundANodeAreThoseOfTheStore) { expectSubnetsFromIpv6Nodes(); }
TEST_P(CliCampusGroupsTest, VlansAreThoseOfTheStore) { expectVlans(); }
TEST_P(CliCampusGroupsTest, ContainersAreThoseOfTheStore) { expectContainers(); }
TEST_P(CliCampusGroupsTest, HsrpGroupsAreThoseOfTheStore) { expectHsrpGroups(); }
TEST_P(CliCampusGroupsTest, SubnetsAreThoseOfTheStore) { expectSubnets(); }
TEST_P(CliCampusGroupsTest, SubnetsAroundANodeAreThoseOfTheStore) { expectSubnetsFromIpv6Nodes(); }

TEST_P(CliSampleGroupsTest, SubnetsAroundAnIpv4NodeAreNotTold) {
  const CliResult result = zntopoRun({"subnets", "--from", "core-1", "--json"});
  EXPECT_EQ(result.status, 1);
  EXPECT_EQ(result.json()["status"]["name"], "ZN_API_NON_V6_NODE");
  EXPECT_TRUE(result.json()["subnets"].empty());
  EXPECT_THAT(result.err, HasSubstr("core-1 is no IPv6 node: \"zntopo nodes --ip-level 6\""));
  EXPECT_EQ(failureOf({"subnets", "--from", "nobody"}), "ZN_API_OBJ_NOT_EXIST");
}

TEST_P(CliCampusGroupsTest, AGroupWithoutExactlyOneActiveMemberIsPointedOut) {
  std::map<std::string, std::size_t> faults;
  const Json groups = answerOf({"hsrp"})["groups"];
  for (const Json& group : groups) {
    ++faults[text(group["fault"])];
    const CliResult alone = zntopoRun({"hsrp", group["name"]});
    const bool isGood = group["fault"].is_null();
    EXPECT_EQ(alone.out.find("\nfault ") == std::string::npos, isGood) << alone.out;
    if (group["fault"] == "no_active_member") {
      EXPECT_THAT(alone.out, HasSubstr("no active member\n"));
    } else if (!isGood) {
      EXPECT_THAT(alone.out, HasSubstr("2 active members\n"));
    }
  }
  ASSERT_EQ(faults.size(), 3u) << "the campus has groups of all three sorts";
  const std::size_t faulty = faults["no_active_member"] + faults["several_active_members"];
  EXPECT_THAT(zntopoRun({"hsrp"}).out,
              HasSubstr(", " + std::to_string(faulty) + " without exactly one active member\n"));
  executeOn(store(), "update hsrpaddress set state = 5");
  executeOn(store(),
            "update hsrpaddress set state = 6 where AddressID in "
            "(select min(AddressID) from hsrpaddress group by ObjID)");
  EXPECT_THAT(zntopoRun({"hsrp"}).out, Not(HasSubstr("without")));
  EXPECT_THAT(zntopoRun({"hsrp"}).out, Not(HasSubstr("FAULT")));
}

INSTANTIATE_TEST_SUITE_P(Engines, CliSampleGroupsTest, testing::ValuesIn(kEngines), EngineNames());
INSTANTIATE_TEST_SUITE_P(Engines, CliCampusGroupsTest, testing::ValuesIn(kEngines), EngineNames());

}  // namespace
}  // namespace zntopo::test
