#pragma once

#include <deque>
#include <string>
#include <vector>

#include "tools/network/StoreStatement.h"
#include "tools/network/StoreTable.h"
#include "zntopo/platform/tvdbil/TvDbil.h"

namespace zntopo::tools {

/// What stands for a cell of a column in the text of a statement.
std::string parameterMark(const ColumnDef& column);

/// A prepared statement on a table, with cells as its parameters. Each operation throws StoreError.
class CellStatement {
 public:
  CellStatement(TvDbil::DbConnection_t& connection, const TableDef& table, const std::string& sql);

  /// Makes a cell of a column the next parameter, from the first one on after an execution. The
  /// cell must stay where it is until then.
  void add(const ColumnDef& column, const Cell& cell);
  void execute();

  /// Reads columns of the table, in this order.
  void bindResults(const std::vector<std::size_t>& columns);
  /// The next row; false if there is none.
  bool fetch();
  /// The cell that was read of a column of the table.
  Cell result(std::size_t column) const;

 private:
  struct Result {
    std::vector<char> text;
    int number = 0;
    float real = 0;
    int indicator = 0;
  };

  void bindResult(std::size_t column);

  const TableDef& table_;
  StoreStatement statement_;
  /// Numbers with a fraction go in as texts, in an exact form.
  std::deque<std::string> reals_;
  std::vector<Result> results_;
};

}  // namespace zntopo::tools
