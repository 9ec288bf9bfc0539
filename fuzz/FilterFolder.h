#pragma once

#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "fuzz/Fuzz.h"
#include "zntopo/filter/FilterNamespace.h"

namespace zntopo::fuzz {

/// A filter configuration directory with copies of a folder's files, which TV_ETC_PATH names, for
/// the life of this object.
class FilterFolder {
 public:
  explicit FilterFolder(const std::filesystem::path& source) {
    char name[] = "/tmp/zntopo-fuzz-XXXXXX";
    ZNTOPO_REQUIRE(mkdtemp(name));
    etc_ = name;
    folder_ = etc_ / "conf/qrmrz/topology/filter";
    std::filesystem::create_directories(folder_);
    for (const auto& file : std::filesystem::directory_iterator(source)) {
      std::filesystem::copy_file(file.path(), folder_ / file.path().filename());
    }
    setenv("TV_ETC_PATH", etc_.c_str(), 1);
  }
  ~FilterFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(etc_, ignored);
  }
  FilterFolder(const FilterFolder&) = delete;
  FilterFolder& operator=(const FilterFolder&) = delete;

  /// A list of hosts, which documents may name.
  void writeHosts(const std::string& name, const std::string& hosts) const {
    std::ofstream(folder_ / name) << "<hosts xmlns='" << kTopologyFilterNamespace << "'>" << hosts
                                  << "</hosts>";
  }

 private:
  std::filesystem::path etc_;
  std::filesystem::path folder_;
};

}  // namespace zntopo::fuzz
