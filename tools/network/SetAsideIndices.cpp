#include "tools/network/SetAsideIndices.h"

#include <array>
#include <utility>

#include "tools/network/RunSql.h"
#include "tools/network/StoreError.h"
#include "tools/network/StoreTable.h"
#include "zntopo/store/GoodCode.h"

namespace zntopo::tools {

namespace {

using TvXplMsg::MessageList_t;

constexpr const char* kFailure = "can't read or write the indices of the store";

struct IndexText {
  std::string name;
  std::string sql;
};

void check(TvDbil::DbilReturnCode_t code, const MessageList_t& messages) {
  if (!isGood(code)) throw StoreError(kFailure, messages);
}

/// Those that have a text; the index of a key has none, and belongs to its table.
std::vector<IndexText> indicesOf(TvDbil::DbConnection_t& connection, const std::string& table) {
  MessageList_t messages;
  TvDbil::DbStatement_t statement(messages, &connection);
  std::array<char, 256> name{};
  std::array<char, 4096> sql{};
  const std::string text =
      "select name, sql from sqlite_master where type = 'index' and sql is not null and "
      "lower(tbl_name) = lower('" +
      table + "')";
  check(statement.BindSql(messages, text.c_str()), messages);
  check(statement.BindColumn(messages, 1, name.data(), nullptr, name.size()), messages);
  check(statement.BindColumn(messages, 2, sql.data(), nullptr, sql.size()), messages);
  check(statement.Exec(messages), messages);
  std::vector<IndexText> result;
  auto code = statement.Fetch(messages);
  // One that is cut off could not be made again, so it stays.
  for (; isGood(code); code = statement.Fetch(messages)) {
    if (code == TvDbil::DBIL_SUCCESS) result.push_back({name.data(), sql.data()});
  }
  if (code != TvDbil::DBIL_NO_DATA) check(code, messages);
  return result;
}

}  // namespace

SetAsideIndices::SetAsideIndices(TvDbil::DbConnection_t& connection) : connection_(connection) {
  if (connection.GetEngineName() != "SQLite") return;
  for (const TableDef& table : kTables) {
    for (IndexText& index : indicesOf(connection, table.name)) {
      runSql(connection, "drop index \"" + index.name + "\"", kFailure);
      statements_.push_back(std::move(index.sql));
    }
  }
}

void SetAsideIndices::makeAgain() {
  for (const std::string& sql : std::exchange(statements_, {})) {
    runSql(connection_, sql, kFailure);
  }
}

}  // namespace zntopo::tools
