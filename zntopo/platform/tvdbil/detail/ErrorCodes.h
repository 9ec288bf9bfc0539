#pragma once

#include <string_view>

#include "zntopo/platform/tvdbil/TvDbil.h"

namespace TvDbil::detail {

/// The return code for a SQLite result code, extended or not.
DbilReturnCode codeOfSqlite(int result);

/// The return code for an SQLSTATE of five characters.
DbilReturnCode codeOfSqlState(std::string_view state);

/// True if a SQLite result code says that the file can't be read as it was opened: the disk under
/// it failed, or something else was written over it.
bool isFileLost(int result);

/// True if an SQLSTATE says that the connection to the server is gone.
bool isConnectionLost(std::string_view state);

}  // namespace TvDbil::detail
