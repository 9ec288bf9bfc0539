#pragma once

#include <functional>
#include <list>

#include "zntopo/api/ZNTopoAPI_Impl.h"
#include "zntopo/api/detail/EntityRow.h"
#include "zntopo/api/detail/RowValues.h"
#include "zntopo/core/MCLog.h"
#include "zntopo/core/ObjIDLookup.h"
#include "zntopo/core/ZNTopoAPIStatus.h"

namespace zntopo::detail {

/// The objects that are made of the rows of a statement, and what of them has to be asked for.
template <typename T>
struct ObjectsRead {
  std::list<ZNRefPtr<T>> objects;
  std::list<ObjID> withUserVars;
  std::list<ObjID> withAddresses;
  /// A row that no object can be made of ended the read.
  bool isCutShort = false;

  /// Takes what make gives for a row. False for an incomplete row: nothing behind it is read.
  template <typename Make>
  bool add(const Row& row, const EntityColumns& columns, const Make& make) {
    note(row, columns, columns.hasDynamicProperty, withUserVars);
    note(row, columns, columns.hasAddress, withAddresses);
    isCutShort = !isComplete(row, columns);
    if (!isCutShort) objects.push_back(make(row));
    return !isCutShort;
  }

 private:
  static void note(const Row& row, const EntityColumns& columns, int column,
                   std::list<ObjID>& ids) {
    if (presentInt(row, column) != 0) ids.emplace_back(row.text(columns.objID));
  }
};

template <typename Objects>
std::list<ObjID> idsOf(const Objects& objects) {
  std::list<ObjID> ids;
  for (const auto& object : objects) ids.push_back(object->getObjID());
  return ids;
}

/// Calls the setter of each object that has an entry in the map.
template <typename Objects, typename Map, typename Setter>
void handOut(const Objects& objects, const Map& map, Setter setter) {
  for (const auto& object : objects) {
    const auto found = findObjID(map, object->getObjID());
    if (found != map.end() && !found->second.isNull()) std::invoke(setter, *object, *found->second);
  }
}

/// Hands out what a loader gave. False after a failure of the loader, which its status tells, and
/// this line: nothing is handed out then.
template <typename Objects, typename Map, typename Setter>
bool handOutLoaded(const ZNTopoAPIStatus& status, const char* failureLine, const Objects& objects,
                   const Map& map, Setter setter) {
  if (!status.isOK()) {
    MCLog::log(MC_MAJOR, "%s", failureLine);
    return false;
  }
  handOut(objects, map, setter);
  return true;
}

/// Loads the user variables of the objects that have some. False after a failure, as above.
template <typename T>
bool giveUserVars(ZNTopoAPI_Impl& api, const ObjectsRead<T>& read, ZNTopoAPIStatus& status) {
  if (read.withUserVars.empty()) return true;
  const auto map = api.getUserDefVarsByObjIDList(read.withUserVars, status);
  return handOutLoaded(status, "Failed in getUserDefVarsByObjIDLIst \n", read.objects, *map,
                       &T::setUserVars);
}

/// Loads the addresses of the objects that have some, by a call that takes their identifiers.
/// False after a failure, as above.
template <typename T, typename Load>
bool giveAddresses(const ObjectsRead<T>& read, const Load& load, ZNTopoAPIStatus& status) {
  if (read.withAddresses.empty()) return true;
  const auto map = load(read.withAddresses);
  return handOutLoaded(status, "Failed in getAddrByAssociatedObjIDList \n", read.objects, *map,
                       &T::setAddresses);
}

}  // namespace zntopo::detail
