#pragma once

#include <set>
#include <utility>

#include "zntopo/core/ObjID.h"

namespace zntopo {

namespace detail {
template <typename Key, typename Value>
const Key& keyOf(const std::pair<const Key, Value>& entry) {
  return entry.first;
}
inline const ObjID& keyOf(const ObjID& id) { return id; }
}  // namespace detail

/// Finds an identifier in a map or set that is ordered by ObjID.
///
/// An ordered container takes an identifier of one kind for equivalent to every one of another
/// kind, so what find() gives is tested for equality: a foreign kind is not found.
template <typename Container>
auto findObjID(Container& container, const ObjID& id) {
  auto found = container.find(id);
  return found != container.end() && detail::keyOf(*found) == id ? found : container.end();
}

/// True if the identifier itself is in the container.
template <typename Container>
bool containsObjID(const Container& container, const ObjID& id) {
  return findObjID(container, id) != container.end();
}

/// Inserts an identifier into a working set, which never holds the null one.
inline void insertObjID(std::set<ObjID>& set, const ObjID& id) {
  if (!id.isNull()) set.insert(id);
}

}  // namespace zntopo
