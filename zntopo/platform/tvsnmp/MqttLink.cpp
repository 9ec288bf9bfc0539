#include "zntopo/platform/tvsnmp/detail/MqttLink.h"

#include <poll.h>
#include <sys/eventfd.h>
#include <unistd.h>

#include <algorithm>
#include <iterator>
#include <string>
#include <vector>

#include "zntopo/platform/tvsnmp/detail/EventPdu.h"
#include "zntopo/platform/tvsnmp/detail/EventPipe.h"

namespace tvsnmp {

namespace {

using Clock = std::chrono::steady_clock;

/// At least once: the broker keeps an event until each receiver has acknowledged it.
constexpr int kQos = 1;
/// What is on its way at once. More wait in the client, in their order.
constexpr int kMostInFlight = 200;
/// Answers of a broker from this number on say no.
constexpr int kFirstRefusal = 0x80;
constexpr int kTurnMilliseconds = 1000;
constexpr auto kFarewell = std::chrono::seconds(1);

std::string topicOf(unsigned event) { return "tv/event/" + std::to_string(event); }

const char* orNull(const std::string& text) { return text.empty() ? nullptr : text.c_str(); }

void initLibrary() {
  static std::once_flag once;
  std::call_once(once, [] { mosquitto_lib_init(); });
}

}  // namespace

MqttLink::~MqttLink() {
  if (client_ != nullptr) mosquitto_destroy(client_);
  if (wake_ >= 0) ::close(wake_);
}

EventError MqttLink::prepare(const BrokerSettings& settings) {
  initLibrary();
  settings_ = settings;
  wake_ = eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK);
  client_ = mosquitto_new(settings_.client.c_str(), true, this);
  if (wake_ < 0 || client_ == nullptr) return EventError::System;
  mosquitto_threaded_set(client_, true);
  // The version in which a broker tells who may not send.
  mosquitto_int_option(client_, MOSQ_OPT_PROTOCOL_VERSION, MQTT_PROTOCOL_V5);
  mosquitto_int_option(client_, MOSQ_OPT_SEND_MAXIMUM, kMostInFlight);
  // Else an event waits for the broker to acknowledge the packet before it: up to 40 milliseconds.
  mosquitto_int_option(client_, MOSQ_OPT_TCP_NODELAY, 1);
  setCallbacks();
  const BrokerName& name = settings_.name;
  if (!name.user.empty() && mosquitto_username_pw_set(client_, name.user.c_str(),
                                                      orNull(name.password)) != MOSQ_ERR_SUCCESS) {
    return EventError::BadBroker;
  }
  return name.isSecure ? secure(settings_) : EventError::None;
}

EventError MqttLink::secure(const BrokerSettings& settings) {
  const char* const authorities = orNull(settings.authorities);
  const int result =
      mosquitto_tls_set(client_, authorities, authorities ? nullptr : "/etc/ssl/certs",
                        orNull(settings.certificate), orNull(settings.key), nullptr);
  return result == MOSQ_ERR_SUCCESS ? EventError::None : EventError::BadSecurity;
}

void MqttLink::setCallbacks() {
  mosquitto_connect_callback_set(
      client_, [](mosquitto*, void* link, int answer) { of(link).connected(answer); });
  mosquitto_subscribe_callback_set(client_,
                                   [](mosquitto*, void* link, int, int count, const int* granted) {
                                     of(link).subscribed(count, granted);
                                   });
  mosquitto_publish_v5_callback_set(
      client_, [](mosquitto*, void* link, int, int answer, const mosquitto_property*) {
        of(link).acknowledged(answer);
      });
  mosquitto_message_callback_set(client_,
                                 [](mosquitto*, void* link, const mosquitto_message* message) {
                                   of(link).received(*message);
                                 });
}

void MqttLink::connected(int answer) {
  if (answer != 0) return end(EventError::Refused);
  if (subscription_.events.empty()) {
    const std::lock_guard hold(mutex_);
    if (phase_ == Phase::Connecting) phase_ = Phase::Ready;
    return changed_.notify_all();
  }
  std::vector<std::string> topics;
  for (const unsigned event : subscription_.events) topics.push_back(topicOf(event));
  std::vector<char*> pointers;
  for (std::string& topic : topics) pointers.push_back(topic.data());
  const int result = mosquitto_subscribe_multiple(
      client_, nullptr, static_cast<int>(pointers.size()), pointers.data(), kQos, 0, nullptr);
  if (result != MOSQ_ERR_SUCCESS) end(EventError::Refused);
}

void MqttLink::subscribed(int count, const int* granted) {
  for (int i = 0; i < count; ++i) {
    // A weaker service than asked for could lose events.
    if (granted[i] != kQos) return end(EventError::Refused);
  }
  const std::lock_guard hold(mutex_);
  if (phase_ == Phase::Connecting) phase_ = Phase::Ready;
  changed_.notify_all();
}

void MqttLink::acknowledged(int answer) {
  if (answer >= kFirstRefusal) {
    logEventError(EventError::Refused, mosquitto_reason_string(answer));
    // The library gives such a connection up, too.
    end(EventError::Refused);
  }
  const std::lock_guard hold(mutex_);
  if (answer >= kFirstRefusal) notSent(EventError::Refused);
  if (unacknowledged_.empty()) return;
  bytes_ -= unacknowledged_.front();
  unacknowledged_.pop_front();
  if (unacknowledged_.empty()) changed_.notify_all();
}

void MqttLink::received(const mosquitto_message& message) {
  const auto size = static_cast<std::size_t>(message.payloadlen);
  std::string_view event(static_cast<const char*>(message.payload), size);
  // No event of ours is empty or so large. One byte stands for it and is received as no
  // notification.
  if (size == 0 || size > kMostBytesOfEvent) event = "?";
  const std::lock_guard hold(mutex_);
  if (!isAbandoned_) subscription_.pipe->append(event);
}

void MqttLink::serve() {
  const BrokerName& name = settings_.name;
  int result = mosquitto_connect(client_, name.host.c_str(), name.port, settings_.keepalive);
  if (result != MOSQ_ERR_SUCCESS) {
    return end(result == MOSQ_ERR_TLS ? EventError::Untrusted : EventError::Unreachable);
  }
  while (result == MOSQ_ERR_SUCCESS) result = turn();
  end(reasonOf(result));
}

int MqttLink::turn() {
  if (mayLeave()) return MOSQ_ERR_CONN_LOST;
  const short interest = mosquitto_want_write(client_) ? POLLIN | POLLOUT : POLLIN;
  pollfd descriptors[] = {{mosquitto_socket(client_), interest, 0}, {wake_, POLLIN, 0}};
  poll(descriptors, 2, kTurnMilliseconds);
  if (descriptors[1].revents != 0) {
    eventfd_t count = 0;
    eventfd_read(wake_, &count);
  }
  int result = MOSQ_ERR_SUCCESS;
  if ((descriptors[0].revents & ~POLLOUT) != 0) result = mosquitto_loop_read(client_, 1);
  if (result == MOSQ_ERR_SUCCESS && mosquitto_want_write(client_)) {
    result = mosquitto_loop_write(client_, 1);
  }
  return result == MOSQ_ERR_SUCCESS ? mosquitto_loop_misc(client_) : result;
}

EventError MqttLink::reasonOf(int result) {
  const std::lock_guard hold(mutex_);
  if (phase_ == Phase::Ready) return EventError::Lost;
  if (result == MOSQ_ERR_TLS) return EventError::Untrusted;
  return result == MOSQ_ERR_KEEPALIVE ? EventError::NoAnswer : EventError::Refused;
}

bool MqttLink::mayLeave() {
  const std::lock_guard hold(mutex_);
  return mosquitto_socket(client_) < 0 ||
         (isClosing_ && (!mosquitto_want_write(client_) || Clock::now() >= leaveBy_));
}

void MqttLink::end(EventError error) {
  const std::lock_guard hold(mutex_);
  if (phase_ == Phase::Ended) return;
  error_ = error;
  phase_ = Phase::Ended;
  if (!isAbandoned_) subscription_.pipe->fail(error_);
  changed_.notify_all();
}

EventError MqttLink::awaitReady(std::chrono::seconds patience) {
  std::unique_lock hold(mutex_);
  changed_.wait_for(hold, patience, [this] { return phase_ != Phase::Connecting; });
  if (phase_ == Phase::Connecting) return EventError::NoAnswer;
  return error_;
}

EventError MqttLink::send(unsigned event, std::string_view bytes) {
  {
    const std::lock_guard hold(mutex_);
    if (phase_ == Phase::Ended) return notSent(error_);
    if (bytes_ + bytes.size() > kMostUnacknowledged) return notSent(EventError::Stalled);
    bytes_ += bytes.size();
    unacknowledged_.push_back(bytes.size());
  }
  const int result = mosquitto_publish(client_, nullptr, topicOf(event).c_str(),
                                       static_cast<int>(bytes.size()), bytes.data(), kQos, false);
  wake();
  if (result == MOSQ_ERR_SUCCESS) return EventError::None;
  const std::lock_guard hold(mutex_);
  forget(bytes.size());
  return notSent(result == MOSQ_ERR_OVERSIZE_PACKET ? EventError::TooLarge : EventError::Lost);
}

EventError MqttLink::notSent(EventError error) {
  if (unsent_ == EventError::None) unsent_ = error;
  return error;
}

void MqttLink::forget(std::size_t size) {
  const auto last = std::find(unacknowledged_.rbegin(), unacknowledged_.rend(), size);
  if (last == unacknowledged_.rend()) return;
  bytes_ -= size;
  unacknowledged_.erase(std::next(last).base());
}

EventError MqttLink::close(std::chrono::seconds patience) {
  EventError unsent = EventError::None;
  {
    std::unique_lock hold(mutex_);
    changed_.wait_for(hold, patience,
                      [this] { return phase_ == Phase::Ended || unacknowledged_.empty(); });
    if (!unacknowledged_.empty()) {
      notSent(phase_ == Phase::Ended ? error_ : EventError::NoAnswer);
    }
    unsent = unsent_;
    isClosing_ = true;
    leaveBy_ = Clock::now() + kFarewell;
  }
  mosquitto_disconnect(client_);
  wake();
  return unsent;
}

void MqttLink::abandon() {
  const std::lock_guard hold(mutex_);
  isAbandoned_ = true;
}

void MqttLink::wake() const { eventfd_write(wake_, 1); }

}  // namespace tvsnmp
