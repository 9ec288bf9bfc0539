#include "zntopo/cache/detail/AgeOrder.h"

#include <gtest/gtest.h>

#include <chrono>
#include <string>
#include <utility>

namespace zntopo::detail {
namespace {

TEST(AgeOrderTest, TheFrontIsTheOneAppendedLongestAgo) {
  AgeOrder ages;
  for (int id = 1; id <= 3; ++id) ages.append(id);
  EXPECT_EQ(ObjID(1), ages.front());
  ages.popFront();
  EXPECT_EQ(ObjID(2), ages.front());
  EXPECT_EQ(2u, ages.size());
}

TEST(AgeOrderTest, AppendingAgainMovesToTheBack) {
  AgeOrder ages;
  ages.append(1);
  ages.append(2);
  ages.append(1);
  EXPECT_EQ(2u, ages.size());
  EXPECT_EQ(ObjID(2), ages.front());
}

TEST(AgeOrderTest, WhatIsRemovedIsForgotten) {
  AgeOrder ages;
  ages.append(1);
  ages.append("a");
  ages.remove(1);
  ages.remove(1);
  ages.remove("b");
  EXPECT_EQ(ObjID("a"), ages.front());
  ages.remove("a");
  EXPECT_TRUE(ages.empty());
}

TEST(AgeOrderTest, PoppingAnEmptyOrderDoesNothing) {
  AgeOrder ages;
  ages.popFront();
  EXPECT_TRUE(ages.empty());
}

TEST(AgeOrderTest, IdentifiersOfAllKindsMix) {
  AgeOrder ages;
  const ObjID ids[] = {ObjID(5), ObjID("five"), ObjID("00000000-0000-0000-0000-000000000005")};
  for (const ObjID& id : ids) ages.append(id);
  ages.append(ids[0]);
  for (const int expected : {1, 2, 0}) {
    EXPECT_EQ(ids[expected], ages.front());
    ages.popFront();
  }
}

TEST(AgeOrderTest, TheOrderSurvivesAMove) {
  AgeOrder ages;
  ages.append(1);
  ages.append(2);
  AgeOrder moved = std::move(ages);
  moved.append(1);
  EXPECT_EQ(ObjID(2), moved.front());
}

// A walk of the list would take about a thousand times as long as this allows.
TEST(AgeOrderTest, AUseOfALargeOrderTakesNoWalk) {
  constexpr int kSize = 100000;
  AgeOrder ages;
  for (int id = 0; id < kSize; ++id) ages.append("name" + std::to_string(id));
  const auto start = std::chrono::steady_clock::now();
  for (int id = kSize - 1; id >= 0; --id) ages.append("name" + std::to_string(id));
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(10));
  EXPECT_EQ(ObjID("name" + std::to_string(kSize - 1)), ages.front());
}

}  // namespace
}  // namespace zntopo::detail
