#include "tests/support/TestStore.h"

#include <cstdlib>
#include <sstream>
#include <stdexcept>
#include <vector>

#include "zntopo/store/GoodCode.h"
#include "zntopo/store/SchemaScript.h"
#include "zntopo/store/TableSet.h"
#include "zntopo/store/ZNDB.h"

namespace zntopo {

void ZNDBTestAccess::forget() {
  // Pools that were forgotten stay reachable, for what they lost hangs on them.
  static auto* const forgotten = new std::vector<ZNDB*>;
  ZNDB* const pool = ZNDB::myInstance.exchange(nullptr);
  ZNDB::myConnectionCount = 0;
  if (!pool) return;
  for (ZNDBConnection* idle : pool->myConnectionPool) delete idle;
  pool->myConnectionPool.clear();
  for (ZNDBConnection* lost : pool->myLostConnections) delete lost;
  pool->myLostConnections.clear();
  forgotten->push_back(pool);
}

int ZNDBTestAccess::connectionCount() { return ZNDB::myConnectionCount; }

std::size_t ZNDBTestAccess::idleCount() {
  ZNDB* const pool = ZNDB::myInstance;
  return pool ? pool->myConnectionPool.size() : 0;
}

std::size_t ZNDBTestAccess::lostCount() {
  ZNDB* const pool = ZNDB::myInstance;
  return pool ? pool->myLostConnections.size() : 0;
}

bool ZNDBTestAccess::isUnlocked() {
  ZNDB* const pool = ZNDB::myInstance;
  if (!pool || pthread_mutex_trylock(&pool->myConnectionMutex) != 0) return false;
  pthread_mutex_unlock(&pool->myConnectionMutex);
  return true;
}

void ZNDBTestAccess::dropPlatformConnection(ZNDBConnection& connection) {
  connection.myConn.reset();
}

namespace test {

namespace {

void check(TvDbil::DbilReturnCode_t code, const TvXplMsg::MessageList_t& messages,
           const std::string& what) {
  if (isGood(code)) return;
  throw std::runtime_error(what + ": " + messages.Format(TvXplMsg::fRecurse_k));
}

void fillWithSchema(const std::string& store) {
  TvXplMsg::MessageList_t messages;
  TvDbil::DbSource_t source(messages, store);
  TvDbil::DbConnection_t connection(messages, &source);
  check(createSchema(messages, connection), messages, "the schema");
}

/// The seed's name tells the version of the schema, for a server may outlive a build.
const StoreSeed& schemaSeed() {
  static const auto* const seed = new StoreSeed{
      "zntopo_schema_" + std::to_string(std::hash<std::string>()(schemaScript("PostgreSQL"))),
      fillWithSchema};
  return *seed;
}

/// Values that stand where "more" says nothing else; NULL in "more" replaces, too.
Values merged(const Values& more, Values defaults) {
  Values all = more;
  all.merge(defaults);
  return all;
}

}  // namespace

std::string Value::literal() const {
  if (const auto* number = std::get_if<long long>(&value_)) return std::to_string(*number);
  if (const auto* real = std::get_if<double>(&value_)) {
    std::ostringstream text;
    text << *real;
    return text.str();
  }
  const auto* text = std::get_if<std::string>(&value_);
  if (!text) return "NULL";
  std::string quoted = "'";
  for (const char c : *text) quoted += c == '\'' ? std::string("''") : std::string(1, c);
  return quoted + "'";
}

TestStore::TestStore(Engine engine) : TestStore(engine, schemaSeed()) {}

TestStore::TestStore(Engine engine, const StoreSeed& seed) : engine_(engine, seed) {
  engine_.setEnvironment();
  ZNDBTestAccess::forget();
}

TestStore::~TestStore() {
  connection_.reset();
  ZNDBTestAccess::forget();
  unsetenv("TV_TOPO_STORE");
}

TvDbil::DbConnection_t& TestStore::connection() {
  if (connection_ && !connection_->IsValid()) connection_.reset();
  if (!connection_) {
    TvXplMsg::MessageList_t messages;
    const TvDbil::DbSource_t source(messages, engine_.store());
    connection_.emplace(messages, &source);
    if (!connection_->IsValid()) check(TvDbil::DBIL_ERROR, messages, engine_.store());
  }
  return *connection_;
}

void TestStore::execute(const std::string& sql) {
  TvXplMsg::MessageList_t messages;
  TvDbil::DbStatement_t statement(messages, &connection());
  check(statement.BindSql(messages, sql.c_str()), messages, sql);
  check(statement.Exec(messages), messages, sql);
}

bool TestStore::accepts(const std::string& sql) {
  try {
    execute(sql);
  } catch (const std::runtime_error&) {
    return false;
  }
  return true;
}

std::optional<std::string> TestStore::value(const std::string& sql) {
  TvXplMsg::MessageList_t messages;
  TvDbil::DbStatement_t statement(messages, &connection());
  std::vector<char> buffer(8192);
  int indicator = 0;
  check(statement.BindSql(messages, sql.c_str()), messages, sql);
  check(
      statement.BindColumn(messages, 1, buffer.data(), &indicator, static_cast<int>(buffer.size())),
      messages, sql);
  check(statement.Exec(messages), messages, sql);
  const TvDbil::DbilReturnCode_t code = statement.Fetch(messages);
  if (code == TvDbil::DBIL_NO_DATA) return std::nullopt;
  check(code, messages, sql);
  return indicator < 0 ? std::nullopt : std::optional<std::string>(buffer.data());
}

int TestStore::count(const std::string& table) {
  return std::stoi(value("select count(*) from " + table).value());
}

void TestStore::insert(const std::string& table, const Values& values) {
  std::string names;
  std::string literals;
  for (const auto& [name, content] : values) {
    names += (names.empty() ? "" : ", ") + name;
    literals += (literals.empty() ? "" : ", ") + content.literal();
  }
  execute("insert into " + table + " (" + names + ") values (" + literals + ")");
}

void TestStore::setReady(int changeTime) {
  execute("delete from state");
  insert("state", {{"TopologyReady", 1},
                   {"DISCOCYCLECOMPLETE", 1},
                   {"MeshState", 1},
                   {"HSRPState", 1},
                   {"ContainmentState", 1},
                   {"RelatedToState", 1},
                   {"TOPOLOGYREADYCHANGETIME", changeTime},
                   {"DiscoZoneComplete", 1},
                   {"DiscoZoneInProgress", 0},
                   {"ChangeTime", changeTime},
                   {"CreateTime", 1},
                   {"PrevDiscoEndTime", 1}});
}

void TestStore::addEntity(const std::string& id, const std::string& name, int entityType,
                          const Values& more, TopoDBType set) {
  insert(TableSet(set).nwentityTbl_,
         merged(more,
                {{"ObjId", id}, {"EntityName", name}, {"EntityType", entityType}, {"IPLevel", 4}}));
}

void TestStore::addNode(const std::string& id, const std::string& name, const Values& more,
                        TopoDBType set) {
  addEntity(id, name, 1, {}, set);
  insert(TableSet(set).nwnodeTbl_,
         merged(more, {{"ObjId", id}, {"EntityName", name}, {"EntityType", 1}, {"IPLevel", 4}}));
}

void TestStore::addInterface(const std::string& id, const std::string& nodeId,
                             const std::string& name, const Values& more, TopoDBType set) {
  addEntity(id, name, 2, {}, set);
  insert(TableSet(set).nwinterfaceTbl_, merged(more, {{"ObjId", id},
                                                      {"EntityName", name},
                                                      {"EntityType", 2},
                                                      {"IPLevel", 4},
                                                      {"NodeObjID", nodeId},
                                                      {"IfName", name},
                                                      {"VendorCard", "0"},
                                                      {"VendorPort", "0"}}));
}

void TestStore::addAddress(const std::string& id, const std::string& interfaceId,
                           const std::string& nodeId, const std::string& address,
                           const Values& more, TopoDBType set) {
  insert(TableSet(set).addressTbl_, merged(more, {{"AddressId", id},
                                                  {"ObjId", interfaceId},
                                                  {"NodeObjId", nodeId},
                                                  {"AddressType", 1},
                                                  {"IPLevel", 4},
                                                  {"isSubnet", 0},
                                                  {"V4Address", address},
                                                  {"PubV4Address", address}}));
}

void TestStore::addLink(const std::string& leftInterface, const std::string& rightInterface,
                        const std::string& leftNode, const std::string& rightNode,
                        const Values& more, TopoDBType set) {
  insert(TableSet(set).nwinterfaceassociationTbl_, merged(more, {{"leftobjid", leftInterface},
                                                                 {"rightobjid", rightInterface},
                                                                 {"leftifnodeobjid", leftNode},
                                                                 {"rightifnodeobjid", rightNode},
                                                                 {"reltype", 1}}));
}

}  // namespace test
}  // namespace zntopo
