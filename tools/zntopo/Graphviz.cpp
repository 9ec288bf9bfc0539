#include "tools/zntopo/Graphviz.h"

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <memory>

#include "tools/network/PlainText.h"
#include "tools/zntopo/Answer.h"

// The environment of the process; POSIX has no header for it.
extern char** environ;  // NOLINT(readability-redundant-declaration)

namespace zntopo::tools {

namespace {

constexpr const char* kProgram = "dot";

Failure failure(const std::string& text) { return {ZN_API_INTERNAL_ERROR, text}; }

/// A file without a name, for what one process leaves for another.
class HiddenFile {
 public:
  HiddenFile() : file_(std::tmpfile(), &std::fclose) {
    if (!file_)
      throw failure("A temporary file can't be made: " + std::string(std::strerror(errno)));
  }
  int descriptor() const { return fileno(file_.get()); }

  void write(const std::string& text) {
    const bool isDone = std::fwrite(text.data(), 1, text.size(), file_.get()) == text.size() &&
                        std::fflush(file_.get()) == 0;
    if (!isDone)
      throw failure("A temporary file can't be written: " + std::string(std::strerror(errno)));
    std::rewind(file_.get());
  }

  std::string read() {
    std::string text;
    char buffer[65536];
    std::rewind(file_.get());
    while (const std::size_t count = std::fread(buffer, 1, sizeof buffer, file_.get())) {
      text.append(buffer, count);
    }
    return text;
  }

 private:
  std::unique_ptr<std::FILE, int (*)(std::FILE*)> file_;
};

/// Runs the program with the standard streams that it is given. Its wait status.
int run(const std::string& format, HiddenFile& in, HiddenFile& out, HiddenFile& err) {
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_adddup2(&actions, in.descriptor(), STDIN_FILENO);
  posix_spawn_file_actions_adddup2(&actions, out.descriptor(), STDOUT_FILENO);
  posix_spawn_file_actions_adddup2(&actions, err.descriptor(), STDERR_FILENO);
  std::string program = kProgram, option = "-T" + format;
  char* const words[] = {program.data(), option.data(), nullptr};
  pid_t child = 0;
  const int code = posix_spawnp(&child, kProgram, &actions, nullptr, words, environ);
  posix_spawn_file_actions_destroy(&actions);
  if (code == ENOENT) {
    throw failure(
        "Pictures are drawn by the program \"dot\" of Graphviz, which is not there: install it "
        "(Debian: apt-get install graphviz), or write the graph with \"zntopo map --format dot\".");
  }
  if (code != 0) throw failure("Graphviz can't be started: " + std::string(std::strerror(code)));
  int status = 0;
  while (waitpid(child, &status, 0) < 0 && errno == EINTR) {
  }
  return status;
}

}  // namespace

std::string drawGraph(const std::string& graph, const std::string& format) {
  HiddenFile in, out, err;
  in.write(graph);
  const int status = run(format, in, out, err);
  std::string picture = out.read();
  if (WIFEXITED(status) && WEXITSTATUS(status) == 0 && !picture.empty()) return picture;
  constexpr std::size_t kMost = 500;
  throw failure("Graphviz did not draw the graph: " +
                (WIFSIGNALED(status) ? "signal " + std::to_string(WTERMSIG(status)) + ". " : "") +
                printableLines(err.read().substr(0, kMost)));
}

}  // namespace zntopo::tools
