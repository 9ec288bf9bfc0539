#pragma once

#include <gtest/gtest.h>

#include <cstddef>
#include <fstream>
#include <stdexcept>
#include <string>

#include "zntopo/notify/detail/Receiver.h"

namespace zntopo::test {

/// Holds this process, from now on, to the memory that docs/events.md gives to what waits in a
/// session: for the receiving thread, and for the broker.
class MemoryLimit {
 public:
  MemoryLimit() : before_(peak()) {}

  void expectKept() const {
    // Sanitizers have memory of their own.
    if (detail::kIsSanitized) return;
    EXPECT_LT(peak() - before_, kBytes);
  }

 private:
  static constexpr std::size_t kBytes = (std::size_t{128} + 64) << 20;

  static std::size_t peak() {
    std::ifstream file("/proc/self/status");
    std::string line;
    while (std::getline(file, line)) {
      if (line.starts_with("VmHWM:")) return std::stoul(line.substr(6)) * 1024;
    }
    throw std::runtime_error("the system does not tell of a process's memory");
  }

  const std::size_t before_;
};

}  // namespace zntopo::test
