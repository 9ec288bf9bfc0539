#include "zntopo/store/SchemaScript.h"

#include <string_view>

#include "zntopo/store/detail/GoodCode.h"
#include "zntopo/store/detail/SchemaTexts.h"

namespace zntopo {

namespace {

using detail::isGood;
using TvDbil::DbilReturnCode_t;

/// The end of the piece of text that starts at a place: a quoted piece, a comment, or one
/// character.
std::size_t endOfPiece(std::string_view script, std::size_t start) {
  const char first = script[start];
  std::size_t end = std::string_view::npos;
  if (first == '\'' || first == '"') {
    end = script.find(first, start + 1);
  } else if (script.substr(start, 2) == "--") {
    end = script.find('\n', start);
  } else {
    return start + 1;
  }
  return end == std::string_view::npos ? script.size() : end + 1;
}

std::string trimmed(const std::string& text) {
  constexpr const char* kBlanks = " \t\r\n";
  const std::size_t first = text.find_first_not_of(kBlanks);
  if (first == std::string::npos) return {};
  return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

DbilReturnCode_t runStatement(TvXplMsg::MessageList_t& messages, TvDbil::DbConnection_t& connection,
                              const std::string& sql) {
  TvDbil::DbStatement_t statement(messages, &connection);
  const DbilReturnCode_t code = statement.BindSql(messages, sql.c_str());
  return isGood(code) ? statement.Exec(messages) : code;
}

DbilReturnCode_t runAll(TvXplMsg::MessageList_t& messages, TvDbil::DbConnection_t& connection,
                        const std::string& script) {
  for (const std::string& sql : splitSchemaScript(script)) {
    const DbilReturnCode_t code = runStatement(messages, connection, sql);
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

std::vector<std::string> splitSchemaScript(const std::string& script) {
  std::vector<std::string> statements;
  std::string statement;
  const auto finish = [&] {
    statement = trimmed(statement);
    if (!statement.empty()) statements.push_back(std::move(statement));
    statement.clear();
  };
  for (std::size_t start = 0, end = 0; start < script.size(); start = end) {
    end = endOfPiece(script, start);
    if (script[start] == ';') {
      finish();
    } else if (script.compare(start, 2, "--") == 0) {
      statement += '\n';
    } else {
      statement.append(script, start, end - start);
    }
  }
  finish();
  return statements;
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
