#pragma once

#include "tools/network/NumberName.h"
#include "tools/zntopo/Answer.h"

namespace zntopo::tools {

/// The name of a number; null if it has none.
template <typename Names, typename Number>
Json nameOrNull(const Names& names, Number number) {
  const auto name = nameOf(names, number);
  return name ? Json(*name) : Json();
}

/// The name of a number; the number itself if it has none.
template <typename Names, typename Number>
Json nameOrNumber(const Names& names, Number number) {
  const auto name = nameOf(names, number);
  return name ? Json(*name) : Json(static_cast<int>(number));
}

}  // namespace zntopo::tools
