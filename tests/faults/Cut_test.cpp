// The connection breaks while an answer is being fetched.

#include <algorithm>

#include "tests/faults/FaultFixture.h"
#include "tests/support/CuttingProxy.h"

namespace zntopo::test {
namespace {

/// Asks where the store fails once, at a row of one of the operation's statements.
Answered askFailingAt(const Question& question, const std::string& statement, int row) {
  StatementSpy spy;
  spy.failOnce(StatementSpy::Fetch, statement, TvDbil::DBIL_ERROR, row);
  return askCold(question);
}

/// The server ends the connections in the middle of a fetch.
class CutFetchTest : public FaultTest {
 protected:
  void SetUp() override {
    FaultTest::SetUp();
    if (!store_) return;
    // Each row is fetched from the server on its own; else the driver has all of them at once.
    const std::string store = store_->engine().store() + "UseDeclareFetch=1;Fetch=1;";
    setenv("TV_TOPO_STORE", store.c_str(), 1);
    ZNDBTestAccess::forget();
  }

  /// Ends every connection to the store but the one that asks for it.
  void cut() {
    store_->value(
        "select count(pg_terminate_backend(pid, 5000)) from pg_stat_activity "
        "where datname = current_database() and pid <> pg_backend_pid()");
  }

  Answered askCutAt(const Question& question, const std::string& statement, int row) {
    StatementSpy spy;
    spy.before(StatementSpy::Fetch, statement, row, [this] { cut(); });
    return askCold(question);
  }
};

TEST_P(CutFetchTest, AnAnswerThatBreaksOffIsNotToldFromItsEndAndTheNextQueryWorks) {
  std::set<std::string> shapes;
  for (std::size_t i = 0; i < questions().size(); ++i) {
    const Question& question = questions()[i];
    for (const std::string& statement : healthy_.statements(i)) {
      if (!shapes.insert(shapeOf(statement)).second) continue;
      // The first row came with the execution, so a cut just before it shows at the second.
      const int row = 1 + static_cast<int>(shapes.size()) % 3;
      const std::string where =
          std::string(question.name) + ", row " + std::to_string(row) + " of " + statement;
      EXPECT_EQ(askCutAt(question, statement, row),
                askFailingAt(question, statement, std::max(row, 2)))
          << where;
      expectNobodyHolds(where);
      EXPECT_EQ(askCold(question), healthy_.answer(i)) << "after the cut in " << where;
    }
  }
  EXPECT_GT(shapes.size(), 40u);
  EXPECT_EQ(ZNDBTestAccess::lostCount(), 0u);
}

ZNTOPO_ON_ENGINES(CutFetchTest, kPostgres);

/// The wire to the server is cut somewhere in what it says.
class CutWireTest : public FaultTest {
 protected:
  void SetUp() override {
    setUpWith(20);
    if (!store_) return;
    const auto listened = server_->folder() / ".s.PGSQL.5433";
    proxy_.emplace(listened, server_->socket());
    std::string store = store_->engine().store();
    store.replace(store.find("Port=5432"), 9, "Port=5433");
    setenv("TV_TOPO_STORE", store.c_str(), 1);
    ZNDBTestAccess::forget();
  }

  void TearDown() override {
    ZNDBTestAccess::forget();
    proxy_.reset();
    FaultTest::TearDown();
  }

  std::optional<CuttingProxy> proxy_;
};

TEST_P(CutWireTest, WhereverTheWireIsCutTheQueryEndsAndTheNextOneWorks) {
  constexpr int kCuts = 12;
  for (const char* name : {"getNodesByObjIDList, all", "getL2Path", "getInterfacesByObjIDList"}) {
    const auto found =
        std::find_if(questions().begin(), questions().end(),
                     [name](const Question& one) { return one.name == std::string(name); });
    ASSERT_NE(found, questions().end());
    const Answered healthy = healthy_.answer(static_cast<std::size_t>(found - questions().begin()));
    ZNDBTestAccess::forget();
    proxy_->mend();
    ASSERT_EQ(askCold(*found), healthy);
    const long whole = proxy_->bytes();
    int failures = 0;
    for (int i = 0; i < kCuts; ++i) {
      ZNDBTestAccess::forget();
      proxy_->cutAfter(whole * i / kCuts);
      const Answered answered = askCold(*found);
      EXPECT_NE(answered, healthy) << name << " cut at " << i;
      if (answered.status != ZN_API_SUCCESS) ++failures;
      expectNobodyHolds(name);
      proxy_->mend();
      EXPECT_EQ(askCold(*found), healthy) << name << " after the cut at " << i;
      expectNobodyHolds(name);
    }
    // Nothing is lost in silence: half an answer is none.
    EXPECT_EQ(failures, kCuts) << name;
  }
}

ZNTOPO_ON_ENGINES(CutWireTest, kPostgres);

/// The disk fails in the middle of the reading.
class CutReadTest : public FaultTest {
 protected:
  void SetUp() override { setUpWith(60); }
};

TEST_P(CutReadTest, WhereverTheReadingFailsTheQueryEndsAndTheNextOneWorks) {
  constexpr int kCuts = 8;
  int failures = 0;
  for (std::size_t i = 0; i < questions().size(); ++i) {
    const Question& question = questions()[i];
    ZNDBTestAccess::forget();
    disk_->repair();
    ASSERT_EQ(askCold(question), healthy_.answer(i)) << question.name;
    const int whole = disk_->reads();
    ASSERT_GT(whole, 0) << question.name;
    for (int cut = 0; cut < kCuts; ++cut) {
      // With an empty pool nothing of the store is remembered.
      ZNDBTestAccess::forget();
      disk_->failReadsFrom(1 + whole * cut / kCuts);
      const Answered answered = askCold(question);
      if (answered.status != question.healthy) ++failures;
      const std::string where = std::string(question.name) + " cut at " + std::to_string(cut);
      EXPECT_TRUE(mayTell(question, answered.status)) << where << ": " << answered;
      EXPECT_LE(answered.count, healthy_.answer(i).count) << where;
      expectNobodyHolds(where);
      const int before = ZNDBTestAccess::connectionCount();
      disk_->repair();
      EXPECT_EQ(askCold(question), healthy_.answer(i)) << "after " << where;
      EXPECT_GE(ZNDBTestAccess::connectionCount(), before) << where;
      expectNobodyHolds(where);
    }
  }
  EXPECT_GT(failures, 200);
}

ZNTOPO_ON_ENGINES(CutReadTest, kSqliteDrivers);

}  // namespace
}  // namespace zntopo::test
