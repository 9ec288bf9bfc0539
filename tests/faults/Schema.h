#pragma once

#include <string>
#include <vector>

#include "tests/support/TestEngine.h"

/// @file
/// The schema as data/schema/tables.json describes it, for tests that take it apart.

namespace zntopo::test {

struct ColumnOf {
  std::string name;
  std::string type;  ///< "id", "text", "int", "flag", "time" or "float"
};

struct TableOf {
  std::string name;
  std::vector<ColumnOf> columns;
};

/// The tables of the active set.
const std::vector<TableOf>& describedTables();

/// The same tables without a key, a reference or a check, so that NULL may stand anywhere.
const StoreSeed& looseSeed();

}  // namespace zntopo::test
