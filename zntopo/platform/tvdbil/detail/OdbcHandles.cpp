#include "zntopo/platform/tvdbil/detail/OdbcHandles.h"

#include <strings.h>

#include <cstring>

namespace TvDbil::detail {
namespace {

const char* asText(const SQLCHAR* text) { return reinterpret_cast<const char*>(text); }

std::string trimmed(const std::string& text) {
  const std::size_t first = text.find_first_not_of(" \t");
  if (first == std::string::npos) return {};
  return text.substr(first, text.find_last_not_of(" \t") + 1 - first);
}

// A value in braces may hold semicolons, and a closing brace that is doubled.
std::size_t endOfAttribute(const std::string& text, std::size_t start) {
  const std::size_t equals = text.find_first_of("=;", start);
  if (equals == std::string::npos || text[equals] == ';') return equals;
  const std::size_t value = text.find_first_not_of(" \t", equals + 1);
  if (value == std::string::npos || text[value] != '{') return text.find(';', equals);
  std::size_t brace = text.find('}', value);
  while (brace != std::string::npos && brace + 1 < text.size() && text[brace + 1] == '}') {
    brace = text.find('}', brace + 2);
  }
  return brace == std::string::npos ? brace : text.find(';', brace);
}

std::string unbraced(const std::string& value) {
  if (value.size() < 2 || value.front() != '{' || value.back() != '}') return value;
  return value.substr(1, value.size() - 2);
}

}  // namespace

Diagnosis diagnose(SQLSMALLINT type, SQLHANDLE handle) {
  Diagnosis diagnosis;
  SQLCHAR state[SQL_SQLSTATE_SIZE + 1] = {};
  SQLCHAR text[2048] = {};
  SQLINTEGER native = 0;
  for (SQLSMALLINT record = 1; SQL_SUCCEEDED(
           SQLGetDiagRec(type, handle, record, state, &native, text, sizeof text, nullptr));
       ++record) {
    if (record == 1) {
      diagnosis.state = asText(state);
      diagnosis.native = native;
    }
    if (record > 1) diagnosis.text += "; ";
    diagnosis.text += "SQLSTATE " + std::string(asText(state)) + " (" + std::to_string(native) +
                      "): " + asText(text);
  }
  return diagnosis;
}

std::string odbcAttribute(const std::string& connectionString, const std::string& name) {
  for (std::size_t start = 0; start < connectionString.size();) {
    const std::size_t end = endOfAttribute(connectionString, start);
    const std::string attribute = connectionString.substr(start, end - start);
    const std::size_t equals = attribute.find('=');
    if (equals != std::string::npos &&
        strcasecmp(trimmed(attribute.substr(0, equals)).c_str(), name.c_str()) == 0) {
      return unbraced(trimmed(attribute.substr(equals + 1)));
    }
    if (end == std::string::npos) break;
    start = end + 1;
  }
  return {};
}

std::string odbcDriver(SQLHANDLE environment, const std::string& connectionString) {
  std::string driver = odbcAttribute(connectionString, "Driver");
  const std::string source = odbcAttribute(connectionString, "DSN");
  if (!driver.empty() || source.empty()) return driver;
  SQLCHAR name[SQL_MAX_DSN_LENGTH + 1] = {};
  SQLCHAR description[1024] = {};
  for (SQLUSMALLINT which = SQL_FETCH_FIRST;
       SQL_SUCCEEDED(SQLDataSources(environment, which, name, sizeof name, nullptr, description,
                                    sizeof description, nullptr));
       which = SQL_FETCH_NEXT) {
    if (strcasecmp(asText(name), source.c_str()) == 0) return asText(description);
  }
  return {};
}

bool beginsWithWord(const std::string& text, const char* prefix) {
  return strncasecmp(text.c_str(), prefix, std::strlen(prefix)) == 0;
}

bool containsWord(const std::string& text, const char* word) {
  return strcasestr(text.c_str(), word) != nullptr;
}

}  // namespace TvDbil::detail
