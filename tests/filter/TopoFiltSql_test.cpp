// The statements that run filters, to the letter.

#include "zntopo/filter/TopoFiltSql.h"

#include <gtest/gtest.h>

namespace zntopo::detail {
namespace {

TopoFilt filterOf(const std::string& kind, const std::string& condition) {
  TopoFilt filter("f", kind, "");
  filter.setFinalWhereClause(condition);
  return filter;
}
std::string sqlOf(const std::string& kind, const std::string& condition) {
  return objectsOfTopoFiltSql(filterOf(kind, condition));
}

TEST(TopoFiltSqlTest, AFilterMayUseItsOwnAliasWithoutAJoin) {
  EXPECT_EQ(sqlOf("Node", " NODE.entityname = 'x' "),
            "select NODE.objid from nwnode NODE where  NODE.entityname = 'x' ");
  EXPECT_EQ(sqlOf("Interface", " IF.ifname = 'x' "),
            "select IF.objid from nwinterface IF where  IF.ifname = 'x' ");
  EXPECT_EQ(sqlOf("Address", " ADDR.dnsname = 'x' "),
            "select ADDR.objid from address ADDR where  ADDR.dnsname = 'x' ");
}

TEST(TopoFiltSqlTest, NodesJoinInterfacesAndAddressesByTheirNode) {
  EXPECT_EQ(
      sqlOf("Node", " IF.status = 1"),
      "select NODE.objid from nwnode NODE , nwinterface IF where NODE.objid = IF.nodeobjid AND "
      " IF.status = 1");
  EXPECT_EQ(
      sqlOf("Node", " ADDR.iplevel = 4"),
      "select NODE.objid from nwnode NODE , address ADDR where NODE.objid = ADDR.nodeobjid AND "
      " ADDR.iplevel = 4");
  EXPECT_EQ(sqlOf("Node", " ADDR.iplevel = 4 and IF.status = 1"),
            "select NODE.objid from nwnode NODE , nwinterface IF , address ADDR where "
            "NODE.objid = IF.nodeobjid AND NODE.objid = ADDR.nodeobjid AND "
            " ADDR.iplevel = 4 and IF.status = 1")
      << "in the order of the tables, not of the text";
}

TEST(TopoFiltSqlTest, InterfacesJoinNodesByTheirNodeAndAddressesByTheirOwner) {
  EXPECT_EQ(sqlOf("Interface", " NODE.iplevel = 4"),
            "select IF.objid from nwinterface IF , nwnode NODE where NODE.objid = IF.nodeobjid AND "
            " NODE.iplevel = 4");
  EXPECT_EQ(sqlOf("Interface", " ADDR.iplevel = 4"),
            "select IF.objid from nwinterface IF , address ADDR where IF.objid = ADDR.objid AND "
            " ADDR.iplevel = 4");
  EXPECT_EQ(sqlOf("Interface", " ADDR.iplevel = 4 and NODE.iplevel = 4"),
            "select IF.objid from nwinterface IF , nwnode NODE , address ADDR where "
            "NODE.objid = IF.nodeobjid AND IF.objid = ADDR.objid AND "
            " ADDR.iplevel = 4 and NODE.iplevel = 4");
}

TEST(TopoFiltSqlTest, AddressesJoinInterfacesByTheirOwnerAndNodesByTheirNode) {
  EXPECT_EQ(sqlOf("Address", " IF.status = 1"),
            "select ADDR.objid from address ADDR , nwinterface IF where ADDR.objid = IF.objid AND "
            " IF.status = 1");
  EXPECT_EQ(
      sqlOf("Address", " NODE.iplevel = 4"),
      "select ADDR.objid from address ADDR , nwnode NODE where NODE.objid = ADDR.nodeobjid AND "
      " NODE.iplevel = 4");
  EXPECT_EQ(sqlOf("Address", " NODE.iplevel = 4 and IF.status = 1"),
            "select ADDR.objid from address ADDR , nwinterface IF , nwnode NODE where "
            "ADDR.objid = IF.objid AND NODE.objid = ADDR.nodeobjid AND "
            " NODE.iplevel = 4 and IF.status = 1");
}

TEST(TopoFiltSqlTest, AnAliasWithoutABlankBeforeItIsNotSeen) {
  EXPECT_EQ(sqlOf("Node", "IF.status = 1"),
            "select NODE.objid from nwnode NODE where IF.status = 1");
  EXPECT_EQ(sqlOf("Node", "(IF.status = 1)"),
            "select NODE.objid from nwnode NODE where (IF.status = 1)");
  EXPECT_EQ(
      sqlOf("Node", "IF.status = 1 or IF.status = 2"),
      "select NODE.objid from nwnode NODE , nwinterface IF where NODE.objid = IF.nodeobjid AND "
      "IF.status = 1 or IF.status = 2")
      << "one blank anywhere is enough";
  EXPECT_EQ(sqlOf("Node", " if.status = 1"),
            "select NODE.objid from nwnode NODE where  if.status = 1")
      << "aliases are upper case";
}

TEST(TopoFiltSqlTest, AnAliasInALiteralBringsItsTableInAsWell) {
  EXPECT_EQ(
      sqlOf("Node", " NODE.description = 'see IF.status'"),
      "select NODE.objid from nwnode NODE , nwinterface IF where NODE.objid = IF.nodeobjid AND "
      " NODE.description = 'see IF.status'");
}

TEST(TopoFiltSqlTest, AnEmptyConditionEndsInWhere) {
  EXPECT_EQ(sqlOf("Node", ""), "select NODE.objid from nwnode NODE where ");
  EXPECT_EQ(sqlOf("Interface", ""), "select IF.objid from nwinterface IF where ");
  EXPECT_EQ(sqlOf("Address", ""), "select ADDR.objid from address ADDR where ");
}

TEST(TopoFiltSqlTest, AFilterOfAnUnknownKindIsItsBareCondition) {
  EXPECT_EQ(sqlOf("Vlan", " IF.status = 1"), " IF.status = 1");
  EXPECT_EQ(sqlOf("node", "x"), "x");
  EXPECT_EQ(sqlOf("", ""), "");
}

TEST(TopoFiltSqlTest, AddressesCanBeAskedForByTheirOwnIdentifiers) {
  EXPECT_EQ(addressesOfTopoFiltSql(filterOf("Address", " NODE.iplevel = 4")),
            "select ADDR.addressid from address ADDR , nwnode NODE where "
            "NODE.objid = ADDR.nodeobjid AND  NODE.iplevel = 4");
}

}  // namespace
}  // namespace zntopo::detail
