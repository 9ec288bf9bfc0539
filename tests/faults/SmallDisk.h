#pragma once

#include <filesystem>
#include <string>

#include "tests/support/Scratch.h"

/// @file
/// A disk that is soon full.

namespace zntopo::test {

/// A disk of a few megabytes in memory, mounted on a fresh folder where only this process and the
/// ones that it starts from then on see it. Take it before anything has threads.
class SmallDisk {
 public:
  explicit SmallDisk(int megabytes);
  ~SmallDisk();
  SmallDisk(const SmallDisk&) = delete;
  SmallDisk& operator=(const SmallDisk&) = delete;

  /// Why there is none: this process may not mount. Empty if there is one.
  const std::string& whyMissing() const { return whyMissing_; }
  const std::filesystem::path& folder() const { return scratch_.folder(); }
  /// Makes it larger.
  void grow(int megabytes) const;

 private:
  Scratch scratch_;
  std::string whyMissing_;
};

}  // namespace zntopo::test
