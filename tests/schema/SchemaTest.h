#pragma once

#include <gtest/gtest.h>

#include <string>

#include "tests/support/TestStore.h"

namespace zntopo::test {

/// True for the tables that both table sets share.
inline bool standsOnce(const std::string& table) {
  return table == "state" || table == "nwtopoaudittrail";
}

/// Calls a body with the name of a table in each table set.
template <typename Body>
void inBothSets(const std::string& table, const Body& body) {
  body(table);
  if (!standsOnce(table)) body(table + "_update");
}

}  // namespace zntopo::test
