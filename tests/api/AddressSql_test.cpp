#include <gtest/gtest.h>

#include <sstream>

#include "zntopo/api/detail/AddressRow.h"
#include "zntopo/api/detail/AddressSql.h"

namespace zntopo::detail {
namespace {

const TableSet& active() {
  static const auto* const tables = new TableSet(ActiveDB);
  return *tables;
}

constexpr char kSelect[] =
    "select a.AddressId, a.ObjId, a.AddressType, a.isSubnet, a.SubnetObjId, a.V6Address, "
    "a.V6AddressBS, a.V6ScopeType, a.PrefixLength, a.V4Address, a.NodeObjId, a.DNSName, "
    "a.RouteDistinguisher,  a.AddressQRMId, a.PingStatus, a.V6AddressType, a.V6AddressNtmState, "
    "a.V6AddressStatus, a.LastPingTimeUTC, a.LastPingStateUpdTimeUTC, a.PubV4Address, "
    "a.PingState from ";

TEST(AddressSqlTest, TheBigSelectHasItsExactText) {
  EXPECT_EQ(addressSelect(active(), "", ""), std::string(kSelect) + "address a ");
  EXPECT_EQ(addressSelect(active(), " AddressId in ('x')", ""),
            std::string(kSelect) + "address a  where  AddressId in ('x')");
  EXPECT_EQ(addressSelect(active(), " a.ObjID = b.ObjID ", "nwinterface b "),
            std::string(kSelect) + "address a , nwinterface b  where  a.ObjID = b.ObjID ");
  EXPECT_EQ(addressSelect(TableSet(WorkingDB), "", ""), std::string(kSelect) + "address_update a ");
}

TEST(AddressSqlTest, TheColumnTableHasTheColumnsOfTheSelectInTheirOrder) {
  std::istringstream words(std::string(kSelect).substr(6));
  std::vector<std::string> names;
  for (std::string word; words >> word && word != "from";) {
    if (word.back() == ',') word.pop_back();
    names.push_back(word.substr(2));
  }
  ASSERT_EQ(names.size(), 22u);
  for (int i = 0; i < ADDRESS_COLUMN_COUNT; ++i) EXPECT_EQ(names[i], kAddressColumns[i].name);
}

TEST(AddressSqlTest, TheTextColumnsHaveTheirBuffers) {
  const std::map<std::string, int> sizes = {
      {"AddressId", 66},    {"ObjId", 66},        {"SubnetObjId", 66}, {"NodeObjId", 66},
      {"V6Address", 42},    {"V6AddressBS", 130}, {"V4Address", 17},   {"DNSName", 257},
      {"AddressQRMId", 66}, {"PubV4Address", 17}};
  for (const Column& column : kAddressColumns) {
    const auto size = sizes.find(column.name);
    EXPECT_EQ(column.kind, size == sizes.end() ? ColumnKind::Int : ColumnKind::Text) << column.name;
    EXPECT_EQ(column.size, size == sizes.end() ? 0 : size->second) << column.name;
  }
}

TEST(AddressSqlTest, TheConditionsHaveTheirExactTexts) {
  EXPECT_EQ(addressesByIDs({"b", "a"}), " AddressId in ('a','b')");
  EXPECT_EQ(addressesOfType(ZNAddress::DNS), " AddressType = 16");
  EXPECT_EQ(addressByQRMID(ObjID(77)), " AddressQRMID = '77'");
}

TEST(AddressSqlTest, TheColumnOfAnAddressDependsOnItsKindAndOnTheRouteDistinguisher) {
  EXPECT_EQ(addressByIP("10.0.0.1", -1), " a.PubV4Address = '10.0.0.1'");
  EXPECT_EQ(addressByIP("10.0.0.1", 0), " a.V4Address = '10.0.0.1' and a.RouteDistinguisher = 0");
  EXPECT_EQ(addressByIP("10.0.0.1", 5), " a.V4Address = '10.0.0.1' and a.RouteDistinguisher = 5");
  EXPECT_EQ(addressByIP("::1", -1), " a.V6Address = '::1'");
  EXPECT_EQ(addressByIP("::1", 0), " a.V6Address = '::1' and a.RouteDistinguisher = 0");
}

TEST(AddressSqlTest, TheOwnersGiveTheConditionAndTheFurtherTableOfTheirMode) {
  const std::list<ObjID> ids = {"i2", "i1"};
  EXPECT_EQ(addressesByOwners(ids, 0), " a.ObjId in ('i2','i1')");
  EXPECT_EQ(addressesByOwners(ids, 1), " a.ObjID = b.ObjID and  b.NodeObjId in ('i2','i1')");
  EXPECT_EQ(addressesByOwners(ids, 2), " a.ObjID = b.ObjID ");
  EXPECT_EQ(addressesByOwners(ids, 3), " a.ObjID = b.ObjID ");
  EXPECT_EQ(addressOwnerTables(active(), 0), "");
  EXPECT_EQ(addressOwnerTables(active(), 1), "nwinterface b ");
  EXPECT_EQ(addressOwnerTables(TableSet(WorkingDB), 2), "nwinterface_update b ");
}

TEST(AddressSqlTest, TheMappingStatementsHaveTheirExactTexts) {
  EXPECT_EQ(dnsNamesSql(active(), "ad1"),
            "select a.DNSName from address a, addressmapping b where b.LeftAddressId = 'ad1' and "
            "b.RightAddressId = a.AddressId and b.AddressMappingType = 1");
  EXPECT_EQ(addressesByDnsNameSql(active(), "www%"),
            "select a.LeftAddressId from addressmapping  a, address b where "
            "a.AddressMappingType = 1 and b.AddressId = a.RightAddressId and b.DNSName like "
            "'www%'");
}

}  // namespace
}  // namespace zntopo::detail
