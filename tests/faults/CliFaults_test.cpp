// What the command says of a store with a fault: what happened, and what to do.

#include "tests/faults/FaultFixture.h"
#include "tests/support/CliSupport.h"

namespace zntopo::test {
namespace {

using testing::HasSubstr;

/// A call of each subcommand that asks the store.
const std::vector<std::vector<std::string>> kQuestions = {{"nodes"},
                                                          {"node", "access-1"},
                                                          {"interfaces", "access-1"},
                                                          {"vlans"},
                                                          {"vlan", "quay"},
                                                          {"containers"},
                                                          {"container", "wan-a"},
                                                          {"hsrp"},
                                                          {"subnets"},
                                                          {"subnet", "10.20.8.17"},
                                                          {"neighbors", "access-1"},
                                                          {"connectivity", "core-1", "core-2"},
                                                          {"path", "access-1", "access-7"}};

/// The sample network in a store of the test's own; on PostgreSQL with a server of its own.
class CliFaultTest : public testing::TestWithParam<Engine> {
 protected:
  void SetUp() override {
    ZNTOPO_NEED_ENGINE(GetParam());
    if (GetParam() == Engine::Postgres) {
      server_.emplace();
      server_->setEnvironment();
    }
    store_.emplace(GetParam());
    ASSERT_EQ(zntopoRun({"import", samplePath()}).status, 0);
  }

  void TearDown() override {
    if (server_) server_->start();
    store_.reset();
    server_.reset();
  }

  void expectEach(const std::string& status, const std::string& advice) {
    for (const auto& call : kQuestions) {
      const CliResult result = zntopoRun(call);
      EXPECT_EQ(result.status, 1) << call[0];
      EXPECT_EQ(result.out, "") << call[0];
      EXPECT_THAT(result.err, HasSubstr(status)) << call[0];
      EXPECT_THAT(result.err, HasSubstr(advice)) << call[0];
    }
  }

  void expectAnswers() {
    for (const auto& call : kQuestions) {
      const CliResult result = zntopoRun(call);
      EXPECT_EQ(result.status, 0) << call[0] << result.err;
    }
  }

  std::optional<PostgresServer> server_;
  std::optional<TestStore> store_;
};

TEST_P(CliFaultTest, AStoreThatIsNotReadyIsSaidToBeSoByEachQuestion) {
  store_->execute("update state set TopologyReady = 2");
  expectEach("ZN_API_DB_NOT_READY", "\"zntopo import\"");
  store_->execute("delete from state");
  expectEach("ZN_API_DB_NOT_READY", "\"zntopo import\"");
  ASSERT_EQ(zntopoRun({"import", samplePath()}).status, 0);
  expectAnswers();
}

TEST_P(CliFaultTest, AMissingColumnIsAFailureAndNoEmptyAnswer) {
  store_->execute("alter table nwinterface rename column IfSpeed to gone");
  for (const char* command : {"node", "interfaces"}) {
    const CliResult result = zntopoRun({command, "access-1"});
    EXPECT_EQ(result.status, 1) << command << result.out;
    EXPECT_THAT(result.err, HasSubstr("The tables of the store are not those")) << command;
  }
  store_->execute("alter table nwinterface rename column gone to IfSpeed");
  expectAnswers();
}

TEST_P(CliFaultTest, AnImportBesideAnotherWriterSaysSoAndWritesNothing) {
  const std::string plain = store_->engine().store();
  if (GetParam() == Engine::Postgres) {
    store_->execute("alter role zntopo set lock_timeout = '20ms'");
  } else {
    // Only a connection string has a word for how long to wait.
    const std::string store =
        "Driver=SQLite3;Database=" + (store_->engine().folder() / "topology.db").string() +
        ";Timeout=1;";
    setenv("TV_TOPO_STORE", store.c_str(), 1);
  }
  {
    TvXplMsg::MessageList_t messages;
    const TvDbil::DbSource_t source(messages, plain);
    TvDbil::DbConnection_t writer(messages, &source);
    ASSERT_EQ(writer.StartTransaction(messages), TvDbil::DBIL_SUCCESS);
    TvDbil::DbStatement_t statement(messages, &writer);
    ASSERT_EQ(statement.BindSql(messages, GetParam() == Engine::Postgres
                                              ? "lock table state in exclusive mode"
                                              : "update state set TopologyReady = 0"),
              TvDbil::DBIL_SUCCESS);
    ASSERT_EQ(statement.Exec(messages), TvDbil::DBIL_SUCCESS);
    const CliResult result = zntopoRun({"import", samplePath()});
    EXPECT_EQ(result.status, 1);
    EXPECT_THAT(result.err, HasSubstr("Somebody else has locked the store"));
    EXPECT_THAT(result.err, HasSubstr("Nothing was written: the store is as it was."));
  }
  EXPECT_EQ(zntopoRun({"import", samplePath()}).status, 0);
}

ZNTOPO_ON_ENGINES(CliFaultTest, kMainEngines);

using CliServerTest = CliFaultTest;

TEST_P(CliServerTest, WithoutItsServerEachSubcommandSaysWhereToLook) {
  server_->stop();
  expectEach("ZN_API_DB_CONNECTION_FAILURE", "The server of the store can't be reached");
  EXPECT_THAT(zntopoRun({"import", samplePath()}).err,
              HasSubstr("The server of the store can't be reached"));
  server_->start();
  expectAnswers();
}

ZNTOPO_ON_ENGINES(CliServerTest, kPostgres);

}  // namespace
}  // namespace zntopo::test
