#include "zntopo/platform/tv/MS_Uuid.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <set>
#include <string>

namespace {

std::string textOf(const MS_Uuid& uuid) {
  char buffer[MS_Uuid::kTextSize];
  EXPECT_EQ(uuid.as_asciiz(buffer), buffer);
  EXPECT_EQ(std::strlen(buffer), MS_Uuid::kTextSize - 1);
  return buffer;
}

std::string roundTrip(const char* text) { return textOf(MS_Uuid(text)); }

}  // namespace

TEST(MS_UuidTest, IsSixteenBytes) { EXPECT_EQ(sizeof(MS_Uuid), 16U); }

TEST(MS_UuidTest, TheDefaultIsAllZero) {
  EXPECT_EQ(textOf(MS_Uuid()), "00000000-0000-0000-0000-000000000000");
}

TEST(MS_UuidTest, TextComesBackInLowerCase) {
  EXPECT_EQ(roundTrip("01234567-89ab-cdef-0123-456789abcdef"),
            "01234567-89ab-cdef-0123-456789abcdef");
  EXPECT_EQ(roundTrip("FEDCBA98-7654-3210-FEDC-BA9876543210"),
            "fedcba98-7654-3210-fedc-ba9876543210");
}

TEST(MS_UuidTest, WhatStandsAtTheDashesIsPassedOver) {
  EXPECT_EQ(roundTrip("01234567x89abxcdefx0123x456789abcdef"),
            "01234567-89ab-cdef-0123-456789abcdef");
}

TEST(MS_UuidTest, ACharacterThatIsNoDigitCountsAsZero) {
  EXPECT_EQ(roundTrip("g1234567-89ab-cdef-0123-456789abcde\xFF"),
            "01234567-89ab-cdef-0123-456789abcde0");
}

TEST(MS_UuidTest, ATextThatEndsEarlyHasZerosBehindIt) {
  EXPECT_EQ(roundTrip("12"), "12000000-0000-0000-0000-000000000000");
  EXPECT_EQ(roundTrip("12345678"), "12345678-0000-0000-0000-000000000000");
  EXPECT_EQ(roundTrip(""), "00000000-0000-0000-0000-000000000000");
  EXPECT_EQ(roundTrip(nullptr), "00000000-0000-0000-0000-000000000000");
}

TEST(MS_UuidTest, EqualityAndOrderFollowTheText) {
  const char* const texts[] = {
      "00000000-0000-0000-0000-000000000001", "00000000-0000-0000-8000-000000000000",
      "00000000-0000-0001-0000-000000000000", "7fffffff-0000-0000-0000-000000000000",
      "80000000-0000-0000-0000-000000000000", "ffffffff-ffff-ffff-ffff-ffffffffffff"};
  for (const char* left : texts) {
    for (const char* right : texts) {
      EXPECT_EQ(MS_Uuid(left) == MS_Uuid(right), std::strcmp(left, right) == 0);
      EXPECT_EQ(MS_Uuid(left) < MS_Uuid(right), std::strcmp(left, right) < 0);
    }
  }
}

TEST(MS_UuidTest, EqualValuesHashAlikeAndOneDigitMakesAnotherHash) {
  const std::string text = "01234567-89ab-cdef-0123-456789abcdef";
  std::set<unsigned long> hashes{MS_Uuid(text.c_str()).hash()};
  EXPECT_EQ(MS_Uuid("01234567-89AB-CDEF-0123-456789ABCDEF").hash(), *hashes.begin());
  std::size_t changed = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '-') continue;
    std::string other = text;
    other[i] = text[i] == '0' ? '1' : '0';
    hashes.insert(MS_Uuid(other.c_str()).hash());
    ++changed;
  }
  EXPECT_EQ(hashes.size(), changed + 1);
}
