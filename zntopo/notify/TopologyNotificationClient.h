#pragma once

#include <atomic>

#include "zntopo/core/ZNRefPtr.h"
#include "zntopo/core/ZNTopoAPIStatus.h"
#include "zntopo/notify/TopologyNotification.h"
#include "zntopo/notify/ZN_MTQueue.h"
#include "zntopo/platform/Export.h"

namespace zntopo {

/// The door to the events of the process: it sends, and it gives out what was received, in its
/// order, from the one queue of the process. TopoNotificationClientFactory makes it.
///
/// All operations may be called by several threads at once.
class ZNTOPO_EXPORT TopologyNotificationClient {
 public:
  using Queue = ZN_MTQueue<ZNRefPtr<TopologyNotification>>;

  /// Makes the queue if there is none.
  TopologyNotificationClient();

  /// Sends a notification to everybody, this process among them if it listens, and returns the
  /// status of that; ZN_API_INTERNAL_ERROR for a null handle.
  ZNTopoAPIStatus sendNotification(ZNRefPtr<TopologyNotification> notification);
  /// How many notifications wait.
  int getNumberOfNotification();
  /// Takes the next notification; waits while there is none. A SessionManagementNotification is
  /// the last one of a session. Who does not take them stops the changes of the cache, too, once
  /// 1024 wait.
  ZNRefPtr<TopologyNotification> getNextNotification();
  /// Queues a notification for this process, beyond the bound, too, and never waits.
  void sendShutdownNotif(ZNRefPtr<TopologyNotification> notification);

  /// The queue of the process: null before the first client, never destroyed.
  static std::atomic<Queue*> queue;
};

/// Makes the queue of TopologyNotificationClient, for 1024 notifications, if there is none.
ZNTOPO_EXPORT void initializeTopoNotifClientQueue();

namespace detail {
/// The queue of TopologyNotificationClient, made if there is none.
TopologyNotificationClient::Queue& clientQueue();
}  // namespace detail

}  // namespace zntopo
