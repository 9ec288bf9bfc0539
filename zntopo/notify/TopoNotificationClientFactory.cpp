#include "zntopo/notify/TopoNotificationClientFactory.h"

#include <memory>
#include <new>
#include <utility>

#include "zntopo/core/detail/Failure.h"
#include "zntopo/core/detail/MessageTexts.h"
#include "zntopo/notify/SessionManagementNotification.h"
#include "zntopo/notify/detail/EventTrace.h"
#include "zntopo/notify/detail/FilterText.h"
#include "zntopo/notify/detail/SessionGuard.h"
#include "zntopo/platform/tvxpl/TvXplLog.h"

namespace zntopo {

namespace {

constexpr const char* kApplication = "topo_api_notif_srvr";

void reportNoMemory() {
  detail::traceLine(detail::kTraceEventFailure,
                    "Could not create TopoNotificationClientFactory in "
                    "TopoNotificationClientFactory::instance");
  TvXplMsg::MessageList_t messages;
  messages.Add(TvXplMsg::CreateError_t(detail::messages::kNoClientFactory.get()));
  TvXplLog::Log(messages);
}

}  // namespace

constinit std::atomic<TopoNotificationClientFactory*> TopoNotificationClientFactory::pFactory{
    nullptr};

TopoNotificationClientFactory* TopoNotificationClientFactory::instance() {
  detail::traceLine(detail::kTraceEvent, "Creating TopoNotificationClientFactory");
  if (auto* const factory = pFactory.load()) return factory;
  std::unique_ptr<TopoNotificationClientFactory> made(new (std::nothrow)
                                                          TopoNotificationClientFactory());
  if (!made) {
    reportNoMemory();
    return nullptr;
  }
  TopoNotificationClientFactory* first = nullptr;
  // Of two threads that come at once one makes the factory.
  return pFactory.compare_exchange_strong(first, made.get()) ? made.release() : first;
}

ZNRefPtr<TopologyNotificationClient> TopoNotificationClientFactory::createNotificationClient(
    NotificationFilter filter, ZNTopoAPIStatus& theStat) {
  return createNotificationClient(detail::filterText(filter), theStat);
}

ZNRefPtr<TopologyNotificationClient> TopoNotificationClientFactory::createNotificationClient(
    std::string filter, ZNTopoAPIStatus& theStat) {
  detail::traceLine(detail::kTraceEvent, "Creating TopoNotificationClientFactory");
  const MutexLockInternal hold(myLock);
  if (pSession.isNull()) {
    interestedEvents = std::move(filter);
    pSession =
        new TopologySession(nullptr, kApplication, nullptr, nullptr, interestedEvents.c_str());
  }
  theStat = pSession->getSessionStatus();
  detail::traceLine(detail::kTraceEvent, "Creating TopologyNotificationClient");
  if (theClient.isNull()) theClient = new TopologyNotificationClient();
  return theClient;
}

ZNRefPtr<TopologyNotificationClient> TopoNotificationClientFactory::getNotificationClient() {
  const MutexLockInternal hold(myLock);
  return theClient;
}

ZNRefPtr<TopologySession> TopoNotificationClientFactory::getTopologySession() {
  const MutexLockInternal hold(myLock);
  return pSession;
}

ZNTopoAPIStatus TopoNotificationClientFactory::receiveNotification() {
  const ZNRefPtr<TopologySession> session = getTopologySession();
  if (!session.isNull()) return session->createBlockingRecvThrd();
  ZNTopoAPIStatus status;
  detail::setFailure(status, ZN_API_INTERNAL_ERROR,
                     "There is no event session: call createNotificationClient first");
  return status;
}

void TopoNotificationClientFactory::doCleanup() {
  const ZNRefPtr<TopologyNotification> shutdown(
      new SessionManagementNotification(SHUTDOWN, ZNTopoAPIStatus()));
  ZNRefPtr<TopologyNotificationClient> client = getNotificationClient();
  if (client.isNull()) {
    ZNTopoAPIStatus status;
    client = createNotificationClient("", status);
  }
  client->sendShutdownNotif(shutdown);
  const ZNRefPtr<TopologySession> session = getTopologySession();
  const detail::SessionGuard hold;
  session->closeSession();
}

}  // namespace zntopo
