#include "tools/network/StoreStatement.h"

#include <array>
#include <utility>

#include "tools/network/StoreError.h"
#include "zntopo/store/GoodCode.h"

namespace zntopo::tools {

StoreStatement::StoreStatement(TvDbil::DbConnection_t& connection, const std::string& sql,
                               std::string complaint)
    : complaint_(std::move(complaint)), statement_(messages_, &connection) {
  require(statement_.BindSql(messages_, sql.c_str()));
}

void StoreStatement::require(TvDbil::DbilReturnCode_t code) const {
  if (!isGood(code)) throw StoreError(complaint_, messages_);
}

void StoreStatement::add(const int* value) {
  require(statement_.BindParm(messages_, ++parameters_, value, value == nullptr));
}

void StoreStatement::add(const char* text) {
  // The driver only reads it.
  char* const value = const_cast<char*>(text);
  require(statement_.BindParm(messages_, ++parameters_, value, value == nullptr));
}

void StoreStatement::bind(int* value, int* indicator) {
  require(statement_.BindColumn(messages_, ++columns_, value, indicator));
}

void StoreStatement::bind(float* value, int* indicator) {
  require(statement_.BindColumn(messages_, ++columns_, value, indicator));
}

void StoreStatement::bind(char* text, std::size_t size, int* indicator) {
  require(statement_.BindColumn(messages_, ++columns_, text, indicator, static_cast<int>(size)));
}

void StoreStatement::execute() {
  parameters_ = 0;
  require(statement_.Exec(messages_));
}

bool StoreStatement::fetch() {
  const TvDbil::DbilReturnCode_t code = statement_.Fetch(messages_);
  if (code == TvDbil::DBIL_NO_DATA) return false;
  require(code);
  isCut_ = code == TvDbil::DBIL_SUCCESS_WITH_INFO;
  return true;
}

std::vector<TextRow> selectTexts(TvDbil::DbConnection_t& connection, const std::string& sql,
                                 std::size_t columns, const std::vector<std::string>& parameters) {
  struct Column {
    std::array<char, 256> text{};
    int indicator = 0;
  };
  StoreStatement statement(connection, sql);
  for (const std::string& parameter : parameters) statement.add(parameter.c_str());
  std::vector<Column> row(columns);
  for (Column& column : row) {
    statement.bind(column.text.data(), column.text.size(), &column.indicator);
  }
  statement.execute();
  std::vector<TextRow> result;
  while (statement.fetch()) {
    TextRow& texts = result.emplace_back();
    for (const Column& column : row) {
      texts.emplace_back(column.indicator > 0 ? column.text.data() : "");
    }
  }
  return result;
}

void executeText(TvDbil::DbConnection_t& connection, const std::string& sql,
                 const std::string& complaint) {
  StoreStatement(connection, sql, complaint).execute();
}

std::string parameterMarks(std::size_t number) {
  std::string marks;
  for (std::size_t i = 0; i < number; ++i) marks += i == 0 ? "?" : ", ?";
  return marks;
}

}  // namespace zntopo::tools
