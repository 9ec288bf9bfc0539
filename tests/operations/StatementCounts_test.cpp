// What each query operation costs: statements and transactions, to the number, on networks of
// several sizes.

#include <fstream>
#include <map>
#include <set>
#include <sstream>

#include "tests/operations/OperationFixture.h"
#include "tests/support/Places.h"
#include "zntopo/platform/tvdbil/StatementCount.h"

namespace zntopo::test {
namespace {

/// One run of an operation.
struct Measured {
  Answer answer;
  Cost cost;
  std::vector<std::string> statements;
};

Measured measure(const Operation& operation, const Desk& desk) {
  const StatementSpy spy;
  const TvDbil::StatementCount before = TvDbil::statementCount();
  Measured result;
  result.answer = operation.run(desk);
  const TvDbil::StatementCount count = TvDbil::statementCount() - before;
  result.statements = spy.allStatements();
  result.cost = {static_cast<int>(count.executed), static_cast<int>(count.transactions)};
  EXPECT_EQ(count.executed, count.prepared) << operation.name;
  EXPECT_EQ(count.prepared, result.statements.size()) << operation.name;
  return result;
}

/// The beginnings of statements and how often each was seen, for the reader of a failure.
std::string summaryOf(const std::vector<std::string>& statements) {
  std::map<std::string, int> seen;
  for (const std::string& sql : statements) {
    const std::size_t from = sql.find("from ");
    ++seen[sql.substr(from == std::string::npos ? 0 : from, 60)];
  }
  std::ostringstream text;
  for (const auto& [sql, times] : seen) text << "\n  " << times << " x ..." << sql;
  return text.str();
}

/// The identifiers and other texts that statements name.
int namedIn(const std::vector<std::string>& statements) {
  std::ptrdiff_t quotes = 0;
  for (const std::string& sql : statements) quotes += std::count(sql.begin(), sql.end(), '\'');
  return static_cast<int>(quotes / 2);
}

bool isException(const Operation& operation) {
  return std::any_of(exceptions().begin(), exceptions().end(), [&](const Exception& exception) {
    return std::string(exception.operation) == operation.name;
  });
}

class StatementCountsTest : public OperationTest {
 protected:
  /// Runs every operation cold, warm and uncached on a network of a size.
  void holdOnNetwork(const Size& size) {
    fill(size);
    for (const Operation& operation : allOperations()) {
      SCOPED_TRACE(std::string(operation.name) + " on " + size.name);
      ZNTopoAPI::setTopoConfiguration(ZNTopoConfig());
      api.clearCache();
      hold(operation, size, operation.cold, "cold");
      hold(operation, size, operation.warm, "warm");
      keepNothing();
      hold(operation, size, operation.uncached, "uncached");
    }
  }

 private:
  void hold(const Operation& operation, const Size& size, Formula formula, const char* when) {
    const Measured measured = measure(operation, deskOf(size));
    EXPECT_EQ(measured.cost, formula(size)) << when << summaryOf(measured.statements);
    EXPECT_EQ(measured.answer.items.size(), static_cast<std::size_t>(operation.items(size)))
        << when << ": " << testing::PrintToString(measured.answer);
    if (isException(operation)) return;
    // An object is named by the statement that reads it and by those of its loaders, not more.
    EXPECT_LE(namedIn(measured.statements), kNamings * size.objects()) << when;
  }

  static constexpr int kNamings = 8;
};

// One batch of everything, two, and three; the last network has the deepest walks.
TEST_P(StatementCountsTest, EveryQueryOperationCostsWhatItsRowSaysOnAFewNodes) {
  holdOnNetwork({"few", 5, 2, false});
}

TEST_P(StatementCountsTest, EveryQueryOperationCostsWhatItsRowSaysOnSomeNodes) {
  holdOnNetwork({"some", 60, 4, false});
}

TEST_P(StatementCountsTest, EveryQueryOperationCostsWhatItsRowSaysOnManyNodes) {
  holdOnNetwork({"many", 105, 8, false});
}

TEST_P(StatementCountsTest, EveryQueryOperationCostsWhatItsRowSaysOnAFewNodesWithVariables) {
  holdOnNetwork({"few with variables", 5, 2, true});
}

TEST_P(StatementCountsTest, EveryQueryOperationCostsWhatItsRowSaysOnManyNodesWithVariables) {
  holdOnNetwork({"many with variables", 105, 8, true});
}

// The texts of the loader of user variables: each names every object once more.
TEST_P(StatementCountsTest, TheLoaderOfUserVariablesNamesItsWholeRequestInEachBatch) {
  for (const int objects : {50, 51, 120}) {
    std::list<ObjID> ids;
    for (int i = 1; i <= objects; ++i) ids.push_back(ObjID(nodeID(Part::Leaf, i)));
    const StatementSpy spy;
    impl.getUserDefVarsByObjIDList(ids, status);
    EXPECT_EQ(spy.statements().size(), static_cast<std::size_t>(batches(objects)));
    EXPECT_EQ(namedIn(spy.statements()), objects * batches(objects));
  }
}

ZNTOPO_ON_ENGINES(StatementCountsTest, kEngines);

// ---- what costs grow with ----------------------------------------------------------------------

/// The formulas hold for every size, so what they grow with can be seen on networks that nobody
/// has to store.
int growthOf(Formula formula, const Size& from, const Size& to) {
  return formula(to).statements - formula(from).statements;
}

/// How many statements more a cost may take on the second network.
int allowedGrowth(Growth growth, const Size& from, const Size& to) {
  constexpr int kBlock = 5;  // nodes with the four loaders
  const int moreBatches = batches(to.ring()) - batches(from.ring());
  const int moreHops = to.hops - from.hops;
  switch (growth) {
    case Growth::Batches:
      return kBlock * moreBatches;
    case Growth::Hops:
      // For each link the search reads a ring, and without a cache the way back a node and the
      // writing of the path a node and two interfaces.
      return kBlock * moreBatches + (3 * kBlock + 2) * moreHops;
    default:
      return 0;
  }
}

TEST(StatementGrowthTest, NoCostGrowsWithMoreThanItsRowNames) {
  for (const bool variables : {false, true}) {
    const Size small{"small", 10, 3, variables};
    const Size wide{"wide", 100000, 3, variables};
    const Size deep{"deep", 10, 1000, variables};
    for (const Operation& operation : allOperations()) {
      if (operation.growth == Growth::Exceptional) continue;
      for (const Formula formula : {operation.cold, operation.warm, operation.uncached}) {
        for (const Size& large : {wide, deep}) {
          EXPECT_LE(growthOf(formula, small, large), allowedGrowth(operation.growth, small, large))
              << operation.name << " on " << large.name;
        }
      }
    }
  }
}

TEST(StatementGrowthTest, TheExceptionsAreTheOnesThatRowsNameAndThatTheDocumentationExplains) {
  std::ifstream file(inSourceTree("docs/statements.md"));
  std::string page{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
  for (const Operation& operation : allOperations()) {
    EXPECT_EQ(isException(operation), operation.growth == Growth::Exceptional) << operation.name;
  }
  // The page sets code apart.
  page.erase(std::remove(page.begin(), page.end(), '`'), page.end());
  for (const Exception& exception : exceptions()) {
    EXPECT_NE(page.find(exception.operation), std::string::npos)
        << "docs/statements.md does not name " << exception.operation << ": " << exception.reason;
  }
}

/// The operations of ZNTopoAPI that programs can call, by the list of what the library exports.
std::set<std::string> exportedOperations() {
  std::set<std::string> names;
  std::ifstream file(inSourceTree("cmake/exported-symbols.txt"));
  const std::string facade = "zntopo::ZNTopoAPI::";
  for (std::string line; std::getline(file, line);) {
    if (!line.starts_with(facade)) continue;
    const std::string name =
        line.substr(facade.size(), line.find_first_of("([", facade.size()) - facade.size());
    if (!name.starts_with('~') && name != "ZNTopoAPI") names.insert(name);
  }
  return names;
}

TEST(OperationTableTest, EveryExportedOperationHasARowButThoseThatAskNoStore) {
  const std::set<std::string> withoutStore = {"ParseDefaultFile",
                                              "ParseXmlFile",
                                              "ParseXmlString",
                                              "clearCache",
                                              "getDefaultFileFilterName",
                                              "getNodeByMmgtAddr",
                                              "getTopoAPIVersion",
                                              "getTopoConfiguration",
                                              "getTopoSchemaVersion",
                                              "isCacheValid",
                                              "refreshTopology",
                                              "release",
                                              "setCacheSize",
                                              "setTopoConfiguration"};
  std::set<std::string> rows;
  for (const Operation& operation : allOperations()) {
    const std::string name = operation.name;
    rows.insert(name.substr(0, name.find(' ')));
  }
  const std::set<std::string> exported = exportedOperations();
  EXPECT_GT(exported.size(), 60u);
  for (const std::string& name : exported) {
    EXPECT_NE(rows.contains(name), withoutStore.contains(name)) << name;
  }
}

TEST(StatementGrowthTest, BatchesAreOfFiftyAndThenOfFortyNine) {
  for (const auto& [identifiers, expected] : std::map<int, int>{
           {0, 0}, {1, 1}, {50, 1}, {51, 2}, {99, 2}, {100, 3}, {148, 3}, {149, 4}}) {
    EXPECT_EQ(batches(identifiers), expected) << identifiers;
  }
}

}  // namespace
}  // namespace zntopo::test
