#include "tools/export/FieldWriter.h"

#include <charconv>
#include <cmath>

#include "tools/export/UniqueNames.h"

namespace zntopo::tools {

namespace {

/// A value as YANG has it in JSON, where numbers that JSON may not hold exactly are texts; null for
/// one that has no such form.
struct VariableJson {
  Json operator()(short value) const { return value; }
  Json operator()(int value) const { return value; }
  Json operator()(bool value) const { return value; }
  Json operator()(long long value) const { return std::to_string(value); }
  Json operator()(const std::string& value) const { return value; }
  Json operator()(float value) const {
    if (!std::isfinite(value)) return nullptr;
    char buffer[32];
    return std::string(buffer, std::to_chars(buffer, buffer + sizeof buffer, value).ptr);
  }
};

}  // namespace

void writeEntity(Json& to, const EntityModel& from) {
  writeFields(to, from, fields::kEntity);
  if (from.status) {
    to["status"] = Json::object();
    writeFields(to["status"], *from.status, fields::kStatus);
  }
  UniqueNames names(fields::kVariableNameWidth);
  for (const UserVariableModel& one : from.variables) {
    const Json value = std::visit(VariableJson(), one.value);
    if (value.is_null()) continue;
    to["user-variable"].push_back(
        {{"name", names.take(one.name)}, {fields::kVariableValue[one.value.index()], value}});
  }
}

void writeProperties(Json& to, const std::vector<PropertyModel>& properties) {
  UniqueNames names(fields::kVariableNameWidth);
  for (const PropertyModel& one : properties) {
    to["property"].push_back({{"name", names.take(one.name)}, {"value", one.value}});
  }
}

std::string lineOf(const Json& json) {
  return json.dump(-1, ' ', false, Json::error_handler_t::replace);
}

}  // namespace zntopo::tools
