#pragma once

#include <gtest/gtest.h>

#include <array>
#include <filesystem>
#include <functional>
#include <string>

#include "tests/support/Scratch.h"

/// @file
/// The engines that tests of the store run on, and a fresh store on one of them.

namespace zntopo::test {

enum class Engine { Sqlite, SqliteOdbc, Postgres };

// Engines for ZNTOPO_ON_ENGINES.

inline constexpr std::array kEngines = {Engine::Sqlite, Engine::SqliteOdbc, Engine::Postgres};
/// SQLite by its own interface, and PostgreSQL: enough where the driver does not matter.
inline constexpr std::array kMainEngines = {Engine::Sqlite, Engine::Postgres};
/// Where the engine does not matter either.
inline constexpr std::array kSqlite = {Engine::Sqlite};
/// Both drivers of SQLite.
inline constexpr std::array kSqliteDrivers = {Engine::Sqlite, Engine::SqliteOdbc};
inline constexpr std::array kPostgres = {Engine::Postgres};

/// "sqlite", "sqlite_odbc" or "postgres".
const char* engineName(Engine engine);

/// Names the cases of a suite.
struct EngineNames {
  std::string operator()(const testing::TestParamInfo<Engine>& info) const {
    return engineName(info.param);
  }
};

void PrintTo(Engine engine, std::ostream* stream);

/// Why an engine can't be used here; empty if it can.
std::string whyEngineIsMissing(Engine engine);

/// True if a missing engine is a failure (ZNTOPO_REQUIRE_ENGINES=1) and not a skipped test.
bool enginesAreRequired();

/// What a store holds before a test starts.
struct StoreSeed {
  /// Letters, digits and "_", up to 40; other contents need another name. On PostgreSQL the seed
  /// is sown once into a database of that name, of which each test gets a copy.
  std::string name;
  /// Fills the empty store that is named as TV_TOPO_STORE names it; throws if that fails. It
  /// leaves no connection open.
  std::function<void(const std::string& store)> fill;
};

/// A fresh store of one engine, and a temporary folder, for the life of this object.
/// Throws std::runtime_error if the store can't be made.
class TestEngine {
 public:
  explicit TestEngine(Engine engine);
  TestEngine(Engine engine, const StoreSeed& seed);
  ~TestEngine();
  TestEngine(const TestEngine&) = delete;
  TestEngine& operator=(const TestEngine&) = delete;

  Engine engine() const { return engine_; }
  bool isPostgres() const { return engine_ == Engine::Postgres; }
  /// The store as TV_TOPO_STORE names it: a path or an ODBC connection string.
  const std::string& store() const { return store_; }
  /// Sets TV_TOPO_STORE to this store.
  void setEnvironment() const;
  /// The temporary folder, removed at the end.
  const std::filesystem::path& folder() const { return scratch_.folder(); }

 private:
  void makeSqlite(const StoreSeed* seed);
  void makePostgres(const StoreSeed* seed);

  Engine engine_;
  Scratch scratch_;
  std::string database_;
  std::string store_;
};

/// The connection string of a database of the test's PostgreSQL server.
std::string postgresStore(const std::string& database);

/// Executes one statement on a store, in a connection of its own, outside any transaction.
/// Throws std::runtime_error with the driver's messages if it fails.
void executeOn(const std::string& store, const std::string& sql);

}  // namespace zntopo::test

/// Runs the cases of a suite on each of some engines: ZNTOPO_ON_ENGINES(NodeTest, kMainEngines).
#define ZNTOPO_ON_ENGINES(Suite, engines)                              \
  INSTANTIATE_TEST_SUITE_P(Engines, Suite, testing::ValuesIn(engines), \
                           ::zntopo::test::EngineNames())

/// Ends the test here if the engine can't be used: skipped, or failed where engines are required.
#define ZNTOPO_NEED_ENGINE(engine)                                            \
  do {                                                                        \
    const std::string zntopoWhy = ::zntopo::test::whyEngineIsMissing(engine); \
    if (!zntopoWhy.empty()) {                                                 \
      if (::zntopo::test::enginesAreRequired()) GTEST_FAIL() << zntopoWhy;    \
      GTEST_SKIP() << zntopoWhy;                                              \
    }                                                                         \
  } while (false)
