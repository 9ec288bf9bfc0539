// Each statement of the library meets a store in which one of its columns is missing.

#include <set>

#include "tests/faults/LittleNetwork.h"
#include "tests/faults/Questions.h"
#include "tests/faults/Schema.h"

namespace zntopo::test {
namespace {

std::string trimmed(const std::string& text) {
  return text.substr(0, text.find_last_not_of(" \n") + 1);
}

/// A store with the network, of which one column at a time has another name.
class MissingColumnTest : public testing::TestWithParam<Engine> {
 protected:
  void SetUp() override {
    ZNTOPO_NEED_ENGINE(GetParam());
    store_.emplace(GetParam());
    fillLittleNetwork(*store_);
    ZNTopoAPI::setTopoConfiguration(ZNTopoConfig());
    healthy_.learn();
  }

  void rename(const std::string& table, const std::string& from, const std::string& to) {
    store_->execute("alter table " + table + " rename column " + from + " to " + to);
  }

  /// The statement of a question that the engine refuses now: if there are several, the one that
  /// settles the status.
  const std::string* refusedOf(std::size_t question) {
    const std::string* refused = nullptr;
    for (const std::string& sql : healthy_.statements(question)) {
      if (store_->accepts(sql)) continue;
      refused = &sql;
      if (questions()[question].tells == Tells::First) break;
    }
    return refused;
  }

  void expectAnswer(std::size_t index, const std::string& column) {
    const Question& question = questions()[index];
    const std::string* const refused = refusedOf(index);
    const Answered answered = askCold(question);
    if (!refused) {
      EXPECT_EQ(answered, healthy_.answer(index)) << question.name << " without " << column;
      return;
    }
    ++failures_;
    met_.insert(shapeOf(*refused));
    const ZNTopoStatus expected = question.endingOf(*refused, ZN_API_SQL_EXEC_ERROR);
    if (isStatementFailure(expected)) {
      EXPECT_TRUE(isStatementFailure(answered.status)) << question.name << column << answered;
      EXPECT_NE(answered.aux.find(trimmed(*refused)), std::string::npos)
          << question.name << answered;
    } else {
      EXPECT_EQ(answered.status, expected)
          << question.name << " without " << column << ": " << answered << *refused;
    }
  }

  std::optional<TestStore> store_;
  Healthy healthy_;
  int failures_ = 0;
  std::set<std::string> met_;
};

bool mentions(const std::vector<std::string>& statements, const std::string& word) {
  for (const std::string& sql : statements) {
    if (strcasestr(sql.c_str(), word.c_str())) return true;
  }
  return false;
}

bool countsAllRows(const std::string& sql) {
  return sql.find("select count(*) ") == 0 && sql.find(" where ") == std::string::npos;
}

TEST_P(MissingColumnTest, EachOperationSaysWhatItsStatementMet) {
  for (const TableOf& table : describedTables()) {
    for (const ColumnOf& column : table.columns) {
      const std::string what = table.name + "." + column.name;
      rename(table.name, column.name, "gone");
      for (std::size_t i = 0; i < questions().size(); ++i) {
        if (mentions(healthy_.statements(i), table.name) &&
            mentions(healthy_.statements(i), column.name)) {
          expectAnswer(i, what);
        }
      }
      rename(table.name, "gone", column.name);
      ASSERT_EQ(ZNDBTestAccess::connectionCount(), static_cast<int>(ZNDBTestAccess::idleCount()))
          << what;
    }
  }
  // Each statement that names a column has met one that it misses, and now everything works again.
  for (std::size_t i = 0; i < questions().size(); ++i) {
    for (const std::string& sql : healthy_.statements(i)) {
      if (countsAllRows(sql)) continue;
      EXPECT_EQ(met_.count(shapeOf(sql)), 1u) << "was never the first refused: " << sql;
    }
  }
  EXPECT_GT(failures_, 800);
  healthy_.expectAll("with every column in its place");
  EXPECT_EQ(ZNDBTestAccess::lostCount(), 0u);
}

ZNTOPO_ON_ENGINES(MissingColumnTest, kMainEngines);

}  // namespace
}  // namespace zntopo::test
