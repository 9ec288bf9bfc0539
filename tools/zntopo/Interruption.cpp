#include "tools/zntopo/Interruption.h"

#include <limits.h>
#include <poll.h>
#include <signal.h>
#include <sys/eventfd.h>
#include <sys/signalfd.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <system_error>
#include <utility>

namespace zntopo::tools {

namespace {

/// How long the command may take to end, in milliseconds.
constexpr int kPatience = 2000;

sigset_t endingSignals() {
  sigset_t set;
  sigemptyset(&set);
  sigaddset(&set, SIGINT);
  sigaddset(&set, SIGTERM);
  return set;
}

std::system_error failure(const char* what) { return {errno, std::generic_category(), what}; }

int required(int descriptor) {
  if (descriptor < 0) throw failure("signals can't be waited for");
  return descriptor;
}

/// Blocks the signals in this thread and in all that it starts, and gives a descriptor for them.
int takeSignals() {
  // Who writes to a pipe without a reader is told so by the write.
  signal(SIGPIPE, SIG_IGN);
  const sigset_t set = endingSignals();
  pthread_sigmask(SIG_BLOCK, &set, nullptr);
  return required(signalfd(-1, &set, SFD_CLOEXEC));
}

}  // namespace

Interruption::Interruption(int output, std::function<void()> onEnd)
    : output_(output),
      onEnd_(std::move(onEnd)),
      signals_(takeSignals()),
      ended_(required(eventfd(0, EFD_CLOEXEC))),
      stopped_(required(eventfd(0, EFD_CLOEXEC))),
      thread_([this] { watch(); }) {}

Interruption::~Interruption() {
  eventfd_write(stopped_, 1);
  thread_.join();
  for (const int descriptor : {signals_, ended_, stopped_}) close(descriptor);
  const sigset_t set = endingSignals();
  pthread_sigmask(SIG_UNBLOCK, &set, nullptr);
}

void Interruption::watch() {
  // Without events to wait for, what is told of the output is that its reader is gone.
  pollfd watched[] = {{stopped_, POLLIN, 0}, {signals_, POLLIN, 0}, {output_, 0, 0}};
  while (poll(watched, 3, -1) < 0 && errno == EINTR) {
  }
  if (watched[0].revents != 0) return;
  hasEnded_ = true;
  eventfd_write(ended_, 1);
  onEnd_();
  // What was taken does not come again; another one is no longer held back.
  signalfd_siginfo taken;
  if (watched[1].revents != 0 && read(signals_, &taken, sizeof taken) < 0) return;
  const sigset_t set = endingSignals();
  pthread_sigmask(SIG_UNBLOCK, &set, nullptr);
  awaitStop();
}

void Interruption::awaitStop() const {
  pollfd stop = {stopped_, POLLIN, 0};
  int ready = 0;
  while ((ready = poll(&stop, 1, kPatience)) < 0 && errno == EINTR) {
  }
  if (ready != 0) return;
  // A store does not answer, or a reader does not take the rest of a line.
  if (!isLineBegun_) std::_Exit(EXIT_SUCCESS);
  // Standard error may lead to the same reader.
  pollfd told = {STDERR_FILENO, POLLOUT, 0};
  if (poll(&told, 1, 0) == 1) {
    dprintf(STDERR_FILENO, "zntopo: the last line is not whole: its reader takes nothing\n");
  }
  std::_Exit(EXIT_FAILURE);
}

bool Interruption::awaitRoom() const {
  pollfd awaited[] = {{output_, POLLOUT, 0}, {ended_, POLLIN, 0}};
  // A line that has begun is written to its end.
  const nfds_t number = isLineBegun_ ? 1 : 2;
  while (poll(awaited, number, -1) < 0 && errno == EINTR) {
  }
  return awaited[1].revents == 0 && (awaited[0].revents & POLLOUT) != 0;
}

bool Interruption::writeSome(std::string_view& text) const {
  // A pipe that has room takes so much without waiting.
  constexpr std::size_t most = PIPE_BUF;
  const ssize_t count = ::write(output_, text.data(), std::min(most, text.size()));
  if (count < 0 && errno == EPIPE) return false;
  if (count < 0 && errno != EINTR && errno != EAGAIN) throw failure("events could not be shown");
  if (count > 0) text.remove_prefix(static_cast<std::size_t>(count));
  return true;
}

bool Interruption::write(const std::string& line) {
  std::string_view rest = line;
  while (!rest.empty() && awaitRoom() && writeSome(rest)) isLineBegun_ = rest.size() < line.size();
  isLineBegun_ = false;
  return rest.empty();
}

}  // namespace zntopo::tools
