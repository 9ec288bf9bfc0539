#pragma once

#include <utility>

#include "zntopo/notify/TopologyStatusNotification.h"

namespace zntopo::detail {

/// The two statuses of a change.
struct StatusPair {
  ObjectStatus current;
  ObjectStatus previous;
};

/// A status notification that brings its statuses along: they live as long as its handle. The pair
/// is the first base, so that it is there before the notification that points into it.
class OwningStatusNotification : private StatusPair, public TopologyStatusNotification {
 public:
  OwningStatusNotification(EntityType entityType, ObjID id, const ObjectStatus& status,
                           const ObjectStatus& oldStatus, int changeTime,
                           ZNEntity::EntityStatusType statusType)
      : StatusPair{status, oldStatus},
        TopologyStatusNotification(entityType, StatusChangeNotif, std::move(id), &current,
                                   &previous, changeTime, statusType) {}
  OwningStatusNotification(const OwningStatusNotification&) = delete;
  OwningStatusNotification& operator=(const OwningStatusNotification&) = delete;
};

}  // namespace zntopo::detail
