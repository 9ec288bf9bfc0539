#pragma once

#include <gtest/gtest.h>
#include <poll.h>

#include <memory>
#include <string>

#include "zntopo/platform/tvsnmp/TvSnmp.h"
#include "zntopo/platform/tvsnmp/detail/Session.h"

/// @file
/// Sessions and events in tests.

namespace zntopo::test {

using tvsnmp::EventError;

struct CloseSession {
  void operator()(SNMPSession* session) const { TVsnmpClose(session); }
};
struct FreePdu {
  void operator()(SNMPPdu* pdu) const { TVsnmpFreePdu(pdu); }
};
using OpenSession = std::unique_ptr<SNMPSession, CloseSession>;
using ReceivedPdu = std::unique_ptr<SNMPPdu, FreePdu>;

inline constexpr const char* kOneAndTwo = ".1.3.6.1.4.1.47231.2.17.1.0.60001101,60001102";
inline constexpr const char* kTwo = ".1.3.6.1.4.1.47231.2.17.1.0.60001102";

inline OpenSession openSession(const char* filter, const char* broker = nullptr) {
  return OpenSession(TVsnmpEventOpen(broker, "test", nullptr, nullptr, filter));
}

/// An event with one number in it.
inline EventError sendNumber(const OpenSession& session, unsigned event, int number) {
  return tvsnmp::sendEvent(session.get(), {event, {{{1, 3}, tvsnmp::kIntegerType, number, ""}}});
}

inline ReceivedPdu receive(const OpenSession& session) {
  return ReceivedPdu(TVsnmpRecv(session.get()));
}

/// "60001102: 17" for an event of sendNumber(), and why there is none.
inline std::string described(const ReceivedPdu& pdu) {
  if (!pdu) return TVsnmpErrString(TVsnmpErrno);
  if (pdu->notify_oid_length == 0) return "no notification";
  const SNMPVarBind* const sent = pdu->variables->next_variable;
  return std::to_string(pdu->notify_oid[pdu->notify_oid_length - 1]) + ": " +
         (sent == nullptr ? "nothing" : std::to_string(*sent->val.integer));
}

inline std::string described(EventError error) { return TVsnmpErrString(static_cast<int>(error)); }

/// The next event of a session.
inline std::string next(const OpenSession& session) { return described(receive(session)); }

}  // namespace zntopo::test
