#include "zntopo/notify/detail/EventChannel.h"

#include <fcntl.h>

#include <utility>

#include "zntopo/platform/tvsnmp/TvSnmp.h"

namespace zntopo::detail {

void EventChannel::close() {
  const std::lock_guard hold(mutex_);
  TVsnmpClose(std::exchange(session_, nullptr));
}

int EventChannel::duplicateDescriptor() {
  return use([](const SNMPSession* session) {
    return session == nullptr ? -1 : fcntl(session->sock_fd, F_DUPFD_CLOEXEC, 0);
  });
}

}  // namespace zntopo::detail
