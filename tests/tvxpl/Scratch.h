#pragma once

#include <gtest/gtest.h>
#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

namespace zntopo_test {

/// A folder of a test's own, removed at its end.
class Scratch {
 public:
  Scratch() {
    std::string name = testing::TempDir() + "zntopo-XXXXXX";
    folder_ = mkdtemp(name.data());
  }
  ~Scratch() {
    std::error_code ignored;
    std::filesystem::remove_all(folder_, ignored);
  }
  Scratch(const Scratch&) = delete;
  Scratch& operator=(const Scratch&) = delete;

  const std::string& folder() const { return folder_; }
  std::string path(const std::string& name) const { return folder_ + "/" + name; }
  bool has(const std::string& name) const { return std::filesystem::exists(path(name)); }
  std::string read(const std::string& name) const { return readFile(path(name)); }
  void write(const std::string& name, const std::string& text) const {
    std::ofstream(path(name)) << text;
  }

  static std::string readFile(const std::string& name) {
    std::ifstream file(name);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
  }

 private:
  std::string folder_;
};

inline std::vector<std::string> linesOf(const std::string& text) {
  std::vector<std::string> lines;
  std::string::size_type start = 0;
  for (auto end = text.find('\n'); end != std::string::npos; end = text.find('\n', start)) {
    lines.push_back(text.substr(start, end - start));
    start = end + 1;
  }
  if (start < text.size()) lines.push_back(text.substr(start));
  return lines;
}

inline void setEnv(const char* name, const std::string& value) { setenv(name, value.c_str(), 1); }

}  // namespace zntopo_test
