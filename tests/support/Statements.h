#pragma once

#include <string>
#include <vector>

#include "zntopo/store/TableSet.h"

/// @file
/// What the library asks stores.

namespace zntopo::test {

/// Every statement of the library's queries, in every form that it can take, on one table set.
std::vector<std::string> everyStatement(const TableSet& tables);

/// Every statement that changes the store, in the same way; with values for its parameters.
std::vector<std::string> everyUpdate(const TableSet& tables);

/// A statement with the texts in it left out: the same for every query of one kind.
std::string shapeOf(const std::string& statement);

}  // namespace zntopo::test
