#pragma once

#include <cstddef>
#include <string_view>

/// @file
/// The platform's input streams.

namespace TvXplIo {

/// Bytes to read.
class InputStream_t {
 public:
  virtual ~InputStream_t() = default;
  /// Copies up to `most` bytes that have not been read yet and returns how many: 0 at the end.
  virtual std::size_t Read(char* target, std::size_t most) = 0;
};

/// The bytes of an array, which the caller keeps alive.
class CharArrayInputStream_t : public InputStream_t {
 public:
  CharArrayInputStream_t(const char* bytes, std::size_t length) : rest_(bytes, length) {}
  std::size_t Read(char* target, std::size_t most) override {
    const std::size_t count = rest_.copy(target, most);
    rest_.remove_prefix(count);
    return count;
  }

 private:
  std::string_view rest_;
};

}  // namespace TvXplIo
