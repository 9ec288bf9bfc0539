#include "zntopo/model/ZNEntityDB.h"

#include "tests/model/ModelFixture.h"
#include "zntopo/model/PhysicalAddress.h"

namespace zntopo::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class ZNEntityDBTest : public ModelTest {
 protected:
  using AddressVector = ZNEntityDB::AddressVector;

  static ZNRefPtr<ZNAddress> physical(const std::string& id, const std::string& text) {
    return new PhysicalAddress(text, ObjID(id), ObjID("owner"));
  }

  static AddressVector oneOfEachType() {
    return {physical("p2", "00:00:00:00:00:02"), ipv4("a2", "10.0.0.2"),
            ipv6("b1", "fe80::1", InetAddressIPv6::LinkLocal), physical("p1", "00:00:00:00:00:01"),
            ipv4("a1", "10.0.0.1")};
  }

  static std::vector<ZNCapability> capabilities() {
    return {ZNCapability("isRouter"), ZNCapability("isSwitch")};
  }

  static std::vector<UserDefVar> variables() {
    return {UserDefVar("Rack", VarValue(4)), UserDefVar("Row", VarValue("B")),
            UserDefVar("Rack", VarValue(5))};
  }

  /// By the widest constructor.
  static ZNEntityDB filled(ZNEntity::IPLevel level = ZNEntity::IPv4) {
    return ZNEntityDB(ObjID(1001), "zone 3", ObjID(77), "core-1", "the core switch", "1.3.6",
                      E_Node, ObjectStatus::Major, ObjectStatus::Warning, ObjectStatus::Marginal,
                      ObjectStatus::Critical, 100, 200, 300, contains(), related(),
                      AssEndPoint("hall", ObjID("h1"), E_IfC), variables(), oneOfEachType(),
                      capabilities(), 9, level);
  }

  static ContainmentAss contains() {
    return ContainmentAss(AssEndPoint("core-1", ObjID(1001), E_Node),
                          {AssEndPoint("eth0", ObjID("if"), E_Interface)});
  }

  static std::list<RelatedToAss> related() {
    return {RelatedToAss(AssEndPoint(), AssEndPoint(), 1000, 1, 2, true)};
  }

  static void expectHead(const ZNEntityDB& entity) {
    EXPECT_EQ(ObjID(1001), entity.getObjID());
    EXPECT_EQ("zone 3", entity.getZoneNumber());
    EXPECT_EQ(ObjID(77), entity.getQRMObjID());
    EXPECT_EQ("core-1", entity.getName());
    EXPECT_EQ("the core switch", entity.getDescription());
    EXPECT_EQ("the core switch", entity.getDesc());
    EXPECT_EQ("1.3.6", entity.getEntityOid());
    EXPECT_EQ(E_Node, entity.getEntityType());
    EXPECT_EQ(ObjectStatus::Major, entity.getIPv4Status().getStatus());
  }

  static void expectStatusesAndTimes(const ZNEntityDB& entity) {
    EXPECT_EQ(ObjectStatus::Warning, entity.getV6OverallStatus().getStatus());
    EXPECT_EQ(ObjectStatus::Marginal, entity.getV6GlobalStatus().getStatus());
    EXPECT_EQ(ObjectStatus::Critical, entity.getV6SiteStatus().getStatus());
    EXPECT_EQ(100, entity.getCreateTime());
    EXPECT_EQ(200, entity.getChangeTime());
    EXPECT_EQ(200, entity.getTimeStamp());
    EXPECT_EQ(300, entity.getStatusChangeTime());
  }

  static void expectAssociations(const ZNEntityDB& entity) {
    EXPECT_EQ("core-1", entity.getContains().getContainer().getName());
    EXPECT_EQ(1u, entity.getContains().getContained().size());
    EXPECT_EQ(1u, entity.getRelatedTo().size());
    EXPECT_EQ("hall", entity.getContainmentParent().getName());
    expectLists(entity);
  }

  static void expectLists(const ZNEntityDB& entity) {
    EXPECT_EQ(3u, entity.getUserVars().size());
    EXPECT_EQ(2u, entity.getCapabilityList()->size());
    EXPECT_EQ(2u, entity.getCapabilityListVal().size());
    EXPECT_EQ(5u, entity.getAddressMap().size());
  }
};

TEST_F(ZNEntityDBTest, AFreshEntityIsNamedNull) {
  const ZNEntityDB fresh;
  EXPECT_EQ("NULL", fresh.getName());
  EXPECT_TRUE(fresh.getObjID().isNull());
  const ZNEntityDB withID(ObjID(12));
  EXPECT_EQ(12, withID.getID());
  for (const ZNEntityDB* const entity : {&fresh, &withID}) {
    EXPECT_EQ(ZNEntity::IPv4, entity->getIPLevel());
    EXPECT_EQ(4, entity->getIPLevelAsShort());
    EXPECT_EQ(E_Unknown, entity->getEntityType());
    EXPECT_EQ(0, entity->getCreateTime());
    EXPECT_EQ(0, entity->getChangeTime());
    EXPECT_EQ(0, entity->getStatusChangeTime());
    EXPECT_EQ(0, entity->getRD());
    EXPECT_FALSE(entity->isUDVModified());
  }
}

TEST_F(ZNEntityDBTest, TheConstructorWithVariablesAndAddressesSetsThem) {
  const ZNEntityDB entity(ObjID(1001), "zone 3", ObjID(77), "core-1", "the core switch", "1.3.6",
                          E_Node, ObjectStatus::Major, variables(), oneOfEachType(), capabilities(),
                          ZNEntity::IPv6);
  expectHead(entity);
  expectLists(entity);
  EXPECT_EQ(ZNEntity::IPv6, entity.getIPLevel());
  EXPECT_EQ(0, entity.getCreateTime());
}

TEST_F(ZNEntityDBTest, TheConstructorWithAssociationsAndTwoTimesSetsThem) {
  const ZNEntityDB entity(ObjID(1001), "zone 3", ObjID(77), "core-1", "the core switch", "1.3.6",
                          E_Node, ObjectStatus::Major, contains(), related(),
                          AssEndPoint("hall", ObjID("h1"), E_IfC), variables(), oneOfEachType(),
                          capabilities(), 100, 200, ZNEntity::IPv6);
  expectHead(entity);
  expectAssociations(entity);
  EXPECT_EQ(100, entity.getCreateTime());
  EXPECT_EQ(200, entity.getChangeTime());
  EXPECT_EQ(0, entity.getStatusChangeTime());
  EXPECT_EQ(ZNEntity::IPv6, entity.getIPLevel());
}

TEST_F(ZNEntityDBTest, TheConstructorWithFourStatusesSetsThem) {
  const ZNEntityDB entity(ObjID(1001), "zone 3", ObjID(77), "core-1", "the core switch", "1.3.6",
                          E_Node, ObjectStatus::Major, ObjectStatus::Warning,
                          ObjectStatus::Marginal, ObjectStatus::Critical, 100, 200, 300,
                          ZNEntity::IPv6);
  expectHead(entity);
  expectStatusesAndTimes(entity);
  EXPECT_EQ(ZNEntity::IPv6, entity.getIPLevel());
  EXPECT_THAT(entity.getUserVars(), IsEmpty());
}

TEST_F(ZNEntityDBTest, TheWideConstructorsSetAll) {
  const ZNEntityDB entity(ObjID(1001), "zone 3", ObjID(77), "core-1", "the core switch", "1.3.6",
                          E_Node, ObjectStatus::Major, ObjectStatus::Warning,
                          ObjectStatus::Marginal, ObjectStatus::Critical, 100, 200, 300, contains(),
                          related(), AssEndPoint("hall", ObjID("h1"), E_IfC), variables(),
                          oneOfEachType(), capabilities(), ZNEntity::IPv6);
  const ZNEntityDB withRoute = filled(ZNEntity::IPv6);
  for (const ZNEntityDB* const each : {&entity, &withRoute}) {
    expectHead(*each);
    expectStatusesAndTimes(*each);
    expectAssociations(*each);
    EXPECT_EQ(ZNEntity::IPv6, each->getIPLevel());
  }
  EXPECT_EQ(0, entity.getRouteDistinguisher());
  EXPECT_EQ(9, withRoute.getRouteDistinguisher());
  EXPECT_EQ(9, withRoute.getRD());
}

TEST_F(ZNEntityDBTest, ACopyKeepsAll) {
  const ZNEntityDB source = filled();
  const ZNEntityDB copy(source);
  expectHead(copy);
  expectStatusesAndTimes(copy);
  expectAssociations(copy);
}

TEST_F(ZNEntityDBTest, StatusesAreReadByLevelAndType) {
  EXPECT_EQ(ObjectStatus::Major, filled(ZNEntity::IPv4).getOverallStatus().getStatus());
  const ZNEntityDB entity = filled(ZNEntity::IPv6);
  EXPECT_EQ(ObjectStatus::Warning, entity.getOverallStatus().getStatus());
  EXPECT_EQ(ObjectStatus::Warning, entity.getStatus(ZNEntity::IPv4Overall).getStatus());
  EXPECT_EQ(ObjectStatus::Warning, entity.getStatus(ZNEntity::IPv6Overall).getStatus());
  EXPECT_EQ(ObjectStatus::Marginal, entity.getStatus(ZNEntity::IPv6Global).getStatus());
  EXPECT_EQ(ObjectStatus::Critical, entity.getStatus(ZNEntity::IPv6SiteLocal).getStatus());
}

TEST_F(ZNEntityDBTest, CapabilitiesAreFoundByTheirExactName) {
  const ZNEntityDB entity = filled();
  EXPECT_TRUE(entity.hasCapability("isSwitch"));
  EXPECT_FALSE(entity.hasCapability("isswitch"));
  EXPECT_FALSE(entity.hasCapability(""));
}

TEST_F(ZNEntityDBTest, TheFirstVariableOfANameIsFound) {
  const ZNEntityDB entity = filled();
  EXPECT_EQ(4, entity.getUserDefVarByName("Rack").getValue().getIntVal());
  EXPECT_EQ("", entity.getUserDefVarByName("rack").getName());
}

TEST_F(ZNEntityDBTest, AVariableInsertedReplacesAllOfItsNameAndComesLast) {
  ZNEntityDB entity = filled();
  entity.InsertOrUpdateUDV(UserDefVar("Rack", VarValue(6)));
  ASSERT_EQ(2u, entity.getUserVars().size());
  EXPECT_EQ("Row", entity.getUserVars()[0].getName());
  EXPECT_EQ("Rack", entity.getUserVars()[1].getName());
  EXPECT_EQ(6, entity.getUserVars()[1].getValue().getIntVal());
  EXPECT_TRUE(entity.isUDVModified());
  EXPECT_THAT(entity.getModifiedUserVars(), IsEmpty());
}

TEST_F(ZNEntityDBTest, AVariableInsertedMayBeOneOfItsOwn) {
  ZNEntityDB entity = filled();
  entity.InsertOrUpdateUDV(entity.getUserVars()[2]);
  ASSERT_EQ(2u, entity.getUserVars().size());
  EXPECT_EQ(5, entity.getUserDefVarByName("Rack").getValue().getIntVal());
}

TEST_F(ZNEntityDBTest, VariablesCanBeChangedInPlace) {
  ZNEntityDB entity;
  entity.getUserVariables().push_back(UserDefVar("Rack", VarValue(4)));
  EXPECT_EQ(1u, entity.getUserVars().size());
}

TEST_F(ZNEntityDBTest, TheMapKeepsTextTypeAndScopeOfEachAddress) {
  const ZNEntityDB entity = filled();
  const ZNEntityDB::AddressMap& map = entity.getAddressMap();
  EXPECT_EQ("10.0.0.1", map.at(ObjID("a1")).addressStr);
  EXPECT_EQ(ZNAddress::IPv4, map.at(ObjID("a1")).addrType);
  EXPECT_EQ("fe80::1", map.at(ObjID("b1")).addressStr);
  EXPECT_EQ(ZNAddress::IPv6, map.at(ObjID("b1")).addrType);
  EXPECT_EQ(InetAddressIPv6::LinkLocal, map.at(ObjID("b1")).scopeType);
  EXPECT_EQ(ZNAddress::Physical, map.at(ObjID("p1")).addrType);
}

TEST_F(ZNEntityDBTest, SettingAddressesAddsAndReplacesByIdentifier) {
  ZNEntityDB entity;
  entity.setAddresses({ipv4("a1", "10.0.0.1")});
  entity.setAddresses({ipv4("a2", "10.0.0.2"), ipv4("a1", "10.0.0.9")});
  EXPECT_EQ(2u, entity.getAddressMap().size());
  EXPECT_EQ("10.0.0.9", entity.getAddressMap().at(ObjID("a1")).addressStr);
}

TEST_F(ZNEntityDBTest, NullHandlesNullIdentifiersAndForeignKindsAreNotStored) {
  ZNEntityDB entity;
  entity.setAddresses({ipv4("a1", "10.0.0.1"), ZNRefPtr<ZNAddress>(), ipv4("", "10.0.0.2"),
                       ipv4("1001", "10.0.0.3")});
  ASSERT_EQ(1u, entity.getAddressMap().size());
  EXPECT_EQ("10.0.0.1", entity.getAddressMap().begin()->second.addressStr);
}

TEST_F(ZNEntityDBTest, TheFirstAddressOfAKindIsThatOfTheLowestIdentifier) {
  const ZNEntityDB entity = filled();
  EXPECT_EQ("10.0.0.1", entity.getIPAddr());
  EXPECT_TRUE(entity.hasIPAddr());
  EXPECT_EQ(oneOfEachType()[3]->getAddressAsString(), entity.getPhysAddr());
  EXPECT_TRUE(entity.hasPhysAddr());
}

TEST_F(ZNEntityDBTest, WithoutAnAddressOfAKindItsTextIsEmpty) {
  ZNEntityDB entity;
  entity.setAddresses({ipv6("b1", "fe80::1", InetAddressIPv6::LinkLocal)});
  EXPECT_EQ("", entity.getIPAddr());
  EXPECT_FALSE(entity.hasIPAddr());
  EXPECT_EQ("", entity.getPhysAddr());
  EXPECT_FALSE(entity.hasPhysAddr());
}

TEST_F(ZNEntityDBTest, AddressesAreReadFromTheStoreInTheOrderOfIdentifiers) {
  for (const auto& address : oneOfEachType()) gateway().addAddress(address);
  const ZNEntityDB entity = filled();
  EXPECT_THAT(addressIDsOf(entity.getAddresses()), ElementsAre("a1", "a2", "b1", "p1", "p2"));
  EXPECT_THAT(gateway().calls(), ElementsAre("getAddrsByObjIDs([a1 a2 b1 p1 p2])"));
  EXPECT_THAT(addressIDsOf(*entity.getAddressesByType(ZNAddress::Physical)),
              ElementsAre("p1", "p2"));
}

TEST_F(ZNEntityDBTest, WithoutAddressesTheStoreIsNotAsked) {
  EXPECT_THAT(ZNEntityDB().getAddresses(), IsEmpty());
  EXPECT_THAT(gateway().calls(), IsEmpty());
}

TEST_F(ZNEntityDBTest, AReadOfAddressesLogsItsBeginAndEnd) {
  const ZNEntityDB entity = filled();
  expectLogged(MC_TRACE_L2, "Entering getAddresses() \nExiting getAddresses() \n",
               [&] { entity.getAddresses(); });
}

TEST_F(ZNEntityDBTest, AFailedReadOfAddressesIsLoggedAndGivesAnEmptyResult) {
  gateway().failWith("getAddrsByObjIDs", ZN_API_SQL_EXEC_ERROR, "aux");
  const ZNEntityDB entity = filled();
  const std::string message = ZNTopoAPIStatus(ZN_API_SQL_EXEC_ERROR, "").getStatusMsg();
  expectLogged(MC_MAJOR, "getAddrsByObjIDList error in status: \n\t" + message + "\n\taux\n",
               [&] { EXPECT_THAT(entity.getAddresses(), IsEmpty()); });
}

TEST_F(ZNEntityDBTest, AssociationsCanBeReplaced) {
  ZNEntityDB entity;
  entity.setContains(contains());
  entity.setRelatedTo(related());
  EXPECT_EQ(1u, entity.getContains().getContained().size());
  EXPECT_EQ(1000u, entity.getRelatedTo().front().getSpeed());
}

}  // namespace
}  // namespace zntopo::test
