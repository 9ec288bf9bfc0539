// The bridge in a JVM that has no class library at all.
#include <com_corvane_tv_zntopology_ZorbNative.h>
#include <gmock/gmock.h>

#include "tests/support/CapturedLog.h"
#include "tests/support/Jvm.h"
#include "tests/support/StoredNetwork.h"
#include "zntopo/bridge/detail/Builders.h"
#include "zntopo/bridge/detail/NativeFrame.h"

namespace zntopo::test {
namespace {

using namespace zntopo::bridge;
using Lines = std::vector<std::string>;

class BareJvmTest : public JvmTest {
 protected:
  const CapturedLog log{MC_MINOR};
};

TEST_F(BareJvmTest, WithoutTheStatusClassTheNativeGoesOn) {
  setStatus(env, nullptr, {ZN_API_NO_PATH, ""});
  EXPECT_EQ(log.lines(), Lines{"Unable to access ZorbTopoStatus class in setStatus() \n"});
  EXPECT_FALSE(env.isStopped());
}

TEST_F(BareJvmTest, WithoutTheCacheClassNoKindIsMade) {
  EXPECT_FALSE(createNodeNative(env, madeNode("n1"), nullptr));
  EXPECT_FALSE(createInterfaceNative(env, madeInterface("i1", "n1"), nullptr));
  EXPECT_EQ(log.lines(), (Lines{"createNode: Unable to find ZorbTopoCache class! \n",
                                "createInterface: Unable to find ZorbTopoCache class! \n"}));
}

TEST_F(BareJvmTest, WithoutTheClassOfIdentifiersNoneIsMadeAndNoneIsRead) {
  EXPECT_FALSE(createID(env, ObjID("x")));
  ObjID id;
  EXPECT_FALSE(readObjID(env, nullptr, "getEntityNativeByObjID", id));
  EXPECT_EQ(log.lines(), (Lines{"Unable to access ObjID in createID! \n",
                                "Unable to access ObjID class in getEntityNativeByObjID() \n"}));
}

TEST_F(BareJvmTest, WithoutTheClassOfIdentifiersNothingIsChangedInTheCache) {
  Java_com_corvane_tv_zntopology_ZorbNative_updateCacheObjectStatusNative(
      jni, nullptr, nullptr, 0, E_Node, 1, 0, 5, nullptr, 0);
  Java_com_corvane_tv_zntopology_ZorbNative_updateCacheObjectAttributeNative(
      jni, nullptr, nullptr, E_Node, 5, 1, nullptr, nullptr);
  const std::string line = "Unable to access ObjID class in refeshEntityNative() \n";
  EXPECT_EQ(log.lines(), (Lines{line, line}));
}

TEST_F(BareJvmTest, WithoutTheClassOfFiltersNothingIsFiltered) {
  ZNTopoFilter filter;
  EXPECT_TRUE(populateFilter(env, nullptr, filter));
  EXPECT_EQ(log.lines(), Lines{"Unable to access TopoFilter! \n"});
}

TEST_F(BareJvmTest, CollectionsOfJavaAreThere) {
  EXPECT_EQ(shown(createTextList(env, {"a", "b"})), "[a, b]");
  EXPECT_EQ(shown(createObjIDSet(env, {ObjID("x")})), "[]");
  EXPECT_EQ(log.lines(), (Lines{"Unable to access ObjID in createID! \n",
                                "Failed to create ObjID in createObjIDSet \n"}));
}

TEST_F(BareJvmTest, TheSizeRaisesAnExceptionWithoutItsClass) {
  EXPECT_EQ(Java_com_corvane_tv_zntopology_ZorbNative_getNativeTopoInfo(jni, nullptr, nullptr),
            nullptr);
  EXPECT_EQ(raised(), "java.lang.IllegalStateException: Could not find ZorbTopoInfo class");
}

}  // namespace
}  // namespace zntopo::test
