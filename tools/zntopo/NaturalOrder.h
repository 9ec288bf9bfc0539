#pragma once

#include <algorithm>
#include <compare>
#include <string>

namespace zntopo::tools {

/// A text as people sort: numbers in it count as numbers, so "Gi1/0/9" comes before "Gi1/0/10".
/// A plain value.
struct Natural {
  std::string text;

  friend std::strong_ordering operator<=>(const Natural& left, const Natural& right);
  friend bool operator==(const Natural& left, const Natural& right) = default;
};

/// Sorts by what a function makes of each element; equal ones stay in their order.
template <typename Container, typename KeyOf>
void sortBy(Container& container, const KeyOf& keyOf) {
  std::stable_sort(container.begin(), container.end(),
                   [&](const auto& left, const auto& right) { return keyOf(left) < keyOf(right); });
}

}  // namespace zntopo::tools
