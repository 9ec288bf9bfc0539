#include "tools/import/FieldReader.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <string_view>
#include <type_traits>

#include "tools/network/StoreRows.h"

namespace zntopo::tools {

namespace {

using Value = decltype(UserVariableModel::value);

/// A number of JSON, or a text of one, as YANG has numbers that JSON can't hold.
std::optional<double> readReal(const JsonPlace& place) {
  if (place.value().is_number()) return place.value().get<double>();
  const std::string text = place.text();
  char* end = nullptr;
  const double value = std::strtod(text.c_str(), &end);
  if (text.empty() || *end != '\0') return std::nullopt;
  return value;
}

template <typename Number>
std::optional<Value> readWhole(const JsonPlace& place) {
  const auto value = readReal(place);
  // The store has 32 bits for numbers of all sizes.
  using Bounds = std::numeric_limits<std::conditional_t<(sizeof(Number) > 4), int, Number>>;
  if (!value || *value != std::floor(*value)) return std::nullopt;
  if (*value < Bounds::min() || *value > Bounds::max()) return std::nullopt;
  return static_cast<Number>(*value);
}

std::optional<Value> readFloat(const JsonPlace& place) {
  const auto value = readReal(place);
  if (!value || !(std::abs(*value) <= std::numeric_limits<float>::max())) return std::nullopt;
  return static_cast<float>(*value);
}

std::optional<Value> readValue(const JsonPlace& place, std::size_t type, NetworkReport& report) {
  switch (type) {
    case 0:
      return readWhole<short>(place);
    case 1:
      return readWhole<int>(place);
    case 2:
      return readWhole<long long>(place);
    case 3:
      return readText(place, fields::kVariableValue[type], fields::kVariableTextWidth, report);
    case 4:
      return readFloat(place);
    default:
      return place.flag();
  }
}

/// The value of a user variable, whose member's name tells the type; exactly one must be there.
std::optional<Value> readVariable(JsonObject& variable, NetworkReport& report) {
  std::optional<std::size_t> type;
  std::optional<JsonPlace> place;
  for (std::size_t i = 0; i < std::size(fields::kVariableValue); ++i) {
    const auto found = variable.find(fields::kVariableValue[i]);
    if (!found) continue;
    if (place) throw ImportError(variable.where(), "has values of two types");
    place = found;
    type = i;
  }
  if (!place) throw ImportError(variable.where(), "has no value");
  auto value = readValue(*place, *type, report);
  if (!value) report.add("value of a user variable that is none of its type", place->where());
  return value;
}

/// Puts a named thing into a list, in the place of the one that has its name.
template <typename Named>
void putNamed(std::vector<Named>& list, Named one) {
  const auto known = std::find_if(list.begin(), list.end(),
                                  [&](const Named& other) { return other.name == one.name; });
  known == list.end() ? list.push_back(std::move(one)) : void(*known = std::move(one));
}

}  // namespace

std::string readText(const JsonPlace& place, const std::string& name, std::size_t width,
                     NetworkReport& report) {
  std::string text = place.prose();
  if (width == 0 || text.size() <= width) return text;
  report.add(name + " of more than " + std::to_string(width) + " bytes (cut)", place.where());
  return cutText(text, width);
}

std::optional<int> readNumber(const JsonPlace& place, const std::string& name,
                              std::span<const NumberName<>> names, int low, int high,
                              NetworkReport& report) {
  const bool isName = !names.empty() && place.value().is_string();
  const auto number = isName ? numberOf(names, place.text()) : place.number();
  if (number && *number >= low && *number <= high) return number;
  report.add(name + (isName ? " that is none" : " out of its range"), place.where());
  return std::nullopt;
}

void checkIdentifier(const JsonObject& from, const std::string& id) {
  const auto isFit = [](char c) {
    const bool isLetter = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
    return isLetter || (c >= '0' && c <= '9') ||
           std::string_view(".:_-").find(c) != std::string::npos;
  };
  if (id.size() <= fields::kIdentifierWidth && std::all_of(id.begin(), id.end(), isFit)) return;
  throw ImportError(from.where(),
                    "has an identifier that is none: 1 to 36 letters, digits and "
                    "\".\", \":\", \"_\", \"-\"");
}

void readEntity(JsonObject& from, EntityModel& entity, NetworkReport& report) {
  readFields(from, entity, fields::kEntity, report);
  checkIdentifier(from, entity.id);
  if (const auto place = from.find("status")) {
    JsonObject status(*place);
    if (!entity.status) entity.status.emplace();
    readFields(status, *entity.status, fields::kStatus, report);
    status.countUnread(report);
  }
  ListKeys keys;
  for (const JsonPlace& place : from.list("user-variable")) {
    JsonObject variable(place);
    const std::string name = keys.read(variable, "name", fields::kVariableNameWidth);
    if (auto value = readVariable(variable, report)) {
      putNamed(entity.variables, {name, std::move(*value)});
    }
    variable.countUnread(report);
  }
}

void readProperties(JsonObject& from, std::vector<PropertyModel>& properties,
                    NetworkReport& report) {
  ListKeys keys;
  for (const JsonPlace& place : from.list("property")) {
    JsonObject property(place);
    const std::string name = keys.read(property, "name", fields::kVariableNameWidth);
    putNamed(properties, {name, readText(property.get("value"), "value of a property",
                                         fields::kVariableTextWidth, report)});
    property.countUnread(report);
  }
}

std::string ListKeys::read(JsonObject& element, const std::string& name, std::size_t width) {
  const JsonPlace place = element.get(name);
  std::string key = place.name(width);
  if (!known_.insert(key).second) {
    throw ImportError(place.where(), "the identifier \"" + key + "\" is taken already");
  }
  return key;
}

}  // namespace zntopo::tools
