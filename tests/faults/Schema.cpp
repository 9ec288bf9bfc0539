#include "tests/faults/Schema.h"
#include "tests/support/Places.h"

#include <fstream>
#include <nlohmann/json.hpp>

namespace zntopo::test {
namespace {

using nlohmann::json;

/// A column is a list that begins with name and type; a text stands for a list of columns.
void addColumns(const json& description, const json& listed, TableOf& table) {
  for (const json& one : listed) {
    if (one.is_string()) {
      addColumns(description, description.at(one.get<std::string>()), table);
    } else {
      table.columns.push_back({one.at(0), one.at(1)});
    }
  }
}

std::string typeOf(const ColumnOf& column) {
  if (column.type == "float") return "real";
  return column.type == "id" || column.type == "text" ? "text" : "integer";
}

std::string creation(const TableOf& table) {
  std::string columns;
  for (const ColumnOf& column : table.columns) {
    columns += (columns.empty() ? "" : ", ") + column.name + " " + typeOf(column);
  }
  return "create table " + table.name + " (" + columns + ")";
}

}  // namespace

const std::vector<TableOf>& describedTables() {
  static const auto* const tables = [] {
    std::ifstream file(inSourceTree("data/schema/tables.json"));
    const json description = json::parse(file);
    auto* const result = new std::vector<TableOf>;
    for (const json& one : description.at("tables")) {
      result->push_back({one.at("name"), {}});
      addColumns(description, one.at("columns"), result->back());
    }
    return result;
  }();
  return *tables;
}

const StoreSeed& looseSeed() {
  static const auto* const seed = [] {
    std::string all;
    for (const TableOf& table : describedTables()) all += creation(table);
    return new StoreSeed{"zntopo_loose_" + std::to_string(std::hash<std::string>()(all)),
                         [](const std::string& store) {
                           for (const TableOf& table : describedTables()) {
                             executeOn(store, creation(table));
                           }
                         }};
  }();
  return *seed;
}

}  // namespace zntopo::test
