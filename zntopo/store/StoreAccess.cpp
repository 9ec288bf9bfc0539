#include "zntopo/store/StoreAccess.h"

#include <algorithm>
#include <iostream>

#include "zntopo/core/detail/LogText.h"
#include "zntopo/store/GoodCode.h"

namespace zntopo {

using detail::filledIn;
using TvDbil::DbilReturnCode_t;
using TvXplMsg::MessageList_t;

namespace {

/// The rendered list goes through a buffer of this size, its closing NUL included.
constexpr std::size_t kErrorListBuffer = 3000;

void logLine(const LogLine& line, const std::string& sql,
             const std::vector<DbilReturnCode_t>& codes) {
  if (!line.text || !MCLog::isHeard(line.level)) return;
  std::string text = line.text;
  for (const DbilReturnCode_t code : codes) {
    text = filledIn(text, "%d", std::to_string(static_cast<int>(code)));
  }
  MCLog::log(line.level, "%s", filledIn(text, "%s", sql).c_str());
}

void tellErrorList(ErrorList where, const MessageList_t& messages, ZNTopoAPIStatus& status) {
  if (where == ErrorList::ToStatus) addErrorListMessage(messages, status);
  if (where == ErrorList::ToStandardError) {
    std::cerr << "Errors: " << messages.Format(TvXplMsg::fRecurse_k) << std::endl;
  }
}

}  // namespace

void addErrorListMessage(const MessageList_t& messages, ZNTopoAPIStatus& status) {
  std::string text = messages.Format(TvXplMsg::fRecurse_k);
  text.resize(std::min(text.size(), kErrorListBuffer - 1));
  status.addAuxMsg(text);
  MCLog::log(MC_CRITICAL, "%s\n", text.c_str());
}

Row::Row(ColumnList columns)
    : indicators_(columns.size()),
      integers_(columns.size()),
      reals_(columns.size()),
      offsets_(columns.size()) {
  // The first byte is an empty text for the columns that are no text.
  std::size_t size = 1;
  for (int i = 0; i < columns.size(); ++i) {
    if (columns[i].kind != ColumnKind::Text) continue;
    offsets_[i] = size;
    size += static_cast<std::size_t>(std::max(columns[i].size, 1));
  }
  bytes_ = std::make_unique<char[]>(size);
}

StoreAccess::StoreAccess(ZNTopoAPIStatus& status, const AccessTexts& texts)
    : status_(status), texts_(texts) {
  ownHolder_.emplace();
  holder_ = &*ownHolder_;
  connect();
}

StoreAccess::StoreAccess(ODBCConn& holder, ZNTopoAPIStatus& status, const AccessTexts& texts)
    : status_(status), texts_(texts), holder_(&holder) {
  connect();
}

StoreAccess::~StoreAccess() = default;

void StoreAccess::connect() {
  connected_ = holder_->getStatus().isOK();
  if (connected_) return;
  logLine(texts_.noConnection, {}, {});
  status_ = holder_->getStatus();
}

void StoreAccess::report(const AccessFailure& failure, DbilReturnCode_t code) {
  logLine(failure.log, sql_, {code});
  logLine(failure.secondLog, sql_, {code});
  status_.setStatus(failure.status);
  if (failure.text) status_.addAuxMsg(failure.withSql ? failure.text + sql_ : failure.text);
  tellErrorList(failure.errorList, messages_, status_);
}

bool StoreAccess::prepare(const std::string& sql) {
  if (!connected_) return false;
  sql_ = sql;
  logLine(texts_.preparing, sql_, {});
  statement_.emplace(messages_, holder_->getDbConnection());
  lastCode_ = statement_->BindSql(messages_, sql_.c_str());
  if (isGood(lastCode_, texts_.infoBindsStatement)) return true;
  report(texts_.statement, lastCode_);
  return false;
}

DbilReturnCode_t StoreAccess::bindParameter(const Parameter& parameter, int position) {
  if (!parameter.text) {
    return statement_->BindParm(messages_, position, parameter.integer, !parameter.integer);
  }
  // The platform takes a text that it may change and only reads it.
  return statement_->BindParm(messages_, position, const_cast<char*>(parameter.text), false);
}

bool StoreAccess::bindParameters(const std::vector<Parameter>& parameters) {
  if (!statement_) return false;
  std::vector<DbilReturnCode_t> codes(parameters.size());
  for (std::size_t i = parameters.size(); i-- > 0;) {
    codes[i] = bindParameter(parameters[i], static_cast<int>(i) + 1);
  }
  logLine(texts_.parametersBound, sql_, codes);
  for (const DbilReturnCode_t code : codes) {
    lastCode_ = code;
    if (code == TvDbil::DBIL_SUCCESS) continue;
    report(texts_.parameter, code);
    return false;
  }
  return true;
}

DbilReturnCode_t StoreAccess::bindColumn(const Column& column, int index) {
  Row& row = *row_;
  int* const indicator = &row.indicators_[index];
  switch (column.kind) {
    case ColumnKind::Int:
      return statement_->BindColumn(messages_, index + 1, &row.integers_[index], indicator);
    case ColumnKind::Float:
      return statement_->BindColumn(messages_, index + 1, &row.reals_[index], indicator);
    case ColumnKind::Text:
      break;
  }
  return statement_->BindColumn(messages_, index + 1, &row.bytes_[row.offsets_[index]], indicator,
                                column.size);
}

bool StoreAccess::bindColumns(ColumnList columns) {
  if (!statement_) return false;
  row_.reset(new Row(columns));
  for (int i = 0; i < columns.size(); ++i) {
    lastCode_ = bindColumn(columns[i], i);
    if (lastCode_ == TvDbil::DBIL_SUCCESS) continue;
    report(columns[i].failure ? *columns[i].failure : texts_.column, lastCode_);
    return false;
  }
  return true;
}

bool StoreAccess::exec() {
  if (!statement_) return false;
  logLine(texts_.executing, sql_, {});
  lastCode_ = statement_->Exec(messages_);
  if (lastCode_ != TvDbil::DBIL_SUCCESS) {
    report(texts_.exec, lastCode_);
    return false;
  }
  logLine(texts_.executed, sql_, {lastCode_});
  return true;
}

void StoreAccess::fetch(const RowHandler& onRow) {
  if (!statement_ || !row_) return;
  do {
    std::fill(row_->indicators_.begin(), row_->indicators_.end(), 0);
    lastCode_ = statement_->Fetch(messages_);
    if (!isGood(lastCode_, texts_.infoIsRow)) return;
  } while (onRow(*row_) && !texts_.fetchesOnce);
}

bool StoreAccess::run(const std::string& sql, ColumnList columns, const RowHandler& onRow) {
  if (!prepare(sql) || !bindColumns(columns) || !exec()) return false;
  fetch(onRow);
  return true;
}

bool StoreAccess::execute(const std::string& sql, const std::vector<Parameter>& parameters) {
  return prepare(sql) && bindParameters(parameters) && exec();
}

bool runQuery(const std::string& sql, ColumnList columns, const AccessTexts& texts,
              ZNTopoAPIStatus& status, const RowHandler& onRow) {
  StoreAccess access(status, texts);
  return access.run(sql, columns, onRow);
}

}  // namespace zntopo
