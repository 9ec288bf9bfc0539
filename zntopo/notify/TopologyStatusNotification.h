#pragma once

#include "zntopo/model/ObjectStatus.h"
#include "zntopo/model/ZNEntity.h"
#include "zntopo/notify/TopologyNotification.h"

namespace zntopo {

/// The status of an object has changed.
///
/// It points to its two statuses and frees neither: who makes one keeps them alive. Those of a
/// received notification live as long as its handle.
class ZNTOPO_EXPORT TopologyStatusNotification : public TopologyNotification {
 public:
  TopologyStatusNotification(EntityType entityType, TopoNotificationType notifType, ObjID id,
                             ObjectStatus* objStatus, ObjectStatus* oldStatus, int statChgtime,
                             ZNEntity::EntityStatusType entStatType)
      : TopologyNotification(notifType, static_cast<ObjID&&>(id), entityType),
        newStatus(objStatus),
        prevStatus(oldStatus),
        statusChangeTime(statChgtime),
        v6EntityStatusType(entStatType) {}

  /// Fails with ZN_API_STATUS_NOTIF_GEN_ERROR. The event tells the time of sending.
  ZNTopoAPIStatus createAndSendNotification() override;

  ObjectStatus* getStatus() const { return newStatus; }
  ObjectStatus* getPrevStatus() const { return prevStatus; }
  /// In seconds since the epoch, UTC; always 0 for a received notification.
  int getStatusChangeTime() const { return statusChangeTime; }
  /// Which of the object's statuses it is.
  ZNEntity::EntityStatusType getv6StatusType() const { return v6EntityStatusType; }

 private:
  ObjectStatus* newStatus;
  ObjectStatus* prevStatus;
  int statusChangeTime;
  ZNEntity::EntityStatusType v6EntityStatusType;
};

}  // namespace zntopo
