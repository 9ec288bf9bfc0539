#include <gmock/gmock.h>

#include "tests/support/CliSupport.h"
#include "tests/support/EventBroker.h"
#include "tests/support/FreePort.h"

namespace zntopo::test {
namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;
using Call = std::vector<std::string>;

/// The sample network, and a broker that the command tells of changes.
class CliSetTest : public CliSampleTest {
 protected:
  void SetUp() override {
    ZNTOPO_NEED_BROKER();
    CliSampleTest::SetUp();
    if (IsSkipped() || HasFatalFailure()) return;
    useBroker("");
  }
  void TearDown() override {
    unsetenv("TV_EVENT_BROKER");
    broker_.reset();
    CliSampleTest::TearDown();
  }

  void useBroker(const std::string& configuration) {
    broker_ = std::make_unique<EventBroker>(configuration);
    setEnv("TV_EVENT_BROKER", broker_->name());
  }
  std::string value(const std::string& sql) const { return select(sql, 1).at(0).at(0); }
  std::string statusOf(const std::string& node) const {
    return value("select Status from nwnode where EntityName = '" + node + "'");
  }
  void makeUnready() const { executeOn(store(), "update state set TopologyReady = 0"); }

  std::unique_ptr<EventBroker> broker_;
};

/// The one state that a call changes.
nlohmann::json changeOf(const Call& call) {
  const nlohmann::json answer = answerOf(call);
  EXPECT_EQ(answer["changes"].size(), 1U) << answer.dump();
  return answer["changes"][0];
}

TEST_P(CliSetTest, TheStatusOfANodeIsWrittenToldAndShown) {
  const auto change = changeOf({"set", "node", "core-1", "--status", "major"});
  EXPECT_EQ(change["type"], "node");
  EXPECT_EQ(change["name"], "core-1");
  EXPECT_EQ(change["id"], answerOf({"node", "core-1"})["node"]["id"]);
  EXPECT_EQ(change["state"], "status");
  EXPECT_EQ(change["was"], "normal");
  EXPECT_EQ(change["is"], "major");
  EXPECT_EQ(change["written"], true);
  EXPECT_EQ(change["event"], "sent");
  EXPECT_EQ(statusOf("core-1"), "5");
  EXPECT_EQ(answerOf({"node", "core-1"})["node"]["status"], "major");
  EXPECT_THAT(zntopoRun({"nodes"}).out, AllOf(HasSubstr("STATUS"), HasSubstr("major")));
}

TEST_P(CliSetTest, AnIPv6NodeHasTheStatusThatItShows) {
  const auto change = changeOf({"set", "node", "badge-reader-1", "--status", "critical"});
  EXPECT_EQ(change["state"], "ipv6_status");
  EXPECT_EQ(change["is"], "critical");
  EXPECT_EQ(value("select V6CompoundStatus from nwnode where EntityName = 'badge-reader-1'"), "6");
  EXPECT_EQ(answerOf({"node", "badge-reader-1"})["node"]["status"], "critical");
}

TEST_P(CliSetTest, HowANodeAnswersSnmpIsWrittenWithItsStatus) {
  const auto changes =
      answerOf({"set", "node", "core-1", "--status", "warning", "--snmp", "agent_down"})["changes"];
  ASSERT_EQ(changes.size(), 2U);
  EXPECT_EQ(changes[1]["state"], "snmp_state");
  EXPECT_EQ(changes[1]["is"], "agent_down");
  EXPECT_EQ(statusOf("core-1"), "3");
  EXPECT_EQ(answerOf({"node", "core-1"})["node"]["snmp_state"], "agent_down");
}

TEST_P(CliSetTest, BothStatesOfAnInterfaceAreWritten) {
  const CliResult result = zntopoRun({"set", "interface", "customs-printer", "eth0", "--admin",
                                      "down", "--oper", "LowerLayerDown"});
  EXPECT_EQ(result.status, 0) << result.err;
  EXPECT_EQ(result.out,
            "OBJECT                          STATE         WAS  IS                WRITTEN  EVENT\n"
            "interface customs-printer eth0  admin_status  up   down              yes      sent\n"
            "interface customs-printer eth0  oper_status   up   lower_layer_down  yes      sent\n"
            "2 states\n");
  EXPECT_EQ(result.err, "");
  const auto interface = answerOf({"interfaces", "customs-printer"})["interfaces"][0];
  EXPECT_EQ(interface["admin_status"], "down");
  EXPECT_EQ(interface["oper_status"], "lower_layer_down");
  const std::string id = interface["id"];
  EXPECT_EQ(changeOf({"set", "interface", "customs-printer", id, "--oper", "up"})["was"],
            "lower_layer_down");
}

TEST_P(CliSetTest, ThePingStateOfAnAddressIsWritten) {
  const auto change = changeOf({"set", "address", "10.20.8.17", "--ping", "not-responding"});
  EXPECT_EQ(change["node"], "customs-printer");
  EXPECT_EQ(change["interface"], "eth0");
  EXPECT_EQ(change["address"], "10.20.8.17");
  EXPECT_EQ(change["state"], "ping_state");
  EXPECT_EQ(change["was"], "responding");
  EXPECT_EQ(value("select PingState from address where V4Address = '10.20.8.17'"), "1");
  EXPECT_THAT(zntopoRun({"addresses", "customs-printer"}).out, HasSubstr("not_responding"));
  // What is known of an IPv6 address is not read, and is written all the same.
  const auto v6 = changeOf({"set", "address", "2001:DB8:20:8:0::11", "--ping", "unreachable"});
  EXPECT_TRUE(v6["was"].is_null());
  EXPECT_EQ(v6["is"], "unreachable");
}

TEST_P(CliSetTest, AMemberOfAnHsrpGroupIsFoundByNodeAndAddress) {
  const auto changes = answerOf({"set", "hsrp", "gateway-office", "core-1", "--state", "standby",
                                 "--priority", "90", "--certainty", "70"})["changes"];
  ASSERT_EQ(changes.size(), 3U);
  EXPECT_EQ(changes[0]["type"], "hsrp");
  EXPECT_EQ(changes[0]["name"], "gateway-office");
  EXPECT_EQ(changes[0]["node"], "core-1");
  EXPECT_EQ(changes[0]["was"], "Active");
  EXPECT_EQ(changes[0]["is"], "StandBy");
  EXPECT_EQ(changeOf({"set", "hsrp", "30", "10.20.8.3", "--state", "Active"})["was"], "StandBy");
  const auto members = answerOf({"hsrp", "gateway-office"})["groups"][0]["members"];
  EXPECT_EQ(members[0]["node"], "core-2");
  EXPECT_EQ(members[0]["state"], "Active");
  EXPECT_EQ(members[1]["state"], "StandBy");
  EXPECT_EQ(members[1]["priority"], 90);
  EXPECT_EQ(members[1]["certainty"], 70);
}

TEST_P(CliSetTest, TheStateOfAnAssociationIsWrittenWithItsTime) {
  const auto change = changeOf({"set", "association", "wan-b", "wan-a", "--state", "4"});
  EXPECT_EQ(change["type"], "association");
  EXPECT_EQ(change["name"], "wan-b");
  EXPECT_EQ(change["right"], "wan-a");
  EXPECT_EQ(change["relation"], 1);
  EXPECT_EQ(change["was"], 1);
  EXPECT_EQ(change["is"], 4);
  EXPECT_EQ(answerOf({"container", "wan-b"})["container"]["associations"][0]["state"], 4);
  const CliResult reverse = zntopoRun({"set", "association", "wan-a", "wan-b", "--state", "4"});
  EXPECT_EQ(reverse.status, 1);
  EXPECT_THAT(reverse.err, HasSubstr("the other way"));
  EXPECT_EQ(
      zntopoRun({"set", "association", "wan-b", "wan-a", "--relation", "7", "--state", "4"}).status,
      1);
}

TEST_P(CliSetTest, AStatusThatIsAsItShallBeIsNeitherWrittenNorTold) {
  const std::string before = dump();
  for (const Call& call : {Call{"set", "node", "core-1", "--status", "normal"},
                           Call{"set", "hsrp", "gateway-office", "core-1", "--state", "Active"}}) {
    const auto change = changeOf(call);
    EXPECT_EQ(change["written"], false);
    EXPECT_EQ(change["event"], "none");
  }
  EXPECT_EQ(dump(), before);
  // Other states are told again.
  EXPECT_EQ(changeOf({"set", "address", "10.20.8.17", "--ping", "responding"})["event"], "sent");
}

TEST_P(CliSetTest, OfSeveralStatesThoseThatAreAsTheyShallBeAreLeftAlone) {
  const auto changes = answerOf({"set", "hsrp", "gateway-office", "core-1", "--state", "Active",
                                 "--priority", "91"})["changes"];
  ASSERT_EQ(changes.size(), 2U);
  EXPECT_EQ(changes[0]["written"], false);
  EXPECT_EQ(changes[0]["event"], "none");
  EXPECT_EQ(changes[0]["is"], "Active");
  EXPECT_EQ(changes[1]["written"], true);
  EXPECT_EQ(changes[1]["event"], "sent");
}

TEST_P(CliSetTest, WhatIsNoStateIsAWrongCallThatNamesThoseThatAre) {
  const std::string before = dump();
  const CliResult unknown = zntopoRun({"set", "node", "core-1", "--status", "sick"});
  EXPECT_EQ(unknown.status, 2);
  EXPECT_THAT(unknown.err, AllOf(HasSubstr("sick"), HasSubstr("marginal"), HasSubstr("disabled")));
  for (const Call& call :
       {Call{"set", "interface", "core-1", "Te1/1/1", "--admin", "dormant"},
        Call{"set", "address", "10.20.8.17", "--ping", "1"},
        Call{"set", "hsrp", "gateway-office", "core-1", "--certainty", "101"},
        Call{"set", "hsrp", "gateway-office", "core-1", "--priority", "-1"},
        Call{"set", "association", "wan-b", "wan-a", "--state", "one"},
        Call{"set", "node", "core-1"}, Call{"set", "interface", "core-1", "Te1/1/1"},
        Call{"set", "address", "10.20.8.17"}, Call{"set"}}) {
    const CliResult result = zntopoRun(call);
    EXPECT_EQ(result.status, 2) << testing::PrintToString(call);
    EXPECT_EQ(result.out, "") << testing::PrintToString(call);
    EXPECT_NE(result.err, "") << testing::PrintToString(call);
  }
  EXPECT_EQ(dump(), before);
}

TEST_P(CliSetTest, WhatNobodyHasIsNotFound) {
  const std::string before = dump();
  for (const Call& call :
       {Call{"set", "node", "nobody", "--status", "major"},
        Call{"set", "interface", "core-1", "Te9/9/9", "--oper", "up"},
        Call{"set", "interface", "nobody", "eth0", "--oper", "up"},
        Call{"set", "address", "10.99.0.1", "--ping", "responding"},
        Call{"set", "address", "10.20.8.17", "--node", "core-1", "--ping", "responding"},
        Call{"set", "address", "'; drop table address; --", "--ping", "responding"},
        Call{"set", "hsrp", "nothing", "core-1", "--state", "Active"},
        Call{"set", "hsrp", "gateway-office", "fw-1", "--state", "Active"},
        Call{"set", "association", "wan-b", "core-trunk", "--state", "1"},
        Call{"set", "association", "wan-b", "nothing", "--state", "1"}}) {
    EXPECT_EQ(failureOf(call), "ZN_API_OBJ_NOT_EXIST") << testing::PrintToString(call);
  }
  EXPECT_EQ(dump(), before);
  EXPECT_THAT(zntopoRun({"set", "interface", "core-1", "Te1/1/l", "--oper", "up"}).err,
              HasSubstr("Did you mean \"Te1/1/1\"?"));
  EXPECT_THAT(zntopoRun({"set", "hsrp", "gateway-office", "fw-1", "--state", "Active"}).err,
              HasSubstr("core-2 core-2-routing/Vlan30 10.20.8.3"));
}

TEST_P(CliSetTest, WhatSeveralHaveIsNotUnique) {
  const std::string before = dump();
  EXPECT_EQ(failureOf({"set", "node", "access", "--status", "major"}), "ZN_API_NONUNIQUE_NAME");
  const CliResult address = zntopoRun({"set", "address", "10.20.8.1", "--ping", "agent_down"});
  EXPECT_EQ(address.status, 1);
  EXPECT_THAT(address.err, AllOf(HasSubstr("--node"), HasSubstr("address core-1 "),
                                 HasSubstr("address core-2 ")));
  EXPECT_EQ(dump(), before);
  EXPECT_EQ(
      changeOf({"set", "address", "10.20.8.1", "--node", "core-2", "--ping", "agent_down"})["node"],
      "core-2");
  executeOn(store(),
            "insert into nwifcasc (LeftIFContainerObjID, RightIFContainerObjID, RelType, State) "
            "select LeftIFContainerObjID, RightIFContainerObjID, 9, 1 from nwifcasc "
            "where RelType = 1 and LeftIFContainerObjID in "
            "(select ObjId from nwifc where EntityName = 'wan-b')");
  const CliResult relation = zntopoRun({"set", "association", "wan-b", "wan-a", "--state", "2"});
  EXPECT_EQ(relation.status, 1);
  EXPECT_THAT(relation.err,
              HasSubstr("is not unique. It may be one of\n  --relation 1\n  --relation 9\n"));
  EXPECT_EQ(changeOf({"set", "association", "wan-b", "wan-a", "--relation", "9", "--state",
                      "2"})["relation"],
            9);
}

TEST_P(CliSetTest, AStoreThatIsNotReadyIsLeftAlone) {
  makeUnready();
  const std::string before = dump();
  for (const Call& call : {Call{"set", "node", "core-1", "--status", "major"},
                           Call{"set", "interface", "core-1", "Te1/1/1", "--oper", "up"},
                           Call{"set", "address", "10.20.8.17", "--ping", "unreachable"},
                           Call{"set", "hsrp", "gateway-office", "core-1", "--state", "Listen"},
                           Call{"set", "association", "wan-b", "wan-a", "--state", "2"}}) {
    EXPECT_EQ(failureOf(call), "ZN_API_DB_NOT_READY") << testing::PrintToString(call);
  }
  EXPECT_EQ(dump(), before);
}

TEST_P(CliSetTest, WithoutABrokerTheStoreIsWrittenAndTheCallSaysThatNobodyWasTold) {
  unsetenv("TV_EVENT_BROKER");
  const CliResult result = zntopoRun({"set", "node", "core-1", "--status", "major", "--json"});
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.json()["changes"][0]["written"], true);
  EXPECT_EQ(result.json()["changes"][0]["event"], "none");
  EXPECT_THAT(result.err, HasSubstr("TV_EVENT_BROKER names no broker: nobody else was told"));
  EXPECT_EQ(statusOf("core-1"), "5");
  // Where nothing was written there is nothing to tell.
  EXPECT_EQ(zntopoRun({"set", "node", "core-1", "--status", "major"}).err, "");
}

TEST_P(CliSetTest, ABrokerOutOfReachLeavesTheStoreWrittenAndTheCallSaysSo) {
  setEnv("TV_EVENT_BROKER", "mqtt://127.0.0.1:" + std::to_string(freePort()));
  const CliResult result = zntopoRun(
      {"set", "interface", "core-1", "Te1/1/1", "--admin", "down", "--oper", "down", "--json"});
  EXPECT_EQ(result.status, 3) << result.err;
  EXPECT_THAT(result.err,
              HasSubstr("The store has the new state, but the event was not sent: the event "
                        "broker cannot be reached"));
  const auto json = result.json();
  EXPECT_EQ(json["status"]["name"], "ZN_API_NOTIFCHANNEL_CREATION_ERROR");
  ASSERT_EQ(json["changes"].size(), 2U);
  for (const auto& change : json["changes"]) {
    EXPECT_EQ(change["written"], true);
    EXPECT_EQ(change["event"], "not_sent");
  }
  EXPECT_EQ(value("select IfOperStatus from nwinterface where EntityName like '%Te1/1/1' and "
                  "NodeName = 'core-1'"),
            "2");
}

TEST_P(CliSetTest, ABrokerThatDoesNotTakeTheEventIsToldForEachKindOfState) {
  const Scratch scratch;
  useBroker("allow_anonymous true\nacl_file " + scratch.write("acl", "topic read tv/event/#\n") +
            "\n");
  for (const Call& call :
       {Call{"set", "node", "core-1", "--status", "critical", "--snmp", "disabled"},
        Call{"set", "hsrp", "gateway-office", "core-1", "--state", "Listen"},
        Call{"set", "association", "wan-b", "wan-a", "--state", "2"}}) {
    const CliResult result = zntopoRun(call);
    EXPECT_EQ(result.status, 3) << call[1];
    EXPECT_THAT(result.out, AllOf(HasSubstr("not_sent"), Not(HasSubstr(" sent"))));
    EXPECT_THAT(result.err, HasSubstr("the event broker refuses the session")) << call[1];
  }
  EXPECT_EQ(statusOf("core-1"), "6");
}

ZNTOPO_ON_ENGINES(CliSetTest, kEngines);

/// What takes a rule of PostgreSQL.
class CliSetRuleTest : public CliSetTest {};
ZNTOPO_ON_ENGINES(CliSetRuleTest, kPostgres);

TEST_P(CliSetRuleTest, AStateThatTheStoreDoesNotKeepIsAFailure) {
  executeOn(store(), "create rule keep as on update to nwnode do instead nothing");
  const CliResult result = zntopoRun({"set", "node", "core-1", "--snmp", "disabled", "--json"});
  EXPECT_EQ(result.status, 1);
  EXPECT_THAT(result.err, HasSubstr("The store does not have the new state of the node core-1"));
  EXPECT_THAT(result.err, HasSubstr("The event was sent all the same"));
  const auto change = result.json()["changes"][0];
  EXPECT_EQ(change["written"], false);
  EXPECT_TRUE(change["is"].is_null());
  EXPECT_EQ(change["event"], "sent");
}

TEST_P(CliSetRuleTest, AChangeThatCantBeLookedAtAgainIsShownWithWhatIsKnownOfIt) {
  executeOn(store(),
            "create function cut() returns trigger language plpgsql as $$ begin "
            "perform pg_terminate_backend(pid) from pg_stat_activity "
            "where datname = current_database() and pid <> pg_backend_pid(); "
            "return new; end $$");
  executeOn(store(),
            "create trigger cut after update on nwnode for each row "
            "execute function cut()");
  const CliResult result = zntopoRun({"set", "node", "core-1", "--snmp", "disabled", "--json"});
  EXPECT_EQ(result.status, 1);
  EXPECT_EQ(result.json()["status"]["name"], "ZN_API_SQL_EXEC_ERROR");
  const auto change = result.json()["changes"][0];
  EXPECT_EQ(change["state"], "snmp_state");
  EXPECT_TRUE(change["is"].is_null());
  EXPECT_TRUE(change["written"].is_null());
  EXPECT_EQ(change["event"], "sent");
  EXPECT_EQ(answerOf({"node", "core-1"})["node"]["snmp_state"], "disabled");
}

}  // namespace
}  // namespace zntopo::test
