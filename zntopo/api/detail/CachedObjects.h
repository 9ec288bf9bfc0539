#pragma once

#include <list>
#include <utility>

#include "zntopo/cache/ZNTopoCache.h"
#include "zntopo/core/detail/LogText.h"

namespace zntopo::detail {

/// How a kind of objects is found in the cache by one of its identifiers.
template <typename T>
struct CachedKind {
  /// The look-up, and the use of a hit ...
  bool (ZNTopoCache::*inCache)(const ObjID&, ZNRefPtr<T>&) const = nullptr;
  void (ZNTopoCache::*use)(const ZNRefPtr<T>&) = nullptr;
  /// ... or both in one, which logs the hit.
  bool (ZNTopoCache::*useHeld)(const ObjID&, ZNRefPtr<T>&, const char* foundLine) = nullptr;
  /// Logged for each hit and for each miss, if there; "%s" stands for the identifier.
  const char* foundLine = nullptr;
  const char* missedLine = nullptr;
  /// The null identifier is missing like any other; else it is passed over.
  bool countsNull = false;
  /// What the identifiers are compared with.
  const ObjID& (T::*idOf)() const = nullptr;
};

/// Looks an object up. A hit counts as a use.
template <typename T>
bool useCached(ZNTopoCache& cache, const CachedKind<T>& kind, const ObjID& id, ZNRefPtr<T>& found) {
  const bool isHit = kind.useHeld ? (cache.*kind.useHeld)(id, found, kind.foundLine)
                                  : (cache.*kind.inCache)(id, found);
  const char* const line = isHit ? (kind.useHeld ? nullptr : kind.foundLine) : kind.missedLine;
  if (line) logLine(MC_INFO, line, shown(MC_INFO, id));
  if (isHit && kind.use) (cache.*kind.use)(found);
  return isHit;
}

/// Looks objects up, appends the hits to a list or vector, and returns the identifiers that are
/// missing, in their order.
template <typename T, typename Identifiers, typename Found>
std::list<ObjID> takeCached(ZNTopoCache& cache, const CachedKind<T>& kind, const Identifiers& ids,
                            Found& found) {
  std::list<ObjID> missing;
  for (const ObjID& id : ids) {
    if (id.isNull() && !kind.countsNull) continue;
    ZNRefPtr<T> object;
    if (useCached(cache, kind, id, object)) {
      found.push_back(std::move(object));
    } else {
      missing.push_back(id);
    }
  }
  return missing;
}

}  // namespace zntopo::detail
