#include "tools/network/StateRow.h"

#include <algorithm>
#include <array>
#include <limits>
#include <string>

#include "tools/network/StoreError.h"
#include "zntopo/store/GoodCode.h"

namespace zntopo::tools {

namespace {

using TvXplMsg::MessageList_t;

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

void check(TvDbil::DbilReturnCode_t code, const MessageList_t& messages) {
  if (!isGood(code)) throw StoreError("can't read or write the table state", messages);
}

std::string list(const std::string& behind, const std::string& between) {
  std::string result;
  for (const char* column : kColumns) {
    result += (result.empty() ? "" : between) + column + behind;
  }
  return result;
}

State readState(TvDbil::DbConnection_t& connection) {
  MessageList_t messages;
  TvDbil::DbStatement_t statement(messages, &connection);
  check(statement.BindSql(messages, ("select " + list("", ", ") + " from state").c_str()),
        messages);
  State state;
  for (std::size_t i = 0; i < kColumns.size(); ++i) {
    check(statement.BindColumn(messages, static_cast<int>(i) + 1, &state.values[i],
                               &state.indicators[i]),
          messages);
  }
  check(statement.Exec(messages), messages);
  const auto code = statement.Fetch(messages);
  if (code != TvDbil::DBIL_NO_DATA) {
    check(code, messages);
    state.isThere = true;
  }
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

  std::string marks = "?";
  for (std::size_t i = 1; i < kColumns.size(); ++i) marks += ", ?";
  const std::string sql = state.isThere
                              ? "update state set " + list(" = ?", ", ")
                              : "insert into state (" + list("", ", ") + ") values (" + marks + ")";
  MessageList_t messages;
  TvDbil::DbStatement_t statement(messages, &connection);
  check(statement.BindSql(messages, sql.c_str()), messages);
  for (std::size_t i = 0; i < kColumns.size(); ++i) {
    check(statement.BindParm(messages, static_cast<int>(i) + 1, &values[i], false), messages);
  }
  check(statement.Exec(messages), messages);
  return true;
}

}  // namespace zntopo::tools
