// The exact texts of the statements on VLANs, containers and HSRP groups: every blank counts.

#include "zntopo/api/detail/GroupSql.h"

#include <gtest/gtest.h>

#include "zntopo/api/detail/GroupRows.h"

namespace zntopo::detail {
namespace {

const TableSet kActive;
const TableSet kWorking(WorkingDB);

TEST(GroupSqlTest, ConditionsForAllOfAKind) {
  EXPECT_EQ(allVlans(-1), "  IPLevel = 4  AND  entityType =  4");
  EXPECT_EQ(allVlans(0), "  IPLevel = 4  AND  entityType =  4 AND RouteDistinguisher = 0");
  EXPECT_EQ(allHSRPs(-1), "  IPLevel = 4  AND  entityType =  11");
  EXPECT_EQ(allHSRPs(2), "  IPLevel = 4  AND  entityType =  11  AND RouteDistinguisher = 2");
  EXPECT_EQ(allIfcs(-1), "");
  EXPECT_EQ(allIfcs(0), " RouteDistinguisher = 0");
  EXPECT_EQ(ifcsOfType(5, -1), "  IFCTYPE = 5");
  EXPECT_EQ(ifcsOfType(5, 3), " RouteDistinguisher = 3 AND IFCTYPE = 5");
}

TEST(GroupSqlTest, Containers) {
  const std::string select =
      "select ObjId, EntityName,  StatusChangeTimeUTC,  CreateTimeUTC,  ChangeTimeUTC,  "
      "hasDynamicProperty, Description, ZoneNumber,  RouteDistinguisher,  Status from  ";
  EXPECT_EQ(ifcEntitySelect(kActive, ""), select + "nwifc");
  EXPECT_EQ(ifcEntitySelect(kWorking, " x"), select + "nwifc_update where  x");
  EXPECT_EQ(ifcDataSql(kActive, "a"),
            "select  IFCType, isOrdered, AppsID from nwifc where  ObjID in  ( 'a')");
  EXPECT_EQ(ifcAssociationsSql(kWorking, "a"),
            " select a.LeftIFContainerObjID, a.RightIFContainerObjID, a.RelType, a.LeftIfcType, "
            "a.RightIfcType, a.State, a.StateChangeTime, a.Description, a.ExtraInfo from "
            "nwifcasc_update a where   a.LeftIFContainerObjId in  ( 'a') or "
            "a.RightIFContainerObjId in  ( 'a')");
}

TEST(GroupSqlTest, MembersOfHSRPGroups) {
  EXPECT_EQ(hsrpInfoSelect(kActive, {"a", "b"}, false),
            "select  AddressID, AddressIfObjID, ObjID, state, HSRPPriority,  HSRPNumber, "
            "TrackInterfaceList, HSRPStateCertainty from " +
                kActive.hsrpaddressTbl_ + " where   ObjID in  ( 'a','b')");
  EXPECT_EQ(hsrpInfoSelect(kWorking, {}, true),
            "select  a.AddressID, a.AddressIfObjID, a.ObjID, a.state, a.HSRPPriority,  "
            "a.HSRPNumber, a.TrackInterfaceList, a.HSRPStateCertainty from " +
                kWorking.hsrpaddressTbl_ +
                " a, nwentity_update b where   b.objid = a.objid and b.EntityType = 11");
  EXPECT_EQ(hsrpsByMemberSql(kActive, "AddressID", "a"),
            "select ObjID from " + kActive.hsrpaddressTbl_ + " where  AddressID = 'a'");
  EXPECT_EQ(hsrpsByNothingSql(kActive), "select ObjID from " + kActive.hsrpaddressTbl_ + " where ");
}

/// The names of the columns stand in a statement in their order.
void expectInOrder(ColumnList columns, const std::string& sql) {
  std::size_t at = 0;
  for (const Column& column : columns) {
    const std::size_t found = sql.find(column.name, at);
    ASSERT_NE(found, std::string::npos) << column.name << " in " << sql;
    at = found + 1;
  }
}

TEST(GroupSqlTest, TheColumnTablesHaveTheOrderOfTheirStatements) {
  expectInOrder(kIfcEntityColumns, ifcEntitySelect(kActive, ""));
  expectInOrder(kIfcDataColumns, ifcDataSql(kActive, "a"));
  expectInOrder(kIfcAssociationColumns, ifcAssociationsSql(kActive, "a"));
  expectInOrder(kHSRPInfoColumns, hsrpInfoSelect(kActive, {"a"}, false));
  expectInOrder(kHSRPInfoColumns, hsrpInfoSelect(kActive, {}, true));
  EXPECT_STREQ(kIfcEntityColumns[IFC_Status].name, "Status");
  EXPECT_STREQ(kIfcAssociationColumns[IFCA_State].name, "State");
  EXPECT_STREQ(kHSRPInfoColumns[H_Certainty].name, "HSRPStateCertainty");
}

TEST(GroupSqlTest, TextColumnsHaveTheirBuffers) {
  const auto sizes = [](ColumnList columns) {
    std::vector<int> all;
    for (const Column& column : columns) {
      if (column.kind == ColumnKind::Text) all.push_back(column.size);
    }
    return all;
  };
  EXPECT_EQ(sizes(kIfcEntityColumns), std::vector<int>({66, 130, 260, 65}));
  EXPECT_EQ(sizes(kIfcAssociationColumns), std::vector<int>({37, 37, 260, 260}));
  EXPECT_EQ(sizes(kHSRPInfoColumns), std::vector<int>({66, 66, 66, 2000}));
}

}  // namespace
}  // namespace zntopo::detail
