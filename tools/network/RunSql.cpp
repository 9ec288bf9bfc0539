#include "tools/network/RunSql.h"

#include "tools/network/StoreError.h"
#include "zntopo/store/GoodCode.h"

namespace zntopo::tools {

void runSql(TvDbil::DbConnection_t& connection, const std::string& sql, const std::string& what) {
  TvXplMsg::MessageList_t messages;
  TvDbil::DbStatement_t statement(messages, &connection);
  if (!isGood(statement.BindSql(messages, sql.c_str())) || !isGood(statement.Exec(messages))) {
    throw StoreError(what, messages);
  }
}

}  // namespace zntopo::tools
