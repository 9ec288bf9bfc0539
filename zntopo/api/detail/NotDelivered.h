#pragma once

#include <list>
#include <set>

#include "zntopo/core/ObjID.h"
#include "zntopo/core/ObjIDLookup.h"
#include "zntopo/core/ZNRefPtr.h"

namespace zntopo::detail {

/// The identifiers that were asked for and are not among those that idOf gives of the objects.
template <typename T>
std::set<ObjID> notDelivered(const std::set<ObjID>& asked, const std::list<ZNRefPtr<T>>& objects,
                             const ObjID& (T::*idOf)() const) {
  std::set<ObjID> delivered;
  for (const ZNRefPtr<T>& object : objects) {
    const ObjID& id = ((*object).*idOf)();
    if (!id.isNull()) delivered.insert(id);
  }
  std::set<ObjID> missing;
  for (const ObjID& id : asked) {
    if (!containsObjID(delivered, id)) missing.insert(missing.end(), id);
  }
  return missing;
}

}  // namespace zntopo::detail
