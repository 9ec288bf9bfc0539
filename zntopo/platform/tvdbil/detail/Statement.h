#pragma once

#include <map>
#include <memory>
#include <string>
#include <string_view>

#include "zntopo/platform/tvdbil/TvDbil.h"
#include "zntopo/platform/tvdbil/detail/BoundColumn.h"

namespace TvDbil::detail {

class Connection;

/// A parameter and the caller's variable for it; all null for NULL.
struct BoundParm {
  const int* number = nullptr;
  const char* text = nullptr;
};

/// A statement. The checks and the order of calls stand here, a driver does the work.
class Statement {
 public:
  explicit Statement(std::shared_ptr<Connection> connection);
  virtual ~Statement();
  Statement(const Statement&) = delete;
  Statement& operator=(const Statement&) = delete;

  DbilReturnCode bindSql(MessageList_t& messages, const char* sql);
  DbilReturnCode bindColumn(MessageList_t& messages, int column, const BoundColumn& variables);
  DbilReturnCode bindParm(MessageList_t& messages, int position, const BoundParm& variable,
                          bool isNull);
  DbilReturnCode exec(MessageList_t& messages);
  DbilReturnCode fetch(MessageList_t& messages);

  /// Ends the result set, for its transaction has ended.
  void closeResult();
  /// Gives the engine's handle back, for its connection is closed.
  void release();

 protected:
  virtual DbilReturnCode prepare(MessageList_t& messages, std::string_view sql) = 0;
  /// Executes; the variables of every parameter are there.
  virtual DbilReturnCode execute(MessageList_t& messages) = 0;
  /// The number of columns of the result, known at the latest after execute().
  virtual int columnCount() = 0;
  /// The next row into the bound columns.
  virtual DbilReturnCode next(MessageList_t& messages) = 0;
  virtual void closeCursor() = 0;
  virtual void freeHandle() = 0;
  /// The number of parameters that the engine wants, given the "?" marks of the text.
  virtual int parameterCount(int marks) { return marks; }
  /// True if columnCount() is right before execute() and costs nothing.
  virtual bool knowsColumnsEarly() const { return false; }

  Connection& connection() { return *connection_; }
  const std::map<int, BoundColumn>& columns() const { return columns_; }
  const std::map<int, BoundParm>& parms() const { return parms_; }
  const std::string& sql() const { return sql_; }
  /// Counts up whenever a column is bound.
  int columnsVersion() const { return columnsVersion_; }

 private:
  enum State : int { Empty, Prepared, Rows, Ended };

  DbilReturnCode refuse(MessageList_t& messages, const std::string& why,
                        DbilReturnCode code = DBIL_ERROR) const;
  DbilReturnCode checkText(MessageList_t& messages, const char* sql, std::string_view& statement);
  DbilReturnCode checkParms(MessageList_t& messages) const;
  DbilReturnCode checkColumns(MessageList_t& messages);
  DbilReturnCode failed(MessageList_t& messages, DbilReturnCode code);

  std::shared_ptr<Connection> connection_;
  State state_ = Empty;
  std::string sql_;
  int parameters_ = 0;
  std::map<int, BoundColumn> columns_;
  std::map<int, BoundParm> parms_;
  int columnsVersion_ = 0;
};

}  // namespace TvDbil::detail
