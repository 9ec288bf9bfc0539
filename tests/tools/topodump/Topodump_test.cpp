// The dump tool on the sample network, as programs call it.

#include <gmock/gmock.h>

#include "tests/support/CliSupport.h"
#include "tests/support/Golden.h"
#include "tests/support/PostgresRole.h"

namespace zntopo::test {
namespace {

using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;
using Call = std::vector<std::string>;

constexpr const char* kNothing = "No topology objects found !! \n\n";

/// What a call prints; it must succeed and say nothing besides.
std::string printedBy(const Call& call, const std::vector<std::string>& environment = {}) {
  const CliResult result = topodumpRun(call, environment);
  EXPECT_EQ(result.status, 0) << testing::PrintToString(call);
  EXPECT_EQ(result.err, "") << testing::PrintToString(call);
  return result.out;
}

class TopodumpGoldenTest : public CliSampleTest {
 protected:
  void SetUp() override {
    CliSampleTest::SetUp();
    unsetenv("TOPODUMP_DETAIL");
  }
};
ZNTOPO_ON_ENGINES(TopodumpGoldenTest, kEngines);

TEST_P(TopodumpGoldenTest, NodesInterfacesCountersAndFiltersPrintWhatIsKept) {
  expectGolden("topodump/node.txt", printedBy({"-node"}));
  expectGolden("topodump/nodeif.txt", printedBy({"-nodeif"}));
  expectGolden("topodump/node-name.txt", printedBy({"-node", "core-1"}));
  expectGolden("topodump/nodeif-name.txt", printedBy({"-nodeif", "core-1"}));
  expectGolden("topodump/info.txt", printedBy({"-info"}));
  expectGolden("topodump/lfilt.txt", printedBy({"-lfilt"}));
  expectGolden("topodump/node-filt.txt", printedBy({"-node", "-filt", "Routers"}));
  expectGolden("topodump/if-filt.txt", printedBy({"-if", "-filt", "DownInterfaces"}));
}

class TopodumpTest : public TopodumpGoldenTest {};
ZNTOPO_ON_ENGINES(TopodumpTest, kMainEngines);

TEST_P(TopodumpTest, ANodeIsNamedByItsNameOrByAnAddress) {
  const std::string byName = printedBy({"-node", "core-1"});
  EXPECT_THAT(byName, HasSubstr("\n  core-1   "));
  EXPECT_EQ(printedBy({"-node", "10.20.1.11"}), byName);
  EXPECT_EQ(printedBy({"-node", "10.20.1.11", "0"}), byName);
  EXPECT_EQ(topodumpRun({"-node", "10.20.1.11", "5"}).out, kNothing);
}

TEST_P(TopodumpTest, ANumberIsARouteDistinguisher) {
  const std::vector<std::string> rows = linesOf(printedBy({"-node", "0"}));
  EXPECT_EQ(std::to_string(rows.size() - 1),
            select("select count(*) from nwnode where V4ManagementAddressRD = 0", 1)[0][0]);
  EXPECT_LT(rows.size(), linesOf(printedBy({"-node"})).size());
  EXPECT_EQ(topodumpRun({"-node", "5"}).out, kNothing);
  const std::string withInterfaces = printedBy({"-nodeif", "0"});
  EXPECT_GT(linesOf(withInterfaces).size(), rows.size());
  for (const std::string& row : rows) EXPECT_THAT(withInterfaces, HasSubstr(row + "\n"));
  EXPECT_EQ(topodumpRun({"-nodeif", "5"}).out, kNothing);
}

TEST_P(TopodumpTest, WhatIsNotThereIsNotFound) {
  for (const Call& call : {Call{"-node", "nobody"}, Call{"-nodeif", "192.0.2.77"}}) {
    const CliResult result = topodumpRun(call);
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.out, kNothing);
    EXPECT_EQ(result.err, "");
  }
}

TEST_P(TopodumpTest, WithTheVariableFullTextsTakeThePlaceOfRows) {
  const std::string node = printedBy({"-node", "core-1"}, {"TOPODUMP_DETAIL=1"});
  EXPECT_THAT(node, StartsWith("\n+++++++++++++++++ ZNNode ++++++++++++++++\nObjID:"));
  EXPECT_THAT(node, Not(HasSubstr("Interface Information")));
  const std::string whole = printedBy({"-nodeif", "core-1"}, {"TOPODUMP_DETAIL="});
  EXPECT_THAT(whole, HasSubstr("\n ============ Interface Information ===================="));
  EXPECT_THAT(whole, HasSubstr("\nisSubnetAddress:false\nHSRP Object ObjID = ["));
  EXPECT_THAT(printedBy({"-if", "-filt", "DownInterfaces"}, {"TOPODUMP_DETAIL=1"}),
              StartsWith("\n+++++++++++++++++ ZNInterface ++++++++++++++\nObjID:"));
}

TEST_P(TopodumpTest, AFilterThatIsNotThereIsAnError) {
  for (const char* kind : {"-node", "-nodeif", "-if"}) {
    const CliResult result = topodumpRun({kind, "-filt", "Nonesuch"});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.out, "");
    EXPECT_THAT(result.err,
                StartsWith("Error in Topology data retrieval \nErrorMessage: Filter name not found "
                           "in XML Filter information\nAuxMessage: "));
  }
}

TEST_P(TopodumpTest, WithoutTheDefaultFiltersTheirNamesAreAnError) {
  const Scratch empty;
  const std::string etc = "TV_ETC_PATH=" + empty.folder().string();
  for (const Call& call : {Call{"-lfilt"}, Call{"-node", "-filt", "Routers"}}) {
    const CliResult result = topodumpRun(call, {etc});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.out, "");
    EXPECT_THAT(result.err, StartsWith("Error in Topology data retrieval \nErrorMessage: "));
    EXPECT_THAT(result.err, HasSubstr("TopoFilters.xml"));
  }
}

TEST_P(TopodumpTest, AStoreThatIsNotReadyIsAnError) {
  executeOn(store(), "update state set TopologyReady = 0");
  const CliResult result = topodumpRun({"-info"});
  EXPECT_EQ(result.status, 1);
  EXPECT_EQ(result.out, "");
  EXPECT_THAT(result.err, HasSubstr("AuxMessage: Topology DataStore is in the state of : "
                                    "TOPOLOGY_INTERNAL_PROCESSING\n"));
}

TEST_P(TopodumpTest, AStoreThatIsNotThereIsAnError) {
  for (const Call& call : {Call{"-node"}, Call{"-info"}, Call{"-nodeif", "core-1"}}) {
    const CliResult result = topodumpRun(call, {"TV_TOPO_STORE=/nonexistent/topology.db"});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.out, "");
    EXPECT_THAT(result.err, StartsWith("Error in Topology data retrieval \nErrorMessage: "));
  }
}

TEST_P(TopodumpTest, OtherCallsPrintTheUsage) {
  const CliResult result = topodumpRun({"-nodes"});
  EXPECT_EQ(result.status, 2);
  EXPECT_THAT(result.out, StartsWith("Usage: tvrz_topodump.tvpl [-node|-nodeif|-info|-lfilt] [ "));
  EXPECT_EQ(topodumpRun({}).out, result.out);
  EXPECT_EQ(topodumpRun({"-help"}).out, result.out);
  EXPECT_EQ(topodumpRun({"-help"}).status, 0);
}

class TopodumpReaderTest : public TopodumpGoldenTest {};
ZNTOPO_ON_ENGINES(TopodumpReaderTest, kPostgres);

TEST_P(TopodumpReaderTest, AUserWhoMayOnlyReadIsAnswered) {
  makePostgresRoles(store());
  const PostgresLogin reader("zntopo_reader");
  const std::string name = "TV_TOPO_STORE=" + reader.store(store());
  for (const Call& call : {Call{"-node"}, Call{"-nodeif", "core-1"}, Call{"-info"}}) {
    EXPECT_EQ(printedBy(call, {name}), printedBy(call));
  }
}

}  // namespace
}  // namespace zntopo::test
