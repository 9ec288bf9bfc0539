#pragma once

#include <functional>
#include <map>
#include <memory>
#include <stdexcept>
#include <string>
#include <utility>
#include <variant>
#include <vector>

#include "zntopo/platform/tvdbil/TvDbil.h"

/// @file
/// Rows of the store, written only where they differ from what is there.

namespace zntopo::tools {

/// The store refused something; the text has the driver's messages in it.
class StoreError : public std::runtime_error {
 public:
  StoreError(const std::string& what, const TvXplMsg::MessageList_t& messages);
  explicit StoreError(const std::string& what) : std::runtime_error(what) {}
};

/// NULL, a number or a text.
using Cell = std::variant<std::monostate, int, std::string>;
/// NULL for an empty text.
Cell textCell(const std::string& text);

struct ColumnDef {
  enum Type : int { Int, Text };
  enum Role : int {
    Key,
    Value,
    /// A flag that stays set once it is: what it tells of stays in the store too.
    Sticky,
    /// The time at which the row was made.
    Created,
    /// The time at which it was last changed.
    Changed
  };
  const char* name;
  Type type;
  Role role;
  /// Of texts, in bytes.
  int width;
};

/// A table, as far as the importer fills it.
struct TableDef {
  const char* name;
  std::vector<ColumnDef> columns;
};

/// Prepared statements on one table of an open connection, and their variables.
class TableWriter {
 public:
  enum class Outcome : int { Added, Changed, Unchanged };

  /// The connection must outlive this object.
  TableWriter(TvDbil::DbConnection_t& connection, const TableDef& table);

  /// Brings one row into the table; a cell for each column, those of times left out of account.
  /// Throws StoreError.
  Outcome put(const std::vector<Cell>& row, int now);

 private:
  struct Variable {
    std::vector<char> text;
    int number = 0;
    int indicator = 0;
  };

  std::unique_ptr<TvDbil::DbStatement_t> prepare(const std::string& sql) const;
  std::vector<std::size_t> columns(bool (*wanted)(ColumnDef::Role)) const;
  void bindParameter(TvDbil::DbStatement_t& statement, int position, std::size_t column,
                     const Cell& cell);
  void bindResults();
  /// Reads the row of the keys; false if there is none.
  bool read(const std::vector<Cell>& row);
  bool mergeAndCompare(std::vector<Cell>& row) const;
  void execute(TvDbil::DbStatement_t& statement, const std::vector<std::size_t>& order,
               const std::vector<Cell>& row);

  TvDbil::DbConnection_t& connection_;
  const TableDef& table_;
  std::vector<std::size_t> keys_;
  std::vector<std::size_t> compared_;
  std::vector<std::size_t> inserted_;
  std::vector<std::size_t> updated_;
  std::vector<Variable> parameters_;
  std::vector<Variable> results_;
  std::unique_ptr<TvDbil::DbStatement_t> select_;
  std::unique_ptr<TvDbil::DbStatement_t> insert_;
  std::unique_ptr<TvDbil::DbStatement_t> update_;
};

}  // namespace zntopo::tools
