#include <gmock/gmock.h>

#include "tests/support/CliSupport.h"
#include "tests/support/PostgresRole.h"

namespace zntopo::test {
namespace {

using testing::HasSubstr;
using Call = std::vector<std::string>;

/// The command in the hands of users who may ask, and of one who may change states too.
class CliPostgresReaderTest : public CliSampleTest {
 protected:
  void SetUp() override {
    CliSampleTest::SetUp();
    if (IsSkipped() || HasFatalFailure()) return;
    makePostgresRoles(store());
    reader_.emplace("zntopo_reader");
    writer_.emplace("zntopo_state_writer");
  }

  CliResult as(const PostgresLogin& login, const Call& call) const {
    return zntopoRun(call, {"TV_TOPO_STORE=" + login.store(store())});
  }

  std::optional<PostgresLogin> reader_;
  std::optional<PostgresLogin> writer_;
};
ZNTOPO_ON_ENGINES(CliPostgresReaderTest, kPostgres);

TEST_P(CliPostgresReaderTest, EveryQuestionIsAnsweredAsItIsToTheOwner) {
  for (const Call& call : std::vector<Call>{{"state", "--json"},
                                            {"info", "--json"},
                                            {"audit", "--json"},
                                            {"dump", "core-1", "--json"},
                                            {"nodes", "--json"},
                                            {"node", "dist-quay", "--json"},
                                            {"interfaces", "dist-quay", "--json"},
                                            {"neighbors", "dist-quay", "--hops", "3", "--json"},
                                            {"vlans", "--json"},
                                            {"vlan", "quay", "--json"},
                                            {"containers", "--json"},
                                            {"hsrp", "--json"},
                                            {"subnets", "--json"},
                                            {"subnet", "10.20.8.17", "--json"},
                                            {"connectivity", "core-1", "core-2", "--json"},
                                            {"path", "crane-4-plc", "customs-printer", "--json"},
                                            {"nodes", "--name", "core-?", "--json"},
                                            {"addresses", "dist-quay", "--json"},
                                            {"filter", "run", "Routers", "--json"},
                                            {"filter", "explain", "Routers", "--json"}}) {
    const CliResult owner = zntopoRun(call);
    EXPECT_EQ(owner.status, 0) << call[0] << owner.err;
    EXPECT_NE(owner.out, "") << call[0];
    const CliResult result = as(*reader_, call);
    EXPECT_EQ(result.status, 0) << call[0] << result.err;
    EXPECT_EQ(result.out, owner.out) << call[0];
  }
  EXPECT_EQ(as(*writer_, {"nodes"}).out, zntopoRun({"nodes"}).out);
}

TEST_P(CliPostgresReaderTest, AnImportIsDeniedAndSaysSo) {
  const std::string before = dump();
  for (const PostgresLogin* login : {&*reader_, &*writer_}) {
    const CliResult result = as(*login, {"import", samplePath()});
    EXPECT_EQ(result.status, 1);
    EXPECT_THAT(result.err, HasSubstr("permission denied"));
  }
  EXPECT_EQ(dump(), before);
}

TEST_P(CliPostgresReaderTest, StatesAreChangedByWhoeverMayAndByNobodyElse) {
  const std::string before = dump();
  const std::vector<Call> calls = {
      {"set", "node", "core-1", "--status", "major", "--snmp", "disabled"},
      {"set", "interface", "core-1", "Te1/1/1", "--admin", "down", "--oper", "dormant"},
      {"set", "address", "10.20.8.17", "--ping", "unreachable"},
      {"set", "hsrp", "gateway-office", "core-1", "--state", "Listen"},
      {"set", "association", "wan-b", "wan-a", "--state", "2"}};
  for (const Call& call : calls) {
    const CliResult result = as(*reader_, call);
    EXPECT_EQ(result.status, 1) << call[1];
    EXPECT_EQ(result.out, "") << call[1];
    EXPECT_THAT(result.err, HasSubstr("permission denied")) << call[1];
    EXPECT_THAT(result.err, HasSubstr("members of zntopo_state_writer may change states"))
        << call[1];
  }
  EXPECT_EQ(dump(), before);
  for (const Call& call : calls) {
    const CliResult result = as(*writer_, call);
    EXPECT_EQ(result.status, 0) << call[1] << result.err;
    EXPECT_THAT(result.out, HasSubstr("yes")) << call[1];
  }
  EXPECT_NE(dump(), before);
}

TEST_P(CliPostgresReaderTest, ANameWithAStatementInItIsAName) {
  const std::string before = dump();
  const std::string table = "'; DROP TABLE nwnode; --";
  for (const Call& call :
       {Call{"node", table}, Call{"neighbors", table}, Call{"interfaces", table},
        Call{"path", table, "dist-quay"}, Call{"vlan", table}, Call{"container", table},
        Call{"hsrp", table}, Call{"subnet", table}, Call{"subnets", "--from", table},
        Call{"connectivity", table}, Call{"node", "x' union select ObjId from nwnode; --"},
        Call{"node", "x' or lo_create(4711) > 0 or 'x' = '"}}) {
    const CliResult result = as(*reader_, call);
    EXPECT_EQ(result.status, 1) << call[0] << " " << call[1];
    EXPECT_THAT(result.err, HasSubstr("ZN_API_OBJ_NOT_EXIST")) << call[0] << " " << call[1];
  }
  EXPECT_EQ(dump(), before);
}

}  // namespace
}  // namespace zntopo::test
