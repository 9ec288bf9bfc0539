#include "tests/support/EventBroker.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <stdexcept>
#include <thread>
#include <utility>

#include "tests/support/FreePort.h"

namespace zntopo::test {

namespace {

constexpr auto kPatience = std::chrono::seconds(30);
constexpr auto kPause = std::chrono::milliseconds(5);

/// Debian keeps it out of the path of ordinary users.
const char* program() {
  for (const char* const path : {"/usr/sbin/mosquitto", "/usr/local/sbin/mosquitto"}) {
    if (access(path, X_OK) == 0) return path;
  }
  return nullptr;
}

std::string baseConfiguration(int port) {
  // As root it stays root: with another user it would lose the signal of its parent's end.
  return "listener " + std::to_string(port) + " 127.0.0.1\n" +
         (geteuid() == 0 ? "user root\n" : "") +
         "persistence false\nmax_queued_messages 0\nmax_inflight_messages 0\n"
         "set_tcp_nodelay true\n";
}

}  // namespace

std::string whyBrokerIsMissing() {
  return program() ? "" : "there is no broker: apt-get install mosquitto";
}

EventBroker::EventBroker(std::string configuration) : configuration_(std::move(configuration)) {
  // The port may be taken by somebody else between the look and the start.
  for (int tries = 0; tries < 5 && pid_ < 0; ++tries) {
    port_ = freePort();
    tryToStart();
  }
  if (pid_ < 0) throw std::runtime_error("no broker starts\n" + scratch_.read("log"));
}

EventBroker::~EventBroker() { crash(); }

void EventBroker::start() {
  if (!tryToStart()) throw std::runtime_error("no broker starts\n" + scratch_.read("log"));
}

bool EventBroker::tryToStart() {
  if (whyBrokerIsMissing() != "") throw std::runtime_error(whyBrokerIsMissing());
  const std::string file = scratch_.write(
      "conf", baseConfiguration(port_) +
                  (configuration_.empty() ? "allow_anonymous true\n" : configuration_));
  const std::string log = scratch_.path("log");
  pid_ = fork();
  if (pid_ == 0) {
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    const int output = open(log.c_str(), O_WRONLY | O_CREAT | O_APPEND, 0644);
    dup2(output, 1);
    dup2(output, 2);
    execl(program(), "mosquitto", "-c", file.c_str(), nullptr);
    _exit(127);
  }
  const auto end = std::chrono::steady_clock::now() + kPatience;
  while (waitpid(pid_, nullptr, WNOHANG) == 0 && std::chrono::steady_clock::now() < end) {
    if (isTaken(port_)) return true;
    std::this_thread::sleep_for(kPause);
  }
  crash();
  return false;
}

void EventBroker::crash() {
  if (pid_ < 0) return;
  kill(pid_, SIGKILL);
  waitpid(pid_, nullptr, 0);
  pid_ = -1;
}

void EventBroker::freeze() const { kill(pid_, SIGSTOP); }
void EventBroker::thaw() const { kill(pid_, SIGCONT); }

Carrier::Carrier(EventMode mode) {
  unsetenv("TV_EVENT_BROKER");
  if (mode == EventMode::Loop) return;
  broker_.emplace();
  setEnv("TV_EVENT_BROKER", broker_->name());
}

void CarriedEventsTest::SetUp() {
  if (GetParam() == EventMode::Broker) ZNTOPO_NEED_BROKER();
}

void EventModeFixture::SetUp() {
  unsetenv("TV_EVENT_BROKER");
  if (GetParam() == EventMode::Loop) return;
  ZNTOPO_NEED_BROKER();
  broker_ = std::make_unique<EventBroker>();
  setEnv("TV_EVENT_BROKER", broker_->name());
}

}  // namespace zntopo::test
