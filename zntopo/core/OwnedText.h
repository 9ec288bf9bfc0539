#pragma once

#include <memory>
#include <string>

#include "zntopo/platform/Export.h"

namespace zntopo {

/// An owned zero-terminated text that may be absent. A text ends at its first zero character.
class ZNTOPO_EXPORT OwnedText {
 public:
  OwnedText() = default;
  OwnedText(const OwnedText& other) { *this = other; }
  OwnedText(OwnedText&& other) = default;
  OwnedText& operator=(const OwnedText& other);
  OwnedText& operator=(OwnedText&& other) = default;

  bool isNull() const { return !text_; }
  void set(const std::string& text);
  void clear() { text_.reset(); }
  /// Empty when there is none.
  std::string get() const { return text_ ? std::string(text_.get()) : std::string(); }
  const char* c_str() const { return text_.get(); }

 private:
  std::unique_ptr<char[]> text_;
};

}  // namespace zntopo
