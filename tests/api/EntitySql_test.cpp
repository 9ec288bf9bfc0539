// The exact texts of the statements on entities and subnets: every blank counts.

#include "zntopo/api/detail/EntitySql.h"

#include <gtest/gtest.h>

#include "zntopo/api/detail/EntityTableRow.h"

namespace zntopo::detail {
namespace {

const TableSet kActive;
const TableSet kWorking(WorkingDB);
const std::list<ObjID> kIDs = {ObjID("a"), ObjID("b")};

TEST(EntitySqlTest, TheBigSelectOfEntities) {
  const std::string select =
      "select  ObjId,  EntityName,  IPLevel,  QRMObjId,  Description,  EntityType,  ZoneNumber,  "
      "V6CompoundStatus,  V6GlobalStatus,  V6SiteStatus,  StatusChangeTimeUTC,  CreateTimeUTC,  "
      "ChangeTimeUTC,  hasDynamicProperty,  hasAddress,  EntityOID, Status, RouteDistinguisher "
      "from  ";
  EXPECT_EQ(entitySelect(kActive, "x"), select + "nwentity where x");
  EXPECT_EQ(entitySelect(kWorking, " ObjID in ('a')"),
            select + "nwentity_update where  ObjID in ('a')");
}

TEST(EntitySqlTest, TheColumnTableHoldsEachColumnOfTheSelectInItsOrder) {
  const std::string select = entitySelect(kActive, "");
  std::size_t at = 0;
  for (const Column& column : kEntityTableColumns) {
    const std::size_t found = select.find(std::string(" ") + column.name, at);
    ASSERT_NE(found, std::string::npos) << column.name;
    at = found + 1;
  }
  EXPECT_EQ(ENTITY_TABLE_COLUMN_COUNT, 18);
  EXPECT_STREQ(kEntityTableColumns[ENT_EntityType].name, "EntityType");
  EXPECT_STREQ(kEntityTableColumns[ENT_V6SiteStatus].name, "V6SiteStatus");
  EXPECT_STREQ(kEntityTableColumns[ENT_hasAddress].name, "hasAddress");
  EXPECT_STREQ(kEntityTableColumns[ENT_RouteDistinguisher].name, "RouteDistinguisher");
}

TEST(EntitySqlTest, TextColumnsHaveTheirBuffers) {
  for (const auto& [column, size] :
       {std::pair(ENT_ObjId, 66), std::pair(ENT_QRMObjId, 66), std::pair(ENT_EntityName, 256),
        std::pair(ENT_Description, 2001), std::pair(ENT_ZoneNumber, 65),
        std::pair(ENT_EntityOID, 65)}) {
    EXPECT_EQ(kEntityTableColumns[column].kind, ColumnKind::Text);
    EXPECT_EQ(kEntityTableColumns[column].size, size) << kEntityTableColumns[column].name;
  }
}

TEST(EntitySqlTest, ConditionsOfSubnets) {
  EXPECT_EQ(subnetsByIDs(kIDs, false), " ObjID in ('a','b')");
  EXPECT_EQ(subnetsByIDs(kIDs, true), " QRMObjID in ('a','b')");
  EXPECT_EQ(subnetsByIDs({}, false), " ObjID in )");
  EXPECT_EQ(allSubnets(ZNEntity::IPv4, -1), "  IPLevel = 4 AND  entityType =  7");
  EXPECT_EQ(allSubnets(ZNEntity::IPv6, 3),
            "  IPLevel = 6  AND  entityType =  7  AND RouteDistinguisher = 3");
  EXPECT_EQ(allSubnets(ZNEntity::AllProtocol, 0), " entityType =  7  AND RouteDistinguisher = 0");
}

TEST(EntitySqlTest, EndPoints) {
  EXPECT_EQ(endPointsSql(kActive, "s"),
            "select a.AddressID, a.ObjID, b.ContainerObjID from address a, containment b "
            "where a.SubnetObjID = 's' and a.SubnetObjID <> a.ObjID "
            "and a.ObjID = b.ContainedObjID ");
  EXPECT_EQ(endPointsOfSubnetsSql(kWorking, kIDs),
            "select a.AddressID, b.ObjID, b.NodeObjID, a.SubnetObjID  from address_update a, "
            "nwinterface_update b  where a.SubnetObjID in  ( 'a','b') and a.SubnetObjID <> a.ObjID "
            " and a.ObjID = b.ObjID ");
}

}  // namespace
}  // namespace zntopo::detail
