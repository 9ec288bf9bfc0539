#include "tests/support/PostgresServer.h"

#include <fcntl.h>
#include <grp.h>
#include <pwd.h>
#include <signal.h>
#include <stdlib.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <fstream>
#include <set>
#include <sstream>
#include <stdexcept>
#include <thread>
#include <vector>

#include "tests/support/FreePort.h"

namespace zntopo::test {
namespace {

namespace fs = std::filesystem;

constexpr const char* kServerVariable = "ZNTOPO_TEST_POSTGRES";
constexpr auto kPatience = std::chrono::seconds(60);
constexpr auto kPause = std::chrono::milliseconds(10);

/// The user that the server runs as: it refuses to be root.
const passwd* serverUser() { return geteuid() == 0 ? getpwnam("postgres") : nullptr; }

/// The newest server on the machine.
fs::path programFolder() {
  std::set<std::pair<int, fs::path>> found;
  std::error_code ignored;
  for (const auto& entry : fs::directory_iterator("/usr/lib/postgresql", ignored)) {
    const fs::path bin = entry.path() / "bin";
    if (fs::exists(bin / "initdb")) found.emplace(atoi(entry.path().filename().c_str()), bin);
  }
  if (found.empty())
    throw std::runtime_error("there is no PostgreSQL server: apt-get install postgresql");
  return found.rbegin()->second;
}

std::vector<std::string> words(const std::string& text) {
  std::istringstream stream(text);
  std::vector<std::string> result;
  for (std::string word; stream >> word;) result.push_back(word);
  return result;
}

/// True if the child ended with 0.
bool waitFor(pid_t child) {
  int status = 0;
  return waitpid(child, &status, 0) == child && WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

/// Between fork and exec: nothing here allocates or locks.
void becomeServer(const passwd* user, const char* folder, const char* log, long mostBytesOfFile) {
  if (user != nullptr &&
      (setgroups(0, nullptr) != 0 || setgid(user->pw_gid) != 0 || setuid(user->pw_uid) != 0)) {
    _exit(126);
  }
  // After the change of user, which would take it back.
  prctl(PR_SET_PDEATHSIG, SIGQUIT);
  if (mostBytesOfFile > 0) {
    const rlimit limit{static_cast<rlim_t>(mostBytesOfFile), static_cast<rlim_t>(mostBytesOfFile)};
    setrlimit(RLIMIT_FSIZE, &limit);
  }
  const int output = open(log, O_WRONLY | O_CREAT | O_APPEND, 0644);
  if (output < 0 || chdir(folder) != 0) _exit(126);
  dup2(open("/dev/null", O_RDONLY), 0);
  dup2(output, 1);
  dup2(output, 2);
}

}  // namespace

// A socket's path may have 107 bytes, so the folder is not under a long TMPDIR.
PostgresServer::PostgresServer(long mostBytesOfFile)
    : mostBytesOfFile_(mostBytesOfFile), scratch_("/tmp") {
  giveToServer(folder());
  makeCluster();
  start();
}

PostgresServer::~PostgresServer() {
  stop(Stop::Crash);
  if (outerServer_) setEnv(kServerVariable, *outerServer_);
}

void PostgresServer::giveToServer(const fs::path& folder) {
  const passwd* const user = serverUser();
  if (geteuid() == 0 && user == nullptr) {
    throw std::runtime_error("there is no user \"postgres\" to run the server as");
  }
  if (user != nullptr && chown(folder.c_str(), user->pw_uid, user->pw_gid) != 0) {
    throw std::runtime_error("can't give " + folder.string() + " to the server's user");
  }
}

pid_t PostgresServer::spawn(const std::string& program, const std::string& arguments) const {
  const std::string path = (programFolder() / program).string();
  const std::string log = scratch_.path("server.log");
  std::vector<std::string> all = words(arguments);
  all.insert(all.begin(), path);
  std::vector<char*> pointers;
  for (std::string& word : all) pointers.push_back(word.data());
  pointers.push_back(nullptr);
  const passwd* const user = serverUser();
  const pid_t child = fork();
  if (child == 0) {
    becomeServer(user, folder().c_str(), log.c_str(), program == "postgres" ? mostBytesOfFile_ : 0);
    execv(path.c_str(), pointers.data());
    _exit(127);
  }
  if (child < 0) throw std::runtime_error("can't fork");
  return child;
}

void PostgresServer::makeCluster() {
  // Small segments of the journal keep the server within a limit on the size of its files.
  if (!waitFor(spawn("initdb",
                     "-D data -U zntopo --auth=trust --encoding=UTF8 --locale=C --no-sync"
                     " --wal-segsize=1"))) {
    fail("initdb failed");
  }
  std::ofstream(folder() / "data" / "postgresql.conf", std::ios::app)
      << "listen_addresses = ''\nunix_socket_directories = '" << folder().string()
      << "'\nshared_buffers = 16MB\nmax_connections = 150\nfsync = off\nsynchronous_commit = off\n"
         "full_page_writes = off\nautovacuum = off\nmax_wal_size = 64MB\nmin_wal_size = 2MB\n";
}

void PostgresServer::start() {
  if (isRunning()) return;
  pid_ = spawn("postgres", "-D data");
  const auto end = std::chrono::steady_clock::now() + kPatience;
  while (!isReady()) {
    const bool isGone = waitpid(pid_, nullptr, WNOHANG) != 0;
    if (isGone) pid_ = -1;
    if (isGone || std::chrono::steady_clock::now() > end) fail("the server does not start");
    std::this_thread::sleep_for(kPause);
  }
}

/// The last line of the server's own file tells.
bool PostgresServer::isReady() const {
  const std::string state = contentOf(folder() / "data" / "postmaster.pid");
  const std::vector<std::string> all = words(state);
  return !all.empty() && all.front() == std::to_string(pid_) && all.back() == "ready";
}

void PostgresServer::stop(Stop how) {
  if (!isRunning()) return;
  kill(pid_, how == Stop::Fast ? SIGINT : SIGQUIT);
  waitpid(pid_, nullptr, 0);
  pid_ = -1;
}

int PostgresServer::listenOnTcp() {
  stop();
  port_ = freePort();
  std::ofstream(folder() / "data" / "postgresql.conf", std::ios::app)
      << "listen_addresses = '127.0.0.1'\nport = " << port_ << "\n";
  start();
  return port_;
}

void PostgresServer::setEnvironment() {
  const char* const outer = std::getenv(kServerVariable);
  if (!outerServer_) outerServer_ = outer ? outer : "";
  const std::string connection = "Driver=PostgreSQL Unicode;Servername=" + folder().string() +
                                 ";Port=" + std::to_string(port_) + ";Username=zntopo;";
  setEnv(kServerVariable, connection);
}

fs::path PostgresServer::socket() const { return folder() / (".s.PGSQL." + std::to_string(port_)); }

void PostgresServer::fail(const std::string& what) const {
  throw std::runtime_error(what + "\n" + scratch_.read("server.log"));
}

}  // namespace zntopo::test
