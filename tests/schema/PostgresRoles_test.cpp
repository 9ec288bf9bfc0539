#include <gmock/gmock.h>

#include <array>
#include <future>
#include <map>
#include <set>
#include <sstream>
#include <vector>

#include "tests/schema/SchemaTest.h"
#include "tests/support/PostgresRole.h"
#include "zntopo/platform/tvdbil/TvDbil.h"

namespace zntopo::test {
namespace {

using testing::HasSubstr;

using Columns = std::set<std::string, ColumnNameLess>;

/// The columns that the library writes, in every table that has some. Both sets have the same, but
/// of the containers' associations only the plain table is written.
const std::map<std::string, Columns>& writtenColumns() {
  static const auto* const all = new std::map<std::string, Columns>([] {
    const Columns status = {"V6CompoundStatus", "V6SiteStatus", "V6GlobalStatus", "Status",
                            "StatusChangeTimeUTC"};
    Columns node = status;
    node.insert({"SNMPState", "L2DomainId"});
    Columns interface = status;
    interface.insert({"IfAdminState", "IfOperStatus", "L2DomainId"});
    const Columns group = {"state", "HSRPStateCertainty", "HSRPPriority"};
    return std::map<std::string, Columns>{
        {"nwentity", status},
        {"nwentity_update", status},
        {"nwnode", node},
        {"nwnode_update", node},
        {"nwinterface", interface},
        {"nwinterface_update", interface},
        {"nwifc", status},
        {"nwifc_update", status},
        {"address", {"PingState"}},
        {"address_update", {"PingState"}},
        {"hsrpaddress", group},
        {"hsrpaddress_update", group},
        {"nwifcasc", {"State", "StateChangeTime"}},
    };
  }());
  return *all;
}

bool isWritten(const std::string& table, const std::string& column) {
  const auto found = writtenColumns().find(table);
  return found != writtenColumns().end() && found->second.count(column) > 0;
}

/// A connection that tells what becomes of a statement.
class Session {
 public:
  explicit Session(const std::string& store)
      : source_(messages_, store), connection_(messages_, &source_) {}

  /// "done", "denied" for want of a privilege, or what else went wrong.
  std::string answer(const std::string& sql) {
    TvDbil::MessageList_t messages;
    TvDbil::DbStatement_t statement(messages, &connection_);
    if (statement.BindSql(messages, sql.c_str()) == TvDbil::DBIL_SUCCESS &&
        statement.Exec(messages) == TvDbil::DBIL_SUCCESS) {
      return "done";
    }
    const std::string told = messages.Format(TvXplMsg::fRecurse_k);
    const bool isDenied = told.find("SQLSTATE 42501 ") != std::string::npos;
    return isDenied ? "denied" : told;
  }

  bool isOpen() const { return connection_.IsValid(); }
  std::string told() const { return messages_.Format(TvXplMsg::fRecurse_k); }

 private:
  TvDbil::MessageList_t messages_;
  TvDbil::DbSource_t source_;
  TvDbil::DbConnection_t connection_;
};

class PostgresRolesTest : public testing::Test {
 protected:
  void SetUp() override {
    ZNTOPO_NEED_ENGINE(Engine::Postgres);
    store_.emplace(Engine::Postgres);
    makePostgresRoles(store_->engine().store());
    reader_.emplace("zntopo_reader");
    writer_.emplace("zntopo_state_writer");
    stranger_.emplace("");
    asReader_.emplace(reader_->store(owners()));
    asWriter_.emplace(writer_->store(owners()));
  }

  void TearDown() override {
    asReader_.reset();
    asWriter_.reset();
  }

  const std::string& owners() const { return store_->engine().store(); }

  /// The words of the one text that a query gives.
  std::vector<std::string> words(const std::string& sql) {
    std::istringstream text(store_->value(sql).value_or(""));
    std::vector<std::string> result;
    for (std::string word; text >> word;) result.push_back(word);
    return result;
  }

  std::vector<std::string> tables() {
    return words("select string_agg(tablename, ' ') from pg_tables where schemaname = 'public'");
  }

  std::vector<std::string> columns(const std::string& table) {
    return words(
        "select string_agg(column_name, ' ') from information_schema.columns"
        " where table_schema = 'public' and table_name = '" +
        table + "'");
  }

  /// Both roles are denied a statement.
  void expectDenied(const std::string& sql) {
    EXPECT_EQ(asReader_->answer(sql), "denied") << "as a reader: " << sql;
    EXPECT_EQ(asWriter_->answer(sql), "denied") << "as a state writer: " << sql;
  }

  std::optional<TestStore> store_;
  std::optional<PostgresLogin> reader_;
  std::optional<PostgresLogin> writer_;
  std::optional<PostgresLogin> stranger_;
  std::optional<Session> asReader_;
  std::optional<Session> asWriter_;
};

TEST_F(PostgresRolesTest, BothReadEveryColumnAndTheStateWriterChangesTheWrittenOnesAlone) {
  int written = 0;
  ASSERT_EQ(tables().size(), 34U);
  for (const std::string& table : tables()) {
    ASSERT_FALSE(columns(table).empty()) << table;
    std::string all;
    for (const std::string& column : columns(table)) all += (all.empty() ? "" : ", ") + column;
    const std::string read = "select " + all + " from " + table;
    EXPECT_EQ(asReader_->answer(read), "done") << read;
    EXPECT_EQ(asWriter_->answer(read), "done") << read;
    for (const std::string& column : columns(table)) {
      const std::string change = "update " + table + " set " + column + " = " + column;
      EXPECT_EQ(asReader_->answer(change), "denied") << change;
      EXPECT_EQ(asWriter_->answer(change), isWritten(table, column) ? "done" : "denied") << change;
      written += isWritten(table, column);
    }
  }
  // Every column that is said to be written was met.
  int expected = 0;
  for (const auto& [table, names] : writtenColumns()) expected += static_cast<int>(names.size());
  EXPECT_EQ(written, expected);
}

TEST_F(PostgresRolesTest, NeitherTakesRowsOrTablesAway) {
  for (const std::string& table : tables()) {
    for (const char* before : {"delete from ", "truncate ", "drop table "}) {
      expectDenied(before + table);
    }
    expectDenied("insert into " + table + " default values");
    expectDenied("alter table " + table + " add column smuggled text");
    expectDenied("alter table " + table + " rename to smuggled");
    expectDenied("create index smuggled on " + table + " ((1))");
    expectDenied("create rule smuggled as on select to " + table + " do instead nothing");
    expectDenied("comment on table " + table + " is 'smuggled'");
  }
  EXPECT_EQ(tables().size(), 34U);
}

TEST_F(PostgresRolesTest, NeitherInsertsIntoAColumnOrRefersToOne) {
  for (const std::string role : {"zntopo_reader", "zntopo_state_writer"}) {
    for (const std::string privilege : {"INSERT", "REFERENCES"}) {
      EXPECT_EQ(store_->value("select count(*) from pg_class where relkind = 'r' and relnamespace ="
                              " 'public'::regnamespace and has_any_column_privilege('" +
                              role + "', oid, '" + privilege + "')"),
                "0")
          << role << " " << privilege;
    }
  }
}

TEST_F(PostgresRolesTest, NeitherLocksATable) {
  for (const PostgresLogin* login : {&*reader_, &*writer_}) {
    for (const std::string mode : {"access exclusive", "row exclusive"}) {
      const std::string lock = "begin; lock table nwnode in " + mode + " mode; rollback";
      EXPECT_FALSE(psqlAccepts(login->store(owners()), lock)) << mode;
      EXPECT_TRUE(psqlAccepts(owners(), lock)) << mode;
    }
  }
}

TEST_F(PostgresRolesTest, NeitherGivesAwayWhatItHas) {
  const std::string list =
      "select md5(string_agg(relname || coalesce(relacl::text, ''), ',' order by relname))"
      " from pg_class where relnamespace = 'public'::regnamespace";
  const auto before = store_->value(list);
  for (Session* session : {&*asReader_, &*asWriter_}) {
    // A grant of nothing is a warning, no error.
    session->answer("grant all on all tables in schema public to public");
    session->answer("grant update (SNMPState) on nwnode to zntopo_reader");
  }
  EXPECT_EQ(store_->value(list), before);
  EXPECT_EQ(asReader_->answer("update nwnode set SNMPState = SNMPState"), "denied");
}

TEST_F(PostgresRolesTest, NeitherMakesAnything) {
  for (const char* sql :
       {"create table smuggled (a int)", "create temporary table nwnode (a int)",
        "create schema smuggled", "create view smuggled as select 1", "create sequence smuggled",
        "create role smuggled", "create database smuggled",
        "create function smuggled() returns int language sql as 'select 1'",
        "select lo_create(4711)", "select lo_creat(-1)", "select lo_from_bytea(0, 'x')",
        "copy nwnode to program 'true'", "copy nwnode to '/tmp/zntopo-smuggled'",
        "copy nwnode from program 'true'", "set role zntopo", "set session authorization zntopo",
        "select pg_read_file('postgresql.conf')", "alter system set fsync = off"}) {
    expectDenied(sql);
  }
}

TEST_F(PostgresRolesTest, TheReaderIsNoStateWriter) {
  EXPECT_EQ(asReader_->answer("set role zntopo_state_writer"), "denied");
  EXPECT_EQ(asWriter_->answer("set role zntopo_reader"), "denied");
}

TEST_F(PostgresRolesTest, WhoHasNeitherRoleDoesNotEvenConnect) {
  const Session stranger(stranger_->store(owners()));
  EXPECT_FALSE(stranger.isOpen());
  EXPECT_THAT(stranger.told(), HasSubstr("permission denied for database"));
}

TEST_F(PostgresRolesTest, NobodyHasAnythingAsAMemberOfThePublic) {
  // An entry of an access list without a name before the "=" is the public's.
  EXPECT_EQ(store_->value("select count(*) from pg_class, unnest(relacl) entry"
                          " where relnamespace = 'public'::regnamespace and entry::text like '=%'"),
            "0");
  EXPECT_EQ(store_->value("select count(*) from pg_attribute, unnest(attacl) entry"
                          " where attrelid in (select oid from pg_class where relnamespace ="
                          " 'public'::regnamespace) and entry::text like '=%'"),
            "0");
  EXPECT_EQ(store_->value("select count(*) from pg_namespace, unnest(nspacl) entry"
                          " where nspname = 'public' and entry::text like '=%'"),
            "0");
  EXPECT_EQ(store_->value("select count(*) from pg_database, unnest(datacl) entry"
                          " where datname = current_database() and entry::text like '=%'"),
            "0");
}

TEST_F(PostgresRolesTest, TheRolesCannotLogInAndOwnNothing) {
  const std::string roles = "('zntopo_reader', 'zntopo_state_writer')";
  EXPECT_EQ(store_->value("select count(*) from pg_roles where rolname in " + roles +
                          " and not (rolcanlogin or rolsuper or rolcreaterole or rolcreatedb"
                          " or rolreplication or rolbypassrls)"),
            "2");
  EXPECT_EQ(store_->value("select count(*) from pg_class where relowner in"
                          " (select oid from pg_roles where rolname in " +
                          roles + ")"),
            "0");
}

TEST_F(PostgresRolesTest, NamesAreLookedUpInTheSchemaOfTheStoreAlone) {
  TvDbil::MessageList_t messages;
  for (const PostgresLogin* login : {&*reader_, &*writer_}) {
    const TvDbil::DbSource_t source(messages, login->store(owners()));
    TvDbil::DbConnection_t connection(messages, &source);
    TvDbil::DbStatement_t statement(messages, &connection);
    char path[64] = "";
    statement.BindSql(messages, "select current_setting('search_path')");
    statement.BindColumn(messages, 1, path, nullptr, sizeof path);
    EXPECT_EQ(statement.Exec(messages), TvDbil::DBIL_SUCCESS);
    EXPECT_EQ(statement.Fetch(messages), TvDbil::DBIL_SUCCESS);
    EXPECT_STREQ(path, "public, pg_temp");
  }
}

TEST_F(PostgresRolesTest, TheStatementsOfStateChangesDoTheirWork) {
  store_->addNode("n", "node");
  store_->addNode("n", "node", {}, WorkingDB);
  store_->addInterface("i", "n", "eth0");
  store_->addAddress("a", "i", "n", "10.0.0.1");
  store_->insert("hsrpaddress", {{"ObjID", "g"}, {"AddressID", "a"}});
  store_->insert("nwifcasc",
                 {{"LeftIFContainerObjID", "l"}, {"RightIFContainerObjID", "r"}, {"RelType", 1}});
  for (const char* sql :
       {"update nwnode set SNMPState = 7 where ObjID = 'n' ",
        "update nwnode_update set STATUS = 7,  STATUSCHANGETIMEUTC = 7 where ObjID = 'n' ",
        "update nwentity set V6SITESTATUS = 7,  STATUSCHANGETIMEUTC = 7 where ObjID = 'n' ",
        " update nwinterface set L2DomainId = 7 where objid = 'i'",
        " update address set PingState = 7 where ADDRESSID = 'a'",
        " update hsrpaddress set STATE = 7, HSRPSTATECERTAINTY = 7, HSRPPRIORITY = 7 where "
        "ADDRESSID = 'a'",
        "update nwifcasc set state = 7, STATECHANGETIME = 7  where LEFTIFCONTAINEROBJID = 'l' and "
        "RIGHTIFCONTAINEROBJID = 'r' and RELTYPE = 1 "}) {
    EXPECT_EQ(asReader_->answer(sql), "denied") << sql;
    EXPECT_EQ(asWriter_->answer(sql), "done") << sql;
  }
  EXPECT_EQ(store_->value("select SNMPState from nwnode"), "7");
  EXPECT_EQ(store_->value("select Status from nwnode_update"), "7");
  EXPECT_EQ(store_->value("select V6SiteStatus from nwentity where ObjId = 'n'"), "7");
  EXPECT_EQ(store_->value("select L2DomainId from nwinterface"), "7");
  EXPECT_EQ(store_->value("select PingState from address"), "7");
  EXPECT_EQ(store_->value("select HSRPPriority from hsrpaddress"), "7");
  EXPECT_EQ(store_->value("select State from nwifcasc"), "7");
}

TEST_F(PostgresRolesTest, TheScriptMayRunSeveralTimesAtOnce) {
  std::array<std::future<void>, 4> runs;
  for (auto& run : runs) {
    run = std::async(std::launch::async, [this] { makePostgresRoles(owners()); });
  }
  for (auto& run : runs) EXPECT_NO_THROW(run.get());
  EXPECT_EQ(asReader_->answer("select * from nwnode"), "done");
}

TEST_F(PostgresRolesTest, RunAgainTheScriptTakesBackWhatWasGivenBeside) {
  store_->execute("grant insert on nwnode to zntopo_reader");
  store_->execute("grant update (EntityName) on nwnode to zntopo_state_writer");
  store_->execute("grant select on nwnode to public");
  EXPECT_EQ(asWriter_->answer("update nwnode set EntityName = EntityName"), "done");
  makePostgresRoles(owners());
  EXPECT_EQ(asReader_->answer("insert into nwnode (ObjId) values ('x')"), "denied");
  EXPECT_EQ(asWriter_->answer("update nwnode set EntityName = EntityName"), "denied");
  EXPECT_EQ(asWriter_->answer("update nwnode set SNMPState = SNMPState"), "done");
  EXPECT_EQ(asReader_->answer("select * from nwnode"), "done");
}

}  // namespace
}  // namespace zntopo::test
