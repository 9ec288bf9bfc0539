#include "zntopo/store/SchemaScript.h"

#include "zntopo/platform/tvdbil/detail/SqlText.h"
#include "zntopo/store/GoodCode.h"
#include "zntopo/store/detail/SchemaTexts.h"

namespace zntopo {

namespace {

using TvDbil::DbilReturnCode_t;
using TvDbil::detail::kPlainDialect;
using TvDbil::detail::splitStatements;

DbilReturnCode_t runStatement(TvXplMsg::MessageList_t& messages, TvDbil::DbConnection_t& connection,
                              const std::string& sql) {
  TvDbil::DbStatement_t statement(messages, &connection);
  const DbilReturnCode_t code = statement.BindSql(messages, sql.c_str());
  return isGood(code) ? statement.Exec(messages) : code;
}

DbilReturnCode_t runAll(TvXplMsg::MessageList_t& messages, TvDbil::DbConnection_t& connection,
                        const std::string& script) {
  for (const auto& [sql, parameters] : splitStatements(script, kPlainDialect)) {
    const DbilReturnCode_t code = runStatement(messages, connection, std::string(sql));
    if (!isGood(code)) return code;
  }
  return TvDbil::DBIL_SUCCESS;
}

}  // namespace

const std::string& schemaScript(const std::string& engineName) {
  static const std::string* const sqlite = new std::string(detail::kSqliteSchema);
  static const std::string* const postgreSql = new std::string(detail::kPostgreSqlSchema);
  static const std::string* const none = new std::string();
  if (engineName == "SQLite") return *sqlite;
  return engineName == "PostgreSQL" ? *postgreSql : *none;
}

DbilReturnCode_t createSchema(TvXplMsg::MessageList_t& messages,
                              TvDbil::DbConnection_t& connection) {
  const std::string engine = connection.GetEngineName();
  const std::string& script = schemaScript(engine);
  if (script.empty()) {
    messages.Add(TvXplMsg::CreateError_t("There is no schema for the engine \"" + engine + "\"."));
    return TvDbil::DBIL_ERROR;
  }
  DbilReturnCode_t code = connection.StartTransaction(messages);
  if (!isGood(code)) return code;
  code = runAll(messages, connection, script);
  if (isGood(code)) code = connection.CommitTransaction(messages);
  if (!isGood(code) && connection.InTransaction()) connection.RollbackTransaction(messages);
  return code;
}

}  // namespace zntopo
