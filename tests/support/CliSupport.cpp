#include "tests/support/CliSupport.h"

#include <fcntl.h>
#include <grp.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <sstream>
#include <stdexcept>

#include "tests/support/Eventually.h"
#include "tests/support/Places.h"
#include "tests/support/StoreDump.h"
#include "tools/network/StoreStatement.h"

extern char** environ;

namespace zntopo::test {

namespace {

std::vector<char*> pointers(const std::vector<std::string>& texts) {
  std::vector<char*> result;
  result.reserve(texts.size() + 1);
  for (const std::string& text : texts) result.push_back(const_cast<char*>(text.c_str()));
  result.push_back(nullptr);
  return result;
}

/// The environment of this process with variables replaced.
std::vector<std::string> environmentWith(const std::vector<std::string>& more) {
  std::vector<std::string> result = more;
  for (char** variable = environ; *variable; ++variable) {
    const std::string text = *variable;
    const std::string name = text.substr(0, text.find('=') + 1);
    bool isReplaced = false;
    for (const std::string& other : more) isReplaced |= other.compare(0, name.size(), name) == 0;
    if (!isReplaced) result.push_back(text);
  }
  return result;
}

/// A terminal to which another process can write.
class Terminal {
 public:
  Terminal() : descriptor_(posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC)) {
    char name[128] = "";
    if (descriptor_ < 0 || grantpt(descriptor_) != 0 || unlockpt(descriptor_) != 0 ||
        ptsname_r(descriptor_, name, sizeof name) != 0) {
      throw std::runtime_error("no terminal");
    }
    name_ = name;
  }
  ~Terminal() { close(descriptor_); }
  Terminal(const Terminal&) = delete;
  Terminal& operator=(const Terminal&) = delete;

  const std::string& name() const { return name_; }
  /// What comes until the last process at the other side has ended.
  std::string readToEnd() const {
    std::string result;
    char block[4096];
    for (;;) {
      const ssize_t count = read(descriptor_, block, sizeof block);
      if (count < 0 && errno == EINTR) continue;
      if (count <= 0) return result;
      result.append(block, static_cast<std::size_t>(count));
    }
  }

 private:
  int descriptor_;
  std::string name_;
};

enum class User { Self, Nobody };

int outputFile(const std::string& path) {
  return open(path.c_str(), O_WRONLY | O_CREAT | O_NOCTTY, 0600);
}

bool becomeNobody() {
  constexpr uid_t nobody = 65534;
  return setgroups(0, nullptr) == 0 && setgid(nobody) == 0 && setuid(nobody) == 0;
}

std::string zntopoPath() { return inBuildTree("tools/zntopo"); }

/// Starts a program with its output and its errors in two files.
pid_t start(const std::string& program, const std::vector<std::string>& arguments,
            const std::vector<std::string>& environment, const std::string& out,
            const std::string& err, User user = User::Self) {
  std::vector<std::string> all = {program};
  all.insert(all.end(), arguments.begin(), arguments.end());
  const std::vector<std::string> variables = environmentWith(environment);
  const std::vector<char*> words = pointers(all);
  const std::vector<char*> values = pointers(variables);
  const pid_t child = fork();
  if (child < 0) throw std::runtime_error(program + " can't be started");
  if (child > 0) return child;
  // Opened before, since nobody may not come as far as the file.
  const int command = open(program.c_str(), O_RDONLY | O_CLOEXEC);
  dup2(open("/dev/null", O_RDONLY), STDIN_FILENO);
  dup2(outputFile(out), STDOUT_FILENO);
  dup2(outputFile(err), STDERR_FILENO);
  if (user == User::Self || becomeNobody()) fexecve(command, words.data(), values.data());
  _exit(127);
}

/// The exit status of a process; -1 if a signal ended it.
int await(pid_t child) {
  int status = 0;
  waitpid(child, &status, 0);
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

CliResult run(const std::string& program, const std::vector<std::string>& arguments,
              const std::vector<std::string>& environment, User user) {
  const Scratch folder;
  CliResult result;
  result.status =
      await(start(program, arguments, environment, folder.path("out"), folder.path("err"), user));
  result.out = folder.read("out");
  result.err = folder.read("err");
  return result;
}

/// The subcommands that a help lists.
std::vector<std::string> listedIn(const std::vector<std::string>& call) {
  std::istringstream help(zntopoRun(call).out);
  std::vector<std::string> names;
  std::string line;
  while (std::getline(help, line) && line != "Subcommands:") {
  }
  // Further lines of a description stand further in.
  while (std::getline(help, line) && !line.empty()) {
    if (line.size() > 2 && line[2] != ' ') names.push_back(line.substr(2, line.find(' ', 2) - 2));
  }
  return names;
}

}  // namespace

CliResult zntopoRun(const std::vector<std::string>& arguments,
                    const std::vector<std::string>& environment) {
  return run(zntopoPath(), arguments, environment, User::Self);
}

CliResult topodumpRun(const std::vector<std::string>& arguments,
                      const std::vector<std::string>& environment) {
  return run(inBuildTree("tools/tvrz_topodump.tvpl"), arguments, environment, User::Self);
}

CliResult zntopoRunAsNobody(const std::vector<std::string>& arguments) {
  return run(zntopoPath(), arguments, {}, geteuid() == 0 ? User::Nobody : User::Self);
}

RunningCli::RunningCli(const std::vector<std::string>& arguments,
                       const std::vector<std::string>& environment)
    : pid_(start(zntopoPath(), arguments, environment, folder_.path("out"), folder_.path("err"))) {}

RunningCli::RunningCli(const std::vector<std::string>& arguments, const std::string& output)
    : pid_(start(zntopoPath(), arguments, {}, output, folder_.path("err"))) {}

RunningCli::~RunningCli() {
  if (pid_ < 0) return;
  kill(pid_, SIGKILL);
  await(pid_);
}

bool RunningCli::awaitOut(const std::string& text) const {
  return eventually([&] { return out().find(text) != std::string::npos; });
}

bool RunningCli::awaitErr(const std::string& text) const {
  return eventually([&] { return err().find(text) != std::string::npos; });
}

void RunningCli::signal(int number) const { kill(pid_, number); }

CliResult RunningCli::finish() {
  int status = 0;
  const bool hasEnded = eventually([&] { return waitpid(pid_, &status, WNOHANG) == pid_; });
  if (!hasEnded) throw std::runtime_error("zntopo does not end");
  pid_ = -1;
  return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, out(), err()};
}

nlohmann::json answerOf(std::vector<std::string> call) {
  call.emplace_back("--json");
  const CliResult result = zntopoRun(call);
  EXPECT_EQ(result.status, 0) << testing::PrintToString(call) << result.err;
  return result.json();
}

std::string failureOf(std::vector<std::string> call) {
  call.emplace_back("--json");
  const CliResult result = zntopoRun(call);
  EXPECT_EQ(result.status, 1) << testing::PrintToString(call) << result.out;
  return result.json()["status"]["name"];
}

std::vector<std::string> each(const nlohmann::json& list, const std::string& name) {
  std::vector<std::string> result;
  for (const nlohmann::json& one : list) result.push_back(one.at(name));
  return result;
}

std::vector<std::string> subcommands() {
  std::vector<std::string> names;
  for (const std::string& name : listedIn({"--help"})) {
    const std::vector<std::string> members = listedIn({name, "--help"});
    if (members.empty()) names.push_back(name);
    for (const std::string& member : members) names.push_back(name + " " + member);
  }
  return names;
}

std::vector<std::string> callOf(const std::string& subcommand,
                                const std::vector<std::string>& more) {
  std::istringstream words(subcommand);
  std::vector<std::string> call{std::istream_iterator<std::string>(words), {}};
  call.insert(call.end(), more.begin(), more.end());
  return call;
}

CliResult zntopoRunOnTerminal(const std::vector<std::string>& arguments) {
  const Scratch folder;
  const Terminal terminal;
  CliResult result;
  const pid_t child = start(zntopoPath(), arguments, {}, folder.path("out"), terminal.name());
  result.err = terminal.readToEnd();
  result.status = await(child);
  result.out = folder.read("out");
  return result;
}

std::string samplePath(const std::string& name) { return inSourceTree("data/networks/") + name; }

void CliTest::SetUp() {
  ZNTOPO_NEED_ENGINE(GetParam());
  engine_.emplace(GetParam());
  // An empty database is an empty place; for the embedded engine that is a file that is missing.
  store_ = engine_->isPostgres() ? engine_->store() : (engine_->folder() / "cli.db").string();
  setEnv("TV_TOPO_STORE", store_);
}

void CliTest::TearDown() { engine_.reset(); }

std::string CliTest::write(const std::string& name, const std::string& content) const {
  std::string path = (engine_->folder() / name).string();
  std::ofstream(path, std::ios::binary) << content;
  return path;
}

std::string CliTest::dump() const {
  TvXplMsg::MessageList_t messages;
  const TvDbil::DbSource_t source(messages, store_);
  TvDbil::DbConnection_t connection(messages, &source);
  return dumpStore(connection);
}

std::vector<std::vector<std::string>> CliTest::select(
    const std::string& sql, std::size_t columns, const std::vector<std::string>& parameters) const {
  TvXplMsg::MessageList_t messages;
  const TvDbil::DbSource_t source(messages, store_);
  TvDbil::DbConnection_t connection(messages, &source);
  return tools::selectTexts(connection, sql, columns, parameters);
}

std::vector<std::string> CliTest::stored(const std::string& sql) const {
  std::vector<std::string> result;
  for (const auto& row : select(sql, 1)) result.push_back(row.front());
  EXPECT_FALSE(result.empty()) << sql;
  return result;
}

void CliSampleTest::SetUp() {
  CliTest::SetUp();
  if (IsSkipped() || HasFatalFailure()) return;
  ASSERT_EQ(zntopoRun({"init"}).status, 0);
  ASSERT_EQ(zntopoRun({"import", samplePath()}).status, 0);
}

}  // namespace zntopo::test
