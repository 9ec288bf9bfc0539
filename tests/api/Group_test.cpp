// What VLANs, containers and HSRP groups have in common: how a request is shared between the cache
// and the store, and how it fails. Each test holds for all three.

#include "tests/support/ApiFixture.h"
#include "tests/support/CapturedLog.h"
#include "tests/support/ObjectTexts.h"

namespace zntopo::test {
namespace {

using testing::AnyOf;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using testing::UnorderedElementsAre;

using Texts = std::vector<std::string>;

struct Request {
  std::set<ObjID> ids;
  bool all;
  int rd;
  std::set<ObjID>& notFound;
  ZNTopoAPIStatus& status;
};

/// A kind of groups, as the tests see it.
struct Kind {
  const char* name;
  void (*add)(TestStore&, const std::string& id, const Values& more);
  Texts (*ask)(OpenImpl&, const Request&);
  const char* emptyList;
  const char* table;
  /// In the statement that reads what the groups hold.
  const char* contents;
  /// How the condition of a request by identifiers begins.
  const char* condition;
  void (ZNTopoConfig::*setSize)(int);
  bool (ZNTopoCache::*isAllCached)() const;
  /// What a request costs: of n unknown to the cache, and of all n.
  int (*some)(int n);
  int (*all)(int n);
  /// The object of an identifier in the cache.
  const void* (*cached)(const char* id);
};

template <typename T, auto Find>
const void* cachedObject(const char* id) {
  ZNRefPtr<T> found;
  (ZNTopoAPI_Impl::cache()->*Find)(ObjID(id), found);
  return found.getObjectPointer();
}

void addVlan(TestStore& store, const std::string& id, const Values& more) {
  store.addEntity(id, "vlan " + id, 4, more);
}
void addIfc(TestStore& store, const std::string& id, const Values& more) {
  Values values = {{"ObjId", id}, {"EntityName", "ifc " + id}};
  for (const auto& [name, value] : more) values.insert_or_assign(name, value);
  store.insert("nwifc", values);
}
void addHSRP(TestStore& store, const std::string& id, const Values& more) {
  store.addEntity(id, "hsrp " + id, 11, more);
}

constexpr Kind kKinds[] = {
    {"Vlan", addVlan,
     [](OpenImpl& impl, const Request& request) {
       return idsOf(*impl.getVlansByObjIDList(request.ids, request.notFound, request.status,
                                              request.all, request.rd));
     },
     "getVlansByObjIDLIst() - empty list ! \n", "nwentity", "from containment",
     " where  ObjID in (", &ZNTopoConfig::setVlanCacheSize, &ZNTopoCache::isAllVlanInCache,
     [](int) { return 2; }, [](int) { return 3; },
     cachedObject<ZNVlan, &ZNTopoCache::inVlanObjIDCache>},
    {"Ifc", addIfc,
     [](OpenImpl& impl, const Request& request) {
       return idsOf(*impl.getIfcsByObjIDList(request.ids, request.notFound, request.status,
                                             request.all, request.rd));
     },
     "getIfcsByObjIDLIst() - empty list ! \n", "from  nwifc", "from nwifcctm", " where  ObjId in (",
     &ZNTopoConfig::setIfcCacheSize, &ZNTopoCache::isAllIfcInCache, [](int n) { return 2 + 2 * n; },
     [](int n) { return 2 + 2 * n; }, cachedObject<ZNIfc, &ZNTopoCache::inIfcObjIDCache>},
    {"HSRP", addHSRP,
     [](OpenImpl& impl, const Request& request) {
       return idsOf(*impl.getHSRPsByObjIDList(request.ids, request.notFound, request.status,
                                              request.all, request.rd));
     },
     "getHSRPsByObjIDLIst() - empty list !\n", "nwentity", "from hsrpaddress", " where  ObjID in (",
     &ZNTopoConfig::setHSRPCacheSize, &ZNTopoCache::isAllHSRPInCache, [](int) { return 2; },
     [](int) { return 2; }, cachedObject<ZNHSRP, &ZNTopoCache::inHSRPObjIDCache>},
};

class GroupTest : public ApiTest {
 protected:
  void SetUp() override {
    ApiTest::SetUp();
    // Containers outlive the cache's clear().
    if (store) removeIfcs();
  }
  void TearDown() override {
    if (store) removeIfcs();
  }
  static void removeIfcs() {
    for (const char* id : {"7", "a", "b", "c"}) ZNTopoAPI_Impl::cache()->removeIfc(ObjID(id));
  }

  void add(const Kind& kind, const Texts& ids) {
    for (const std::string& id : ids) kind.add(*store, id, {});
  }
  Texts some(const Kind& kind, const std::set<ObjID>& ids) {
    return kind.ask(impl, {ids, false, -1, notFound, status});
  }
  Texts all(const Kind& kind, int rd = -1) {
    return kind.ask(impl, {{}, true, rd, notFound, status});
  }
  bool isAllCached(const Kind& kind) { return (ZNTopoAPI_Impl::cache()->*kind.isAllCached)(); }
  void setSize(const Kind& kind, int size) {
    (ZNTopoAPI::getTopoConfiguration().*kind.setSize)(size);
  }
};
ZNTOPO_ON_ENGINES(GroupTest, kEngines);

TEST_P(GroupTest, AnEmptySetIsTold) {
  for (const Kind& kind : kKinds) {
    EXPECT_THAT(some(kind, {}), IsEmpty());
    EXPECT_EQ(status.getStatus(), ZN_API_EMPTY_OBJID_LIST);
    EXPECT_EQ(status.getAuxMsg(), kind.emptyList);
  }
}

TEST_P(GroupTest, AStoreThatIsNotReadyIsTold) {
  store->execute("update state set TopologyReady = 0");
  for (const Kind& kind : kKinds) {
    EXPECT_THAT(some(kind, {"a"}), IsEmpty());
    EXPECT_EQ(status.getStatus(), ZN_API_DB_NOT_READY) << kind.name;
    EXPECT_EQ(status.getAuxMsg(), "Topology DB is not ready\n");
    EXPECT_THAT(all(kind), IsEmpty());
    EXPECT_EQ(status.getStatus(), ZN_API_DB_NOT_READY) << kind.name;
  }
}

TEST_P(GroupTest, WhatTheCacheLacksIsReadAndTheRestIsNotFound) {
  for (const Kind& kind : kKinds) {
    SCOPED_TRACE(kind.name);
    add(kind, {"a", "b", "c"});
    EXPECT_THAT(some(kind, {"b"}), ElementsAre("b"));
    const CapturedLog log;
    StatementSpy spy;
    // The cached one comes first.
    const Texts found = some(kind, {"a", "b", "x"});
    EXPECT_TRUE(status.isOK()) << status.getAuxMsg();
    EXPECT_THAT(found, UnorderedElementsAre("a", "b"));
    EXPECT_THAT(notFound, ElementsAre(ObjID("x")));
    EXPECT_THAT(spy.statements(), SizeIs(kind.some(1)));
    EXPECT_THAT(spy.statements().front(),
                testing::EndsWith(std::string(kind.condition) + "'a','x')"));
    EXPECT_THAT(log.lines(), Contains("FOUND " + std::string(kind.name) + " = b IN CACHE! \n"));
    EXPECT_THAT(log.lines(), Contains("List size = 1 \n"));
    spy.clear();
    // What was read is cached, and a set that is wholly cached asks no store.
    notFound = {ObjID("of before")};
    EXPECT_THAT(some(kind, {"a", "b"}), ElementsAre("a", "b"));
    EXPECT_THAT(spy.allStatements(), IsEmpty());
    EXPECT_THAT(notFound, ElementsAre(ObjID("of before")));
    EXPECT_THAT(log.lines(), Contains("Found all " + std::string(kind.name) + " in cache ! \n"));
    store->execute("delete from nwentity");
  }
}

TEST_P(GroupTest, AllAreReadOnceAndThenServedFromTheCacheWhateverTheRouteDistinguisher) {
  for (const Kind& kind : kKinds) {
    SCOPED_TRACE(kind.name);
    kind.add(*store, "a", {{"RouteDistinguisher", 1}});
    kind.add(*store, "b", {{"RouteDistinguisher", 2}});
    notFound = {ObjID("of before")};
    const CapturedLog log;
    StatementSpy spy;
    EXPECT_THAT(all(kind), UnorderedElementsAre("a", "b"));
    EXPECT_TRUE(status.isOK()) << status.getAuxMsg();
    EXPECT_THAT(spy.statements(), SizeIs(kind.all(2)));
    EXPECT_TRUE(isAllCached(kind));
    spy.clear();
    EXPECT_THAT(all(kind, 1), UnorderedElementsAre("a", "b"));
    EXPECT_THAT(spy.allStatements(), IsEmpty());
    EXPECT_THAT(notFound, ElementsAre(ObjID("of before")));
    const std::string name = kind.name;
    EXPECT_THAT(log.lines(), testing::IsSupersetOf(Texts{
                                 "Some " + name + "s are not in cache, continue to get from DB\n",
                                 "Retrieve all " + name + "s from cache\n",
                                 "Number of " + name + " in Cache = 2\n"}));
    store->execute("delete from nwentity");
  }
}

TEST_P(GroupTest, ALimitedRequestReadsItsRouteDistinguisherAndCountsAsAll) {
  for (const Kind& kind : kKinds) {
    SCOPED_TRACE(kind.name);
    kind.add(*store, "a", {{"RouteDistinguisher", 1}});
    kind.add(*store, "b", {{"RouteDistinguisher", 2}});
    EXPECT_THAT(all(kind, 2), ElementsAre("b"));
    EXPECT_TRUE(isAllCached(kind));
    EXPECT_THAT(all(kind), ElementsAre("b"));
    store->execute("delete from nwentity");
  }
}

TEST_P(GroupTest, WithALimitBelowTheirNumberEachRequestForAllIsCompleteReadsTheStoreAndEvicts) {
  for (const Kind& kind : kKinds) {
    for (const bool byAge : {false, true}) {
      SCOPED_TRACE(std::string(kind.name) + (byAge ? " by age" : ""));
      ZNTopoAPI_Impl::cache()->clear(true);
      removeIfcs();
      add(kind, {"a", "b", "c"});
      setSize(kind, 2);
      ZNTopoAPI::getTopoConfiguration().setEnableFIFOCacheSwap(byAge);
      for (int round = 0; round < 3; ++round) {
        const CapturedLog log;
        const StatementSpy spy;
        EXPECT_THAT(all(kind), UnorderedElementsAre("a", "b", "c")) << round;
        EXPECT_THAT(spy.statements(), SizeIs(kind.all(3))) << round;
        EXPECT_FALSE(isAllCached(kind));
        EXPECT_THAT(log.lines(), Contains("Reducing " + std::string(kind.name) +
                                          " Cache - Current = 3 : Max = 2 \n"));
      }
      store->execute("delete from nwentity");
      store->execute("delete from nwifc");
    }
  }
}

TEST_P(GroupTest, AllAreReadAnewIfTheCacheWasClearedWhileTheyWereRead) {
  for (const Kind& kind : kKinds) {
    SCOPED_TRACE(kind.name);
    add(kind, {"a", "b"});
    StatementSpy spy;
    spy.before(StatementSpy::Exec, kind.contents, 1, [&] {
      ZNTopoAPIStatus other;
      ZNTopoAPI_Impl::cache()->clear(true);
      impl.validate(other);  // the next query has no reason to empty the cache again
    });
    EXPECT_THAT(all(kind), UnorderedElementsAre("a", "b"));
    EXPECT_TRUE(status.isOK()) << status.getAuxMsg();
    EXPECT_FALSE(isAllCached(kind));
    spy.clear();
    EXPECT_THAT(all(kind), UnorderedElementsAre("a", "b"));
    EXPECT_THAT(spy.statements(), SizeIs(kind.all(2)));
    EXPECT_TRUE(isAllCached(kind));
    store->execute("delete from nwentity");
  }
}

TEST_P(GroupTest, IdentifiersThatHaveNoOrderAreNeverAllCached) {
  for (const Kind& kind : kKinds) {
    SCOPED_TRACE(kind.name);
    add(kind, {"7", "a"});
    for (int round = 0; round < 2; ++round) {
      EXPECT_THAT(all(kind), UnorderedElementsAre("7", "a")) << round;
      EXPECT_TRUE(status.isOK()) << status.getAuxMsg();
    }
    store->execute("delete from nwentity");
  }
}

TEST_P(GroupTest, WhatAnotherThreadLoadedMeanwhileStaysInTheCache) {
  for (const Kind& kind : kKinds) {
    SCOPED_TRACE(kind.name);
    add(kind, {"a", "b"});
    StatementSpy spy;
    const void* theirs = nullptr;
    spy.before(StatementSpy::Exec, kind.contents, 1, [&] {
      ZNTopoAPIStatus other;
      std::set<ObjID> missing;
      kind.ask(impl, {{"a"}, false, -1, missing, other});
      theirs = kind.cached("a");
    });
    EXPECT_THAT(some(kind, {"a"}), ElementsAre("a"));
    EXPECT_TRUE(status.isOK()) << status.getAuxMsg();
    ASSERT_NE(theirs, nullptr);
    EXPECT_EQ(kind.cached("a"), theirs);
    store->execute("delete from nwentity");
  }
}

TEST_P(GroupTest, ACacheThatKeepsNoneNeverHoldsAll) {
  for (const Kind& kind : kKinds) {
    SCOPED_TRACE(kind.name);
    add(kind, {"a"});
    setSize(kind, 0);
    EXPECT_THAT(all(kind), ElementsAre("a"));
    EXPECT_THAT(all(kind), ElementsAre("a"));
    setSize(kind, 10);
    EXPECT_THAT(all(kind), ElementsAre("a"));
    store->execute("delete from nwentity");
  }
}

TEST_P(GroupTest, ALoneNullIdentifierEndsWithTheFailedStatementsStatus) {
  for (const Kind& kind : kKinds) {
    SCOPED_TRACE(kind.name);
    const StatementSpy spy;
    EXPECT_THAT(some(kind, {ObjID()}), IsEmpty());
    EXPECT_THAT(status.getStatus(), AnyOf(ZN_API_SQL_BIND_STATEMENT_ERROR, ZN_API_SQL_EXEC_ERROR));
    std::string condition = kind.condition;
    condition.back() = ')';
    EXPECT_THAT(spy.statements(), ElementsAre(testing::EndsWith(condition)));
  }
}

TEST_P(GroupTest, TheWorkingTablesAreReadByTheirOwnNames) {
  const StatementSpy spy;
  for (const Kind& kind : kKinds) {
    kind.ask(working, {{"a"}, false, -1, notFound, status});
    EXPECT_TRUE(status.isOK()) << kind.name << status.getAuxMsg();
    EXPECT_THAT(notFound, ElementsAre(ObjID("a")));
    kind.ask(working, {{}, true, -1, notFound, status});
    EXPECT_TRUE(status.isOK()) << kind.name << status.getAuxMsg();
  }
  for (const std::string& sql : spy.statements()) {
    EXPECT_NE(sql.find("_update"), std::string::npos) << sql;
  }
}

TEST_P(GroupTest, AnEntityOfAnotherKindIsNotFound) {
  store->addEntity("s", "subnet", 7);
  for (const Kind& kind : kKinds) {
    EXPECT_THAT(some(kind, {"s"}), IsEmpty());
    EXPECT_TRUE(status.isOK()) << kind.name << status.getAuxMsg();
    EXPECT_THAT(notFound, ElementsAre(ObjID("s")));
  }
}

TEST_P(GroupTest, AFailedReadGivesWhatTheCacheHas) {
  for (const Kind& kind : kKinds) {
    SCOPED_TRACE(kind.name);
    add(kind, {"a", "b"});
    some(kind, {"a"});
    StatementSpy spy;
    spy.fail(StatementSpy::Exec, kind.table);
    EXPECT_THAT(some(kind, {"a", "b"}), ElementsAre("a"));
    EXPECT_EQ(status.getStatus(), ZN_API_SQL_EXEC_ERROR);
    EXPECT_EQ(all(kind), Texts());
    EXPECT_EQ(status.getStatus(), ZN_API_SQL_EXEC_ERROR);
    EXPECT_FALSE(isAllCached(kind));
    spy.succeed();
    store->execute("delete from nwentity");
  }
}

TEST_P(GroupTest, ManyIdentifiersGoIntoOneStatementOnEntities) {
  std::set<ObjID> ids;
  for (int i = 1; i <= 60; ++i) {
    addHSRP(*store, uuid(i), {});
    ids.insert(ObjID(uuid(i)));
  }
  const StatementSpy spy;
  EXPECT_THAT(some(kKinds[2], ids), SizeIs(60));
  EXPECT_THAT(spy.statements(), SizeIs(2));
}

}  // namespace
}  // namespace zntopo::test
