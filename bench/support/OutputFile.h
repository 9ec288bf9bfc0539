#pragma once

#include <stdlib.h>
#include <unistd.h>

#include <cstdio>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>

namespace zntopo::bench {

/// A file that each pass writes anew, and that goes with this object.
class OutputFile {
 public:
  OutputFile() {
    std::string name = "zntopo_bench-XXXXXX";
    const int descriptor = mkstemp(name.data());
    if (descriptor < 0) throw std::runtime_error("the current folder can't be written to");
    close(descriptor);
    name_ = name;
  }
  ~OutputFile() { std::remove(name_.c_str()); }
  OutputFile(const OutputFile&) = delete;
  OutputFile& operator=(const OutputFile&) = delete;

  /// The file, empty. What can't be written to it throws.
  std::ofstream open() const {
    std::ofstream stream(name_, std::ios::binary | std::ios::trunc);
    stream.exceptions(std::ios::failbit | std::ios::badbit);
    return stream;
  }
  void write(const std::string& text) const {
    std::ofstream stream = open();
    stream << text;
    stream.close();
  }

  std::string content() const {
    std::ifstream file(name_, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }

 private:
  std::string name_;
};

/// Larger networks are not written: their texts, held in memory for the floor, are of gigabytes.
constexpr int kMaxNodesWritten = 10000;

}  // namespace zntopo::bench
