#include "zntopo/notify/detail/SendEvent.h"

#include <ctime>
#include <string>

#include "zntopo/model/EntityType.h"
#include "zntopo/notify/TopoNotificationClientFactory.h"
#include "zntopo/notify/TopologyAttrChangeNotification.h"
#include "zntopo/notify/TopologyLifeCycleNotification.h"
#include "zntopo/notify/TopologySession.h"
#include "zntopo/notify/TopologyStateNotification.h"
#include "zntopo/notify/TopologyStatusNotification.h"
#include "zntopo/notify/detail/EventChannel.h"
#include "zntopo/notify/detail/EventTrace.h"
#include "zntopo/notify/detail/SessionGuard.h"

namespace zntopo {

namespace detail {

namespace {

ZNTopoAPIStatus noSession() {
  traceLine(kTraceEvent, "Session is Null");
  ZNTopoAPIStatus status;
  // Without a session there is nothing to send with.
  status.setStatus(ZN_API_INTERNAL_ERROR);
  return status;
}

ZNRefPtr<TopologySession> sessionOfProcess() {
  TopoNotificationClientFactory* const factory = TopoNotificationClientFactory::instance();
  return factory == nullptr ? ZNRefPtr<TopologySession>() : factory->getTopologySession();
}

template <typename Call>
int sendOn(const TopologySession& session, const Call& call) {
  const SessionGuard hold;
  return channelOf(session).use(call);
}

}  // namespace

ZNTopoAPIStatus sendValues(const Sending& sending, const WireValues& values) {
  const ZNRefPtr<TopologySession> session = sessionOfProcess();
  if (sending.trace != nullptr) sending.trace(values);
  if (session.isNull()) return noSession();
  const char* error = "";
  const int result =
      sendOn(*session, [&](SNMPSession* open) { return sending.call(open, &error, values); });
  ZNTopoAPIStatus status;
  if (result == 0) {
    traceLine(kTraceEvent, sending.success);
    status.setStatus(ZN_API_SUCCESS);
    return status;
  }
  traceLine(kTraceEventFailure, error);
  status.setStatus(sending.failure);
  status.addAuxMsg(error);
  return status;
}

namespace {

/// What all events tell of their source.
WireValues valuesOf(const TopologyNotification& notification) {
  WireValues values;
  values.text(Slot::Marlo) = "marlo";
  values.text(Slot::SrcID) = notification.getSrcID().toString();
  values.integer(Slot::EntityType) = notification.getSrcEntityType();
  return values;
}

/// A notification without a status tells of none.
int numberOf(const ObjectStatus* status) {
  return status == nullptr ? int{ObjectStatus::NoStatus} : int{status->getStatusAsInt()};
}

void traceStatusChange(const WireValues& values) {
  traceLine(kTraceEvent, [&] {
    const auto type = static_cast<EntityType>(values.integer(Slot::EntityType));
    return "EntityType: " + getEntityTypeAsString(type);
  });
  traceLine(kTraceEvent,
            [&] { return "PreviousStatus: " + std::to_string(values.integer(Slot::PrevStatus)); });
  traceLine(kTraceEvent,
            [&] { return "newStatus: " + std::to_string(values.integer(Slot::NewStatus)); });
}

}  // namespace

}  // namespace detail

using detail::Slot;

ZNTopoAPIStatus TopologyStatusNotification::createAndSendNotification() {
  detail::WireValues values = detail::valuesOf(*this);
  values.text(Slot::SendTime) = std::to_string(std::time(nullptr));
  values.integer(Slot::NewStatus) = detail::numberOf(newStatus);
  values.integer(Slot::PrevStatus) = detail::numberOf(prevStatus);
  values.integer(Slot::StatusType) = v6EntityStatusType;
  return detail::sendEvent<detail::kStatusChangeEvent>(values, detail::traceStatusChange);
}

ZNTopoAPIStatus TopologyAttrChangeNotification::createAndSendNotification() {
  detail::WireValues values = detail::valuesOf(*this);
  values.integer(Slot::AttrType) = getTopoAttrTypeAsInt(attrType);
  values.integer(Slot::AttrValType) = getAttrValTypeAsInt(attrValType);
  values.integer(Slot::AttrValInt) = attrValInt;
  values.text(Slot::AttrValStr) = attrValStr;
  values.text(Slot::OtherID) = _hsrpOrIfcObjID.toString();
  values.integer(Slot::AssocType) = _assocType;
  return detail::sendEvent<detail::kAttrChangeEvent>(values);
}

ZNTopoAPIStatus TopologyLifeCycleNotification::createAndSendNotification() {
  detail::WireValues values = detail::valuesOf(*this);
  values.integer(Slot::ZoneID) = zoneID;
  return detail::sendEvent<detail::kLifeCycleEvent>(values);
}

ZNTopoAPIStatus TopologyStateNotification::createAndSendNotification() {
  detail::WireValues values = detail::valuesOf(*this);
  values.integer(Slot::TopoState) = topoState;
  values.integer(Slot::DiscoStart) = discoStartTime;
  values.integer(Slot::DiscoEnd) = discoEndTime;
  values.integer(Slot::PrevDiscoEnd) = prevDiscoEndTime;
  values.integer(Slot::DiscoFlag) = discoFlag;
  return detail::sendEvent<detail::kTopologyStateEvent>(values);
}

}  // namespace zntopo
