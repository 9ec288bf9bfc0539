#include "bench/support/BenchStore.h"

#include <cstdlib>
#include <filesystem>
#include <stdexcept>

#include "tools/generate/GenerateCampus.h"
#include "zntopo/store/SchemaScript.h"

namespace zntopo::bench {

namespace {

namespace fs = std::filesystem;

constexpr int kInterfacesPerNode = 20;

TvDbil::DbConnection_t open(const std::string& store) {
  TvXplMsg::MessageList_t messages;
  const TvDbil::DbSource_t source(messages, store);
  TvDbil::DbConnection_t connection(messages, &source);
  if (!connection.IsValid()) throw std::runtime_error(messages.Format(TvXplMsg::fRecurse_k));
  return connection;
}

void execute(TvDbil::DbConnection_t& connection, const std::string& sql) {
  TvXplMsg::MessageList_t messages;
  TvDbil::DbStatement_t statement(messages, &connection);
  check(statement.BindSql(messages, sql.c_str()), messages);
  check(statement.Exec(messages), messages);
}

tools::CampusPlan planOf(const Setting& setting) {
  tools::CampusPlan plan;
  plan.shape = setting.shape == Setting::Shape::Ring ? tools::NetworkShape::SwitchRing
                                                     : tools::NetworkShape::Campus;
  plan.nodes = setting.nodes;
  plan.interfaces = setting.nodes * kInterfacesPerNode;
  plan.userVariableShare = setting.userVariables ? 1 : 0;
  return plan;
}

void fill(const std::string& store, const Setting& setting) {
  TvDbil::DbConnection_t connection = open(store);
  TvXplMsg::MessageList_t messages;
  check(createSchema(messages, connection), messages);
  tools::generateCampus(connection, planOf(setting));
  // What an administrator does, so that the engines know their tables.
  execute(connection, "analyze");
}

/// A file that is there is complete: it gets its name when it is filled.
void makeSqlite(const Setting& setting) {
  if (fs::exists(setting.store)) return;
  const std::string unfinished = setting.store + ".new";
  for (const char* ending : {"", "-wal", "-shm"}) fs::remove(unfinished + ending);
  TvXplMsg::MessageList_t messages;
  check(TvDbil::CreateStore(messages, TvDbil::DbSource_t(messages, unfinished)), messages);
  fill(unfinished, setting);
  fs::rename(unfinished, setting.store);
}

/// The connection string names a database that is made where there is none.
void makeOnServer(const Setting& setting) {
  constexpr char kKey[] = "Database=";
  const std::size_t at = setting.store.find(kKey);
  if (at == std::string::npos) throw std::runtime_error("the connection string names no database");
  const std::size_t begin = at + sizeof kKey - 1;
  const std::string database = setting.store.substr(begin, setting.store.find(';', begin) - begin);
  std::string server = setting.store;
  server.replace(begin, database.size(), "postgres");
  TvDbil::DbConnection_t connection = open(server);
  try {
    execute(connection, "create database " + database);
  } catch (const std::runtime_error&) {
    open(setting.store);  // it is there, or this says why it is not
    return;
  }
  fill(setting.store, setting);
}

}  // namespace

void check(TvDbil::DbilReturnCode_t code, const TvXplMsg::MessageList_t& messages) {
  if (code == TvDbil::DBIL_SUCCESS || code == TvDbil::DBIL_SUCCESS_WITH_INFO) return;
  throw std::runtime_error(messages.Format(TvXplMsg::fRecurse_k));
}

TvDbil::DbConnection_t connect() { return open(std::getenv("TV_TOPO_STORE")); }

void provideStore(const Setting& setting) {
  TvXplMsg::MessageList_t messages;
  if (TvDbil::DbSource_t(messages, setting.store).IsOdbc()) {
    makeOnServer(setting);
  } else {
    makeSqlite(setting);
  }
  setenv("TV_TOPO_STORE", setting.store.c_str(), 1);
}

}  // namespace zntopo::bench
