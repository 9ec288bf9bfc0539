#include "zntopo/model/ZNEntity.h"

#include <limits>

#include "tests/model/ModelFixture.h"
#include "zntopo/model/ZNEntityDB.h"

namespace zntopo::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class ZNEntityTest : public ModelTest {
 protected:
  /// An entity with a parent, two addresses, two variables and all its modification marks set.
  static ZNEntity filled() {
    ZNEntity entity = EntityParts().entity();
    entity.setAddresses({ipv4("a1", "10.0.0.1"), ipv4("a2", "10.0.0.2")});
    entity.setUserVars({UserDefVar("Rack", VarValue(4)), UserDefVar("Row", VarValue("B"))});
    entity.setPartOf(AssEndPoint("hall", ObjID("h1"), E_IfC));
    for (int field = 0; field < 6; ++field) {
      entity.MarkFieldToBeUpdated(ZNEntity::getFieldFromInt(field));
    }
    return entity;
  }

  static std::vector<std::string> requestedAddresses(const ZNEntity& entity) {
    gateway().reset();
    entity.getAddresses();
    return gateway().calls();
  }
};

void expectParts(const EntityParts& parts, const ZNEntity& entity) {
  EXPECT_EQ(parts.id, entity.getObjID());
  EXPECT_EQ(parts.qrmObjId, entity.getQRMObjID());
  EXPECT_EQ(parts.name, entity.getName());
  EXPECT_EQ(parts.description, entity.getDescription());
  EXPECT_EQ(parts.zone, entity.getZoneNumber());
  EXPECT_EQ(parts.type, entity.getEntityType());
  EXPECT_EQ(parts.overall.getStatus(), entity.getOverallStatus().getStatus());
  EXPECT_EQ(parts.v6Compound.getStatus(), entity.getV6OverallStatus().getStatus());
  EXPECT_EQ(parts.v6Global.getStatus(), entity.getV6GlobalStatus().getStatus());
  EXPECT_EQ(parts.v6Site.getStatus(), entity.getV6SiteStatus().getStatus());
  EXPECT_EQ(parts.createTime, entity.getCreateTime());
  EXPECT_EQ(parts.changeTime, entity.getChangeTime());
  EXPECT_EQ(parts.statusChangeTime, entity.getStatusChangeTime());
  EXPECT_EQ(parts.routeDistinguisher, entity.getRD());
  EXPECT_EQ(parts.level, entity.getIPLevel());
  EXPECT_EQ(parts.level, entity.getIPLevelAsShort());
  EXPECT_EQ(parts.dbType, entity.getDBType());
}

void expectNoMarks(const ZNEntity& entity) {
  EXPECT_FALSE(entity.isStatusModified());
  EXPECT_FALSE(entity.isV4OverallStatusModified());
  EXPECT_FALSE(entity.isV6OverallStatusModified());
  EXPECT_FALSE(entity.isV6GlobalStatusModified());
  EXPECT_FALSE(entity.isV6SiteStatusModified());
  EXPECT_FALSE(entity.isQRMObjIDModified());
  EXPECT_FALSE(entity.isUDVModified());
}

void expectNullEnd(const AssEndPoint& end) {
  EXPECT_EQ("", end.getName());
  EXPECT_TRUE(end.getObjID().isNull());
  EXPECT_EQ(E_Unknown, end.getType());
}

TEST_F(ZNEntityTest, TheRowConstructorSetsEachFieldAndNothingElse) {
  const EntityParts parts;
  const ZNEntity entity = parts.entity();
  expectParts(parts, entity);
  expectNullEnd(entity.getContainmentParent());
  EXPECT_THAT(entity.getUserVars(), IsEmpty());
  EXPECT_THAT(entity.getAddresses(), IsEmpty());
  expectNoMarks(entity);
}

TEST_F(ZNEntityTest, EmptyTextsAreReadAsEmptyTexts) {
  EntityParts parts;
  parts.name = parts.description = parts.zone = "";
  ZNEntity entity = parts.entity();
  EXPECT_EQ("", entity.getName());
  EXPECT_EQ("", entity.getDescription());
  EXPECT_EQ("", entity.getZoneNumber());
  entity.setName("");
  EXPECT_EQ("", entity.getName());
}

/// Shows whether there is a name at all.
class NameProbe : public ZNEntity {
 public:
  using ZNEntity::ZNEntity;
  explicit NameProbe(const ZNEntity& entity) : ZNEntity(entity) {}
  bool hasName() const { return !_name.isNull(); }
};

TEST_F(ZNEntityTest, AnEmptyNameIsNoNameUntilItIsSet) {
  EntityParts parts;
  parts.name = "";
  NameProbe entity(parts.entity());
  EXPECT_FALSE(entity.hasName());
  entity.setName("");
  EXPECT_TRUE(entity.hasName());
  EXPECT_EQ("", entity.getName());
}

TEST_F(ZNEntityTest, AnAssignmentFromAnEntityWithoutTextsLeavesNone) {
  EntityParts parts;
  NameProbe entity(parts.entity());
  ASSERT_TRUE(entity.hasName());
  parts.name = parts.description = parts.zone = "";
  entity = NameProbe(parts.entity());
  EXPECT_FALSE(entity.hasName());
  EXPECT_EQ("", entity.getDescription());
  EXPECT_EQ("", entity.getZoneNumber());
}

TEST_F(ZNEntityTest, AnUpdateOverwritesAllButParentAndMarks) {
  ZNEntity entity = filled();
  EntityParts parts;
  parts.id = ObjID("other");
  parts.zone = "zone 4";
  parts.qrmObjId = ObjID(78);
  parts.name = "core-2";
  parts.description = "its spare";
  parts.type = E_Vlan;
  parts.overall = ObjectStatus(ObjectStatus::Normal);
  parts.v6Compound = ObjectStatus(ObjectStatus::Testing);
  parts.v6Global = ObjectStatus(ObjectStatus::Disabled);
  parts.v6Site = ObjectStatus(ObjectStatus::Unmanaged);
  parts.createTime = 101;
  parts.changeTime = 202;
  parts.statusChangeTime = 303;
  parts.routeDistinguisher = -1;
  parts.level = ZNEntity::AllProtocol;
  parts.dbType = ActiveDB;
  parts.update(entity, {ObjID("b1")}, {UserDefVar("Slot", VarValue(true))});
  expectParts(parts, entity);
  EXPECT_THAT(requestedAddresses(entity), ElementsAre("getAddrsByObjIDs([b1])"));
  ASSERT_EQ(1u, entity.getUserVars().size());
  EXPECT_EQ("Slot", entity.getUserVars()[0].getName());
  EXPECT_EQ("hall", entity.getContainmentParent().getName());
  EXPECT_TRUE(entity.isUDVModified());
}

TEST_F(ZNEntityTest, AnUpdateWithEmptyTextsKeepsThePreviousOnes) {
  EntityParts parts;
  ZNEntity entity = parts.entity();
  parts.name = parts.description = parts.zone = "";
  parts.update(entity);
  EXPECT_EQ("core-1", entity.getName());
  EXPECT_EQ("the core switch", entity.getDescription());
  EXPECT_EQ("zone 3", entity.getZoneNumber());
}

TEST_F(ZNEntityTest, AnUpdateMayBeMadeFromTheObjectsOwnFields) {
  ZNEntity entity = filled();
  entity.updateZNEntity(entity.getObjID(), "", entity.getQRMObjID(), "", "", E_Node,
                        entity.getV6SiteStatus(), entity.getOverallStatus(),
                        entity.getV6OverallStatus(), entity.getV6GlobalStatus(), 1, 2, 3, 4,
                        ZNEntity::IPv4, {}, entity.getUserVars(), ActiveDB);
  EXPECT_EQ(ObjID("entity"), entity.getObjID());
  EXPECT_EQ(ObjectStatus::Critical, entity.getOverallStatus().getStatus());
  EXPECT_EQ(ObjectStatus::Major, entity.getV6OverallStatus().getStatus());
  EXPECT_EQ(ObjectStatus::Warning, entity.getV6GlobalStatus().getStatus());
  EXPECT_EQ(ObjectStatus::Marginal, entity.getV6SiteStatus().getStatus());
  EXPECT_EQ(2u, entity.getUserVars().size());
}

TEST_F(ZNEntityTest, ACopyKeepsAddressesVariablesAndTableSetButNotParentAndMarks) {
  const ZNEntity source = filled();
  const ZNEntity copy(source);
  expectParts(EntityParts(), copy);
  EXPECT_THAT(requestedAddresses(copy), ElementsAre("getAddrsByObjIDs([a1 a2])"));
  EXPECT_EQ("B", copy.getUserDefVarByName("Row").getValue().getStrVal());
  expectNullEnd(copy.getContainmentParent());
  expectNoMarks(copy);
  EXPECT_EQ("hall", source.getContainmentParent().getName());
}

TEST_F(ZNEntityTest, AMovedEntityHasAllThatACopyHas) {
  ZNEntity source = filled();
  const ZNEntity copy(source);
  const ZNEntity moved(std::move(source));
  expectParts(EntityParts(), moved);
  EXPECT_EQ(requestedAddresses(copy), requestedAddresses(moved));
  EXPECT_EQ(copy.getUserVars().size(), moved.getUserVars().size());
  EXPECT_EQ(copy.getDBType(), moved.getDBType());
  EXPECT_TRUE(moved.getContainmentParent().getObjID().isNull());
  EXPECT_FALSE(moved.isUDVModified());
}

TEST_F(ZNEntityTest, AnAssignmentReplacesAddressesAndKeepsParentAndMarksOfTheTarget) {
  ZNEntity target = EntityParts().entity();
  target.setAddresses({ipv4("old", "10.0.0.9")});
  target.setPartOf(AssEndPoint("cellar", ObjID("c1"), E_IfC));
  target.setQRMObjID(ObjID(1));
  target = filled();
  expectParts(EntityParts(), target);
  EXPECT_THAT(requestedAddresses(target), ElementsAre("getAddrsByObjIDs([a1 a2])"));
  EXPECT_EQ("cellar", target.getContainmentParent().getName());
  EXPECT_TRUE(target.isQRMObjIDModified());
  EXPECT_FALSE(target.isUDVModified());
}

TEST_F(ZNEntityTest, AnAssignmentToItselfChangesNothing) {
  ZNEntity entity = filled();
  ZNEntity& same = entity;
  entity = same;
  expectParts(EntityParts(), entity);
  EXPECT_THAT(requestedAddresses(entity), ElementsAre("getAddrsByObjIDs([a1 a2])"));
  EXPECT_EQ("hall", entity.getContainmentParent().getName());
  EXPECT_TRUE(entity.isUDVModified());
}

TEST_F(ZNEntityTest, TheStoreShapedFormGivesAllButRouteAndTableSet) {
  EntityParts parts;
  parts.level = ZNEntity::IPv6;
  const ZNEntityDB source(parts.id, parts.zone, parts.qrmObjId, parts.name, parts.description,
                          "1.3.6", parts.type, parts.overall, parts.v6Compound, parts.v6Global,
                          parts.v6Site, parts.createTime, parts.changeTime, parts.statusChangeTime,
                          ContainmentAss(), {}, AssEndPoint("hall", ObjID("h1"), E_IfC),
                          {UserDefVar("Rack", VarValue(4))}, {ipv4("a1", "10.0.0.1")}, {}, 9,
                          parts.level);
  ZNEntity entity(source);
  parts.routeDistinguisher = 0;
  parts.dbType = ActiveDB;
  EXPECT_EQ(ObjectStatus::Warning, entity.getOverallStatus().getStatus());
  entity.setIPLevel(parts.level = ZNEntity::IPv4);
  expectParts(parts, entity);
  expectNullEnd(entity.getContainmentParent());
  EXPECT_THAT(entity.getUserVars(), IsEmpty());
  EXPECT_THAT(entity.getAddresses(), IsEmpty());
}

TEST_F(ZNEntityTest, TheShortTextIsEmpty) { EXPECT_EQ("", EntityParts().entity().toShortString()); }

TEST_F(ZNEntityTest, TheOverallStatusFollowsTheLevel) {
  ZNEntity entity = EntityParts().entity();
  for (const ZNEntity::IPLevel level : {ZNEntity::AllProtocol, ZNEntity::IPv4}) {
    entity.setIPLevel(level);
    EXPECT_EQ(ObjectStatus::Major, entity.getOverallStatus().getStatus()) << level;
  }
  entity.setIPLevel(ZNEntity::IPv6);
  EXPECT_EQ(ObjectStatus::Warning, entity.getOverallStatus().getStatus());
  EXPECT_EQ(ObjectStatus::Warning, entity.getV6OverallStatus().getStatus());
}

TEST_F(ZNEntityTest, AStatusIsReadByItsType) {
  const ZNEntity entity = EntityParts().entity();
  EXPECT_EQ(ObjectStatus::Warning, entity.getStatus(ZNEntity::IPv6Overall).getStatus());
  EXPECT_EQ(ObjectStatus::Critical, entity.getStatus(ZNEntity::IPv6SiteLocal).getStatus());
  EXPECT_EQ(ObjectStatus::Marginal, entity.getStatus(ZNEntity::IPv6Global).getStatus());
  EXPECT_EQ(ObjectStatus::Major, entity.getStatus(ZNEntity::IPv4Overall).getStatus());
  EXPECT_EQ(ObjectStatus::Major, entity.getStatus(ZNEntity::Overall).getStatus());
}

TEST_F(ZNEntityTest, AtLevelIPv6TheIPv4OverallStatusIsTheCompoundOne) {
  EntityParts parts;
  parts.level = ZNEntity::IPv6;
  const ZNEntity entity = parts.entity();
  EXPECT_EQ(ObjectStatus::Warning, entity.getStatus(ZNEntity::IPv4Overall).getStatus());
  EXPECT_EQ(ObjectStatus::Warning, entity.getStatus(ZNEntity::Overall).getStatus());
}

TEST_F(ZNEntityTest, AStatusTypeThatNoStatusStandsForIsLoggedAndGivesTheOverallStatus) {
  const ZNEntity entity = EntityParts().entity();
  for (const int type : {1, 6, -1}) {
    const auto statusType = static_cast<ZNEntity::EntityStatusType>(type);
    expectLogged(MC_CRITICAL,
                 "ZNEntity::getStatus() call with unimplemented EntityStatusType: " +
                     std::to_string(type) + "\n",
                 [&] { EXPECT_EQ(&entity.getOverallStatus(), &entity.getStatus(statusType)); });
  }
}

TEST_F(ZNEntityTest, TheFirstVariableOfANameIsFoundByItsExactName) {
  ZNEntity entity = EntityParts().entity();
  entity.setUserVars({UserDefVar("Rack", VarValue(4)), UserDefVar("rack", VarValue(5)),
                      UserDefVar("Rack", VarValue(6))});
  EXPECT_EQ(4, entity.getUserDefVarByName("Rack").getValue().getIntVal());
  EXPECT_EQ(5, entity.getUserDefVarByName("rack").getValue().getIntVal());
}

TEST_F(ZNEntityTest, AnAbsentVariableIsADefaultOne) {
  const ZNEntity entity = filled();
  for (const char* name : {"RACK", "Rac", ""}) {
    const UserDefVar absent = entity.getUserDefVarByName(name);
    EXPECT_EQ("", absent.getName());
    EXPECT_EQ(VarValue::VT_Capability, absent.getValue().getValType());
  }
}

TEST_F(ZNEntityTest, VariablesCanBeChangedInPlaceAndAreNeverReportedAsModified) {
  ZNEntity entity = EntityParts().entity();
  entity.getUserVariables().push_back(UserDefVar("Rack", VarValue(4)));
  EXPECT_EQ(1u, entity.getUserVars().size());
  EXPECT_THAT(entity.getModifiedUserVars(), IsEmpty());
  EXPECT_FALSE(entity.isUDVModified());
}

TEST_F(ZNEntityTest, SettersReplaceTheirField) {
  ZNEntity entity = filled();
  entity.setObjID(ObjID("new"));
  entity.setName("renamed");
  entity.setIPLevel(ZNEntity::AllProtocol);
  entity.setUserVars({UserDefVar("Only", VarValue(1))});
  entity.setPartOf(AssEndPoint("cellar", ObjID("c1"), E_Node));
  EXPECT_EQ(ObjID("new"), entity.getObjID());
  EXPECT_EQ("renamed", entity.getName());
  EXPECT_EQ(ZNEntity::AllProtocol, entity.getIPLevel());
  EXPECT_EQ(1u, entity.getUserVars().size());
  EXPECT_EQ(ObjID("c1"), entity.getContainmentParent().getObjID());
}

TEST_F(ZNEntityTest, OnlyTheLegacyIdentifierMarksItself) {
  ZNEntity entity = EntityParts().entity();
  entity.setObjID(ObjID("new"));
  entity.setName("renamed");
  entity.setUserVars({});
  entity.setPartOf(AssEndPoint());
  expectNoMarks(entity);
  entity.setQRMObjID(ObjID(5));
  EXPECT_EQ(ObjID(5), entity.getQRMObjID());
  EXPECT_TRUE(entity.isQRMObjIDModified());
  EXPECT_FALSE(entity.isStatusModified());
}

TEST_F(ZNEntityTest, EachMarkIsReadByItsOwnReaderAndClearedWithTheOthers) {
  struct Row {
    ZNEntity::Field field;
    bool (ZNEntity::*isModified)() const;
    bool isStatus;
  };
  const Row rows[] = {
      {ZNEntity::F_QRMObjId, &ZNEntity::isQRMObjIDModified, false},
      {ZNEntity::F_V4OverallStatus, &ZNEntity::isV4OverallStatusModified, true},
      {ZNEntity::F_UDV, &ZNEntity::isUDVModified, false},
      {ZNEntity::F_V6GlobalStatus, &ZNEntity::isV6GlobalStatusModified, true},
      {ZNEntity::F_V6SiteStatus, &ZNEntity::isV6SiteStatusModified, true},
      {ZNEntity::F_V6OverallStatus, &ZNEntity::isV6OverallStatusModified, true},
  };
  ZNEntity entity = EntityParts().entity();
  for (const Row& marked : rows) {
    SCOPED_TRACE(marked.field);
    entity.MarkFieldToBeUpdated(marked.field);
    for (const Row& read : rows) {
      EXPECT_EQ(read.field == marked.field, (entity.*read.isModified)()) << read.field;
    }
    EXPECT_EQ(marked.isStatus, entity.isStatusModified());
    entity.clearModifiedData();
    expectNoMarks(entity);
  }
}

TEST_F(ZNEntityTest, AMarkOfAFieldThatDoesNotExistIsIgnored) {
  ZNEntity entity = EntityParts().entity();
  for (const int field : {-1, 6, 1000}) {
    entity.MarkFieldToBeUpdated(static_cast<ZNEntity::Field>(field));
  }
  expectNoMarks(entity);
}

TEST_F(ZNEntityTest, FieldsComeFromTheirNumbersAndOtherNumbersGiveTheLegacyIdentifier) {
  for (int number = 0; number <= 5; ++number) {
    EXPECT_EQ(number, ZNEntity::getFieldFromInt(number));
  }
  for (const int number : {-1, 6, 1000}) {
    EXPECT_EQ(ZNEntity::F_QRMObjId, ZNEntity::getFieldFromInt(number));
  }
}

TEST_F(ZNEntityTest, SettingAddressesTwiceAccumulatesTheirIdentifiers) {
  ZNEntity entity = EntityParts().entity();
  entity.setAddresses({ipv4("a1", "10.0.0.1")});
  entity.setAddresses({ipv4("a2", "10.0.0.2"), ipv4("a1", "10.0.0.1")});
  EXPECT_THAT(requestedAddresses(entity), ElementsAre("getAddrsByObjIDs([a1 a2 a1])"));
}

TEST_F(ZNEntityTest, ANullHandleAmongTheAddressesIsSkipped) {
  ZNEntity entity = EntityParts().entity();
  entity.setAddresses({ZNRefPtr<ZNAddress>(), ipv4("a1", "10.0.0.1")});
  EXPECT_THAT(requestedAddresses(entity), ElementsAre("getAddrsByObjIDs([a1])"));
}

TEST_F(ZNEntityTest, WithoutAddressesTheStoreIsNotAsked) {
  const ZNEntity entity = EntityParts().entity();
  const std::string log = heardFrom(MC_VERBOSE, [&] {
    EXPECT_THAT(entity.getAddresses(), IsEmpty());
    EXPECT_THAT(*entity.getAddressesByType(ZNAddress::IPv4), IsEmpty());
  });
  EXPECT_THAT(gateway().calls(), IsEmpty());
  EXPECT_EQ("", log);
}

TEST_F(ZNEntityTest, EachCallForAddressesAsksTheStoreAnew) {
  gateway().addAddress(ipv4("a1", "10.0.0.1"));
  gateway().addAddress(ipv4("a2", "10.0.0.2"));
  const ZNEntity entity = filled();
  EXPECT_THAT(addressIDsOf(entity.getAddresses()), ElementsAre("a1", "a2"));
  EXPECT_THAT(addressIDsOf(entity.getAddresses()), ElementsAre("a1", "a2"));
  EXPECT_EQ(2, gateway().callCount("getAddrsByObjIDs"));
}

TEST_F(ZNEntityTest, AddressesOfATypeKeepTheirOrder) {
  gateway().addAddress(ipv4("a1", "10.0.0.1"));
  gateway().addAddress(ipv6("b1", "2001:db8::1", InetAddressIPv6::Global));
  gateway().addAddress(ipv4("a2", "10.0.0.2"));
  ZNEntity entity = EntityParts().entity();
  entity.setAddresses({ipv4("a2", ""), ipv4("b1", ""), ipv4("a1", "")});
  EXPECT_THAT(addressIDsOf(*entity.getAddressesByType(ZNAddress::IPv4)), ElementsAre("a2", "a1"));
  EXPECT_THAT(addressIDsOf(*entity.getAddressesByType(ZNAddress::IPv6)), ElementsAre("b1"));
  EXPECT_THAT(addressIDsOf(*entity.getAddressesByType(ZNAddress::Physical)), IsEmpty());
}

TEST_F(ZNEntityTest, AReadOfAddressesLogsItsBeginAndEnd) {
  const ZNEntity entity = filled();
  expectLogged(MC_TRACE_L2, "Entering getAddrsByObjIDList() \nExiting getAddrsByObjIDList() \n",
               [&] { entity.getAddresses(); });
}

TEST_F(ZNEntityTest, AFailedReadOfAddressesIsLoggedAndGivesAnEmptyResult) {
  gateway().failWith("getAddrsByObjIDs", ZN_API_SQL_EXEC_ERROR, "no 100% luck");
  const ZNEntity entity = filled();
  const std::string message = ZNTopoAPIStatus(ZN_API_SQL_EXEC_ERROR, "").getStatusMsg();
  expectLogged(MC_MAJOR,
               "getAddrsByObjIDList error in status: \n\t" + message + "\n\tno 100% luck\n",
               [&] { EXPECT_THAT(entity.getAddresses(), IsEmpty()); });
}

TEST_F(ZNEntityTest, TheObjectIsLockedWhileTheStoreIsAskedForAddresses) {
  LockProbe entity(filled());
  bool locked = false;
  gateway().onCall([&](const std::string&) { locked = entity.isLocked(); });
  entity.getAddresses();
  EXPECT_TRUE(locked);
  EXPECT_FALSE(entity.isLocked());
}

}  // namespace
}  // namespace zntopo::test
