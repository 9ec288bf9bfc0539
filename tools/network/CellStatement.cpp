#include "tools/network/CellStatement.h"

#include <charconv>

#include "tools/network/StoreError.h"
#include "zntopo/store/GoodCode.h"

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
    : table_(table), statement_(messages_, &connection) {
  if (!isGood(statement_.BindSql(messages_, sql.c_str()))) fail("can't prepare to write the table");
}

void CellStatement::fail(const std::string& what) const {
  throw StoreError(what + " " + table_.name, messages_);
}

void CellStatement::add(const ColumnDef& column, const Cell& cell) {
  const bool isNull = std::holds_alternative<std::monostate>(cell);
  TvDbil::DbilReturnCode_t code;
  ++position_;
  if (column.type == ColumnDef::Int) {
    code = statement_.BindParm(messages_, position_, std::get_if<int>(&cell), isNull);
  } else {
    const std::string* text = std::get_if<std::string>(&cell);
    if (column.type == ColumnDef::Float && !isNull) {
      text = &reals_.emplace_back(exactText(std::get<float>(cell)));
    }
    char* const characters = text == nullptr ? nullptr : const_cast<char*>(text->c_str());
    code = statement_.BindParm(messages_, position_, characters, isNull);
  }
  if (!isGood(code)) fail("can't hand a value to the table");
}

void CellStatement::execute() {
  const TvDbil::DbilReturnCode_t code = statement_.Exec(messages_);
  position_ = 0;
  reals_.clear();
  if (!isGood(code)) fail("a row is refused by the table");
}

void CellStatement::bindResults(const std::vector<std::size_t>& columns) {
  results_.resize(table_.columns.size());
  int position = 0;
  for (const std::size_t column : columns) {
    if (!isGood(bindResult(++position, column))) fail("can't read back what was written to");
  }
}

TvDbil::DbilReturnCode_t CellStatement::bindResult(int position, std::size_t column) {
  const ColumnDef& definition = table_.columns[column];
  Result& result = results_[column];
  switch (definition.type) {
    case ColumnDef::Int:
      return statement_.BindColumn(messages_, position, &result.number, &result.indicator);
    case ColumnDef::Float:
      return statement_.BindColumn(messages_, position, &result.real, &result.indicator);
    case ColumnDef::Text:
      break;
  }
  result.text.resize(static_cast<std::size_t>(definition.width) + 1);
  return statement_.BindColumn(messages_, position, result.text.data(), &result.indicator,
                               static_cast<int>(result.text.size()));
}

bool CellStatement::fetch() {
  const TvDbil::DbilReturnCode_t code = statement_.Fetch(messages_);
  if (isGood(code)) return true;
  if (code != TvDbil::DBIL_NO_DATA) fail("can't read the table");
  return false;
}

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
