// The filling of the cache ahead of the queries.

#include "tests/support/ApiFixture.h"
#include "tests/support/CachePeer.h"
#include "tests/support/CapturedLog.h"
#include "tests/support/RecordedPauses.h"

namespace zntopo::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

/// Which kinds to load.
struct Wanted {
  bool switches = false;
  bool routers = false;
  bool vlans = false;
  bool hsrps = false;
  bool interfaces = false;
  bool containers = false;
};

constexpr Wanted kAll = {true, true, true, true, true, true};

/// A store with a switch, a router, a host, and one thing of all other kinds.
class PreloadTest : public ApiTest {
 protected:
  void SetUp() override {
    ApiTest::SetUp();
    if (!store) return;
    store->addNode("switch", "switch", {{"isLanSwitch", 1}});
    store->addNode("router", "router", {{"isIPV4Router", 1}});
    store->addNode("host", "host");
    store->addInterface("connected", "switch", "eth0", {{"isL2Connected", 1}});
    store->addInterface("idle", "switch", "eth1");
    store->addEntity("vlan", "vlan", E_Vlan);
    store->addEntity("group", "group", E_HSRP);
    store->insert("nwifc", {{"ObjId", "container"}, {"EntityName", "container"}});
    forgetContainer();
  }
  void TearDown() override { forgetContainer(); }
  /// Containers outlive the cache's clear().
  static void forgetContainer() { ZNTopoAPI_Impl::cache()->removeIfc(ObjID("container")); }

  ZNTopoAPIStatus load(const Wanted& wanted) { return load(impl, wanted); }
  ZNTopoAPIStatus load(ZNTopoAPI_Impl& api, const Wanted& wanted) {
    return api.preLoadTopoCache(wanted.switches, wanted.routers, wanted.vlans, wanted.hsrps,
                                wanted.interfaces, wanted.containers);
  }

  /// The lines of the log that tell of the steps, in their order.
  static std::vector<std::string> stepsOf(const CapturedLog& log) {
    std::vector<std::string> steps;
    for (const std::string& line : log.lines()) {
      if (line.rfind("Loading ", 0) == 0 || line.find("Interfaces loaded") != std::string::npos) {
        steps.push_back(line);
      }
    }
    return steps;
  }

  /// The kinds of objects that are in the cache.
  std::vector<std::string> cached() {
    ZNTopoCachePeer cache(*ZNTopoAPI_Impl::cache());
    std::vector<std::string> ids;
    const auto add = [&ids](const auto& map) {
      for (const auto& [id, object] : map) ids.push_back(id.toString());
    };
    add(cache.getNodeIDMap());
    add(cache.getInterfaceIDMap());
    add(cache.getVlanObjIDMap());
    add(cache.getHSRPObjIDMap());
    add(cache.getIfcObjIDMap());
    return ids;
  }

  const RecordedPauses pauses;
};
ZNTOPO_ON_ENGINES(PreloadTest, kMainEngines);

TEST_P(PreloadTest, WithoutAnyKindItIsDoneAtOnceAndDoesNotPause) {
  const StatementSpy spy;
  EXPECT_TRUE(load({}).isOK());
  EXPECT_THAT(spy.allStatements(), IsEmpty());
  EXPECT_THAT(pauses.seconds(), IsEmpty());
  EXPECT_THAT(cached(), IsEmpty());
}

TEST_P(PreloadTest, EveryKindIsLoadedInAFixedOrder) {
  const CapturedLog log(MC_INFO);
  const ZNTopoAPIStatus answer = load(kAll);
  EXPECT_EQ(answer.getStatus(), ZN_API_SUCCESS) << answer.getAuxMsg();
  EXPECT_THAT(stepsOf(log),
              ElementsAre("Loading Ifcs .. \n", "Loading Vlans .. \n", "Loading HSRPs .. \n",
                          "Loading Nodes .. \n", "1 Interfaces loaded \n"));
  EXPECT_THAT(cached(), ElementsAre("host", "router", "switch", "vlan", "group", "container"))
      << "whoever asks for all connected interfaces does not fill the cache";
  EXPECT_TRUE(impl.getTopoCache()->isAllVlanInCache());
  EXPECT_TRUE(impl.getTopoCache()->isAllHSRPInCache());
  EXPECT_TRUE(impl.getTopoCache()->isAllIfcInCache());
}

TEST_P(PreloadTest, WhatIsLoadedIsNotReadAgain) {
  ASSERT_TRUE(load(kAll).isOK());
  const StatementSpy spy;
  impl.getVlansByObjIDList({}, notFound, status, true, -1);
  impl.getHSRPsByObjIDList({}, notFound, status, true, -1);
  impl.getIfcsByObjIDList({}, notFound, status, true, -1);
  impl.getNodeByObjID("router", status);
  EXPECT_THAT(spy.allStatements(), IsEmpty());
}

TEST_P(PreloadTest, ItPausesForASecondAfterVlansAndAfterGroupsAndNowhereElse) {
  load({.vlans = true});
  EXPECT_THAT(pauses.seconds(), ElementsAre(1));
  load({.hsrps = true});
  EXPECT_THAT(pauses.seconds(), ElementsAre(1, 1));
  load({.switches = true, .routers = true, .interfaces = true, .containers = true});
  EXPECT_THAT(pauses.seconds(), ElementsAre(1, 1));
  load(kAll);
  EXPECT_THAT(pauses.seconds(), ElementsAre(1, 1, 1, 1));
}

TEST_P(PreloadTest, ItPausesAfterALoadOfVlansThatFoundNothing) {
  store->execute("delete from nwentity where ObjId = 'vlan'");
  EXPECT_TRUE(load({.vlans = true}).isOK());
  EXPECT_THAT(cached(), IsEmpty());
  EXPECT_THAT(pauses.seconds(), ElementsAre(1));
}

TEST_P(PreloadTest, NodesAreReadForEitherKindOfThem) {
  const Wanted wanted[] = {{.switches = true}, {.routers = true}};
  for (const Wanted& kind : wanted) {
    impl.clearCache();
    EXPECT_TRUE(load(kind).isOK());
    EXPECT_THAT(cached(), ElementsAre("host", "router", "switch")) << "the load itself keeps all";
  }
}

TEST_P(PreloadTest, TheNodesThatAreWantedAreUsedOnceMoreAndStayInASmallCache) {
  const std::pair<Wanted, const char*> kinds[] = {{{.switches = true}, "switch"},
                                                  {{.routers = true}, "router"}};
  for (const auto& [wanted, kept] : kinds) {
    ZNTopoConfig small;
    small.setNodeCacheSize(1);
    small.setEnableCacheSwap(true);
    small.setEnableFIFOCacheSwap(true);
    ZNTopoAPI::setTopoConfiguration(small);
    impl.clearCache();
    EXPECT_TRUE(load(wanted).isOK());
    EXPECT_THAT(cached(), ElementsAre(kept));
  }
}

TEST_P(PreloadTest, ItLoadsTheActiveTablesWhicheverTheInstanceIsFor) {
  store->addEntity("twin", "twin", E_Vlan, {}, WorkingDB);
  EXPECT_TRUE(load(working, {.vlans = true}).isOK());
  EXPECT_THAT(cached(), ElementsAre("vlan"));
}

TEST_P(PreloadTest, TheFirstFailureEndsIt) {
  const std::tuple<const char*, std::vector<std::string>, int> failures[] = {
      {"from  nwifc", {"Loading Ifcs .. \n"}, 0},
      {"entityType =  4", {"Loading Ifcs .. \n", "Loading Vlans .. \n"}, 0},
      {"entityType =  11", {"Loading Ifcs .. \n", "Loading Vlans .. \n", "Loading HSRPs .. \n"}, 1},
      {"from nwnode",
       {"Loading Ifcs .. \n", "Loading Vlans .. \n", "Loading HSRPs .. \n", "Loading Nodes .. \n"},
       2}};
  for (const auto& [text, steps, count] : failures) {
    SCOPED_TRACE(text);
    impl.clearCache();
    forgetContainer();
    const std::size_t before = pauses.seconds().size();
    const CapturedLog log(MC_INFO);
    StatementSpy spy;
    spy.fail(StatementSpy::Exec, text);
    EXPECT_EQ(load(kAll).getStatus(), ZN_API_SQL_EXEC_ERROR);
    EXPECT_EQ(stepsOf(log), steps);
    EXPECT_EQ(pauses.seconds().size() - before, static_cast<std::size_t>(count));
  }
}

TEST_P(PreloadTest, AFailureOfTheInterfacesIsToldWithWhatWasLoaded) {
  const CapturedLog log(MC_INFO);
  StatementSpy spy;
  spy.fail(StatementSpy::Exec, "from nwinterface");
  EXPECT_EQ(load({.interfaces = true}).getStatus(), ZN_API_SQL_EXEC_ERROR);
  EXPECT_THAT(stepsOf(log), ElementsAre("0 Interfaces loaded \n"));
}

TEST_P(PreloadTest, AModelThatIsNotReadyIsNotLoaded) {
  store->execute("update state set TopologyReady = 0");
  EXPECT_EQ(load(kAll).getStatus(), ZN_API_DB_NOT_READY);
  EXPECT_THAT(pauses.seconds(), IsEmpty());
}

TEST_P(PreloadTest, TheFacadeLoadsNoContainers) {
  const CapturedLog log(MC_INFO);
  EXPECT_TRUE(ZNTopoAPI().preLoadTopoCache(true, true, true, true, true).isOK());
  EXPECT_THAT(log.text(), Not(HasSubstr("Loading Ifcs")));
  EXPECT_THAT(cached(), Not(testing::Contains("container")));
}

TEST(PreloadPauseTest, WhereNobodyReplacesItAPauseIsASleep) {
  EXPECT_EQ(detail::preloadPause.load(), &detail::sleepFor);
}

}  // namespace
}  // namespace zntopo::test
