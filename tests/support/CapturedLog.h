#pragma once

#include <gmock/gmock.h>

#include <algorithm>
#include <functional>
#include <regex>
#include <string>
#include <vector>

#include "tests/support/Scratch.h"
#include "zntopo/core/MCLog.h"

/// @file
/// What the log of the process says.

namespace zntopo::test {

/// The length of what stands in front of a log line: "Www Mmm dd hh:mm:ss yyyy ".
inline constexpr std::size_t kTimeLength = 25;

/// The lines of a log without the times in front of them; a line that begins with no time, as the
/// second of a message does, stays as it is.
inline std::vector<std::string> messagesOf(const std::string& log) {
  std::vector<std::string> messages;
  for (const std::string& line : linesOf(log)) {
    const bool isTimed = line.size() >= kTimeLength && line[3] == ' ' && line[13] == ':' &&
                         line[16] == ':' && line[kTimeLength - 1] == ' ';
    messages.push_back(isTimed ? line.substr(kTimeLength) : line);
  }
  return messages;
}

/// Makes the log as a program does that was called with these options.
inline void initLog(const std::string& name, std::vector<std::string> options,
                    MCDaemonFlag flag = MC_DAEMON) {
  options.insert(options.begin(), "program");
  std::vector<char*> arguments;
  arguments.reserve(options.size() + 1);
  for (std::string& option : options) arguments.push_back(option.data());
  arguments.push_back(nullptr);
  MCLog::init(name, static_cast<int>(options.size()), arguments.data(), flag);
}

/// Sends the log of the process, from a level on, to a file in a folder of its own for the life of
/// this object, and silences it after that.
class CapturedLog {
 public:
  explicit CapturedLog(MCDebugLevel level = MC_VERBOSE) {
    initLog("test", {"-d", std::to_string(level), "-f", scratch_.path("test")});
  }
  ~CapturedLog() { MCLog::setDebuggingLevel(MC_NONE); }

  /// The lines so far with their ends, without the one on the log's begin and without their times.
  std::vector<std::string> lines() const {
    std::vector<std::string> result;
    for (const std::string& message : messagesOf(scratch_.read("test.log"))) {
      if (message.rfind("BEGIN LOGGING", 0) != 0) result.push_back(message + "\n");
    }
    return result;
  }

  /// All of it in one piece, to the letter but for the times: not every message ends its line.
  std::string text() const {
    static const std::regex time("[A-Z][a-z]{2} [A-Z][a-z]{2} [ 0-9]{2} [0-9:]{8} [0-9]{4} ");
    const std::string all = std::regex_replace(scratch_.read("test.log"), time, "");
    return all.substr(std::min(all.find('\n'), all.size() - 1) + 1);
  }

 private:
  Scratch scratch_;
};

/// What some work logs at a level and above it, without the times.
inline std::string heardFrom(MCDebugLevel level, const std::function<void()>& work) {
  const CapturedLog log(level);
  work();
  return log.text();
}

/// Expects that a text is among what some work logs, and that it is there at exactly this level.
/// Does the work twice.
inline void expectAmongLogged(MCDebugLevel level, const std::string& text,
                              const std::function<void()>& work) {
  EXPECT_THAT(heardFrom(level, work), testing::HasSubstr(text));
  EXPECT_THAT(heardFrom(static_cast<MCDebugLevel>(level + 1), work),
              testing::Not(testing::HasSubstr(text)));
}

}  // namespace zntopo::test
