#include "zntopo/notify/TopologyNotificationFactory.h"

#include <algorithm>
#include <array>
#include <memory>
#include <sstream>
#include <string>

#include "zntopo/core/MCLog.h"
#include "zntopo/notify/CacheOwner.h"
#include "zntopo/notify/TopologyAttrChangeNotification.h"
#include "zntopo/notify/TopologyLifeCycleNotification.h"
#include "zntopo/notify/TopologyStateNotification.h"
#include "zntopo/notify/detail/AttributeNumbers.h"
#include "zntopo/notify/detail/EventTrace.h"
#include "zntopo/notify/detail/EventWire.h"
#include "zntopo/notify/detail/OwningStatusNotification.h"
#include "zntopo/platform/tvxpl/TvXplSync.h"

namespace zntopo {

namespace {

using detail::Slot;
using detail::WireValues;
using Notification = TopologyNotificationFactory::Notification;

/// One kind of event, and what makes its notification.
struct Reader {
  int number;
  const char* traced;
  Notification (*create)(SNMPPdu*);
};

constexpr std::array kReaders{
    Reader{detail::kStatusChangeEvent.number, "Creating Status Change Notification from PDU",
           TopologyNotificationFactory::createStatusChangeNotif},
    Reader{detail::kAttrChangeEvent.number, "Creating Attribute Change Notification from PDU",
           TopologyNotificationFactory::createAttrChangeNotif},
    Reader{detail::kLifeCycleEvent.number, "Creating Life Cycle Notification from PDU",
           TopologyNotificationFactory::createLifeCycleNotif},
    Reader{detail::kTopologyStateEvent.number, "Creating Topology State Notification from PDU",
           TopologyNotificationFactory::createTopologyStateNotif},
};

bool isEvent(const SNMPPdu& pdu, int number) {
  const TVsnmpArc oid[] = {1, 3, 6, 1, 4, 1, 47231, 2, 17, 1, 0, static_cast<TVsnmpArc>(number)};
  return TVsnmpOidCompare(pdu.notify_oid, pdu.notify_oid_length, oid, 12) == 0;
}

std::string receivedOid(const SNMPPdu& pdu) {
  char text[64];
  TVsnmpOidToStr(pdu.notify_oid, pdu.notify_oid_length, text, sizeof text);
  return std::string("The Oid Received is :: ") + text;
}

EntityType entityTypeOf(const WireValues& values) {
  return static_cast<EntityType>(values.integer(Slot::EntityType));
}

/// The number behind the enumeration travels as another one; no number else may be out of range.
bool isKnownAttribute(int number) {
  return detail::isAttribute(number) || number == detail::kNoAttribute;
}

bool isPrintable(unsigned char c) { return (c >= 0x20 && c < 0x7F) || (c >= '\t' && c <= '\r'); }

std::string described(const TopologyStateNotification& state) {
  std::ostringstream line;
  line << "Creating State Notif: entType = " << state.getSrcEntityType()
       << " topoNotif = " << state.getTopologyNotificationType()
       << " objID = " << state.getSrcID().toString() << " state = " << state.getTopologyState()
       << " startTime = " << state.getDiscoStartTime() << " endTime = " << state.getDiscoEndTime()
       << " prevDiscoEndTime = " << state.getPrevDiscoEndTime()
       << " discoFlag = " << state.getDiscoFlag();
  return line.str();
}

}  // namespace

Notification TopologyNotificationFactory::createNotification(SNMPPdu* pdu) {
  if (pdu == nullptr) return {};
  const TvXplSync::Lock_t hold(s_TVsnmpGuard);
  detail::traceLine(detail::kTraceEvent, [pdu] { return receivedOid(*pdu); });
  for (const Reader& reader : kReaders) {
    if (!isEvent(*pdu, reader.number)) continue;
    detail::traceLine(detail::kTraceEvent, reader.traced);
    return reader.create(pdu);
  }
  return {};
}

Notification TopologyNotificationFactory::createStatusChangeNotif(SNMPPdu* pdu) {
  if (pdu == nullptr) return {};
  const WireValues values =
      detail::readVariables(detail::kStatusChangeEvent.positions, pdu->variables);
  return new detail::OwningStatusNotification(
      getEntityTypeFromInt(values.integer(Slot::EntityType)), values.text(Slot::SrcID),
      values.integer(Slot::NewStatus), values.integer(Slot::PrevStatus), 0,
      static_cast<ZNEntity::EntityStatusType>(values.integer(Slot::StatusType)));
}

Notification TopologyNotificationFactory::createAttrChangeNotif(SNMPPdu* pdu) {
  if (pdu == nullptr) return {};
  const WireValues values =
      detail::readVariables(detail::kAttrChangeEvent.positions, pdu->variables);
  const int attribute = values.integer(Slot::AttrType);
  if (!isKnownAttribute(attribute)) {
    MCLog::log(MC_MAJOR, "An event of the attribute %d, which there is not, is skipped\n",
               attribute);
    return {};
  }
  const AttrValType valueType = getAttrValTypeFromInt(values.integer(Slot::AttrValType));
  const int value = valueType == E_Integer ? values.integer(Slot::AttrValInt) : 0;
  return new TopologyAttrChangeNotification(
      entityTypeOf(values), AttributeChangeNotif, values.text(Slot::SrcID),
      getTopoAttrTypeFromInt(attribute), valueType, value, "", values.text(Slot::OtherID),
      values.integer(Slot::AssocType));
}

Notification TopologyNotificationFactory::createLifeCycleNotif(SNMPPdu* pdu) {
  if (pdu == nullptr) return {};
  const WireValues values =
      detail::readVariables(detail::kLifeCycleEvent.positions, pdu->variables);
  // Its type is not LifeCycleNotif: receivers know it so.
  return new TopologyLifeCycleNotification(entityTypeOf(values), AttributeChangeNotif,
                                           values.text(Slot::SrcID), values.integer(Slot::ZoneID));
}

Notification TopologyNotificationFactory::createTopologyStateNotif(SNMPPdu* pdu) {
  if (pdu == nullptr) return {};
  const WireValues values =
      detail::readVariables(detail::kTopologyStateEvent.positions, pdu->variables);
  const auto state = static_cast<TopologyState>(values.integer(Slot::TopoState));
  if (state == TOPOLOGY_READY) cacheOwner().clear();
  auto notification = std::make_unique<TopologyStateNotification>(
      entityTypeOf(values), TopologyStateNotif, values.text(Slot::SrcID), state,
      values.integer(Slot::DiscoStart), values.integer(Slot::DiscoEnd),
      values.integer(Slot::PrevDiscoEnd), static_cast<DiscoType>(values.integer(Slot::DiscoFlag)));
  detail::traceLine(detail::kTraceEvent, [&] { return described(*notification); });
  return notification.release();
}

void TopologyNotificationFactory::formatString(char* dest, int destSize, unsigned char* src,
                                               int srcLen) {
  if (dest == nullptr || destSize < 1) return;
  const int size = src == nullptr ? 0 : std::clamp(srcLen, 0, destSize - 1);
  for (int i = 0; i < size; ++i) dest[i] = isPrintable(src[i]) ? static_cast<char>(src[i]) : '.';
  dest[size] = '\0';
}

}  // namespace zntopo
