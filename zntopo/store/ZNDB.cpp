#include "zntopo/store/ZNDB.h"

#include <memory>
#include <new>

#include "zntopo/core/MCLog.h"

namespace zntopo {

using TvXplMsg::MessageList_t;

namespace {

constexpr int kMaxConnections = 100;

/// Holds the lock of the pool's first making: two threads that meet there get one pool.
class FirstUseLock {
 public:
  FirstUseLock() { pthread_mutex_lock(&mutex_); }
  ~FirstUseLock() { pthread_mutex_unlock(&mutex_); }
  FirstUseLock(const FirstUseLock&) = delete;
  FirstUseLock& operator=(const FirstUseLock&) = delete;

 private:
  static pthread_mutex_t mutex_;
};

pthread_mutex_t FirstUseLock::mutex_ = PTHREAD_MUTEX_INITIALIZER;

}  // namespace

std::atomic<ZNDB*> ZNDB::myInstance = nullptr;
int ZNDB::myConnectionCount = 0;
MessageList_t* ZNDB::myErrorList = nullptr;

ZNDB::ZNDB(MessageList_t& messages) : myDBSource(messages), myMaxConnections(kMaxConnections) {
  pthread_mutex_init(&myConnectionMutex, nullptr);
}

ZNDB::~ZNDB() { pthread_mutex_destroy(&myConnectionMutex); }

ZNDBInitStatus ZNDB::initLocked() {
  MCLog::log(MC_TRACE_L1, "Entering ZNDB::init() \n");
  if (isInitialized()) {
    MCLog::log(MC_TRACE_L1, "Exiting ZNDB::init() with INIT_DUPLICATE \n");
    return ZN_DB_INIT_DUPLICATE;
  }
  if (!myErrorList) myErrorList = new (std::nothrow) MessageList_t;
  ZNDB* const made = myErrorList ? new (std::nothrow) ZNDB(*myErrorList) : nullptr;
  if (!made) {
    MCLog::log(MC_CRITICAL, "unable to create instance\n");
    MCLog::log(MC_TRACE_L1, "Exiting ZNDB::init() with ZN_DB_INIT_FAILURE \n");
    return ZN_DB_INIT_FAILURE;
  }
  myInstance = made;
  MCLog::log(MC_TRACE_L1, "Exiting ZNDB::init() with ZN_TOPO_INIT_SUCCESS\n");
  return ZN_DB_INIT_SUCCESS;
}

ZNDBInitStatus ZNDB::init(ZNDBInitStatus& result) {
  const FirstUseLock lock;
  result = initLocked();
  return result;
}

ZNDB* ZNDB::getInstance(ZNDBInitStatus& result) {
  result = ZN_DB_INIT_SUCCESS;
  if (!isInitialized()) {
    // Looked at again under the lock: a pool that another thread made meanwhile is a success.
    const FirstUseLock lock;
    if (!isInitialized()) result = initLocked();
  }
  return myInstance;
}

bool ZNDB::isInitialized() { return myInstance != nullptr; }

ZNDBConnection* ZNDB::takeIdle() {
  MCLog::log(MC_INFO, "Retreiving Connection from the POOL! \n");
  ZNDBConnection* const conn = myConnectionPool.front();
  myConnectionPool.pop_front();
  return conn;
}

ZNDBConnection* ZNDB::openNew(ZNDBConnStatus& result) {
  MCLog::log(MC_INFO, "Creating new Connection! \n");
  if (myConnectionCount >= myMaxConnections) {
    result = ZN_DB_CONN_EXCEEDED;
    return nullptr;
  }
  MCLog::log(MC_INFO, "Creating Connection \n");
  MessageList_t messages;
  auto conn = std::make_unique<ZNDBConnection>(messages, myDBSource);
  if (conn->isValid() && conn->IsValid()) {
    ++myConnectionCount;
    MCLog::log(MC_INFO, "Num DB Connection: %d\n", myConnectionCount);
    return conn.release();
  }
  MCLog::log(MC_MAJOR, "Creation of Connection Failed!!\n");
  result = ZN_DB_CONN_FAILURE;
  myLostConnections.push_back(conn.release());
  return nullptr;
}

ZNDBConnection* ZNDB::getConnection(ZNDBConnStatus& result) {
  result = ZN_DB_CONN_SUCCESS;
  pthread_mutex_lock(&myConnectionMutex);
  ZNDBConnection* const conn = myConnectionPool.empty() ? openNew(result) : takeIdle();
  pthread_mutex_unlock(&myConnectionMutex);
  if (!conn) MCLog::log(MC_INFO, "Returning with NULL connection! \n");
  return conn;
}

bool ZNDB::retire(ZNDBConnection* conn) {
  if (!conn->InTransaction()) return false;
  MCLog::log(MC_INFO, "InTransaction, Rolling back! \n");
  MessageList_t messages;
  // A rollback that works retires the connection, and one that fails keeps it.
  if (conn->RollbackTransaction(messages) != TvDbil::DBIL_SUCCESS) return false;
  MCLog::log(MC_INFO, "Failed to release connection, removing from pool \n");
  --myConnectionCount;
  // Nobody lends it again: what it holds of the process and the server is given back.
  conn->close();
  myConnectionPool.remove(conn);
  myLostConnections.push_back(conn);
  return true;
}

void ZNDB::releaseConnection(ZNDBConnection* conn) {
  MCLog::log(MC_INFO, "Entering ZNDB::releaseConnection() \n");
  pthread_mutex_lock(&myConnectionMutex);
  if (!conn) {
    // The lock stays held: that is how a null connection ends, and no holder returns one.
    MCLog::log(MC_INFO, "Unable to release null connection! \n");
    return;
  }
  if (!retire(conn)) {
    MCLog::log(MC_INFO, "Placing connection back into the pool \n");
    myConnectionPool.remove(conn);
    myConnectionPool.push_back(conn);
  }
  pthread_mutex_unlock(&myConnectionMutex);
}

}  // namespace zntopo
