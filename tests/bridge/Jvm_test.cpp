#include "tests/support/Jvm.h"

namespace zntopo::test {
namespace {

/// What would fail a test: the complaints are taken away before it ends.
class ComplaintTest : public JvmTest {
 protected:
  static bool isComplainedOf() {
    const std::string output = testing::internal::GetCapturedStdout();
    testing::internal::CaptureStdout();
    return hasComplaint(output);
  }
};

TEST_F(ComplaintTest, ACallWhileAnExceptionIsPendingIsComplainedOf) {
  const bridge::LocalRef<jstring> text = env.text("x");
  EXPECT_FALSE(isComplainedOf());
  jni->ThrowNew(jni->FindClass("java/lang/IllegalStateException"), "pending");
  jni->GetStringLength(text.get());
  jni->ExceptionClear();
  EXPECT_TRUE(isComplainedOf());
}

TEST_F(ComplaintTest, LocalReferencesThatPileUpAreComplainedOf) {
  for (int i = 0; i < 1000; ++i) env.text("given back");
  EXPECT_FALSE(isComplainedOf());
  for (int i = 0; i < 1000; ++i) env.text("kept").release();
  EXPECT_TRUE(isComplainedOf());
}

}  // namespace
}  // namespace zntopo::test
