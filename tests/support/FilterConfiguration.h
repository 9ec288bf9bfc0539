#pragma once

#include <filesystem>
#include <string>

#include "tests/support/Places.h"
#include "tests/support/Scratch.h"

/// @file
/// A filter configuration directory of a test's own.

namespace zntopo::test {

/// The namespace of filter documents.
inline constexpr const char* kFilterNamespace =
    "http://corvane.example/marlo/NetworkTopology/TopologyFilter";

/// A filter document around its content.
inline std::string filterDocument(const std::string& content) {
  return std::string("<filters xmlns=\"") + kFilterNamespace + "\">" + content + "</filters>";
}

/// One condition in the little language of tests/filter/config/.
inline std::string conditionElement(const std::string& name, const std::string& type,
                                    const std::string& condition) {
  return "<condition name=\"" + name + "\" objectType=\"" + type + "\">" + condition +
         "</condition>";
}

/// Makes a filter configuration directory with a schema and a stylesheet of the tests' own, in
/// which conditions are written as they are, and has TV_ETC_PATH name it for the life of this
/// object.
class FilterConfiguration {
 public:
  /// @param etc the name of the directory that TV_ETC_PATH names
  /// @param source where its files come from
  explicit FilterConfiguration(
      const std::string& etc = "etc",
      const std::filesystem::path& source = inSourceTree("tests/filter/config"))
      : folder_(scratch_.folder() / etc / "conf/qrmrz/topology/filter") {
    std::filesystem::create_directories(folder_);
    for (const auto& file : std::filesystem::directory_iterator(source)) {
      std::filesystem::copy_file(file.path(), folder_ / file.path().filename());
    }
    setEnv("TV_ETC_PATH", (scratch_.folder() / etc).string());
  }
  ~FilterConfiguration() { unsetenv("TV_ETC_PATH"); }
  FilterConfiguration(const FilterConfiguration&) = delete;
  FilterConfiguration& operator=(const FilterConfiguration&) = delete;

  const std::filesystem::path& folder() const { return folder_; }
  std::string path(const std::string& name) const { return (folder_ / name).string(); }
  /// A file of it, or beside it with "../" in its name; returns its path.
  std::string write(const std::string& name, const std::string& text) const {
    return scratch_.write(std::filesystem::relative(folder_ / name, scratch_.folder()).string(),
                          text);
  }
  void remove(const std::string& name) const { std::filesystem::remove(folder_ / name); }

 private:
  Scratch scratch_;
  std::filesystem::path folder_;
};

}  // namespace zntopo::test
