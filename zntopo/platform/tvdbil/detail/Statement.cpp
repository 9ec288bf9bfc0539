#include "zntopo/platform/tvdbil/detail/Statement.h"

#include "zntopo/platform/tvdbil/detail/Connection.h"
#include "zntopo/platform/tvdbil/detail/StatementCounters.h"
#include "zntopo/platform/tvxpl/Utf8.h"

namespace TvDbil::detail {

Statement::Statement(std::shared_ptr<Connection> connection) : connection_(std::move(connection)) {
  connection_->attach(this);
}

Statement::~Statement() { connection_->detach(this); }

DbilReturnCode Statement::bindSql(MessageList_t& messages, const char* sql) {
  release();
  columns_.clear();
  parms_.clear();
  ++columnsVersion_;
  std::string_view statement;
  DbilReturnCode code = connection_->checkUsable(messages);
  if (code == DBIL_SUCCESS) code = checkText(messages, sql, statement);
  if (code != DBIL_SUCCESS) return code;
  sql_ = statement;
  countPrepared();
  code = prepare(messages, sql_);
  if (code != DBIL_SUCCESS) return failed(messages, code);
  parameters_ = parameterCount(parameters_);
  state_ = Prepared;
  return DBIL_SUCCESS;
}

DbilReturnCode Statement::checkText(MessageList_t& messages, const char* sql,
                                    std::string_view& statement) {
  sql_ = sql == nullptr ? "" : sql;
  if (!TvXplStr::isUtf8(sql_)) return refuse(messages, "The text of the statement is not UTF-8");
  const auto statements = splitStatements(sql == nullptr ? "" : sql, connection_->dialect());
  if (statements.empty()) return refuse(messages, "There is no statement in the text");
  if (statements.size() > 1) return refuse(messages, "The text holds more than one statement");
  statement = statements.front().text;
  parameters_ = statements.front().parameters;
  return DBIL_SUCCESS;
}

DbilReturnCode Statement::bindColumn(MessageList_t& messages, int column,
                                     const BoundColumn& variables) {
  if (state_ == Empty) return refuse(messages, "A column is bound before a statement is prepared");
  if (column < 1) return refuse(messages, "Columns count from 1", DBIL_OUT_OF_RANGE);
  if (variables.target == nullptr) return refuse(messages, "A column is bound to nothing");
  if (variables.kind == BoundColumn::Text && variables.size < 1) {
    return refuse(messages, "A column is bound to a buffer without room", DBIL_OUT_OF_RANGE);
  }
  columns_[column] = variables;
  ++columnsVersion_;
  return DBIL_SUCCESS;
}

DbilReturnCode Statement::bindParm(MessageList_t& messages, int position, const BoundParm& variable,
                                   bool isNull) {
  if (state_ == Empty) {
    return refuse(messages, "A parameter is bound before a statement is prepared");
  }
  if (position < 1) return refuse(messages, "Parameters count from 1", DBIL_OUT_OF_RANGE);
  if (!isNull && variable.number == nullptr && variable.text == nullptr) {
    return refuse(messages, "A parameter is bound to nothing");
  }
  parms_[position] = isNull ? BoundParm() : variable;
  return DBIL_SUCCESS;
}

DbilReturnCode Statement::exec(MessageList_t& messages) {
  if (state_ == Empty) return refuse(messages, "No statement is prepared");
  DbilReturnCode code = connection_->checkUsable(messages);
  if (code == DBIL_SUCCESS) code = checkParms(messages);
  if (code == DBIL_SUCCESS && knowsColumnsEarly()) code = checkColumns(messages);
  if (code != DBIL_SUCCESS) return code;
  closeCursor();
  state_ = Prepared;
  countExecuted();
  code = execute(messages);
  if (code != DBIL_SUCCESS) return failed(messages, code);
  code = checkColumns(messages);
  if (code != DBIL_SUCCESS) {
    closeCursor();
    return code;
  }
  state_ = columnCount() > 0 ? Rows : Ended;
  return DBIL_SUCCESS;
}

DbilReturnCode Statement::checkParms(MessageList_t& messages) const {
  for (int position = 1; position <= parameters_; ++position) {
    const auto found = parms_.find(position);
    if (found == parms_.end()) {
      return refuse(messages, "Parameter " + std::to_string(position) + " is not bound");
    }
    if (found->second.text != nullptr && !TvXplStr::isUtf8(found->second.text)) {
      return refuse(messages, "Parameter " + std::to_string(position) + " is not UTF-8");
    }
  }
  if (!parms_.empty() && parms_.rbegin()->first > parameters_) {
    return refuse(messages, "Parameter " + std::to_string(parms_.rbegin()->first) +
                                " is bound, but the statement has " + std::to_string(parameters_));
  }
  return DBIL_SUCCESS;
}

DbilReturnCode Statement::checkColumns(MessageList_t& messages) {
  if (columns_.empty() || columns_.rbegin()->first <= columnCount()) return DBIL_SUCCESS;
  return refuse(messages, "Column " + std::to_string(columns_.rbegin()->first) +
                              " is bound, but the result has " + std::to_string(columnCount()));
}

DbilReturnCode Statement::fetch(MessageList_t& messages) {
  if (state_ == Ended) return DBIL_NO_DATA;
  if (state_ != Rows) {
    return refuse(messages, "Nothing to fetch: not executed, or its transaction has ended");
  }
  const DbilReturnCode code = next(messages);
  if (code == DBIL_SUCCESS || code == DBIL_SUCCESS_WITH_INFO) return code;
  closeCursor();
  state_ = Ended;
  return code == DBIL_NO_DATA ? code : failed(messages, code);
}

void Statement::closeResult() {
  if (state_ != Rows) return;
  closeCursor();
  state_ = Prepared;
}

void Statement::release() {
  freeHandle();
  state_ = Empty;
}

DbilReturnCode Statement::refuse(MessageList_t& messages, const std::string& why,
                                 DbilReturnCode code) const {
  addError(messages, sql_.empty() ? why : why + "; statement: " + sql_);
  return code;
}

DbilReturnCode Statement::failed(MessageList_t& messages, DbilReturnCode code) {
  connection_->statementFailed(messages);
  return code;
}

}  // namespace TvDbil::detail
