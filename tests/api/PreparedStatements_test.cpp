// The engines accept each statement of the library, on both table sets.

#include <filesystem>
#include <regex>

#include "tests/support/ApiFixture.h"
#include "tests/support/AttributeFilters.h"
#include "tests/support/Places.h"
#include "tests/support/Statements.h"
#include "zntopo/api/detail/AttributeFilterSql.h"
#include "zntopo/api/detail/GroupSql.h"
#include "zntopo/api/detail/InterfaceSql.h"

namespace zntopo::test {
namespace {

using namespace zntopo::detail;

class PreparedStatementsTest : public StoreTest {};
ZNTOPO_ON_ENGINES(PreparedStatementsTest, kEngines);

TEST_P(PreparedStatementsTest, EachIsAcceptedOnBothTableSets) {
  for (const TopoDBType set : {ActiveDB, WorkingDB}) {
    for (const std::string& sql : everyStatement(TableSet(set))) {
      EXPECT_NO_THROW(store_->execute(sql)) << sql;
    }
  }
}

TEST_P(PreparedStatementsTest, EachChangeIsAcceptedOnBothTableSets) {
  for (const TopoDBType set : {ActiveDB, WorkingDB}) {
    for (const std::string& sql : everyUpdate(TableSet(set))) {
      EXPECT_EQ(sql.find('?'), std::string::npos) << sql;
      EXPECT_NO_THROW(store_->execute(sql)) << sql;
    }
  }
}

TEST_P(PreparedStatementsTest, GroupsCantBeAskedForByWhatTheyTrack) {
  EXPECT_FALSE(store_->accepts(hsrpsByNothingSql(TableSet())));
}

TEST_P(PreparedStatementsTest, AttributeFiltersThatEndInAFailedStatementAreRefused) {
  EXPECT_FALSE(store_->accepts(entitiesByFilterSql(TableSet(), {})));
  const ZNTopoFilter level = ofLevel(ZNEntity::IPv4);
  EXPECT_TRUE(store_->accepts(entitiesByFilterSql(TableSet(), level)));
  EXPECT_FALSE(store_->accepts(entitiesByFilterSql(TableSet(WorkingDB), level)));
  ZNTopoFilter capable = ableTo({"isCDP"});
  EXPECT_TRUE(store_->accepts(nodesByFilterSql(TableSet(), capable)));
  capable.setAddressType(ZNAddress::IPv4);
  capable.setAddressStr("10.0.0.1");
  EXPECT_FALSE(store_->accepts(nodesByFilterSql(TableSet(), capable)));
}

TEST_P(PreparedStatementsTest, AnEmptyListIsTakenOrRefusedAsTheEngineHasIt) {
  const TableSet tables;
  EXPECT_EQ(store_->accepts(interfaceSelect(tables, whereInterfaceIDs({}, false))),
            !store_->isPostgres());
  EXPECT_EQ(store_->accepts(interfaceIDsOfNodesSql(tables, {})), !store_->isPostgres());
  // The parenthesis over the last character leaves no list at all.
  EXPECT_FALSE(store_->accepts(interfaceSelect(tables, whereInterfacesOfNodes({}))));
}

/// The functions that the headers of statements declare.
std::vector<std::string> statementFunctions() {
  std::vector<std::string> names;
  const std::regex declaration("std::string (\\w+)\\(");
  for (const auto& entry : std::filesystem::recursive_directory_iterator(inSourceTree("zntopo"))) {
    const std::string file = entry.path().filename().string();
    if (file.size() < 5 || file.compare(file.size() - 5, 5, "Sql.h") != 0) continue;
    const std::string text = contentOf(entry.path());
    for (std::sregex_iterator found(text.begin(), text.end(), declaration), end; found != end;
         ++found) {
      names.push_back((*found)[1]);
    }
  }
  return names;
}

TEST(EveryStatementTest, EveryFunctionThatMakesOneIsAmongThem) {
  const std::string list = contentOf(inSourceTree("tests/support/Statements.cpp"));
  const std::vector<std::string> functions = statementFunctions();
  EXPECT_GT(functions.size(), 30U);
  for (const std::string& function : functions) {
    // No engine takes it, which a test above holds.
    if (function == "hsrpsByNothingSql") continue;
    EXPECT_TRUE(std::regex_search(list, std::regex("\\b" + function + "\\b"))) << function;
  }
}

}  // namespace
}  // namespace zntopo::test
