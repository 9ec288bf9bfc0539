#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <functional>
#include <memory>
#include <string>
#include <thread>

#include "tests/platform/tvsnmp/SessionSupport.h"
#include "tests/support/EventBroker.h"
#include "tests/support/Eventually.h"
#include "tests/support/FakeCacheOwner.h"
#include "tests/support/FreshProcess.h"
#include "zntopo/notify/SessionManagementNotification.h"
#include "zntopo/notify/TopoNotificationClientFactory.h"
#include "zntopo/notify/TopologyAttrChangeNotification.h"
#include "zntopo/notify/TopologyLifeCycleNotification.h"
#include "zntopo/notify/TopologyStateNotification.h"
#include "zntopo/notify/TopologyStatusNotification.h"

/// @file
/// What tests of notifications share.

namespace zntopo::test {

using Notification = ZNRefPtr<TopologyNotification>;

using NotifyTest = CarriedEventsTest;

inline TopoNotificationClientFactory& clientFactory() {
  return *TopoNotificationClientFactory::instance();
}

inline Notification attributeChange(int value, const ObjID& id = ObjID("node-1")) {
  return new TopologyAttrChangeNotification(E_Node, AttributeChangeNotif, id, Snmp_State, E_Integer,
                                            value, "", ObjID(), 0);
}

/// "attribute 5" and the like, by what a notification is.
inline std::string described(const Notification& notification) {
  const TopologyNotification* const any = notification.getObjectPointer();
  if (any == nullptr) return "null";
  if (auto* attribute = dynamic_cast<const TopologyAttrChangeNotification*>(any)) {
    return "attribute " + std::to_string(attribute->getAttrValInt());
  }
  if (auto* status = dynamic_cast<const TopologyStatusNotification*>(any)) {
    return "status " + status->getPrevStatus()->toString() + " to " +
           status->getStatus()->toString();
  }
  if (auto* state = dynamic_cast<const TopologyStateNotification*>(any)) {
    return "state " + std::to_string(state->getTopologyState());
  }
  if (auto* life = dynamic_cast<const TopologyLifeCycleNotification*>(any)) {
    return "life cycle " + std::to_string(life->getZoneID());
  }
  auto* const session = dynamic_cast<const SessionManagementNotification*>(any);
  if (session == nullptr) return "unknown";
  return std::string(session->getNotifSubType() == ERROR ? "error " : "shutdown ") +
         std::to_string(session->getStatus().getStatus());
}

/// The client of this process, and its receiving thread. At its end the thread has ended, too.
class Consumer {
 public:
  explicit Consumer(NotificationFilter filter = ALL) {
    ZNTopoAPIStatus status;
    client_ = clientFactory().createNotificationClient(filter, status);
    EXPECT_TRUE(status.isOK()) << status.getStatus();
    const ZNTopoAPIStatus receiving = clientFactory().receiveNotification();
    isReceiving_ = receiving.isOK();
    EXPECT_TRUE(isReceiving_) << receiving.getStatus();
  }
  ~Consumer() {
    if (!isReceiving_) return;
    clientFactory().doCleanup();
    while (next().rfind("error", 0) != 0) {
    }
  }
  Consumer(const Consumer&) = delete;
  Consumer& operator=(const Consumer&) = delete;

  TopologyNotificationClient& client() { return *client_; }
  /// The next notification as text. Behind an error nothing more is to come.
  std::string next() {
    std::string text = described(client_->getNextNotification());
    if (text.rfind("error", 0) == 0) isReceiving_ = false;
    return text;
  }
  ZNTopoStatus send(const Notification& notification) {
    return client_->sendNotification(notification).getStatus();
  }

 private:
  ZNRefPtr<TopologyNotificationClient> client_;
  bool isReceiving_ = false;
};

}  // namespace zntopo::test
