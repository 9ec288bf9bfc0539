#pragma once

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include <stdlib.h>

#include "zntopo/core/MCLog.h"

namespace zntopo::test {

/// Sends the log of the process, from the most talkative level on, to a file in a folder of its
/// own for the life of this object, and silences it after that.
class CapturedLog {
 public:
  explicit CapturedLog(MCDebugLevel level = MC_VERBOSE) {
    std::string pattern = (std::filesystem::temp_directory_path() / "zntopo-log-XXXXXX").string();
    folder_ = mkdtemp(pattern.data());
    const std::string base = (folder_ / "test").string();
    const std::string number = std::to_string(level);
    std::vector<std::string> words = {"test", "-d", number, "-f", base};
    std::vector<char*> argv;
    for (std::string& word : words) argv.push_back(word.data());
    argv.push_back(nullptr);
    MCLog::init("test", static_cast<int>(words.size()), argv.data(), MC_DAEMON);
  }

  ~CapturedLog() {
    MCLog::setDebuggingLevel(MC_NONE);
    std::filesystem::remove_all(folder_);
  }
  CapturedLog(const CapturedLog&) = delete;
  CapturedLog& operator=(const CapturedLog&) = delete;

  /// The messages so far, without the line on the log's begin and without their times.
  std::vector<std::string> lines() const {
    std::ifstream stream(folder_ / "test.log");
    std::vector<std::string> result;
    for (std::string line; std::getline(stream, line);) {
      // "Www Mmm dd hh:mm:ss yyyy " stands before each message.
      constexpr std::size_t kTimeLength = 25;
      const std::string text = line.size() > kTimeLength ? line.substr(kTimeLength) : "";
      if (text.rfind("BEGIN LOGGING", 0) != 0) result.push_back(text + "\n");
    }
    return result;
  }

 private:
  std::filesystem::path folder_;
};

}  // namespace zntopo::test
