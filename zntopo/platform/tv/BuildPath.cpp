#include "zntopo/platform/tv/BuildPath.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <system_error>

#include "zntopo/platform/tv/DataPath.h"

namespace {

namespace fs = std::filesystem;

std::string withSlashes(std::string text) {
  std::replace(text.begin(), text.end(), '\\', '/');
  return text;
}

/// What "%NAME%" stands for.
std::string valueOf(const std::string& name) {
  const char* const value = std::getenv(name.c_str());
  if (value && *value) return value;
  return name == "TV_ETC_PATH" ? tv::dataDirectory() + "/etc" : "%" + name + "%";
}

std::string expanded(const std::string& directory) {
  std::string result;
  std::size_t at = 0;
  while (at < directory.size()) {
    const std::size_t open = directory.find('%', at);
    const std::size_t close = open == std::string::npos ? open : directory.find('%', open + 1);
    if (close == std::string::npos) break;
    result += withSlashes(directory.substr(at, open - at));
    result += valueOf(directory.substr(open + 1, close - open - 1));
    at = close + 1;
  }
  return result + withSlashes(directory.substr(at));
}

}  // namespace

std::string _TVBuildPath(const std::string& directory, const std::string& name, int /*flags*/) {
  const fs::path whole = expanded(directory) + "/" + withSlashes(name);
  std::error_code failed;
  const fs::path absolute = fs::absolute(whole, failed);
  // Without a current directory a relative path stays one.
  return (failed ? whole : absolute).lexically_normal().string();
}
