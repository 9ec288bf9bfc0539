#pragma once

#include "zntopo/notify/TopologyNotification.h"

namespace zntopo {

/// An object came or went. The library receives these and sends none of its own.
class ZNTOPO_EXPORT TopologyLifeCycleNotification : public TopologyNotification {
 public:
  TopologyLifeCycleNotification(EntityType entityType, TopoNotificationType notifType, ObjID id,
                                int zoneId)
      : TopologyNotification(notifType, static_cast<ObjID&&>(id), entityType), zoneID(zoneId) {}

  /// Fails with ZN_API_LIFE_CYCLE_GEN_ERROR.
  ZNTopoAPIStatus createAndSendNotification() override;

  int getZoneID() const { return zoneID; }

 private:
  int zoneID;
};

}  // namespace zntopo
