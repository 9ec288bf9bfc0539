#pragma once

#include <memory>

#include "zntopo/platform/tvdbil/TvDbil.h"

namespace zntopo {

/// One connection to the topology store, as the pool keeps and lends it.
///
/// It belongs to one holder, and so to one thread, at a time.
class ZNDBConnection {
 public:
  /// Opens the store; a failure is seen through IsValid() and told in the list and the
  /// platform's log.
  ZNDBConnection(TvXplMsg::MessageList_t& messages, TvDbil::DbSource_t& source);
  ~ZNDBConnection();
  ZNDBConnection(const ZNDBConnection&) = delete;
  ZNDBConnection& operator=(const ZNDBConnection&) = delete;

  /// True if there is a platform connection, open or not.
  bool isValid() const { return myConn != nullptr; }
  /// True if there is a platform connection and it is open.
  bool IsValid() const { return myConn && myConn->IsValid(); }

  /// Each gives DBIL_ERROR without a platform connection.
  TvDbil::DbilReturnCode_t StartTransaction(TvXplMsg::MessageList_t& messages);
  TvDbil::DbilReturnCode_t CommitTransaction(TvXplMsg::MessageList_t& messages);
  TvDbil::DbilReturnCode_t RollbackTransaction(TvXplMsg::MessageList_t& messages);
  bool InTransaction() const;

  /// Ends the platform connection; each operation then fails as without one.
  void close() { myConn.reset(); }

  /// The platform connection; it stays this object's.
  TvDbil::DbConnection_t* getDbConnection() const { return myConn.get(); }

 private:
  friend struct ZNDBTestAccess;

  std::unique_ptr<TvDbil::DbConnection_t> myConn;
};

}  // namespace zntopo
