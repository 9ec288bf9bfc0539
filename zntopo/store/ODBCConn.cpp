#include "zntopo/store/ODBCConn.h"

#include "zntopo/core/MCLog.h"
#include "zntopo/store/GoodCode.h"

namespace zntopo {

using TvDbil::DbilReturnCode_t;
using TvXplMsg::MessageList_t;

ODBCConn::ODBCConn(bool startTransaction, bool toCommit) : myConn(nullptr), myToCommit(toCommit) {
  MCLog::log(MC_INFO, "ODBCConn::ODBCConn()\n");
  takeConnection();
  if (myConn && startTransaction) beginTransaction();
}

void ODBCConn::takeConnection() {
  ZNDBInitStatus initStatus = ZN_DB_INIT_FAILURE;
  ZNDB* const pool = ZNDB::getInstance(initStatus);
  if (initStatus == ZN_DB_INIT_FAILURE) {
    MCLog::log(MC_CRITICAL, "ODBCConn - Failure to initialize DB! \n");
    myConnStatus.setStatus(ZN_API_DB_INIT_FAILURE);
  }
  if (!pool) return;
  ZNDBConnStatus connStatus = ZN_DB_CONN_FAILURE;
  myConn = pool->getConnection(connStatus);
  if (connStatus == ZN_DB_CONN_SUCCESS && myConn) return;
  MCLog::log(MC_CRITICAL, "ODBCConn::ODBCConn: Unable to obtain a connection! \n");
  if (connStatus == ZN_DB_CONN_EXCEEDED) {
    MCLog::log(MC_CRITICAL, "Number of connections exceeded maximum allowed! \n");
  }
  myConn = nullptr;
  myConnStatus.setStatus(ZN_API_DB_CONNECTION_FAILURE);
  myConnStatus.addAuxMsg(connStatus == ZN_DB_CONN_FAILURE
                             ? "ODBCConn - DB Connection Creation Failed"
                             : "ODBCCOnn - DB Connection Limit Exceeded");
}

void ODBCConn::beginTransaction() {
  MessageList_t messages;
  if (isGood(StartTransaction(messages))) return;
  MCLog::log(MC_CRITICAL, "ODBCConn - Unable to Start Transaction! \n");
  myConnStatus.setStatus(ZN_API_SQL_START_TRANSACTION_ERROR);
  myConnStatus.addAuxMsg("Unable to Start a Transaction");
}

ODBCConn::~ODBCConn() {
  MCLog::log(MC_INFO, "ODBCConn::~ODBCConn()\n");
  if (!myConn) return;
  if (InTransaction()) endTransaction();
  ZNDBInitStatus initStatus = ZN_DB_INIT_FAILURE;
  if (ZNDB* const pool = ZNDB::getInstance(initStatus)) pool->releaseConnection(myConn);
  MCLog::log(MC_INFO, "Released connection from ODBCConn() \n");
}

void ODBCConn::endTransaction() {
  MessageList_t messages;
  if (myToCommit) {
    MCLog::log(MC_INFO, "ODBCConn::~ODBCConn() - Still in transaction, commit \n");
    if (isGood(CommitTransaction(messages))) return;
    MCLog::log(MC_INFO, "ODBCConn::~ODBCConn - Failure in committing transaction. \n");
  } else {
    MCLog::log(MC_INFO, "ODBCConn::~ODBCConn() - Still in transaction, rollback \n");
    if (isGood(RollbackTransaction(messages))) return;
    MCLog::log(MC_INFO, "ODBCConn::~ODBCConn - Failure in rollingback transaction. \n");
  }
}

TvDbil::DbConnection_t* ODBCConn::getDbConnection() const {
  return myConn ? myConn->getDbConnection() : nullptr;
}

DbilReturnCode_t ODBCConn::StartTransaction(MessageList_t& messages) {
  return myConn ? myConn->StartTransaction(messages) : DbilReturnCode_t(TvDbil::DBIL_ERROR);
}

DbilReturnCode_t ODBCConn::CommitTransaction(MessageList_t& messages) {
  return myConn ? myConn->CommitTransaction(messages) : DbilReturnCode_t(TvDbil::DBIL_ERROR);
}

DbilReturnCode_t ODBCConn::RollbackTransaction(MessageList_t& messages) {
  return myConn ? myConn->RollbackTransaction(messages) : DbilReturnCode_t(TvDbil::DBIL_ERROR);
}

bool ODBCConn::InTransaction() const { return myConn && myConn->InTransaction(); }

bool ODBCConn::IsValid() const { return myConn && myConn->IsValid(); }

}  // namespace zntopo
