#include "tests/faults/Questions.h"

#include <ostream>

#include "tests/faults/QuestionRows.h"
#include "tests/support/Places.h"

namespace zntopo::test {

ZNTopoStatus Question::endingOf(const std::string& statement, ZNTopoStatus own) const {
  for (const Ending& ending : endings) {
    if (statement.find(ending.statement) != std::string::npos) return ending.status.value_or(own);
  }
  return own;
}

const std::vector<Question>& questions() {
  static const auto* const all = [] {
    auto* const result = new std::vector<Question>;
    for (const auto& part : {nodeQuestions(), loaderQuestions(), interfaceQuestions(),
                             addressQuestions(), groupQuestions(), walkQuestions(), infoQuestions(),
                             filterQuestions(), topoFilterQuestions()}) {
      result->insert(result->end(), part.begin(), part.end());
    }
    return result;
  }();
  return *all;
}

std::ostream& operator<<(std::ostream& stream, const Answered& answered) {
  return stream << "status " << answered.status << ", " << answered.count << " found; "
                << answered.aux;
}

Answered askCold(const Question& question) {
  // Containers stay in a cache that is cleared.
  ZNTopoAPI::getTopoConfiguration().setIfcCacheSize(0);
  ZNTopoAPI_Impl::cache()->clear(true);
  OpenImpl impl;
  ZNTopoAPIStatus status;
  const std::size_t count = question.ask(impl, status);
  return {status.getStatus(), count, status.getAuxMsg()};
}

void Healthy::learn() {
  // The questions first: some parse filters of a configuration of their own, once.
  const std::vector<Question>& all = questions();
  language_.emplace("etc", inSourceTree("data/filter"));
  StatementSpy spy;
  for (const Question& question : all) {
    spy.clear();
    answers_.push_back(askCold(question));
    statements_.push_back(spy.allStatements());
    EXPECT_EQ(answers_.back().status, question.healthy) << question.name << answers_.back();
    EXPECT_EQ(answers_.back().count > 0, question.finds == Finds::Something) << question.name;
  }
}

void Healthy::expectAll(const std::string& when) const {
  for (std::size_t i = 0; i < questions().size(); ++i) {
    EXPECT_EQ(askCold(questions()[i]), answers_[i]) << questions()[i].name << " " << when;
  }
}

bool isStatementFailure(ZNTopoStatus status) {
  return status == ZN_API_SQL_BIND_STATEMENT_ERROR || status == ZN_API_SQL_EXEC_ERROR;
}

}  // namespace zntopo::test
