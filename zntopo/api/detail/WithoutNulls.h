#pragma once

#include <list>

#include "zntopo/core/ObjID.h"

namespace zntopo::detail {

/// The identifiers of a list or set that are not null, in their order.
template <typename Identifiers>
std::list<ObjID> withoutNulls(const Identifiers& ids) {
  std::list<ObjID> kept;
  for (const ObjID& id : ids) {
    if (!id.isNull()) kept.push_back(id);
  }
  return kept;
}

}  // namespace zntopo::detail
