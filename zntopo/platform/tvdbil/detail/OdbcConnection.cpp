#include "zntopo/platform/tvdbil/detail/OdbcConnection.h"

#include <unistd.h>

#include <iterator>

#include "zntopo/platform/tvdbil/detail/ErrorCodes.h"
#include "zntopo/platform/tvdbil/detail/OdbcStatement.h"

namespace TvDbil::detail {

struct OdbcEngine {
  const char* name;  ///< what SQL_DBMS_NAME begins with
  DbilRdbmsVendor vendor;
  const SqlDialect& dialect;
  const char* session[3];   ///< what a new connection executes
  const char* transaction;  ///< gives a text that is another one in each transaction
};

namespace {

constexpr SQLULEN kLoginTimeoutSeconds = 15;

// The last entry stands for every engine that is not named.
//
// psqlODBC guards each statement with a savepoint, so that a failed one leaves the transaction
// as it was. A connection string or a data source can choose otherwise ("Protocol=7.4-1"): then
// a failure loses the transaction, the next statement silently begins another, and the commit
// reports success. So the start of the transaction is asked for when it begins, which also finds
// a connection that the server has dropped, and again after each failure.
constexpr OdbcEngine kEngines[] = {
    {"PostgreSQL",
     Unknown,
     kPostgresDialect,
     {"SELECT set_config('lock_timeout', '5s', false) WHERE current_setting('lock_timeout') = '0'",
      "SET client_encoding = 'UTF8'", "SET standard_conforming_strings = on"},
     "SELECT CAST(now() AS text)"},
    {"SQLite",
     Unknown,
     kSqliteDialect,
     {"PRAGMA foreign_keys = ON", "PRAGMA case_sensitive_like = ON", nullptr},
     nullptr},
    {"Solid", Solid, kPlainDialect, {}, nullptr},
    {"Oracle", Oracle, kPlainDialect, {}, nullptr},
    {"Microsoft SQL Server", SqlServer, kBracketDialect, {}, nullptr},
    {"", Unknown, kPlainDialect, {}, nullptr},
};
constexpr const OdbcEngine& kSqlite = kEngines[1];
constexpr const OdbcEngine& kOther = *(std::end(kEngines) - 1);

// The first value of an attribute counts, so these win over what the connection string says...
constexpr const char* kSqliteAttributes =
    "NoCreat=1;NoTXN=0;FKSupport=1;SyncPragma=NORMAL;JournalMode=WAL;";
// ...and this one does not.
constexpr const char* kSqliteTimeout = ";Timeout=5000;";

DbilReturnCode refuseMemory(MessageList_t& messages) {
  addError(messages, "In-memory stores and URIs are not supported; give the path of a file");
  return DBIL_ERROR;
}

// ODBC takes numbers as pointers.
SQLPOINTER asPointer(SQLULEN value) {
  return reinterpret_cast<SQLPOINTER>(value);  // NOLINT(performance-no-int-to-ptr)
}

}  // namespace

OdbcConnection::OdbcConnection(const std::string& connectionString)
    : connectionString_(connectionString), engine_(&kOther) {}

OdbcConnection::~OdbcConnection() { disconnect(); }

const SqlDialect& OdbcConnection::dialect() const { return engine_->dialect; }

DbilRdbmsVendor OdbcConnection::vendor() const { return engine_->vendor; }

std::unique_ptr<Statement> OdbcConnection::makeStatement(std::shared_ptr<Connection> self) {
  return std::make_unique<OdbcStatement>(std::move(self), *this);
}

DbilReturnCode OdbcConnection::connect(MessageList_t& messages) {
  if (!environment_.allocate(SQL_NULL_HANDLE) ||
      !SQL_SUCCEEDED(
          SQLSetEnvAttr(environment_.get(), SQL_ATTR_ODBC_VERSION, asPointer(SQL_OV_ODBC3), 0)) ||
      !link_.allocate(environment_.get())) {
    addError(messages, "The ODBC driver manager can't be used");
    return DBIL_ERROR;
  }
  // A SQLite URI: it can say "in memory" in ways that do not show afterwards.
  if (isSqlite() && beginsWithWord(odbcAttribute(connectionString_, "Database"), "file:")) {
    return refuseMemory(messages);
  }
  SQLSetConnectAttr(link(), SQL_ATTR_LOGIN_TIMEOUT, asPointer(kLoginTimeoutSeconds), 0);
  std::string text = completed();
  const SQLRETURN result = SQLDriverConnect(
      link(), nullptr, reinterpret_cast<SQLCHAR*>(text.data()),
      static_cast<SQLSMALLINT>(text.size()), nullptr, 0, nullptr, SQL_DRIVER_NOPROMPT);
  // No connection string here: it may hold a password.
  if (!SQL_SUCCEEDED(result)) {
    return tell(messages, SQL_HANDLE_DBC, link(), "the store can't be opened");
  }
  isConnected_ = true;
  isDropped_ = false;
  recognizeEngine();
  return configure(messages);
}

std::string OdbcConnection::completed() const {
  if (!isSqlite()) return connectionString_;
  return kSqliteAttributes + connectionString_ + kSqliteTimeout;
}

void OdbcConnection::disconnect() {
  if (isConnected_) {
    SQLEndTran(SQL_HANDLE_DBC, link(), SQL_ROLLBACK);
    SQLDisconnect(link());
    isConnected_ = false;
  }
  link_.reset();
  environment_.reset();
}

bool OdbcConnection::isSqlite() const {
  return containsWord(odbcDriver(environment_.get(), connectionString_), kSqlite.name);
}

void OdbcConnection::recognizeEngine() {
  SQLCHAR name[128] = {};
  SQLGetInfo(link(), SQL_DBMS_NAME, name, sizeof name, nullptr);
  engineName_ = reinterpret_cast<const char*>(name);
  engine_ = kEngines;
  while (!beginsWithWord(engineName_, engine_->name)) ++engine_;
}

DbilReturnCode OdbcConnection::configure(MessageList_t& messages) {
  for (const char* sql : engine_->session) {
    if (sql == nullptr) break;
    const DbilReturnCode code = ask(messages, sql, nullptr);
    if (code != DBIL_SUCCESS) return code;
  }
  return engine_ == &kSqlite ? findFile(messages) : DBIL_SUCCESS;
}

DbilReturnCode OdbcConnection::findFile(MessageList_t& messages) {
  std::string file;
  const DbilReturnCode code =
      ask(messages, "SELECT file FROM pragma_database_list WHERE name = 'main'", &file);
  if (code != DBIL_SUCCESS) return code;
  if (file.empty() || access(file.c_str(), F_OK) != 0) return refuseMemory(messages);
  file_ = StoreFile(file);
  return DBIL_SUCCESS;
}

DbilReturnCode OdbcConnection::start(MessageList_t& messages) {
  MessageList_t firstAttempt;
  if (file_.isReplaced()) isDropped_ = true;
  if (!isDropped_ && isConnected_ && begin(firstAttempt) == DBIL_SUCCESS) return DBIL_SUCCESS;
  releaseStatements();
  disconnect();
  DbilReturnCode code = connect(messages);
  if (code == DBIL_SUCCESS) code = begin(messages);
  if (code != DBIL_SUCCESS) isDropped_ = true;
  return code;
}

DbilReturnCode OdbcConnection::begin(MessageList_t& messages) {
  const DbilReturnCode code = setAutocommit(messages, false);
  if (code != DBIL_SUCCESS || engine_->transaction == nullptr) return code;
  return ask(messages, engine_->transaction, &transaction_);
}

DbilReturnCode OdbcConnection::commit(MessageList_t& messages) {
  return end(messages, SQL_COMMIT, "the transaction is not committed");
}

DbilReturnCode OdbcConnection::rollback(MessageList_t& messages) {
  // A commit for which the disk had no room has ended the transaction, and the driver's rollback
  // would fail for ever.
  if (engine_ == &kSqlite) transactionSurvives();
  return end(messages, SQL_ROLLBACK, "the transaction is not rolled back");
}

DbilReturnCode OdbcConnection::end(MessageList_t& messages, SQLSMALLINT how, const char* what) {
  if (!SQL_SUCCEEDED(SQLEndTran(SQL_HANDLE_DBC, link(), how))) {
    return tell(messages, SQL_HANDLE_DBC, link(), what);
  }
  // The transaction has ended well; if this fails the next start opens the connection again.
  MessageList_t ignored;
  if (setAutocommit(ignored, true) != DBIL_SUCCESS) isDropped_ = true;
  return DBIL_SUCCESS;
}

bool OdbcConnection::transactionSurvives() {
  MessageList_t ignored;
  // SQLite has no question for it, but refuses a second BEGIN. Where it takes it, the driver's
  // rollback finds the transaction that it expects.
  if (engine_ == &kSqlite) return ask(ignored, "BEGIN", nullptr) != DBIL_SUCCESS;
  if (isDropped_ || engine_->transaction == nullptr) return !isDropped_;
  std::string current;
  return ask(ignored, engine_->transaction, &current) == DBIL_SUCCESS && current == transaction_;
}

DbilReturnCode OdbcConnection::setAutocommit(MessageList_t& messages, bool on) {
  const SQLULEN mode = on ? SQL_AUTOCOMMIT_ON : SQL_AUTOCOMMIT_OFF;
  if (SQL_SUCCEEDED(SQLSetConnectAttr(link(), SQL_ATTR_AUTOCOMMIT, asPointer(mode), 0))) {
    return DBIL_SUCCESS;
  }
  return tell(messages, SQL_HANDLE_DBC, link(), "the transaction mode can't be set");
}

DbilReturnCode OdbcConnection::ask(MessageList_t& messages, const char* sql, std::string* answer) {
  OdbcCursor cursor;
  if (!cursor.allocate(link())) return tell(messages, SQL_HANDLE_DBC, link(), sql);
  std::string text = sql;
  SQLRETURN result = SQLExecDirect(cursor.get(), reinterpret_cast<SQLCHAR*>(text.data()),
                                   static_cast<SQLINTEGER>(text.size()));
  SQLCHAR value[4096] = {};
  if (SQL_SUCCEEDED(result) && answer != nullptr) {
    SQLLEN length = 0;
    result = SQLFetch(cursor.get());
    if (SQL_SUCCEEDED(result)) {
      result = SQLGetData(cursor.get(), 1, SQL_C_CHAR, value, sizeof value, &length);
    }
    *answer = reinterpret_cast<const char*>(value);
  }
  if (SQL_SUCCEEDED(result) || (result == SQL_NO_DATA && answer == nullptr)) return DBIL_SUCCESS;
  return tell(messages, SQL_HANDLE_STMT, cursor.get(), sql);
}

DbilReturnCode OdbcConnection::tell(MessageList_t& messages, SQLSMALLINT type, SQLHANDLE handle,
                                    const std::string& what) {
  const Diagnosis diagnosis = diagnose(type, handle);
  addError(messages, diagnosis.text + "; " + what);
  SQLINTEGER dead = SQL_CD_FALSE;
  if (isConnected_) {
    SQLGetConnectAttr(link(), SQL_ATTR_CONNECTION_DEAD, &dead, SQL_IS_INTEGER, nullptr);
  }
  if (dead == SQL_CD_TRUE || isConnectionLost(diagnosis.state)) isDropped_ = true;
  if (engine_ != &kSqlite) return codeOfSqlState(diagnosis.state);
  if (isFileLost(diagnosis.native)) isDropped_ = true;
  return codeOfSqlite(diagnosis.native);
}

std::shared_ptr<Connection> openOdbc(MessageList_t& messages, const std::string& connectionString) {
  auto connection = std::make_shared<OdbcConnection>(connectionString);
  if (connection->connect(messages) != DBIL_SUCCESS) return nullptr;
  return connection;
}

}  // namespace TvDbil::detail
