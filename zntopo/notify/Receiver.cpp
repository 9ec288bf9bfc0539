#include "zntopo/notify/detail/Receiver.h"

#include <poll.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <exception>
#include <utility>

#include "zntopo/core/MCLog.h"
#include "zntopo/notify/CacheOwner.h"
#include "zntopo/notify/SessionManagementNotification.h"
#include "zntopo/notify/TopologyAttrChangeNotification.h"
#include "zntopo/notify/TopologyNotificationClient.h"
#include "zntopo/notify/TopologyNotificationFactory.h"
#include "zntopo/notify/TopologyStateNotification.h"
#include "zntopo/notify/TopologyStatusNotification.h"
#include "zntopo/notify/detail/EventChannel.h"
#include "zntopo/notify/detail/EventTrace.h"
#include "zntopo/notify/detail/SessionGuard.h"
#include "zntopo/platform/tvsnmp/TvSnmp.h"

namespace zntopo::detail {

namespace {

int pollFor(int descriptor, int milliseconds) {
  pollfd one{descriptor, POLLIN, 0};
  return poll(&one, 1, milliseconds);
}

/// Tells the client that the session is lost; waits while its queue is full.
void reportLoss(ZNTopoStatus code) {
  ZNTopoAPIStatus status;
  status.setStatus(code);
  clientQueue().queue(new SessionManagementNotification(ERROR, status));
}

void traceFailedReceipt() {
  traceLine(kTraceEventFailure, [] {
    char text[256];
    std::snprintf(text, sizeof text, "TVsnmpRecv() failed, TVsnmpError = %d:%s", TVsnmpErrno,
                  TVsnmpErrString(TVsnmpErrno));
    return std::string(text);
  });
}

void applyStatus(const TopologyStatusNotification& change, ZNTopoAPIStatus& status) {
  // Statuses of addresses do not touch the cache.
  if (change.getSrcEntityType() == E_Address || change.getStatus() == nullptr) return;
  cacheOwner().updateCacheObjectStatus(
      change.getSrcID(), change.getSrcEntityType(), change.getStatus()->getStatusAsInt(),
      change.getStatusChangeTime(), change.getv6StatusType(), status);
}

void applyAttribute(const TopologyAttrChangeNotification& change, ZNTopoAPIStatus& status) {
  cacheOwner().updateCacheObjectAttribute(change.getSrcID(), change.getSrcEntityType(),
                                          change.getAttrType(), change.getAttrValInt(),
                                          change.getAddrId(), status);
}

/// Tells of an end that nobody foresaw, as far as there is memory for it: who waits for the next
/// event would wait for ever.
void reportEnd(const std::exception& failure) {
  try {
    MCLog::log(MC_CRITICAL, "The receipt of events ends: %s\n", failure.what());
    reportLoss(ZN_API_NOTIFCHANNEL_RECV_ERROR);
  } catch (const std::exception&) {
  }
}

}  // namespace

void applyToCache(const TopologyNotification& notification, ZNTopoAPIStatus& status) {
  // The type says what a notification is for, and not what it is: a received life cycle one passes
  // for a change of an attribute.
  switch (notification.getTopologyNotificationType()) {
    case StatusChangeNotif:
      if (auto* change = dynamic_cast<const TopologyStatusNotification*>(&notification)) {
        applyStatus(*change, status);
      }
      break;
    case AttributeChangeNotif:
      if (auto* change = dynamic_cast<const TopologyAttrChangeNotification*>(&notification)) {
        applyAttribute(*change, status);
      }
      break;
    case TopologyStateNotif:
      if (auto* change = dynamic_cast<const TopologyStateNotification*>(&notification)) {
        if (change->getTopologyState() == TOPOLOGY_READY) cacheOwner().clear();
      }
      break;
    default:
      break;
  }
}

Receiver::Receiver(std::shared_ptr<EventChannel> channel)
    : channel_(std::move(channel)), descriptor_(channel_->duplicateDescriptor()) {}

Receiver::~Receiver() {
  if (descriptor_ >= 0) close(descriptor_);
}

void Receiver::FreePdu::operator()(SNMPPdu* pdu) const {
  const SessionGuard hold;
  TVsnmpFreePdu(pdu);
}

void Receiver::run() {
  try {
    receive();
  } catch (const std::exception& failure) {
    reportEnd(failure);
  }
  const SessionGuard hold;
  channel_->close();
}

void Receiver::receive() {
  for (;;) {
    traceLine(kTraceEvent, "Receiving Data from kvd");
    const Wait waited = wait();
    if (waited == Wait::Again) continue;
    if (waited == Wait::Failed) return reportLoss(ZN_API_NOTIFCHANNEL_DISCONNECTED);
    Pdu pdu;
    if (!take(pdu)) continue;
    if (!pdu) return reportLoss(ZN_API_NOTIFCHANNEL_RECV_ERROR);
    deliver(*pdu);
  }
}

Receiver::Wait Receiver::wait() const {
  if (pollFor(descriptor_, -1) >= 0) return Wait::Event;
  return errno == EINTR ? Wait::Again : Wait::Failed;
}

bool Receiver::take(Pdu& pdu) const {
  const SessionGuard hold;
  // Another thread on the same session may have been faster: who waits under the guard shuts all
  // senders out. A signal ends even a look that does not wait, and tells of no event.
  if (pollFor(descriptor_, 0) <= 0) return false;
  pdu.reset(channel_->use([](SNMPSession* session) { return TVsnmpRecv(session); }));
  if (!pdu) traceFailedReceipt();
  return true;
}

void Receiver::deliver(SNMPPdu& pdu) {
  const auto notification = TopologyNotificationFactory::createNotification(&pdu);
  if (notification.isNull()) return;
  // The cache first: who reacts to an event finds the change there.
  applyToCache(*notification, status_);
  clientQueue().queue(notification);
}

}  // namespace zntopo::detail
