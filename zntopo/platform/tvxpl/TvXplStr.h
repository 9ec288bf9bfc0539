#pragma once

#include <string>
#include <string_view>

#include "zntopo/platform/tvxpl/TvXplArray.h"

/// @file
/// The platform's texts: wide ones are UTF-16, narrow ones UTF-8. What is malformed becomes the
/// replacement character U+FFFD.

namespace TvXplStr {

std::u16string widen(std::string_view narrow);
std::string narrow(std::u16string_view wide);

/// A wide text that is made from a narrow one.
class String_t {
 public:
  explicit String_t(std::string_view narrow) : wide_(widen(narrow)) {}

  const char16_t* GetText() const { return wide_.c_str(); }

 private:
  std::u16string wide_;
};

/// Compare a wide text that a NUL ends; a null pointer equals no text.
inline bool operator==(const char16_t* wide, const String_t& text) {
  return wide && std::u16string_view(wide) == text.GetText();
}
inline bool operator!=(const char16_t* wide, const String_t& text) { return !(wide == text); }

/// The narrow form of a wide text that a NUL ends; empty for a null pointer.
class MBS_t {
 public:
  explicit MBS_t(const char16_t* wide) : characters_(wide ? narrow(wide) : std::string()) {}

  const TvXplArray::CharArray_t& GetArray() const { return characters_; }
  operator const char*() const {  // NOLINT(google-explicit-constructor)
    return characters_.GetData();
  }

 private:
  TvXplArray::CharArray_t characters_;
};

/// What MBS_t has, as a text.
inline std::string narrowed(const char16_t* wide) { return MBS_t(wide).GetArray().GetData(); }

}  // namespace TvXplStr
