#pragma once

#include <cstdint>

/// @file
/// How many statements the process has given to its stores: the measure of what a query costs that
/// is the same on every machine.

namespace TvDbil {

/// What was counted since the process began, over all connections and both drivers. The difference
/// of two readings is what happened between them, in all threads together.
///
/// Counted is what reaches the driver, whether it succeeds there or not; a text or an execution
/// that is refused before is not. What a driver executes on its own account is not counted either:
/// the settings of a new connection, BEGIN, COMMIT, and the question for the start of a
/// transaction.
struct StatementCount {
  std::uint64_t prepared = 0;      ///< texts given to a driver to prepare
  std::uint64_t executed = 0;      ///< executions; a statement that is executed twice counts twice
  std::uint64_t transactions = 0;  ///< transactions begun

  StatementCount operator-(const StatementCount& earlier) const {
    return {prepared - earlier.prepared, executed - earlier.executed,
            transactions - earlier.transactions};
  }
  bool operator==(const StatementCount& other) const {
    return prepared == other.prepared && executed == other.executed &&
           transactions == other.transactions;
  }
};

/// The count up to now. Any thread may ask at any time; while others execute statements, the three
/// numbers need not be of the same moment. Counting is always on and costs an atomic addition
/// without ordering, some nanoseconds a statement.
StatementCount statementCount();

}  // namespace TvDbil
