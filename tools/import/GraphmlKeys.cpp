#include "tools/import/GraphmlKeys.h"

#include <algorithm>
#include <utility>

#include "tools/network/PlainText.h"

namespace zntopo::tools::graphml {

namespace {

/// Names that exporters give to what is read, in lower case.
constexpr std::pair<std::string_view, Field> kFieldNames[] = {
    {"label", Field::Label},         {"name", Field::Name},
    {"linklabel", Field::LinkLabel}, {"description", Field::Description},
    {"country", Field::Country},     {"latitude", Field::Latitude},
    {"longitude", Field::Longitude},
};

bool isAlike(char left, char lower) {
  return (left >= 'A' && left <= 'Z' ? static_cast<char>(left - 'A' + 'a') : left) == lower;
}

}  // namespace

std::optional<Field> Keys::fieldOf(std::string_view name) {
  for (const auto& [known, field] : kFieldNames) {
    if (std::equal(name.begin(), name.end(), known.begin(), known.end(), isAlike)) return field;
  }
  return std::nullopt;
}

void Keys::add(const XmlElement& element, const InputFile& file) {
  const std::string* const id = element.find("id");
  if (!id || id->empty()) throw ImportError(element.place.in(file), "has a key without an id");
  const std::string* const kind = element.find("for");
  const std::string* const name = element.find("attr.name");
  const bool isDrawing =
      std::any_of(element.attributes.begin(), element.attributes.end(),
                  [](const XmlAttribute& one) { return one.name.local == "yfiles.type"; });
  Key key{name ? *name : *id, std::nullopt, isDrawing && !name};
  key.field = fieldOf(key.name);
  lastKind_ = kind ? *kind : "all";
  lastField_ = key.field;
  if (!keys_.try_emplace(lastKind_ + "\n" + *id, key).second) {
    throw ImportError(element.place.in(file), "has the key \"" + *id + "\" a second time");
  }
}

void Keys::setDefault(const std::string& text) {
  if (!lastField_) return;
  std::string& value = defaults_[lastKind_][static_cast<std::size_t>(*lastField_)];
  if (value.empty()) value = text;
}

const Key* Keys::find(const std::string& kind, const std::string& id) const {
  for (const std::string& one : {kind, std::string("all")}) {
    const auto found = keys_.find(one + "\n" + id);
    if (found != keys_.end()) return &found->second;
  }
  return nullptr;
}

void Keys::fillDefaults(const std::string& kind, Fields& fields) const {
  for (const std::string& one : {kind, std::string("all")}) {
    const auto found = defaults_.find(one);
    if (found == defaults_.end()) continue;
    for (std::size_t i = 0; i < fields.size(); ++i) {
      if (fields[i].empty()) fields[i] = found->second[i];
    }
  }
}

std::string tidy(std::string_view text) {
  std::string result;
  for (const char c : text) {
    const bool isBlank = c == ' ' || isControl(static_cast<unsigned char>(c));
    if (!isBlank) {
      result += c;
    } else if (!result.empty() && result.back() != ' ') {
      result += ' ';
    }
  }
  if (!result.empty() && result.back() == ' ') result.pop_back();
  return result;
}

}  // namespace zntopo::tools::graphml
