#pragma once

#include <cstddef>
#include <memory>

#include "zntopo/core/ZNRefPtr.h"
#include "zntopo/core/ZNTopoAPIStatus.h"
#include "zntopo/notify/TopologyNotification.h"

struct SNMPPdu;

namespace zntopo::detail {

class EventChannel;

// Sanitizers put more on a stack than the code does.
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
inline constexpr bool kIsSanitized = true;
#elif defined(__has_feature)
inline constexpr bool kIsSanitized =
    __has_feature(address_sanitizer) || __has_feature(thread_sanitizer);
#else
inline constexpr bool kIsSanitized = false;
#endif

/// What a receiving thread does and needs.
class Receiver {
 public:
  /// Of the thread's stack.
  static constexpr std::size_t kStackSize = kIsSanitized ? 4096 << 10 : 64 << 10;

  explicit Receiver(std::shared_ptr<EventChannel> channel);
  ~Receiver();
  Receiver(const Receiver&) = delete;
  Receiver& operator=(const Receiver&) = delete;

  /// False if the session is closed, or the system has no descriptor left.
  bool isReady() const { return descriptor_ >= 0; }
  /// The thread's body: receives until the session ends or something throws, tells the client of
  /// that, and closes the session.
  void run();

 private:
  enum class Wait { Event, Again, Failed };
  /// Takes the guard of the event sessions.
  struct FreePdu {
    void operator()(SNMPPdu* pdu) const;
  };
  using Pdu = std::unique_ptr<SNMPPdu, FreePdu>;

  void receive();
  Wait wait() const;
  /// False if there is no event any more: another thread took it.
  bool take(Pdu& pdu) const;
  void deliver(SNMPPdu& pdu);

  const std::shared_ptr<EventChannel> channel_;
  /// This thread's own, so that it stays what it is while the session is closed.
  const int descriptor_;
  /// What updates of the cache have to say; nobody asks.
  ZNTopoAPIStatus status_;
};

/// Changes cached objects as a notification says. What does not fit is skipped.
void applyToCache(const TopologyNotification& notification, ZNTopoAPIStatus& status);

}  // namespace zntopo::detail
