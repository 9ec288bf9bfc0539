// The statements of the attribute filters, to the letter.

#include "zntopo/api/detail/AttributeFilterSql.h"

#include <gtest/gtest.h>

#include "tests/support/AttributeFilters.h"

namespace zntopo::detail {
namespace {

using test::capabilities;
using test::ofLevel;

const TableSet kActive;
const TableSet kWorking(WorkingDB);

// ---- nodes ------------------------------------------------------------------------------------

TEST(NodesByFilterSqlTest, AFreshFilterAsksForAllNodes) {
  EXPECT_EQ(nodesByFilterSql(kActive, {}),
            " select nwnode.objid from nwnode where entitytype = 1 ");
  EXPECT_EQ(nodesByFilterSql(kWorking, {}),
            " select nwnode_update.objid from nwnode_update where entitytype = 1 ");
}

TEST(NodesByFilterSqlTest, ALevelAloneBringsNoConditionOnAnAddress) {
  const ZNTopoFilter filter = ofLevel(ZNEntity::IPv4);
  EXPECT_EQ(nodesByFilterSql(kActive, filter),
            " select nwnode.objid from nwnode where entitytype = 1  and nwnode.IPLevel = 4");
}

TEST(NodesByFilterSqlTest, TheDomainCannotBeSetAndItsClauseWouldAskForNone) {
  ZNTopoFilter filter;
  filter.MarkFieldToBeFiltered(ZNTopoFilter::F_L2DomainId);
  EXPECT_EQ(nodesByFilterSql(kActive, filter),
            " select nwnode.objid from nwnode where entitytype = 1  and nwnode.L2DomainId = -1");
}

TEST(NodesByFilterSqlTest, ANameIsComparedWithNameAndDescriptionAsItStands) {
  ZNTopoFilter filter;
  filter.setRegexEntityName("co%_'x");
  EXPECT_EQ(nodesByFilterSql(kWorking, filter),
            " select nwnode_update.objid from nwnode_update where entitytype = 1  and  ( "
            "nwnode_update.EntityName like 'co%_'x' or nwnode_update.Description like 'co%_'x') ");
  filter.setRegexEntityName("");
  EXPECT_EQ(nodesByFilterSql(kActive, filter), nodesByFilterSql(kActive, {}));
}

TEST(NodesByFilterSqlTest, TheConditionsComeInTheirOrder) {
  ZNTopoFilter filter;
  filter.setOrCapabilityNames(capabilities({"isCDP", "isSTP"}));
  filter.setRegexEntityName("n");
  filter.MarkFieldToBeFiltered(ZNTopoFilter::F_L2DomainId);
  filter.setIPLevel(ZNEntity::IPv6);
  EXPECT_EQ(nodesByFilterSql(kActive, filter),
            " select nwnode.objid from nwnode where entitytype = 1  and nwnode.IPLevel = 6 and "
            "nwnode.L2DomainId = -1 and  ( nwnode.EntityName like 'n' or nwnode.Description like "
            "'n')  and  ( nwnode.isCDP = 1  OR nwnode.isSTP = 1  ) ");
}

TEST(NodesByFilterSqlTest, AnIPv4AddressReplacesWhatWasAskedForSoFar) {
  ZNTopoFilter filter;
  filter.setIPLevel(ZNEntity::IPv6);
  filter.setRegexEntityName("n");
  filter.setAddressType(ZNAddress::IPv4);
  filter.setAddressStr("10.0.0.1");
  EXPECT_EQ(nodesByFilterSql(kActive, filter),
            "select a.nodeobjid from nwinterface a, address b where b.v4address = '10.0.0.1'  and "
            "a.objid = b.objid and b.IPLevel = 4 and b.addresstype = 1");
  filter.setOrCapabilityNames(capabilities({"isCDP"}));
  EXPECT_EQ(nodesByFilterSql(kWorking, filter),
            "select a.nodeobjid from nwinterface_update a, address_update b where b.v4address = "
            "'10.0.0.1'  and a.objid = b.objid and b.IPLevel = 4 and b.addresstype = 1 and  ( "
            "nwnode_update.isCDP = 1  ) ");
}

TEST(NodesByFilterSqlTest, AnAddressNeedsBothFieldsTheTypeIPv4AndAText) {
  ZNTopoFilter filter;
  filter.setAddressStr("10.0.0.1");
  EXPECT_EQ(nodesByFilterSql(kActive, filter), nodesByFilterSql(kActive, {})) << "no type";
  for (const auto type : {ZNAddress::IPv6, ZNAddress::DNS, ZNAddress::Physical}) {
    filter.setAddressType(type);
    EXPECT_EQ(nodesByFilterSql(kActive, filter), nodesByFilterSql(kActive, {})) << type;
  }
  filter.setAddressType(ZNAddress::IPv4);
  filter.setAddressStr("");
  EXPECT_EQ(nodesByFilterSql(kActive, filter), nodesByFilterSql(kActive, {})) << "no text";
  ZNTopoFilter typed;
  typed.setAddressType(ZNAddress::IPv4);
  EXPECT_EQ(nodesByFilterSql(kActive, typed), nodesByFilterSql(kActive, {})) << "no address";
}

TEST(NodesByFilterSqlTest, AnEmptyListOfCapabilitiesLeavesEmptyParentheses) {
  ZNTopoFilter filter;
  filter.setOrCapabilityNames({});
  EXPECT_EQ(nodesByFilterSql(kActive, filter),
            " select nwnode.objid from nwnode where entitytype = 1  and  (  ) ");
}

TEST(NodesByFilterSqlTest, FieldsOfOtherOperationsChangeNothing) {
  ZNTopoFilter filter;
  filter.setCapabilityNames(capabilities({"isCDP"}));
  filter.setExcludeCapabilityNames(capabilities({"isSTP"}));
  filter.setV6ScopeType(InetAddressIPv6::Global);
  filter.setPrefixLength(64);
  filter.setPrefixAddressStr("2001:db8::");
  filter.setEntityType(E_Vlan);
  EXPECT_EQ(nodesByFilterSql(kActive, filter), nodesByFilterSql(kActive, {}));
}

// ---- subnets ----------------------------------------------------------------------------------

TEST(SubnetsByFilterSqlTest, AFreshFilterAsksForAllSubnetsWithAnAddress) {
  EXPECT_EQ(subnetsByFilterSql(kActive, {}),
            "select a.ObjID from nwentity  a, address b where a.EntityType = 7 and "
            "a.ObjID = b.ObjID ");
}

TEST(SubnetsByFilterSqlTest, LevelNameAndScopeComeInThisOrder) {
  ZNTopoFilter filter;
  filter.setV6ScopeType(InetAddressIPv6::Global);
  filter.setRegexEntityName("10.%");
  filter.setIPLevel(ZNEntity::IPv6);
  EXPECT_EQ(subnetsByFilterSql(kWorking, filter),
            "select a.ObjID from nwentity_update  a, address_update b where a.EntityType = 7 and "
            "a.ObjID = b.ObjID and a.IPLevel = 6 and (a.EntityName like '10.%' or a.Description "
            "like '10.%') and b.V6ScopeType = " +
                std::to_string(InetAddressIPv6::Global) + " ");
}

TEST(SubnetsByFilterSqlTest, AnEmptyNameIsCompared) {
  ZNTopoFilter filter;
  filter.setRegexEntityName("");
  EXPECT_EQ(
      subnetsByFilterSql(kActive, filter),
      subnetsByFilterSql(kActive, {}) + "and (a.EntityName like '' or a.Description like '') ");
}

TEST(SubnetsByFilterSqlTest, FieldsOfOtherOperationsChangeNothing) {
  ZNTopoFilter filter;
  filter.setAddressType(ZNAddress::IPv4);
  filter.setAddressStr("10.0.0.1");
  filter.setOrCapabilityNames(capabilities({"isCDP"}));
  filter.setPrefixLength(64);
  filter.setPrefixAddressStr("2001:db8::");
  filter.setEntityType(E_Vlan);
  filter.MarkFieldToBeFiltered(ZNTopoFilter::F_L2DomainId);
  EXPECT_EQ(subnetsByFilterSql(kActive, filter), subnetsByFilterSql(kActive, {}));
}

// ---- entities ---------------------------------------------------------------------------------

TEST(EntitiesByFilterSqlTest, AFreshFilterLeavesNoCondition) {
  EXPECT_EQ(entitiesByFilterSql(kActive, {}), " select nwentity.objid from nwentity where ");
}

TEST(EntitiesByFilterSqlTest, TermsAreJoinedFromTheSecondOn) {
  ZNTopoFilter filter;
  filter.setRegexEntityName("v%");
  const std::string select = " select nwentity.objid from nwentity where ";
  EXPECT_EQ(entitiesByFilterSql(kActive, filter), select + "  (nwentity.EntityName like 'v%') ");
  filter.setEntityType(E_Vlan);
  EXPECT_EQ(entitiesByFilterSql(kActive, filter),
            select + " nwentity.EntityType = 4 and   (nwentity.EntityName like 'v%') ");
  filter.setIPLevel(ZNEntity::IPv4);
  EXPECT_EQ(entitiesByFilterSql(kActive, filter),
            select +
                " nwentity.IPLevel = 4 and  nwentity.EntityType = 4 and   "
                "(nwentity.EntityName like 'v%') ");
}

TEST(EntitiesByFilterSqlTest, TheColumnsKeepTheNameOfTheActiveTable) {
  const ZNTopoFilter filter = ofLevel(ZNEntity::IPv4);
  EXPECT_EQ(entitiesByFilterSql(kWorking, filter),
            " select nwentity_update.objid from nwentity_update where  nwentity.IPLevel = 4");
}

TEST(EntitiesByFilterSqlTest, AnEmptyNameAndFieldsOfOtherOperationsChangeNothing) {
  ZNTopoFilter filter;
  filter.setRegexEntityName("");
  filter.setAddressType(ZNAddress::IPv4);
  filter.setAddressStr("10.0.0.1");
  filter.setV6ScopeType(InetAddressIPv6::Global);
  filter.setOrCapabilityNames(capabilities({"isCDP"}));
  EXPECT_EQ(entitiesByFilterSql(kActive, filter), entitiesByFilterSql(kActive, {}));
}

// ---- addresses --------------------------------------------------------------------------------

const std::string kAddresses = "select AddressId from address where IsSubnet=0 ";

TEST(AddressesByFilterSqlTest, AFreshFilterAsksForAllAddressesButThoseOfSubnets) {
  EXPECT_EQ(addressesByFilterSql(kActive, {}), kAddresses);
  EXPECT_EQ(addressesByFilterSql(kWorking, {}),
            "select AddressId from address_update where IsSubnet=0 ");
}

TEST(AddressesByFilterSqlTest, ThePartsComeInTheirOrderEachWithAnAndInFront) {
  ZNTopoFilter filter;
  filter.setIPLevel(ZNEntity::IPv6);
  filter.setAddressStr("2001:db8:%");
  filter.setPrefixAddressStr("8000::");
  filter.setPrefixLength(3);
  filter.setAddressType(ZNAddress::IPv6);
  filter.setV6ScopeType(InetAddressIPv6::Global);
  EXPECT_EQ(addressesByFilterSql(kActive, filter),
            kAddresses + " and  V6ScopeType = " + std::to_string(InetAddressIPv6::Global) +
                "  and  AddressType = 2  and  V6AddressBS like '100%' and  V6Address like "
                "'2001:db8:%' and  IPLevel = 6");
}

TEST(AddressesByFilterSqlTest, TheTypeNamesTheColumnOfTheAddress) {
  ZNTopoFilter filter;
  filter.setAddressStr("10.%");
  EXPECT_EQ(addressesByFilterSql(kActive, filter), kAddresses) << "no type";
  filter.setAddressType(ZNAddress::IPv4);
  EXPECT_EQ(addressesByFilterSql(kActive, filter),
            kAddresses + " and  AddressType = 1  and  V4Address like '10.%'");
  filter.setAddressType(ZNAddress::DNS);
  EXPECT_EQ(addressesByFilterSql(kActive, filter),
            kAddresses + " and  AddressType = " + std::to_string(ZNAddress::DNS) + " ");
}

TEST(AddressesByFilterSqlTest, APrefixNeedsItsAddressAndItsLength) {
  ZNTopoFilter lengthOnly;
  lengthOnly.setPrefixLength(64);
  EXPECT_EQ(addressesByFilterSql(kActive, lengthOnly), kAddresses);
  ZNTopoFilter addressOnly;
  addressOnly.setPrefixAddressStr("2001:db8::");
  EXPECT_EQ(addressesByFilterSql(kActive, addressOnly), kAddresses);
}

TEST(AddressesByFilterSqlTest, TheLengthOfAPrefixCountsItsBits) {
  ZNTopoFilter filter;
  filter.setPrefixAddressStr("2001:db8::");
  const std::string bits = "00100000000000010000110110111000";
  const auto patternOf = [&](int length) {
    filter.setPrefixLength(length);
    return addressesByFilterSql(kActive, filter).substr(kAddresses.size());
  };
  EXPECT_EQ(patternOf(32), " and  V6AddressBS like '" + bits + "%'");
  EXPECT_EQ(patternOf(0), " and  V6AddressBS like '%'");
  EXPECT_EQ(patternOf(-1), " and  V6AddressBS like '%'");
  const std::string all = " and  V6AddressBS like '" + bits + std::string(96, '0') + "%'";
  EXPECT_EQ(patternOf(128), all);
  EXPECT_EQ(patternOf(1000), all);
  filter.setPrefixAddressStr("");
  EXPECT_EQ(patternOf(64), " and  V6AddressBS like '%'") << "no address has no bits";
}

TEST(AddressesByFilterSqlTest, FieldsOfOtherOperationsChangeNothing) {
  ZNTopoFilter filter;
  filter.setRegexEntityName("n%");
  filter.setOrCapabilityNames(capabilities({"isCDP"}));
  filter.setEntityType(E_Vlan);
  filter.MarkFieldToBeFiltered(ZNTopoFilter::F_L2DomainId);
  EXPECT_EQ(addressesByFilterSql(kActive, filter), kAddresses);
}

}  // namespace
}  // namespace zntopo::detail
