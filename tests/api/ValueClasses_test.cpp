#include <gtest/gtest.h>

#include "zntopo/api/ZNTopoAPI.h"

namespace zntopo {
namespace {

TEST(BatchInfoTest, APageStartsWithItsSizeAlone) {
  BatchInfo batch(25);
  EXPECT_EQ(batch.getBatchSize(), 25);
  EXPECT_FALSE(batch.hasNext());
  EXPECT_EQ(batch.getResultSetID(), 0);
  batch.setHasNext(true);
  batch.setResultSetID(9);
  EXPECT_TRUE(batch.hasNext());
  EXPECT_EQ(batch.getResultSetID(), 9);
}

TEST(ZNAuditTrailTest, AnActionKeepsItsFourValues) {
  const ZNAuditAction action(1700000000L, ZNAuditAction::AttributeChange,
                             ZNAuditAction::HSRPAddressChange, "info");
  EXPECT_EQ(action.getActionTimeUTC(), 1700000000L);
  EXPECT_EQ(action.getType(), ZNAuditAction::AttributeChange);
  EXPECT_EQ(action.getDetail(), ZNAuditAction::HSRPAddressChange);
  EXPECT_EQ(action.getInfo(), "info");
}

TEST(ZNAuditTrailTest, NumbersOutsideTheEnumerationsAreKept) {
  const ZNAuditAction action(0, 77, -12, "");
  EXPECT_EQ(static_cast<int>(action.getType()), 77);
  EXPECT_EQ(static_cast<int>(action.getDetail()), -12);
  EXPECT_EQ(static_cast<int>(ZNAuditTrail(ObjID("a"), 99).getObjType()), 99);
}

TEST(ZNAuditTrailTest, ATrailHandsOutACopyOfItsActionsInTheirOrder) {
  ZNAuditTrail trail(ObjID("x"), ZNAuditTrail::HSRP);
  trail.addAuditAction(ZNAuditAction(2, 1, 0, "first"));
  trail.addAuditAction(ZNAuditAction(1, 1, 0, "second"));
  const auto actions = trail.getActionList();
  ASSERT_EQ(actions->size(), 2u);
  EXPECT_EQ(actions->front().getInfo(), "first");
  actions->clear();
  EXPECT_EQ(trail.getActionList()->size(), 2u);
  EXPECT_EQ(trail.getObjID(), ObjID("x"));
  EXPECT_EQ(trail.getObjType(), ZNAuditTrail::HSRP);
}

TEST(ZNTopoFilterTest, AFreshFilterHasItsDefaultsAndIgnoresAllFields) {
  const ZNTopoFilter filter;
  EXPECT_EQ(filter.getIPLevel(), ZNEntity::IPv6);
  EXPECT_EQ(filter.getAddressType(), ZNAddress::IPv6);
  EXPECT_EQ(static_cast<int>(filter.getV6ScopeType()), 3);
  EXPECT_EQ(filter.getRegexEntityName(), "");
  EXPECT_EQ(filter.getAddressStr(), "");
  EXPECT_TRUE(filter.getCapabilityNames().empty());
  EXPECT_TRUE(filter.getOrCapabilityNames().empty());
  EXPECT_TRUE(filter.getExcludeCapabilityNames().empty());
  EXPECT_EQ(filter.getPrefixLength(), 0);
  EXPECT_EQ(filter.getPrefixAddressStr(), "");
  EXPECT_EQ(filter.getL2DomainId(), -1);
  for (int field = ZNTopoFilter::F_IPLevel; field <= ZNTopoFilter::F_EntityType; ++field) {
    EXPECT_TRUE(filter.isFieldIgnored(static_cast<ZNTopoFilter::Field>(field))) << field;
  }
}

TEST(ZNTopoFilterTest, EachSetterStoresItsValueAndMarksItsFieldAlone) {
  const std::vector<ZNCapability> list = {ZNCapability("isBGP")};
  struct Setter {
    ZNTopoFilter::Field field;
    void (*set)(ZNTopoFilter&, const std::vector<ZNCapability>&);
    bool (*isStored)(const ZNTopoFilter&);
  };
  using F = ZNTopoFilter;
  using List = std::vector<ZNCapability>;
  const Setter setters[] = {
      {F::F_IPLevel, [](F& f, const List&) { f.setIPLevel(ZNEntity::IPv4); },
       [](const F& f) { return f.getIPLevel() == ZNEntity::IPv4; }},
      {F::F_AddressType, [](F& f, const List&) { f.setAddressType(ZNAddress::IPv4); },
       [](const F& f) { return f.getAddressType() == ZNAddress::IPv4; }},
      {F::F_V6ScopeType,
       [](F& f, const List&) { f.setV6ScopeType(static_cast<InetAddressIPv6::ScopeType>(1)); },
       [](const F& f) { return static_cast<int>(f.getV6ScopeType()) == 1; }},
      {F::F_RegexEntityName, [](F& f, const List&) { f.setRegexEntityName("edge%"); },
       [](const F& f) { return f.getRegexEntityName() == "edge%"; }},
      {F::F_AddressValue, [](F& f, const List&) { f.setAddressStr("10.0.0.1"); },
       [](const F& f) { return f.getAddressStr() == "10.0.0.1"; }},
      {F::F_Capability, [](F& f, const List& l) { f.setCapabilityNames(l); },
       [](const F& f) { return f.getCapabilityNames().size() == 1; }},
      {F::F_ExCapability, [](F& f, const List& l) { f.setExcludeCapabilityNames(l); },
       [](const F& f) { return f.getExcludeCapabilityNames().size() == 1; }},
      {F::F_OrCapability, [](F& f, const List& l) { f.setOrCapabilityNames(l); },
       [](const F& f) { return f.getOrCapabilityNames().size() == 1; }},
      {F::F_PrefixLength, [](F& f, const List&) { f.setPrefixLength(64); },
       [](const F& f) { return f.getPrefixLength() == 64; }},
      {F::F_PrefixAddress, [](F& f, const List&) { f.setPrefixAddressStr("2001:db8::"); },
       [](const F& f) { return f.getPrefixAddressStr() == "2001:db8::"; }},
      {F::F_EntityType, [](F& f, const List&) { f.setEntityType(E_Vlan); },
       [](const F& f) { return f.getEntityType() == E_Vlan; }},
  };
  for (const Setter& setter : setters) {
    ZNTopoFilter filter;
    setter.set(filter, list);
    EXPECT_TRUE(setter.isStored(filter)) << setter.field;
    for (int field = F::F_IPLevel; field <= F::F_EntityType; ++field) {
      EXPECT_EQ(filter.isFieldIgnored(static_cast<F::Field>(field)), field != setter.field)
          << setter.field << " " << field;
    }
  }
}

TEST(ZNTopologyInfoTest, AFreshInfoCountsNothing) {
  const ZNTopologyInfo info;
  EXPECT_EQ(info.getNumberOfNode(), 0);
  EXPECT_EQ(info.getNumberOfDNSName(), 0);
  EXPECT_TRUE(info.getRDMap().empty());
  EXPECT_EQ(info.getTopologyState().getTopoState(), ZNTopologyState::UNKNOWN);
}

TEST(ZNTopologyInfoTest, EachArgumentIsReadThroughItsGetter) {
  const ZNTopologyInfo info(1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, {{"0", 3}},
                            ZNTopologyState(ZNTopologyState::READY, 77, {}));
  EXPECT_EQ(info.getNumberOfNode(), 1);
  EXPECT_EQ(info.getNumberOfIPV4Node(), 2);
  EXPECT_EQ(info.getNumberOfIPV6Node(), 3);
  EXPECT_EQ(info.getNumberOfInterface(), 4);
  EXPECT_EQ(info.getNumberOfIPV4Interface(), 5);
  EXPECT_EQ(info.getNumberOfIPV6Interface(), 6);
  EXPECT_EQ(info.getNumberOfPrefixGroup(), 7);
  EXPECT_EQ(info.getNumberOfSubnet(), 8);
  EXPECT_EQ(info.getNumberOfVlan(), 9);
  EXPECT_EQ(info.getNumberOfHSRP(), 10);
  EXPECT_EQ(info.getNumberOfMesh(), 11);
  EXPECT_EQ(info.getNumberOfL2Link(), 12);
  EXPECT_EQ(info.getNumberOfV4Address(), 13);
  EXPECT_EQ(info.getNumberOfV6Address(), 14);
  EXPECT_EQ(info.getNumberOfDNSName(), 15);
  EXPECT_EQ(info.getNumberOfV4SNMPNode(), 16);
  EXPECT_EQ(info.getRDMap().at("0"), 3);
  EXPECT_EQ(info.getTopologyState().getLastTopoReadyChangeTime(), 77);
}

}  // namespace
}  // namespace zntopo
