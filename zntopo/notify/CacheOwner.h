#pragma once

#include "zntopo/core/ObjID.h"
#include "zntopo/core/ZNTopoAPIStatus.h"
#include "zntopo/model/EntityType.h"
#include "zntopo/model/TopologyAttributeType.h"
#include "zntopo/model/ZNEntity.h"

namespace zntopo {

/// All that a received event asks of the owner of the cache, on a floor above: each through a fresh
/// implementation on the active tables.
///
/// Called on receiving threads, whose stacks have 64 KB, and clear() with the guard of the event
/// sessions held.
class CacheOwner {
 public:
  virtual ~CacheOwner() = default;

  /// Clears the cache, its validity too.
  virtual void clear() = 0;
  /// A status of a cached object that is no address, by its topology identifier.
  virtual void updateCacheObjectStatus(const ObjID& id, EntityType type, int newStatus,
                                       long statusChangeTimeUTC,
                                       ZNEntity::EntityStatusType statusType,
                                       ZNTopoAPIStatus& status) = 0;
  /// An attribute of a cached object.
  virtual void updateCacheObjectAttribute(const ObjID& id, EntityType type,
                                          TopologyAttributeType attribute, int value,
                                          const ObjID& addressID, ZNTopoAPIStatus& status) = 0;
};

/// The one owner of the process, never destroyed. Defined where the programming interface is.
CacheOwner& cacheOwner();

}  // namespace zntopo
