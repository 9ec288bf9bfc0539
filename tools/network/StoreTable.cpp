#include "tools/network/StoreTable.h"

#include "zntopo/store/GoodCode.h"

namespace zntopo::tools {

namespace {

using TvXplMsg::MessageList_t;

std::string join(const TableDef& table, const std::vector<std::size_t>& columns,
                 const std::string& behind, const std::string& between) {
  std::string result;
  for (const std::size_t column : columns) {
    if (!result.empty()) result += between;
    result += table.columns[column].name + behind;
  }
  return result;
}

}  // namespace

StoreError::StoreError(const std::string& what, const MessageList_t& messages)
    : std::runtime_error(what + "\n" + messages.Format(TvXplMsg::fRecurse_k)) {}

Cell textCell(const std::string& text) { return text.empty() ? Cell() : Cell(text); }

TableWriter::TableWriter(TvDbil::DbConnection_t& connection, const TableDef& table)
    : connection_(connection),
      table_(table),
      keys_(columns([](ColumnDef::Role role) { return role == ColumnDef::Key; })),
      compared_(columns([](ColumnDef::Role role) {
        return role == ColumnDef::Value || role == ColumnDef::Sticky;
      })),
      inserted_(columns([](ColumnDef::Role) { return true; })),
      updated_(columns([](ColumnDef::Role role) {
        return role != ColumnDef::Key && role != ColumnDef::Created;
      })),
      parameters_(table.columns.size()),
      results_(table.columns.size()) {
  const std::string name = table_.name;
  const std::string where = " where " + join(table_, keys_, " = ?", " and ");
  // A table of keys alone is asked for its keys.
  const std::vector<std::size_t>& read = compared_.empty() ? keys_ : compared_;
  select_ = prepare("select " + join(table_, read, "", ", ") + " from " + name + where);
  bindResults();
  std::string marks = "?";
  for (std::size_t i = 1; i < inserted_.size(); ++i) marks += ", ?";
  insert_ = prepare("insert into " + name + " (" + join(table_, inserted_, "", ", ") +
                    ") values (" + marks + ")");
  if (!compared_.empty()) {
    update_ = prepare("update " + name + " set " + join(table_, updated_, " = ?", ", ") + where);
  }
}

std::vector<std::size_t> TableWriter::columns(bool (*wanted)(ColumnDef::Role)) const {
  std::vector<std::size_t> result;
  for (std::size_t i = 0; i < table_.columns.size(); ++i) {
    if (wanted(table_.columns[i].role)) result.push_back(i);
  }
  return result;
}

std::unique_ptr<TvDbil::DbStatement_t> TableWriter::prepare(const std::string& sql) const {
  MessageList_t messages;
  auto statement = std::make_unique<TvDbil::DbStatement_t>(messages, connection_);
  if (!isGood(statement->BindSql(messages, sql.c_str()))) {
    throw StoreError(std::string("can't prepare to write the table ") + table_.name, messages);
  }
  return statement;
}

void TableWriter::bindResults() {
  MessageList_t messages;
  int position = 0;
  for (const std::size_t column : compared_.empty() ? keys_ : compared_) {
    const ColumnDef& definition = table_.columns[column];
    Variable& variable = results_[column];
    ++position;
    TvDbil::DbilReturnCode_t code;
    if (definition.type == ColumnDef::Int) {
      code = select_->BindColumn(messages, position, &variable.number, &variable.indicator);
    } else {
      variable.text.resize(static_cast<std::size_t>(definition.width) + 1);
      code = select_->BindColumn(messages, position, variable.text.data(), &variable.indicator,
                                 static_cast<int>(variable.text.size()));
    }
    if (!isGood(code)) throw StoreError("can't read back what was written", messages);
  }
}

void TableWriter::bindParameter(TvDbil::DbStatement_t& statement, int position, std::size_t column,
                                const Cell& cell) {
  MessageList_t messages;
  Variable& variable = parameters_[column];
  const bool isNull = std::holds_alternative<std::monostate>(cell);
  TvDbil::DbilReturnCode_t code;
  if (table_.columns[column].type == ColumnDef::Int) {
    variable.number = isNull ? 0 : std::get<int>(cell);
    code = statement.BindParm(messages, position, &variable.number, isNull);
  } else {
    const std::string text = isNull ? "" : std::get<std::string>(cell);
    variable.text.assign(text.begin(), text.end());
    variable.text.push_back('\0');
    code = statement.BindParm(messages, position, variable.text.data(), isNull);
  }
  if (!isGood(code)) throw StoreError("can't hand a value to the store", messages);
}

void TableWriter::execute(TvDbil::DbStatement_t& statement, const std::vector<std::size_t>& order,
                          const std::vector<Cell>& row) {
  int position = 0;
  for (const std::size_t column : order) {
    bindParameter(statement, ++position, column, row[column]);
  }
  MessageList_t messages;
  if (!isGood(statement.Exec(messages))) {
    throw StoreError(std::string("the table ") + table_.name + " refuses a row", messages);
  }
}

bool TableWriter::read(const std::vector<Cell>& row) {
  execute(*select_, keys_, row);
  MessageList_t messages;
  const TvDbil::DbilReturnCode_t code = select_->Fetch(messages);
  if (isGood(code)) return true;
  if (code == TvDbil::DBIL_NO_DATA) return false;
  throw StoreError(std::string("can't read the table ") + table_.name, messages);
}

/// Gives sticky flags what is there, and tells whether the row then is what is there.
bool TableWriter::mergeAndCompare(std::vector<Cell>& row) const {
  bool isEqual = true;
  for (const std::size_t column : compared_) {
    const Variable& variable = results_[column];
    Cell present;
    if (variable.indicator >= 0) {
      present = table_.columns[column].type == ColumnDef::Int
                    ? Cell(variable.number)
                    : Cell(std::string(variable.text.data()));
    }
    if (table_.columns[column].role == ColumnDef::Sticky && present == Cell(1)) row[column] = 1;
    isEqual = isEqual && present == row[column];
  }
  return isEqual;
}

TableWriter::Outcome TableWriter::put(const std::vector<Cell>& given, int now) {
  std::vector<Cell> row = given;
  for (std::size_t i = 0; i < row.size(); ++i) {
    const ColumnDef::Role role = table_.columns[i].role;
    if (role == ColumnDef::Created || role == ColumnDef::Changed) row[i] = now;
  }
  if (!read(row)) {
    execute(*insert_, inserted_, row);
    return Outcome::Added;
  }
  if (mergeAndCompare(row)) return Outcome::Unchanged;
  std::vector<std::size_t> order = updated_;
  order.insert(order.end(), keys_.begin(), keys_.end());
  execute(*update_, order, row);
  return Outcome::Changed;
}

}  // namespace zntopo::tools
