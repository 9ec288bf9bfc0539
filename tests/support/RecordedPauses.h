#pragma once

#include <mutex>
#include <vector>

#include "zntopo/api/detail/PreloadPause.h"

namespace zntopo::test {

/// For the life of this object the preload of the cache notes its pauses and does not wait. One at
/// a time in a process.
class RecordedPauses {
 public:
  RecordedPauses() {
    all().clear();
    detail::preloadPause = note;
  }
  ~RecordedPauses() { detail::preloadPause = detail::sleepFor; }
  RecordedPauses(const RecordedPauses&) = delete;
  RecordedPauses& operator=(const RecordedPauses&) = delete;

  /// In seconds, so far.
  static std::vector<int> seconds() {
    const std::lock_guard lock(guard());
    return all();
  }

 private:
  static void note(int seconds) {
    const std::lock_guard lock(guard());
    all().push_back(seconds);
  }
  static std::mutex& guard() {
    static std::mutex theGuard;
    return theGuard;
  }
  static std::vector<int>& all() {
    static std::vector<int> theSeconds;
    return theSeconds;
  }
};

}  // namespace zntopo::test
