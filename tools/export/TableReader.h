#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "tools/network/StoreTable.h"
#include "zntopo/platform/tvdbil/TvDbil.h"

/// @file
/// Reading the rows of the tables that StoreTable.h describes.

namespace zntopo::tools {

/// A row of one table that was read: its cells by the names of its columns.
template <Table table>
class ReadRow {
 public:
  explicit ReadRow(const Row& row) : row_(row) {}

  const Cell& operator[](ColumnOf<table> column) const { return row_.cells[column.index]; }
  bool has(ColumnOf<table> column) const {
    return !std::holds_alternative<std::monostate>((*this)[column]);
  }
  /// Nothing for NULL.
  std::optional<int> number(ColumnOf<table> column) const {
    const int* const value = std::get_if<int>(&(*this)[column]);
    return value == nullptr ? std::nullopt : std::optional(*value);
  }
  /// Empty for NULL.
  std::string text(ColumnOf<table> column) const {
    const auto* const value = std::get_if<std::string>(&(*this)[column]);
    return value == nullptr ? std::string() : *value;
  }

 private:
  const Row& row_;
};

/// Visits the rows whose cell of a column is one of some texts, by statements of 500; all rows with
/// nullptr. Throws StoreError.
void readRows(TvDbil::DbConnection_t& connection, Table table, std::size_t column,
              const std::vector<std::string>* texts, const std::function<void(const Row&)>& visit);

template <Table table, typename Visit>
void forEachRow(TvDbil::DbConnection_t& connection, ColumnOf<table> column,
                const std::vector<std::string>* texts, const Visit& visit) {
  readRows(connection, table, column.index, texts,
           [&](const Row& row) { visit(ReadRow<table>(row)); });
}

}  // namespace zntopo::tools
