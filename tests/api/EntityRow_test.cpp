// Entities of statements that have a few of the columns, and what a read makes of many rows.

#include "zntopo/api/detail/EntityRow.h"

#include "tests/support/ApiFixture.h"
#include "tests/support/CapturedLog.h"
#include "zntopo/api/detail/ObjectsRead.h"

namespace zntopo::test {
namespace {

using testing::ElementsAre;
using testing::IsSupersetOf;

constexpr Column kFewColumns[] = {textColumn("EntityName", 256), textColumn("ObjId", 66),
                                  intColumn("hasDynamicProperty")};
constexpr detail::EntityColumns kFewEntityColumns = {
    .objID = 1, .name = 0, .hasDynamicProperty = 2, .refusal = "Unable to create Thing!\n"};

class EntityRowTest : public ApiTest {
 protected:
  detail::ObjectsRead<ZNEntity> read(const detail::EntityColumns& columns = kFewEntityColumns) {
    status.reset();
    detail::ObjectsRead<ZNEntity> read;
    runQuery("select EntityName, ObjId, hasDynamicProperty from nwnode order by ObjId", kFewColumns,
             {}, status, [&](const Row& row) {
               return read.add(row, columns, [&](const Row& complete) {
                 return ZNRefPtr<ZNEntity>(
                     new ZNEntity(detail::entityFromRow(complete, columns, E_IfC, WorkingDB)));
               });
             });
    EXPECT_TRUE(status.isOK()) << status.getAuxMsg();
    return read;
  }
};
ZNTOPO_ON_ENGINES(EntityRowTest, kMainEngines);

TEST_P(EntityRowTest, WhatAStatementHasNoColumnForHasItsDefault) {
  store->addNode("a", "first", {{"IPLevel", 6}, {"Status", 3}, {"Description", "not asked for"}});
  const auto objects = read().objects;
  ASSERT_EQ(objects.size(), 1u);
  const ZNEntity& entity = *objects.front();
  EXPECT_EQ(entity.getObjID(), ObjID("a"));
  EXPECT_EQ(entity.getName(), "first");
  EXPECT_EQ(entity.getEntityType(), E_IfC);
  EXPECT_EQ(entity.getDBType(), WorkingDB);
  EXPECT_TRUE(entity.getQRMObjID().isNull());
  EXPECT_EQ(entity.getDescription(), "");
  EXPECT_EQ(entity.getZoneNumber(), "");
  EXPECT_EQ(entity.getIPLevel(), ZNEntity::IPv4);
  EXPECT_EQ(entity.getOverallStatus().getStatus(), ObjectStatus().getStatus());
  EXPECT_EQ(entity.getRD(), 0);
  EXPECT_EQ(entity.getCreateTime(), 0);
  EXPECT_EQ(entity.getChangeTime(), 0);
  EXPECT_EQ(entity.getStatusChangeTime(), 0);
}

TEST_P(EntityRowTest, ANumberStandsForAnAbsentLegacyIdentifier) {
  store->addNode("a", "first");
  detail::EntityColumns columns = kFewEntityColumns;
  columns.absentQRMObjID = 0;
  EXPECT_EQ(read(columns).objects.front()->getQRMObjID(), ObjID(0));
}

TEST_P(EntityRowTest, ARowWithoutWhatItMustHaveEndsTheRead) {
  store->addNode("a", "first", {{"hasDynamicProperty", 0}});
  store->addNode("b", "", {{"hasDynamicProperty", 1}});
  store->addNode("c", "third", {{"hasDynamicProperty", 1}});
  const CapturedLog log(MC_INFO);
  const auto found = read();
  EXPECT_TRUE(found.isCutShort);
  EXPECT_THAT(detail::idsOf(found.objects), ElementsAre(ObjID("a")));
  EXPECT_THAT(found.withUserVars, ElementsAre(ObjID("b")));
  EXPECT_TRUE(found.withAddresses.empty());
  EXPECT_THAT(log.lines(), IsSupersetOf({"Received NULL values for critical data\n",
                                         "Unable to create Thing!\n"}));
}

TEST_P(EntityRowTest, WhatAMapHoldsIsHandedOutToItsObjects) {
  store->addNode("a", "first");
  store->addNode("b", "second");
  const auto found = read();
  ASSERT_FALSE(found.isCutShort);
  std::map<ObjID, ZNRefPtr<std::string>> names;
  names["b"] = new std::string("colour");
  names["x"] = new std::string("nobody");
  names["a"];
  const auto setVariable = [](ZNEntity& entity, const std::string& name) {
    entity.setUserVars({UserDefVar(name, VarValue(1L))});
  };
  EXPECT_FALSE(detail::handOutLoaded(ZNTopoAPIStatus(ZN_API_SQL_EXEC_ERROR, ""), "Failed \n",
                                     found.objects, names, setVariable));
  EXPECT_TRUE(found.objects.back()->getUserVars().empty());
  EXPECT_TRUE(
      detail::handOutLoaded(ZNTopoAPIStatus(), "Failed \n", found.objects, names, setVariable));
  EXPECT_TRUE(found.objects.front()->getUserVars().empty());
  ASSERT_EQ(found.objects.back()->getUserVars().size(), 1u);
}

}  // namespace
}  // namespace zntopo::test
