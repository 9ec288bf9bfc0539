#pragma once

#include <memory>

#include "zntopo/core/ZNTopoAPIStatus.h"
#include "zntopo/notify/TvSnmpObject.h"
#include "zntopo/platform/Export.h"

struct SNMPSession;
struct SNMPPdu;

namespace zntopo {

class TopologySession;

namespace detail {
class EventChannel;
EventChannel& channelOf(const TopologySession& session);
}  // namespace detail

/// A session with the event broker. TopoNotificationClientFactory holds the one of the process.
///
/// All operations may be called by several threads at once.
class ZNTOPO_EXPORT TopologySession : public TvSnmpObject {
 public:
  using Callback = void (*)(int, SNMPSession*, SNMPPdu*, void*);

  /// Opens the session; a failure is in getSessionStatus(). Waits for the broker 10 seconds at
  /// most.
  /// @param removeTVMgrHostname the broker, as TV_EVENT_BROKER names it; null for what that names.
  /// @param applName what the broker knows this session as.
  /// @param callback, data kept by the platform; may be null.
  /// @param filter the events to receive, as NotificationFilter makes them; empty or null for none.
  TopologySession(const char* removeTVMgrHostname, const char* applName, Callback callback,
                  void* data, const char* filter);
  /// Closes the session; its receiving threads end by themselves.
  virtual ~TopologySession();
  TopologySession(const TopologySession&) = delete;
  TopologySession& operator=(const TopologySession&) = delete;

  /// Starts a thread that receives until the session ends: it changes the cache, then queues each
  /// notification for the client. Its stack has 64 KB.
  ///
  /// ZN_API_THREAD_CREATE_FAILED without a thread, for the system has no more or none with so small
  /// a stack; ZN_API_THREAD_DETACH_FAILED with one that runs;
  /// the session's own status, and no thread, if it could not be opened;
  /// ZN_API_NOTIFCHANNEL_DISCONNECTED, and no thread, if it is closed.
  ZNTopoAPIStatus createBlockingRecvThrd();

  /// Null if the session could not be opened, and once it is closed.
  SNMPSession* getSession() const;
  /// ZN_API_NOTIFCHANNEL_CREATION_ERROR if the session could not be opened.
  ZNTopoAPIStatus getSessionStatus() const { return theStatus; }
  /// Closes the session, once: waits 5 seconds at most until the broker has what was sent, and
  /// wakes the receiving threads, which take it for a lost one. Does not take the guard of the
  /// event sessions.
  void closeSession();

 private:
  friend detail::EventChannel& detail::channelOf(const TopologySession& session);

  static void* dispatchTo(void* arg);

  std::shared_ptr<detail::EventChannel> channel_;
  ZNTopoAPIStatus theStatus;
};

}  // namespace zntopo
