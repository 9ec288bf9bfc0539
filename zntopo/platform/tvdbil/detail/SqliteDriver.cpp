#include "zntopo/platform/tvdbil/detail/SqliteDriver.h"

#include <fcntl.h>
#include <sqlite3.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <utility>
#include <vector>

#include "zntopo/platform/tvdbil/detail/ErrorCodes.h"
#include "zntopo/platform/tvdbil/detail/SqliteFunctions.h"
#include "zntopo/platform/tvdbil/detail/Statement.h"
#include "zntopo/platform/tvdbil/detail/StoreFile.h"

namespace TvDbil::detail {
namespace {

constexpr int kBusyTimeoutMs = 5000;

struct CloseDatabase {
  void operator()(sqlite3* database) const { sqlite3_close_v2(database); }
};
using Database = std::unique_ptr<sqlite3, CloseDatabase>;

struct FinalizeStatement {
  void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};
using Handle = std::unique_ptr<sqlite3_stmt, FinalizeStatement>;

/// Tells the database's last error.
DbilReturnCode tell(MessageList_t& messages, sqlite3* database, const std::string& what) {
  const int result = sqlite3_extended_errcode(database);
  addError(messages,
           "SQLite " + std::to_string(result) + ": " + sqlite3_errmsg(database) + "; " + what);
  return codeOfSqlite(result);
}

DbilReturnCode run(MessageList_t& messages, sqlite3* database, const char* sql) {
  const int result = sqlite3_exec(database, sql, nullptr, nullptr, nullptr);
  if (result == SQLITE_OK) return DBIL_SUCCESS;
  return tell(messages, database, std::string("statement: ") + sql);
}

// An empty name or ":memory:" is a store that only its own connection sees; a "file:" name can
// say the same in many ways, so a store is named by its path alone.
bool isPath(const std::string& name) {
  return !name.empty() && name != ":memory:" && name.compare(0, 5, "file:") != 0;
}

DbilReturnCode checkPath(MessageList_t& messages, const std::string& path) {
  if (isPath(path)) return DBIL_SUCCESS;
  addError(messages, "\"" + path +
                         "\" does not name a store: in-memory stores and URIs are not "
                         "supported; give the path of a file");
  return DBIL_ERROR;
}

Database openFile(MessageList_t& messages, const std::string& path) {
  sqlite3* opened = nullptr;
  const int flags = SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX;
  const int result = sqlite3_open_v2(path.c_str(), &opened, flags, nullptr);
  Database database(opened);
  if (result == SQLITE_OK) return database;
  if (opened != nullptr) tell(messages, opened, "store: " + path);
  return nullptr;
}

DbilReturnCode configure(MessageList_t& messages, sqlite3* database) {
  addSqliteFunctions(database);
  sqlite3_extended_result_codes(database, 1);
  sqlite3_busy_timeout(database, kBusyTimeoutMs);
  sqlite3_db_config(database, SQLITE_DBCONFIG_DQS_DDL, 0, nullptr);
  sqlite3_db_config(database, SQLITE_DBCONFIG_DQS_DML, 0, nullptr);
  // The first one also reads the file, and so finds out whether it is a store at all.
  for (const char* sql : {"PRAGMA schema_version", "PRAGMA foreign_keys = ON",
                          "PRAGMA case_sensitive_like = ON", "PRAGMA synchronous = NORMAL"}) {
    const DbilReturnCode code = run(messages, database, sql);
    if (code != DBIL_SUCCESS) return code;
  }
  // This is the file's own property. A file that can't be written, or that others use right now,
  // keeps what it has.
  sqlite3_exec(database, "PRAGMA journal_mode = WAL", nullptr, nullptr, nullptr);
  return DBIL_SUCCESS;
}

class SqliteConnection : public Connection {
 public:
  explicit SqliteConnection(const std::string& path) : path_(path) {}

  DbilReturnCode connect(MessageList_t& messages);

  bool isOpen() const override { return !isDropped_; }
  std::string engineName() const override { return "SQLite"; }
  const SqlDialect& dialect() const override { return kSqliteDialect; }
  std::unique_ptr<Statement> makeStatement(std::shared_ptr<Connection> self) override;
  sqlite3* database() const { return database_.get(); }
  /// Tells the last error, and notes a lost file.
  DbilReturnCode tell(MessageList_t& messages, const std::string& what);

 protected:
  DbilReturnCode start(MessageList_t& messages) override;
  DbilReturnCode commit(MessageList_t& messages) override { return execute(messages, "COMMIT"); }
  DbilReturnCode rollback(MessageList_t& messages) override {
    return transactionSurvives() ? execute(messages, "ROLLBACK") : DBIL_SUCCESS;
  }
  bool isAlive() override { return !isDropped_; }
  // A full disk, for one, makes SQLite roll back by itself.
  bool transactionSurvives() override {
    return !isDropped_ && sqlite3_get_autocommit(database()) == 0;
  }

 private:
  DbilReturnCode execute(MessageList_t& messages, const char* sql);

  const std::string path_;
  StoreFile file_;
  Database database_;
  bool isDropped_ = true;
};

DbilReturnCode SqliteConnection::connect(MessageList_t& messages) {
  file_ = StoreFile(file_.path().empty() ? path_ : file_.path());
  database_ = openFile(messages, file_.path());
  if (database_ == nullptr || configure(messages, database()) != DBIL_SUCCESS) {
    addError(messages, "The store \"" + path_ + "\" can't be opened");
    return DBIL_ERROR;
  }
  isDropped_ = false;
  return DBIL_SUCCESS;
}

// A file that was moved away or replaced would be read for ever, and one whose disk failed may
// not come back to those who have it open.
DbilReturnCode SqliteConnection::start(MessageList_t& messages) {
  if (isDropped_ || file_.isReplaced()) {
    isDropped_ = true;
    releaseStatements();
    const DbilReturnCode code = connect(messages);
    if (code != DBIL_SUCCESS) return code;
  }
  return execute(messages, "BEGIN");
}

DbilReturnCode SqliteConnection::execute(MessageList_t& messages, const char* sql) {
  const DbilReturnCode code = run(messages, database(), sql);
  if (isFileLost(sqlite3_errcode(database()))) isDropped_ = true;
  return code;
}

DbilReturnCode SqliteConnection::tell(MessageList_t& messages, const std::string& what) {
  const DbilReturnCode code = detail::tell(messages, database(), what);
  if (isFileLost(sqlite3_errcode(database()))) isDropped_ = true;
  return code;
}

class SqliteStatement : public Statement {
 public:
  SqliteStatement(std::shared_ptr<Connection> self, SqliteConnection& connection)
      : Statement(std::move(self)), sqlite_(connection) {}

 protected:
  DbilReturnCode prepare(MessageList_t& messages, std::string_view text) override {
    sqlite3_stmt* prepared = nullptr;
    const int result = sqlite3_prepare_v2(sqlite_.database(), text.data(),
                                          static_cast<int>(text.size()), &prepared, nullptr);
    prepared_.reset(prepared);
    return result == SQLITE_OK ? DBIL_SUCCESS : fail(messages);
  }

  DbilReturnCode execute(MessageList_t& messages) override {
    for (const auto& [position, parm] : parms()) {
      if (bind(position, parm) != SQLITE_OK) return fail(messages);
    }
    return step(messages);
  }

  int columnCount() override { return sqlite3_column_count(prepared_.get()); }
  bool knowsColumnsEarly() const override { return true; }
  int parameterCount(int) override { return sqlite3_bind_parameter_count(prepared_.get()); }

  // Exec() has made the first step, so that its failures show there.
  DbilReturnCode next(MessageList_t& messages) override {
    if (!rowIsWaiting_ && !isDone_) {
      const DbilReturnCode stepped = step(messages);
      if (stepped != DBIL_SUCCESS) return stepped;
    }
    if (!rowIsWaiting_) return DBIL_NO_DATA;
    rowIsWaiting_ = false;
    takeColumns();
    DbilReturnCode code = DBIL_SUCCESS;
    for (const auto& [index, column] : taken_) {
      if (store(index, column) != DBIL_SUCCESS) code = DBIL_SUCCESS_WITH_INFO;
    }
    return code;
  }

  void closeCursor() override {
    rowIsWaiting_ = false;
    if (prepared_ != nullptr) sqlite3_reset(prepared_.get());
  }

  void freeHandle() override { prepared_.reset(); }

 private:
  DbilReturnCode fail(MessageList_t& messages) {
    return sqlite_.tell(messages, "statement: " + sql());
  }

  // A row may be stepped to when the caller's variable is gone, so texts are copied.
  int bind(int position, const BoundParm& parm) {
    if (parm.number != nullptr) return sqlite3_bind_int(prepared_.get(), position, *parm.number);
    if (parm.text == nullptr) return sqlite3_bind_null(prepared_.get(), position);
    return sqlite3_bind_text(prepared_.get(), position, parm.text, -1, SQLITE_TRANSIENT);
  }

  DbilReturnCode step(MessageList_t& messages) {
    const int result = sqlite3_step(prepared_.get());
    rowIsWaiting_ = result == SQLITE_ROW;
    isDone_ = result == SQLITE_DONE;
    if (rowIsWaiting_) return DBIL_SUCCESS;
    const DbilReturnCode code = isDone_ ? DBIL_SUCCESS : fail(messages);
    // Without this its locks would last as long as the statement.
    sqlite3_reset(prepared_.get());
    return code;
  }

  /// The bound columns in a row of memory, which each row of the result is run through.
  void takeColumns() {
    if (takenVersion_ == columnsVersion()) return;
    taken_.clear();
    for (const auto& [number, column] : columns()) taken_.emplace_back(number - 1, column);
    takenVersion_ = columnsVersion();
  }

  DbilReturnCode store(int index, const BoundColumn& column) {
    sqlite3_stmt* row = prepared_.get();
    switch (sqlite3_column_type(row, index)) {
      case SQLITE_NULL:
        return storeNull(column);
      case SQLITE_INTEGER:
        return storeInteger(column, sqlite3_column_int64(row, index));
      case SQLITE_FLOAT:
        return storeReal(column, sqlite3_column_double(row, index));
      case SQLITE_TEXT:
        // A file may keep its texts in UTF-16; as a blob they would come as they are kept.
        return storeBytes(index, column, sqlite3_column_text(row, index));
      default:
        return storeBytes(index, column, sqlite3_column_blob(row, index));
    }
  }

  // The length is that of the form which was asked for last.
  DbilReturnCode storeBytes(int index, const BoundColumn& column, const void* data) {
    const int length = sqlite3_column_bytes(prepared_.get(), index);
    return storeText(
        column, std::string_view(static_cast<const char*>(data), static_cast<std::size_t>(length)));
  }

  SqliteConnection& sqlite_;
  Handle prepared_;
  bool rowIsWaiting_ = false;
  bool isDone_ = false;
  std::vector<std::pair<int, BoundColumn>> taken_;
  int takenVersion_ = -1;
};

std::unique_ptr<Statement> SqliteConnection::makeStatement(std::shared_ptr<Connection> self) {
  return std::make_unique<SqliteStatement>(std::move(self), *this);
}

}  // namespace

std::shared_ptr<Connection> openSqlite(MessageList_t& messages, const std::string& path) {
  if (checkPath(messages, path) != DBIL_SUCCESS) return nullptr;
  auto connection = std::make_shared<SqliteConnection>(path);
  if (connection->connect(messages) != DBIL_SUCCESS) return nullptr;
  return connection;
}

DbilReturnCode createSqlite(MessageList_t& messages, const std::string& path) {
  if (checkPath(messages, path) != DBIL_SUCCESS) return DBIL_ERROR;
  const int file = ::open(path.c_str(), O_CREAT | O_EXCL | O_RDWR | O_CLOEXEC, 0666);
  if (file < 0) {
    addError(messages, "The store \"" + path + "\" can't be created: " + std::strerror(errno));
    return DBIL_ERROR;
  }
  ::close(file);
  const Database database = openFile(messages, path);
  if (database != nullptr && configure(messages, database.get()) == DBIL_SUCCESS) {
    return DBIL_SUCCESS;
  }
  ::unlink(path.c_str());
  return DBIL_ERROR;
}

}  // namespace TvDbil::detail
