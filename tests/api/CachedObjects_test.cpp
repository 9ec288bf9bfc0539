#include "zntopo/api/detail/CachedObjects.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <vector>

#include "tests/support/CapturedLog.h"
#include "zntopo/model/ZNIfc.h"

namespace zntopo::test {
namespace {

using testing::ElementsAre;

constexpr detail::CachedKind<ZNIfc> kSilent = {.inCache = &ZNTopoCache::inIfcObjIDCache,
                                               .use = &ZNTopoCache::useIfc};
constexpr detail::CachedKind<ZNIfc> kTellsHits = {.inCache = &ZNTopoCache::inIfcObjIDCache,
                                                  .use = &ZNTopoCache::useIfc,
                                                  .foundLine = "FOUND %s\n"};
constexpr detail::CachedKind<ZNIfc> kTellsMisses = {.inCache = &ZNTopoCache::inIfcObjIDCache,
                                                    .use = &ZNTopoCache::useIfc,
                                                    .missedLine = "NOT FOUND %s\n"};
constexpr detail::CachedKind<ZNIfc> kCountsNull = {
    .inCache = &ZNTopoCache::inIfcObjIDCache, .use = &ZNTopoCache::useIfc, .countsNull = true};

class CachedObjectsTest : public testing::Test {
 protected:
  CachedObjectsTest() {
    for (const char* id : {"a", "b", "c"}) cache.useIfc(container(id));
  }

  static ZNRefPtr<ZNIfc> container(const ObjID& id) {
    return new ZNIfc(ZNEntity(id, "", ObjID(), "", "", E_IfC, ObjectStatus(), ObjectStatus(),
                              ObjectStatus(), ObjectStatus(), 0, 0, 0, 0, ZNEntity::IPv4,
                              ActiveDB));
  }

  std::vector<std::string> linesOf(const detail::CachedKind<ZNIfc>& kind) {
    const CapturedLog log(MC_INFO);
    std::list<ZNRefPtr<ZNIfc>> found;
    detail::takeCached(cache, kind, std::list<ObjID>{"a", "x"}, found);
    std::vector<std::string> lines;
    for (const std::string& line : log.lines()) {
      if (line.find("FOUND") != std::string::npos) lines.push_back(line);
    }
    return lines;
  }

  ZNTopoCache cache;
};

TEST_F(CachedObjectsTest, HitsAreAppendedAndMissesComeBackInTheirOrder) {
  std::vector<ZNRefPtr<ZNIfc>> found = {container("before")};
  const std::list<ObjID> ids = {"x", "c", "x", "a", "c", "d"};
  EXPECT_THAT(detail::takeCached(cache, kSilent, ids, found),
              ElementsAre(ObjID("x"), ObjID("x"), ObjID("d")));
  std::vector<ObjID> foundIDs;
  for (const auto& each : found) foundIDs.push_back(each->getObjID());
  EXPECT_THAT(foundIDs, ElementsAre(ObjID("before"), ObjID("c"), ObjID("a"), ObjID("c")));
}

TEST_F(CachedObjectsTest, TheNullIdentifierIsPassedOverUnlessItCounts) {
  std::list<ZNRefPtr<ZNIfc>> found;
  const std::list<ObjID> ids = {ObjID(), "x"};
  EXPECT_THAT(detail::takeCached(cache, kSilent, ids, found), ElementsAre(ObjID("x")));
  EXPECT_THAT(detail::takeCached(cache, kCountsNull, ids, found), ElementsAre(ObjID(), ObjID("x")));
  EXPECT_TRUE(found.empty());
}

TEST_F(CachedObjectsTest, AHitCountsAsAUse) {
  ZNTopoConfig config;
  config.setEnableFIFOCacheSwap(true);
  config.setIfcCacheSize(3);
  cache.setTopoConfig(config);
  for (const char* id : {"a", "b", "c"}) cache.useIfc(container(id));
  std::list<ZNRefPtr<ZNIfc>> found;
  detail::takeCached(cache, kSilent, std::list<ObjID>{"a"}, found);
  cache.useIfc(container("d"));
  EXPECT_THAT(detail::takeCached(cache, kSilent, std::list<ObjID>{"a", "b"}, found),
              ElementsAre(ObjID("b")));
}

TEST_F(CachedObjectsTest, AMissLeavesTheHandleAsItIs) {
  const ZNRefPtr<ZNIfc> before = container("before");
  ZNRefPtr<ZNIfc> found = before;
  EXPECT_FALSE(detail::useCached(cache, kSilent, ObjID("x"), found));
  EXPECT_EQ(found.getObjectPointer(), before.getObjectPointer());
  EXPECT_TRUE(detail::useCached(cache, kSilent, ObjID("a"), found));
  EXPECT_EQ(found->getObjID(), ObjID("a"));
}

TEST_F(CachedObjectsTest, AKindTellsOfHitsOfMissesOrOfNothing) {
  EXPECT_TRUE(linesOf(kSilent).empty());
  EXPECT_THAT(linesOf(kTellsHits), ElementsAre("FOUND a\n"));
  EXPECT_THAT(linesOf(kTellsMisses), ElementsAre("NOT FOUND x\n"));
}

}  // namespace
}  // namespace zntopo::test
