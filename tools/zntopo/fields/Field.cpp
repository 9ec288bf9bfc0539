#include "tools/zntopo/fields/Field.h"

#include <ctime>

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

std::string timeText(long seconds) {
  if (seconds == 0) return "-";
  const std::time_t time = seconds;
  std::tm parts{};
  char text[40] = "";
  if (!gmtime_r(&time, &parts) ||
      std::strftime(text, sizeof text, "%Y-%m-%dT%H:%M:%SZ", &parts) == 0) {
    return std::to_string(seconds);
  }
  return text;
}

}  // namespace zntopo::tools
