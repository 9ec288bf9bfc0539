#include "tools/export/TableReader.h"

#include <algorithm>
#include <deque>
#include <numeric>

#include "tools/network/CellStatement.h"
#include "tools/network/StoreStatement.h"

namespace zntopo::tools {

namespace {

/// Well below what any engine takes in one statement.
constexpr std::size_t kTextsAtOnce = 500;

class Statement {
 public:
  Statement(TvDbil::DbConnection_t& connection, Table table, const std::string& condition)
      : table_(table), statement_(connection, tableDef(table), select(table) + condition) {}

  void add(std::size_t column, const std::string& text) {
    statement_.add(tableDef(table_).columns[column], cells_.emplace_back(text));
  }

  void visit(const std::function<void(const Row&)>& visit) {
    std::vector<std::size_t> columns(tableDef(table_).columns.size());
    std::iota(columns.begin(), columns.end(), 0);
    statement_.bindResults(columns);
    statement_.execute();
    Row row(table_);
    while (statement_.fetch()) {
      for (const std::size_t i : columns) row.cells[i] = statement_.result(i);
      visit(row);
    }
  }

 private:
  static std::string select(Table table) {
    std::string names;
    for (const ColumnDef& column : tableDef(table).columns) {
      names += (names.empty() ? "" : ", ") + std::string(column.name);
    }
    return "select " + names + " from " + tableDef(table).name;
  }

  Table table_;
  CellStatement statement_;
  /// The parameters, which stay where they are.
  std::deque<Cell> cells_;
};

}  // namespace

void readRows(TvDbil::DbConnection_t& connection, Table table, std::size_t column,
              const std::vector<std::string>* texts, const std::function<void(const Row&)>& visit) {
  if (texts == nullptr) return Statement(connection, table, "").visit(visit);
  for (std::size_t at = 0; at < texts->size(); at += kTextsAtOnce) {
    const std::size_t count = std::min(kTextsAtOnce, texts->size() - at);
    Statement statement(connection, table,
                        std::string(" where ") + tableDef(table).columns[column].name + " in (" +
                            parameterMarks(count) + ")");
    for (std::size_t i = at; i < at + count; ++i) statement.add(column, (*texts)[i]);
    statement.visit(visit);
  }
}

}  // namespace zntopo::tools
