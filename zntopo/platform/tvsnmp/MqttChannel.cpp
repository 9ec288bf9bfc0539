#include <memory>
#include <thread>
#include <utility>

#include "zntopo/platform/tvsnmp/detail/Channel.h"
#include "zntopo/platform/tvsnmp/detail/MqttLink.h"
#include "zntopo/platform/tvsnmp/detail/QuietThread.h"

namespace tvsnmp {

namespace {

constexpr auto kOpenPatience = std::chrono::seconds(10);
constexpr auto kClosePatience = std::chrono::seconds(5);

class MqttChannel : public Channel {
 public:
  explicit MqttChannel(std::shared_ptr<MqttLink> link, std::thread thread)
      : link_(std::move(link)), thread_(std::move(thread)) {}
  ~MqttChannel() override { end(); }
  MqttChannel(const MqttChannel&) = delete;
  MqttChannel& operator=(const MqttChannel&) = delete;

  EventError send(unsigned event, std::string_view bytes) override {
    return link_->send(event, bytes);
  }
  EventError finish() override { return end(); }

 private:
  EventError end() {
    if (thread_.joinable()) {
      result_ = link_->close(kClosePatience);
      thread_.join();
    }
    return result_;
  }

  const std::shared_ptr<MqttLink> link_;
  std::thread thread_;
  EventError result_ = EventError::None;
};

}  // namespace

std::unique_ptr<Channel> openMqtt(const BrokerSettings& settings, Subscription subscription,
                                  EventError& error) {
  const auto link = std::make_shared<MqttLink>(std::move(subscription));
  error = link->prepare(settings);
  if (error != EventError::None) return nullptr;
  std::thread thread;
  if (!startQuietly(thread, [link] { link->serve(); })) {
    error = EventError::System;
    return nullptr;
  }
  error = link->awaitReady(kOpenPatience);
  if (error == EventError::None) {
    return std::make_unique<MqttChannel>(link, std::move(thread));
  }
  // A connection attempt can't be broken off: the thread ends with it, and touches nothing of ours.
  link->abandon();
  link->close(std::chrono::seconds(0));
  thread.detach();
  return nullptr;
}

}  // namespace tvsnmp
