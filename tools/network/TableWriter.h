#pragma once

#include <optional>
#include <vector>

#include "tools/network/CellStatement.h"
#include "tools/network/StoreTable.h"
#include "tools/network/WriteCounts.h"
#include "zntopo/platform/tvdbil/TvDbil.h"

/// @file
/// The ways of a row into its table. The connection and the table must outlive the writers.

namespace zntopo::tools {

/// Brings rows into one table. Each operation throws StoreError.
class TableWriter {
 public:
  /// The columns of times get the given time.
  TableWriter(const TableDef& table, int time) : table_(table), time_(time) {}
  virtual ~TableWriter() = default;
  TableWriter(const TableWriter&) = delete;
  TableWriter& operator=(const TableWriter&) = delete;

  /// Takes a row: a cell for each column, those of times left out of account.
  void put(std::vector<Cell> row);
  /// Writes what was taken and waits.
  virtual void flush() = 0;
  const WriteCounts& counts() const { return counts_; }

 protected:
  virtual void write(std::vector<Cell> row) = 0;
  std::vector<std::size_t> columns(bool (*wanted)(ColumnDef::Role)) const;
  /// Names of columns, each with what comes behind it.
  std::string names(const std::vector<std::size_t>& columns, const std::string& between,
                    bool isWithMarks) const;

  const TableDef& table_;
  WriteCounts counts_;

 private:
  int time_;
};

/// Inserts rows, many with one statement; for a table that has none of them.
class TableInserter : public TableWriter {
 public:
  TableInserter(TvDbil::DbConnection_t& connection, const TableDef& table, int time);

  void flush() override;

 protected:
  void write(std::vector<Cell> row) override;

 private:
  std::string insertText(std::size_t rows) const;
  void execute(CellStatement& statement);

  TvDbil::DbConnection_t& connection_;
  std::size_t rowsAtOnce_;
  std::vector<std::vector<Cell>> waiting_;
  std::optional<CellStatement> full_;
};

/// Compares each row with the one of its key in the table, and writes it only if it differs.
class TableMerger : public TableWriter {
 public:
  TableMerger(TvDbil::DbConnection_t& connection, const TableDef& table, int time);

  void flush() override {}

 protected:
  void write(std::vector<Cell> row) override;

 private:
  bool mergeAndCompare(std::vector<Cell>& row) const;
  void execute(CellStatement& statement, const std::vector<std::size_t>& order,
               const std::vector<Cell>& row);

  std::vector<std::size_t> keys_;
  std::vector<std::size_t> compared_;
  std::vector<std::size_t> inserted_;
  std::vector<std::size_t> updated_;
  std::optional<CellStatement> select_;
  std::optional<CellStatement> insert_;
  std::optional<CellStatement> update_;
};

}  // namespace zntopo::tools
