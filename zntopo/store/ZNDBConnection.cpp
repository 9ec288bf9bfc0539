#include "zntopo/store/ZNDBConnection.h"

#include "zntopo/core/MCLog.h"
#include "zntopo/platform/tvxpl/TvXplLog.h"

namespace zntopo {

using TvDbil::DbilReturnCode_t;
using TvXplMsg::MessageList_t;

ZNDBConnection::ZNDBConnection(MessageList_t& messages, TvDbil::DbSource_t& source)
    : myConn(std::make_unique<TvDbil::DbConnection_t>(messages, &source)) {
  if (myConn->IsValid()) return;
  MCLog::log(MC_CRITICAL, "Error : ZNDBConnection construction failed! \n");
  TvXplLog::Log(messages);
}

ZNDBConnection::~ZNDBConnection() = default;

DbilReturnCode_t ZNDBConnection::StartTransaction(MessageList_t& messages) {
  return myConn ? myConn->StartTransaction(messages) : DbilReturnCode_t(TvDbil::DBIL_ERROR);
}

DbilReturnCode_t ZNDBConnection::CommitTransaction(MessageList_t& messages) {
  return myConn ? myConn->CommitTransaction(messages) : DbilReturnCode_t(TvDbil::DBIL_ERROR);
}

DbilReturnCode_t ZNDBConnection::RollbackTransaction(MessageList_t& messages) {
  return myConn ? myConn->RollbackTransaction(messages) : DbilReturnCode_t(TvDbil::DBIL_ERROR);
}

bool ZNDBConnection::InTransaction() const {
  if (myConn) return myConn->InTransaction();
  MCLog::log(MC_CRITICAL, "Error : myConn is empty !! \n");
  return false;
}

}  // namespace zntopo
