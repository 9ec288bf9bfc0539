#include "zntopo/platform/tvdbil/detail/BoundColumn.h"

#include <gtest/gtest.h>

#include <cfloat>
#include <climits>
#include <cmath>
#include <limits>
#include <string>

namespace TvDbil::detail {
namespace {

class BoundColumnTest : public testing::Test {
 protected:
  int number_ = 4711;
  float real_ = 47.11f;
  char text_[8] = "#######";
  int indicator_ = 99;
  BoundColumn asInt_{BoundColumn::Int, &number_, 0, &indicator_};
  BoundColumn asFloat_{BoundColumn::Float, &real_, 0, &indicator_};
  BoundColumn asText_{BoundColumn::Text, text_, sizeof text_, &indicator_};
};

TEST_F(BoundColumnTest, NumbersInTextsAreReadFromTheirBeginning) {
  const struct {
    const char* text;
    int number;
    DbilReturnCode code;
  } cases[] = {
      {"42", 42, DBIL_SUCCESS},
      {" -42", -42, DBIL_SUCCESS},
      {"+42", 42, DBIL_SUCCESS},
      {"2.9", 2, DBIL_SUCCESS},
      {"-2.9e1", -29, DBIL_SUCCESS},
      {"42abc", 42, DBIL_SUCCESS_WITH_INFO},
      {"abc", 0, DBIL_SUCCESS_WITH_INFO},
      {"", 0, DBIL_SUCCESS_WITH_INFO},
      {"   ", 0, DBIL_SUCCESS_WITH_INFO},
      {"NaN", 0, DBIL_SUCCESS},
      {"2147483648", INT_MAX, DBIL_SUCCESS_WITH_INFO},
      {"99999999999999999999999", INT_MAX, DBIL_SUCCESS_WITH_INFO},
      {"-99999999999999999999999", INT_MIN, DBIL_SUCCESS_WITH_INFO},
      {"1e999", INT_MAX, DBIL_SUCCESS_WITH_INFO},
      {"-1e999", INT_MIN, DBIL_SUCCESS_WITH_INFO},
      {"1e-999", 0, DBIL_SUCCESS_WITH_INFO},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(storeText(asInt_, c.text), c.code) << c.text;
    EXPECT_EQ(number_, c.number) << c.text;
    EXPECT_EQ(indicator_, 4) << c.text;
  }
}

TEST_F(BoundColumnTest, ANumberBeyondADoubleIsLargeOrSmallByItsValueNotByItsExponent) {
  const std::string tiny = "0." + std::string(400, '0') + "1";
  EXPECT_EQ(storeText(asInt_, tiny), DBIL_SUCCESS_WITH_INFO);
  EXPECT_EQ(number_, 0);
  EXPECT_EQ(storeText(asFloat_, "-" + tiny), DBIL_SUCCESS_WITH_INFO);
  EXPECT_EQ(real_, 0.0f);
  const std::string huge = std::string(400, '9') + "e-5";
  EXPECT_EQ(storeText(asInt_, huge), DBIL_SUCCESS_WITH_INFO);
  EXPECT_EQ(number_, INT_MAX);
  EXPECT_EQ(storeText(asFloat_, "-" + huge), DBIL_SUCCESS_WITH_INFO);
  EXPECT_EQ(real_, -FLT_MAX);
  EXPECT_EQ(storeText(asInt_, "1e999 e-9"), DBIL_SUCCESS_WITH_INFO);
  EXPECT_EQ(number_, INT_MAX);
}

TEST_F(BoundColumnTest, ARealBeyondAFloatIsTheNearestFloat) {
  EXPECT_EQ(storeReal(asFloat_, 1e300), DBIL_SUCCESS_WITH_INFO);
  EXPECT_EQ(real_, FLT_MAX);
  EXPECT_EQ(storeText(asFloat_, "-1e300"), DBIL_SUCCESS_WITH_INFO);
  EXPECT_EQ(real_, -FLT_MAX);
}

TEST_F(BoundColumnTest, WhatIsNotFiniteStaysSoInAFloat) {
  EXPECT_EQ(storeReal(asFloat_, std::numeric_limits<double>::infinity()), DBIL_SUCCESS);
  EXPECT_TRUE(std::isinf(real_));
  EXPECT_EQ(storeText(asFloat_, "NaN"), DBIL_SUCCESS);
  EXPECT_TRUE(std::isnan(real_));
}

TEST_F(BoundColumnTest, WhatIsNotFiniteIsHarmlessInAnInt) {
  EXPECT_EQ(storeReal(asInt_, -std::numeric_limits<double>::infinity()), DBIL_SUCCESS_WITH_INFO);
  EXPECT_EQ(number_, INT_MIN);
  storeReal(asInt_, std::numeric_limits<double>::quiet_NaN());
  EXPECT_EQ(number_, 0);
}

TEST_F(BoundColumnTest, NumbersIntoTextsAreCutLikeTexts) {
  EXPECT_EQ(storeInteger(asText_, -123456), DBIL_SUCCESS);
  EXPECT_STREQ(text_, "-123456");
  EXPECT_EQ(storeInteger(asText_, -1234567), DBIL_SUCCESS_WITH_INFO);
  EXPECT_STREQ(text_, "-123456");
  EXPECT_EQ(indicator_, 8);
  EXPECT_EQ(storeReal(asText_, 1.5), DBIL_SUCCESS);
  EXPECT_STREQ(text_, "1.5");
}

TEST_F(BoundColumnTest, AnIntegerIntoAFloatIsTheNearestFloat) {
  EXPECT_EQ(storeInteger(asFloat_, 7), DBIL_SUCCESS);
  EXPECT_EQ(real_, 7.0f);
  storeInteger(asFloat_, LLONG_MAX);
  EXPECT_EQ(real_, 9223372036854775808.0f);
}

TEST_F(BoundColumnTest, ATextWithANulInItKeepsItsLength) {
  EXPECT_EQ(storeText(asText_, std::string_view("a\0b", 3)), DBIL_SUCCESS);
  EXPECT_EQ(indicator_, 3);
  EXPECT_EQ(std::string(text_, 4), std::string("a\0b\0", 4));
}

TEST_F(BoundColumnTest, AnIndicatorMayBeMissing) {
  for (BoundColumn* column : {&asInt_, &asFloat_, &asText_}) {
    column->indicator = nullptr;
    storeNull(*column);
    storeInteger(*column, 5);
    storeText(*column, "5");
  }
  EXPECT_EQ(number_, 5);
  EXPECT_EQ(indicator_, 99);
}

}  // namespace
}  // namespace TvDbil::detail
