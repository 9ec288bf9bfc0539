#pragma once

#include <stdlib.h>

#include <filesystem>
#include <string>
#include <vector>

/// @file
/// Folders and files of a test's own.

namespace zntopo::test {

/// A fresh folder, removed at the end with all that is in it.
/// Throws std::runtime_error if it can't be made.
class Scratch {
 public:
  /// @param parent where the folder is made: the folder for temporary files, which may have a long
  /// name, if nothing is said.
  explicit Scratch(const std::filesystem::path& parent = std::filesystem::temp_directory_path());
  ~Scratch();
  Scratch(const Scratch&) = delete;
  Scratch& operator=(const Scratch&) = delete;

  const std::filesystem::path& folder() const { return folder_; }
  /// The path of a file in it.
  std::string path(const std::string& name) const { return (folder_ / name).string(); }
  bool has(const std::string& name) const { return std::filesystem::exists(path(name)); }
  /// What is in a file of it; empty if there is no such file.
  std::string read(const std::string& name) const;
  /// Writes a file, byte by byte as the text has it, and returns its path.
  std::string write(const std::string& name, const std::string& text) const;

 private:
  std::filesystem::path folder_;
};

/// A file with a content, for the life of this object.
class TempFile {
 public:
  explicit TempFile(const std::string& content) : path_(scratch_.write("file", content)) {}

  const std::string& path() const { return path_; }

 private:
  Scratch scratch_;
  std::string path_;
};

/// What is in a file; empty if there is none.
std::string contentOf(const std::filesystem::path& path);

/// The lines of a text, without their ends.
std::vector<std::string> linesOf(const std::string& text);

/// Sets a variable of the environment.
inline void setEnv(const char* name, const std::string& value) { setenv(name, value.c_str(), 1); }

}  // namespace zntopo::test
