#pragma once

#include <string>
#include <utility>

#include "zntopo/model/ZNEntity.h"

namespace zntopo::tools {

/// A pattern for texts: "*" stands for any characters, "?" for one, and all else for itself.
class NamePattern {
 public:
  explicit NamePattern(std::string pattern) : pattern_(std::move(pattern)) {}

  /// For "like" in a statement, between its quotes. What is a wildcard there and not here becomes
  /// "any one character", since not every engine escapes it alike: so ask matches() of what the
  /// store gives.
  std::string sql() const;
  /// A character is one of UTF-8.
  bool matches(const std::string& text) const;
  /// True if the name or the description matches.
  bool matchesEntity(const ZNEntity& entity) const;

 private:
  std::string pattern_;
};

}  // namespace zntopo::tools
