#include "zntopo/notify/AttrValType.h"

#include <gtest/gtest.h>

#include "zntopo/notify/detail/FilterText.h"

namespace zntopo {
namespace {

TEST(AttributeNumbersTest, TheSevenAttributesKeepTheirNumbers) {
  for (int number = 0; number <= 6; ++number) {
    EXPECT_EQ(getTopoAttrTypeAsInt(static_cast<TopologyAttributeType>(number)), number);
    EXPECT_EQ(getTopoAttrTypeFromInt(number), number);
  }
}

TEST(AttributeNumbersTest, AnyOtherAttributeTravelsAs999AndComesBackAsTheOneBehindThem) {
  for (const int number : {7, 8, -1, 999}) {
    EXPECT_EQ(getTopoAttrTypeAsInt(static_cast<TopologyAttributeType>(number)), 999);
    EXPECT_EQ(getTopoAttrTypeFromInt(number), 7);
  }
}

TEST(AttributeNumbersTest, TypesOfValuesArePassedThrough) {
  EXPECT_EQ(getAttrValTypeAsInt(E_String), 1);
  EXPECT_EQ(getAttrValTypeFromInt(0), E_Integer);
  EXPECT_EQ(getAttrValTypeFromInt(1), E_String);
  EXPECT_EQ(getAttrValTypeFromInt(17), 17);
}

TEST(FilterTextTest, EachFilterHasItsEventsInItsOrder) {
  const std::string head = ".1.3.6.1.4.1.47231.2.17.1.0.";
  const auto text = [](int filter) {
    return detail::filterText(static_cast<NotificationFilter>(filter));
  };
  EXPECT_EQ(text(0), head + "60001101,60001104");
  EXPECT_EQ(text(1), head + "60001102,60001104");
  EXPECT_EQ(text(2), head + "60001103,60001104");
  EXPECT_EQ(text(3), head + "60001101,60001102,60001104");
  EXPECT_EQ(text(4), head + "60001102,60001103,60001104");
  EXPECT_EQ(text(5), head + "60001103,60001101,60001104");
  EXPECT_EQ(text(6), head + "60001101,60001102,60001103,60001104");
  EXPECT_EQ(text(7), "");
  EXPECT_EQ(text(8), "");
  EXPECT_EQ(text(-1), "");
}

}  // namespace
}  // namespace zntopo
