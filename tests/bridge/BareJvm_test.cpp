// The bridge in a JVM that has no class library at all.
#include <gmock/gmock.h>

#include "tests/support/CapturedLog.h"
#include "tests/support/Jvm.h"
#include "tests/support/StoredNetwork.h"
#include "zntopo/bridge/detail/Builders.h"
#include "zntopo/bridge/detail/NativeFrame.h"

extern "C" jobject JNICALL Java_com_corvane_tv_zntopology_ZorbNative_getNativeTopoInfo(JNIEnv*,
                                                                                       jobject,
                                                                                       jobject);

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
  const LocalRef<jthrowable> raised(jni, jni->ExceptionOccurred());
  jni->ExceptionClear();
  EXPECT_EQ(shown(raised.get()),
            "java.lang.IllegalStateException: Could not find ZorbTopoInfo class");
}

}  // namespace
}  // namespace zntopo::test
