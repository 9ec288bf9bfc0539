#include "zntopo/platform/tvxpl/Utf8.h"

#include <gtest/gtest.h>

namespace TvXplStr {
namespace {

TEST(Utf8Test, WellFormedTextIsAccepted) {
  EXPECT_TRUE(isUtf8(""));
  EXPECT_TRUE(isUtf8("plain"));
  EXPECT_TRUE(
      isUtf8("\x7F \xC2\x80 \xDF\xBF \xE0\xA0\x80 \xED\x9F\xBF \xEE\x80\x80 \xEF\xBF\xBF "
             "\xF0\x90\x80\x80 \xF4\x8F\xBF\xBF"));
}

TEST(Utf8Test, MalformedTextIsRefused) {
  for (const char* text : {"\x80", "\xBF", "\xC0\x80", "\xC1\xBF", "\xC3", "\xC3(", "\xE2\x82",
                           "\xE2(\xAC", "\xE0\x9F\xBF", "\xED\xA0\x80", "\xF0\x8F\xBF\xBF",
                           "\xF4\x90\x80\x80", "\xF5\x80\x80\x80", "\xFF", "ok \xFE"}) {
    EXPECT_FALSE(isUtf8(text)) << testing::PrintToString(text);
  }
}

}  // namespace
}  // namespace TvXplStr
