#pragma once

#include <cstdio>
#include <fstream>
#include <iterator>
#include <string>

namespace zntopo::bench {

/// A file that each pass writes anew, and that goes with this object.
class OutputFile {
 public:
  OutputFile() = default;
  ~OutputFile() { std::remove(kName); }
  OutputFile(const OutputFile&) = delete;
  OutputFile& operator=(const OutputFile&) = delete;

  /// The file, empty.
  std::ofstream open() const { return std::ofstream(kName, std::ios::binary | std::ios::trunc); }
  void write(const std::string& text) const { open() << text; }

  std::string content() const {
    std::ifstream file(kName, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }

 private:
  static constexpr const char* kName = "zntopo_bench.out";
};

/// Larger networks are not written: their texts, held in memory for the floor, are of gigabytes.
constexpr int kMaxNodesWritten = 10000;

}  // namespace zntopo::bench
