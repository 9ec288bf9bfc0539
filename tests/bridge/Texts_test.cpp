#include "tests/support/Jvm.h"

namespace zntopo::test {
namespace {

class JavaTextTest : public JvmTest {
 protected:
  std::string thereAndBack(const std::string& text) {
    const bridge::LocalRef<jstring> wide(jni, newJavaText(jni, text));
    return nativeText(jni, wide.get());
  }
};

TEST_F(JavaTextTest, TextsOfAllCharactersComeBackAsTheyWent) {
  for (const std::string& text :
       {std::string(), std::string("plain"), std::string("é€"), std::string("\xF0\x9F\x8C\x8A"),
        std::string("a\0b", 3), std::string(100000, 'x')}) {
    EXPECT_EQ(thereAndBack(text), text);
  }
}

TEST_F(JavaTextTest, ACharacterBeyondTheBasicPlaneIsAPair) {
  const bridge::LocalRef<jstring> text(jni, newJavaText(jni, "\xF0\x9F\x8C\x8A"));
  EXPECT_EQ(jni->GetStringLength(text.get()), 2);
}

TEST_F(JavaTextTest, WhatIsNotUtf8IsReplaced) {
  EXPECT_EQ(thereAndBack("a\xFF"
                         "b"),
            "a\xEF\xBF\xBD"
            "b");
  EXPECT_EQ(thereAndBack("\xF0\x9F\x8C"), "\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD");
}

TEST_F(JavaTextTest, HalfOfAPairIsReplaced) {
  const jchar half[] = {'a', 0xD83C, 'b'};
  const bridge::LocalRef<jstring> text(jni, jni->NewString(half, 3));
  EXPECT_EQ(nativeText(jni, text.get()),
            "a\xEF\xBF\xBD"
            "b");
}

TEST_F(JavaTextTest, NullIsAnEmptyText) { EXPECT_EQ(nativeText(jni, nullptr), ""); }

}  // namespace
}  // namespace zntopo::test
