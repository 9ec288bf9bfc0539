#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <vector>

#include "zntopo/platform/tvsnmp/TvSnmp.h"

namespace {

const TVsnmpArc kOid[] = {1, 3, 6, 1, 4, 60001101};

TEST(OidTest, IsWrittenWithADotBeforeEachArc) {
  char buffer[64];
  EXPECT_STREQ(TVsnmpOidToStr(kOid, 6, buffer, sizeof buffer), ".1.3.6.1.4.60001101");
}

TEST(OidTest, IsCutToTheBuffer) {
  char buffer[] = "xxxxxxxx";
  EXPECT_STREQ(TVsnmpOidToStr(kOid, 6, buffer, 6), ".1.3.");
  EXPECT_EQ(std::string(buffer + 6), "xx");
  EXPECT_STREQ(TVsnmpOidToStr(kOid, 6, buffer, 1), "");
}

TEST(OidTest, OfNothingIsEmpty) {
  char buffer[8] = "x";
  EXPECT_STREQ(TVsnmpOidToStr(nullptr, 0, buffer, sizeof buffer), "");
  EXPECT_STREQ(TVsnmpOidToStr(nullptr, 5, buffer, sizeof buffer), "");
  EXPECT_STREQ(TVsnmpOidToStr(kOid, -1, buffer, sizeof buffer), "");
}

TEST(OidTest, WithoutABufferNothingIsWritten) {
  char buffer[] = "x";
  EXPECT_EQ(TVsnmpOidToStr(kOid, 6, nullptr, 10), nullptr);
  EXPECT_EQ(TVsnmpOidToStr(kOid, 6, buffer, 0), nullptr);
  EXPECT_STREQ(buffer, "x");
}

TEST(OidTest, ComparesArcByArcAndThenByLength) {
  const TVsnmpArc other[] = {1, 3, 6, 1, 5};
  EXPECT_EQ(TVsnmpOidCompare(kOid, 6, kOid, 6), 0);
  EXPECT_LT(TVsnmpOidCompare(kOid, 5, kOid, 6), 0);
  EXPECT_GT(TVsnmpOidCompare(kOid, 6, kOid, 5), 0);
  EXPECT_LT(TVsnmpOidCompare(kOid, 6, other, 5), 0);
  EXPECT_EQ(TVsnmpOidCompare(nullptr, 0, nullptr, 0), 0);
  EXPECT_LT(TVsnmpOidCompare(nullptr, 0, kOid, 1), 0);
}

TEST(ErrorTextTest, EveryNumberHasOne) {
  EXPECT_STREQ(TVsnmpErrString(0), "no error");
  EXPECT_STREQ(TVsnmpErrString(10), "the event broker was lost");
  EXPECT_STREQ(TVsnmpErrString(-1), "unknown error");
  EXPECT_STREQ(TVsnmpErrString(std::numeric_limits<int>::max()), "unknown error");
}

}  // namespace
