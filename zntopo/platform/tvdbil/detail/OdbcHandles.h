#pragma once

#include <sql.h>
#include <sqlext.h>

#include <string>
#include <utility>

namespace TvDbil::detail {

/// Owns an ODBC handle of one type (SQL_HANDLE_ENV, SQL_HANDLE_DBC or SQL_HANDLE_STMT).
template <SQLSMALLINT Type>
class OdbcHandle {
 public:
  OdbcHandle() = default;
  ~OdbcHandle() { reset(); }
  OdbcHandle(const OdbcHandle&) = delete;
  OdbcHandle& operator=(const OdbcHandle&) = delete;

  /// Makes a new handle under a parent; false if that fails.
  bool allocate(SQLHANDLE parent) {
    reset();
    return SQL_SUCCEEDED(SQLAllocHandle(Type, parent, &handle_));
  }
  void reset() {
    if (handle_ != nullptr) SQLFreeHandle(Type, std::exchange(handle_, nullptr));
  }
  SQLHANDLE get() const { return handle_; }
  explicit operator bool() const { return handle_ != nullptr; }

 private:
  SQLHANDLE handle_ = nullptr;
};

using OdbcEnvironment = OdbcHandle<SQL_HANDLE_ENV>;
using OdbcLink = OdbcHandle<SQL_HANDLE_DBC>;
using OdbcCursor = OdbcHandle<SQL_HANDLE_STMT>;

/// What a driver has to say about the last call on a handle.
struct Diagnosis {
  std::string state;  ///< the SQLSTATE of the first record
  int native = 0;     ///< the engine's own code in the first record
  std::string text;   ///< all records
};

Diagnosis diagnose(SQLSMALLINT type, SQLHANDLE handle);

/// The value of an attribute of a connection string, without its braces; empty if there is none.
/// Names of attributes are compared without regard to case, and the first one counts.
std::string odbcAttribute(const std::string& connectionString, const std::string& name);

/// The driver that a connection string names itself or through its data source.
std::string odbcDriver(SQLHANDLE environment, const std::string& connectionString);

/// True if a text begins with a prefix, without regard to case.
bool beginsWithWord(const std::string& text, const char* prefix);

/// True if a text contains a word, without regard to case.
bool containsWord(const std::string& text, const char* word);

}  // namespace TvDbil::detail
