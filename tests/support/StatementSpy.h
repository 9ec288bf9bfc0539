#pragma once

#include <functional>
#include <string>
#include <vector>

#include "zntopo/platform/tvdbil/TvDbil.h"

namespace zntopo::test {

/// Looks at each statement that the library gives to the platform, and lets one of them fail.
/// The test program is linked so that the statements' operations pass through here.
///
/// How many statements there are is known without it, from StatementCount.h; texts and faults are
/// of use to tests alone, so the library has no place for them.
///
/// One at a time in a process. What the tests themselves execute is seen as well: make the spy
/// when the store is filled, or call clear(). Several threads may execute statements meanwhile.
class StatementSpy {
 public:
  enum Step { BindSql, BindColumn, BindParm, Exec, Fetch };

  StatementSpy();
  ~StatementSpy();
  StatementSpy(const StatementSpy&) = delete;
  StatementSpy& operator=(const StatementSpy&) = delete;

  /// The statements that were prepared, in order; those on the state row only on demand.
  std::vector<std::string> statements() const;
  std::vector<std::string> allStatements() const;
  void clear();

  /// From now on a step of each statement with this text in it answers with a code, without being
  /// carried out.
  /// @param from the columns, parameters or rows before this number, which counts from 1, go well.
  void fail(Step step, const std::string& textInStatement,
            TvDbil::DbilReturnCode code = TvDbil::DBIL_ERROR, int from = 1);
  /// From now on a step of such statements is carried out and then answers with a code.
  void answer(Step step, const std::string& textInStatement, TvDbil::DbilReturnCode code);
  /// Lets the next such step, and no other, answer with a code without being carried out.
  void failOnce(Step step, const std::string& textInStatement, TvDbil::DbilReturnCode code,
                int from);
  /// Does something just before the next such step, which is then carried out.
  void before(Step step, const std::string& textInStatement, int from,
              std::function<void()> action);
  void succeed();

  /// What the platform says of a step that this object lets fail.
  static constexpr const char* kMessage = "the spy lets this step fail";
};

}  // namespace zntopo::test
