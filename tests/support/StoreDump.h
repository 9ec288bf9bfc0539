#pragma once

#include <algorithm>
#include <stdexcept>
#include <string>
#include <vector>

#include "tools/network/StoreRows.h"
#include "zntopo/platform/tvdbil/TvDbil.h"

namespace zntopo::test {

/// Every row of one table as a line of text, sorted; the columns of times left out.
inline std::string dumpTable(TvDbil::DbConnection_t& connection, const std::string& table,
                             const std::vector<std::string>& columns) {
  TvXplMsg::MessageList_t messages;
  TvDbil::DbStatement_t statement(messages, &connection);
  std::string sql;
  for (const std::string& column : columns) sql += (sql.empty() ? "select " : ", ") + column;
  sql += " from " + table;
  if (statement.BindSql(messages, sql.c_str()) != TvDbil::DBIL_SUCCESS) {
    throw std::runtime_error(messages.Format(TvXplMsg::fRecurse_k));
  }
  std::vector<std::vector<char>> values(columns.size(), std::vector<char>(2100));
  std::vector<int> indicators(columns.size());
  for (std::size_t i = 0; i < columns.size(); ++i) {
    statement.BindColumn(messages, static_cast<int>(i) + 1, values[i].data(), &indicators[i],
                         static_cast<int>(values[i].size()));
  }
  statement.Exec(messages);
  std::vector<std::string> lines;
  while (statement.Fetch(messages) <= TvDbil::DBIL_SUCCESS_WITH_INFO) {
    std::string line = table;
    for (std::size_t i = 0; i < columns.size(); ++i) {
      line += "|" + (indicators[i] < 0 ? "NULL" : std::string(values[i].data()));
    }
    lines.push_back(line + "\n");
  }
  std::sort(lines.begin(), lines.end());
  std::string result;
  for (const std::string& line : lines) result += line;
  return result;
}

/// Everything that the importer may write, as text. With times, those of the rows and the state
/// too.
inline std::string dumpStore(TvDbil::DbConnection_t& connection, bool withTimes = true) {
  using tools::ColumnDef;
  std::string result;
  for (int table = 0; table < tools::TableCount; ++table) {
    const tools::TableDef& definition = tools::tableDef(static_cast<tools::Table>(table));
    std::vector<std::string> columns;
    for (const ColumnDef& column : definition.columns) {
      const bool isTime = column.role == ColumnDef::Created || column.role == ColumnDef::Changed;
      if (withTimes || !isTime) columns.emplace_back(column.name);
    }
    result += dumpTable(connection, definition.name, columns);
  }
  if (!withTimes) return result;
  return result +
         dumpTable(connection, "state",
                   {"TopologyReady", "TOPOLOGYREADYCHANGETIME", "ChangeTime", "CreateTime"});
}

}  // namespace zntopo::test
