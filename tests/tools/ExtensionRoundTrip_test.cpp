#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <sstream>

#include "tests/tools/import/Rfc8345Text.h"
#include "tools/export/Rfc8345Writer.h"
#include "tools/generate/SiteBuilder.h"
#include "tools/network/NameUuid.h"
#include "tools/network/StoreRows.h"

/// @file
/// An export has room for all that a network holds: a generated one, written down and read again,
/// gives the same rows.

namespace zntopo::tools {
namespace {

std::string idOf(const std::string& key) { return nameUuid("\n" + key); }

template <typename Entity>
void identifyAll(std::vector<Entity>& entities) {
  for (Entity& one : entities) one.id = idOf(one.key);
}

/// Gives all objects the identifiers that their rows have anyway.
void identify(NetworkModel& model) {
  identifyAll(model.nodes);
  for (NodeModel& node : model.nodes) {
    identifyAll(node.interfaces);
    for (InterfaceModel& interface : node.interfaces) {
      for (AddressModel& one : interface.addresses) {
        one.id = idOf(addressKey(interface.key, one.address));
        if (!one.dnsName.empty()) one.dnsId = idOf(interface.key + "\nname\n" + one.dnsName);
      }
    }
  }
  identifyAll(model.subnets);
  for (SubnetModel& one : model.subnets) one.addressId = idOf(one.key + "\naddress");
  identifyAll(model.vlans);
  identifyAll(model.meshes);
  identifyAll(model.hsrpGroups);
  identifyAll(model.containers);
  for (AuditModel& one : model.audit) one.objectId = idOf(one.objectKey);
}

/// Every row as a line; each key once, as a store has it.
std::multiset<std::string> linesOf(const NetworkModel& model) {
  NetworkReport report;
  RowSet rows;
  addRows(model, "", rows, report);
  std::multiset<std::string> lines;
  for (const Row& row : rows.rows()) {
    std::string line = tableDef(row.table).name;
    for (const Cell& cell : row.cells) {
      line += "|";
      if (const auto* text = std::get_if<std::string>(&cell)) line += *text;
      if (const auto* number = std::get_if<int>(&cell)) line += std::to_string(*number);
      if (const auto* real = std::get_if<float>(&cell)) line += std::to_string(*real);
    }
    lines.insert(line);
  }
  return lines;
}

TEST(ExtensionRoundTripTest, AGeneratedSiteIsReadBackAsItWas) {
  CampusPlan plan;
  plan.nodes = 60;
  plan.interfaces = 1000;
  plan.sites = 1;
  plan.userVariableShare = 0.1;
  plan.brokenGroupShare = 0.3;
  NetworkModel model = buildSite(plan, CampusLayout(plan), 0);
  const auto before = linesOf(model);
  ASSERT_FALSE(model.meshes.empty() || model.associations.empty() || model.audit.empty());
  identify(model);
  NetworkReport report;
  std::ostringstream text;
  writeRfc8345(model, text, report);
  const test::Rfc8345Read read(text.str());
  for (const auto& note : read.report.notes()) ADD_FAILURE() << note.what << note.firstWhere;
  const auto after = linesOf(read.model);
  EXPECT_GT(before.size(), 4000u);
  EXPECT_EQ(before.size(), after.size());
  std::vector<std::string> lost, made;
  std::set_difference(before.begin(), before.end(), after.begin(), after.end(),
                      std::back_inserter(lost));
  std::set_difference(after.begin(), after.end(), before.begin(), before.end(),
                      std::back_inserter(made));
  EXPECT_TRUE(lost.empty()) << lost.size() << " rows were lost, the first: " << lost.front();
  EXPECT_TRUE(made.empty()) << made.size() << " rows were made, the first: " << made.front();
}

}  // namespace
}  // namespace zntopo::tools
