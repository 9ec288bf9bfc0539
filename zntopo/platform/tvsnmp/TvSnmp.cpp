#include "zntopo/platform/tvsnmp/TvSnmp.h"

#include <unistd.h>

#include <algorithm>
#include <charconv>
#include <cstdlib>
#include <cstring>
#include <random>
#include <string>
#include <utility>

#include "zntopo/platform/tvsnmp/detail/EventFilter.h"
#include "zntopo/platform/tvsnmp/detail/Session.h"

namespace tvsnmp {

namespace {

std::string variable(const char* name) {
  const char* const value = std::getenv(name);
  return value == nullptr ? "" : value;
}

/// No two sessions have the same.
std::string clientName(const char* applicationName) {
  std::random_device random;
  return std::string(applicationName ? applicationName : "tv") + "-" + std::to_string(getpid()) +
         "-" + std::to_string(random()) + std::to_string(random());
}

bool readKeepalive(int& seconds) {
  const std::string text = variable("TV_EVENT_KEEPALIVE");
  if (text.empty()) return true;
  const char* const end = text.data() + text.size();
  const auto read = std::from_chars(text.data(), end, seconds);
  return read.ec == std::errc() && read.ptr == end && seconds >= 5 && seconds <= 65535;
}

EventError readSettings(const std::string& broker, const char* applicationName,
                        BrokerSettings& settings) {
  const auto name = parseBrokerName(broker);
  if (!name) return EventError::BadBroker;
  settings.name = *name;
  settings.client = clientName(applicationName);
  settings.authorities = variable("TV_EVENT_CA");
  settings.certificate = variable("TV_EVENT_CERT");
  settings.key = variable("TV_EVENT_KEY");
  return readKeepalive(settings.keepalive) ? EventError::None : EventError::BadKeepalive;
}

/// What the log may say of a broker: its name without user and password.
std::string publicName(const std::string& broker) {
  const std::size_t at = broker.rfind('@');
  return at == std::string::npos ? broker : "..." + broker.substr(at);
}

EventError openChannel(const std::string& broker, const char* applicationName, const char* filter,
                       Session& session) {
  auto events = eventsOfFilter(filter == nullptr ? "" : filter);
  if (!events) return EventError::BadFilter;
  if (!session.pipe.open(!events->empty())) return EventError::System;
  Subscription subscription{std::move(*events), &session.pipe};
  if (broker.empty()) {
    session.channel = openLoop(std::move(subscription));
    return EventError::None;
  }
  BrokerSettings settings;
  EventError error = readSettings(broker, applicationName, settings);
  if (error == EventError::None) {
    session.channel = openMqtt(settings, std::move(subscription), error);
  }
  return error;
}

std::nullptr_t failed(EventError error) {
  TVsnmpErrno = static_cast<int>(error);
  return nullptr;
}

}  // namespace

EventError sendEvent(SNMPSession* session, const Event& event) {
  if (session == nullptr) return EventError::NoSession;
  std::string bytes;
  const EventError error = encode(event, bytes);
  if (error != EventError::None) return error;
  return static_cast<Session*>(session)->channel->send(event.number, bytes);
}

}  // namespace tvsnmp

using tvsnmp::EventError;

SNMPSession* TVsnmpEventOpen(const char* hostname, const char* applicationName,
                             TVsnmpCallback* callback, void* callbackData, const char* filter) {
  auto session = std::make_unique<tvsnmp::Session>();
  const std::string broker =
      hostname == nullptr || *hostname == '\0' ? tvsnmp::variable("TV_EVENT_BROKER") : hostname;
  const EventError error = tvsnmp::openChannel(broker, applicationName, filter, *session);
  if (error != EventError::None) {
    logEventError(error, tvsnmp::publicName(broker).c_str());
    return tvsnmp::failed(error);
  }
  session->sock_fd = session->pipe.descriptor();
  session->callback = callback;
  session->callback_data = callbackData;
  session->protocol_version = 1;  // SNMPv2
  return session.release();
}

SNMPPdu* TVsnmpRecv(SNMPSession* session) {
  if (session == nullptr) return tvsnmp::failed(EventError::NoSession);
  std::string bytes;
  const EventError error = static_cast<tvsnmp::Session*>(session)->pipe.receive(bytes);
  if (error != EventError::None) return tvsnmp::failed(error);
  SNMPPdu* const pdu = tvsnmp::decode(bytes);
  if (pdu->notify_oid == nullptr) {
    tvsnmp::logEventError(EventError::BadEvent, "what came is no notification and is skipped");
  }
  return pdu;
}

void TVsnmpClose(SNMPSession* session) {
  const std::unique_ptr<tvsnmp::Session> open(static_cast<tvsnmp::Session*>(session));
  if (!open) return;
  const EventError unsent = open->channel->finish();
  if (unsent != EventError::None) tvsnmp::failed(unsent);
}

char* TVsnmpOidToStr(const TVsnmpArc* oid, int length, char* buffer, int bufferSize) {
  if (buffer == nullptr || bufferSize < 1) return nullptr;
  std::string text;
  for (int i = 0; oid != nullptr && i < length; ++i) text += "." + std::to_string(oid[i]);
  const std::size_t size = std::min(text.size(), static_cast<std::size_t>(bufferSize) - 1);
  std::memcpy(buffer, text.data(), size);
  buffer[size] = '\0';
  return buffer;
}

int TVsnmpOidCompare(const TVsnmpArc* oid1, int length1, const TVsnmpArc* oid2, int length2) {
  const auto end = [](const TVsnmpArc* oid, int length) {
    return oid == nullptr || length < 0 ? oid : oid + length;
  };
  const auto order =
      std::lexicographical_compare_three_way(oid1, end(oid1, length1), oid2, end(oid2, length2));
  return order < 0 ? -1 : order > 0 ? 1 : 0;
}
