#include "tools/export/StoreReader.h"

#include <gmock/gmock.h>

#include "tests/tools/export/ReadStored.h"
#include "tools/generate/GenerateCampus.h"
#include "zntopo/platform/tvdbil/StatementCount.h"

namespace zntopo::tools {
namespace {

using testing::ElementsAre;
using testing::UnorderedElementsAre;

class StoreReaderTest : public test::StoredNetworkTest {
 protected:
  void writeSample() { write(test::networkOf(test::samplePath())); }

  /// The scope of nodes of some names.
  StoreScope nodesNamed(const std::string& names) {
    std::vector<ObjID> ids;
    for (int i = 0; i < store_->count("nwnode"); ++i) {
      const auto id = store_->value("select ObjId from nwnode where EntityName in (" + names +
                                    ") order by EntityName limit 1 offset " + std::to_string(i));
      if (id) ids.emplace_back(*id);
    }
    return ids;
  }

  StoreScope firstNodes(int nodes) {
    std::vector<ObjID> ids;
    for (int i = 0; i < nodes; ++i) {
      ids.emplace_back(value("select ObjId from nwnode order by EntityName limit 1 offset " +
                             std::to_string(i)));
    }
    return ids;
  }

  static std::vector<std::string> namesOf(const StoredNetwork& network) {
    std::vector<std::string> names;
    for (const NodeModel& node : network.model.nodes) names.push_back(node.name);
    return names;
  }

  void generate(int nodes, double variables) {
    startAnew();
    CampusPlan plan;
    plan.nodes = nodes;
    plan.interfaces = 10 * nodes;
    plan.sites = 1;
    plan.userVariableShare = variables;
    generateCampus(*connection_, plan);
  }

  /// How many statements a reading of so many nodes executes.
  std::uint64_t costOf(const StoreScope& scope, int nodes) {
    const auto before = TvDbil::statementCount();
    const StoredNetwork network = read(scope);
    EXPECT_EQ(network.model.nodes.size(), static_cast<std::size_t>(nodes));
    containers_ = network.model.containers.size();
    return (TvDbil::statementCount() - before).executed;
  }

  /// The same of a whole campus that is generated for it.
  std::uint64_t cost(int nodes, double variables) {
    generate(nodes, variables);
    return costOf({}, nodes);
  }

  std::size_t containers_ = 0;
};

TEST_P(StoreReaderTest, NodesComeByNameWithWhatTheyAre) {
  writeSample();
  const StoredNetwork network = read();
  EXPECT_EQ(network.model.nodes.size(), 24u);
  const auto names = namesOf(network);
  EXPECT_TRUE(std::is_sorted(names.begin(), names.end()));
  ASSERT_EQ(network.traits.size(), names.size());
  for (Index i = 0; i < names.size(); ++i) {
    if (names[i] == "border-1") {
      EXPECT_TRUE(network.traits[i].isRouter);
    }
    if (names[i] == "access-1") {
      EXPECT_TRUE(network.traits[i].isSwitch);
    }
    if (names[i] == "customs-printer") {
      EXPECT_FALSE(network.traits[i].isRouter || network.traits[i].isSwitch);
    }
  }
}

TEST_P(StoreReaderTest, APartHasTheLinksWithinAndMarksThoseThatLeadOut) {
  writeSample();
  const StoredNetwork network = read(nodesNamed("'access-1', 'dist-quay', 'crane-4-plc'"));
  EXPECT_THAT(namesOf(network), ElementsAre("access-1", "crane-4-plc", "dist-quay"));
  EXPECT_EQ(network.model.links.size(), 2u);
  int leadingOut = 0;
  for (const NodeModel& node : network.model.nodes) {
    for (const InterfaceModel& interface : node.interfaces) {
      leadingOut += interface.isLinkedElsewhere ? 1 : 0;
    }
  }
  EXPECT_GT(leadingOut, 0);
  EXPECT_TRUE(network.model.audit.empty());
  for (const HsrpGroupModel& group : network.model.hsrpGroups) EXPECT_FALSE(group.members.empty());
}

TEST_P(StoreReaderTest, WhatIsNotKnownIsNotMadeUp) {
  NetworkModel model;
  NodeModel node;
  node.key = node.name = "bare";
  node.interfaces.emplace_back().key = "port";
  node.interfaces.back().name = "e1";
  model.nodes.push_back(node);
  write(model);
  const StoredNetwork network = read();
  ASSERT_EQ(network.model.nodes.size(), 1u);
  const NodeModel& read = network.model.nodes.front();
  EXPECT_FALSE(read.status || read.snmpState || read.layer2Domain || read.managementAddress);
  const InterfaceModel& interface = read.interfaces.front();
  EXPECT_FALSE(interface.adminState || interface.operState || interface.speed || interface.index ||
               interface.type || interface.status);
}

TEST_P(StoreReaderTest, AnAddressThatLiesInNoSubnetIsReadToo) {
  writeSample();
  store_->execute("update address set SubnetObjId = NULL where isSubnet = 0");
  const StoredNetwork network = read();
  std::size_t count = 0;
  for (const NodeModel& node : network.model.nodes) {
    for (const InterfaceModel& one : node.interfaces) count += one.addresses.size();
  }
  EXPECT_EQ(std::to_string(count),
            value("select count(*) from address where isSubnet = 0 and AddressType < 3"));
}

/// A fixed number; three for each batch of 50 nodes, its interfaces and its addresses being one
/// each; what the library loads of nodes and variables a batch; two a container.
TEST_P(StoreReaderTest, TheStatementsGrowWithBatchesOfNodesAndWithContainersAlone) {
  const std::uint64_t one = cost(50, 0);
  const std::uint64_t oneContainers = 2 * containers_;
  const std::uint64_t four = cost(200, 0);
  const std::uint64_t fourContainers = 2 * containers_;
  const std::uint64_t eight = cost(400, 0);
  const std::uint64_t eightContainers = 2 * containers_;
  const std::uint64_t fixed = one - oneContainers;
  const std::uint64_t batch = (four - fourContainers - fixed) / 3;
  EXPECT_LE(fixed, 40u);
  EXPECT_LE(batch, 8u);
  EXPECT_EQ(four, fixed + 3 * batch + fourContainers);
  EXPECT_EQ(eight, fixed + 7 * batch + eightContainers);
}

/// A part takes a statement more for each 500 identifiers of a table, and names its groups.
/// Containers stay in the cache from a first reading on, so they are not in the numbers.
TEST_P(StoreReaderTest, TheStatementsOfAPartGrowWithItsBatchesAndNotWithTheNetwork) {
  const auto costOfPart = [&](int nodes) {
    const StoreScope part = firstNodes(nodes);
    costOf(part, nodes);
    return costOf(part, nodes);
  };
  generate(200, 0);
  const std::uint64_t fifty = costOfPart(50);
  const std::uint64_t hundred = costOfPart(100);
  const std::uint64_t twoHundred = costOfPart(200);
  EXPECT_LE(fifty, 40u);
  EXPECT_LE(hundred, fifty + 20);
  EXPECT_LE(twoHundred, hundred + 2 * 20);
  generate(400, 0);
  EXPECT_LE(costOfPart(50), 40u) << "of a larger network";
}

TEST_P(StoreReaderTest, AFailureOfTheStoreIsTold) {
  writeSample();
  store_->execute("update state set TopologyReady = 0");
  EXPECT_THROW(read(), ToolError);
}

ZNTOPO_ON_ENGINES(StoreReaderTest, test::kEngines);

}  // namespace
}  // namespace zntopo::tools
