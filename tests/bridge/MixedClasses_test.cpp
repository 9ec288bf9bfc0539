// Natives in a JVM whose class library is whole but for a few classes, which lack a method or a
// field.
#include <com_corvane_tv_zntopology_ZorbNative.h>
#include <gmock/gmock.h>

#include "tests/support/CapturedLog.h"
#include "tests/support/Jvm.h"
#include "tests/support/StoredNetwork.h"
#include "zntopo/api/ZNTopoAPI_Impl.h"
#include "zntopo/bridge/detail/NativeFrame.h"

namespace zntopo::test {
namespace {

using namespace zntopo::bridge;
using Lines = std::vector<std::string>;

class MixedClassesTest : public JvmTest {
 protected:
  jobject const status = make("ZorbTopoStatus");
};

TEST_F(MixedClassesTest, AFilterWithoutItsMethodsSetsNothing) {
  const CapturedLog log(MC_MINOR);
  ZNTopoFilter filter;
  EXPECT_TRUE(populateFilter(env, make("TopoFilter"), filter));
  EXPECT_TRUE(filter.isFieldIgnored(ZNTopoFilter::F_IPLevel));
  EXPECT_EQ(log.lines(), Lines{"Unable to access TopoFilter Methods in populateTopoFilter()! \n"});
}

TEST_F(MixedClassesTest, ANodeThatThrowsIsNullAndStaysOutOfTheCache) {
  jobject const cache = make("ZorbTopoCache");
  const CapturedLog log(MC_MAJOR);
  EXPECT_FALSE(createNodeNative(env, madeNode("n1"), cache));
  EXPECT_EQ(raised(), "java.lang.IllegalArgumentException: node");
  EXPECT_EQ(log.lines(), Lines{"Could not create Node! \n"});
  EXPECT_FALSE(env.call<M_hasNodeID>(cache, env.text("n1")));
}

TEST_F(MixedClassesTest, ASizeWithoutAFieldEndsInAStatusAndTheExceptionOfTheField) {
  TestStore store;
  store.setReady();
  ZNTopoAPI_Impl::cache()->clear(true);
  EXPECT_EQ(Java_com_corvane_tv_zntopology_ZorbNative_getNativeTopoInfo(jni, nullptr, status),
            nullptr);
  EXPECT_EQ(raised(),
            "java.lang.IllegalStateException: Could not set the field myNumNode of ZorbTopoInfo");
  EXPECT_EQ(shown(status),
            "22 Java Native Interface layer error: doSetTopoInfoLong() fail for myNumNode");
}

}  // namespace
}  // namespace zntopo::test
