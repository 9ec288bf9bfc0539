#pragma once

#include <memory>
#include <string>

#include "zntopo/platform/tvdbil/detail/Connection.h"
#include "zntopo/platform/tvdbil/detail/OdbcHandles.h"
#include "zntopo/platform/tvdbil/detail/StoreFile.h"

namespace TvDbil::detail {

/// What is particular to an engine behind ODBC.
struct OdbcEngine;

class OdbcConnection : public Connection {
 public:
  explicit OdbcConnection(const std::string& connectionString);
  ~OdbcConnection() override;

  DbilReturnCode connect(MessageList_t& messages);

  bool isOpen() const override { return isConnected_ && !isDropped_; }
  std::string engineName() const override { return engineName_; }
  const SqlDialect& dialect() const override;
  DbilRdbmsVendor vendor() const override;
  std::unique_ptr<Statement> makeStatement(std::shared_ptr<Connection> self) override;

  SQLHANDLE link() const { return link_.get(); }
  /// Tells what the driver says about a failed call, notes a lost connection.
  DbilReturnCode tell(MessageList_t& messages, SQLSMALLINT type, SQLHANDLE handle,
                      const std::string& what);

 protected:
  DbilReturnCode start(MessageList_t& messages) override;
  DbilReturnCode commit(MessageList_t& messages) override;
  DbilReturnCode rollback(MessageList_t& messages) override;
  bool isAlive() override { return !isDropped_; }
  bool transactionSurvives() override;

 private:
  std::string completed() const;
  void disconnect();
  bool isSqlite() const;
  void recognizeEngine();
  DbilReturnCode findFile(MessageList_t& messages);
  DbilReturnCode configure(MessageList_t& messages);
  DbilReturnCode setAutocommit(MessageList_t& messages, bool on);
  DbilReturnCode begin(MessageList_t& messages);
  DbilReturnCode end(MessageList_t& messages, SQLSMALLINT how, const char* what);
  /// Executes a text; with an answer, reads the first column of the first row into it.
  DbilReturnCode ask(MessageList_t& messages, const char* sql, std::string* answer);

  std::string connectionString_;
  OdbcEnvironment environment_;
  OdbcLink link_;
  bool isConnected_ = false;
  bool isDropped_ = false;
  std::string engineName_;
  const OdbcEngine* engine_;
  StoreFile file_;           ///< of an embedded store
  std::string transaction_;  ///< what the engine calls the open transaction, where it can tell
};

/// Opens a store through ODBC; null if that fails.
std::shared_ptr<Connection> openOdbc(MessageList_t& messages, const std::string& connectionString);

}  // namespace TvDbil::detail
