#include "zntopo/core/OwnedText.h"

#include <cstring>

namespace zntopo {

OwnedText& OwnedText::operator=(const OwnedText& other) {
  if (this == &other) return *this;
  if (other.isNull()) {
    clear();
  } else {
    set(other.text_.get());
  }
  return *this;
}

void OwnedText::set(const std::string& text) {
  const std::size_t length = std::strlen(text.c_str());
  std::unique_ptr<char[]> copy(new char[length + 1]);
  std::memcpy(copy.get(), text.c_str(), length + 1);
  text_ = std::move(copy);
}

}  // namespace zntopo
