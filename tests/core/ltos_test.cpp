#include "zntopo/core/ltos.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <limits>

TEST(LtosTest, GivesWhatTheFormatOfALongGives) {
  for (const long value : {0L, -1L, 42L, 2147483648L, std::numeric_limits<long>::min(),
                           std::numeric_limits<long>::max()}) {
    char text[32];
    std::snprintf(text, sizeof text, "%ld", value);
    EXPECT_EQ(zntopo::ltos(value), text);
  }
}
