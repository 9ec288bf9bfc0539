// Each lookup of the library's statements is served by an index, in both table sets.
#include <gtest/gtest.h>

#include <string>

#include "tests/schema/SchemaTest.h"
#include "zntopo/store/StoreAccess.h"

namespace zntopo::test {
namespace {

class SchemaIndexTest : public StoreTest {
 protected:
  /// How the engine would go about a statement. PostgreSQL would rather read a table as small as
  /// these from end to end, and is told not to.
  std::string plan(const std::string& sql) {
    static constexpr Column kSqlitePlan[] = {intColumn("id"), intColumn("parent"),
                                             intColumn("notused"), textColumn("detail", 500)};
    static constexpr Column kPostgresPlan[] = {textColumn("plan", 500)};
    ZNTopoAPIStatus status;
    StoreAccess access(status);
    std::string text;
    const bool postgres = store_->isPostgres();
    if (postgres) access.execute("set enable_seqscan = off");
    access.run((postgres ? "explain " : "explain query plan ") + sql,
               postgres ? ColumnList(kPostgresPlan) : ColumnList(kSqlitePlan), [&](const Row& row) {
                 text += std::string(row.text(postgres ? 0 : 3)) + "\n";
                 return true;
               });
    EXPECT_TRUE(status.isOK()) << status.getAuxMsg();
    return text;
  }

  /// True if the rows are found by an index: SQLite says "SEARCH" then, and PostgreSQL
  /// "Seq Scan" when it reads a whole table.
  bool usesIndex(const std::string& sql) {
    const std::string found = plan(sql);
    return store_->isPostgres() ? found.find("Seq Scan") == std::string::npos
                                : found.find("SEARCH") != std::string::npos;
  }
};

struct Lookup {
  const char* table;
  const char* condition;
};

constexpr Lookup kLookups[] = {
    {"nwentity", "ObjID in ('a', 'b')"},
    {"nwentity", "QRMObjID in ('a')"},
    {"nwentity", "IPLevel = 4 and entityType = 7"},
    {"nwentity", "entityType = 4"},
    {"nwentity", "EntityName like 'core%'"},
    {"nwnode", "ObjID in ('a', 'b')"},
    {"nwnode", "QRMObjID in ('a')"},
    {"nwnode", "entityname = 'core'"},
    {"nwnode", "entityname like 'core%'"},
    {"nwnode", "PubV4ManagementAdd = '10.0.0.1'"},
    {"nwnode", "V4ManagementAddressRD = 1"},
    {"nwnode", "IPLevel = 6"},
    {"nwinterface", "ObjID in ('a', 'b')"},
    {"nwinterface", "QRMObjID in ('a')"},
    {"nwinterface", "NodeObjID in ('a')"},
    {"nwinterface", "isL2Connected = 1"},
    {"nwinterface", "NodeName = 'n' and ifName = 'i' or description = 'i'"},
    {"nwinterface", "IPLevel = 4"},
    {"address", "AddressId in ('a')"},
    {"address", "ObjId in ('a')"},
    {"address", "NodeObjId = 'a'"},
    {"address", "SubnetObjID in ('a')"},
    {"address", "PubV4Address = '10.0.0.1'"},
    {"address", "V4Address = '10.0.0.1' and RouteDistinguisher = 1"},
    {"address", "V4Address like '10.0.%'"},
    {"address", "V6Address = 'fe80::1'"},
    {"address", "V6Address like 'fe80%'"},
    {"address", "V6AddressBS like '0101%'"},
    {"address", "AddressQRMID = '7'"},
    {"address", "AddressType = 2"},
    {"address", "DNSName like 'core%'"},
    {"addressmapping", "LeftAddressId = 'a'"},
    {"addressmapping", "RightAddressId = 'a'"},
    {"containment", "ContainerObjID = 'a'"},
    {"containment", "ContainedObjID = 'a'"},
    {"containment", "ContainedNodeObjId in ('a')"},
    {"NWInterfaceAsc", "leftifnodeobjid in ('a') or rightifnodeobjid in ('a')"},
    {"nwifc", "ObjId in ('a')"},
    {"nwifc", "IFCTYPE = 1"},
    {"nwifc", "RouteDistinguisher = 1"},
    {"nwifcctm", "ContainerObjID in ('a')"},
    {"nwifcctm", "InterfaceObjID = 'a'"},
    {"nwifcctm", "NodeObjId in ('a')"},
    {"nwifcasc", "LeftIFContainerObjId in ('a') or RightIFContainerObjId in ('a')"},
    {"hsrpaddress", "ObjID in ('a')"},
    {"hsrpaddress", "AddressID = 'a'"},
    {"hsrpaddress", "AddressIFObjID = 'a'"},
    {"userdefvar", "ObjId in ('a')"},
    {"nwvlan", "ObjId = 'a'"},
    {"nwhsrp", "ObjId = 'a'"},
    {"nwtopoaudittrail", "ActionTimeUTC >= 1 and ActionTimeUTC <= 2"},
};

TEST_P(SchemaIndexTest, EachLookupHasAnIndexInBothSets) {
  for (const Lookup& lookup : kLookups) {
    inBothSets(lookup.table, [&](const std::string& table) {
      const std::string sql = "select * from " + table + " where " + lookup.condition;
      EXPECT_TRUE(usesIndex(sql)) << sql << "\n" << plan(sql);
    });
  }
}

TEST_P(SchemaIndexTest, TheJoinsOfAddressesAndInterfacesHaveAnIndexOnEachSide) {
  EXPECT_TRUE(
      usesIndex("select a.AddressId from address a, nwinterface b where a.ObjID = b.ObjID and"
                " b.NodeObjId in ('n')"));
  EXPECT_TRUE(
      usesIndex("select b.NodeName from containment a, nwinterface b where"
                " a.ContainedObjID = b.objid and a.ContainerObjID in ('v')"));
}

TEST_P(SchemaIndexTest, ALookupWithoutAnIndexIsSeenByTheseTests) {
  EXPECT_FALSE(usesIndex("select * from nwnode where sysContact = 'me'"));
}

ZNTOPO_ON_ENGINES(SchemaIndexTest, kMainEngines);

}  // namespace
}  // namespace zntopo::test
