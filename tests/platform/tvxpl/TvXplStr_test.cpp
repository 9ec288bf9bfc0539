#include "zntopo/platform/tvxpl/TvXplStr.h"

#include <gtest/gtest.h>

#include <random>

#include "zntopo/platform/tvxpl/Utf8.h"

namespace {

struct Pair {
  const char* narrow;
  const char16_t* wide;
};

constexpr Pair kPairs[] = {
    {"", u""},
    {"plain", u"plain"},
    {"\xC2\x80\xDF\xBF", u"\u0080\u07FF"},
    {"\xE0\xA0\x80\xEF\xBF\xBF", u"\u0800\uFFFF"},
    {"\xF0\x90\x80\x80\xF4\x8F\xBF\xBF", u"\U00010000\U0010FFFF"},
};

}  // namespace

TEST(TvXplStrTest, WideAndNarrowTextsComeFromEachOther) {
  for (const Pair& pair : kPairs) {
    EXPECT_EQ(TvXplStr::widen(pair.narrow), pair.wide);
    EXPECT_EQ(TvXplStr::narrow(pair.wide), pair.narrow);
  }
}

TEST(TvXplStrTest, EveryCharacterGoesBothWays) {
  for (char32_t c = 1; c <= 0x10FFFF; c += c < 0x3000 ? 1 : 97) {
    if (c >= 0xD800 && c < 0xE000) continue;
    std::u16string wide;
    if (c < 0x10000) {
      wide = {static_cast<char16_t>(c)};
    } else {
      wide = {static_cast<char16_t>(0xD7C0 + (c >> 10)),
              static_cast<char16_t>(0xDC00 + (c & 0x3FF))};
    }
    const std::string narrow = TvXplStr::narrow(wide);
    ASSERT_TRUE(TvXplStr::isUtf8(narrow)) << static_cast<unsigned>(c);
    ASSERT_EQ(TvXplStr::widen(narrow), wide) << static_cast<unsigned>(c);
  }
}

TEST(TvXplStrTest, WhatIsMalformedBecomesTheReplacementCharacter) {
  EXPECT_EQ(TvXplStr::widen("a\xFF\xC3z"), u"a\uFFFD\uFFFDz");
  const char16_t halves[] = {u'a', 0xDC00, u'b', 0xD800, u'c', 0xD801, 0};
  EXPECT_EQ(TvXplStr::narrow(halves),
            "a\xEF\xBF\xBD"
            "b\xEF\xBF\xBD"
            "c\xEF\xBF\xBD");
}

TEST(TvXplStrTest, AnyBytesGiveAText) {
  std::mt19937 random(1);
  for (int i = 0; i < 2000; ++i) {
    std::string bytes(random() % 12, '\0');
    for (char& byte : bytes) byte = static_cast<char>(random());
    ASSERT_TRUE(TvXplStr::isUtf8(TvXplStr::narrow(TvXplStr::widen(bytes))));
  }
}

TEST(TvXplStrTest, AWideTextIsComparedWithOneThatWasNarrow) {
  const TvXplStr::String_t text("n\xC3\xA4me");
  EXPECT_TRUE(u"n\u00E4me" == text);
  EXPECT_TRUE(u"name" != text);
  EXPECT_FALSE(static_cast<const char16_t*>(nullptr) == text);
  EXPECT_FALSE(static_cast<const char16_t*>(nullptr) == TvXplStr::String_t(""));
}

TEST(TvXplStrTest, ANarrowTextIsAnArrayOfItsOwn) {
  const TvXplStr::MBS_t text(u"\u20AC");
  EXPECT_STREQ(text, "\xE2\x82\xAC");
  const TvXplArray::CharArray_t array = text.GetArray();
  EXPECT_EQ(array.GetLength(), 3U);
  EXPECT_STREQ(array.GetData(), "\xE2\x82\xAC");
  EXPECT_STREQ(TvXplStr::MBS_t(nullptr), "");
  EXPECT_EQ(TvXplStr::narrowed(nullptr), "");
}
