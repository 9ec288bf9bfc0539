#pragma once

#include <array>
#include <functional>
#include <span>
#include <string>
#include <type_traits>
#include <vector>

#include "tools/zntopo/Answer.h"
#include "tools/zntopo/TextTable.h"
#include "zntopo/core/ObjID.h"

/// @file
/// Kinds of objects as tables of fields. One table of a kind makes its JSON, the columns of a list
/// and the lines of a view, so that a name of a field stands once.
///
///     constexpr Field<ZNVlan> kVlanFields[] = {
///         {.key = "name", .head = "NAME", .value = member<&ZNVlan::getName>},
///         {.key = "number", .head = "VLAN", .value = member<&ZNVlan::getNumber>},
///     };
///     Listing<ZNVlan> listing(kVlanFields);
///     for (const auto& vlan : *vlans) listing.add(*vlan);
///     listing.fill(answer, "vlans", "vlan");

namespace zntopo::tools {

/// One field of the objects of a kind.
template <typename Object>
struct Field {
  /// The member in JSON, and the name of the line in a view; nullptr if it is in neither.
  const char* key = nullptr;
  /// The head of the column in a list; nullptr if it has none.
  const char* head = nullptr;
  Json (*value)(const Object& object);
  /// What people read instead of valueText(value).
  std::string (*text)(const Object& object) = nullptr;
  /// The column is there only if some object has a value, the line only if this one has.
  bool isRare = false;
};

/// A value as people read it: "-" for null, an empty text and an empty list; "yes" and "no"; a
/// list with commas.
std::string valueText(const Json& value);

/// A text that the store may not have: null for an empty one, and for "-", which is the library's
/// own mark.
Json known(const std::string& text);

/// Field::value of a member: a data member, or a function without arguments. Identifiers become
/// texts, enumerators numbers.
template <auto pointer, typename Object>
Json member(const Object& object) {
  const auto& value = std::invoke(pointer, object);
  using Value = std::remove_cvref_t<decltype(value)>;
  if constexpr (std::is_enum_v<Value>) {
    return static_cast<int>(value);
  } else if constexpr (std::is_same_v<Value, ObjID>) {
    return value.toString();
  } else {
    return value;
  }
}

/// The same of a text that the store may not have.
template <auto pointer, typename Object>
Json knownMember(const Object& object) {
  return known(std::invoke(pointer, object));
}

/// Seconds UTC as people read them; "-" for 0.
std::string timeText(long seconds);

/// Tables of fields, one behind the other.
template <typename Object, std::size_t... sizes>
constexpr auto joined(const std::array<Field<Object>, sizes>&... parts) {
  std::array<Field<Object>, (sizes + ...)> result{};
  std::size_t at = 0;
  const auto append = [&](const auto& part) {
    for (const Field<Object>& field : part) result[at++] = field;
  };
  (append(parts), ...);
  return result;
}

template <typename Object>
std::string fieldText(const Field<Object>& field, const Object& object) {
  return field.text ? field.text(object) : valueText(field.value(object));
}

/// One object in JSON.
template <typename Object>
Json fieldsJson(std::span<const Field<Object>> fields, const Object& object) {
  Json json = Json::object();
  for (const Field<Object>& field : fields) {
    if (field.key) json[field.key] = field.value(object);
  }
  return json;
}

/// A list of objects of one kind: an array in JSON, a table for people.
template <typename Object>
class Listing {
 public:
  /// The fields must outlive this object.
  explicit Listing(std::span<const Field<Object>> fields) : fields_(fields) {
    for (const Field<Object>& field : fields_) {
      if (field.head) columns_.push_back({field.head, field.isRare});
    }
  }

  void add(const Object& object) {
    json_.push_back(fieldsJson(fields_, object));
    std::size_t column = 0;
    for (const Field<Object>& field : fields_) {
      if (field.head) columns_[column++].cells.push_back(fieldText(field, object));
    }
  }

  std::size_t size() const { return json_.size(); }
  const Json& json() const { return json_; }
  /// The table, with its heads.
  std::string text() const { return columnsText(columns_); }

  /// Makes it the answer: a member in JSON, and the table with a last line such as "2 nodes".
  void fill(Answer& answer, const char* key, const std::string& what) const {
    answer.json[key] = json_;
    answer.text = text() + counted(size(), what) + "\n";
  }

 private:
  std::span<const Field<Object>> fields_;
  std::vector<TextColumn> columns_;
  Json json_ = Json::array();
};

/// One object, or several that tell of one thing, and lists of what belongs to it: members in
/// JSON, lines and tables for people.
class View {
 public:
  template <typename Object>
  void add(std::span<const Field<Object>> fields, const Object& object) {
    for (const Field<Object>& field : fields) {
      if (!field.key) continue;
      json_[field.key] = field.value(object);
      const std::string text = fieldText(field, object);
      if (!field.isRare || text != valueText(nullptr)) table_.add({field.key, text});
    }
  }

  /// Adds a list, below all fields: a member in JSON, and a table with a last line such as
  /// "2 interfaces".
  template <typename Object>
  void addList(const char* key, const std::string& what, std::span<const Field<Object>> fields,
               const std::vector<Object>& objects) {
    Listing<Object> listing(fields);
    for (const Object& object : objects) listing.add(object);
    json_[key] = listing.json();
    lists_ += "\n" + (objects.empty() ? "" : listing.text()) + counted(listing.size(), what) + "\n";
  }

  const Json& json() const { return json_; }
  std::string text() const { return table_.text() + lists_; }

 private:
  Json json_ = Json::object();
  TextTable table_;
  std::string lists_;
};

}  // namespace zntopo::tools
