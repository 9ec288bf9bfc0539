#pragma once

#include <cstddef>
#include <nlohmann/json.hpp>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "tools/import/InputFile.h"
#include "tools/network/NetworkReport.h"

/// @file
/// Reading JSON that may be hostile, with errors that say where.

namespace zntopo::tools {

/// The bounds within which a document is read.
struct JsonLimits {
  int depth = 64;
};

/// Parses a file. Throws ImportError for one that is empty, deeper than the limits, no JSON, or
/// has a member twice in one object. The progress function hears what part has been parsed.
nlohmann::json loadJson(const InputFile& file, const JsonLimits& limits = {},
                        const ProgressFunction& progress = {});

/// A value and the place where it stands.
class JsonPlace {
 public:
  JsonPlace(const nlohmann::json& value, std::string where)
      : value_(&value), where_(std::move(where)) {}

  const nlohmann::json& value() const { return *value_; }
  const std::string& where() const { return where_; }

  /// A text without control characters; throws ImportError otherwise.
  std::string text() const;
  /// A text whose control characters are replaced by blanks. Throws if it is no text.
  std::string prose() const;
  /// A text without control characters, neither empty nor longer than a width in bytes: fit to be a
  /// name or a key.
  std::string name(std::size_t width) const;
  /// A whole number; nothing if it does not fit into 32 bits. Throws if it is no number.
  std::optional<int> number() const;
  /// True or false. Throws if it is neither.
  bool flag() const;
  /// The elements of an array, with their places. Throws if it is no array.
  std::vector<JsonPlace> elements() const;

 private:
  const nlohmann::json* value_;
  std::string where_;
};

/// The members of an object, found with and without the name of their module
/// ("ietf-network:node" and "node"). What nobody asked for can be counted at the end.
class JsonObject {
 public:
  /// Throws ImportError if the value is no object.
  explicit JsonObject(const JsonPlace& place);

  const std::string& where() const { return place_.where(); }
  /// Nothing if there is no such member, or if it is null.
  std::optional<JsonPlace> find(const std::string& name);
  /// Throws ImportError if there is no such member.
  JsonPlace get(const std::string& name);
  /// The elements of a list, none if there is no such member.
  std::vector<JsonPlace> list(const std::string& name);
  /// A text that may be missing or empty.
  std::string text(const std::string& name);
  std::string prose(const std::string& name);
  /// Counts every member that was not asked for.
  void countUnread(NetworkReport& report) const;

 private:
  JsonPlace place_;
  std::set<std::string> read_;
};

}  // namespace zntopo::tools
