#pragma once

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "tests/tvxpl/Scratch.h"
#include "zntopo/core/MCLog.h"

namespace zntopo_test {

/// The length of what stands in front of a log line: the date, the time and a blank.
inline constexpr std::size_t kTimeLength = 25;

/// The messages of a log without the times in front of them.
inline std::vector<std::string> messagesOf(const std::string& log) {
  std::vector<std::string> messages;
  for (const std::string& line : linesOf(log)) {
    messages.push_back(line.size() < kTimeLength ? line : line.substr(kTimeLength));
  }
  return messages;
}

/// A test that logs into a folder of its own, with none of the log's variables set.
class LogTest : public testing::Test {
 protected:
  LogTest() {
    for (const char* name : {"MC_DFILES", "MC_DFILESIZE", "MC_DLEVEL", "MC_DMSEC", "LANG",
                             "NLSPATH", "TV_DATA_PATH", "TV_TRACE"}) {
      unsetenv(name);
    }
    setEnv("MC_DUSER", "tester");
    setEnv("TV_SHARE_LOG", scratch_.folder());
  }

  /// Makes the log as a program does that was called with these options.
  static void init(const std::string& name, std::vector<std::string> options,
                   zntopo::MCDaemonFlag flag = zntopo::MC_DAEMON) {
    std::vector<char*> arguments;
    options.insert(options.begin(), "program");
    for (std::string& option : options) arguments.push_back(option.data());
    arguments.push_back(nullptr);
    zntopo::MCLog::init(name, static_cast<int>(options.size()), arguments.data(), flag);
  }

  std::vector<std::string> logged(const std::string& file) const {
    return messagesOf(scratch_.read(file));
  }

  Scratch scratch_;
};

}  // namespace zntopo_test
