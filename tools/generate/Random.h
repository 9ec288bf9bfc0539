#pragma once

#include <cstdint>
#include <random>
#include <utility>
#include <vector>

namespace zntopo::tools {

/// Random numbers that are the same on every machine for the same seed and stream: the engine is
/// the standard's own, the distributions of the standard library are not used, since each
/// library has others.
class Random {
 public:
  /// Streams of one seed have nothing to do with each other.
  Random(std::uint64_t seed, std::uint64_t stream) : engine_(mix(mix(seed) ^ stream)) {}

  /// From 0 to limit - 1; 0 for a limit below 1.
  int below(int limit) {
    return limit < 1 ? 0 : static_cast<int>(engine_() % static_cast<std::uint64_t>(limit));
  }
  /// True in so many of a thousand cases.
  bool inThousand(int cases) { return below(1000) < cases; }
  /// The numbers from 0 to count - 1 in any order.
  std::vector<int> order(int count) {
    std::vector<int> result(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) {
      result[i] = i;
      std::swap(result[i], result[below(i + 1)]);
    }
    return result;
  }

 private:
  static std::uint64_t mix(std::uint64_t value) {
    value += 0x9e3779b97f4a7c15u;
    value = (value ^ (value >> 30)) * 0xbf58476d1ce4e5b9u;
    value = (value ^ (value >> 27)) * 0x94d049bb133111ebu;
    return value ^ (value >> 31);
  }

  std::mt19937_64 engine_;
};

}  // namespace zntopo::tools
