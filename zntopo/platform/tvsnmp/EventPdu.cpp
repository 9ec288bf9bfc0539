#include "zntopo/platform/tvsnmp/detail/EventPdu.h"

// The library's own headers, in the order that it asks for.
#include <net-snmp/net-snmp-config.h>
// clang-format off
#include <net-snmp/net-snmp-includes.h>
// clang-format on

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <deque>
#include <memory>
#include <mutex>
#include <span>

namespace tvsnmp {

namespace {

constexpr oid kSysUpTime[] = {1, 3, 6, 1, 2, 1, 1, 3, 0};
constexpr oid kSnmpTrapOid[] = {1, 3, 6, 1, 6, 3, 1, 1, 4, 1, 0};

struct PduFree {
  void operator()(netsnmp_pdu* pdu) const { snmp_free_pdu(pdu); }
};
using OwnedPdu = std::unique_ptr<netsnmp_pdu, PduFree>;

/// One received variable with its parts.
struct Variable {
  SNMPVarBind bind{};
  Oid name;
  long integer = 0;
  std::vector<unsigned char> bytes;
};

/// A received notification with its parts.
struct Notification : SNMPPdu {
  Notification() : SNMPPdu{} {}
  Oid event;
  std::deque<Variable> all;  // never moves what it holds
};

/// Makes the library quiet, and keeps other threads of ours out of it: it counts its requests.
std::unique_lock<std::mutex> useLibrary() {
  static auto& mutex = *new std::mutex();
  static bool isQuiet = false;
  std::unique_lock hold(mutex);
  // Without a log handler, as the host may have set one, it would write to standard error.
  if (!isQuiet && get_logh_head() == nullptr) {
    netsnmp_register_loghandler(NETSNMP_LOGHANDLER_NONE, LOG_DEBUG);
  }
  isQuiet = true;
  return hold;
}

/// Hundredths of a second since this process began to send.
long upTime() {
  static const auto start = std::chrono::steady_clock::now();
  const auto up = std::chrono::steady_clock::now() - start;
  return static_cast<long>(std::chrono::duration_cast<std::chrono::milliseconds>(up).count() / 10 %
                           0xFFFFFFFFLL);
}

bool add(netsnmp_pdu* pdu, std::span<const oid> name, unsigned char type, const void* value,
         std::size_t size) {
  return snmp_pdu_add_variable(pdu, name.data(), name.size(), type, value, size) != nullptr;
}

bool addPreamble(netsnmp_pdu* pdu, unsigned number) {
  const long time = upTime();
  Oid event = eventArc();
  event.push_back(number);
  return add(pdu, kSysUpTime, ASN_TIMETICKS, &time, sizeof time) &&
         add(pdu, kSnmpTrapOid, ASN_OBJECT_ID, event.data(), event.size() * sizeof(oid));
}

bool add(netsnmp_pdu* pdu, const EventVariable& variable) {
  if (variable.type == kTextType) {
    return add(pdu, variable.name, kTextType, variable.text.data(), variable.text.size());
  }
  return variable.type == kIntegerType &&
         add(pdu, variable.name, kIntegerType, &variable.integer, sizeof variable.integer);
}

OwnedPdu pduOf(const Event& event) {
  OwnedPdu pdu(snmp_pdu_create(SNMP_MSG_TRAP2));
  if (!pdu || !addPreamble(pdu.get(), event.number)) return nullptr;
  for (const EventVariable& variable : event.variables) {
    if (!add(pdu.get(), variable)) return nullptr;
  }
  return pdu;
}

std::size_t textSize(const Event& event) {
  std::size_t size = 0;
  for (const EventVariable& variable : event.variables) size += variable.text.size();
  return size;
}

bool isNamed(const netsnmp_variable_list* variable, std::span<const oid> name, u_char type) {
  return variable != nullptr && variable->type == type &&
         std::ranges::equal(std::span(variable->name, variable->name_length), name);
}

OwnedPdu parsed(std::string_view bytes) {
  OwnedPdu pdu(snmp_pdu_create(0));
  // The parser takes its input as changeable.
  std::vector<u_char> copy(bytes.begin(), bytes.end());
  std::size_t left = copy.size();
  if (!pdu || copy.empty() || snmp_pdu_parse(pdu.get(), copy.data(), &left) != 0 ||
      pdu->command != SNMP_MSG_TRAP2) {
    return nullptr;
  }
  return pdu;
}

void give(Variable& to, const netsnmp_variable_list& from) {
  to.name.assign(from.name, from.name + from.name_length);
  to.bind.oid = to.name.data();
  to.bind.oid_length = static_cast<int>(to.name.size());
  to.bind.type = from.type;
  if (from.type == kIntegerType && from.val.integer != nullptr) {
    to.integer = *from.val.integer;
    to.bind.val.integer = &to.integer;
    to.bind.val_len = sizeof to.integer;
    return;
  }
  // A NUL behind the value, so that nothing that takes it for a text runs beyond.
  const u_char* const value = from.val.string;
  const std::size_t size = value == nullptr ? 0 : from.val_len;
  to.bytes.assign(size + sizeof(std::uint64_t), 0);
  std::copy_n(value, size, to.bytes.begin());
  to.bind.val.string = to.bytes.data();
  to.bind.val_len = static_cast<int>(size);
}

void append(Notification& notification, const netsnmp_variable_list& from) {
  SNMPVarBind* const last = notification.all.empty() ? nullptr : &notification.all.back().bind;
  give(notification.all.emplace_back(), from);
  SNMPVarBind& added = notification.all.back().bind;
  (last == nullptr ? notification.variables : last->next_variable) = &added;
}

}  // namespace

const Oid& eventArc() {
  static const Oid& arc = *new Oid{1, 3, 6, 1, 4, 1, 47231, 2, 17, 1, 0};
  return arc;
}

EventError encode(const Event& event, std::string& bytes) {
  const auto hold = useLibrary();
  if (textSize(event) > kMostBytesOfEvent) return EventError::TooLarge;
  const OwnedPdu pdu = pduOf(event);
  if (!pdu) return EventError::BadEvent;
  bytes.resize(kMostBytesOfEvent);
  auto* const start = reinterpret_cast<u_char*>(bytes.data());
  std::size_t left = bytes.size();
  const u_char* const end = snmp_pdu_build(pdu.get(), start, &left);
  bytes.resize(end == nullptr ? 0 : static_cast<std::size_t>(end - start));
  return end == nullptr ? EventError::TooLarge : EventError::None;
}

SNMPPdu* decode(std::string_view bytes) {
  const auto hold = useLibrary();
  auto notification = std::make_unique<Notification>();
  const OwnedPdu pdu = parsed(bytes);
  const netsnmp_variable_list* const time = pdu ? pdu->variables : nullptr;
  if (!isNamed(time, kSysUpTime, ASN_TIMETICKS) ||
      !isNamed(time->next_variable, kSnmpTrapOid, ASN_OBJECT_ID)) {
    return notification.release();
  }
  const netsnmp_variable_list* const event = time->next_variable;
  notification->event.assign(event->val.objid, event->val.objid + event->val_len / sizeof(oid));
  notification->notify_oid = notification->event.data();
  notification->notify_oid_length = static_cast<int>(notification->event.size());
  append(*notification, *time);
  for (auto* next = event->next_variable; next != nullptr; next = next->next_variable) {
    append(*notification, *next);
  }
  return notification.release();
}

}  // namespace tvsnmp

void TVsnmpFreePdu(SNMPPdu* pdu) { delete static_cast<tvsnmp::Notification*>(pdu); }
