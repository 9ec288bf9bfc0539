#include "tools/network/SetAsideIndices.h"

#include <array>
#include <utility>

#include "tools/network/StoreStatement.h"
#include "tools/network/StoreTable.h"

namespace zntopo::tools {

namespace {

constexpr const char* kComplaint = "can't read or write the indices of the store";

struct IndexText {
  std::string name;
  std::string sql;
};

/// Those that have a text; the index of a key has none, and belongs to its table.
std::vector<IndexText> indicesOf(TvDbil::DbConnection_t& connection, const std::string& table) {
  std::array<char, 256> name{};
  std::array<char, 4096> sql{};
  StoreStatement statement(connection,
                           "select name, sql from sqlite_master where type = 'index' and sql is "
                           "not null and lower(tbl_name) = lower(?)",
                           kComplaint);
  statement.add(table.c_str());
  statement.bind(name.data(), name.size(), nullptr);
  statement.bind(sql.data(), sql.size(), nullptr);
  statement.execute();
  std::vector<IndexText> result;
  // One that is cut off could not be made again, so it stays.
  while (statement.fetch()) {
    if (!statement.isCut()) result.push_back({name.data(), sql.data()});
  }
  return result;
}

}  // namespace

SetAsideIndices::SetAsideIndices(TvDbil::DbConnection_t& connection) : connection_(connection) {
  if (connection.GetEngineName() != "SQLite") return;
  for (const TableDef& table : kTables) {
    for (IndexText& index : indicesOf(connection, table.name)) {
      executeText(connection, "drop index \"" + index.name + "\"", kComplaint);
      statements_.push_back(std::move(index.sql));
    }
  }
}

void SetAsideIndices::makeAgain() {
  for (const std::string& sql : std::exchange(statements_, {})) {
    executeText(connection_, sql, kComplaint);
  }
}

}  // namespace zntopo::tools
