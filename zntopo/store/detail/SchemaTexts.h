#pragma once

namespace zntopo::detail {

/// The scripts of data/schema/ as they stood when the library was built.
extern const char* const kSqliteSchema;
extern const char* const kPostgreSqlSchema;

}  // namespace zntopo::detail
