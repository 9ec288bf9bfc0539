#pragma once

#include <pthread.h>
#include <signal.h>

#include <system_error>
#include <thread>
#include <utility>

namespace tvsnmp {

/// Starts a thread that takes none of the host's signals; false if the system has no more.
template <typename Body>
bool startQuietly(std::thread& thread, Body body) {
  sigset_t all;
  sigset_t before;
  sigfillset(&all);
  pthread_sigmask(SIG_SETMASK, &all, &before);
  bool isStarted = true;
  try {
    thread = std::thread(std::move(body));
  } catch (const std::system_error&) {
    isStarted = false;
  }
  pthread_sigmask(SIG_SETMASK, &before, nullptr);
  return isStarted;
}

}  // namespace tvsnmp
