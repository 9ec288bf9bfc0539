#pragma once

#include <memory>
#include <set>
#include <string>

#include "zntopo/platform/tvdbil/TvDbil.h"
#include "zntopo/platform/tvdbil/detail/SqlText.h"

namespace TvDbil::detail {

class Statement;

void addError(MessageList_t& messages, const std::string& text);

/// An open store. The rules of a transaction stand here, a driver does the work.
///
/// A transaction that the engine ended by itself, or whose commit failed, is "lost": nothing
/// more is executed in it, it can't be committed, and only a rollback leaves it.
class Connection {
 public:
  Connection() = default;
  virtual ~Connection() = default;
  Connection(const Connection&) = delete;
  Connection& operator=(const Connection&) = delete;

  virtual bool isOpen() const = 0;
  virtual std::string engineName() const = 0;
  virtual const SqlDialect& dialect() const = 0;
  virtual DbilRdbmsVendor vendor() const { return Unknown; }
  /// A new statement of this connection, which it keeps alive.
  virtual std::unique_ptr<Statement> makeStatement(std::shared_ptr<Connection> self) = 0;

  DbilReturnCode startTransaction(MessageList_t& messages);
  DbilReturnCode commitTransaction(MessageList_t& messages);
  DbilReturnCode rollbackTransaction(MessageList_t& messages);
  bool inTransaction() const { return inTransaction_; }

  /// DBIL_SUCCESS if a statement may be executed now.
  DbilReturnCode checkUsable(MessageList_t& messages) const;
  /// To be called when a statement failed: finds out whether the transaction is still there.
  void statementFailed(MessageList_t& messages);

  void attach(Statement* statement) { statements_.insert(statement); }
  void detach(Statement* statement) { statements_.erase(statement); }

 protected:
  virtual DbilReturnCode start(MessageList_t& messages) = 0;
  virtual DbilReturnCode commit(MessageList_t& messages) = 0;
  virtual DbilReturnCode rollback(MessageList_t& messages) = 0;
  /// False if the connection is known to be lost, and the transaction with it.
  virtual bool isAlive() = 0;
  /// False if the engine has ended the open transaction.
  virtual bool transactionSurvives() = 0;

  /// Takes the engine's handles from the statements; they are to be prepared anew.
  void releaseStatements();

 private:
  void endTransaction();
  void closeResults();

  bool inTransaction_ = false;
  bool lost_ = false;
  std::set<Statement*> statements_;
};

}  // namespace TvDbil::detail
