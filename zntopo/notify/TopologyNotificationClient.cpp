#include "zntopo/notify/TopologyNotificationClient.h"

#include <memory>
#include <utility>

#include "zntopo/core/detail/Failure.h"

namespace zntopo {

namespace {

constexpr int kQueueSize = 1024;

}  // namespace

constinit std::atomic<TopologyNotificationClient::Queue*> TopologyNotificationClient::queue{
    nullptr};

void initializeTopoNotifClientQueue() {
  using Queue = TopologyNotificationClient::Queue;
  if (TopologyNotificationClient::queue.load() != nullptr) return;
  auto made = std::make_unique<Queue>(kQueueSize);
  Queue* none = nullptr;
  // Of two threads that come at once one makes the queue.
  if (TopologyNotificationClient::queue.compare_exchange_strong(none, made.get())) {
    [[maybe_unused]] auto* const kept = made.release();
  }
}

TopologyNotificationClient::Queue& detail::clientQueue() {
  initializeTopoNotifClientQueue();
  return *TopologyNotificationClient::queue.load();
}

TopologyNotificationClient::TopologyNotificationClient() { initializeTopoNotifClientQueue(); }

ZNTopoAPIStatus TopologyNotificationClient::sendNotification(
    ZNRefPtr<TopologyNotification> notification) {
  if (!notification.isNull()) return notification->createAndSendNotification();
  ZNTopoAPIStatus status;
  detail::setFailure(status, ZN_API_INTERNAL_ERROR, "There is no notification to send");
  return status;
}

int TopologyNotificationClient::getNumberOfNotification() {
  return detail::clientQueue().getCurrentQueueLength();
}

ZNRefPtr<TopologyNotification> TopologyNotificationClient::getNextNotification() {
  return detail::clientQueue().dequeue();
}

void TopologyNotificationClient::sendShutdownNotif(ZNRefPtr<TopologyNotification> notification) {
  detail::clientQueue().async_queue(std::move(notification));
}

}  // namespace zntopo
