#pragma once

#include <sys/types.h>

#include <string>

namespace TvDbil::detail {

/// The file of an embedded store, as it was when it was opened.
class StoreFile {
 public:
  StoreFile() = default;
  /// Notes which file a path names now. The path is made absolute, for the process may change its
  /// folder; a symbolic link in it stays one, for it may be turned to another file.
  explicit StoreFile(const std::string& path);

  /// True if the path names another file by now, or none: what is open is a ghost.
  bool isReplaced() const;
  /// The absolute path; empty if no file was noted.
  const std::string& path() const { return path_; }

 private:
  std::string path_;
  dev_t device_ = 0;
  ino_t number_ = 0;
};

}  // namespace TvDbil::detail
