#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "tests/support/ConnectedStore.h"
#include "tests/support/Places.h"
#include "tests/tools/GroupLines.h"
#include "tools/generate/GenerateCampus.h"
#include "tools/generate/SiteBuilder.h"
#include "tools/import/NetworkFormat.h"
#include "tools/network/StoreWriter.h"
#include "zntopo/api/ZNTopoAPIDefaultFactory.h"
#include "zntopo/api/ZNTopoAPI_Impl.h"

/// @file
/// What readers and the generator say of subnets, VLANs, HSRP groups and containers is what the
/// library reads in the store that was made of it.

namespace zntopo::tools {
namespace {

using test::GroupLines;
using test::Lines;

NetworkModel readFile(const std::string& path) {
  NetworkReport report;
  const InputFile file = loadInputFile(path);
  return networkFormat("", file).read(file, report, {});
}

NetworkModel readSample(const std::string& name) {
  return readFile(test::inSourceTree("data/networks/") + name);
}

/// All lines that begin with a word.
std::size_t countLines(const Lines& lines, const std::string& word) {
  std::size_t count = 0;
  for (const auto& [id, said] : lines) {
    count += static_cast<std::size_t>(
        std::count_if(said.begin(), said.end(), [&](const std::string& line) {
          return line.compare(0, word.size() + 1, word + " ") == 0;
        }));
  }
  return count;
}

std::vector<const EntityModel*> entitiesOf(const NetworkModel& model) {
  std::vector<const EntityModel*> all;
  const auto add = [&](const auto& list) {
    for (const EntityModel& one : list) all.push_back(&one);
  };
  add(model.nodes);
  for (const NodeModel& node : model.nodes) add(node.interfaces);
  add(model.subnets);
  add(model.vlans);
  add(model.hsrpGroups);
  add(model.containers);
  return all;
}

TEST(SampleNetworkTest, EveryTypeOfUserVariableAndSeveralStatesAreThere) {
  const NetworkModel model = readSample("harbor-campus.rfc8345.json");
  std::set<std::size_t> types;
  std::set<int> states;
  for (const EntityModel* entity : entitiesOf(model)) {
    for (const UserVariableModel& one : entity->variables) types.insert(one.value.index());
    if (entity->status) states.insert(entity->status->overall);
  }
  EXPECT_THAT(types, testing::ElementsAre(0u, 1u, 2u, 3u, 4u, 5u));
  EXPECT_GE(states.size(), 4u);
}

TEST(SampleNetworkTest, OneHsrpGroupHasTwoActiveMembersAndTheOthersAreWell) {
  const NetworkModel model = readSample("harbor-campus.rfc8345.json");
  std::multiset<long> active;
  for (const HsrpGroupModel& group : model.hsrpGroups) {
    ASSERT_EQ(group.members.size(), 2u);
    active.insert(std::count_if(group.members.begin(), group.members.end(),
                                [](const HsrpMemberModel& one) { return one.state == 6; }));
    for (const HsrpMemberModel& one : group.members) EXPECT_FALSE(one.tracks.empty());
  }
  EXPECT_THAT(active, testing::ElementsAre(1, 1, 1, 1, 2));
}

TEST(SampleNetworkTest, AddressesAreMonitoredAndTheTrailTellsOfWhatIsGone) {
  const NetworkModel model = readSample("harbor-campus.rfc8345.json");
  std::size_t monitored = 0;
  std::set<std::string> keys;
  for (const EntityModel* entity : entitiesOf(model)) keys.insert(entity->key);
  for (const NodeModel& node : model.nodes) {
    for (const InterfaceModel& interface : node.interfaces) {
      for (const AddressModel& address : interface.addresses) {
        keys.insert(addressKey(interface.key, address.address));
        if (address.monitoring) ++monitored;
      }
    }
  }
  EXPECT_EQ(monitored, 5u);
  EXPECT_EQ(std::count_if(model.audit.begin(), model.audit.end(),
                          [&](const AuditModel& one) { return !keys.contains(one.objectKey); }),
            1);
  EXPECT_EQ(model.audit.size(), 16u);
}

class ReadBackTest : public test::ConnectedStoreTest {
 protected:
  void write(const NetworkModel& model) {
    NetworkReport report;
    writeNetworks(*connection_, {model}, "", report);
  }

  /// What the library reads, with a cache that knows nothing yet.
  GroupLines read() {
    ZNTopoAPIDefaultFactory factory;
    factory.initZNTopoAPI(ZNTopoConfig());
    ZNTopoAPI_Impl::cache()->clear(true);
    ZNTopoAPIStatus status;
    const ZNRefPtr<ZNTopoAPI> api = factory.getRDInstance(status, ActiveDB);
    EXPECT_TRUE(status.isOK()) << status.getAuxMsg();
    return test::ReadGroups(*api).lines();
  }

  /// Compares all groups, and gives out what was read.
  GroupLines expectSame(const GroupLines& told) {
    GroupLines lines = read();
    EXPECT_EQ(lines.vlans, told.vlans);
    EXPECT_EQ(lines.subnets, told.subnets);
    EXPECT_EQ(lines.hsrpGroups, told.hsrpGroups);
    EXPECT_EQ(lines.containers, told.containers);
    return lines;
  }
};

TEST_P(ReadBackTest, TheSampleNetworkHasEveryKind) {
  const NetworkModel model = readSample("harbor-campus.rfc8345.json");
  write(model);
  test::ToldGroups told;
  told.add(model);
  const GroupLines read = expectSame(told.lines());
  EXPECT_EQ(read.vlans.size(), 5u);
  EXPECT_EQ(read.subnets.size(), 23u);
  EXPECT_EQ(read.hsrpGroups.size(), 5u);
  EXPECT_EQ(countLines(read.hsrpGroups, "member"), 10u);
  EXPECT_EQ(read.containers.size(), 4u);
  EXPECT_EQ(countLines(read.containers, "is 1 1"), 2u);
  EXPECT_EQ(countLines(read.containers, "is 2 2"), 2u);
  EXPECT_EQ(countLines(read.containers, "association"), 6u);
}

TEST_P(ReadBackTest, ACampusOfTheGenerator) {
  CampusPlan plan;
  plan.nodes = 120;
  plan.interfaces = 2000;
  plan.sites = 2;
  plan.brokenGroupShare = 0.5;
  generateCampus(*connection_, plan);
  const CampusLayout layout(plan);
  test::ToldGroups told;
  for (int site = 0; site < layout.siteCount(); ++site) told.add(buildSite(plan, layout, site));
  told.add(buildBackbone(plan, layout));
  const GroupLines read = expectSame(told.lines());
  EXPECT_GE(countLines(read.vlans, "member"), 100u);
  EXPECT_GE(countLines(read.subnets, "end"), 100u);
  EXPECT_EQ(countLines(read.hsrpGroups, "member"), 2 * read.hsrpGroups.size());
  EXPECT_EQ(read.hsrpGroups.size(), read.vlans.size());
  EXPECT_GE(countLines(read.containers, "association"), 10u);
}

TEST_P(ReadBackTest, AGraphmlFileTellsOfNoGroups) {
  write(readSample("skerry-ring.graphml"));
  const GroupLines read = expectSame({});
  EXPECT_TRUE(read.vlans.empty() && read.subnets.empty());
  EXPECT_EQ(store_->count("nwnode"), 9);
}

ZNTOPO_ON_ENGINES(ReadBackTest, test::kMainEngines);

}  // namespace
}  // namespace zntopo::tools
