#include "zntopo/platform/tvsnmp/detail/EventError.h"

#include <array>
#include <string>

#include "zntopo/platform/tvsnmp/TvSnmp.h"
#include "zntopo/platform/tvxpl/TvXplLog.h"

namespace tvsnmp {

namespace {

struct ErrorText {
  EventError error;
  const char* text;
};

constexpr std::array kTexts{
    ErrorText{EventError::None, "no error"},
    ErrorText{EventError::NoSession, "there is no event session"},
    ErrorText{EventError::BadBroker,
              "the event broker's name is not understood; write mqtt://HOST or mqtts://HOST, "
              "with USER:PASSWORD@ in front of the host and :PORT behind it if they are needed"},
    ErrorText{EventError::BadSecurity,
              "the files that TV_EVENT_CA, TV_EVENT_CERT and TV_EVENT_KEY name cannot be used"},
    ErrorText{EventError::BadKeepalive, "TV_EVENT_KEEPALIVE is not a number from 5 to 65535"},
    ErrorText{EventError::BadFilter, "the filter names no event of this platform"},
    ErrorText{EventError::Unreachable, "the event broker cannot be reached"},
    ErrorText{EventError::Refused,
              "the event broker refuses the session; look at its users and access lists"},
    ErrorText{EventError::NoAnswer, "the event broker does not answer"},
    ErrorText{EventError::System, "the system has no more descriptors, threads or memory"},
    ErrorText{EventError::Lost, "the event broker was lost"},
    ErrorText{EventError::Overflow, "more events wait to be received than fit"},
    ErrorText{EventError::Closed, "the event session is closed"},
    ErrorText{EventError::BadEvent, "the event cannot be encoded"},
    ErrorText{EventError::TooLarge, "the event is too large"},
    ErrorText{EventError::Stalled, "the event broker does not take what was sent before"},
    ErrorText{EventError::Untrusted,
              "the event broker and this process do not trust each other; TV_EVENT_CA names the "
              "authority of the broker's certificate, TV_EVENT_CERT and TV_EVENT_KEY one's own"},
};

}  // namespace

void logEventError(EventError error, const char* about) {
  std::string text = "Event session: ";
  text += TVsnmpErrString(static_cast<int>(error));
  if (about != nullptr && *about != '\0') text.append(": ").append(about);
  TvXplMsg::MessageList_t messages;
  messages.Add(TvXplMsg::CreateError_t(text));
  TvXplLog::Log(messages);
}

}  // namespace tvsnmp

thread_local int TVsnmpErrno = 0;

const char* TVsnmpErrString(int error) {
  for (const tvsnmp::ErrorText& row : tvsnmp::kTexts) {
    if (static_cast<int>(row.error) == error) return row.text;
  }
  return "unknown error";
}
