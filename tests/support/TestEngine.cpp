#include "tests/support/TestEngine.h"

#include <dlfcn.h>
#include <stdlib.h>
#include <unistd.h>

#include <atomic>
#include <chrono>
#include <ostream>
#include <stdexcept>

#include "zntopo/platform/tvdbil/TvDbil.h"

#ifdef __SANITIZE_ADDRESS__
// A driver takes the library with it in which unixODBC keeps what it has read of its configuration,
// and that would count as lost.
[[maybe_unused]] static void* const odbcConfiguration =
    dlopen("libodbcinst.so.2", RTLD_LAZY | RTLD_NODELETE);
#endif

namespace zntopo::test {
namespace {

std::string environment(const char* name) {
  const char* value = std::getenv(name);
  return value == nullptr ? std::string() : value;
}

void check(TvDbil::DbilReturnCode code, const TvDbil::MessageList_t& messages) {
  if (code != TvDbil::DBIL_SUCCESS && code != TvDbil::DBIL_SUCCESS_WITH_INFO) {
    throw std::runtime_error(messages.Format(TvXplMsg::fRecurse_k));
  }
}

bool databaseExists(const std::string& database) {
  TvDbil::MessageList_t messages;
  TvDbil::DbSource_t source(messages, postgresStore("postgres"));
  TvDbil::DbConnection_t connection(messages, &source);
  TvDbil::DbStatement_t statement(messages, &connection);
  const std::string sql = "select 1 from pg_database where datname = '" + database + "'";
  check(statement.BindSql(messages, sql.c_str()), messages);
  check(statement.Exec(messages), messages);
  return statement.Fetch(messages) == TvDbil::DBIL_SUCCESS;
}

// Unique on the machine while this process lives; unlikely to meet the name of an earlier one.
std::string uniqueName() {
  static std::atomic<int> count = 0;
  const auto now = std::chrono::system_clock::now().time_since_epoch().count();
  return "zntopo_" + std::to_string(getpid()) + "_" + std::to_string(now) + "_" +
         std::to_string(++count);
}

void administer(const std::string& sql) { executeOn(postgresStore("postgres"), sql); }

// Test programs run side by side. Each that misses the database of a seed sows one of its own and
// gives it the seed's name; the first wins, and the others drop theirs.
void sowPostgres(const StoreSeed& seed, const std::string& ownName) {
  if (databaseExists(seed.name)) return;
  const std::string sown = ownName + "_seed";
  administer("create database " + sown);
  try {
    seed.fill(postgresStore(sown));
    administer("alter database " + sown + " rename to " + seed.name);
  } catch (const std::exception&) {
    administer("drop database if exists " + sown + " with (force)");
    if (!databaseExists(seed.name)) throw;
  }
}

}  // namespace

const char* engineName(Engine engine) {
  constexpr std::array<const char*, 3> kNames = {"sqlite", "sqlite_odbc", "postgres"};
  return kNames.at(static_cast<std::size_t>(engine));
}

void PrintTo(Engine engine, std::ostream* stream) { *stream << engineName(engine); }

std::string whyEngineIsMissing(Engine engine) {
  if (engine != Engine::Postgres || !environment("ZNTOPO_TEST_POSTGRES").empty()) return {};
  return "ZNTOPO_TEST_POSTGRES is not set; run the test through scripts/with-postgres";
}

bool enginesAreRequired() { return environment("ZNTOPO_REQUIRE_ENGINES") == "1"; }

std::string postgresStore(const std::string& database) {
  return environment("ZNTOPO_TEST_POSTGRES") + "Database=" + database + ";";
}

void executeOn(const std::string& store, const std::string& sql) {
  TvDbil::MessageList_t messages;
  TvDbil::DbSource_t source(messages, store);
  TvDbil::DbConnection_t connection(messages, &source);
  TvDbil::DbStatement_t statement(messages, &connection);
  check(statement.BindSql(messages, sql.c_str()), messages);
  check(statement.Exec(messages), messages);
}

TestEngine::TestEngine(Engine engine) : engine_(engine) {
  isPostgres() ? makePostgres(nullptr) : makeSqlite(nullptr);
}

TestEngine::TestEngine(Engine engine, const StoreSeed& seed) : engine_(engine) {
  isPostgres() ? makePostgres(&seed) : makeSqlite(&seed);
}

TestEngine::~TestEngine() {
  try {
    if (!database_.empty()) administer("drop database if exists " + database_ + " with (force)");
  } catch (const std::exception& error) {
    ADD_FAILURE() << "The test's database is left behind: " << error.what();
  }
}

void TestEngine::setEnvironment() const { setEnv("TV_TOPO_STORE", store_); }

void TestEngine::makeSqlite(const StoreSeed* seed) {
  const std::string path = scratch_.path("topology.db");
  TvDbil::MessageList_t messages;
  check(TvDbil::CreateStore(messages, TvDbil::DbSource_t(messages, path)), messages);
  if (seed != nullptr) seed->fill(path);
  store_ = engine_ == Engine::Sqlite ? path : "Driver=SQLite3;Database=" + path + ";";
}

void TestEngine::makePostgres(const StoreSeed* seed) {
  const std::string why = whyEngineIsMissing(engine_);
  if (!why.empty()) throw std::runtime_error(why);
  const std::string name = uniqueName();
  if (seed != nullptr) sowPostgres(*seed, name);
  administer("create database " + name + (seed == nullptr ? "" : " template " + seed->name));
  database_ = name;
  store_ = postgresStore(name);
}

}  // namespace zntopo::test
