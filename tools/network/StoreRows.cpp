#include "tools/network/StoreRows.h"

#include <cctype>

#include "tools/network/RowContext.h"

namespace zntopo::tools {

void RowSet::put(Row row) {
  const TableDef& definition = tableDef(row.table);
  std::string rowKey;
  for (std::size_t i = 0; i < row.cells.size(); ++i) {
    if (definition.columns[i].role != ColumnDef::Key) continue;
    const auto* const text = std::get_if<std::string>(&row.cells[i]);
    rowKey += (text != nullptr ? *text : std::to_string(std::get<int>(row.cells[i]))) + "\n";
  }
  const auto [known, isNew] = index_[row.table].try_emplace(std::move(rowKey), rows_.size());
  if (isNew) {
    rows_.push_back(std::move(row));
    return;
  }
  Row& before = rows_[known->second];
  for (std::size_t i = 0; i < row.cells.size(); ++i) {
    const ColumnDef::Role role = definition.columns[i].role;
    if (role == ColumnDef::Sticky && before.cells[i] == Cell(1)) row.cells[i] = 1;
    if (role == ColumnDef::Told && row.cells[i] == Cell()) row.cells[i] = before.cells[i];
  }
  before = std::move(row);
}

void addRows(const NetworkModel& model, const std::string& zone, RowSink& rows,
             NetworkReport& report) {
  RowContext context(model, zone, rows, report);
  addNodeRows(context);
  addSubnetRows(context);
  addGroupRows(context);
  addAuditRows(context);
}

std::string addressKey(const std::string& interfaceKey, const IpAddress& address) {
  return interfaceKey + "\naddress\n" + address.text();
}

PortPlace portPlace(const std::string& interfaceName) {
  const auto isDigit = [](char c) { return std::isdigit(static_cast<unsigned char>(c)) != 0; };
  // What follows a full stop numbers a part of the port.
  const std::string name = interfaceName.substr(0, interfaceName.find_last_of('.'));
  std::size_t start = name.size();
  while (start > 0 && isDigit(name[start - 1])) --start;
  PortPlace place;
  const std::string port = name.substr(start);
  if (!port.empty() && port.size() <= 3) place.port = port;
  if (start == name.size() || start == 0 || name[start - 1] != '/') return place;
  const std::size_t cardEnd = --start;
  while (start > 0 && (isDigit(name[start - 1]) || name[start - 1] == '/')) --start;
  std::string card = name.substr(start, cardEnd - start);
  while (card.size() > 3) {
    const std::size_t slash = card.find_last_of('/');
    card.resize(slash == std::string::npos ? 0 : slash);
  }
  if (!card.empty() && isDigit(card.front())) place.card = card;
  return place;
}

std::string cutText(const std::string& text, std::size_t width) {
  if (text.size() <= width) return text;
  const auto isInside = [&](std::size_t i) {
    return (static_cast<unsigned char>(text[i]) & 0xc0) == 0x80;
  };
  std::size_t end = width;
  while (end > 0 && isInside(end)) --end;
  return text.substr(0, end);
}

}  // namespace zntopo::tools
