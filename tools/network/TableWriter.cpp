#include "tools/network/TableWriter.h"

#include <algorithm>

namespace zntopo::tools {

namespace {

/// Well below what any engine takes in one statement.
constexpr std::size_t kParametersAtOnce = 2000;

bool isTime(ColumnDef::Role role) {
  return role == ColumnDef::Created || role == ColumnDef::Changed;
}

bool isCompared(ColumnDef::Role role) { return role != ColumnDef::Key && !isTime(role); }

}  // namespace

void TableWriter::put(std::vector<Cell> row) {
  for (std::size_t i = 0; i < row.size(); ++i) {
    if (isTime(table_.columns[i].role)) row[i] = time_;
  }
  write(std::move(row));
}

std::vector<std::size_t> TableWriter::columns(bool (*wanted)(ColumnDef::Role)) const {
  std::vector<std::size_t> result;
  for (std::size_t i = 0; i < table_.columns.size(); ++i) {
    if (wanted(table_.columns[i].role)) result.push_back(i);
  }
  return result;
}

std::string TableWriter::names(const std::vector<std::size_t>& columns, const std::string& between,
                               bool isWithMarks) const {
  std::string result;
  for (const std::size_t column : columns) {
    const ColumnDef& definition = table_.columns[column];
    if (!result.empty()) result += between;
    result += definition.name;
    if (isWithMarks) result += " = " + parameterMark(definition);
  }
  return result;
}

TableInserter::TableInserter(TvDbil::DbConnection_t& connection, const TableDef& table, int time)
    : TableWriter(table, time),
      connection_(connection),
      rowsAtOnce_(std::max<std::size_t>(1, kParametersAtOnce / table.columns.size())) {}

std::string TableInserter::insertText(std::size_t rows) const {
  std::string marks;
  for (const ColumnDef& column : table_.columns) {
    marks += (marks.empty() ? "(" : ", ") + parameterMark(column);
  }
  std::string result = std::string("insert into ") + table_.name + " (" +
                       names(columns([](ColumnDef::Role) { return true; }), ", ", false) +
                       ") values ";
  for (std::size_t i = 0; i < rows; ++i) result += (i > 0 ? ", " : "") + marks + ")";
  return result;
}

void TableInserter::write(std::vector<Cell> row) {
  waiting_.push_back(std::move(row));
  if (waiting_.size() < rowsAtOnce_) return;
  if (!full_) full_.emplace(connection_, table_, insertText(rowsAtOnce_));
  execute(*full_);
}

void TableInserter::flush() {
  if (waiting_.empty()) return;
  CellStatement rest(connection_, table_, insertText(waiting_.size()));
  execute(rest);
}

void TableInserter::execute(CellStatement& statement) {
  for (const std::vector<Cell>& row : waiting_) {
    for (std::size_t i = 0; i < row.size(); ++i) statement.add(table_.columns[i], row[i]);
  }
  statement.execute();
  counts_.added += static_cast<long long>(waiting_.size());
  waiting_.clear();
}

TableMerger::TableMerger(TvDbil::DbConnection_t& connection, const TableDef& table, int time)
    : TableWriter(table, time),
      keys_(columns([](ColumnDef::Role role) { return role == ColumnDef::Key; })),
      compared_(columns(isCompared)),
      inserted_(columns([](ColumnDef::Role) { return true; })),
      updated_(columns([](ColumnDef::Role role) {
        return role != ColumnDef::Key && role != ColumnDef::Created;
      })) {
  const std::string name = table_.name;
  const std::string where = " where " + names(keys_, " and ", true);
  // A table of keys alone is asked for its keys.
  const std::vector<std::size_t>& read = compared_.empty() ? keys_ : compared_;
  select_.emplace(connection, table_,
                  "select " + names(read, ", ", false) + " from " + name + where);
  select_->bindResults(read);
  std::string marks;
  for (const ColumnDef& column : table_.columns) {
    marks += (marks.empty() ? "" : ", ") + parameterMark(column);
  }
  insert_.emplace(
      connection, table_,
      "insert into " + name + " (" + names(inserted_, ", ", false) + ") values (" + marks + ")");
  if (compared_.empty()) return;
  update_.emplace(connection, table_,
                  "update " + name + " set " + names(updated_, ", ", true) + where);
}

void TableMerger::execute(CellStatement& statement, const std::vector<std::size_t>& order,
                          const std::vector<Cell>& row) {
  for (const std::size_t column : order) statement.add(table_.columns[column], row[column]);
  statement.execute();
}

/// Gives sticky flags and untold values what is there, and tells whether the row then is what is
/// there.
bool TableMerger::mergeAndCompare(std::vector<Cell>& row) const {
  bool isEqual = true;
  for (const std::size_t column : compared_) {
    const Cell present = select_->result(column);
    const ColumnDef::Role role = table_.columns[column].role;
    if (role == ColumnDef::Sticky && present == Cell(1)) row[column] = 1;
    if (role == ColumnDef::Told && row[column] == Cell()) row[column] = present;
    isEqual = isEqual && present == row[column];
  }
  return isEqual;
}

void TableMerger::write(std::vector<Cell> row) {
  execute(*select_, keys_, row);
  if (!select_->fetch()) {
    execute(*insert_, inserted_, row);
    ++counts_.added;
    return;
  }
  if (mergeAndCompare(row)) {
    ++counts_.unchanged;
    return;
  }
  std::vector<std::size_t> order = updated_;
  order.insert(order.end(), keys_.begin(), keys_.end());
  execute(*update_, order, row);
  ++counts_.changed;
}

}  // namespace zntopo::tools
