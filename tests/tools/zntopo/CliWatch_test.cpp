#include <fcntl.h>
#include <gmock/gmock.h>
#include <signal.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <climits>
#include <utility>

#include "tests/platform/tvsnmp/SessionSupport.h"
#include "tests/support/CliSupport.h"
#include "tests/support/EventBroker.h"
#include "tests/support/Eventually.h"
#include "tests/support/FreePort.h"
#include "tests/support/MuteServer.h"
#include "tools/network/StoreStatement.h"

namespace zntopo::test {
namespace {

using testing::AllOf;
using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;
using Call = std::vector<std::string>;

constexpr unsigned kLifeCycle = 60001103;
constexpr unsigned kState = 60001104;

tvsnmp::EventVariable text(const std::string& value) {
  return {{1, 3}, tvsnmp::kTextType, 0, value};
}
tvsnmp::EventVariable number(int value) { return {{1, 3}, tvsnmp::kIntegerType, value, ""}; }

int occurrences(const std::string& text, const std::string& part) {
  int count = 0;
  for (std::size_t at = 0; (at = text.find(part, at)) != std::string::npos; at += part.size()) {
    ++count;
  }
  return count;
}

/// The lines of a stream of JSON.
std::vector<nlohmann::json> eventsIn(const std::string& out) {
  std::vector<nlohmann::json> events;
  for (const std::string& line : linesOf(out)) events.push_back(nlohmann::json::parse(line));
  return events;
}

/// The reader of what a call writes, who reads when a test wants it.
class Reader {
 public:
  Reader() {
    EXPECT_EQ(mkfifo(path().c_str(), 0600), 0);
    descriptor_ = open(path().c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
  }
  ~Reader() { leave(); }
  Reader(const Reader&) = delete;
  Reader& operator=(const Reader&) = delete;

  std::string path() const { return folder_.path("pipe"); }
  /// How many bytes wait.
  int waiting() const {
    int bytes = 0;
    return ioctl(descriptor_, FIONREAD, &bytes) == 0 ? bytes : 0;
  }
  /// Lets no more bytes wait than a pipe has to take at once.
  void makeNarrow() const { EXPECT_EQ(fcntl(descriptor_, F_SETPIPE_SZ, PIPE_BUF), PIPE_BUF); }
  /// All, until the writer is gone.
  std::string readAll() const {
    EXPECT_EQ(fcntl(descriptor_, F_SETFL, 0), 0);
    std::string text;
    char part[PIPE_BUF];
    ssize_t count = 0;
    while ((count = read(descriptor_, part, sizeof part)) > 0) {
      text.append(part, static_cast<std::size_t>(count));
    }
    return text;
  }
  void leave() { close(std::exchange(descriptor_, -1)); }

 private:
  Scratch folder_;
  int descriptor_ = -1;
};

/// The sample network and a broker.
class CliWatchTest : public CliSampleTest {
 protected:
  void SetUp() override {
    ZNTOPO_NEED_BROKER();
    CliSampleTest::SetUp();
    if (IsSkipped() || HasFatalFailure()) return;
    broker_ = std::make_unique<EventBroker>();
    setEnv("TV_EVENT_BROKER", broker_->name());
  }
  void TearDown() override {
    unsetenv("TV_EVENT_BROKER");
    broker_.reset();
    CliSampleTest::TearDown();
  }

  /// Sends an event of another program.
  static void send(unsigned event, const std::vector<tvsnmp::EventVariable>& variables) {
    const OpenSession session = openSession("");
    ASSERT_TRUE(session);
    ASSERT_EQ(tvsnmp::sendEvent(session.get(), {event, variables}), EventError::None);
  }
  static void sendLifeCycle(const std::string& id, int type) {
    send(kLifeCycle, {text(""), text(id), text("marlo"), number(type), number(3)});
  }
  static void set(const Call& words) {
    Call call = {"set"};
    call.insert(call.end(), words.begin(), words.end());
    const CliResult result = zntopoRun(call);
    EXPECT_EQ(result.status, 0) << result.err;
  }

  std::unique_ptr<EventBroker> broker_;
};

TEST_P(CliWatchTest, EachEventIsShownWithNames) {
  RunningCli watch({"watch", "--json"});
  ASSERT_TRUE(watch.awaitErr("zntopo: listening")) << watch.err();
  set({"node", "core-1", "--status", "major", "--snmp", "unreachable"});
  set({"interface", "customs-printer", "eth0", "--admin", "down", "--oper", "not_present"});
  set({"address", "10.20.8.17", "--ping", "agent_down"});
  set({"hsrp", "gateway-office", "core-2", "--state", "Active", "--priority", "7"});
  set({"association", "wan-b", "wan-a", "--state", "2"});
  ASSERT_TRUE(watch.awaitOut("wan-b")) << watch.out() << watch.err();
  watch.signal(SIGINT);
  const CliResult result = watch.finish();
  EXPECT_EQ(result.status, 0) << result.err;
  EXPECT_EQ(result.err, "zntopo: listening for events\n");
  const auto events = eventsIn(result.out);
  ASSERT_EQ(events.size(), 8U) << result.out;
  EXPECT_THAT(events[0]["time"].get<std::string>(), testing::MatchesRegex("....-..-..T..:..:..Z"));
  const auto shown = [&](int at) {
    std::string line;
    for (const char* key : {"event", "type", "name", "node", "interface", "address", "right",
                            "relation", "state", "was", "is"}) {
      const auto& value = events.at(static_cast<std::size_t>(at))[key];
      line += (line.empty() ? "" : " ") + (value.is_string() ? value.get<std::string>()
                                           : value.is_null() ? "-"
                                                             : value.dump());
    }
    return line;
  };
  EXPECT_EQ(shown(0), "status node core-1 core-1 - - - - status normal major");
  EXPECT_EQ(shown(1), "attribute node core-1 core-1 - - - - snmp_state - unreachable");
  EXPECT_EQ(shown(2), "attribute interface eth0 customs-printer eth0 - - - admin_status - down");
  EXPECT_EQ(shown(3),
            "attribute interface eth0 customs-printer eth0 - - - oper_status - not_present");
  EXPECT_EQ(shown(4),
            "attribute address 10.20.8.17 customs-printer eth0 10.20.8.17 - - ping_state - "
            "agent_down");
  EXPECT_EQ(shown(5),
            "attribute hsrp gateway-office core-2 core-2-routing/Vlan30 10.20.8.3 - - state - "
            "Active");
  EXPECT_EQ(shown(6),
            "attribute hsrp gateway-office core-2 core-2-routing/Vlan30 10.20.8.3 - - priority - "
            "7");
  EXPECT_EQ(shown(7), "attribute association wan-b - - - wan-a 1 state - 2");
  EXPECT_EQ(events[0]["id"], answerOf({"node", "core-1"})["node"]["id"]);
}

TEST_P(CliWatchTest, AStateIsCalledAsTheCommandThatChangesItCallsIt) {
  RunningCli watch({"watch", "--json"});
  ASSERT_TRUE(watch.awaitErr("listening"));
  const auto changes = answerOf({"set", "node", "badge-reader-1", "--status", "critical", "--snmp",
                                 "unreachable"})["changes"];
  ASSERT_TRUE(watch.awaitOut("unreachable")) << watch.out();
  watch.signal(SIGINT);
  const auto events = eventsIn(watch.finish().out);
  ASSERT_EQ(events.size(), changes.size());
  for (std::size_t i = 0; i < events.size(); ++i) {
    for (const char* const key : {"type", "name", "id", "state", "is"}) {
      EXPECT_EQ(events[i][key], changes[i][key]) << key;
    }
  }
  EXPECT_EQ(events[0]["state"], "ipv6_status");
}

TEST_P(CliWatchTest, ALineForPeopleTellsWhenWhatWhoseAndHow) {
  RunningCli watch({"watch"});
  ASSERT_TRUE(watch.awaitErr("listening"));
  set({"node", "harbor master pc", "--status", "critical"});
  ASSERT_TRUE(watch.awaitOut("\n"));
  watch.signal(SIGTERM);
  const CliResult result = watch.finish();
  EXPECT_EQ(result.status, 0) << result.err;
  EXPECT_THAT(result.out, EndsWith("Z  status      node harbor master pc  status normal -> "
                                   "critical\n"));
}

TEST_P(CliWatchTest, NothingOfAnEventDisturbsATerminalAndWhatHasNoNameIsItsIdentifier) {
  RunningCli watch({"watch"});
  ASSERT_TRUE(watch.awaitErr("listening"));
  const std::string node = answerOf({"node", "core-1"})["node"]["id"];
  sendLifeCycle("gone'; drop table nwnode; --\x9b", 1);
  sendLifeCycle(node, 1);
  sendLifeCycle("", 99);
  send(kState, {text(""), text("marlo"), number(0), number(2), number(11), number(0), number(0),
                number(2)});
  ASSERT_TRUE(watch.awaitOut("discovery_started")) << watch.out();
  watch.signal(SIGINT);
  const CliResult result = watch.finish();
  EXPECT_EQ(result.status, 0);
  const auto lines = linesOf(result.out);
  ASSERT_EQ(lines.size(), 4U) << result.out;
  EXPECT_THAT(lines[0], EndsWith("life-cycle  node gone'; drop table nwnode; --.  came or went "
                                 "(zone 3)"));
  EXPECT_THAT(lines[1], EndsWith("life-cycle  node core-1  came or went (zone 3)"));
  EXPECT_THAT(lines[2], EndsWith("life-cycle  object  came or went (zone 3)"));
  EXPECT_THAT(lines[3], EndsWith("state       topology  state discovery_started"));
}

TEST_P(CliWatchTest, NamesAreThoseOfTheTopologyAsItIsNow) {
  RunningCli watch({"watch", "--json"});
  ASSERT_TRUE(watch.awaitErr("listening"));
  set({"address", "10.20.8.17", "--ping", "agent_down"});
  ASSERT_TRUE(watch.awaitOut("customs-printer"));
  executeOn(store(),
            "update nwnode set EntityName = 'renamed' where EntityName = "
            "'customs-printer'");
  send(kState,
       {text(""), text("marlo"), number(0), number(0), number(0), number(0), number(0), number(1)});
  set({"address", "10.20.8.17", "--ping", "responding"});
  ASSERT_TRUE(watch.awaitOut("renamed")) << watch.out();
  watch.signal(SIGINT);
  const auto events = eventsIn(watch.finish().out);
  ASSERT_EQ(events.size(), 3U);
  EXPECT_EQ(events[1]["event"], "state");
  EXPECT_EQ(events[1]["is"], "ready");
  EXPECT_EQ(events[1]["discovery"], "full");
  EXPECT_EQ(events[2]["node"], "renamed");
}

TEST_P(CliWatchTest, EventsOfAStoreThatFailsAreShownWithIdentifiers) {
  RunningCli watch({"watch", "--json"});
  ASSERT_TRUE(watch.awaitErr("listening"));
  const std::string node = answerOf({"node", "core-1"})["node"]["id"];
  executeOn(store(), "alter table nwnode rename to gone");
  sendLifeCycle(node, 1);
  ASSERT_TRUE(watch.awaitOut(node)) << watch.out();
  watch.signal(SIGINT);
  const CliResult result = watch.finish();
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(eventsIn(result.out).at(0)["name"], node);
}

TEST_P(CliWatchTest, KindsAreChosenAsTheyAreCalled) {
  RunningCli statuses({"watch", "--filter", "STATUS", "--json"});
  RunningCli others({"watch", "--filter", "attribute,lifecycle", "--json"});
  ASSERT_TRUE(statuses.awaitErr("listening") && others.awaitErr("listening"));
  const std::string node = answerOf({"node", "core-1"})["node"]["id"];
  sendLifeCycle(node, 1);
  set({"node", "core-1", "--status", "major", "--snmp", "disabled"});
  send(kState,
       {text(""), text("marlo"), number(0), number(1), number(0), number(0), number(0), number(1)});
  const auto kindsOf = [](RunningCli& watch) {
    EXPECT_TRUE(watch.awaitOut("read_only")) << watch.out();
    watch.signal(SIGINT);
    std::string kinds;
    for (const auto& event : eventsIn(watch.finish().out)) {
      kinds += event["event"].get<std::string>() + " ";
    }
    return kinds;
  };
  EXPECT_EQ(kindsOf(statuses), "status state ");
  EXPECT_EQ(kindsOf(others), "life-cycle attribute state ");
  const CliResult unknown = zntopoRun({"watch", "--filter", "status,weather"});
  EXPECT_EQ(unknown.status, 2);
  EXPECT_THAT(unknown.err, AllOf(HasSubstr("weather"), HasSubstr("life-cycle")));
}

TEST_P(CliWatchTest, ABrokerThatDiesIsToldBehindTheLastEvent) {
  RunningCli watch({"watch", "--json"});
  ASSERT_TRUE(watch.awaitErr("listening"));
  set({"node", "core-1", "--status", "major"});
  ASSERT_TRUE(watch.awaitOut("major"));
  broker_->crash();
  const CliResult result = watch.finish();
  EXPECT_EQ(result.status, 3);
  EXPECT_THAT(result.err, AllOf(HasSubstr("45 ZN_API_NOTIFCHANNEL_RECV_ERROR"),
                                HasSubstr("The channel of events is lost")));
  const auto lines = eventsIn(result.out);
  ASSERT_EQ(lines.size(), 2U);
  EXPECT_EQ(lines[0]["is"], "major");
  EXPECT_EQ(lines[1]["status"]["code"], 45);
}

TEST_P(CliWatchTest, ALostChannelIsToldToAReaderOfStandardErrorAlone) {
  RunningCli watch({"watch", "--json"}, "/dev/full");
  ASSERT_TRUE(watch.awaitErr("listening"));
  broker_->crash();
  const CliResult result = watch.finish();
  EXPECT_EQ(result.status, 3);
  EXPECT_THAT(result.err, AllOf(HasSubstr("The channel of events is lost"),
                                HasSubstr("the answer could not be written")));
}

TEST_P(CliWatchTest, AReaderWhoIsGoneEndsItQuietly) {
  Reader reader;
  RunningCli watch({"watch"}, reader.path());
  ASSERT_TRUE(watch.awaitErr("listening"));
  reader.leave();
  // Without any event.
  const CliResult result = watch.finish();
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.err, "zntopo: listening for events\n");
}

TEST_P(CliWatchTest, AnOutputThatTakesNothingMoreIsAFailure) {
  RunningCli watch({"watch"}, "/dev/full");
  ASSERT_TRUE(watch.awaitErr("listening"));
  sendLifeCycle("gone", 1);
  const CliResult result = watch.finish();
  EXPECT_EQ(result.status, 1);
  EXPECT_THAT(result.err, HasSubstr("events could not be shown: No space left on device"));
}

TEST_P(CliWatchTest, NodesHaveNamesWhileTheTopologyIsNotReady) {
  const std::string node = answerOf({"node", "core-1"})["node"]["id"];
  RunningCli watch({"watch", "--json"});
  ASSERT_TRUE(watch.awaitErr("listening"));
  executeOn(store(), "update state set TopologyReady = 0");
  sendLifeCycle("unheard-of", 2);
  sendLifeCycle(node, 1);
  EXPECT_TRUE(watch.awaitOut("core-1")) << watch.out();
  watch.signal(SIGINT);
  EXPECT_EQ(watch.finish().status, 0);
}

TEST_P(CliWatchTest, ASignalEndsItWhileABrokerKeepsItWaiting) {
  const MuteServer broker;
  setEnv("TV_EVENT_BROKER", "mqtt://127.0.0.1:" + std::to_string(broker.port()));
  RunningCli watch({"watch"});
  ASSERT_TRUE(broker.awaitCaller());
  watch.signal(SIGTERM);
  const CliResult result = watch.finish();
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.err, "");
}

TEST_P(CliWatchTest, AReaderWhoTakesNothingDoesNotKeepItFromEnding) {
  const Reader reader;
  RunningCli watch({"watch"}, reader.path());
  ASSERT_TRUE(watch.awaitErr("listening"));
  {
    const OpenSession session = openSession("");
    ASSERT_TRUE(session);
    for (int i = 0; i < 3000; ++i) {
      ASSERT_EQ(tvsnmp::sendEvent(
                    session.get(),
                    {kLifeCycle, {text(""), text("node"), text("marlo"), number(99), number(i)}}),
                EventError::None);
    }
  }
  // What the pipe can't take makes the command wait.
  ASSERT_TRUE(eventually([&] { return reader.waiting() > 60'000; }));
  watch.signal(SIGTERM);
  EXPECT_EQ(watch.finish().status, 0);
}

TEST_P(CliWatchTest, ALineThatItsReaderDoesNotTakeAsAWholeIsAFailure) {
  const Reader reader;
  reader.makeNarrow();
  RunningCli watch({"watch", "--json"}, reader.path());
  ASSERT_TRUE(watch.awaitErr("listening"));
  // The identifier stands in the line twice.
  sendLifeCycle(std::string(2047, 'x'), 99);
  ASSERT_TRUE(eventually([&] { return reader.waiting() == PIPE_BUF; }));
  watch.signal(SIGTERM);
  const CliResult result = watch.finish();
  EXPECT_EQ(result.status, 1);
  EXPECT_THAT(result.err, HasSubstr("the last line is not whole"));
  EXPECT_THAT(reader.readAll(), Not(EndsWith("\n")));
}

TEST_P(CliWatchTest, WithoutABrokerItSaysWhatToSet) {
  unsetenv("TV_EVENT_BROKER");
  const CliResult result = zntopoRun({"watch", "--json"});
  EXPECT_EQ(result.status, 1);
  EXPECT_THAT(result.err, AllOf(HasSubstr("only events of this process itself would come"),
                                HasSubstr("TV_EVENT_BROKER=mqtt://")));
  EXPECT_EQ(eventsIn(result.out).at(0)["status"]["name"], "ZN_API_NOTIFCHANNEL_CREATION_ERROR");
}

TEST_P(CliWatchTest, ABrokerOutOfReachIsAFailureThatSaysWhy) {
  setEnv("TV_EVENT_BROKER", "mqtt://127.0.0.1:" + std::to_string(freePort()));
  const CliResult result = zntopoRun({"watch"});
  EXPECT_EQ(result.status, 1);
  EXPECT_EQ(result.out, "");
  EXPECT_THAT(result.err,
              AllOf(HasSubstr("the event broker cannot be reached"), Not(HasSubstr("listening"))));
  EXPECT_EQ(zntopoRun({"watch", "--store", "/nonexistent/x.db"}).status, 1);
}

ZNTOPO_ON_ENGINES(CliWatchTest, kEngines);

/// With more events than fit. The engine does not matter.
class CliWatchOverflowTest : public CliWatchTest {};
ZNTOPO_ON_ENGINES(CliWatchOverflowTest, kSqlite);

TEST_P(CliWatchOverflowTest, MoreEventsThanFitAreALostChannelBehindThoseThatFitted) {
  // The broker tells of each event that a receiver has taken.
  broker_ = std::make_unique<EventBroker>("allow_anonymous true\nlog_type debug\n");
  setEnv("TV_EVENT_BROKER", broker_->name());
  const Reader reader;
  RunningCli watch({"watch", "--json"}, reader.path());
  ASSERT_TRUE(watch.awaitErr("listening"));
  constexpr int kEvents = 3600;
  {
    const OpenSession session = openSession("");
    ASSERT_TRUE(session);
    for (int i = 0; i < kEvents; ++i) {
      const tvsnmp::Event event = {kLifeCycle,
                                   {text(""), text("node"), text("marlo"), number(99), number(i),
                                    text(std::string(59'000, 'x'))}};
      // The broker may be slower than this program.
      ASSERT_TRUE(
          eventually([&] { return tvsnmp::sendEvent(session.get(), event) == EventError::None; }));
    }
  }
  ASSERT_TRUE(eventually([&] {
    const std::string log = broker_->scratch().read("log");
    return occurrences(log, "Received PUBACK from") >= kEvents;
  }));
  const auto events = eventsIn(reader.readAll());
  const CliResult result = watch.finish();
  EXPECT_EQ(result.status, 3);
  EXPECT_THAT(result.err, HasSubstr("more events waited to be shown than fit"));
  ASSERT_GT(events.size(), 2000U);
  ASSERT_LT(events.size(), static_cast<std::size_t>(kEvents));
  for (std::size_t i = 0; i + 1 < events.size(); ++i) ASSERT_EQ(events[i]["zone"], i);
  EXPECT_EQ(events.back()["status"]["code"], 45);
}

/// With a server that drops connections.
class CliWatchServerTest : public CliWatchTest {};
ZNTOPO_ON_ENGINES(CliWatchServerTest, kPostgres);

TEST_P(CliWatchServerTest, NamesComeBackAfterTheStoreHasDroppedItsConnections) {
  RunningCli watch({"watch", "--json"});
  ASSERT_TRUE(watch.awaitErr("listening"));
  executeOn(store(),
            "select pg_terminate_backend(pid) from pg_stat_activity "
            "where datname = current_database() and pid <> pg_backend_pid()");
  set({"hsrp", "gateway-office", "core-2", "--priority", "7"});
  ASSERT_TRUE(watch.awaitOut("\n"));
  watch.signal(SIGINT);
  const auto event = eventsIn(watch.finish().out).at(0);
  EXPECT_EQ(event["name"], "gateway-office");
  EXPECT_EQ(event["node"], "core-2");
}

TEST_P(CliWatchServerTest, ASignalEndsItWhileTheStoreKeepsItWaiting) {
  TvXplMsg::MessageList_t messages;
  const TvDbil::DbSource_t source(messages, store());
  TvDbil::DbConnection_t connection(messages, &source);
  RunningCli watch({"watch"});
  ASSERT_TRUE(watch.awaitErr("listening"));
  ASSERT_EQ(connection.StartTransaction(messages), TvDbil::DBIL_SUCCESS);
  tools::executeText(connection, "lock table nwentity in access exclusive mode", "no lock");
  sendLifeCycle("unheard-of", 4);
  ASSERT_TRUE(eventually([&] {
    return select(
               "select count(*) from pg_locks where not granted and database = "
               "(select oid from pg_database where datname = current_database())",
               1)
               .at(0)
               .at(0) != "0";
  }));
  watch.signal(SIGTERM);
  const CliResult result = watch.finish();
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.out, "");
  connection.RollbackTransaction(messages);
}

}  // namespace
}  // namespace zntopo::test
