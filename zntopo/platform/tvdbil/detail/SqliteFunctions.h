#pragma once

struct sqlite3;

namespace TvDbil::detail {

/// Gives a connection the functions that PostgreSQL has and SQLite lacks, so that one text of a
/// statement does for both: chr(n), the character with a number.
///
/// A failure shows when a statement uses what is missing.
void addSqliteFunctions(sqlite3* database);

}  // namespace TvDbil::detail
