#pragma once

#include <atomic>
#include <string>

#include "zntopo/core/ZNMutex.h"
#include "zntopo/core/ZNRefPtr.h"
#include "zntopo/core/ZNTopoAPIStatus.h"
#include "zntopo/notify/NotificationFilter.h"
#include "zntopo/notify/TopologyNotificationClient.h"
#include "zntopo/notify/TopologySession.h"
#include "zntopo/notify/TvSnmpObject.h"
#include "zntopo/platform/Export.h"

namespace zntopo {

/// The notification side of the process: one session, one client, one queue.
///
/// A consumer calls createNotificationClient() with the filter that it wants, then
/// receiveNotification() once, then the client's getNextNotification() until it gets a
/// SessionManagementNotification. A sender needs no thread. All operations may be called by several
/// threads at once.
class ZNTOPO_EXPORT TopoNotificationClientFactory final : public TvSnmpObject {
 public:
  /// The one of the process, never destroyed; null without memory for it.
  static TopoNotificationClientFactory* instance();

  /// Gives the client of the process, and opens the session if there is none. The first caller's
  /// filter holds for the life of the process, and so does a session that could not be opened: its
  /// status, ZN_API_NOTIFCHANNEL_CREATION_ERROR, is given to every later caller, too.
  ///
  /// Waits for the broker 10 seconds at most.
  ZNRefPtr<TopologyNotificationClient> createNotificationClient(NotificationFilter filter,
                                                                ZNTopoAPIStatus& theStat);
  /// @param filter as the event session takes it; empty for a process that only sends.
  ZNRefPtr<TopologyNotificationClient> createNotificationClient(std::string filter,
                                                                ZNTopoAPIStatus& theStat);
  /// Null before the first createNotificationClient().
  ZNRefPtr<TopologyNotificationClient> getNotificationClient();
  /// Null before the first createNotificationClient().
  ZNRefPtr<TopologySession> getTopologySession();
  /// Starts a thread that receives; each call starts another one, on the same session. Its failures
  /// are those of TopologySession::createBlockingRecvThrd(), and ZN_API_INTERNAL_ERROR if there is
  /// no session.
  ZNTopoAPIStatus receiveNotification();
  /// Tells the consumer with a SHUTDOWN and closes the session for good. Opens one before, if there
  /// is none. Waits for a bounded time until the broker has what was sent.
  void doCleanup();

 private:
  TopoNotificationClientFactory() = default;

  ZNMutex myLock;  // guards what follows
  ZNRefPtr<TopologySession> pSession;
  std::string interestedEvents;
  ZNRefPtr<TopologyNotificationClient> theClient;

  static std::atomic<TopoNotificationClientFactory*> pFactory;
};

}  // namespace zntopo
