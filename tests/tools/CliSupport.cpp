#include "tests/tools/CliSupport.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <fstream>
#include <sstream>

#include "tests/tools/StoreDump.h"

extern char** environ;

namespace zntopo::test {

namespace {

std::string contentOf(const std::string& path) {
  std::ifstream stream(path, std::ios::binary);
  std::ostringstream text;
  text << stream.rdbuf();
  return text.str();
}

std::vector<char*> pointers(const std::vector<std::string>& texts) {
  std::vector<char*> result;
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

}  // namespace

CliResult zntopoRun(const std::vector<std::string>& arguments,
                    const std::vector<std::string>& environment) {
  char folder[] = "/tmp/zntopo-cli-XXXXXX";
  if (!mkdtemp(folder)) throw std::runtime_error("no temporary folder");
  const std::string out = std::string(folder) + "/out";
  const std::string err = std::string(folder) + "/err";
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_addopen(&actions, 0, "/dev/null", O_RDONLY, 0);
  posix_spawn_file_actions_addopen(&actions, 1, out.c_str(), O_WRONLY | O_CREAT, 0600);
  posix_spawn_file_actions_addopen(&actions, 2, err.c_str(), O_WRONLY | O_CREAT, 0600);
  std::vector<std::string> all = {ZNTOPO_CLI};
  all.insert(all.end(), arguments.begin(), arguments.end());
  const std::vector<std::string> variables = environmentWith(environment);
  CliResult result;
  pid_t child = 0;
  if (posix_spawn(&child, ZNTOPO_CLI, &actions, nullptr, pointers(all).data(),
                  pointers(variables).data()) == 0) {
    int status = 0;
    waitpid(child, &status, 0);
    result.status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  }
  posix_spawn_file_actions_destroy(&actions);
  result.out = contentOf(out);
  result.err = contentOf(err);
  std::filesystem::remove_all(folder);
  return result;
}

std::vector<std::string> subcommands() {
  std::istringstream help(zntopoRun({"--help"}).out);
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

std::string samplePath() {
  return std::string(ZNTOPO_SOURCE_DIR) + "/data/networks/harbor-campus.rfc8345.json";
}

void CliTest::SetUp() {
  ZNTOPO_NEED_ENGINE(GetParam());
  engine_.emplace(GetParam());
  // An empty database is an empty place; for the embedded engine that is a file that is missing.
  store_ = engine_->isPostgres() ? engine_->store() : (engine_->folder() / "cli.db").string();
  setenv("TV_TOPO_STORE", store_.c_str(), 1);
}

void CliTest::TearDown() { engine_.reset(); }

std::string CliTest::write(const std::string& name, const std::string& content) const {
  const std::string path = (engine_->folder() / name).string();
  std::ofstream(path, std::ios::binary) << content;
  return path;
}

std::string CliTest::dump() const {
  TvXplMsg::MessageList_t messages;
  const TvDbil::DbSource_t source(messages, store_);
  TvDbil::DbConnection_t connection(messages, &source);
  return dumpStore(connection);
}

void CliSampleTest::SetUp() {
  CliTest::SetUp();
  if (IsSkipped() || HasFatalFailure()) return;
  ASSERT_EQ(zntopoRun({"init"}).status, 0);
  ASSERT_EQ(zntopoRun({"import", samplePath()}).status, 0);
}

}  // namespace zntopo::test
