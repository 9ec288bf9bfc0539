#include "zntopo/platform/tv/DataPath.h"

#include <dlfcn.h>

#include <cstdlib>
#include <filesystem>
#include <system_error>

namespace tv {

namespace fs = std::filesystem;

std::string installedDataDirectory(const std::string& object) {
  std::error_code failed;
  const fs::path place = fs::canonical(object, failed).parent_path();
  if (!failed) {
    for (const char* const way : {ZNTOPO_DATA_FROM_LIB, ZNTOPO_DATA_FROM_BIN}) {
      const fs::path directory = (place / way).lexically_normal();
      if (fs::is_directory(directory, failed)) return directory.string();
    }
  }
  return ZNTOPO_DATA_DIR;
}

namespace {

/// The file that this code is in. Of a program the loader knows what it was called by, and a call
/// that was found by way of PATH says nothing of the place.
std::string ownObject() {
  Dl_info here{};
  const bool known = dladdr(reinterpret_cast<const void*>(&dataDirectory), &here) != 0;
  const std::string name = known && here.dli_fname ? here.dli_fname : "";
  return name.find('/') == std::string::npos ? "/proc/self/exe" : name;
}

}  // namespace

std::string dataDirectory() {
  const char* const named = std::getenv("TV_DATA_PATH");
  if (named && *named) {
    std::string directory = named;
    while (directory.size() > 1 && directory.back() == '/') directory.pop_back();
    return directory;
  }
  return installedDataDirectory(ownObject());
}

}  // namespace tv
