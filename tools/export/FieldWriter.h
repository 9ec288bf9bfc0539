#pragma once

#include <nlohmann/json.hpp>
#include <type_traits>
#include <variant>
#include <vector>

#include "tools/network/NetworkFields.h"

/// @file
/// Writing the objects of a network into JSON by their tables of fields: what FieldReader.h reads.

namespace zntopo::tools {

using Json = nlohmann::ordered_json;

/// Writes the members that a table names; what is as it is when nothing is told is left out.
template <typename Object, std::size_t count>
void writeFields(Json& to, const Object& from, const Field<Object> (&fields)[count]) {
  static const Object untold{};
  for (const Field<Object>& field : fields) {
    const auto write = [&](const auto member) {
      if (from.*member == untold.*member) return;
      using Value = std::decay_t<decltype(from.*member)>;
      if constexpr (std::is_same_v<Value, int> || std::is_same_v<Value, std::optional<int>>) {
        const int number = std::optional<int>(from.*member).value_or(0);
        const auto name = nameOf(field.names, number);
        to[field.name] = name ? Json(*name) : Json(number);
      } else {
        to[field.name] = from.*member;
      }
    };
    std::visit(write, field.member);
  }
}

/// Writes what objects of all kinds have, but for the name.
void writeEntity(Json& to, const EntityModel& from);
/// Writes the list "property".
void writeProperties(Json& to, const std::vector<PropertyModel>& properties);

/// The text of a JSON value on one line; bytes that are no UTF-8 become U+FFFD.
std::string lineOf(const Json& json);

}  // namespace zntopo::tools
