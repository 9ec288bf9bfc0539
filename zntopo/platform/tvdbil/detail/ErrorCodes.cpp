#include "zntopo/platform/tvdbil/detail/ErrorCodes.h"

#include <sqlite3.h>

namespace TvDbil::detail {
namespace {

struct SqliteCode {
  int result;
  DbilReturnCode code;
};

constexpr SqliteCode kSqliteCodes[] = {
    {SQLITE_ERROR, DBIL_PERMISSION_SYNTAX}, {SQLITE_PERM, DBIL_PERMISSION_SYNTAX},
    {SQLITE_AUTH, DBIL_PERMISSION_SYNTAX},  {SQLITE_READONLY, DBIL_PERMISSION_SYNTAX},
    {SQLITE_NOMEM, DBIL_OUT_OF_MEMORY},     {SQLITE_TOOBIG, DBIL_OUT_OF_RANGE},
    {SQLITE_RANGE, DBIL_OUT_OF_RANGE},      {SQLITE_CONSTRAINT, DBIL_CONSTRAINT_VIOLATION},
};

struct StateCode {
  std::string_view prefix;
  DbilReturnCode code;
};

// The first prefix that fits counts.
constexpr StateCode kStateCodes[] = {
    {"22001", DBIL_TRUNCATION},         {"22003", DBIL_OUT_OF_RANGE},
    {"23", DBIL_CONSTRAINT_VIOLATION},  {"25", DBIL_TRANSACTION_VIOLATION},
    {"40", DBIL_TRANSACTION_VIOLATION}, {"42", DBIL_PERMISSION_SYNTAX},
    {"37", DBIL_PERMISSION_SYNTAX},     {"53200", DBIL_OUT_OF_MEMORY},
    {"HY001", DBIL_OUT_OF_MEMORY},
};

constexpr std::string_view kLostStates[] = {"08", "57P01", "57P02", "57P03"};

bool beginsWith(std::string_view text, std::string_view prefix) {
  return text.substr(0, prefix.size()) == prefix;
}

}  // namespace

DbilReturnCode codeOfSqlite(int result) {
  for (const SqliteCode& entry : kSqliteCodes) {
    if (entry.result == (result & 0xff)) return entry.code;
  }
  return DBIL_ERROR;
}

DbilReturnCode codeOfSqlState(std::string_view state) {
  for (const StateCode& entry : kStateCodes) {
    if (beginsWith(state, entry.prefix)) return entry.code;
  }
  return DBIL_ERROR;
}

bool isFileLost(int result) {
  for (const int lost : {SQLITE_IOERR, SQLITE_CORRUPT, SQLITE_CANTOPEN, SQLITE_NOTADB}) {
    if ((result & 0xff) == lost) return true;
  }
  return false;
}

bool isConnectionLost(std::string_view state) {
  for (std::string_view prefix : kLostStates) {
    if (beginsWith(state, prefix)) return true;
  }
  return false;
}

}  // namespace TvDbil::detail
