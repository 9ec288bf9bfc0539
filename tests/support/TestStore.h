#pragma once

#include <strings.h>

#include <map>
#include <optional>
#include <string>
#include <utility>
#include <variant>

#include "tests/support/TestEngine.h"
#include "zntopo/model/TopoDBType.h"
#include "zntopo/platform/tvdbil/TvDbil.h"

/// @file
/// A topology store for tests: a fresh store with the schema in it, and ways to fill it.

namespace zntopo {

class ZNDB;
class ZNDBConnection;

/// What tests may do to the process's pool of connections.
struct ZNDBTestAccess {
  /// Forgets the pool, so that the next use makes one anew and reads TV_TOPO_STORE again. Idle
  /// connections are closed. No holder may exist.
  static void forget();
  /// The number of connections in existence, idle or lent.
  static int connectionCount();
  /// The number of idle connections.
  static std::size_t idleCount();
  /// The number of connections that would not open or were retired.
  static std::size_t lostCount();
  /// True if nobody holds the pool's lock.
  static bool isUnlocked();
  /// A connection without a platform connection behind it.
  static void dropPlatformConnection(ZNDBConnection& connection);
};

namespace test {

/// A value of a column. Made from a text, a whole number, a double, or nullptr for NULL.
class Value {
 public:
  Value(std::nullptr_t) {}                                      // NOLINT
  Value(int value) : value_(static_cast<long long>(value)) {}   // NOLINT
  Value(long value) : value_(static_cast<long long>(value)) {}  // NOLINT
  Value(long long value) : value_(value) {}                     // NOLINT
  Value(double value) : value_(value) {}                        // NOLINT
  Value(const char* value) : value_(std::string(value)) {}      // NOLINT
  Value(std::string value) : value_(std::move(value)) {}        // NOLINT

  /// As SQL text: NULL, a number, or a quoted text.
  std::string literal() const;

 private:
  std::variant<std::monostate, long long, double, std::string> value_;
};

/// Column names are the same in any case.
struct ColumnNameLess {
  bool operator()(const std::string& left, const std::string& right) const {
    return strcasecmp(left.c_str(), right.c_str()) < 0;
  }
};

/// Values by column name.
using Values = std::map<std::string, Value, ColumnNameLess>;

/// A fresh topology store for the life of this object: the schema is in it and nothing else,
/// TV_TOPO_STORE names it, and the pool is forgotten at both ends. One at a time in a process.
///
///     TestStore store(GetParam());
///     store.insert("state", {{"TopologyReady", 1}, {"ChangeTime", nullptr}});
class TestStore {
 public:
  explicit TestStore(Engine engine = Engine::Sqlite);
  /// The same with other tables than those of the schema.
  TestStore(Engine engine, const StoreSeed& seed);
  ~TestStore();
  TestStore(const TestStore&) = delete;
  TestStore& operator=(const TestStore&) = delete;

  const TestEngine& engine() const { return engine_; }
  bool isPostgres() const { return engine_.isPostgres(); }

  // Each throws std::runtime_error with the driver's messages if the store refuses.

  /// Inserts one row.
  void insert(const std::string& table, const Values& values);
  /// Executes one statement.
  void execute(const std::string& sql);
  /// The first column of the first row as text; nothing for NULL or without a row.
  std::optional<std::string> value(const std::string& sql);
  /// The number of rows of a table.
  int count(const std::string& table);
  /// True if the store accepts the statement; a refusal is no error here.
  bool accepts(const std::string& sql);

  /// Closes the connection of this object; the next use opens another.
  void disconnect() { connection_.reset(); }

  // Rows with what the library needs to find an object; "more" adds columns or replaces values.

  /// The one row of the table "state": ready, with the given time of the last change.
  void setReady(int changeTime = 1000);
  void addNode(const std::string& id, const std::string& name, const Values& more = {},
               TopoDBType set = ActiveDB);
  void addInterface(const std::string& id, const std::string& nodeId, const std::string& name,
                    const Values& more = {}, TopoDBType set = ActiveDB);
  /// An entity that has no table of its own kind here: a VLAN (4), subnet (7), HSRP group (11) ...
  void addEntity(const std::string& id, const std::string& name, int entityType,
                 const Values& more = {}, TopoDBType set = ActiveDB);
  /// An IPv4 address that is public and private alike.
  void addAddress(const std::string& id, const std::string& interfaceId, const std::string& nodeId,
                  const std::string& address, const Values& more = {}, TopoDBType set = ActiveDB);
  /// A layer-2 link.
  void addLink(const std::string& leftInterface, const std::string& rightInterface,
               const std::string& leftNode, const std::string& rightNode, const Values& more = {},
               TopoDBType set = ActiveDB);

 private:
  TvDbil::DbConnection_t& connection();

  TestEngine engine_;
  std::optional<TvDbil::DbConnection_t> connection_;
};

/// A fixture with a topology store on each engine that its suite is instantiated with.
class StoreTest : public testing::TestWithParam<Engine> {
 protected:
  void SetUp() override {
    ZNTOPO_NEED_ENGINE(GetParam());
    store_.emplace(GetParam());
  }

  std::optional<TestStore> store_;
};

}  // namespace test
}  // namespace zntopo
