#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "zntopo/platform/tvsnmp/TvSnmp.h"
#include "zntopo/platform/tvsnmp/detail/EventError.h"

/// @file
/// Events as the bytes of SNMPv2 notifications.

namespace tvsnmp {

using Oid = std::vector<TVsnmpArc>;

/// No encoded event is larger, in bytes.
inline constexpr std::size_t kMostBytesOfEvent = 60000;

inline constexpr unsigned char kIntegerType = 2;
inline constexpr unsigned char kTextType = 4;

/// What the arc of an event's number stands behind.
const Oid& eventArc();

/// One variable to send.
struct EventVariable {
  Oid name;
  unsigned char type;  ///< kIntegerType or kTextType
  long integer = 0;
  std::string text;
};

/// An event to send.
struct Event {
  unsigned number = 0;
  std::vector<EventVariable> variables;
};

/// Encodes an event, with sysUpTime.0 and snmpTrapOID.0 in front of its variables.
EventError encode(const Event& event, std::string& bytes);

/// Decodes a notification, for TVsnmpFreePdu(): snmpTrapOID.0 becomes its identifier, sysUpTime.0
/// stays in front of the variables. Bytes that are no notification give an empty one.
SNMPPdu* decode(std::string_view bytes);

}  // namespace tvsnmp
