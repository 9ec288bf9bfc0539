#include <algorithm>
#include <mutex>
#include <utility>
#include <vector>

#include "zntopo/platform/tvsnmp/detail/Channel.h"
#include "zntopo/platform/tvsnmp/detail/EventPipe.h"

namespace tvsnmp {

namespace {

class LoopChannel;

/// The sessions of this process. One lock for all that is sent: each session receives everything
/// in the same order.
struct Loop {
  std::mutex mutex;
  std::vector<LoopChannel*> channels;
};

Loop& theLoop() {
  static auto& loop = *new Loop();
  return loop;
}

class LoopChannel : public Channel {
 public:
  explicit LoopChannel(Subscription subscription) : subscription_(std::move(subscription)) {
    const std::lock_guard hold(theLoop().mutex);
    theLoop().channels.push_back(this);
  }
  ~LoopChannel() override {
    const std::lock_guard hold(theLoop().mutex);
    std::erase(theLoop().channels, this);
  }
  LoopChannel(const LoopChannel&) = delete;
  LoopChannel& operator=(const LoopChannel&) = delete;

  EventError send(unsigned event, std::string_view bytes) override {
    const std::lock_guard hold(theLoop().mutex);
    for (const LoopChannel* const channel : theLoop().channels) {
      if (channel->subscription_.events.contains(event)) channel->subscription_.pipe->append(bytes);
    }
    return EventError::None;
  }
  EventError finish() override { return EventError::None; }

 private:
  const Subscription subscription_;
};

}  // namespace

std::unique_ptr<Channel> openLoop(Subscription subscription) {
  return std::make_unique<LoopChannel>(std::move(subscription));
}

}  // namespace tvsnmp
