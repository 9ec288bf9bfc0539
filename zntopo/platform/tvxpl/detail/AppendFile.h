#pragma once

#include <string>
#include <string_view>

namespace tvxpl {

/// A text file that several threads and processes append lines to.
class AppendFile {
 public:
  /// Opens the file that an environment variable names; not open without one.
  explicit AppendFile(const char* variable);
  AppendFile(const AppendFile&) = delete;
  AppendFile& operator=(const AppendFile&) = delete;

  bool isOpen() const { return descriptor_ >= 0; }
  /// Appends one line behind the time and the process. End of line characters at the end of the
  /// text are dropped, and those within it are written as "\n", so that it stays one line.
  void writeLine(std::string_view text) const;

 private:
  int descriptor_ = -1;
};

/// A text without the end of line characters behind it.
std::string_view withoutLineEnd(std::string_view text);

}  // namespace tvxpl
