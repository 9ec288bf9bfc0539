#pragma once

#include "zntopo/core/ObjID.h"
#include "zntopo/core/ZNTopoAPIStatus.h"
#include "zntopo/model/EntityType.h"
#include "zntopo/notify/TvSnmpObject.h"
#include "zntopo/platform/Export.h"

namespace zntopo {

/// What a notification tells of. A received life cycle notification says AttributeChangeNotif.
enum TopoNotificationType : int {
  StatusChangeNotif = 1,
  AttributeChangeNotif = 2,
  LifeCycleNotif = 3,
  SessionManagementNotif = 4,
  TopologyStateNotif = 5
};

/// An event of the topology: something that was changed, told to everybody who listens.
///
/// Immutable, so that it may be shared between threads.
class ZNTOPO_EXPORT TopologyNotification : public TvSnmpObject {
 public:
  TopologyNotification(TopoNotificationType notifType, ObjID id, EntityType entityType)
      : srcEntityType(entityType), topoNotif(notifType), srcID(static_cast<ObjID&&>(id)) {}
  virtual ~TopologyNotification() = default;

  /// Sends the event through the session of this process and returns without waiting for the
  /// broker. ZN_API_INTERNAL_ERROR if there is no session; another failure is the one of the kind,
  /// with the reason in the auxiliary text. Nothing is sent a second time.
  virtual ZNTopoAPIStatus createAndSendNotification() = 0;

  EntityType getSrcEntityType() const { return srcEntityType; }
  TopoNotificationType getTopologyNotificationType() const { return topoNotif; }
  /// The object that has changed.
  const ObjID& getSrcID() const { return srcID; }

 private:
  EntityType srcEntityType;
  TopoNotificationType topoNotif;
  ObjID srcID;
};

}  // namespace zntopo
