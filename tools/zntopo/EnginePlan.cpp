#include "tools/zntopo/EnginePlan.h"

#include <array>
#include <map>

#include "tools/network/StoreError.h"
#include "tools/network/StoreStatement.h"

namespace zntopo::tools {

namespace {

constexpr const char* kRefused = "the engine does not take the statement of the filter";

/// A line of a plan; the filter of a step may be long.
struct PlanLine {
  std::array<char, 4096> text{};
  int indicator = 0;

  /// What the statement fetched last, marked where it was cut.
  std::string of(const StoreStatement& statement) const {
    return std::string(text.data()) + (statement.isCut() ? "..." : "");
  }
};

std::vector<std::string> sqlitePlan(TvDbil::DbConnection_t& connection, const std::string& sql) {
  StoreStatement statement(connection, "explain query plan " + sql, kRefused);
  int step = 0;
  int parent = 0;
  int unused = 0;
  int indicator = 0;
  PlanLine line;
  for (int* const number : {&step, &parent, &unused}) statement.bind(number, &indicator);
  statement.bind(line.text.data(), line.text.size(), &line.indicator);
  statement.execute();
  std::vector<std::string> plan;
  std::map<int, std::size_t> depths;
  while (statement.fetch()) {
    const auto above = depths.find(parent);
    const std::size_t depth = above == depths.end() ? 0 : above->second + 1;
    depths[step] = depth;
    plan.push_back(std::string(2 * depth, ' ') + line.of(statement));
  }
  return plan;
}

std::vector<std::string> postgresPlan(TvDbil::DbConnection_t& connection, const std::string& sql) {
  StoreStatement statement(connection, "explain " + sql, kRefused);
  PlanLine line;
  statement.bind(line.text.data(), line.text.size(), &line.indicator);
  statement.execute();
  std::vector<std::string> plan;
  while (statement.fetch()) plan.push_back(line.of(statement));
  return plan;
}

}  // namespace

std::vector<std::string> enginePlan(TvDbil::DbConnection_t& connection, const std::string& sql) {
  const std::string engine = connection.GetEngineName();
  if (engine == "SQLite") return sqlitePlan(connection, sql);
  if (engine == "PostgreSQL") return postgresPlan(connection, sql);
  throw StoreError("No plan is known to be had from the engine " + engine);
}

}  // namespace zntopo::tools
