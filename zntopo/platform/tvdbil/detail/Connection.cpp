#include "zntopo/platform/tvdbil/detail/Connection.h"

#include "zntopo/platform/tvdbil/detail/Statement.h"
#include "zntopo/platform/tvdbil/detail/StatementCounters.h"

namespace TvDbil::detail {

void addError(MessageList_t& messages, const std::string& text) {
  messages.Add(TvXplMsg::CreateError_t(text));
}

DbilReturnCode Connection::startTransaction(MessageList_t& messages) {
  if (inTransaction_ && isAlive()) {
    addError(messages, "A transaction is open already");
    return DBIL_TRANSACTION_VIOLATION;
  }
  endTransaction();
  const DbilReturnCode code = start(messages);
  inTransaction_ = code == DBIL_SUCCESS;
  if (inTransaction_) countTransaction();
  return code;
}

DbilReturnCode Connection::commitTransaction(MessageList_t& messages) {
  if (!inTransaction_ || lost_) {
    addError(messages, inTransaction_ ? "The transaction is lost; it can only be rolled back"
                                      : "There is no transaction to commit");
    return DBIL_TRANSACTION_VIOLATION;
  }
  closeResults();
  const DbilReturnCode code = commit(messages);
  if (code == DBIL_SUCCESS) {
    endTransaction();
  } else {
    lost_ = true;
  }
  return code;
}

DbilReturnCode Connection::rollbackTransaction(MessageList_t& messages) {
  if (!inTransaction_) {
    addError(messages, "There is no transaction to roll back");
    return DBIL_TRANSACTION_VIOLATION;
  }
  closeResults();
  DbilReturnCode code = isAlive() ? rollback(messages) : DBIL_ERROR;
  if (!isAlive()) {
    // Whatever the driver says: the server rolls back what it drops, and this connection is kept
    // to be opened again.
    addError(messages, "The connection is lost, and its transaction with it");
    code = DBIL_ERROR;
  }
  if (code == DBIL_SUCCESS || !isAlive()) endTransaction();
  return code;
}

DbilReturnCode Connection::checkUsable(MessageList_t& messages) const {
  if (!isOpen()) {
    addError(messages, "The connection is lost; it is opened again when a transaction starts");
    return DBIL_ERROR;
  }
  if (lost_) {
    addError(messages, "The transaction is lost; it can only be rolled back");
    return DBIL_TRANSACTION_VIOLATION;
  }
  return DBIL_SUCCESS;
}

void Connection::statementFailed(MessageList_t& messages) {
  if (!inTransaction_ || lost_ || transactionSurvives()) return;
  lost_ = true;
  addError(messages, "The failure has ended the transaction; it can only be rolled back");
}

void Connection::releaseStatements() {
  for (Statement* statement : statements_) statement->release();
}

void Connection::endTransaction() {
  inTransaction_ = false;
  lost_ = false;
}

void Connection::closeResults() {
  for (Statement* statement : statements_) statement->closeResult();
}

}  // namespace TvDbil::detail
