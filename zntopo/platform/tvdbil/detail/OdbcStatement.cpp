#include "zntopo/platform/tvdbil/detail/OdbcStatement.h"

#include <algorithm>
#include <cstring>

#include "zntopo/platform/tvdbil/detail/OdbcConnection.h"

namespace TvDbil::detail {

DbilReturnCode OdbcStatement::prepare(MessageList_t& messages, std::string_view text) {
  if (!cursor_.allocate(odbc_.link())) {
    return odbc_.tell(messages, SQL_HANDLE_DBC, odbc_.link(), "no statement can be made");
  }
  outputsVersion_ = -1;
  // ODBC takes the text as not const, but does not write to it.
  auto* sqlText = reinterpret_cast<SQLCHAR*>(const_cast<char*>(text.data()));
  const SQLRETURN result = SQLPrepare(cursor_.get(), sqlText, static_cast<SQLINTEGER>(text.size()));
  return SQL_SUCCEEDED(result) ? DBIL_SUCCESS : fail(messages);
}

DbilReturnCode OdbcStatement::execute(MessageList_t& messages) {
  inputs_.assign(parms().size(), Input());
  auto input = inputs_.begin();
  for (const auto& [position, parm] : parms()) {
    if (!SQL_SUCCEEDED(bindInput(position, parm, *input++))) return fail(messages);
  }
  const SQLRETURN result = SQLExecute(cursor_.get());
  // SQL_NO_DATA: an update that changed nothing.
  if (!SQL_SUCCEEDED(result) && result != SQL_NO_DATA) return fail(messages);
  return bindOutputs(messages);
}

SQLRETURN OdbcStatement::bindInput(int position, const BoundParm& parm, Input& input) {
  const auto place = static_cast<SQLUSMALLINT>(position);
  if (parm.number != nullptr) {
    input.number = *parm.number;
    return SQLBindParameter(cursor_.get(), place, SQL_PARAM_INPUT, SQL_C_SLONG, SQL_INTEGER, 0, 0,
                            &input.number, 0, &input.indicator);
  }
  const std::size_t length = parm.text == nullptr ? 0 : std::strlen(parm.text);
  input.indicator = parm.text == nullptr ? SQL_NULL_DATA : static_cast<SQLLEN>(length);
  auto* text = const_cast<char*>(parm.text);
  return SQLBindParameter(cursor_.get(), place, SQL_PARAM_INPUT, SQL_C_CHAR, SQL_VARCHAR,
                          std::max<SQLULEN>(length, 1), 0, text, static_cast<SQLLEN>(length),
                          &input.indicator);
}

DbilReturnCode OdbcStatement::bindOutputs(MessageList_t& messages) {
  if (outputsVersion_ == columnsVersion()) return DBIL_SUCCESS;
  SQLFreeStmt(cursor_.get(), SQL_UNBIND);
  const int count = columnCount();
  outputs_.assign(columns().size(), Output());
  auto output = outputs_.begin();
  for (const auto& [number, column] : columns()) {
    // Exec() refuses this one afterwards.
    if (number > count) break;
    output->column = column;
    if (!SQL_SUCCEEDED(bindOutput(number, *output++))) return fail(messages);
  }
  outputsVersion_ = columnsVersion();
  return DBIL_SUCCESS;
}

SQLRETURN OdbcStatement::bindOutput(int number, Output& output) {
  const bool isText = output.column.kind == BoundColumn::Text;
  return SQLBindCol(cursor_.get(), static_cast<SQLUSMALLINT>(number), SQL_C_CHAR,
                    isText ? output.column.target : output.digits,
                    isText ? output.column.size : static_cast<SQLLEN>(sizeof output.digits),
                    &output.indicator);
}

int OdbcStatement::columnCount() {
  SQLSMALLINT count = 0;
  SQLNumResultCols(cursor_.get(), &count);
  return count;
}

// A query may be executed in vain, a change may not.
bool OdbcStatement::knowsColumnsEarly() const {
  const auto begins = [this](const char* word) { return beginsWithWord(sql(), word); };
  return begins("insert") || begins("update") || begins("delete");
}

DbilReturnCode OdbcStatement::next(MessageList_t& messages) {
  const SQLRETURN result = SQLFetch(cursor_.get());
  if (result == SQL_NO_DATA) return DBIL_NO_DATA;
  if (!SQL_SUCCEEDED(result)) return fail(messages);
  DbilReturnCode code = DBIL_SUCCESS;
  for (const Output& output : outputs_) {
    if (settle(output) != DBIL_SUCCESS) code = DBIL_SUCCESS_WITH_INFO;
  }
  return code;
}

DbilReturnCode OdbcStatement::settle(const Output& output) {
  if (output.indicator == SQL_NULL_DATA) return storeNull(output.column);
  const bool isText = output.column.kind == BoundColumn::Text;
  if (isText && output.indicator >= 0) {
    return settleText(output.column, static_cast<std::size_t>(output.indicator));
  }
  if (!isText) {
    return storeText(output.column,
                     std::string_view(output.digits, strnlen(output.digits, sizeof output.digits)));
  }
  // The driver does not know the full length: what is in the buffer is known to be cut.
  const auto* buffer = static_cast<const char*>(output.column.target);
  settleText(output.column, strnlen(buffer, static_cast<std::size_t>(output.column.size)));
  return DBIL_SUCCESS_WITH_INFO;
}

void OdbcStatement::closeCursor() {
  if (cursor_) SQLFreeStmt(cursor_.get(), SQL_CLOSE);
}

DbilReturnCode OdbcStatement::fail(MessageList_t& messages) {
  return odbc_.tell(messages, SQL_HANDLE_STMT, cursor_.get(), "statement: " + sql());
}

}  // namespace TvDbil::detail
