#include <atomic>
#include <regex>
#include <thread>

#include "tests/model/ModelFixture.h"
#include "zntopo/model/ZNHSRP.h"
#include "zntopo/model/ZNIfcAssocInfo.h"

namespace zntopo::test {
namespace {

constexpr int kRounds = 300;

/// Runs pieces of work side by side, each many times, with the number of the round.
void runTogether(const std::vector<std::function<void(int)>>& works) {
  std::atomic<std::size_t> ready{0};
  std::vector<std::thread> threads;
  for (const auto& work : works) {
    threads.emplace_back([&ready, &works, &work] {
      ++ready;
      while (ready < works.size()) std::this_thread::yield();
      for (int round = 0; round < kRounds; ++round) work(round);
    });
  }
  for (std::thread& thread : threads) thread.join();
}

ObjectStatus::Status statusOf(int number) {
  constexpr ObjectStatus::Status statuses[] = {ObjectStatus::Normal, ObjectStatus::Warning,
                                               ObjectStatus::Critical, ObjectStatus::Disabled};
  return statuses[static_cast<unsigned>(number) % 4];
}

class EntityThreadsTest : public ModelTest {
 protected:
  EntityThreadsTest() {
    gateway().addAddress(ipv4("a1", "10.0.0.1"));
    gateway().addAddress(ipv6("b1", "2001:db8::1", InetAddressIPv6::Global));
    entity_.setAddresses({ipv4("a1", ""), ipv4("b1", "")});
    entity_.setUserVars({UserDefVar("Rack", VarValue(4))});
  }

  ZNEntity entity_ = EntityParts().entity();
};

/// The old and the new status of each change that was published, in order.
std::vector<std::pair<std::string, std::string>> publishedChanges(
    const std::vector<std::string>& calls) {
  static const std::regex sent("sendStatusNotification\\(1, entity, (\\w+), (\\w+), .*");
  std::vector<std::pair<std::string, std::string>> changes;
  for (const std::string& call : calls) {
    std::smatch match;
    if (std::regex_match(call, match, sent)) changes.emplace_back(match[2], match[1]);
  }
  return changes;
}

TEST_F(EntityThreadsTest, ChangesOfOneStatusArePublishedInTheOrderTheyHappen) {
  const auto change = [this](int number) {
    EXPECT_TRUE(entity_.setOverallStatus(statusOf(number), number + 1, true, ActiveDB).isOK());
  };
  runTogether({[&](int round) { change(round); }, [&](int round) { change(round + 1); },
               [&](int round) { change(3 * round); }});
  const auto changes = publishedChanges(gateway().calls());
  ASSERT_FALSE(changes.empty());
  std::string current = "Major";
  for (const auto& [previous, next] : changes) {
    ASSERT_EQ(current, previous);
    current = next;
  }
  EXPECT_EQ(current, entity_.getOverallStatus().toString());
}

TEST_F(EntityThreadsTest, LazyLoadsSettersAndGettersOfOneObjectRunSideBySide) {
  runTogether({
      [this](int) {
        EXPECT_EQ(2u, entity_.getAddresses().size());
        EXPECT_EQ(1u, entity_.getAddressesByType(ZNAddress::IPv6)->size());
      },
      [this](int round) {
        entity_.setOverallStatus(statusOf(round), 0, true, ActiveDB);
        entity_.setV6OverallStatus(statusOf(round), 0, false);
      },
      [this](int round) {
        entity_.setStatus(statusOf(round), 0, ZNEntity::IPv6Global);
        entity_.setStatus(statusOf(round), 0, ZNEntity::IPv6SiteLocal);
        entity_.clearModifiedData();
        entity_.isStatusModified();
      },
      [this](int round) {
        entity_.setName("name " + std::to_string(round));
        entity_.setIPLevel(round % 2 == 0 ? ZNEntity::IPv4 : ZNEntity::IPv6);
      },
      [this](int) {
        EXPECT_FALSE(entity_.getName().empty());
        EXPECT_EQ("the core switch", entity_.getDescription());
        EXPECT_NE("NoStatus", entity_.getOverallStatus().toString());
        EXPECT_NE("NoStatus", entity_.getStatus(ZNEntity::IPv6Global).toString());
        EXPECT_GT(entity_.getStatusChangeTime(), 0);
        EXPECT_EQ(4, entity_.getUserDefVarByName("Rack").getValue().getIntVal());
      },
  });
  EXPECT_EQ("name " + std::to_string(kRounds - 1), entity_.getName());
  EXPECT_EQ(2 * kRounds, gateway().callCount("getAddrsByObjIDs"));
}

TEST_F(EntityThreadsTest, ACopyTakenDuringUpdatesIsOfOneMoment) {
  const auto partsOf = [](int number) {
    EntityParts parts;
    parts.name = parts.description = parts.zone = "state " + std::to_string(number);
    parts.routeDistinguisher = number;
    return parts;
  };
  partsOf(0).update(entity_);
  const auto copy = [this](int) {
    const ZNEntity taken(entity_);
    const std::string expected = "state " + std::to_string(taken.getRD());
    EXPECT_EQ(expected, taken.getName());
    EXPECT_EQ(expected, taken.getDescription());
    EXPECT_EQ(expected, taken.getZoneNumber());
  };
  const auto update = [&](int round) { partsOf(round).update(entity_); };
  runTogether({update, copy, copy, update});
}

TEST_F(EntityThreadsTest, TwoObjectsCanBeAssignedToEachOtherAtOnce) {
  ZNEntity other = EntityParts().entity();
  runTogether({[&](int) { entity_ = other; }, [&](int) { other = entity_; }});
  EXPECT_EQ(ObjID("entity"), entity_.getObjID());
  EXPECT_EQ(ObjID("entity"), other.getObjID());
}

TEST_F(EntityThreadsTest, MembersOfAGroupAreUpdatedWhileItsListIsRead) {
  using Info = ZNHSRPAddressInfo;
  const Info first(9, ObjID("i1"), ObjID("a1"), 100, Info::Active, "", 50);
  const Info second(9, ObjID("i2"), ObjID("a2"), 100, Info::StandBy, "", 50);
  ZNHSRP group(EntityParts().entity(), {first, second});
  const auto toggle = [&group](Info info, int round) {
    group.setHSRPState(info, round % 2 == 0 ? Info::Active : Info::Speak, round % 100, true,
                       ActiveDB);
  };
  runTogether({[&](int round) { toggle(first, round); }, [&](int round) { toggle(second, round); },
               [&](int) {
                 EXPECT_EQ(2u, group.getHSRPAddrInfoList().size());
                 EXPECT_EQ(9, group.getHSRPNumber());
               }});
  EXPECT_EQ(2u, group.getActiveAddressInfoList().size() + group.getStandbyAddressInfoList().size() +
                    group.getMiscStateAddressInfoList().size());
}

TEST_F(EntityThreadsTest, TheStateOfARelationIsReadWhileItIsUpdated) {
  ZNIfcAssocInfo relation(ObjID("l"), ObjID("r"), 1, 2, 3, 4, 5, "", "");
  runTogether({[&](int round) { relation.updateState(round, true); },
               [&](int) { EXPECT_GE(relation.getAssocState(), 0); }});
  EXPECT_EQ(kRounds - 1, relation.getAssocState());
  EXPECT_EQ(kRounds, gateway().callCount("sendAttributeNotification"));
}

}  // namespace
}  // namespace zntopo::test
