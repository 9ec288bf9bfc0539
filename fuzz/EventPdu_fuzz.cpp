// Outside bytes as an event: what is read of them stays within them, and a notification that comes
// of them keeps what it promises to those who get it. Inputs that begin with "V" are a list of
// variables instead, which are encoded as an event: all of them come back.
#include <algorithm>
#include <cstring>
#include <memory>

#include "fuzz/Fuzz.h"
#include "zntopo/notify/CacheOwner.h"
#include "zntopo/notify/TopologyAttrChangeNotification.h"
#include "zntopo/notify/TopologyNotificationFactory.h"
#include "zntopo/notify/TopologyStateNotification.h"
#include "zntopo/notify/TopologyStatusNotification.h"
#include "zntopo/notify/detail/Receiver.h"
#include "zntopo/platform/tvsnmp/detail/EventPdu.h"

namespace zntopo {

namespace {

/// Stands for the cache's owner and counts how often it is cleared.
class CountingOwner : public CacheOwner {
 public:
  void clear() override { ++clears; }
  void updateCacheObjectStatus(const ObjID& /*id*/, EntityType type, int newStatus,
                               long statusChangeTimeUTC, ZNEntity::EntityStatusType /*statusType*/,
                               ZNTopoAPIStatus& /*status*/) override {
    ZNTOPO_REQUIRE(type != E_Address && statusChangeTimeUTC == 0);
    ZNTOPO_REQUIRE(ObjectStatus::IntToStatus(newStatus) == newStatus);
  }
  void updateCacheObjectAttribute(const ObjID& /*id*/, EntityType /*type*/,
                                  TopologyAttributeType attribute, int /*value*/,
                                  const ObjID& /*addressID*/,
                                  ZNTopoAPIStatus& /*status*/) override {
    ZNTOPO_REQUIRE(attribute >= 0 && attribute <= 7);
  }

  int clears = 0;
};

CountingOwner owner;

struct Free {
  void operator()(SNMPPdu* pdu) const { TVsnmpFreePdu(pdu); }
};
using Pdu = std::unique_ptr<SNMPPdu, Free>;

void checkIdentifier(const ObjID& id) {
  const std::string text = id.toString();
  ZNTOPO_REQUIRE(text.size() <= 2047);
  for (const char c : text) ZNTOPO_REQUIRE((c >= 0x20 && c < 0x7F) || (c >= '\t' && c <= '\r'));
}

void checkNotification(const TopologyNotification& notification) {
  checkIdentifier(notification.getSrcID());
  if (auto* status = dynamic_cast<const TopologyStatusNotification*>(&notification)) {
    ZNTOPO_REQUIRE(status->getStatus() != nullptr && status->getPrevStatus() != nullptr);
    ZNTOPO_REQUIRE(status->getStatusChangeTime() == 0);
  }
  if (auto* change = dynamic_cast<const TopologyAttrChangeNotification*>(&notification)) {
    ZNTOPO_REQUIRE(change->getAttrValStr().empty());
    ZNTOPO_REQUIRE(change->getAttrValType() == E_Integer || change->getAttrValInt() == 0);
    checkIdentifier(change->getAddrId());
  }
}

/// Touches every byte that a variable says it has.
unsigned long touched(const SNMPPdu& pdu) {
  unsigned long sum = 0;
  for (const SNMPVarBind* next = pdu.variables; next != nullptr; next = next->next_variable) {
    for (int i = 0; i < next->oid_length; ++i) sum += next->oid[i];
    for (int i = 0; i < next->val_len; ++i) sum += next->val.string[i];
  }
  return sum;
}

void receive(const std::string& bytes) {
  const Pdu pdu(tvsnmp::decode(bytes));
  ZNTOPO_REQUIRE(pdu != nullptr);
  ZNTOPO_REQUIRE((pdu->notify_oid == nullptr) == (pdu->variables == nullptr));
  volatile unsigned long sum = touched(*pdu);
  static_cast<void>(sum);
  owner.clears = 0;
  const auto notification = TopologyNotificationFactory::createNotification(pdu.get());
  if (notification.isNull()) {
    ZNTOPO_REQUIRE(owner.clears == 0);
    return;
  }
  checkNotification(*notification);
  ZNTopoAPIStatus status;
  detail::applyToCache(*notification, status);
  const auto* const state =
      dynamic_cast<const TopologyStateNotification*>(notification.getObjectPointer());
  const bool isReady = state != nullptr && state->getTopologyState() == TOPOLOGY_READY;
  ZNTOPO_REQUIRE(owner.clears == (isReady ? 2 : 0));
}

/// "V", the event's last digit, then variables: "i" and four bytes, or "t", a length and a text.
tvsnmp::Event eventOf(std::string_view input) {
  tvsnmp::Event event;
  event.number = 60001100U + (input.size() > 1 ? static_cast<unsigned char>(input[1]) % 8 : 0);
  input.remove_prefix(std::min<std::size_t>(input.size(), 2));
  while (!input.empty()) {
    const bool isText = input.front() == 't';
    input.remove_prefix(1);
    if (isText) {
      const std::size_t length = input.empty() ? 0 : static_cast<unsigned char>(input.front()) * 16;
      const std::string text(input.substr(0, length));
      event.variables.push_back({{1, 3, 6}, tvsnmp::kTextType, 0, text});
      input.remove_prefix(std::min(input.size(), length + 1));
      continue;
    }
    std::int32_t number = 0;
    const std::size_t size = std::min(input.size(), sizeof number);
    std::memcpy(&number, input.data(), size);
    event.variables.push_back({{1, 3, 6}, tvsnmp::kIntegerType, number, ""});
    input.remove_prefix(size);
  }
  return event;
}

void sendAndReceive(std::string_view input) {
  const tvsnmp::Event event = eventOf(input);
  std::string bytes;
  if (tvsnmp::encode(event, bytes) != tvsnmp::EventError::None) return;
  const Pdu pdu(tvsnmp::decode(bytes));
  ZNTOPO_REQUIRE(pdu->notify_oid_length == 12 && pdu->notify_oid[11] == event.number);
  const SNMPVarBind* next = pdu->variables->next_variable;
  for (const tvsnmp::EventVariable& sent : event.variables) {
    ZNTOPO_REQUIRE(next != nullptr && next->type == sent.type);
    if (sent.type == tvsnmp::kIntegerType) {
      ZNTOPO_REQUIRE(*next->val.integer == sent.integer);
    } else {
      ZNTOPO_REQUIRE(std::string_view(reinterpret_cast<const char*>(next->val.string),
                                      static_cast<std::size_t>(next->val_len)) == sent.text);
    }
    next = next->next_variable;
  }
  ZNTOPO_REQUIRE(next == nullptr);
  receive(bytes);
}

}  // namespace

CacheOwner& cacheOwner() { return owner; }

}  // namespace zntopo

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string input = zntopo::fuzz::textOf(data, size);
  if (!input.empty() && input.front() == 'V') {
    zntopo::sendAndReceive(input);
  } else {
    zntopo::receive(input);
  }
  return 0;
}
