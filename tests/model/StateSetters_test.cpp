#include <ctime>

#include "tests/model/ModelFixture.h"

namespace zntopo::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using Setter = ZNTopoAPIStatus (*)(ZNEntity&, const ObjectStatus&, long, bool);

/// In what the setters differ. None of the entity's statuses in these tests is kNew.
struct Row {
  const char* name;
  Setter set;
  const ObjectStatus& (ZNEntity::*get)() const;
  bool (ZNEntity::*isMarked)() const;
  ZNEntity::EntityStatusType type;
};

// The table set that goes in is never the entity's own.
const Row kRows[] = {
    {"setOverallStatus",
     [](ZNEntity& entity, const ObjectStatus& status, long time, bool updateDB) {
       return entity.setOverallStatus(status, time, updateDB, ActiveDB);
     },
     &ZNEntity::getOverallStatus, &ZNEntity::isV4OverallStatusModified, ZNEntity::Overall},
    {"setIPv4OverallStatus",
     [](ZNEntity& entity, const ObjectStatus& status, long time, bool updateDB) {
       return entity.setIPv4OverallStatus(status, time, updateDB, ActiveDB);
     },
     &ZNEntity::getOverallStatus, &ZNEntity::isV4OverallStatusModified, ZNEntity::Overall},
    {"setV6OverallStatus",
     [](ZNEntity& entity, const ObjectStatus& status, long time, bool updateDB) {
       return entity.setV6OverallStatus(status, time, updateDB);
     },
     &ZNEntity::getV6OverallStatus, &ZNEntity::isV6OverallStatusModified, ZNEntity::IPv6Overall},
    {"setV6GlobalStatus",
     [](ZNEntity& entity, const ObjectStatus& status, long time, bool updateDB) {
       return entity.setV6GlobalStatus(status, time, updateDB);
     },
     &ZNEntity::getV6GlobalStatus, &ZNEntity::isV6GlobalStatusModified, ZNEntity::IPv6Global},
    {"setV6SiteStatus",
     [](ZNEntity& entity, const ObjectStatus& status, long time, bool updateDB) {
       return entity.setV6SiteStatus(status, time, updateDB);
     },
     &ZNEntity::getV6SiteStatus, &ZNEntity::isV6SiteStatusModified, ZNEntity::IPv6SiteLocal},
};

constexpr ObjectStatus::Status kNew = ObjectStatus::Testing;
constexpr const char* kAskedForReadiness = "getTopoMode(1)";  // the entity's own table set

class StateSettersTest : public ModelTest, public testing::WithParamInterface<Row> {
 protected:
  ZNTopoAPIStatus set(const ObjectStatus& status, long time, bool updateDB) {
    return GetParam().set(entity_, status, time, updateDB);
  }
  ObjectStatus current() const { return (entity_.*GetParam().get)(); }
  bool isMarked() const { return (entity_.*GetParam().isMarked)(); }

  std::string writeCall(long time) const {
    return "setEntityStatus(1, entity, 12, " + std::to_string(time) + ", " +
           std::to_string(GetParam().type) + ", 1)";
  }
  std::string sendCall(long time) const {
    return "sendStatusNotification(1, entity, Testing, " + old_.toString() + ", " +
           std::to_string(time) + ", " + std::to_string(GetParam().type) + ")";
  }

  ZNEntity entity_ = EntityParts().entity();
  const ObjectStatus old_ = current();
};

INSTANTIATE_TEST_SUITE_P(Each, StateSettersTest, testing::ValuesIn(kRows),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_P(StateSettersTest, WithoutAWriteTheChangeIsMarkedAndNothingElseHappens) {
  EXPECT_TRUE(set(kNew, 4000, false).isOK());
  EXPECT_EQ(kNew, current().getStatus());
  EXPECT_EQ(4000, entity_.getStatusChangeTime());
  EXPECT_EQ(200, entity_.getChangeTime());
  EXPECT_TRUE(isMarked());
  EXPECT_TRUE(entity_.isStatusModified());
  EXPECT_THAT(gateway().calls(), ElementsAre(kAskedForReadiness));
  entity_.clearModifiedData();
  EXPECT_FALSE(entity_.isStatusModified());
}

TEST_P(StateSettersTest, OnlyTheSettersOwnFieldAndMarkChange) {
  set(kNew, 4000, false);
  for (const Row& other : kRows) {
    if (other.type == GetParam().type) continue;
    EXPECT_NE(kNew, (entity_.*other.get)().getStatus()) << other.name;
    EXPECT_FALSE((entity_.*other.isMarked)()) << other.name;
  }
  EXPECT_FALSE(entity_.isQRMObjIDModified());
  EXPECT_FALSE(entity_.isUDVModified());
}

TEST_P(StateSettersTest, WithAWriteTheStoreIsWrittenAndTheChangePublishedInThisOrder) {
  EXPECT_TRUE(set(kNew, 4000, true).isOK());
  EXPECT_EQ(kNew, current().getStatus());
  EXPECT_FALSE(entity_.isStatusModified());
  EXPECT_THAT(gateway().calls(), ElementsAre(kAskedForReadiness, writeCall(4000),
                                             "ensureNotificationClient()", sendCall(4000)));
}

TEST_P(StateSettersTest, TheTableSetIsTheObjectsOwn) {
  EntityParts parts;
  parts.dbType = ActiveDB;
  entity_ = parts.entity();
  set(kNew, 4000, true);
  EXPECT_EQ("getTopoMode(0)", gateway().calls().at(0));
  EXPECT_EQ(0u, gateway().calls().at(1).find("setEntityStatus(0, "));
}

TEST_P(StateSettersTest, ATimeThatIsNotAfterZeroMeansNow) {
  for (const long time : {0L, -5L}) {
    entity_ = EntityParts().entity();
    const std::time_t before = std::time(nullptr);
    set(kNew, time, true);
    EXPECT_GE(entity_.getStatusChangeTime(), before);
    EXPECT_LE(entity_.getStatusChangeTime(), std::time(nullptr));
    EXPECT_EQ(writeCall(entity_.getStatusChangeTime()), gateway().calls().at(1));
    gateway().reset();
  }
}

TEST_P(StateSettersTest, WhileTheTopologyIsNotReadyNothingChanges) {
  for (const int mode : {1, 2, -1}) {
    for (const bool updateDB : {false, true}) {
      gateway().reset();
      gateway().topoMode = mode;
      EXPECT_EQ(ZN_API_DB_NOT_READY, set(kNew, 4000, updateDB).getStatus());
      EXPECT_EQ(old_.getStatus(), current().getStatus());
      EXPECT_EQ(300, entity_.getStatusChangeTime());
      EXPECT_FALSE(entity_.isStatusModified());
      EXPECT_THAT(gateway().calls(), ElementsAre(kAskedForReadiness));
    }
  }
}

TEST_P(StateSettersTest, ReadinessCountsEvenForTheSameStatus) {
  gateway().topoMode = 1;
  EXPECT_EQ(ZN_API_DB_NOT_READY, set(old_, 4000, true).getStatus());
}

TEST_P(StateSettersTest, TheSameStatusIsLoggedAndChangesNothing) {
  for (const bool updateDB : {false, true}) {
    gateway().reset();
    expectLogged(MC_INFO, "No status change require",
                 [&] { EXPECT_TRUE(set(old_, 4000, updateDB).isOK()); });
    EXPECT_EQ(300, entity_.getStatusChangeTime());
    EXPECT_FALSE(entity_.isStatusModified());
    EXPECT_THAT(gateway().calls(), ElementsAre(kAskedForReadiness, kAskedForReadiness));
  }
}

TEST_P(StateSettersTest, AFailedWriteIsReportedAndTheObjectStaysChanged) {
  gateway().failWith("setEntityStatus", ZN_API_SQL_EXEC_ERROR, "the disk is full");
  const ZNTopoAPIStatus status = set(kNew, 4000, true);
  EXPECT_EQ(ZN_API_SQL_EXEC_ERROR, status.getStatus());
  EXPECT_EQ("the disk is full", status.getAuxMsg());
  EXPECT_EQ(kNew, current().getStatus());
  EXPECT_EQ(4000, entity_.getStatusChangeTime());
  EXPECT_FALSE(entity_.isStatusModified());
  EXPECT_THAT(gateway().calls(), ElementsAre(kAskedForReadiness, writeCall(4000)));
}

TEST_P(StateSettersTest, WithoutANotificationClientItsStatusIsReportedAndAllStaysChanged) {
  gateway().failWith("ensureNotificationClient", ZN_API_ILLEGAL_INPUT, "no broker");
  const ZNTopoAPIStatus status = set(kNew, 4000, true);
  EXPECT_EQ(ZN_API_ILLEGAL_INPUT, status.getStatus());
  EXPECT_EQ("no broker", status.getAuxMsg());
  EXPECT_EQ(kNew, current().getStatus());
  EXPECT_THAT(gateway().calls(),
              ElementsAre(kAskedForReadiness, writeCall(4000), "ensureNotificationClient()"));
}

TEST_P(StateSettersTest, AFailedSendIsNotReported) {
  gateway().failWith("sendStatusNotification", ZN_API_ILLEGAL_INPUT, "lost");
  const ZNTopoAPIStatus status = set(kNew, 4000, true);
  EXPECT_TRUE(status.isOK());
  EXPECT_EQ("", status.getAuxMsg());
  EXPECT_EQ(1, gateway().callCount("sendStatusNotification"));
}

TEST_P(StateSettersTest, ASecondChangeTellsTheFirstOneAsThePrevious) {
  set(kNew, 4000, true);
  gateway().reset();
  set(ObjectStatus::Disabled, 5000, true);
  EXPECT_EQ("sendStatusNotification(1, entity, Disabled, Testing, 5000, " +
                std::to_string(GetParam().type) + ")",
            gateway().calls().at(3));
}

TEST_P(StateSettersTest, TheNewStatusMayBeOneOfTheObjectsOwn) {
  const ObjectStatus& own = GetParam().type == ZNEntity::IPv6Global ? entity_.getV6SiteStatus()
                                                                    : entity_.getV6GlobalStatus();
  const ObjectStatus::Status expected = own.getStatus();
  EXPECT_TRUE(set(own, 4000, false).isOK());
  EXPECT_EQ(expected, current().getStatus());
}

TEST_P(StateSettersTest, TheObjectIsLockedFromTheFirstCallToTheLast) {
  LockProbe entity(EntityParts().entity());
  std::vector<bool> locked;
  gateway().onCall([&](const std::string&) { locked.push_back(entity.isLocked()); });
  GetParam().set(entity, kNew, 4000, true);
  EXPECT_THAT(locked, ElementsAre(true, true, true, true));
  EXPECT_FALSE(entity.isLocked());
}

class SetStatusTest : public ModelTest {
 protected:
  ZNEntity entity_ = EntityParts().entity();
};

TEST_F(SetStatusTest, EachTypeSetsItsFieldInMemory) {
  const ZNEntity::EntityStatusType types[] = {ZNEntity::IPv6Overall, ZNEntity::IPv6SiteLocal,
                                              ZNEntity::IPv6Global, ZNEntity::IPv4Overall,
                                              ZNEntity::Overall};
  for (const ZNEntity::EntityStatusType type : types) {
    gateway().reset();
    entity_ = EntityParts().entity();
    entity_.clearModifiedData();
    entity_.setStatus(kNew, 4000, type);
    for (const Row& row : kRows) {
      const bool own =
          row.type == type || (row.type == ZNEntity::Overall && type == ZNEntity::IPv4Overall);
      EXPECT_EQ(own, (entity_.*row.get)().getStatus() == kNew) << type << row.name;
      EXPECT_EQ(own, (entity_.*row.isMarked)()) << type << row.name;
    }
    EXPECT_EQ(4000, entity_.getStatusChangeTime());
    EXPECT_THAT(gateway().calls(), ElementsAre(kAskedForReadiness));
  }
}

TEST_F(SetStatusTest, TypesThatNoStatusStandsForAreLoggedAndChangeNothing) {
  for (const int type : {1, 6, -1}) {
    expectLogged(
        MC_CRITICAL,
        "ZNEntity::setStatus() call with unimplemented EntityStatusType: " + std::to_string(type) +
            "\n",
        [&] { entity_.setStatus(kNew, 4000, static_cast<ZNEntity::EntityStatusType>(type)); });
  }
  EXPECT_THAT(gateway().calls(), IsEmpty());
  EXPECT_EQ(300, entity_.getStatusChangeTime());
  EXPECT_FALSE(entity_.isStatusModified());
}

TEST_F(SetStatusTest, AtLevelIPv6TheOverallSetterWritesTheIPv4StatusThatNoGetterReads) {
  entity_.setIPLevel(ZNEntity::IPv6);
  EXPECT_TRUE(entity_.setOverallStatus(kNew, 4000, false, ActiveDB).isOK());
  EXPECT_EQ(ObjectStatus::Warning, entity_.getOverallStatus().getStatus());
  EXPECT_EQ(ObjectStatus::Warning, entity_.getStatus(ZNEntity::IPv4Overall).getStatus());
  EXPECT_TRUE(entity_.isV4OverallStatusModified());
  entity_.setIPLevel(ZNEntity::IPv4);
  EXPECT_EQ(kNew, entity_.getOverallStatus().getStatus());
}

TEST_F(SetStatusTest, AMajorObjectThatBecomesNormalNowIsMarked) {
  const std::time_t before = std::time(nullptr);
  EXPECT_TRUE(entity_.setOverallStatus(ObjectStatus::Normal, 0, false, ActiveDB).isOK());
  EXPECT_GE(entity_.getStatusChangeTime(), before);
  EXPECT_TRUE(entity_.isV4OverallStatusModified());
  EXPECT_TRUE(entity_.isStatusModified());
  entity_.clearModifiedData();
  EXPECT_FALSE(entity_.isStatusModified());
}

}  // namespace
}  // namespace zntopo::test
