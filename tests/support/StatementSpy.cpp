#include "tests/support/StatementSpy.h"

#include <map>
#include <mutex>
#include <optional>
#include <stdexcept>
#include <utility>

namespace zntopo::test {
namespace {

using TvDbil::DbilReturnCode_t;
using TvDbil::DbStatement_t;
using TvXplMsg::MessageList_t;

struct Fault {
  StatementSpy::Step step;
  std::string text;
  TvDbil::DbilReturnCode code;
  int from;
  bool carriedOut;
  bool once = false;
  std::function<void()> action = {};
};

struct Watched {
  std::string sql;
  int rows = 0;
};

std::mutex guard;
StatementSpy* spy = nullptr;
std::vector<std::string> prepared;
std::map<const DbStatement_t*, Watched> watched;
std::vector<Fault> faults;

/// What a step answers instead of the platform, or after it.
std::optional<Fault> takeFault(StatementSpy::Step step, const DbStatement_t* statement,
                               int number) {
  for (auto fault = faults.begin(); fault != faults.end(); ++fault) {
    if (fault->step == step && number >= fault->from &&
        watched[statement].sql.find(fault->text) != std::string::npos) {
      const Fault found = *fault;
      if (found.once) faults.erase(fault);
      return found;
    }
  }
  return std::nullopt;
}

template <typename Real>
DbilReturnCode_t step(StatementSpy::Step which, const DbStatement_t* statement,
                      MessageList_t& messages, int number, const Real& real) {
  std::optional<Fault> fault;
  {
    const std::lock_guard lock(guard);
    if (spy) {
      if (which == StatementSpy::Fetch) number = ++watched[statement].rows;
      fault = takeFault(which, statement, number);
    }
  }
  if (fault && fault->action) fault->action();
  if (!fault || fault->action) return real();
  if (fault->carriedOut) {
    const DbilReturnCode_t code = real();
    return code == TvDbil::DBIL_SUCCESS ? DbilReturnCode_t(fault->code) : code;
  }
  messages.Add(TvXplMsg::CreateError_t(StatementSpy::kMessage));
  return fault->code;
}

void note(const DbStatement_t* statement, const char* sql) {
  const std::lock_guard lock(guard);
  if (!spy) return;
  prepared.emplace_back(sql);
  watched[statement] = {sql};
}

}  // namespace

StatementSpy::StatementSpy() {
  const std::lock_guard lock(guard);
  if (spy) throw std::logic_error("there is a spy already");
  spy = this;
}

StatementSpy::~StatementSpy() {
  const std::lock_guard lock(guard);
  spy = nullptr;
  prepared.clear();
  watched.clear();
  faults.clear();
}

std::vector<std::string> StatementSpy::allStatements() const {
  const std::lock_guard lock(guard);
  return prepared;
}

std::vector<std::string> StatementSpy::statements() const {
  std::vector<std::string> result;
  for (const std::string& sql : allStatements()) {
    if (sql.rfind("select TopologyReady", 0) != 0) result.push_back(sql);
  }
  return result;
}

void StatementSpy::clear() {
  const std::lock_guard lock(guard);
  prepared.clear();
}

void StatementSpy::fail(Step step, const std::string& textInStatement, TvDbil::DbilReturnCode code,
                        int from) {
  const std::lock_guard lock(guard);
  faults.push_back({step, textInStatement, code, from, false});
}

void StatementSpy::answer(Step step, const std::string& textInStatement,
                          TvDbil::DbilReturnCode code) {
  const std::lock_guard lock(guard);
  faults.push_back({step, textInStatement, code, 1, true});
}

void StatementSpy::failOnce(Step step, const std::string& textInStatement,
                            TvDbil::DbilReturnCode code, int from) {
  const std::lock_guard lock(guard);
  faults.push_back({step, textInStatement, code, from, false, true});
}

void StatementSpy::before(Step step, const std::string& textInStatement, int from,
                          std::function<void()> action) {
  const std::lock_guard lock(guard);
  faults.push_back(
      {step, textInStatement, TvDbil::DBIL_SUCCESS, from, false, true, std::move(action)});
}

void StatementSpy::succeed() {
  const std::lock_guard lock(guard);
  faults.clear();
}

}  // namespace zntopo::test

// The linker sends the statements' operations here, and the name behind "__real_" to the platform.

#define ZNTOPO_SPY_BIND_SQL _ZN6TvDbil13DbStatement_t7BindSqlERN8TvXplMsg13MessageList_tEPKc
#define ZNTOPO_SPY_BIND_TEXT _ZN6TvDbil13DbStatement_t10BindColumnERN8TvXplMsg13MessageList_tEiPcPii
#define ZNTOPO_SPY_BIND_INT _ZN6TvDbil13DbStatement_t10BindColumnERN8TvXplMsg13MessageList_tEiPiS4_
#define ZNTOPO_SPY_BIND_FLOAT _ZN6TvDbil13DbStatement_t10BindColumnERN8TvXplMsg13MessageList_tEiPfPi
#define ZNTOPO_SPY_PARM_INT _ZN6TvDbil13DbStatement_t8BindParmERN8TvXplMsg13MessageList_tEiPKib
#define ZNTOPO_SPY_PARM_TEXT _ZN6TvDbil13DbStatement_t8BindParmERN8TvXplMsg13MessageList_tEiPcb
#define ZNTOPO_SPY_EXEC _ZN6TvDbil13DbStatement_t4ExecERN8TvXplMsg13MessageList_tE
#define ZNTOPO_SPY_FETCH _ZN6TvDbil13DbStatement_t5FetchERN8TvXplMsg13MessageList_tE

#define ZNTOPO_SPY_JOIN_(prefix, name) prefix##name
#define ZNTOPO_SPY_JOIN(prefix, name) ZNTOPO_SPY_JOIN_(prefix, name)
#define ZNTOPO_SPY_REAL(name) ZNTOPO_SPY_JOIN(__real_, name)
#define ZNTOPO_SPY_WRAP(name) ZNTOPO_SPY_JOIN(__wrap_, name)

using namespace zntopo::test;

extern "C" {

DbilReturnCode_t ZNTOPO_SPY_REAL(ZNTOPO_SPY_BIND_SQL)(DbStatement_t*, MessageList_t&, const char*);
DbilReturnCode_t ZNTOPO_SPY_WRAP(ZNTOPO_SPY_BIND_SQL)(DbStatement_t* statement,
                                                      MessageList_t& messages, const char* sql) {
  note(statement, sql);
  return step(StatementSpy::BindSql, statement, messages, 1,
              [&] { return ZNTOPO_SPY_REAL(ZNTOPO_SPY_BIND_SQL)(statement, messages, sql); });
}

DbilReturnCode_t ZNTOPO_SPY_REAL(ZNTOPO_SPY_BIND_TEXT)(DbStatement_t*, MessageList_t&, int, char*,
                                                       int*, int);
DbilReturnCode_t ZNTOPO_SPY_WRAP(ZNTOPO_SPY_BIND_TEXT)(DbStatement_t* statement,
                                                       MessageList_t& messages, int column,
                                                       char* buffer, int* indicator, int size) {
  return step(StatementSpy::BindColumn, statement, messages, column, [&] {
    return ZNTOPO_SPY_REAL(ZNTOPO_SPY_BIND_TEXT)(statement, messages, column, buffer, indicator,
                                                 size);
  });
}

DbilReturnCode_t ZNTOPO_SPY_REAL(ZNTOPO_SPY_BIND_INT)(DbStatement_t*, MessageList_t&, int, int*,
                                                      int*);
DbilReturnCode_t ZNTOPO_SPY_WRAP(ZNTOPO_SPY_BIND_INT)(DbStatement_t* statement,
                                                      MessageList_t& messages, int column,
                                                      int* value, int* indicator) {
  return step(StatementSpy::BindColumn, statement, messages, column, [&] {
    return ZNTOPO_SPY_REAL(ZNTOPO_SPY_BIND_INT)(statement, messages, column, value, indicator);
  });
}

DbilReturnCode_t ZNTOPO_SPY_REAL(ZNTOPO_SPY_BIND_FLOAT)(DbStatement_t*, MessageList_t&, int, float*,
                                                        int*);
DbilReturnCode_t ZNTOPO_SPY_WRAP(ZNTOPO_SPY_BIND_FLOAT)(DbStatement_t* statement,
                                                        MessageList_t& messages, int column,
                                                        float* value, int* indicator) {
  return step(StatementSpy::BindColumn, statement, messages, column, [&] {
    return ZNTOPO_SPY_REAL(ZNTOPO_SPY_BIND_FLOAT)(statement, messages, column, value, indicator);
  });
}

DbilReturnCode_t ZNTOPO_SPY_REAL(ZNTOPO_SPY_PARM_INT)(DbStatement_t*, MessageList_t&, int,
                                                      const int*, bool);
DbilReturnCode_t ZNTOPO_SPY_WRAP(ZNTOPO_SPY_PARM_INT)(DbStatement_t* statement,
                                                      MessageList_t& messages, int position,
                                                      const int* value, bool isNull) {
  return step(StatementSpy::BindParm, statement, messages, position, [&] {
    return ZNTOPO_SPY_REAL(ZNTOPO_SPY_PARM_INT)(statement, messages, position, value, isNull);
  });
}

DbilReturnCode_t ZNTOPO_SPY_REAL(ZNTOPO_SPY_PARM_TEXT)(DbStatement_t*, MessageList_t&, int, char*,
                                                       bool);
DbilReturnCode_t ZNTOPO_SPY_WRAP(ZNTOPO_SPY_PARM_TEXT)(DbStatement_t* statement,
                                                       MessageList_t& messages, int position,
                                                       char* text, bool isNull) {
  return step(StatementSpy::BindParm, statement, messages, position, [&] {
    return ZNTOPO_SPY_REAL(ZNTOPO_SPY_PARM_TEXT)(statement, messages, position, text, isNull);
  });
}

DbilReturnCode_t ZNTOPO_SPY_REAL(ZNTOPO_SPY_EXEC)(DbStatement_t*, MessageList_t&);
DbilReturnCode_t ZNTOPO_SPY_WRAP(ZNTOPO_SPY_EXEC)(DbStatement_t* statement,
                                                  MessageList_t& messages) {
  return step(StatementSpy::Exec, statement, messages, 1,
              [&] { return ZNTOPO_SPY_REAL(ZNTOPO_SPY_EXEC)(statement, messages); });
}

DbilReturnCode_t ZNTOPO_SPY_REAL(ZNTOPO_SPY_FETCH)(DbStatement_t*, MessageList_t&);
DbilReturnCode_t ZNTOPO_SPY_WRAP(ZNTOPO_SPY_FETCH)(DbStatement_t* statement,
                                                   MessageList_t& messages) {
  return step(StatementSpy::Fetch, statement, messages, 1,
              [&] { return ZNTOPO_SPY_REAL(ZNTOPO_SPY_FETCH)(statement, messages); });
}

}  // extern "C"
