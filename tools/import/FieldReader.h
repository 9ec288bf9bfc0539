#pragma once

#include <set>
#include <string>

#include "tools/import/JsonDocument.h"
#include "tools/network/NetworkFields.h"
#include "tools/network/NetworkReport.h"

/// @file
/// Reading the objects of a network from JSON by their tables of fields.
///
/// What is of the wrong kind throws ImportError. A number outside its range and a name of a number
/// that is none are counted and left out; a text that is too long is counted and cut.

namespace zntopo::tools {

/// A text without control characters, cut to a width in bytes (0 for no limit).
std::string readText(const JsonPlace& place, const std::string& name, std::size_t width,
                     NetworkReport& report);
/// A number, or its name.
std::optional<int> readNumber(const JsonPlace& place, const std::string& name,
                              std::span<const NumberName<>> names, int low, int high,
                              NetworkReport& report);

/// Reads the members of a JSON object that a table names into an object. What the JSON object
/// does not have stays as it was.
template <typename Object, std::size_t count>
void readFields(JsonObject& from, Object& object, const Field<Object> (&fields)[count],
                NetworkReport& report) {
  struct Reader {
    const Field<Object>& field;
    const JsonPlace& place;
    Object& object;
    NetworkReport& report;

    std::optional<int> number() const {
      return readNumber(place, field.name, field.names, field.low, field.high, report);
    }
    void operator()(std::string Object::*member) const {
      object.*member = readText(place, field.name, field.width, report);
    }
    void operator()(int Object::*member) const {
      if (const auto value = number()) object.*member = *value;
    }
    void operator()(std::optional<int> Object::*member) const {
      if (const auto value = number()) object.*member = value;
    }
    void operator()(bool Object::*member) const { object.*member = place.flag(); }
  };
  for (const Field<Object>& field : fields) {
    if (const auto place = from.find(field.name)) {
      std::visit(Reader{field, *place, object, report}, field.member);
    }
  }
}

/// Throws ImportError for a text that is no identifier of an object: it has to have 1 to 36
/// letters, digits, full stops, colons, hyphens and underscores. An empty one is none that was
/// told.
void checkIdentifier(const JsonObject& from, const std::string& id);

/// Reads what objects of all kinds have, but for the name. User variables that are there already
/// get the new value.
void readEntity(JsonObject& from, EntityModel& entity, NetworkReport& report);
/// Reads the list "property"; one that is there already gets the new value.
void readProperties(JsonObject& from, std::vector<PropertyModel>& properties,
                    NetworkReport& report);

/// Tells identifiers apart in one list: one that comes again is an error, as is one that is no
/// name.
class ListKeys {
 public:
  std::string read(JsonObject& element, const std::string& name, std::size_t width = 2000);

 private:
  std::set<std::string> known_;
};

}  // namespace zntopo::tools
