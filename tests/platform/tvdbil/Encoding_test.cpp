#include <gtest/gtest.h>
#include <sqlite3.h>

#include <string>

#include "tests/support/TestEngine.h"
#include "zntopo/platform/tvdbil/TvDbil.h"

namespace zntopo::test {
namespace {

const std::string kText = "Z\xC3\xBCrich \xE2\x82\xAC \xF0\x9F\x98\x80";

/// A file as another program may have made it, with a text in it.
void makeStore(const std::string& path, const std::string& encoding) {
  sqlite3* database = nullptr;
  ASSERT_EQ(sqlite3_open(path.c_str(), &database), SQLITE_OK);
  const std::string script = "pragma encoding = '" + encoding +
                             "'; create table names (name text); insert into names values ('" +
                             kText + "');";
  EXPECT_EQ(sqlite3_exec(database, script.c_str(), nullptr, nullptr, nullptr), SQLITE_OK);
  sqlite3_close(database);
}

/// Fetches the text into a buffer of a width, by a search for the text itself.
TvDbil::DbilReturnCode fetch(const std::string& store, int width, std::string& text,
                             int& indicator) {
  TvDbil::MessageList_t messages;
  const TvDbil::DbSource_t source(messages, store);
  TvDbil::DbConnection_t connection(messages, &source);
  TvDbil::DbStatement_t statement(messages, &connection);
  std::string sought = kText;
  std::string buffer(static_cast<std::size_t>(width), '#');
  statement.BindSql(messages, "select name from names where name = ?");
  statement.BindParm(messages, 1, sought.data(), false);
  statement.BindColumn(messages, 1, buffer.data(), &indicator, width);
  EXPECT_EQ(statement.Exec(messages), TvDbil::DBIL_SUCCESS)
      << messages.Format(TvXplMsg::fRecurse_k);
  const TvDbil::DbilReturnCode code = statement.Fetch(messages);
  text = buffer.c_str();
  return code;
}

TEST(EncodingTest, TextsOfAFileInUtf16ComeAndGoAsUtf8) {
  for (const char* encoding : {"UTF-16le", "UTF-16be", "UTF-8"}) {
    const TestEngine engine(Engine::Sqlite);
    const std::string path = (engine.folder() / "encoded.db").string();
    makeStore(path, encoding);
    for (const std::string& store : {path, "Driver=SQLite3;Database=" + path + ";"}) {
      std::string text;
      int indicator = 99;
      EXPECT_EQ(fetch(store, 40, text, indicator), TvDbil::DBIL_SUCCESS) << store;
      EXPECT_EQ(text, kText) << store << " in " << encoding;
      EXPECT_EQ(indicator, static_cast<int>(kText.size())) << store << " in " << encoding;
      EXPECT_EQ(fetch(store, 5, text, indicator), TvDbil::DBIL_SUCCESS_WITH_INFO) << store;
      EXPECT_EQ(text, kText.substr(0, 4)) << store << " in " << encoding;
      EXPECT_EQ(indicator, static_cast<int>(kText.size())) << store << " in " << encoding;
    }
  }
}

}  // namespace
}  // namespace zntopo::test
