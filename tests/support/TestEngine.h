#pragma once

#include <gtest/gtest.h>

#include <array>
#include <filesystem>
#include <functional>
#include <string>

/// @file
/// The engines that tests of the store run on, and a fresh store on one of them.

namespace zntopo::test {

enum class Engine { Sqlite, SqliteOdbc, Postgres };

/// Every engine; for INSTANTIATE_TEST_SUITE_P with testing::ValuesIn.
inline constexpr std::array<Engine, 3> kEngines = {Engine::Sqlite, Engine::SqliteOdbc,
                                                   Engine::Postgres};
/// SQLite by its own interface, and PostgreSQL: enough where the driver does not matter.
inline constexpr std::array<Engine, 2> kMainEngines = {Engine::Sqlite, Engine::Postgres};

/// "sqlite", "sqlite_odbc" or "postgres".
const char* engineName(Engine engine);

/// Names the cases of a parametrised suite; the fourth argument of INSTANTIATE_TEST_SUITE_P.
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
  const std::filesystem::path& folder() const { return folder_; }

 private:
  void makeSqlite(const StoreSeed* seed);
  void makePostgres(const StoreSeed* seed);

  Engine engine_;
  std::filesystem::path folder_;
  std::string database_;
  std::string store_;
};

/// The connection string of a database of the test's PostgreSQL server.
std::string postgresStore(const std::string& database);

/// Executes one statement on a store, in a connection of its own, outside any transaction.
/// Throws std::runtime_error with the driver's messages if it fails.
void executeOn(const std::string& store, const std::string& sql);

}  // namespace zntopo::test

/// Ends the test here if the engine can't be used: skipped, or failed where engines are required.
#define ZNTOPO_NEED_ENGINE(engine)                                            \
  do {                                                                        \
    const std::string zntopoWhy = ::zntopo::test::whyEngineIsMissing(engine); \
    if (!zntopoWhy.empty()) {                                                 \
      if (::zntopo::test::enginesAreRequired()) GTEST_FAIL() << zntopoWhy;    \
      GTEST_SKIP() << zntopoWhy;                                              \
    }                                                                         \
  } while (false)
