// What the dump tool asks of the store, in statements, on networks of several sizes.

#include <gmock/gmock.h>

#include "tests/support/ConnectedStore.h"
#include "tests/support/FilterConfiguration.h"
#include "tools/generate/GenerateCampus.h"
#include "tools/topodump/Dump.h"
#include "zntopo/api/ZNTopoAPI_Impl.h"
#include "zntopo/platform/tvdbil/StatementCount.h"

namespace zntopo::tools {
namespace {

using testing::HasSubstr;

/// 50 identifiers go into the first statement and 49 into each later one.
int batches(int identifiers) { return identifiers == 0 ? 0 : 1 + (identifiers - 50 + 48) / 49; }

class DumpStatementsTest : public test::ConnectedStoreTest {
 protected:
  void TearDown() override {
    unsetenv("TOPODUMP_DETAIL");
    ConnectedStoreTest::TearDown();
  }

  /// A campus of one site in a store of its own.
  void fill(int nodes) {
    connection_.reset();
    store_.reset();
    ConnectedStoreTest::SetUp();
    CampusPlan plan;
    plan.nodes = nodes;
    plan.interfaces = 8 * nodes;
    plan.sites = 1;
    plan.userVariableShare = 0;
    generateCampus(*connection_, plan);
  }

  /// The statements of a call that begins with an empty cache, as each call of the tool does.
  int cost(const DumpCall& call) {
    ZNTopoAPI::setTopoConfiguration(ZNTopoConfig());
    ZNTopoAPI_Impl::cache()->clear(true);
    ZNTopoAPI api;
    const auto before = TvDbil::statementCount();
    testing::internal::CaptureStdout();
    EXPECT_EQ(dump(api, call), DumpPrinted);
    printed_ = testing::internal::GetCapturedStdout();
    return static_cast<int>((TvDbil::statementCount() - before).executed);
  }

  int count(const std::string& sql) { return std::stoi(value("select count(*) from " + sql)); }
  /// The lines that were printed, without the header.
  int rows() const {
    return static_cast<int>(std::count(printed_.begin(), printed_.end(), '\n')) - 1;
  }

  /// Those of addresses among them.
  int addressRows() const {
    const auto lines = test::linesOf(printed_);
    return static_cast<int>(std::count_if(lines.begin(), lines.end(), [](const std::string& line) {
      return line.rfind("        - ", 0) == 0;
    }));
  }

  static constexpr int kSizes[] = {40, 90, 160};
  const test::FilterConfiguration filters_{"etc", test::inSourceTree("data/filter")};
  std::string printed_;
};

TEST_P(DumpStatementsTest, AllNodesTakeAsManyStatementsAsOne) {
  for (const int nodes : kSizes) {
    fill(nodes);
    // The state, the nodes, their links, containers and VLANs.
    EXPECT_EQ(cost({.kind = DumpCall::Nodes}), 5) << nodes;
    EXPECT_EQ(rows(), nodes);
  }
}

TEST_P(DumpStatementsTest, TheCountersAndTheNamesOfFiltersTakeTheSameOnEachNetwork) {
  for (const int nodes : kSizes) {
    fill(nodes);
    EXPECT_EQ(cost({.kind = DumpCall::Info}), 18) << nodes;
    EXPECT_EQ(cost({.kind = DumpCall::Filters}), 0) << nodes;
  }
}

TEST_P(DumpStatementsTest, InterfacesTakeTwoStatementsForEachNodeAndNoneForEachInterface) {
  for (const int nodes : kSizes) {
    fill(nodes);
    EXPECT_EQ(cost({.kind = DumpCall::NodesWithInterfaces}), 5 + 2 * nodes) << nodes;
    EXPECT_EQ(rows(), nodes + 8 * nodes + count("address where isSubnet = 0"));
  }
}

TEST_P(DumpStatementsTest, WhatAFilterSelectsIsReadInBatches) {
  for (const int nodes : kSizes) {
    fill(nodes);
    const int ofNodes = cost({.kind = DumpCall::Nodes, .filter = "Routers"});
    EXPECT_EQ(ofNodes, 2 + 4 * batches(rows())) << nodes;
    const int ofInterfaces = cost({.kind = DumpCall::Interfaces, .filter = "Uplinks"});
    const int interfaces = rows() - addressRows();
    EXPECT_GT(interfaces, 0);
    EXPECT_EQ(ofInterfaces, 2 + 2 * batches(interfaces)) << nodes;
  }
}

TEST_P(DumpStatementsTest, FullTextsTakeOneMoreForEachInterfaceInAnHsrpGroupAndItsAddresses) {
  test::setEnv("TOPODUMP_DETAIL", "1");
  for (const int nodes : kSizes) {
    fill(nodes);
    EXPECT_EQ(cost({.kind = DumpCall::Nodes}), 5) << nodes;
    const std::string inGroups = " in (select AddressIfObjID from hsrpaddress)";
    const int groups =
        count("nwinterface where ObjId" + inGroups) + count("address where ObjId" + inGroups);
    EXPECT_GT(groups, 0);
    EXPECT_EQ(cost({.kind = DumpCall::NodesWithInterfaces}), 5 + 2 * nodes + groups) << nodes;
    EXPECT_THAT(printed_, HasSubstr("\n+++++++++++++++++ ZNInterface ++++++++++++++"));
  }
}

ZNTOPO_ON_ENGINES(DumpStatementsTest, test::kEngines);

}  // namespace
}  // namespace zntopo::tools
