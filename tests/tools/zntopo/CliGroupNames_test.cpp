#include <gmock/gmock.h>

#include "tests/support/CliSupport.h"

/// @file
/// How VLANs, containers, HSRP groups and subnets are named in a call, and what is shown of those
/// that are not as they should be.

namespace zntopo::test {
namespace {

using Json = nlohmann::json;
using testing::HasSubstr;

/// Two sites of a campus, so that names of VLANs are unique and their numbers are not.
class CliGroupNamesTest : public CliTest {
 protected:
  void SetUp() override {
    CliTest::SetUp();
    if (IsSkipped() || HasFatalFailure()) return;
    ASSERT_EQ(zntopoRun({"init"}).status, 0);
    const CliResult filled = zntopoRun({"generate", "--nodes", "40", "--sites", "2"});
    ASSERT_EQ(filled.status, 0) << filled.err;
  }
};

TEST_P(CliGroupNamesTest, AGroupIsFoundByNameIdentifierAndBeginning) {
  struct Case {
    const char* list;
    const char* command;
    const char* member;
  };
  for (const Case& one : {Case{"vlans", "vlan", "vlan"},
                          {"containers", "container", "container"},
                          {"subnets", "subnet", "subnet"}}) {
    const Json listed = answerOf({one.list})[one.list][1];
    const std::string name = listed["name"];
    const std::string id = listed["id"];
    EXPECT_EQ(answerOf({one.command, name})[one.member]["id"], id);
    EXPECT_EQ(answerOf({one.command, id})[one.member]["id"], id);
    std::string upper = id;
    for (char& c : upper) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    EXPECT_EQ(answerOf({one.command, upper})[one.member]["id"], id);
  }
  const std::string gateway = "site02-management-gateway";
  const Json group = answerOf({"hsrp", gateway})["groups"][0];
  EXPECT_EQ(group["name"], gateway);
  EXPECT_EQ(answerOf({"hsrp", "site02-m"})["groups"], Json::array({group}));
  EXPECT_EQ(answerOf({"vlan", "site02-man"})["vlan"]["name"], "site02-management");
  EXPECT_EQ(answerOf({"container", "site01-core"})["container"]["name"], "site01-core-trunk");
}

TEST_P(CliGroupNamesTest, WhatFitsSeveralIsAnErrorThatListsThem) {
  for (const std::vector<std::string>& call : {std::vector<std::string>{"vlan", "10"},
                                               {"vlan", "site0"},
                                               {"hsrp", "10"},
                                               {"container", "site01-wan-"},
                                               {"subnet", "fe80::/64"},
                                               {"subnet", "FE80:0:0::1/64"}}) {
    EXPECT_EQ(failureOf(call), "ZN_API_NONUNIQUE_NAME") << testing::PrintToString(call);
  }
  EXPECT_THAT(zntopoRun({"vlan", "10"}).err, HasSubstr("  site01-management\n"));
  EXPECT_THAT(zntopoRun({"vlan", "10"}).err, HasSubstr("  site02-management\n"));
  EXPECT_THAT(zntopoRun({"subnet", "172.16."}).err, HasSubstr("\n  ...\n"));
}

TEST_P(CliGroupNamesTest, ANumberThatIsUniqueNamesAVlanAndAGroup) {
  executeOn(store(),
            "update userdefvar set IntVal = 4000 where VarName = 'VlanId' and ObjID in "
            "(select ObjId from nwentity where EntityName = 'site02-voice')");
  executeOn(store(),
            "update hsrpaddress set HSRPNumber = 4000 where ObjID in "
            "(select ObjId from nwentity where EntityName = 'site02-voice-gateway')");
  EXPECT_EQ(answerOf({"vlan", "4000"})["vlan"]["name"], "site02-voice");
  EXPECT_EQ(answerOf({"vlan", "4000"})["vlan"]["number"], 4000);
  EXPECT_EQ(answerOf({"hsrp", "4000"})["groups"][0]["name"], "site02-voice-gateway");
  EXPECT_EQ(failureOf({"vlan", "4001"}), "ZN_API_OBJ_NOT_EXIST");
  EXPECT_EQ(failureOf({"vlan", "99999999999999999999"}), "ZN_API_OBJ_NOT_EXIST");
  EXPECT_EQ(failureOf({"hsrp", "-1"}), "ZN_API_OBJ_NOT_EXIST");
}

TEST_P(CliGroupNamesTest, ASubnetIsFoundByItsPrefixInAnyFormAndByAnAddressInIt) {
  const std::string id = answerOf({"subnet", "10.0.1.0/24"})["subnet"]["id"];
  EXPECT_EQ(answerOf({"subnet", "10.0.1.77/24"})["subnet"]["id"], id);
  const std::string address =
      answerOf({"subnet", "10.0.1.0/24"})["subnet"]["end_points"][0]["address"];
  EXPECT_EQ(answerOf({"subnet", address})["subnet"]["id"], id);
  const std::string v6 = answerOf({"subnet", "2001:db8:0:1::/64"})["subnet"]["id"];
  EXPECT_EQ(answerOf({"subnet", "2001:DB8:0000:1:0::/64"})["subnet"]["id"], v6);
  EXPECT_EQ(failureOf({"subnet", "10.0.1.0/25"}), "ZN_API_OBJ_NOT_EXIST");
  // An address of nobody, with which a name begins.
  EXPECT_EQ(answerOf({"subnet", "10.0.1.0"})["subnet"]["id"], id);
  EXPECT_EQ(failureOf({"subnet", "192.0.2.1"}), "ZN_API_OBJ_NOT_EXIST");
}

TEST_P(CliGroupNamesTest, WhatIsNotThereIsNotFound) {
  const std::string vlan = answerOf({"vlans"})["vlans"][0]["id"];
  for (const char* command : {"vlan", "container", "hsrp", "subnet"}) {
    for (const std::string& name :
         {std::string("nobody"), std::string("00000000-0000-0000-0000-000000000000"),
          std::string("%"), std::string("' or '1' = '1"), std::string("'; drop table nwifc; --")}) {
      const CliResult result = zntopoRun({command, name});
      EXPECT_EQ(result.status, 1) << command << name;
      EXPECT_EQ(result.out, "") << command << name;
      EXPECT_THAT(result.err, HasSubstr("ZN_API_OBJ_NOT_EXIST")) << command << name;
      EXPECT_THAT(result.err, HasSubstr("There is no ")) << command << name;
      EXPECT_THAT(result.err, HasSubstr("[" + name + "].")) << command << name;
    }
    // The identifier of an object of another kind.
    if (std::string(command) != "vlan") {
      EXPECT_EQ(failureOf({command, vlan}), "ZN_API_OBJ_NOT_EXIST") << command;
    }
  }
  EXPECT_TRUE(answerOf({"containers", "--type", "99"})["containers"].empty());
  EXPECT_THAT(zntopoRun({"containers", "--type", "99"}).out, HasSubstr("0 containers\n"));
}

TEST_P(CliGroupNamesTest, AStoreThatIsNotReadyIsSaidToBeSoWhateverIsAsked) {
  executeOn(store(), "update state set TopologyReady = 0");
  for (const std::vector<std::string>& call : {std::vector<std::string>{"vlans"},
                                               {"vlan", "10"},
                                               {"vlan", "site01-management"},
                                               {"container", "site01-wan-a"},
                                               {"hsrp", "nobody"},
                                               {"subnet", "fe80::/64"}}) {
    EXPECT_EQ(failureOf(call), "ZN_API_DB_NOT_READY") << testing::PrintToString(call);
  }
}

TEST_P(CliGroupNamesTest, AVlanMayHaveAnotherNumberOrNone) {
  const std::string ofVoice =
      " where VarName = 'VlanId' and ObjID in "
      "(select ObjId from nwentity where EntityName = 'site01-voice')";
  executeOn(store(), "update userdefvar set VarValType = 0" + ofVoice);
  EXPECT_EQ(answerOf({"vlan", "site01-voice"})["vlan"]["number"], 30);
  executeOn(store(),
            "update userdefvar set VarValType = 3, StrVal = '30a', IntVal = null" + ofVoice);
  EXPECT_EQ(answerOf({"vlan", "site01-voice"})["vlan"]["number"], "30a");
  EXPECT_EQ(answerOf({"vlans"})["vlans"].back()["number"], "30a");
  executeOn(store(), "delete from userdefvar" + ofVoice);
  EXPECT_TRUE(answerOf({"vlan", "site01-voice"})["vlan"]["number"].is_null());
  EXPECT_EQ(answerOf({"vlans"})["vlans"].back()["name"], "site01-voice");
  EXPECT_THAT(zntopoRun({"vlans"}).out, HasSubstr("\n-     site01-voice"));
}

TEST_P(CliGroupNamesTest, ATrackThatIsNoInterfaceKeepsNoOtherFromItsName) {
  const std::string name = "site01-voice-gateway";
  const Json before = answerOf({"hsrp", name})["groups"][0]["members"][0]["tracks"];
  ASSERT_FALSE(before.empty());
  const std::string id = before[0]["interface_id"];
  executeOn(store(),
            "update hsrpaddress set TrackInterfaceList = '[gone,3][17,4][x'' or 1 = 1,5][" + id +
                ",6][,7][" + id + "'");
  const Json tracks = answerOf({"hsrp", name})["groups"][0]["members"][0]["tracks"];
  ASSERT_EQ(tracks.size(), 5u);
  const std::vector<std::string> ids = {"gone", "17", "x' or 1 = 1", id, ""};
  for (std::size_t i = 0; i < ids.size(); ++i) {
    EXPECT_EQ(tracks[i]["priority"], static_cast<int>(i) + 3);
    if (i == 4) {
      EXPECT_TRUE(tracks[i]["interface_id"].is_null());
    } else {
      EXPECT_EQ(tracks[i]["interface_id"], ids[i]);
    }
    EXPECT_EQ(tracks[i]["node"].is_null(), i != 3);
  }
  EXPECT_EQ(tracks[3]["interface"], before[0]["interface"]);
  EXPECT_EQ(tracks[0]["interface"], "gone");
  EXPECT_THAT(zntopoRun({"hsrp", name}).out, HasSubstr("gone (3), 17 (4)"));
}

TEST_P(CliGroupNamesTest, AMemberWithoutRowsIsShownByItsIdentifiers) {
  const std::string name = "site01-voice-gateway";
  executeOn(store(), "delete from hsrpaddress where state <> 6");
  executeOn(store(),
            "update hsrpaddress set AddressIfObjID = 'lost', AddressID = 'gone'"
            " where ObjID in (select ObjId from nwentity where EntityName = '" +
                name + "')");
  const Json member = answerOf({"hsrp", name})["groups"][0]["members"][0];
  EXPECT_EQ(member["interface"], "lost");
  EXPECT_TRUE(member["node"].is_null());
  EXPECT_TRUE(member["address"].is_null());
  executeOn(store(), "delete from hsrpaddress");
  const Json empty = answerOf({"hsrp", name})["groups"][0];
  EXPECT_EQ(empty["number"], 0);
  EXPECT_EQ(empty["fault"], "no_active_member");
  EXPECT_THAT(zntopoRun({"hsrp", name}).out, HasSubstr("\n\n0 members\n"));
}

TEST_P(CliGroupNamesTest, WhatCantBeReadIsAFailureWithItsReason) {
  struct Case {
    const char* table;
    std::vector<std::string> call;
  };
  for (const Case& one : {Case{"containment", {"vlans"}},
                          {"nwifcctm", {"containers"}},
                          {"nwifcasc", {"container", "site01-wan-a"}},
                          {"hsrpaddress", {"hsrp"}},
                          {"address", {"subnets"}}}) {
    const std::string table = one.table;
    executeOn(store(), "alter table " + table + " rename to gone");
    const CliResult result = zntopoRun(one.call);
    EXPECT_EQ(result.status, 1) << table;
    EXPECT_EQ(result.out, "") << table;
    EXPECT_THAT(result.err, HasSubstr(table));
    EXPECT_THAT(result.err, HasSubstr("zntopo init")) << table << result.err;
    executeOn(store(), "alter table gone rename to " + table);
  }
}

TEST_P(CliGroupNamesTest, NamesAreAskedForTogether) {
  const auto count = [](const std::string& text, const std::string& what) {
    int result = 0;
    for (auto at = text.find(what); at != std::string::npos; at = text.find(what, at + 1)) ++result;
    return result;
  };
  struct Case {
    std::vector<std::string> call;
    int interfaces;
    int nodes;
    int addresses;
  };
  for (const Case& one : {Case{{"hsrp"}, 1, 1, 1},
                          {{"vlan", "site01-management"}, 1, 1, 0},
                          {{"container", "site01-wan-a"}, 1, 1, 0},
                          {{"subnets"}, 0, 0, 1},
                          {{"subnet", "10.0.1.0/24"}, 1, 1, 2}}) {
    const CliResult result = zntopoRun(one.call, {"MC_DLEVEL=0"});
    const std::string what = one.call[0];
    EXPECT_EQ(count(result.err, " +getInterfacesByObjIDList\n"), one.interfaces) << what;
    EXPECT_EQ(count(result.err, " +getNodesByObjIDList\n"), one.nodes) << what;
    EXPECT_EQ(count(result.err, " +getAddrsByObjIDs\n"), one.addresses) << what;
  }
}

INSTANTIATE_TEST_SUITE_P(Engines, CliGroupNamesTest, testing::ValuesIn(kEngines), EngineNames());

}  // namespace
}  // namespace zntopo::test
