// Natives and builders while memory runs out.
#include <com_corvane_tv_zntopology_ZorbNative.h>
#include <gmock/gmock.h>

#include "tests/support/Allocations.h"
#include "tests/support/CapturedLog.h"
#include "tests/support/Jvm.h"
#include "tests/support/StoredNetwork.h"
#include "zntopo/bridge/detail/NativeFrame.h"

namespace zntopo::test {
namespace {

using namespace zntopo::bridge;
using testing::Contains;
using testing::HasSubstr;

class ShortMemoryTest : public JvmTest {
 protected:
  jobject const status = make("ZorbTopoStatus");
};

TEST_F(ShortMemoryTest, ANativeThatCantGoOnIsNullAndItsStatusTells) {
  setStatus(env, status, {});
  const CapturedLog log(MC_CRITICAL);
  EXPECT_EQ(
      runNative(jni, "getVlans", status, [](JavaEnv&) -> LocalRef<> { throw std::bad_alloc(); }),
      nullptr);
  EXPECT_THAT(shown(status), testing::StartsWith("26 "));
  EXPECT_THAT(shown(status), HasSubstr("getVlans() ended early: std::bad_alloc"));
  EXPECT_THAT(log.lines(), Contains("getVlans() ended for want of something: std::bad_alloc \n"));
  runNative(jni, "clearNativeCache", [](JavaEnv&) { throw std::bad_alloc(); });
  EXPECT_FALSE(jni->ExceptionCheck());
}

TEST_F(ShortMemoryTest, WhereverMemoryRunsOutTheAnswerIsNullWithAFailure) {
  const ZNRefPtr<ZNNode> node = madeNode("n1", {record("i1", "n1", "i2", "n2")}, 3);
  // The log is made once, and does without a line if it can't be.
  MCLog::log(MC_CRITICAL, "memory runs out");
  unsigned long others = 0;
  for (bool hasFailed = true; hasFailed; ++others) {
    LocalRef<> answer;
    {
      const FailingAllocation failing(others);
      answer = {jni, runNative(jni, "getNodeNativeByObjID", status, [&](JavaEnv& inner) {
                  setStatus(inner, status, {});
                  return createNodeNative(inner, node, nullptr);
                })};
      hasFailed = failing.hasFailed();
    }
    EXPECT_EQ(static_cast<bool>(answer), !hasFailed) << others;
    EXPECT_EQ(shown(status).substr(0, 2), hasFailed ? "26" : "0 ") << others;
    ASSERT_FALSE(jni->ExceptionCheck()) << others;
  }
  EXPECT_GT(others, 20U);
}

TEST_F(ShortMemoryTest, ANativeForWhichNoMemoryIsLeftFails) {
  LocalRef<> answer;
  {
    const FailingAllocation failing(0, FailingAllocation::Fails::AllFromThen);
    answer = {jni, runNative(jni, "getVlans", status, [&](JavaEnv& inner) -> LocalRef<> {
                setStatus(inner, status, {});
                throw std::bad_alloc();
              })};
  }
  EXPECT_FALSE(answer);
  EXPECT_THAT(shown(status), testing::StartsWith("26 "));
}

TEST_F(ShortMemoryTest, CountsThatDoNotFitIntoMemoryLeaveNothing) {
  const std::map<std::string, int> map{{"1", 24}, {"2", 3}};
  for (const unsigned long kept : {0UL, 1UL}) {
    char* none[] = {nullptr};
    int zero = 0;
    char** names = none;
    int* counts = &zero;
    const FailingAllocation failing(kept);
    EXPECT_THROW(createNameCountArrayFromMap(map, &names, &counts), std::bad_alloc);
    EXPECT_EQ(names, nullptr);
    EXPECT_EQ(counts, nullptr);
  }
}

}  // namespace
}  // namespace zntopo::test
