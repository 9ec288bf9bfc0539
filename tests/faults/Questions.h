#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "tests/support/ApiFixture.h"
#include "tests/support/FilterConfiguration.h"
#include "tests/support/Statements.h"

/// @file
/// Every query operation that reads the store, asked about one small network, and what each
/// tells its caller of a statement that fails.

namespace zntopo::test {

/// When a query takes its connection.
enum class Connects {
  Later,  ///< After it has asked for readiness.
  First   ///< Before.
};

enum class Finds { Something, Nothing };

/// Which of several statements that fail settles the status.
enum class Tells { First, Last };

/// What a question tells when a statement with this text is the first that fails; without a
/// status what the failed statement itself tells.
struct Ending {
  const char* statement;
  std::optional<ZNTopoStatus> status;
};

/// One query.
struct Question {
  const char* name;
  /// How many things it found.
  std::function<std::size_t(OpenImpl&, ZNTopoAPIStatus&)> ask;
  /// The first that fits counts; the statement's own status where none does.
  std::vector<Ending> endings = {};
  /// The answer of a store without a fault.
  ZNTopoStatus healthy = ZN_API_SUCCESS;
  Connects connects = Connects::Later;
  /// On a store without a fault.
  Finds finds = Finds::Something;
  Tells tells = Tells::First;
  /// Where its filter's statement gets no connection it tells of an internal error. If that is not
  /// the first statement, it happens only if the store goes between the two.
  bool hidesConnection = false;

  /// What the question tells of a failed statement.
  ZNTopoStatus endingOf(const std::string& statement, ZNTopoStatus own) const;
};

/// All of them.
const std::vector<Question>& questions();

/// The answer to one of them.
struct Answered {
  ZNTopoStatus status = ZN_API_SUCCESS;
  std::size_t count = 0;
  std::string aux;

  friend bool operator==(const Answered& left, const Answered& right) {
    return left.status == right.status && left.count == right.count;
  }
};

std::ostream& operator<<(std::ostream& stream, const Answered& answered);

/// Asks with an empty cache, so that each statement reaches the store.
Answered askCold(const Question& question);

/// What a store without a fault is asked and answers, question by question. While it is there,
/// questions find the filter configuration.
class Healthy {
 public:
  /// Asks all questions; those that are not answered as they should be are failures of the test.
  void learn();

  /// The statements of a question, in order.
  const std::vector<std::string>& statements(std::size_t question) const {
    return statements_[question];
  }
  const Answered& answer(std::size_t question) const { return answers_[question]; }
  /// Asks all again: each must be answered as before.
  void expectAll(const std::string& when) const;

 private:
  /// What some questions parse is in the language that is installed.
  std::optional<FilterConfiguration> language_;
  std::vector<std::vector<std::string>> statements_;
  std::vector<Answered> answers_;
};

/// True for the statuses of a statement that the engine refuses: it shows when the statement is
/// prepared or when it is executed, as the engine likes it.
bool isStatementFailure(ZNTopoStatus status);

}  // namespace zntopo::test
