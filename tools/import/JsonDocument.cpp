#include "tools/import/JsonDocument.h"

#include <algorithm>
#include <limits>

#include "tools/network/PlainText.h"

namespace zntopo::tools {

using nlohmann::json;

namespace {

/// Hears the parser's events: stops at what is too deep or stands twice, and knows the place.
class Watch {
 public:
  Watch(std::string file, int maxDepth) : file_(std::move(file)), maxDepth_(maxDepth) {}

  bool operator()(int depth, json::parse_event_t event, const json& parsed) {
    using Event = json::parse_event_t;
    if (depth > maxDepth_) {
      throw ImportError(where(), "is nested deeper than " + std::to_string(maxDepth_) + " levels");
    }
    switch (event) {
      case Event::object_start:
      case Event::array_start:
        countElement();
        levels_.push_back({event == Event::array_start, 0, "", {}});
        break;
      case Event::object_end:
      case Event::array_end:
        levels_.pop_back();
        break;
      case Event::key:
        levels_.back().key = parsed.get<std::string>();
        if (!levels_.back().keys.insert(levels_.back().key).second) {
          throw ImportError(where(), "stands twice in its object");
        }
        break;
      case Event::value:
        countElement();
        break;
    }
    return true;
  }

  /// The file, and the place in it where the parser is.
  std::string where() const {
    std::string result = file_ + (levels_.empty() ? "" : ": ");
    for (const Level& level : levels_) {
      result +=
          "/" + (level.isArray ? std::to_string(level.elements - (level.elements > 0)) : level.key);
      if (result.size() > 300) return result + "...";
    }
    return result;
  }

 private:
  struct Level {
    bool isArray;
    std::size_t elements;
    std::string key;
    std::set<std::string> keys;
  };

  void countElement() {
    if (!levels_.empty() && levels_.back().isArray) ++levels_.back().elements;
  }

  std::string file_;
  int maxDepth_;
  std::vector<Level> levels_;
};

/// The parser's complaint without its own prefix ("[json.exception.parse_error.101] parse error").
std::string complaint(const json::exception& error) {
  const std::string text = error.what();
  const std::size_t bracket = text.find("] ");
  return shortComplaint(bracket == std::string::npos ? text : text.substr(bracket + 2));
}

/// Hands out a text's characters and tells now and then how far it is.
class Characters {
 public:
  using iterator_category = std::input_iterator_tag;
  using value_type = char;
  using difference_type = std::ptrdiff_t;
  using pointer = const char*;
  using reference = const char&;

  Characters(const std::string& text, std::size_t position, const ProgressFunction& progress)
      : text_(&text), position_(position), progress_(&progress) {}

  reference operator*() const { return (*text_)[position_]; }
  Characters& operator++() {
    if (++position_ % (1 << 18) == 0 && *progress_) {
      (*progress_)(static_cast<double>(position_) / static_cast<double>(text_->size()));
    }
    return *this;
  }
  bool operator==(const Characters& other) const { return position_ == other.position_; }
  bool operator!=(const Characters& other) const { return position_ != other.position_; }

 private:
  const std::string* text_;
  std::size_t position_;
  const ProgressFunction* progress_;
};

}  // namespace

json loadJson(const InputFile& file, const JsonLimits& limits, const ProgressFunction& progress) {
  const std::string& text = file.text;
  if (text.find_first_not_of(" \t\r\n") == std::string::npos) {
    throw ImportError(file.label, "is empty");
  }
  Watch watch(file.label, limits.depth);
  try {
    return json::parse(Characters(text, 0, progress), Characters(text, text.size(), progress),
                       std::ref(watch));
  } catch (const json::exception& error) {
    throw ImportError(watch.where(), complaint(error));
  }
}

std::string JsonPlace::text() const {
  if (!value_->is_string()) throw ImportError(where_, "is no text");
  const auto& text = value_->get_ref<const std::string&>();
  if (std::any_of(text.begin(), text.end(), isControl)) {
    throw ImportError(where_, "has a control character in it");
  }
  return text;
}

std::string JsonPlace::prose() const {
  if (!value_->is_string()) throw ImportError(where_, "is no text");
  auto text = value_->get<std::string>();
  std::replace_if(text.begin(), text.end(), isControl, ' ');
  return text;
}

std::string JsonPlace::name(std::size_t width) const {
  std::string result = text();
  checkName(where_, result, width);
  return result;
}

std::optional<int> JsonPlace::number() const {
  if (value_->is_number_float()) return std::nullopt;
  if (!value_->is_number_integer()) throw ImportError(where_, "is no whole number");
  if (value_->is_number_unsigned()) {
    const auto number = value_->get<std::uint64_t>();
    if (number > static_cast<std::uint64_t>(std::numeric_limits<int>::max())) return std::nullopt;
    return static_cast<int>(number);
  }
  const auto number = value_->get<std::int64_t>();
  if (number < std::numeric_limits<int>::min()) return std::nullopt;
  return static_cast<int>(number);
}

bool JsonPlace::flag() const {
  if (!value_->is_boolean()) throw ImportError(where_, "is neither true nor false");
  return value_->get<bool>();
}

std::vector<JsonPlace> JsonPlace::elements() const {
  if (!value_->is_array()) throw ImportError(where_, "is no list");
  std::vector<JsonPlace> result;
  result.reserve(value_->size());
  for (std::size_t i = 0; i < value_->size(); ++i) {
    result.emplace_back((*value_)[i], where_ + "/" + std::to_string(i));
  }
  return result;
}

JsonObject::JsonObject(const JsonPlace& place) : place_(place) {
  if (!place.value().is_object()) throw ImportError(place.where(), "is no object");
}

std::optional<JsonPlace> JsonObject::find(const std::string& name) {
  std::optional<JsonPlace> result;
  for (const auto& [key, value] : place_.value().items()) {
    const std::size_t colon = key.find(':');
    if (key != name && (colon == std::string::npos || key.substr(colon + 1) != name)) continue;
    if (result) throw ImportError(where() + "/" + key, "stands twice in its object");
    result.emplace(value, where() + "/" + key);
    read_.insert(key);
  }
  if (result && result->value().is_null()) return std::nullopt;
  return result;
}

JsonPlace JsonObject::get(const std::string& name) {
  auto result = find(name);
  if (!result) throw ImportError(where(), "has no member \"" + name + "\"");
  return *result;
}

std::vector<JsonPlace> JsonObject::list(const std::string& name) {
  const auto member = find(name);
  return member ? member->elements() : std::vector<JsonPlace>();
}

std::string JsonObject::text(const std::string& name) {
  const auto member = find(name);
  return member ? member->text() : "";
}

std::string JsonObject::prose(const std::string& name) {
  const auto member = find(name);
  return member ? member->prose() : "";
}

void JsonObject::countUnread(NetworkReport& report) const {
  for (const auto& [key, value] : place_.value().items()) {
    if (!read_.contains(key)) report.add("member \"" + key + "\"", where());
  }
}

}  // namespace zntopo::tools
