#pragma once

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "tests/support/CapturedLog.h"

namespace zntopo::test {

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

  static void init(const std::string& name, std::vector<std::string> options,
                   MCDaemonFlag flag = MC_DAEMON) {
    initLog(name, std::move(options), flag);
  }

  std::vector<std::string> logged(const std::string& file) const {
    return messagesOf(scratch_.read(file));
  }

  Scratch scratch_;
};

}  // namespace zntopo::test
