#include "tools/zntopo/NamePattern.h"

#include <optional>

namespace zntopo::tools {

namespace {

/// The place behind the character at a place.
std::size_t next(const std::string& text, std::size_t at) {
  ++at;
  while (at < text.size() && (static_cast<unsigned char>(text[at]) & 0xc0) == 0x80) ++at;
  return at;
}

std::string sqlOf(char c) {
  switch (c) {
    case '*':
      return "%";
    case '?':
    case '%':
    case '_':
    case '\\':
      return "_";
    case '\'':
      return "''";
    default:
      return {c};
  }
}

}  // namespace

std::string NamePattern::sql() const {
  std::string result;
  for (const char c : pattern_) result += sqlOf(c);
  return result;
}

bool NamePattern::matches(const std::string& text) const {
  struct Place {
    std::size_t pattern = 0;
    std::size_t text = 0;
  };
  Place at;
  // Behind the last "*", and as far as it has taken characters.
  std::optional<Place> star;
  while (at.text < text.size()) {
    const bool isEnd = at.pattern == pattern_.size();
    if (!isEnd && pattern_[at.pattern] == '*') {
      star = Place{++at.pattern, at.text};
    } else if (!isEnd && pattern_[at.pattern] == '?') {
      at = {at.pattern + 1, next(text, at.text)};
    } else if (!isEnd && pattern_[at.pattern] == text[at.text]) {
      at = {at.pattern + 1, at.text + 1};
    } else if (star) {
      star->text = next(text, star->text);
      at = *star;
    } else {
      return false;
    }
  }
  return pattern_.find_first_not_of('*', at.pattern) == std::string::npos;
}

bool NamePattern::matchesEntity(const ZNEntity& entity) const {
  return matches(entity.getName()) || matches(entity.getDescription());
}

}  // namespace zntopo::tools
