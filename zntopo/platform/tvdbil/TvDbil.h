#pragma once

#include <memory>
#include <string>

#include "zntopo/platform/tvxpl/TvXplMsg.h"

/// @file
/// The platform's door to a relational store: one interface over two drivers,
/// SQLite's own C API (embedded) and ODBC (every server).
///
/// Both drivers behave alike here. NULL leaves a zeroed variable and the indicator -1. A text
/// longer than its buffer is cut to the buffer less one, zero-terminated, with
/// DBIL_SUCCESS_WITH_INFO, and the indicator holds the full length. A number beyond its variable
/// is the nearest one that fits, with DBIL_SUCCESS_WITH_INFO. An update that changes no row
/// succeeds. A failed statement changes nothing and leaves its transaction as it was. A text with
/// more than one statement is refused before it reaches the engine. Texts are UTF-8, here and in
/// the store.
///
/// SQLite is set up with foreign keys, WAL, a LIKE that tells cases apart, no double-quoted
/// literals, and five seconds of patience with a lock; PostgreSQL with the same patience, unless
/// the server, the role or the connection string sets another lock_timeout. "Timeout" in the
/// connection string sets another one for SQLite behind ODBC, in milliseconds.
///
/// Nothing here throws. What went wrong is described in the MessageList_t argument.

namespace TvDbil {

using TvXplMsg::MessageList_t;

enum DbilReturnCode : int {
  DBIL_SUCCESS = 0,
  DBIL_SUCCESS_WITH_INFO = 1,
  DBIL_NO_DATA = 2,
  DBIL_ERROR = 3,
  DBIL_INVALID_HANDLE = 4,
  DBIL_STILL_EXECUTING = 5,
  DBIL_NEED_DATA = 6,
  DBIL_CONSTRAINT_VIOLATION = 7,
  DBIL_PERMISSION_SYNTAX = 8,
  DBIL_TRUNCATION = 9,
  DBIL_TRANSACTION_VIOLATION = 10,
  DBIL_OUT_OF_MEMORY = 11,
  DBIL_OUT_OF_RANGE = 12
};

/// A return code as a value; DBIL_SUCCESS by default.
class DbilReturnCode_t {
 public:
  DbilReturnCode_t() = default;
  DbilReturnCode_t(DbilReturnCode code) : code_(code) {}  // NOLINT(google-explicit-constructor)
  operator DbilReturnCode() const { return code_; }       // NOLINT(google-explicit-constructor)

 private:
  DbilReturnCode code_ = DBIL_SUCCESS;
};

/// The maker of the database server. A few statements take another form for Solid;
/// the engines that this library is shipped for report Unknown.
enum DbilRdbmsVendor : int { Unknown = 0, Solid = 1, Oracle = 2, SqlServer = 3 };

namespace detail {
class Connection;
class Statement;
}  // namespace detail

/// Which store to open. The environment variable TV_TOPO_STORE names it: a file path (SQLite)
/// or an ODBC connection string (a text with a "=" and no "/" before it, such as
/// "Driver={PostgreSQL Unicode};Servername=db;Database=topology"). Without the variable it is
/// "topology.db" in the data directory (TV_DATA_PATH, or the one of the installation). A plain
/// value.
class DbSource_t {
 public:
  /// Takes the store from the environment; an empty variable counts as none.
  explicit DbSource_t(MessageList_t& messages);
  /// Takes the store that is named.
  DbSource_t(MessageList_t& messages, const std::string& store);

  /// The path or connection string.
  const std::string& GetStore() const { return store_; }
  /// True if the store is reached through ODBC.
  bool IsOdbc() const;

 private:
  std::string store_;
};

/// Creates an empty SQLite store, without tables. It is an error if the file is there already,
/// if its folder is not, or if the source names an ODBC store.
DbilReturnCode_t CreateStore(MessageList_t& messages, const DbSource_t& source);

/// One connection. Copies share it, and so do its statements, which keep it open. One thread at
/// a time may use it. Outside a transaction each statement counts at once.
class DbConnection_t {
 public:
  /// Opens the store; a failure is seen through IsValid() and told in the list. A SQLite file
  /// that is missing is not created; an in-memory store is refused, for each connection would
  /// have one of its own, and so is a "file:" URI.
  DbConnection_t(MessageList_t& messages, const DbSource_t* source);

  /// True if the store is open. A connection that is lost, because its server has dropped it or
  /// its file can't be read any more, is not valid from the first failure on until a transaction
  /// starts.
  bool IsValid() const;
  /// Unknown for SQLite and PostgreSQL.
  DbilRdbmsVendor GetVendor() const;
  /// What the engine calls itself: "SQLite", "PostgreSQL", ...; empty if the connection is not
  /// valid.
  std::string GetEngineName() const;

  /// Starts a transaction; DBIL_TRANSACTION_VIOLATION if there is one. A connection that is lost,
  /// or whose file has been replaced by another, is opened again first; its statements are then
  /// to be prepared anew.
  DbilReturnCode_t StartTransaction(MessageList_t& messages);
  /// Commits, and ends the result sets of all statements. A commit that failed leaves the
  /// connection in its transaction, in which only a rollback is possible then. Success means
  /// that every statement that succeeded is committed: where the engine has ended the
  /// transaction by itself, the commit fails, and so do the statements before it.
  DbilReturnCode_t CommitTransaction(MessageList_t& messages);
  /// Rolls back, and ends the result sets of all statements. Over a connection that is lost it
  /// fails, but the transaction is gone.
  DbilReturnCode_t RollbackTransaction(MessageList_t& messages);
  bool InTransaction() const;

 private:
  friend class DbStatement_t;
  std::shared_ptr<detail::Connection> connection_;
};

/// One statement of a connection, for the thread that uses the connection. Bound variables must
/// stay where they are until the last Exec() or Fetch() that uses them. Without a valid
/// connection every operation gives DBIL_INVALID_HANDLE.
class DbStatement_t {
 public:
  DbStatement_t(MessageList_t& messages, DbConnection_t* connection);
  DbStatement_t(MessageList_t& messages, DbConnection_t connection);
  ~DbStatement_t();
  DbStatement_t(const DbStatement_t&) = delete;
  DbStatement_t& operator=(const DbStatement_t&) = delete;

  /// Prepares the text of one statement, and forgets what was bound for the text before. What
  /// is wrong with the text shows here or in Exec(), as the engine likes it.
  DbilReturnCode_t BindSql(MessageList_t& messages, const char* sql);

  /// Binds a result column, counted from 1, after BindSql(). Columns that are not bound are
  /// skipped; one beyond the result is refused by Exec(). Each Fetch() sets the indicator, which
  /// may be null: -1 for NULL, else the length of the value in bytes (4 for a number). Numbers
  /// and texts are converted into each other; a text is the number that it begins with.
  DbilReturnCode_t BindColumn(MessageList_t& messages, int column, char* buffer, int* indicator,
                              int bufferSize);
  DbilReturnCode_t BindColumn(MessageList_t& messages, int column, int* value, int* indicator);
  DbilReturnCode_t BindColumn(MessageList_t& messages, int column, float* value, int* indicator);

  /// Binds a parameter, counted from 1, for the "?" marks of the text, after BindSql(). The
  /// variable is read by each Exec(), so a statement may be executed again with other values;
  /// with isNull it is not read and may be a null pointer.
  DbilReturnCode_t BindParm(MessageList_t& messages, int position, const int* value, bool isNull);
  DbilReturnCode_t BindParm(MessageList_t& messages, int position, char* text, bool isNull);

  /// Executes, from the start if rows of the last execution are left. Refused unless each
  /// parameter, and none beyond, is bound.
  DbilReturnCode_t Exec(MessageList_t& messages);
  /// The next row into the bound columns. DBIL_SUCCESS and DBIL_SUCCESS_WITH_INFO deliver a
  /// row, DBIL_NO_DATA ends the result set; a change has none. An error without an execution in
  /// the present transaction.
  DbilReturnCode_t Fetch(MessageList_t& messages);

 private:
  std::unique_ptr<detail::Statement> statement_;
};

}  // namespace TvDbil
