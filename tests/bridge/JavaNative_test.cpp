#include "zntopo/platform/tvutil/JavaNative.h"

#include "tests/support/Jvm.h"

namespace zntopo::test {
namespace {

class JavaNativeTest : public JvmTest {
 protected:
  jfieldID fieldOf(jobject object, const char* name, const char* descriptor) {
    return jni->GetFieldID(jni->GetObjectClass(object), name, descriptor);
  }
};

TEST_F(JavaNativeTest, FieldsAreSetByTheirNames) {
  jobject const info = make("ZorbTopoInfo");
  EXPECT_EQ(javaNativeSetInstanceLongOrDeleteAndException(jni, "I", info, "myNumNode", 1LL << 40),
            0);
  EXPECT_EQ(jni->GetLongField(info, fieldOf(info, "myNumNode", "J")), 1LL << 40);
  EXPECT_EQ(javaNativeSetInstanceStringNoCodesetOrDeleteAndException(jni, "I", info,
                                                                     "topologyState", "é"),
            0);
  EXPECT_EQ(shown(jni->GetObjectField(info, fieldOf(info, "topologyState", "Ljava/lang/String;"))),
            "é");
  jobject const configuration = make("TopologyConfiguration");
  EXPECT_EQ(javaNativeSetInstanceBooleanOrDeleteAndException(jni, "C", configuration,
                                                             "enableTopoCache", false),
            0);
  EXPECT_FALSE(jni->GetBooleanField(configuration, fieldOf(configuration, "enableTopoCache", "Z")));
}

TEST_F(JavaNativeTest, ArraysAreSetByTheirNames) {
  jobject const info = make("ZorbTopoInfo");
  const char* const names[] = {"1", "é"};
  const int counts[] = {24, -1};
  EXPECT_EQ(javaNativeSetInstanceStringArray(jni, info, "myRDCountName", names, 2), 0);
  EXPECT_EQ(javaNativeSetInstanceIntArray(jni, info, "myRDCount", counts, 2), 0);
  auto* const texts = static_cast<jobjectArray>(
      jni->GetObjectField(info, fieldOf(info, "myRDCountName", "[Ljava/lang/String;")));
  ASSERT_EQ(jni->GetArrayLength(texts), 2);
  EXPECT_EQ(shown(jni->GetObjectArrayElement(texts, 1)), "é");
  auto* const numbers =
      static_cast<jintArray>(jni->GetObjectField(info, fieldOf(info, "myRDCount", "[I")));
  jint values[2] = {};
  jni->GetIntArrayRegion(numbers, 0, 2, values);
  EXPECT_EQ(values[0], 24);
  EXPECT_EQ(values[1], -1);
}

TEST_F(JavaNativeTest, EmptyArraysAreArrays) {
  jobject const info = make("ZorbTopoInfo");
  EXPECT_EQ(javaNativeSetInstanceStringArray(jni, info, "myRDCountName", nullptr, 0), 0);
  EXPECT_EQ(javaNativeSetInstanceIntArray(jni, info, "myRDCount", nullptr, 0), 0);
  EXPECT_NE(jni->GetObjectField(info, fieldOf(info, "myRDCount", "[I")), nullptr);
}

TEST_F(JavaNativeTest, AFieldThatIsNotThereIsAnExceptionThatNamesItAndTheClass) {
  EXPECT_NE(
      javaNativeSetInstanceLongOrDeleteAndException(jni, "Info", make("ZorbTopoInfo"), "none", 1),
      0);
  EXPECT_EQ(raised(), "java.lang.IllegalStateException: Could not set the field none of Info");
  EXPECT_NE(javaNativeSetInstanceBooleanOrDeleteAndException(jni, "Info", make("ZorbTopoInfo"),
                                                             "myNumNode", true),
            0);
  EXPECT_EQ(raised(), "java.lang.IllegalStateException: Could not set the field myNumNode of Info");
  EXPECT_NE(javaNativeSetInstanceStringNoCodesetOrDeleteAndException(jni, "Info", nullptr,
                                                                     "topologyState", "x"),
            0);
  EXPECT_EQ(raised(),
            "java.lang.IllegalStateException: Could not set the field topologyState of Info");
}

TEST_F(JavaNativeTest, AnArrayFieldThatIsNotThereIsAnErrorWithoutAnException) {
  EXPECT_EQ(javaNativeSetInstanceStringArray(jni, make("ZorbTopoInfo"), "none", nullptr, 0), -1);
  EXPECT_EQ(javaNativeSetInstanceIntArray(jni, nullptr, "myRDCount", nullptr, 0), -1);
  EXPECT_FALSE(jni->ExceptionCheck());
}

TEST_F(JavaNativeTest, AnExceptionThatIsPendingStays) {
  javaNativeThrowIllegalStateException(jni, "first");
  javaNativeThrowIllegalStateException(jni, "second");
  EXPECT_EQ(raised(), "java.lang.IllegalStateException: first");
}

}  // namespace
}  // namespace zntopo::test
