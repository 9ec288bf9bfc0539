#include "zntopo/platform/tvsnmp/detail/EventFilter.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using tvsnmp::eventsOfFilter;

TEST(EventFilterTest, ANumberTakesThePlaceOfTheLastArcBefore) {
  const auto events = eventsOfFilter(".1.3.6.1.4.1.47231.2.17.1.0.60001103,60001101,60001104");
  ASSERT_TRUE(events);
  EXPECT_THAT(*events, ElementsAre(60001101, 60001103, 60001104));
}

TEST(EventFilterTest, WholeIdentifiersMayFollow) {
  const auto events =
      eventsOfFilter(".1.3.6.1.4.1.47231.2.17.1.0.2,.1.3.6.1.4.1.47231.2.17.1.0.1,3");
  ASSERT_TRUE(events);
  EXPECT_THAT(*events, ElementsAre(1, 2, 3));
}

TEST(EventFilterTest, TheEmptyFilterNamesNone) {
  const auto events = eventsOfFilter("");
  ASSERT_TRUE(events);
  EXPECT_THAT(*events, IsEmpty());
}

class MalformedFilterTest : public testing::TestWithParam<const char*> {};

TEST_P(MalformedFilterTest, IsRefused) { EXPECT_FALSE(eventsOfFilter(GetParam())); }

INSTANTIATE_TEST_SUITE_P(
    Filters, MalformedFilterTest,
    testing::Values("60001101", ",", ".", ".1.3.6.1.4.1.47231.2.17.1.0.", ".1.3.6.1",
                    ".1.3.6.1.4.1.47231.2.17.1.0.1,", ".1.3.6.1.4.1.47231.2.17.1.0.1,,2",
                    ".1.3.6.1.4.1.47231.2.17.1.0.x", ".1.3.6.1.4.1.47231.2.17.1.1.60001101",
                    ".1.3.6.1.4.1.47231.2.17.1.0.0.1", "1.3.6.1.4.1.47231.2.17.1.0.1",
                    ".1.3.6.1.4.1.47231.2.17.1.0.99999999999"));

}  // namespace
