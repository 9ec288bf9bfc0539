#pragma once

#include <pthread.h>

#include <atomic>
#include <list>

#include "zntopo/platform/tvdbil/TvDbil.h"
#include "zntopo/store/ZNDBConnection.h"

namespace zntopo {

enum ZNDBInitStatus : int {
  ZN_DB_INIT_FAILURE = 0,
  ZN_DB_INIT_SUCCESS = 1,
  ZN_DB_INIT_DUPLICATE = 2
};

enum ZNDBConnStatus : int {
  ZN_DB_CONN_FAILURE = 0,
  ZN_DB_CONN_EXCEEDED = 1,
  ZN_DB_CONN_SUCCESS = 2
};

/// The pool of connections to the topology store, one a process.
///
/// Code does not use it directly but holds an ODBCConn for a scope. Idle connections are lent
/// first in, first out, and are neither tested nor closed; there are never more than 100
/// connections. The pool is made on first use, for the store that TV_TOPO_STORE names then, and
/// is never destroyed. All operations may be called by several threads at once; a connection is
/// opened with the pool's lock held, so a slow open stalls other holders.
class ZNDB {
 public:
  /// Makes the pool. ZN_DB_INIT_DUPLICATE if there is one already. The result is also returned.
  static ZNDBInitStatus init(ZNDBInitStatus& result);
  /// The pool, made on first use; null, with ZN_DB_INIT_FAILURE, if it can't be made.
  static ZNDB* getInstance(ZNDBInitStatus& result);
  static bool isInitialized();

  /// Lends a connection, an idle one or a new one. Null with ZN_DB_CONN_FAILURE if a new one
  /// can't be opened, and at once, without waiting, with ZN_DB_CONN_EXCEEDED if all 100 are lent.
  ZNDBConnection* getConnection(ZNDBConnStatus& result);

  /// Takes a connection back. One that is still in a transaction is rolled back: if that works
  /// the connection is retired and its place is free again, else it returns to the pool.
  /// A null pointer leaves the pool locked for good: never pass one.
  void releaseConnection(ZNDBConnection* conn);

 private:
  friend struct ZNDBTestAccess;

  explicit ZNDB(TvXplMsg::MessageList_t& messages);
  ~ZNDB();
  ZNDB(const ZNDB&) = delete;
  ZNDB& operator=(const ZNDB&) = delete;

  static ZNDBInitStatus initLocked();
  ZNDBConnection* takeIdle();
  ZNDBConnection* openNew(ZNDBConnStatus& result);
  bool retire(ZNDBConnection* conn);

  static std::atomic<ZNDB*> myInstance;
  /// Guarded by myConnectionMutex.
  static int myConnectionCount;
  static TvXplMsg::MessageList_t* myErrorList;

  TvDbil::DbSource_t myDBSource;
  pthread_mutex_t myConnectionMutex;
  const int myMaxConnections;

  // Guarded by myConnectionMutex.
  std::list<ZNDBConnection*> myConnectionPool;
  /// Connections that would not open and retired ones: of no use, but still reachable.
  std::list<ZNDBConnection*> myLostConnections;
};

}  // namespace zntopo
