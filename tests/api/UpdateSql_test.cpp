// The statements of the updates, to the letter.

#include "zntopo/api/detail/UpdateSql.h"

#include <gtest/gtest.h>

namespace zntopo::detail {
namespace {

const ObjID kID("x");
const TableSet kActive;
const TableSet kWorking(WorkingDB);

TEST(UpdateSqlTest, AnHSRPAddressIsFoundByItsAddressAlone) {
  const ZNHSRPAddressInfo info(1, ObjID("interface"), kID, 110, ZNHSRPAddressInfo::StandBy, "", 70);
  EXPECT_EQ(hsrpAddressUpdate(kActive, info),
            " update hsrpaddress set STATE = 5, HSRPSTATECERTAINTY = 70, HSRPPRIORITY = 110 where "
            "ADDRESSID = 'x'");
  EXPECT_EQ(hsrpAddressUpdate(kWorking, info).substr(0, 27), " update hsrpaddress_update ");
}

TEST(UpdateSqlTest, TheStatesOfAnInterfaceHaveAColumnEach) {
  EXPECT_EQ(interfaceStateUpdate(kActive, kID, 2, 0),
            "update nwinterface set IfAdminState = 2 where ObjID = 'x' ");
  EXPECT_EQ(interfaceStateUpdate(kWorking, kID, -2, 1),
            "update nwinterface_update set IfOperStatus = -2 where ObjID = 'x' ");
}

TEST(UpdateSqlTest, APingStateIsOfAnAddress) {
  EXPECT_EQ(pingStateUpdate(kActive, kID, 3),
            " update address set PingState = 3 where ADDRESSID = 'x'");
  EXPECT_EQ(pingStateUpdate(kWorking, kID, 3),
            " update address_update set PingState = 3 where ADDRESSID = 'x'");
}

TEST(UpdateSqlTest, SomeStatusesShareAColumn) {
  constexpr const char* kColumns[] = {"V6COMPOUNDSTATUS", "V6SITESTATUS", "V6SITESTATUS",
                                      "V6GLOBALSTATUS",   "STATUS",       "STATUS"};
  for (int type = ZNEntity::IPv6Overall; type <= ZNEntity::Overall; ++type) {
    const std::string column = kColumns[type];
    EXPECT_EQ(nodeStatusUpdate(kActive, kID, 4, type),
              "update nwnode set " + column + " = 4 where ObjID = 'x' ");
    EXPECT_EQ(
        entityStatusUpdate(kActive, kID, 4, 1000, static_cast<ZNEntity::EntityStatusType>(type),
                           E_Node),
        "update nwnode set " + column + " = 4,  STATUSCHANGETIMEUTC = 1000 where ObjID = 'x' ");
  }
}

TEST(UpdateSqlTest, TheSnmpStateIsASeventhStatusOfNodesAlone) {
  EXPECT_EQ(nodeStatusUpdate(kWorking, kID, 1, 6),
            "update nwnode_update set SNMPState = 1 where ObjID = 'x' ");
  EXPECT_EQ(
      entityStatusUpdate(kActive, kID, 1, 2, static_cast<ZNEntity::EntityStatusType>(6), E_Node),
      "update nwnode set  = 1,  STATUSCHANGETIMEUTC = 2 where ObjID = 'x' ");
}

TEST(UpdateSqlTest, AKindOfStateThatIsNotKnownHasNoColumn) {
  for (const int type : {-1, 2, 1000}) {
    EXPECT_EQ(interfaceStateUpdate(kActive, kID, 1, type),
              "update nwinterface set  = 1 where ObjID = 'x' ");
  }
  for (const int type : {-1, 7, 1000}) {
    EXPECT_EQ(nodeStatusUpdate(kActive, kID, 1, type), "update nwnode set  = 1 where ObjID = 'x' ");
  }
}

TEST(UpdateSqlTest, NodesInterfacesAndContainersHaveTablesOfTheirOwnAndTheRestOneForAll) {
  const auto tableOf = [](const TableSet& tables, EntityType type) {
    const std::string sql = entityStatusUpdate(tables, kID, 1, 2, ZNEntity::Overall, type);
    return sql.substr(7, sql.find(" set") - 7);
  };
  EXPECT_EQ(tableOf(kActive, E_Node), "nwnode");
  EXPECT_EQ(tableOf(kActive, E_Interface), "nwinterface");
  EXPECT_EQ(tableOf(kActive, E_IfC), "nwifc");
  for (const EntityType type : {E_Unknown, E_Vlan, E_Subnet, E_HSRP, E_Mesh, E_Address}) {
    EXPECT_EQ(tableOf(kActive, type), "nwentity") << type;
    EXPECT_EQ(tableOf(kWorking, type), "nwentity_update") << type;
  }
}

TEST(UpdateSqlTest, AnL2DomainIsOfANodeOrAnInterface) {
  EXPECT_EQ(l2DomainUpdate(kActive.nwnodeTbl_, kID, 12),
            " update nwnode set L2DomainId = 12 where objid = 'x'");
  EXPECT_EQ(l2DomainUpdate(kWorking.nwinterfaceTbl_, kID, 12),
            " update nwinterface_update set L2DomainId = 12 where objid = 'x'");
}

TEST(UpdateSqlTest, AnAssociationHasParameters) {
  EXPECT_EQ(ifcAssociationUpdate(),
            "update nwifcasc set state = ?, STATECHANGETIME = ?  where LEFTIFCONTAINEROBJID = ? "
            "and RIGHTIFCONTAINEROBJID = ? and RELTYPE = ? ");
}

TEST(UpdateSqlTest, AnIdentifierStandsInTheTextAsItIsAtAnyLength) {
  EXPECT_EQ(pingStateUpdate(kActive, ObjID("it's 100%d"), 3),
            " update address set PingState = 3 where ADDRESSID = 'it's 100%d'");
  const std::string longest(100000, 'i');
  EXPECT_EQ(pingStateUpdate(kActive, ObjID(longest), 3),
            " update address set PingState = 3 where ADDRESSID = '" + longest + "'");
  EXPECT_EQ(pingStateUpdate(kActive, ObjID(), 3),
            " update address set PingState = 3 where ADDRESSID = 'NULL'");
}

}  // namespace
}  // namespace zntopo::detail
