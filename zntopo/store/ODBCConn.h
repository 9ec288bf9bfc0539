#pragma once

#include "zntopo/core/ZNTopoAPIStatus.h"
#include "zntopo/store/ZNDB.h"

namespace zntopo {

/// Holds a pooled connection for a scope: takes one, starts a transaction, and at the end of the
/// scope commits or rolls back what is still open and gives the connection back.
///
/// A failure to commit at the end is only logged. For one thread.
class ODBCConn {
 public:
  explicit ODBCConn(bool startTransaction = true, bool toCommit = true);
  ~ODBCConn();
  ODBCConn(const ODBCConn&) = delete;
  ODBCConn& operator=(const ODBCConn&) = delete;

  /// The outcome of the constructor: OK, ZN_API_DB_INIT_FAILURE, ZN_API_DB_CONNECTION_FAILURE
  /// or ZN_API_SQL_START_TRANSACTION_ERROR.
  const ZNTopoAPIStatus& getStatus() const { return myConnStatus; }
  /// The pool's connection, null if none could be had. It stays the holder's.
  ZNDBConnection* getConnection() const { return myConn; }
  /// The platform's connection, null if none could be had.
  TvDbil::DbConnection_t* getDbConnection() const;

  /// Each gives DBIL_ERROR, or false, without a connection.
  TvDbil::DbilReturnCode_t StartTransaction(TvXplMsg::MessageList_t& messages);
  TvDbil::DbilReturnCode_t CommitTransaction(TvXplMsg::MessageList_t& messages);
  TvDbil::DbilReturnCode_t RollbackTransaction(TvXplMsg::MessageList_t& messages);
  bool InTransaction() const;
  bool IsValid() const;

 private:
  void takeConnection();
  void beginTransaction();
  void endTransaction();

  ZNDBConnection* myConn;
  ZNTopoAPIStatus myConnStatus;
  bool myToCommit;
};

}  // namespace zntopo
