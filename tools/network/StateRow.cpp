#include "tools/network/StateRow.h"

#include <algorithm>
#include <array>
#include <limits>
#include <string>

#include "tools/network/StoreStatement.h"

namespace zntopo::tools {

namespace {

constexpr const char* kComplaint = "can't read or write the table state";

/// The columns that the library wants filled; the last three are times.
constexpr std::array<const char*, 11> kColumns = {
    "TopologyReady",           "DISCOCYCLECOMPLETE", "MeshState",         "HSRPState",
    "ContainmentState",        "RelatedToState",     "DiscoZoneComplete", "DiscoZoneInProgress",
    "TOPOLOGYREADYCHANGETIME", "ChangeTime",         "CreateTime"};
constexpr std::size_t kReady = 0;
constexpr std::size_t kReadyTime = 8;
constexpr std::size_t kCreateTime = 10;
/// What an importer can say of the stages of discovery: they are done, none is in progress.
constexpr std::array<int, 8> kReadyValues = {1, 1, 1, 1, 1, 1, 1, 0};

struct State {
  bool isThere = false;
  std::array<int, kColumns.size()> values{};
  std::array<int, kColumns.size()> indicators{};

  bool has(std::size_t column) const { return isThere && indicators[column] > 0; }
  bool isReady() const {
    for (std::size_t i = 0; i < kColumns.size(); ++i) {
      if (!has(i)) return false;
    }
    return values[kReady] == 1;
  }
};

std::string list(const std::string& behind, const std::string& between) {
  std::string result;
  for (const char* column : kColumns) {
    result += (result.empty() ? "" : between) + column + behind;
  }
  return result;
}

State readState(TvDbil::DbConnection_t& connection) {
  StoreStatement statement(connection, "select " + list("", ", ") + " from state", kComplaint);
  State state;
  for (std::size_t i = 0; i < kColumns.size(); ++i) {
    statement.bind(&state.values[i], &state.indicators[i]);
  }
  statement.execute();
  state.isThere = statement.fetch();
  return state;
}

}  // namespace

bool markReady(TvDbil::DbConnection_t& connection, bool isChanged, int now) {
  const State state = readState(connection);
  if (!isChanged && state.isReady()) return false;
  int readyTime = now;
  if (state.has(kReadyTime) && state.values[kReadyTime] < std::numeric_limits<int>::max()) {
    readyTime = std::max(now, state.values[kReadyTime] + 1);
  }
  const int createTime = state.has(kCreateTime) ? state.values[kCreateTime] : readyTime;
  std::array<int, kColumns.size()> values{};
  std::copy(kReadyValues.begin(), kReadyValues.end(), values.begin());
  values[kReadyTime] = values[kReadyTime + 1] = readyTime;
  values[kCreateTime] = createTime;

  const std::string sql = state.isThere ? "update state set " + list(" = ?", ", ")
                                        : "insert into state (" + list("", ", ") + ") values (" +
                                              parameterMarks(kColumns.size()) + ")";
  StoreStatement statement(connection, sql, kComplaint);
  for (const int& value : values) statement.add(&value);
  statement.execute();
  return true;
}

}  // namespace zntopo::tools
