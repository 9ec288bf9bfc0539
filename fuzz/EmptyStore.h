#pragma once

#include <sqlite3.h>
#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <string>

#include "fuzz/Fuzz.h"
#include "zntopo/platform/tvdbil/TvDbil.h"

namespace zntopo::fuzz {

/// An empty store. The library opens none in memory, so it is a file that need not stay.
class EmptyStore {
 public:
  EmptyStore() {
    std::ifstream file(ZNTOPO_SOURCE_DIR "/data/schema/sqlite.sql");
    const std::string script{std::istreambuf_iterator<char>(file), {}};
    char folder[] = "/tmp/zntopo-fuzz-XXXXXX";
    ZNTOPO_REQUIRE(mkdtemp(folder));
    const std::string path = std::string(folder) + "/store.db";
    sqlite3* database = nullptr;
    ZNTOPO_REQUIRE(sqlite3_open(path.c_str(), &database) == SQLITE_OK);
    ZNTOPO_REQUIRE(sqlite3_exec(database, script.c_str(), nullptr, nullptr, nullptr) == SQLITE_OK);
    sqlite3_close(database);
    TvXplMsg::MessageList_t messages;
    const TvDbil::DbSource_t source(messages, path);
    connection_ = std::make_unique<TvDbil::DbConnection_t>(messages, &source);
    ZNTOPO_REQUIRE(connection_->IsValid());
    take("select NODE.objid from nwnode NODE, address ADDR where 1 = 0");
    std::filesystem::remove_all(folder);
  }

  /// Prepares and executes a statement.
  void take(const std::string& sql) {
    TvXplMsg::MessageList_t messages;
    TvDbil::DbStatement_t statement(messages, connection_.get());
    ZNTOPO_REQUIRE(statement.BindSql(messages, sql.c_str()) == TvDbil::DBIL_SUCCESS);
    ZNTOPO_REQUIRE(statement.Exec(messages) == TvDbil::DBIL_SUCCESS);
  }

 private:
  std::unique_ptr<TvDbil::DbConnection_t> connection_;
};

}  // namespace zntopo::fuzz
