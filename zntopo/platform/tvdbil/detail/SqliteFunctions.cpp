#include "zntopo/platform/tvdbil/detail/SqliteFunctions.h"

#include <sqlite3.h>

namespace TvDbil::detail {
namespace {

/// True for what PostgreSQL takes: every character but NUL, and no half of a pair of UTF-16.
bool isCharacter(sqlite3_int64 number) {
  return number > 0 && number <= 0x10FFFF && (number < 0xD800 || number > 0xDFFF);
}

void chr(sqlite3_context* context, int /*count*/, sqlite3_value** values) {
  switch (sqlite3_value_numeric_type(values[0])) {
    case SQLITE_NULL:
      return sqlite3_result_null(context);
    case SQLITE_INTEGER:
      break;
    default:
      return sqlite3_result_error(context, "chr() takes a whole number", -1);
  }
  const sqlite3_int64 number = sqlite3_value_int64(values[0]);
  if (!isCharacter(number)) {
    return sqlite3_result_error(context, "chr() takes the number of a character", -1);
  }
  // As UTF-16, of which SQLite makes what it needs.
  const auto high = static_cast<unsigned>(number - 0x10000);
  const char16_t pair[] = {static_cast<char16_t>(0xD800U + (high >> 10U)),
                           static_cast<char16_t>(0xDC00U + (high & 0x3FFU))};
  const auto single = static_cast<char16_t>(number);
  if (number < 0x10000) return sqlite3_result_text16(context, &single, 2, SQLITE_TRANSIENT);
  sqlite3_result_text16(context, pair, sizeof pair, SQLITE_TRANSIENT);
}

}  // namespace

void addSqliteFunctions(sqlite3* database) {
  constexpr int kFlags = SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_INNOCUOUS;
  sqlite3_create_function_v2(database, "chr", 1, kFlags, nullptr, chr, nullptr, nullptr, nullptr);
}

}  // namespace TvDbil::detail
