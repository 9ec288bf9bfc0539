#pragma once

#include <cstdint>
#include <string>

namespace zntopo::detail {

/// What a validation says of one place. Lines and columns begin with 1; 0 is the file as a whole.
struct Diagnostic {
  const char* heading;
  std::string file;
  std::uint64_t line = 0;
  std::uint64_t column = 0;
  std::string message;

  /// Two lines, with an end of line in front of them and behind them.
  std::string text() const {
    return heading + file + ", line " + std::to_string(line) + ", char " + std::to_string(column) +
           "\n  Message: " + message + "\n";
  }
};

inline constexpr const char* kErrorHeading = "\nError at file ";
inline constexpr const char* kFatalErrorHeading = "\nFatal Error at file ";
inline constexpr const char* kWarningHeading = "\nWarning at file ";

/// One on a file as a whole.
inline std::string fatalError(const std::string& file, const std::string& message) {
  return Diagnostic{.heading = kFatalErrorHeading, .file = file, .message = message}.text();
}

}  // namespace zntopo::detail
