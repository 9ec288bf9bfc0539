#include "zntopo/platform/tvdbil/detail/OdbcHandles.h"

#include <gtest/gtest.h>

namespace TvDbil::detail {
namespace {

TEST(OdbcAttributeTest, NamesAreComparedWithoutCaseAndTheFirstOneCounts) {
  EXPECT_EQ(odbcAttribute("Driver=SQLite3;Database=a.db", "DATABASE"), "a.db");
  EXPECT_EQ(odbcAttribute("driver = SQLite3 ; driver=other", "Driver"), "SQLite3");
  EXPECT_EQ(odbcAttribute("Driver=;Database=a", "Driver"), "");
}

TEST(OdbcAttributeTest, BracesGuardSemicolonsAndEqualsSigns) {
  EXPECT_EQ(odbcAttribute("Driver={My; DSN=x; driver};DSN=y", "Driver"), "My; DSN=x; driver");
  EXPECT_EQ(odbcAttribute("Driver={My; DSN=x; driver};DSN=y", "DSN"), "y");
  EXPECT_EQ(odbcAttribute("Pwd={a}};DSN=x};DSN=y", "DSN"), "y");
}

TEST(OdbcAttributeTest, WhatIsNotThereIsEmpty) {
  for (const char* text :
       {"", ";", "=", ";;=", "Driver", "Drivers=x", "Driver={never ends;DSN=x"}) {
    EXPECT_EQ(odbcAttribute(text, "DSN"), "") << text;
  }
}

}  // namespace
}  // namespace TvDbil::detail
