#pragma once

#include <unistd.h>

#include <cstdlib>
#include <fstream>
#include <stdexcept>
#include <string>

namespace zntopo::test {

/// A file with a content, for the life of this object.
class TempFile {
 public:
  explicit TempFile(const std::string& content) {
    char name[] = "/tmp/zntopo-test-XXXXXX";
    const int descriptor = mkstemp(name);
    if (descriptor < 0) throw std::runtime_error("no temporary file");
    close(descriptor);
    path_ = name;
    std::ofstream(path_, std::ios::binary) << content;
  }
  ~TempFile() { unlink(path_.c_str()); }
  TempFile(const TempFile&) = delete;
  TempFile& operator=(const TempFile&) = delete;

  const std::string& path() const { return path_; }

 private:
  std::string path_;
};

}  // namespace zntopo::test
