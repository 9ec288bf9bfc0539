#pragma once

#include <map>

#include "zntopo/core/ObjID.h"
#include "zntopo/core/ZNRefPtr.h"

namespace zntopo::detail {

/// The container that stands in a map under an identifier, made on first sight. Null for the
/// null identifier and for one of another kind than those in the map: neither is stored.
template <typename Container>
Container* groupOf(std::map<ObjID, ZNRefPtr<Container>>& map, const ObjID& id) {
  if (id.isNull()) return nullptr;
  const auto entry = map.try_emplace(id).first;
  if (entry->first != id) return nullptr;
  if (entry->second.isNull()) entry->second = new Container;
  return entry->second.getObjectPointer();
}

}  // namespace zntopo::detail
