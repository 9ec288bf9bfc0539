#pragma once

namespace tvsnmp {

/// The values of TVsnmpErrno.
enum class EventError : int {
  None = 0,
  NoSession,
  BadBroker,
  BadSecurity,
  BadKeepalive,
  BadFilter,
  Unreachable,
  Refused,
  NoAnswer,
  System,
  Lost,
  Overflow,
  Closed,
  BadEvent,
  TooLarge,
  Stalled,
  Untrusted
};

/// Writes a line to the platform's log.
void logEventError(EventError error, const char* about);

}  // namespace tvsnmp
