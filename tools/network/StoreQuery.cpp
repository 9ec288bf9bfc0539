#include "tools/network/StoreQuery.h"

#include <array>

#include "tools/network/StoreError.h"
#include "zntopo/store/GoodCode.h"

namespace zntopo::tools {

namespace {

using TvXplMsg::MessageList_t;

struct Column {
  std::array<char, 256> text{};
  int indicator = 0;
};

void require(TvDbil::DbilReturnCode_t code, const MessageList_t& messages) {
  if (!isGood(code)) throw StoreError("the store can't be read", messages);
}

}  // namespace

std::vector<TextRow> selectTexts(TvDbil::DbConnection_t& connection, const std::string& sql,
                                 std::size_t columns, const std::vector<std::string>& parameters) {
  MessageList_t messages;
  TvDbil::DbStatement_t statement(messages, &connection);
  require(statement.BindSql(messages, sql.c_str()), messages);
  // The statement keeps the addresses of both.
  std::vector<std::string> values = parameters;
  std::vector<Column> row(columns);
  for (std::size_t i = 0; i < values.size(); ++i) {
    require(statement.BindParm(messages, static_cast<int>(i) + 1, values[i].data(), false),
            messages);
  }
  for (std::size_t i = 0; i < columns; ++i) {
    require(statement.BindColumn(messages, static_cast<int>(i) + 1, row[i].text.data(),
                                 &row[i].indicator, static_cast<int>(row[i].text.size())),
            messages);
  }
  require(statement.Exec(messages), messages);
  std::vector<TextRow> result;
  for (;;) {
    const TvDbil::DbilReturnCode_t code = statement.Fetch(messages);
    if (code == TvDbil::DBIL_NO_DATA) return result;
    require(code, messages);
    TextRow& texts = result.emplace_back();
    for (const Column& column : row) {
      texts.emplace_back(column.indicator > 0 ? column.text.data() : "");
    }
  }
}

std::string parameterMarks(std::size_t number) {
  std::string marks;
  for (std::size_t i = 0; i < number; ++i) marks += i == 0 ? "?" : ", ?";
  return marks;
}

}  // namespace zntopo::tools
