#include "zntopo/platform/tvdbil/detail/StoreFile.h"

#include <sys/stat.h>

#include <filesystem>
#include <system_error>

namespace TvDbil::detail {

StoreFile::StoreFile(const std::string& path) {
  std::error_code failure;
  const std::filesystem::path absolute = std::filesystem::absolute(path, failure);
  path_ = failure ? path : absolute.string();
  struct stat found {};
  if (stat(path_.c_str(), &found) != 0) return;
  device_ = found.st_dev;
  number_ = found.st_ino;
}

bool StoreFile::isReplaced() const {
  if (path_.empty()) return false;
  struct stat found {};
  return stat(path_.c_str(), &found) != 0 || found.st_dev != device_ || found.st_ino != number_;
}

}  // namespace TvDbil::detail
