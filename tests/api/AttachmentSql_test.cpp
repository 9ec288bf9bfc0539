// The exact texts of the statements: every blank counts.

#include "zntopo/api/detail/AttachmentSql.h"

#include <gtest/gtest.h>

namespace zntopo::detail {
namespace {

const TableSet kActive;
const TableSet kWorking(WorkingDB);
const std::list<ObjID> kIDs = {ObjID("a"), ObjID("b")};

TEST(AttachmentSqlTest, UserVariablesAreThoseOfIdentifiersOrOfAKind) {
  const std::string head =
      "select a.VarName, a.VarValType, a.StrVal, a.IntVal, a.FloatVal, a.ObjID from userdefvar a ";
  EXPECT_EQ(userVarSelect(kActive, E_Unknown, "ERROR", kIDs),
            head + " where a.ObjId in  ( 'a','b')");
  EXPECT_EQ(userVarSelect(kActive, E_Vlan, "nwvlan", kIDs),
            head + " , nwentity b where a.objid = b.objid and b.entitytype = 4");
  EXPECT_EQ(userVarSelect(kActive, E_Node, "nwnode", kIDs),
            head + " , nwnode b where a.ObjID = b.ObjID ");
  // VLANs are joined with the entity table of the active set, whichever set it is.
  EXPECT_EQ(userVarSelect(kWorking, E_Vlan, "nwvlan_update", kIDs),
            "select a.VarName, a.VarValType, a.StrVal, a.IntVal, a.FloatVal, a.ObjID from "
            "userdefvar_update a  , nwentity b where a.objid = b.objid and b.entitytype = 4");
}

TEST(AttachmentSqlTest, ConnectionsAreThoseOfNodesOrAll) {
  const std::string head =
      "select leftobjid, rightobjid, leftifnodeobjid, rightifnodeobjid from NWInterfaceAsc";
  EXPECT_EQ(connDataSelect(kActive, kIDs, false),
            head +
                " where ( leftifnodeobjid in  ( 'a','b') or rightifnodeobjid in  ( 'a','b') ) "
                "and  reltype = 1  ");
  EXPECT_EQ(connDataSelect(kActive, kIDs, true), head + " where reltype = 1 ");
}

TEST(AttachmentSqlTest, VlanDataAreThoseOfNodesOfVlansOrAll) {
  const std::string columns =
      " a.ContainerObjID, a.ContainedObjID,   b.NodeObjID, b.NodeName, b.VendorPort, "
      "b.VendorCard from containment a, nwinterface b where  a.ContainedObjID = b.objid  ";
  EXPECT_EQ(
      vlanInfoSelect(kActive, kIDs, true, false, false),
      "select " + columns + " AND a.ContainerType = 4 AND a.ContainedNodeObjId in  ( 'a','b')");
  EXPECT_EQ(vlanInfoSelect(kActive, kIDs, false, false, false),
            "select " + columns + " AND a.ContainerObjID in  ( 'a','b')");
  EXPECT_EQ(vlanInfoSelect(kActive, {}, true, true, false),
            "select " + columns + " AND a.ContainerType = 4 ");
  EXPECT_EQ(vlanInfoSelect(kActive, {}, true, true, true),
            "select --+ ORDERED \n " + columns + " AND a.ContainerType = 4 ");
}

TEST(AttachmentSqlTest, ContainerDataAreThoseOfNodesOfContainersOrAll) {
  const std::string head =
      "select  a.ContainerObjId, a.InterfaceObjId,   a.NodeObjId, a.ContainmentType, a.IFCType, "
      "a.SequenceNumber from nwifcctm a, nwinterface b where  a.InterfaceObjID = b.objid ";
  EXPECT_EQ(ifcInfoSelect(kActive, kIDs, true, false, 0), head + " AND a.NodeObjId in  ( 'a','b')");
  EXPECT_EQ(ifcInfoSelect(kActive, kIDs, false, false, 3),
            head + " AND a.IFCType = 3 AND a.ContainerObjID in  ( 'a','b')");
  EXPECT_EQ(ifcInfoSelect(kActive, {}, true, true, 0), head);
  EXPECT_EQ(ifcInfoSelect(kActive, {}, true, true, -2), head + " AND a.IFCType = -2");
}

}  // namespace
}  // namespace zntopo::detail
