#include "zntopo/platform/tvdbil/TvDbil.h"

#include <cstdlib>

#include "zntopo/platform/tv/DataPath.h"
#include "zntopo/platform/tvdbil/detail/Connection.h"
#include "zntopo/platform/tvdbil/detail/OdbcConnection.h"
#include "zntopo/platform/tvdbil/detail/SqliteDriver.h"
#include "zntopo/platform/tvdbil/detail/Statement.h"

namespace TvDbil {
namespace {

using detail::addError;
using detail::BoundColumn;
using detail::BoundParm;

std::string storeOfEnvironment() {
  const char* store = std::getenv("TV_TOPO_STORE");
  if (store != nullptr && *store != '\0') return store;
  return tv::dataDirectory() + "/topology.db";
}

DbilReturnCode noConnection(MessageList_t& messages) {
  addError(messages, "There is no connection to the store");
  return DBIL_INVALID_HANDLE;
}

}  // namespace

DbSource_t::DbSource_t(MessageList_t&) : store_(storeOfEnvironment()) {}

DbSource_t::DbSource_t(MessageList_t&, const std::string& store) : store_(store) {}

bool DbSource_t::IsOdbc() const {
  // A SQLite URI such as "file:x?mode=memory" is no connection string.
  if (store_.compare(0, 5, "file:") == 0) return false;
  const std::size_t mark = store_.find_first_of("=/");
  return mark != std::string::npos && store_[mark] == '=';
}

DbilReturnCode_t CreateStore(MessageList_t& messages, const DbSource_t& source) {
  if (!source.IsOdbc()) return detail::createSqlite(messages, source.GetStore());
  addError(messages, "A store behind ODBC is created with its server's own tools");
  return DBIL_ERROR;
}

DbConnection_t::DbConnection_t(MessageList_t& messages, const DbSource_t* source) {
  if (source == nullptr) {
    addError(messages, "No store is named");
  } else if (source->IsOdbc()) {
    connection_ = detail::openOdbc(messages, source->GetStore());
  } else {
    connection_ = detail::openSqlite(messages, source->GetStore());
  }
}

bool DbConnection_t::IsValid() const { return connection_ != nullptr && connection_->isOpen(); }

DbilRdbmsVendor DbConnection_t::GetVendor() const {
  return connection_ == nullptr ? Unknown : connection_->vendor();
}

std::string DbConnection_t::GetEngineName() const {
  return connection_ == nullptr ? std::string() : connection_->engineName();
}

DbilReturnCode_t DbConnection_t::StartTransaction(MessageList_t& messages) {
  return connection_ == nullptr ? noConnection(messages) : connection_->startTransaction(messages);
}

DbilReturnCode_t DbConnection_t::CommitTransaction(MessageList_t& messages) {
  return connection_ == nullptr ? noConnection(messages) : connection_->commitTransaction(messages);
}

DbilReturnCode_t DbConnection_t::RollbackTransaction(MessageList_t& messages) {
  return connection_ == nullptr ? noConnection(messages)
                                : connection_->rollbackTransaction(messages);
}

bool DbConnection_t::InTransaction() const {
  return connection_ != nullptr && connection_->inTransaction();
}

DbStatement_t::DbStatement_t(MessageList_t& messages, DbConnection_t* connection) {
  if (connection != nullptr && connection->connection_ != nullptr) {
    statement_ = connection->connection_->makeStatement(connection->connection_);
  } else {
    noConnection(messages);
  }
}

DbStatement_t::DbStatement_t(MessageList_t& messages, DbConnection_t connection)
    : DbStatement_t(messages, &connection) {}

DbStatement_t::~DbStatement_t() = default;

DbilReturnCode_t DbStatement_t::BindSql(MessageList_t& messages, const char* sql) {
  return statement_ == nullptr ? noConnection(messages) : statement_->bindSql(messages, sql);
}

DbilReturnCode_t DbStatement_t::BindColumn(MessageList_t& messages, int column, char* buffer,
                                           int* indicator, int bufferSize) {
  const BoundColumn variables{BoundColumn::Text, buffer, bufferSize, indicator};
  return statement_ == nullptr ? noConnection(messages)
                               : statement_->bindColumn(messages, column, variables);
}

DbilReturnCode_t DbStatement_t::BindColumn(MessageList_t& messages, int column, int* value,
                                           int* indicator) {
  const BoundColumn variables{BoundColumn::Int, value, 0, indicator};
  return statement_ == nullptr ? noConnection(messages)
                               : statement_->bindColumn(messages, column, variables);
}

DbilReturnCode_t DbStatement_t::BindColumn(MessageList_t& messages, int column, float* value,
                                           int* indicator) {
  const BoundColumn variables{BoundColumn::Float, value, 0, indicator};
  return statement_ == nullptr ? noConnection(messages)
                               : statement_->bindColumn(messages, column, variables);
}

DbilReturnCode_t DbStatement_t::BindParm(MessageList_t& messages, int position, const int* value,
                                         bool isNull) {
  return statement_ == nullptr
             ? noConnection(messages)
             : statement_->bindParm(messages, position, BoundParm{value, nullptr}, isNull);
}

DbilReturnCode_t DbStatement_t::BindParm(MessageList_t& messages, int position, char* text,
                                         bool isNull) {
  return statement_ == nullptr
             ? noConnection(messages)
             : statement_->bindParm(messages, position, BoundParm{nullptr, text}, isNull);
}

DbilReturnCode_t DbStatement_t::Exec(MessageList_t& messages) {
  return statement_ == nullptr ? noConnection(messages) : statement_->exec(messages);
}

DbilReturnCode_t DbStatement_t::Fetch(MessageList_t& messages) {
  return statement_ == nullptr ? noConnection(messages) : statement_->fetch(messages);
}

}  // namespace TvDbil
