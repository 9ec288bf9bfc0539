#include <gtest/gtest.h>

#include <sstream>

#include "zntopo/api/detail/InterfaceRow.h"
#include "zntopo/api/detail/InterfaceSql.h"

namespace zntopo::detail {
namespace {

const TableSet& active() {
  static const auto* const tables = new TableSet(ActiveDB);
  return *tables;
}

TEST(InterfaceSqlTest, TheBigSelectHasItsExactText) {
  EXPECT_EQ(interfaceSelect(active(), " where a.isL2Connected = 1 "),
            "select  a.ObjId, a.EntityName, a.IPLevel, a.QRMObjId, a.Description, a.EntityType, "
            "a.ZoneNumber, a.V6CompoundStatus, a.V6GlobalStatus, a.V6SiteStatus, "
            "a.StatusChangeTimeUTC, a.CreateTimeUTC, a.ChangeTimeUTC, a.hasDynamicProperty, "
            "a.hasAddress, a.NodeObjID, a.PhysicalAddress, a.VendorCard, a.VendorPort, a.IfIndex,  "
            "a.IfName, a.IfType, a.Vpi, a.Vci, a.IfAlias, a.nodeName, a.isL2Connected, a.Port, "
            "a.isHSRP, a.Status, a.L2DomainId, a.IfOperStatus, a.IfAdminState, a.isATM, a.isOSPF, "
            "a.isBGP, a.isFrameRelay, a.isMeshInterface, a.isMPLS, a.isVRRP,  a.isDS1, a.isDS3, "
            "a.isSONET, a.isCDP, a.isSTP, a.isWireless, a.routeDistinguisher, a.IfSpeed, "
            "a.isAccessPort, a.AscChangeTime  from nwinterface a  where a.isL2Connected = 1 ");
}

TEST(InterfaceSqlTest, TheWorkingTablesTakeTheirOwnNames) {
  const TableSet working(WorkingDB);
  EXPECT_TRUE(interfaceSelect(working, "").ends_with(" from nwinterface_update a "));
  EXPECT_EQ(ownersOfIPv4Sql(working, "10.0.0.1", -1),
            "select objID from address_update where PubV4Address = '10.0.0.1'");
}

TEST(InterfaceSqlTest, TheColumnTableHasTheColumnsOfTheSelectInTheirOrder) {
  const std::string sql = interfaceSelect(active(), "");
  std::vector<std::string> names;
  std::istringstream words(sql.substr(std::string("select").size(), sql.find(" from ") - 6));
  for (std::string word; words >> word;) {
    names.push_back(
        word.substr(2, word.find(',') == std::string::npos ? word.size() - 2 : word.find(',') - 2));
  }
  ASSERT_EQ(names.size(), 50u);
  for (int i = 0; i < INTERFACE_COLUMN_COUNT; ++i) EXPECT_EQ(names[i], kInterfaceColumns[i].name);
}

TEST(InterfaceSqlTest, TheTextColumnsHaveTheirBuffers) {
  const std::map<std::string, int> sizes = {
      {"ObjId", 37},      {"QRMObjId", 37},         {"NodeObjID", 37}, {"EntityName", 256},
      {"IfName", 256},    {"IfAlias", 256},         {"nodeName", 256}, {"Description", 2001},
      {"ZoneNumber", 65}, {"PhysicalAddress", 257}, {"VendorCard", 4}, {"VendorPort", 4},
      {"Port", 4}};
  for (const Column& column : kInterfaceColumns) {
    const auto size = sizes.find(column.name);
    EXPECT_EQ(column.kind, size == sizes.end() ? ColumnKind::Int : ColumnKind::Text) << column.name;
    EXPECT_EQ(column.size, size == sizes.end() ? 0 : size->second) << column.name;
  }
}

TEST(InterfaceSqlTest, TheConditionsHaveTheirExactTexts) {
  const std::list<ObjID> ids = {"a", "b"};
  EXPECT_EQ(whereInterfaceIDs(ids, false), " where a.ObjID in ( 'a','b')");
  EXPECT_EQ(whereInterfaceIDs(ids, true), " where a.QRMObjID in ( 'a','b')");
  EXPECT_EQ(whereConnected(), " where a.isL2Connected = 1 ");
  EXPECT_EQ(whereInterfacesOfNodes(ids), " where a.NodeObjID in ('a','b')");
}

TEST(InterfaceSqlTest, WithoutIdentifiersTheParenthesisOverwritesTheOpening) {
  EXPECT_EQ(whereInterfaceIDs({}, false), " where a.ObjID in ()");
  EXPECT_EQ(whereInterfacesOfNodes({}), " where a.NodeObjID in )");
}

TEST(InterfaceSqlTest, TheStatementsHaveTheirExactTexts) {
  EXPECT_EQ(interfaceIDsOfNodesSql(active(), {"n1", "n2"}),
            "select NodeObjID, ObjID   from nwinterface  where  NodeObjId in  ( 'n1','n2')");
  EXPECT_EQ(ownersOfIPv4Sql(active(), "10.0.0.1", -1),
            "select objID from address where PubV4Address = '10.0.0.1'");
  EXPECT_EQ(ownersOfIPv4Sql(active(), "10.0.0.1", 0),
            "select objID from address where V4Address  = '10.0.0.1' and RouteDistinguisher = 0");
  EXPECT_EQ(ownersOfIPv4Sql(active(), "10.0.0.1", -2),
            "select objID from address where V4Address  = '10.0.0.1' and RouteDistinguisher = -2");
  EXPECT_EQ(interfacesByNameSql(active(), "eth0", "core"),
            "select objID from nwinterface where NodeName  = 'core' and ifName = 'eth0' or "
            "description = 'eth0'");
  EXPECT_EQ(meshSql(active(), "if1"),
            "select ContainerObjId from containment where ContainedObjID = 'if1' and "
            "ContainerType = 10");
  EXPECT_EQ(containedInterfacesSql(active(), "mesh1"),
            "select ContainedObjId from containment where ContainerObjID = 'mesh1' and "
            "ContainedType = 2");
}

}  // namespace
}  // namespace zntopo::detail
