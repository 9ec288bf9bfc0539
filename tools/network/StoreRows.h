#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "tools/network/NetworkModel.h"
#include "tools/network/NetworkReport.h"
#include "tools/network/StoreTable.h"

namespace zntopo::tools {

/// The tables that the importer fills.
enum Table : int {
  NwEntity,
  NwNode,
  NwInterface,
  NwVlan,
  UserDefVar,
  Address,
  Containment,
  NwInterfaceAsc,
  TableCount
};

const TableDef& tableDef(Table table);

/// Rows of all tables, each key once: a row that comes again replaces the one before, but for
/// the sticky flags.
class RowSet {
 public:
  struct Row {
    Table table;
    std::vector<Cell> cells;
  };

  /// Cells by column name; columns that are not named are NULL.
  void put(Table table, const std::map<std::string, Cell>& values);
  /// In the order of first occurrence.
  const std::vector<Row>& rows() const { return rows_; }

 private:
  std::vector<Row> rows_;
  std::map<std::pair<int, std::string>, std::size_t> index_;
};

/// Makes the rows of a network. A zone keeps networks apart that use the same keys, and stands
/// in the column ZoneNumber. Descriptions that are too long are cut and counted.
void addRows(const NetworkModel& model, const std::string& zone, RowSet& rows,
             NetworkReport& report);

/// Where an interface sits, as its name tells it: "Gi1/0/23" is port 23 of card 1/0. "-" for
/// what is not known or does not fit.
struct PortPlace {
  std::string card = "-";
  std::string port = "-";
};
PortPlace portPlace(const std::string& interfaceName);

/// At most so many bytes of a UTF-8 text, cut between two characters.
std::string cutText(const std::string& text, std::size_t width);

}  // namespace zntopo::tools
