#pragma once

#include <chrono>
#include <functional>
#include <thread>

namespace zntopo::test {

/// Waits until something holds; false if it does not within a minute.
inline bool eventually(const std::function<bool()>& holds) {
  const auto end = std::chrono::steady_clock::now() + std::chrono::minutes(1);
  while (!holds()) {
    if (std::chrono::steady_clock::now() > end) return false;
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
  }
  return true;
}

}  // namespace zntopo::test
