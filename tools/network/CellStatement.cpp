#include "tools/network/CellStatement.h"

#include <charconv>

namespace zntopo::tools {

namespace {

std::string exactText(float value) {
  char buffer[32];
  return {buffer, std::to_chars(buffer, buffer + sizeof buffer, value).ptr};
}

}  // namespace

std::string parameterMark(const ColumnDef& column) {
  return column.type == ColumnDef::Float ? "cast(? as real)" : "?";
}

CellStatement::CellStatement(TvDbil::DbConnection_t& connection, const TableDef& table,
                             const std::string& sql)
    : table_(table),
      statement_(connection, sql, std::string("can't read or write the table ") + table.name) {}

void CellStatement::add(const ColumnDef& column, const Cell& cell) {
  if (column.type == ColumnDef::Int) return statement_.add(std::get_if<int>(&cell));
  const std::string* text = std::get_if<std::string>(&cell);
  if (const float* number = std::get_if<float>(&cell)) {
    text = &reals_.emplace_back(exactText(*number));
  }
  statement_.add(text == nullptr ? nullptr : text->c_str());
}

void CellStatement::execute() {
  statement_.execute();
  reals_.clear();
}

void CellStatement::bindResults(const std::vector<std::size_t>& columns) {
  results_.resize(table_.columns.size());
  for (const std::size_t column : columns) bindResult(column);
}

void CellStatement::bindResult(std::size_t column) {
  const ColumnDef& definition = table_.columns[column];
  Result& result = results_[column];
  switch (definition.type) {
    case ColumnDef::Int:
      return statement_.bind(&result.number, &result.indicator);
    case ColumnDef::Float:
      return statement_.bind(&result.real, &result.indicator);
    case ColumnDef::Text:
      result.text.resize(static_cast<std::size_t>(definition.width) + 1);
      return statement_.bind(result.text.data(), result.text.size(), &result.indicator);
  }
}

bool CellStatement::fetch() { return statement_.fetch(); }

Cell CellStatement::result(std::size_t column) const {
  const Result& result = results_[column];
  if (result.indicator < 0) return {};
  switch (table_.columns[column].type) {
    case ColumnDef::Int:
      return result.number;
    case ColumnDef::Float:
      return result.real;
    case ColumnDef::Text:
      break;
  }
  return std::string(result.text.data());
}

}  // namespace zntopo::tools
