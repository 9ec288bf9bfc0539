#pragma once

#include <cstdint>
#include <span>

#include "zntopo/model/CapabilityBits.h"
#include "zntopo/store/StoreAccess.h"

namespace zntopo::detail {

/// A column that tells of a capability, and the bit that stands for it.
struct CapabilityColumn {
  int column;
  std::uint32_t bit;
  bool countsNegative;
};

constexpr CapabilityColumn whenPositive(int column, std::uint32_t bit) {
  return {column, bit, false};
}
constexpr CapabilityColumn whenNonZero(int column, std::uint32_t bit) {
  return {column, bit, true};
}

/// The bits of the columns that are there and say so.
inline std::uint32_t capabilityMask(const Row& row, std::span<const CapabilityColumn> columns) {
  std::uint32_t mask = 0;
  for (const CapabilityColumn& each : columns) {
    if (!row.isPresent(each.column)) continue;
    const int value = row.integer(each.column);
    if (value > 0 || (each.countsNegative && value < 0)) mask |= each.bit;
  }
  return mask;
}

}  // namespace zntopo::detail
