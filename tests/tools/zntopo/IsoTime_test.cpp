#include "tools/zntopo/IsoTime.h"

#include <gtest/gtest.h>

namespace zntopo::tools {
namespace {

TEST(IsoTimeTest, ATimeIsUtcUnlessItTellsADistance) {
  const std::pair<const char*, long> times[] = {
      {"1970-01-01T00:00:00Z", 0},
      {"2026-11-21", 1795219200},
      {"2026-11-21T11:23:24Z", 1795260204},
      {"2026-11-21T11:23:24", 1795260204},
      {"2026-11-21t11:23:24z", 1795260204},
      {"2026-11-21 11:23:24", 1795260204},
      {"2026-11-21T11:23Z", 1795260180},
      {"2026-11-21T12:23:24+01:00", 1795260204},
      {"2026-11-21T12:23:24+0100", 1795260204},
      {"2026-11-21T05:53:24-05:30", 1795260204},
      {"2024-02-29T23:59:59Z", 1709251199},
      {"1969-12-31T23:59:59Z", -1},
  };
  for (const auto& [text, seconds] : times) EXPECT_EQ(isoTime(text), seconds) << text;
}

TEST(IsoTimeTest, ADayStandsForItsFirstSecondOrItsLast) {
  EXPECT_EQ(isoTime("2026-11-21", DayEnd::Last), 1795219200 + 86399);
  EXPECT_EQ(isoTime("2026-11-21T00:00Z", DayEnd::Last), 1795219200);
}

TEST(IsoTimeTest, OtherTextsAreNoTimes) {
  for (const char* text :
       {"", "now", "2026", "2026-11", "2026-13-01", "2026-02-29", "2026-00-10", "2026-11-21T",
        "2026-11-21T24:00Z", "2026-11-21T11:60Z", "2026-11-21T11:23:60Z", "2026-11-21Z",
        "2026-11-21T11:23:24+24:00", "2026-11-21T11:23:24+01", "2026-11-21T11:23:24.5Z",
        " 2026-11-21", "2026-11-21 ", "26-11-21", "2026-11-21T1:23Z"}) {
    EXPECT_EQ(isoTime(text), std::nullopt) << text;
  }
}

}  // namespace
}  // namespace zntopo::tools
