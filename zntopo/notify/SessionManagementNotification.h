#pragma once

#include "zntopo/notify/TopologyNotification.h"

namespace zntopo {

/// What happened to the session.
enum NotifSubType : int {
  ERROR = 1,    ///< it is lost; the status says why
  SHUTDOWN = 2  ///< this process ends it
};

/// Tells the consumer of this process that its session ends. It never travels.
class ZNTOPO_EXPORT SessionManagementNotification : public TopologyNotification {
 public:
  SessionManagementNotification(NotifSubType _theSubType, ZNTopoAPIStatus _theStatus)
      : TopologyNotification(SessionManagementNotif, ObjID(), E_Unknown),
        theStatus(static_cast<ZNTopoAPIStatus&&>(_theStatus)),
        theSubType(_theSubType) {}

  /// Sends nothing and succeeds.
  ZNTopoAPIStatus createAndSendNotification() override;

  const ZNTopoAPIStatus& getStatus() const { return theStatus; }
  ZNTopoAPIStatus& getStatus() { return theStatus; }
  const NotifSubType& getNotifSubType() const { return theSubType; }
  NotifSubType& getNotifSubType() { return theSubType; }

 private:
  ZNTopoAPIStatus theStatus;
  NotifSubType theSubType;
};

}  // namespace zntopo
