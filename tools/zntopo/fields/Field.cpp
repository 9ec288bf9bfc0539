#include "tools/zntopo/fields/Field.h"

namespace zntopo::tools {

std::string valueText(const Json& value) {
  if (value.is_null() || value.empty()) return "-";
  if (value.is_boolean()) return value.get<bool>() ? "yes" : "no";
  if (value.is_string()) return value.get<std::string>().empty() ? "-" : value.get<std::string>();
  if (!value.is_array()) return value.dump();
  std::string result;
  for (const Json& one : value) result += (result.empty() ? "" : ", ") + valueText(one);
  return result;
}

Json known(const std::string& text) { return text.empty() || text == "-" ? Json() : Json(text); }

}  // namespace zntopo::tools
