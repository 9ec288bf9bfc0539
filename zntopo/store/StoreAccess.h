#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "zntopo/core/MCLog.h"
#include "zntopo/core/ZNTopoAPIStatus.h"
#include "zntopo/platform/tvdbil/TvDbil.h"
#include "zntopo/store/ODBCConn.h"

/// @file
/// The one shape of every store access: connection, prepare, bind, execute, fetch. What differs
/// between the statements of the library (columns, failure texts, which return codes count) is
/// data.

namespace zntopo {

/// Renders a message list into a status: the text, cut to 2999 bytes, becomes an auxiliary
/// message and is logged at MC_CRITICAL.
void addErrorListMessage(const TvXplMsg::MessageList_t& messages, ZNTopoAPIStatus& status);

// ---- columns and rows -----------------------------------------------------------------------

enum class ColumnKind { Text, Int, Float };

struct AccessFailure;

/// One column of a result set.
struct Column {
  const char* name;
  ColumnKind kind;
  /// Size of the buffer of a text column, the closing NUL included; 0 for the others.
  int size;
  /// Told instead of the statement's own failure if this column can't be bound.
  const AccessFailure* failure = nullptr;
};

constexpr Column textColumn(const char* name, int size) { return {name, ColumnKind::Text, size}; }
constexpr Column intColumn(const char* name) { return {name, ColumnKind::Int, 0}; }
constexpr Column floatColumn(const char* name) { return {name, ColumnKind::Float, 0}; }

/// The columns of a statement in order; converts from an array. Holds no copy.
class ColumnList {
 public:
  constexpr ColumnList() = default;
  template <std::size_t N>
  constexpr ColumnList(const Column (&columns)[N])  // NOLINT(google-explicit-constructor)
      : first_(columns), size_(static_cast<int>(N)) {}
  constexpr ColumnList(const Column* first, int size) : first_(first), size_(size) {}

  constexpr const Column* begin() const { return first_; }
  constexpr const Column* end() const { return first_ + size_; }
  constexpr int size() const { return size_; }
  constexpr const Column& operator[](int index) const { return first_[index]; }

 private:
  const Column* first_ = nullptr;
  int size_ = 0;
};

/// The row that was fetched last. Columns count from 0 here: index them by an (unscoped)
/// enumeration that has the order of the column list. A NULL reads as "", 0 or 0.0.
class Row {
 public:
  /// True if the indicator is above 0: neither NULL nor an empty text.
  bool isPresent(int column) const { return indicators_[column] > 0; }
  /// Negative for NULL, else the full length of the value in bytes (4 for int and float).
  int indicator(int column) const { return indicators_[column]; }
  /// Valid until the next row.
  const char* text(int column) const { return &bytes_[offsets_[column]]; }
  int integer(int column) const { return integers_[column]; }
  float real(int column) const { return reals_[column]; }

 private:
  friend class StoreAccess;
  explicit Row(ColumnList columns);

  std::vector<int> indicators_;
  std::vector<int> integers_;
  std::vector<float> reals_;
  std::vector<std::size_t> offsets_;
  std::unique_ptr<char[]> bytes_;
};

/// Takes a row; false ends the reading.
using RowHandler = std::function<bool(const Row&)>;

/// A parameter for a "?" of a statement: one of the two, which must outlive the execution.
struct Parameter {
  const int* integer = nullptr;
  const char* text = nullptr;
};

// ---- what differs between the statements ----------------------------------------------------

/// A line for the log. "%s" in it stands for the SQL, "%d" for the platform's return code, and
/// several "%d" for several codes in their order. Without a text nothing is logged.
struct LogLine {
  const char* text = nullptr;
  MCDebugLevel level = MC_INFO;
};

/// Where the platform's messages go after a failure.
enum class ErrorList {
  ToStatus,         ///< through addErrorListMessage()
  ToStandardError,  ///< after the text "Errors: "
  Dropped
};

/// What a failed step of an access tells.
struct AccessFailure {
  ZNTopoStatus status;
  /// The auxiliary text; null for none.
  const char* text;
  /// The SQL follows the text.
  bool withSql = false;
  ErrorList errorList = ErrorList::ToStatus;
  LogLine log = {};
  LogLine secondLog = {};
};

/// What differs between the statements, with the habits of most of them as defaults. Made to be
/// constexpr, by designated initialisers: {.column = {ZN_API_SQL_BIND_COLUMN_ERROR, "..."}}.
/// The texts must live as long as the access: use literals.
struct AccessTexts {
  LogLine noConnection = {"Fail to get a connection \n", MC_CRITICAL};
  AccessFailure statement = {ZN_API_SQL_BIND_STATEMENT_ERROR,
                             "Unable to bind SQL Statement: ", true};
  AccessFailure parameter = {ZN_API_SQL_BIND_PARM_ERROR, "Problem in BindParm values for ", true};
  AccessFailure column = {ZN_API_SQL_BIND_COLUMN_ERROR, nullptr};
  AccessFailure exec = {ZN_API_SQL_EXEC_ERROR, "Problem Executing SQL Command"};
  /// Logged with the connection in hand, before the statement is prepared.
  LogLine preparing = {};
  /// Logged when every parameter was tried, with their codes in order.
  LogLine parametersBound = {};
  /// Logged just before and after a good execution.
  LogLine executing = {};
  LogLine executed = {};
  /// DBIL_SUCCESS_WITH_INFO, too, is a prepared statement.
  bool infoBindsStatement = false;
  /// DBIL_SUCCESS_WITH_INFO, too, is a row; else a row with info ends the reading.
  bool infoIsRow = true;
  /// Only the first row is fetched.
  bool fetchesOnce = false;
};

// ---- the access -----------------------------------------------------------------------------

/// A store access for a scope: a message list, a holder of a connection, and a statement, which
/// end in reverse order, so that the holder commits after the statement is gone.
///
/// Keep one in a scope to hold its connection past the last row, while other accesses go on:
///
///     StoreAccess access(status, kTexts);
///     if (!access.isConnected()) return {};
///     if (!access.run(sql, kColumns, [&](const Row& row) { ...; return true; })) return {};
///
/// A failed step puts its status and texts into the caller's status, which is otherwise left as
/// it is: the caller resets it. For one thread.
class StoreAccess {
 public:
  /// Takes a connection. Without one the line noConnection is logged and the holder's status is
  /// copied into the caller's.
  explicit StoreAccess(ZNTopoAPIStatus& status, const AccessTexts& texts = {});
  /// Works on the connection of a holder that outlives the access.
  StoreAccess(ODBCConn& holder, ZNTopoAPIStatus& status, const AccessTexts& texts = {});
  ~StoreAccess();
  StoreAccess(const StoreAccess&) = delete;
  StoreAccess& operator=(const StoreAccess&) = delete;

  /// False after a failed construction; every step then fails without another report.
  bool isConnected() const { return connected_; }

  /// Prepares, binds the columns, executes, and gives each row to the handler. False if one of
  /// these steps failed; rows that end in a failed fetch are not told from the end of the rows.
  bool run(const std::string& sql, ColumnList columns, const RowHandler& onRow);
  /// Prepares, binds the parameters in order and executes a statement without a result.
  bool execute(const std::string& sql, const std::vector<Parameter>& parameters = {});

  // The steps on their own, for statements of another shape. Each is false after it reported.
  bool prepare(const std::string& sql);
  /// Tries all of them, the last one first, before a failure of one counts.
  bool bindParameters(const std::vector<Parameter>& parameters);
  bool bindColumns(ColumnList columns);
  bool exec();
  void fetch(const RowHandler& onRow);

  /// Reports a failure of this access: log lines, status, auxiliary text, platform messages.
  void report(const AccessFailure& failure, TvDbil::DbilReturnCode_t code);

  /// What the platform said last: after run() DBIL_NO_DATA if the rows came to their end.
  TvDbil::DbilReturnCode_t lastCode() const { return lastCode_; }
  ODBCConn& holder() { return *holder_; }
  TvXplMsg::MessageList_t& messages() { return messages_; }
  /// The statement that was prepared last; null before that.
  TvDbil::DbStatement_t* statement() { return statement_ ? &*statement_ : nullptr; }

 private:
  void connect();
  TvDbil::DbilReturnCode_t bindParameter(const Parameter& parameter, int position);
  TvDbil::DbilReturnCode_t bindColumn(const Column& column, int index);

  ZNTopoAPIStatus& status_;
  const AccessTexts texts_;
  TvXplMsg::MessageList_t messages_;
  std::optional<ODBCConn> ownHolder_;
  ODBCConn* holder_;
  bool connected_ = false;
  std::string sql_;
  // The row stands before the statement that is bound to it.
  std::unique_ptr<Row> row_;
  std::optional<TvDbil::DbStatement_t> statement_;
  TvDbil::DbilReturnCode_t lastCode_;
};

/// One query in a scope of its own: true if it ran, with each row given to the handler.
bool runQuery(const std::string& sql, ColumnList columns, const AccessTexts& texts,
              ZNTopoAPIStatus& status, const RowHandler& onRow);

}  // namespace zntopo
