// Every statement of the interface and address queries runs on both engines and both table sets.

#include <gtest/gtest.h>

#include "tests/support/TestStore.h"
#include "zntopo/api/detail/AddressSql.h"
#include "zntopo/api/detail/InterfaceSql.h"

namespace zntopo::test {
namespace {

using namespace zntopo::detail;

std::vector<std::string> statementsOf(const TableSet& tables) {
  const std::list<ObjID> ids = {"a", "b"};
  std::vector<std::string> all = {
      interfaceSelect(tables, whereInterfaceIDs(ids, false)),
      interfaceSelect(tables, whereInterfaceIDs(ids, true)),
      interfaceSelect(tables, whereConnected()),
      interfaceSelect(tables, whereInterfacesOfNodes(ids)),
      interfaceIDsOfNodesSql(tables, ids),
      ownersOfIPv4Sql(tables, "10.0.0.1", -1),
      ownersOfIPv4Sql(tables, "10.0.0.1", 3),
      interfacesByNameSql(tables, "eth0", "core"),
      meshSql(tables, "a"),
      containedInterfacesSql(tables, "a"),
      dnsNamesSql(tables, "a"),
      addressesByDnsNameSql(tables, "www%"),
      addressSelect(tables, "", ""),
      addressSelect(tables, addressesByIDs({"a", "b"}), ""),
      addressSelect(tables, addressesOfType(ZNAddress::IPv6), ""),
      addressSelect(tables, addressByQRMID("1"), ""),
  };
  for (const int rd : {-1, 0}) {
    all.push_back(addressSelect(tables, addressByIP("10.0.0.1", rd), ""));
    all.push_back(addressSelect(tables, addressByIP("::1", rd), ""));
  }
  for (const int mode : {0, 1, 2}) {
    all.push_back(
        addressSelect(tables, addressesByOwners(ids, mode), addressOwnerTables(tables, mode)));
  }
  return all;
}

class PreparedStatementsInterfaceTest : public testing::TestWithParam<Engine> {};

TEST_P(PreparedStatementsInterfaceTest, EachRunsOnBothTableSets) {
  ZNTOPO_NEED_ENGINE(GetParam());
  TestStore store(GetParam());
  for (const TopoDBType set : {ActiveDB, WorkingDB}) {
    for (const std::string& sql : statementsOf(TableSet(set))) {
      EXPECT_NO_THROW(store.execute(sql)) << sql;
    }
  }
}

TEST_P(PreparedStatementsInterfaceTest, AnEmptyListIsTakenOrRefusedAsTheEngineHasIt) {
  ZNTOPO_NEED_ENGINE(GetParam());
  TestStore store(GetParam());
  const TableSet tables;
  EXPECT_EQ(store.accepts(interfaceSelect(tables, whereInterfaceIDs({}, false))),
            !store.isPostgres());
  EXPECT_EQ(store.accepts(interfaceIDsOfNodesSql(tables, {})), !store.isPostgres());
  // The parenthesis over the last character leaves no list at all.
  EXPECT_FALSE(store.accepts(interfaceSelect(tables, whereInterfacesOfNodes({}))));
}

INSTANTIATE_TEST_SUITE_P(Engines, PreparedStatementsInterfaceTest, testing::ValuesIn(kMainEngines),
                         EngineNames());

}  // namespace
}  // namespace zntopo::test
