#include <gmock/gmock.h>

#include <set>

#include "tests/support/CliSupport.h"

/// @file
/// The layer-2 links among nodes, held against a statement on the store that is written by hand.

namespace zntopo::test {
namespace {

using testing::HasSubstr;
using Names = std::vector<std::string>;
using Links = std::set<std::set<std::string>>;

/// The interfaces at both ends of each link, by identifier.
Links linksOf(const nlohmann::json& answer) {
  Links links;
  for (const auto& one : answer["connections"]) {
    const std::set<std::string> ends = {one["source_interface_id"], one["dest_interface_id"]};
    EXPECT_TRUE(links.insert(ends).second) << "each link once";
  }
  return links;
}

class CliConnectivityTest : public CliSampleTest {
 protected:
  static Names call(Names names, const Names& more = {}) {
    names.insert(names.begin(), "connectivity");
    names.insert(names.end(), more.begin(), more.end());
    return names;
  }

  /// The links that have both ends in nodes of a selection of identifiers.
  Links linksWithin(const std::string& nodes) const {
    Links links;
    for (const auto& row :
         select("select leftobjid, rightobjid from NWInterfaceAsc where reltype = 1 "
                "and leftifnodeobjid in (" +
                    nodes + ") and rightifnodeobjid in (" + nodes + ")",
                2)) {
      links.insert({row[0], row[1]});
    }
    return links;
  }
};

TEST_P(CliConnectivityTest, LinksAmongNodesAreThoseOfTheStore) {
  const Names names = {"core-1", "core-2", "dist-quay", "access-1"};
  const std::string nodes =
      "select ObjId from nwnode where EntityName in ('core-1', 'core-2', 'dist-quay', 'access-1')";
  const Links stored = linksWithin(nodes);
  EXPECT_EQ(stored.size(), 4u);
  EXPECT_EQ(linksOf(answerOf(call(names))), stored);
  // An address and a beginning name nodes too, and a node twice is a node once.
  EXPECT_EQ(linksOf(answerOf(call({"10.20.1.11", "core-2", "dist-q", "access-1", "core-1"}))),
            stored);
  EXPECT_THAT(zntopoRun(call(names)).out, HasSubstr("4 links among 4 nodes\n"));
  EXPECT_TRUE(answerOf({"connectivity", "core-1"})["connections"].empty());
}

TEST_P(CliConnectivityTest, LinksToNeighborsAreThereOnDemand) {
  const std::string core = "select ObjId from nwnode where EntityName = 'core-1'";
  const std::string around = core +
                             " union select leftifnodeobjid from NWInterfaceAsc "
                             "where rightifnodeobjid in (" +
                             core +
                             ") union select rightifnodeobjid from NWInterfaceAsc "
                             "where leftifnodeobjid in (" +
                             core + ")";
  const Links stored = linksWithin(around);
  EXPECT_GT(stored.size(), 4u);
  EXPECT_EQ(linksOf(answerOf(call({"core-1"}, {"--neighbors"}))), stored);
  EXPECT_THAT(zntopoRun(call({"core-1"}, {"--neighbors"})).out,
              HasSubstr(" links among 1 node and its neighbours\n"));
}

TEST_P(CliConnectivityTest, ANodeThatIsNotThereIsNotLeftOut) {
  EXPECT_EQ(failureOf(call({"core-1", "nobody"})), "ZN_API_OBJ_NOT_EXIST");
  EXPECT_EQ(failureOf(call({"core-1", "acces"})), "ZN_API_NONUNIQUE_NAME");
  EXPECT_EQ(failureOf(call({"core-1", "00000000-0000-0000-0000-000000000000"})),
            "ZN_API_OBJ_NOT_EXIST");
}

TEST_P(CliConnectivityTest, TheCeilingOfTheLibraryIsSaid) {
  ASSERT_EQ(zntopoRun({"generate", "--ring", "210", "--merge"}).status, 0);
  Names names;
  const auto ring = select(
      "select EntityName from nwnode where EntityName like 'ring-%' "
      "order by EntityName",
      1);
  ASSERT_EQ(ring.size(), 210u);
  for (const auto& row : ring) names.push_back(row[0]);
  const CliResult all = zntopoRun(call(names, {"--json"}));
  EXPECT_EQ(all.status, 1);
  EXPECT_EQ(all.json()["status"]["name"], "ZN_API_INCOMPLETE_NEIGHBOR_INFO");
  EXPECT_THAT(all.err, HasSubstr("The links so far have 200 nodes at their ends"));
  const std::size_t found = all.json()["connections"].size();
  EXPECT_GE(found, 100u);
  EXPECT_LT(found, 210u);
  names.resize(150);
  EXPECT_EQ(answerOf(call(names))["connections"].size(), 149u);
}

INSTANTIATE_TEST_SUITE_P(Engines, CliConnectivityTest, testing::ValuesIn(kEngines), EngineNames());

}  // namespace
}  // namespace zntopo::test
