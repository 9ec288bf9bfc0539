#include "zntopo/notify/TopologySession.h"

#include <pthread.h>

#include <cstdio>
#include <cstring>
#include <utility>

#include "zntopo/core/detail/Failure.h"
#include "zntopo/notify/detail/EventChannel.h"
#include "zntopo/notify/detail/EventTrace.h"
#include "zntopo/notify/detail/Receiver.h"
#include "zntopo/notify/detail/SessionGuard.h"
#include "zntopo/platform/tvsnmp/TvSnmp.h"

namespace zntopo {

namespace {

SNMPSession* openGuarded(const char* host, const char* application,
                         TopologySession::Callback callback, void* data, const char* filter) {
  const detail::SessionGuard hold;
  return TVsnmpEventOpen(host, application, callback, data, filter);
}

/// The attributes of a receiving thread.
class ThreadAttributes {
 public:
  explicit ThreadAttributes(std::size_t stackSize) {
    pthread_attr_init(&attributes_);
    result_ = pthread_attr_setstacksize(&attributes_, stackSize);
  }
  ~ThreadAttributes() { pthread_attr_destroy(&attributes_); }
  ThreadAttributes(const ThreadAttributes&) = delete;
  ThreadAttributes& operator=(const ThreadAttributes&) = delete;

  const pthread_attr_t* get() const { return &attributes_; }
  /// Not 0 on a system whose threads can't have a stack of that size: they would get a larger one.
  int result() const { return result_; }

 private:
  pthread_attr_t attributes_;
  int result_ = 0;
};

void traceThreadFailure(const char* call, int result) {
  char text[256];
  std::snprintf(text, sizeof text, "The %s() returns %d: %s", call, result, std::strerror(result));
  detail::traceLine(detail::kTraceEventFailure, text);
}

bool startThread(pthread_t& thread, void* (*body)(void*), void* argument) {
  const ThreadAttributes attributes(detail::Receiver::kStackSize);
  if (attributes.result() != 0) {
    traceThreadFailure("pthread_attr_setstacksize", attributes.result());
    return false;
  }
  detail::traceLine(detail::kTraceEvent, "Creating a thread using pthread_create");
  const int result = pthread_create(&thread, attributes.get(), body, argument);
  if (result != 0) traceThreadFailure("pthread_create", result);
  return result == 0;
}

ZNTopoAPIStatus failed(ZNTopoStatus code) {
  ZNTopoAPIStatus status;
  status.setStatus(code);
  return status;
}

ZNTopoAPIStatus failed(ZNTopoStatus code, const char* text) {
  ZNTopoAPIStatus status;
  detail::setFailure(status, code, text);
  return status;
}

}  // namespace

TopologySession::TopologySession(const char* removeTVMgrHostname, const char* applName,
                                 Callback callback, void* data, const char* filter) {
  detail::traceLine(detail::kTraceEvent, "Opening a SNMP Session");
  SNMPSession* const session = openGuarded(removeTVMgrHostname, applName, callback, data, filter);
  channel_ = std::make_shared<detail::EventChannel>(session);
  if (session != nullptr) return;
  theStatus.setStatus(ZN_API_NOTIFCHANNEL_CREATION_ERROR);
  detail::traceLine(detail::kTraceEventFailure, "A Session with the Kvd could not be established");
}

TopologySession::~TopologySession() { closeSession(); }

ZNTopoAPIStatus TopologySession::createBlockingRecvThrd() {
  if (!theStatus.isOK()) return theStatus;
  auto receiver = std::make_unique<detail::Receiver>(channel_);
  if (!receiver->isReady()) {
    return getSession() == nullptr
               ? failed(ZN_API_NOTIFCHANNEL_DISCONNECTED, "The session is closed")
               : failed(ZN_API_THREAD_CREATE_FAILED, "The process has no file descriptor left");
  }
  pthread_t thread{};
  if (!startThread(thread, dispatchTo, receiver.get())) return failed(ZN_API_THREAD_CREATE_FAILED);
  [[maybe_unused]] auto* const taken = receiver.release();
  const int detached = pthread_detach(thread);
  if (detached == 0) return {};
  traceThreadFailure("pthread_detach", detached);
  return failed(ZN_API_THREAD_DETACH_FAILED);
}

void* TopologySession::dispatchTo(void* arg) {
  const std::unique_ptr<detail::Receiver> receiver(static_cast<detail::Receiver*>(arg));
  receiver->run();
  return nullptr;
}

SNMPSession* TopologySession::getSession() const {
  return channel_->use([](SNMPSession* session) { return session; });
}

void TopologySession::closeSession() { channel_->close(); }

detail::EventChannel& detail::channelOf(const TopologySession& session) {
  return *session.channel_;
}

}  // namespace zntopo
