// Every column that the library reads or writes is in its table, in both table sets, and takes a
// value of its kind.
#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <vector>

#include "tests/schema/SchemaTest.h"

namespace zntopo::test {
namespace {

class SchemaTest : public StoreTest {};

struct TableColumns {
  const char* table;
  std::vector<const char*> texts;
  std::vector<const char*> numbers;
};

const std::vector<TableColumns>& tables() {
  static const auto* const all = new std::vector<TableColumns>{
      {"nwentity",
       {"ObjId", "EntityName", "QRMObjId", "Description", "ZoneNumber", "EntityOID"},
       {"IPLevel", "EntityType", "V6CompoundStatus", "V6GlobalStatus", "V6SiteStatus",
        "StatusChangeTimeUTC", "CreateTimeUTC", "ChangeTimeUTC", "hasDynamicProperty", "hasAddress",
        "Status", "RouteDistinguisher"}},
      {"nwnode",
       {"ObjId", "EntityName", "QRMObjId", "Description", "ZoneNumber", "SysOID",
        "V4ManagementAddress", "PubV4ManagementAdd", "sysContact", "sysLocation"},
       {"IPLevel",
        "EntityType",
        "V6CompoundStatus",
        "V6GlobalStatus",
        "V6SiteStatus",
        "StatusChangeTimeUTC",
        "CreateTimeUTC",
        "ChangeTimeUTC",
        "hasDynamicProperty",
        "hasAddress",
        "isATM",
        "isOSPF",
        "isBGP",
        "isHSRP",
        "isFrameRelay",
        "isMultiHome",
        "isMPLS",
        "isLanSwitch",
        "isManageable",
        "isIPV6Router",
        "isIPV4Router",
        "Status",
        "L2DomainId",
        "SNMPState",
        "V4ManagementAddressRD",
        "isVRRP",
        "isRMON",
        "isRMON2",
        "isDS1",
        "isDS3",
        "isSONET",
        "isCDP",
        "isSTP",
        "isWireless",
        "isSNMPSupported"}},
      {"nwinterface",
       {"ObjId", "EntityName", "QRMObjId", "Description", "ZoneNumber", "NodeObjID",
        "PhysicalAddress", "VendorCard", "VendorPort", "IfName", "IfAlias", "nodeName", "Port"},
       {"IPLevel",
        "EntityType",
        "V6CompoundStatus",
        "V6GlobalStatus",
        "V6SiteStatus",
        "StatusChangeTimeUTC",
        "CreateTimeUTC",
        "ChangeTimeUTC",
        "hasDynamicProperty",
        "hasAddress",
        "IfIndex",
        "IfType",
        "Vpi",
        "Vci",
        "isL2Connected",
        "isHSRP",
        "Status",
        "L2DomainId",
        "IfOperStatus",
        "IfAdminState",
        "isATM",
        "isOSPF",
        "isBGP",
        "isFrameRelay",
        "isMeshInterface",
        "isMPLS",
        "isVRRP",
        "isDS1",
        "isDS3",
        "isSONET",
        "isCDP",
        "isSTP",
        "isWireless",
        "routeDistinguisher",
        "IfSpeed",
        "isAccessPort",
        "AscChangeTime"}},
      {"nwvlan", {"ObjID"}, {}},
      {"nwhsrp", {"ObjID"}, {}},
      {"nwifc",
       {"ObjId", "EntityName", "Description", "ZoneNumber"},
       {"StatusChangeTimeUTC", "CreateTimeUTC", "ChangeTimeUTC", "hasDynamicProperty",
        "RouteDistinguisher", "Status", "IFCType", "isOrdered", "AppsID", "V6CompoundStatus",
        "V6SiteStatus", "V6GlobalStatus"}},
      {"nwifcctm",
       {"ContainerObjId", "InterfaceObjId", "NodeObjId"},
       {"ContainmentType", "IFCType", "SequenceNumber"}},
      {"nwifcasc",
       {"LeftIFContainerObjID", "RightIFContainerObjID", "Description", "ExtraInfo"},
       {"RelType", "LeftIfcType", "RightIfcType", "State", "StateChangeTime"}},
      {"NWInterfaceAsc",
       {"leftobjid", "rightobjid", "leftifnodeobjid", "rightifnodeobjid"},
       {"reltype"}},
      {"containment",
       {"ContainerObjID", "ContainedObjID", "ContainedNodeObjId"},
       {"ContainerType", "ContainedType"}},
      {"address",
       {"AddressId", "ObjId", "SubnetObjId", "V6Address", "V6AddressBS", "V4Address", "NodeObjId",
        "DNSName", "AddressQRMId", "PubV4Address"},
       {"AddressType", "IPLevel", "isSubnet", "V6ScopeType", "PrefixLength", "RouteDistinguisher",
        "PingStatus", "V6AddressType", "V6AddressNtmState", "V6AddressStatus", "LastPingTimeUTC",
        "LastPingStateUpdTimeUTC", "PingState"}},
      {"addressmapping", {"LeftAddressId", "RightAddressId"}, {"AddressMappingType"}},
      {"userdefvar", {"VarName", "StrVal", "ObjID"}, {"VarValType", "IntVal", "FloatVal"}},
      {"hsrpaddress",
       {"AddressID", "AddressIfObjID", "ObjID", "TrackInterfaceList"},
       {"state", "HSRPPriority", "HSRPNumber", "HSRPStateCertainty"}},
      {"interfaceproperty", {"ObjID"}, {}},
      {"nodeproperty", {"ObjID"}, {}},
      {"state",
       {},
       {"TopologyReady", "DISCOCYCLECOMPLETE", "MeshState", "HSRPState", "ContainmentState",
        "RelatedToState", "TOPOLOGYREADYCHANGETIME", "DiscoZoneComplete", "DiscoZoneInProgress",
        "ChangeTime", "CreateTime", "PrevDiscoEndTime"}},
      {"nwtopoaudittrail",
       {"ObjID", "ActionInfo"},
       {"ActionTimeUTC", "ActionType", "ActionDetail", "ObjectType"}},
  };
  return *all;
}

TEST_P(SchemaTest, EachColumnIsInItsTableInBothSets) {
  for (const TableColumns& columns : tables()) {
    inBothSets(columns.table, [&](const std::string& table) {
      for (const auto& kind : {columns.texts, columns.numbers}) {
        for (const char* column : kind) {
          EXPECT_TRUE(store_->accepts(std::string("select ") + column + " from " + table))
              << table << "." << column;
        }
      }
    });
  }
}

TEST_P(SchemaTest, ThereAreEighteenTablesOfWhichSixteenStandTwice) {
  EXPECT_EQ(tables().size(), 18U);
  const char* const sql =
      store_->isPostgres()
          ? "select count(*) from pg_tables where schemaname = 'public'"
          : "select count(*) from sqlite_master where type = 'table' and name not like 'sqlite%'";
  EXPECT_EQ(store_->value(sql), "34");
}

TEST_P(SchemaTest, NumberColumnsRefuseTextAndNumbersBeyond32Bits) {
  for (const TableColumns& columns : tables()) {
    inBothSets(columns.table, [&](const std::string& table) {
      for (const char* column : columns.numbers) {
        const std::string insert = "insert into " + table + " (" + column + ") values (";
        EXPECT_FALSE(store_->accepts(insert + "'no number')")) << table << "." << column;
        if (column == std::string("FloatVal")) continue;
        EXPECT_FALSE(store_->accepts(insert + "2147483648)")) << table << "." << column;
        EXPECT_FALSE(store_->accepts(insert + "-2147483649)")) << table << "." << column;
      }
    });
  }
}

TEST_P(SchemaTest, TheBordersOf32BitsFit) {
  store_->insert("state", {{"ChangeTime", 2147483647}, {"CreateTime", -2147483647 - 1}});
  EXPECT_EQ(store_->value("select ChangeTime from state"), "2147483647");
  EXPECT_EQ(store_->value("select CreateTime from state"), "-2147483648");
}

TEST_P(SchemaTest, NothingButKeysMustHaveAValue) {
  const std::vector<std::pair<const char*, Values>> keys = {
      {"nwentity", {{"ObjId", "k"}}},
      {"nwnode", {{"ObjId", "k"}}},
      {"nwinterface", {{"ObjId", "k"}}},
      {"nwvlan", {{"ObjId", "k"}}},
      {"nwhsrp", {{"ObjId", "k"}}},
      {"nwifc", {{"ObjId", "k"}}},
      {"nwifcctm", {{"ContainerObjId", "k"}, {"InterfaceObjId", "k"}}},
      {"nwifcasc", {{"LeftIFContainerObjID", "k"}, {"RightIFContainerObjID", "k"}, {"RelType", 1}}},
      {"NWInterfaceAsc", {{"leftobjid", "k"}, {"rightobjid", "k"}, {"reltype", 1}}},
      {"containment", {{"ContainerObjID", "k"}, {"ContainedObjID", "k"}}},
      {"address", {{"AddressId", "k"}}},
      {"addressmapping",
       {{"LeftAddressId", "k"}, {"RightAddressId", "k"}, {"AddressMappingType", 1}}},
      {"userdefvar", {{"ObjID", "k"}, {"VarName", "v"}}},
      {"hsrpaddress", {{"ObjID", "k"}, {"AddressID", "k"}}},
      {"interfaceproperty", {{"ObjID", "k"}, {"PropertyName", "p"}}},
      {"nodeproperty", {{"ObjID", "k"}, {"PropertyName", "p"}}},
      {"state", {{"ChangeTime", nullptr}}},
      {"nwtopoaudittrail", {{"ObjID", nullptr}}},
  };
  for (const auto& [name, values] : keys) {
    const Values& key = values;
    inBothSets(name, [&](const std::string& table) {
      store_->insert(table, key);
      if (standsOnce(table)) return;
      EXPECT_THROW(store_->insert(table, key), std::runtime_error) << table << ": a key twice";
      for (const auto& [column, value] : key) {
        Values without = key;
        without.insert_or_assign(column, nullptr);
        EXPECT_THROW(store_->insert(table, without), std::runtime_error) << table << "." << column;
      }
    });
  }
}

TEST_P(SchemaTest, WhatMayPointAtNothingIsAccepted) {
  store_->insert("address", {{"AddressId", "a"}, {"ObjId", "gone"}, {"NodeObjId", "gone"}});
  store_->insert("userdefvar", {{"ObjID", "gone"}, {"VarName", "v"}});
  store_->insert("nwtopoaudittrail", {{"ObjID", "gone"}});
  store_->addLink("gone", "gone too", "gone", "gone");
  store_->insert("nwinterface", {{"ObjId", "i"}, {"NodeObjID", "gone"}});
  store_->insert("containment", {{"ContainerObjID", "gone"}, {"ContainedObjID", "gone"}});
}

TEST_P(SchemaTest, ARowThatSaysNothingWithoutAnotherGoesWithIt) {
  EXPECT_FALSE(store_->accepts("insert into nwvlan (ObjId) values ('v')"));
  store_->addEntity("v", "vlan", 4);
  store_->insert("nwvlan", {{"ObjId", "v"}});
  store_->execute("delete from nwentity where ObjId = 'v'");
  EXPECT_EQ(store_->count("nwvlan"), 0);
}

ZNTOPO_ON_ENGINES(SchemaTest, kMainEngines);

}  // namespace
}  // namespace zntopo::test
